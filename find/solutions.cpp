#include "find/solutions.h"

#include "base/errors.h"
#include "base/text.h"
#include "find/findwindow.h"

#include <algorithm>
#include <cstring>

solutionslist solutions;

namespace
{

constexpr int32_t LISTCHUNK = 2048;

// Room for one more entry of size bytes. The list grows by a part of itself, so that
// a million entries are moved a few times and no more; where memory is short, by little.
errorblock *listgrow(int32_t size)
{
    int64_t need = (int64_t{solutions.count} + 1) * size;
    if (solutions.wslist && need < solutions.room) return nullptr;
    if (need > INT32_MAX - size) return makeerror(ERRORMEMORY);
    auto bytes = static_cast<int32_t>(need);
    errorblock *err = flex_chunk(&solutions.wslist, bytes, std::max(LISTCHUNK, bytes / 2));
    if (err && bytes / 2 > LISTCHUNK) err = flex_chunk(&solutions.wslist, bytes, LISTCHUNK);
    if (!err) flex_size(&solutions.wslist, &solutions.room);
    return err;
}

wordref *refat(int32_t entry, int32_t slot)
{
    return static_cast<wordref *>(solutions.wslist) + entry * solutions.slotcount + slot;
}

} // namespace

void solutionsreset()
{
    solreset();
    solutions = {};
    solutions.maxsolutions = MAXSOLUTIONSDEFAULT;
    lastword[0] = 0;
    solreset();
}

void solreset()
{
    flex_free(&solutions.wslist);
    solutions.count = 0;
    solutions.standing = -1;
    solprogress(0);
}

errorblock *soladdref(wordref ref, int32_t slot)
{
    errorblock *err = nullptr;
    if (slot == solutions.slotcount - 1) {
        err = listgrow(solutions.slotcount * static_cast<int32_t>(sizeof ref));
        if (!err) solprogress(++solutions.count);
    }
    if (solutions.count && slot < solutions.slotcount) *refat(solutions.count - 1, slot) = ref;
    return err;
}

errorblock *soladdword(int32_t x, int32_t y, int32_t dx, int32_t dy, const char *text)
{
    errorblock *err = listgrow(sizeof(wsentry));
    if (err) return err;
    wsentry *entry = solword(solutions.count++);
    *entry = {.x = x, .y = y, .dx = dx, .dy = dy, .selected = 0, .text = {}};
    strcopyn(entry->text, text, sizeof entry->text);
    return nullptr;
}

void solremove(int32_t entry)
{
    if (entry < 0 || entry >= solutions.count) return;
    wsentry *gone = solword(entry);
    memmove(gone, gone + 1, static_cast<size_t>(solutions.count - entry - 1) * sizeof *gone);
    solutions.count--;
}

// The slots may have been found anew since the list was filled, and more of
// them than its entries hold.
wordref solref(int32_t entry, int32_t slot)
{
    int32_t size = 0;
    if (solutions.wslist) flex_size(&solutions.wslist, &size);
    int64_t end = (int64_t{entry} * solutions.slotcount + slot + 1) * 4;
    return entry >= 0 && slot >= 0 && end <= size ? *refat(entry, slot) : NOWORD;
}

wsentry *solword(int32_t entry)
{
    return static_cast<wsentry *>(solutions.wslist) + entry;
}

// The step grows once, to a hundred, and stays there.
void solprogress(int32_t n)
{
    if (!n) {
        solutions.progressnext = -1;
        solutions.progressstep = 10;
        return;
    }
    if (n <= solutions.progressnext) return;
    progressshow(n);
    solutions.progressnext += solutions.progressstep;
    if (solutions.progressnext > 100) solutions.progressstep = 100;
}
