// The set in a document's file: a record of 12 bytes for each name, and an
// empty one behind them.

#include "base/bfile.h"
#include "dict/dictset.h"

#include <cstring>

namespace
{

constexpr int32_t NAMESIZE = 12;

// A name that fills its record was cut when it was written: it is nobody's. Named
// twice, a dictionary's words would be found twice.
void namedadd(const char *name)
{
    if (!memchr(name, 0, NAMESIZE)) return;
    int32_t number = dictnamefind(name);
    if (number >= 0 && !dictinset(static_cast<uint32_t>(number)))
        dictsetadd(static_cast<uint32_t>(number));
}

} // namespace

bool dictsetread(bfile *file)
{
    char name[NAMESIZE];
    dictset.count = 0;
    for (;;) {
        if (breadall(file, name, NAMESIZE)) return true;
        if (!name[0]) break;
        namedadd(name);
    }
    for (uint32_t i = 0; i < ndicts; i++)
        dictdrop(i);
    return false;
}

uint32_t dictsetwrite(bfile *file)
{
    static const char end[NAMESIZE] = {};
    errorblock *err = nullptr;
    for (uint32_t i = 0; i < dictset.count && !err; i++)
        err = bwriteall(file, dicts[dictset.numbers[i]].name, NAMESIZE);
    if (!err) err = bwriteall(file, end, NAMESIZE);
    return err ? 1 : 0;
}
