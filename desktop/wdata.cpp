#include "desktop/wdata.h"

#include "base/boxes.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/trace.h"
#include "desktop/blocks.h"

#include <algorithm>
#include <iterator>

wdata *wdatas;
window wdataparent;

// The variables of the walks under way; 0 for a free entry. Changed by wdatawatch
// and wdataunwatch.
static wdata **walks[WDATAWALKS];

errorblock *wdatanew(window w, wdata **record)
{
    void *memory = nullptr;
    errorblock *err = heap_alloc(&memory, sizeof(wdata));
    if (err) return err;
    wdata *made = static_cast<wdata *>(memory);
    made->handle = w;
    made->next = wdatas;
    if (wdatas) wdatas->previous = made;
    wdatas = *record = made;
    return nullptr;
}

void wdatafree(wdata *record)
{
    for (wdata **next : walks)
        if (next && *next == record) *next = record->next;
    (record->previous ? record->previous->next : wdatas) = record->next;
    if (record->next) record->next->previous = record->previous;
    void *memory = record;
    heap_free(&memory);
}

wdata *wdatafind(window w)
{
    wdata *record = wdatas;
    while (record && record->handle != w)
        record = record->next;
    return record;
}

static int wdatacount()
{
    int count = 0;
    for (const wdata *record = wdatas; record; record = record->next)
        count++;
    return count;
}

void checkhandle(window w, const char *word)
{
    if (wdatafind(w)) return;
    trace("illegal window handle %x at %s", static_cast<unsigned>(w), word);
    trace("wimp check %s wdata's %d", word, wdatacount());
}

void wdatawatch(wdata **next)
{
    auto *entry = std::find(std::begin(walks), std::end(walks), nullptr);
    if (entry != std::end(walks)) *entry = next;
}

void wdataunwatch(wdata **next)
{
    std::replace(std::begin(walks), std::end(walks), next, static_cast<wdata **>(nullptr));
}

static void tell(window w, int32_t type)
{
    int32_t index = findblock(type, BLOCKANY, w, BLOCKANY, nullptr);
    if (index < 0) return;
    block b = blockat(index);
    reporterror(reinterpret_cast<parentfunction>(b.function)(b.window, b.data));
}

// The handler may free this record too, and make a window at the same handle.
static void drop(window w, window parent)
{
    wdata *left = wdatafind(w);
    if (left && left->parent == parent) wdatafree(left);
}

void wdatadependants(window parent, int32_t type, void (*ending)(window), bool dropping)
{
    wdata *next = nullptr;
    for (wdata *record = wdatas; record; record = next) {
        next = record->next;
        if (record->parent != parent) continue;
        window self = record->handle;
        wdatawatch(&next);
        ending(self);
        tell(self, type);
        if (dropping) drop(self, parent);
        wdataunwatch(&next);
    }
}
