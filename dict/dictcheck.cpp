#include "base/trace.h"
#include "dict/dictindex.h"
#include "dict/wordcodes.h"

int32_t dictcheck(const Dictionary *dict)
{
    trace("noindex %u", dict->noindex);
    for (uint32_t i = 0; i < dict->noindex; i++) {
        uint32_t woff = dictentries(dict)[i].woff;
        const uint8_t *head = dictrecord(dict, woff);
        if (*head > ESCAPECODE)
            trace("code %d %d %d error index=%u f->woff=%u", woff ? head[-1] : 0, head[0], head[1],
                  i, woff);
    }
    return static_cast<int32_t>(dict->noindex);
}
