#include "desktop/loadrequest.h"

#include "base/boxes.h"
#include "base/errors.h"
#include "base/filetypes.h"
#include "base/flex.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/task.h"

#include <cstring>

// A request that waits for the poll: a plain block, the name behind its head.
struct request {
    int32_t filetype;
    char name[1]; // as long as it needs
};

static errorblock *loadnow(const char *name, int32_t filetype, intptr_t flag, bool *handled)
{
    int32_t index = findblock(EVENTLOAD, BLOCKANY, filetype, BLOCKANY, nullptr);
    if (index == -1) return nullptr;
    *handled = true;
    auto load = reinterpret_cast<loadfunction>(blockat(index).function);
    errorblock *err = load(name, filetype, 0, flag);
    if (err) return err;

    index = findblock(EVENTLOADED, BLOCKANY, filetype, BLOCKANY, nullptr);
    if (index == -1) return nullptr;
    return reinterpret_cast<loadedfunction>(blockat(index).function)(0);
}

// Nobody waits for the error any more, and one request must not keep the next
// from its turn: it is shown here.
static errorblock *loadlater(intptr_t number, intptr_t data, intptr_t, intptr_t)
{
    void *noted = reinterpret_cast<void *>(data);
    auto *r = static_cast<request *>(noted);
    bool handled = false;
    reporterror(loadnow(r->name, r->filetype, 0, &handled));
    remmessagehandler(number, loadlater, data);
    heap_free(&noted);
    return nullptr;
}

static errorblock *loadnote(const char *name, int32_t filetype)
{
    void *noted;
    auto length = static_cast<int32_t>(std::strlen(name));
    errorblock *err = heap_alloc(&noted, static_cast<int32_t>(sizeof(request)) + length);
    if (err) return err;
    auto *r = static_cast<request *>(noted);
    r->filetype = filetype;
    std::strcpy(r->name, name);
    err = addmessagehandler(TASKRUN, loadlater, reinterpret_cast<intptr_t>(noted));
    if (err) heap_free(&noted);
    return err;
}

errorblock *loadfile(const char *name, intptr_t flag, bool *handled)
{
    int32_t filetype = filetypeof(name);
    if (flag || taskrunning()) return loadnow(name, filetype, flag, handled);
    *handled = true;
    return loadnote(name, filetype);
}
