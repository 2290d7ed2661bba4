#include "desktop/menupath.h"

menustaterecord menustate;

// Two words of a path are the item and the end.
constexpr int DEPTH = MENUPATH - 2;

static menurow *findrow(bool (*fits)(const menurow *, intptr_t), intptr_t wanted)
{
    for (menulink *link = menustate.tables; link; link = link->next)
        for (menurow *row = link->table; row->tag != -1; row++)
            if (fits(row, wanted)) return row;
    return nullptr;
}

static bool hastag(const menurow *row, intptr_t tag)
{
    return row->tag == tag;
}

static bool hashandle(const menurow *row, intptr_t menu)
{
    return row->menu == menu;
}

menurow *menufind(int32_t tag)
{
    return findrow(hastag, tag);
}

menurow *menufindhandle(intptr_t menu)
{
    return menu ? findrow(hashandle, menu) : nullptr;
}

// How many parents stand above the record, -1 where the chain of them doesn't
// end at a root.
static int32_t depth(const menurow *row)
{
    int32_t levels = 0;
    for (; row && row->parent; levels++) {
        if (levels == DEPTH) return -1;
        row = menufind(row->parent);
    }
    return row ? levels : -1;
}

menurow *menuroot(menurow *row)
{
    if (depth(row) == -1) return nullptr;
    while (row->parent)
        row = menufind(row->parent);
    return row;
}

bool menupathto(const menurow *row, int32_t item, int32_t *path)
{
    int32_t levels = depth(row);
    if (levels == -1) return false;
    path[levels] = item;
    path[levels + 1] = -1;
    for (; levels > 0; row = menufind(row->parent))
        path[--levels] = row->position;
    return true;
}

static bool standsbelow(const menurow *row, const menurow *above)
{
    for (int levels = 0; row && levels <= DEPTH; levels++) {
        if (row == above) return true;
        row = row->parent ? menufind(row->parent) : nullptr;
    }
    return false;
}

void menuforget(int32_t tag)
{
    const menurow *above = menufind(tag);
    if (!above) return;
    for (menulink *link = menustate.tables; link; link = link->next)
        for (menurow *row = link->table; row->tag != -1; row++)
            if (standsbelow(row, above)) row->menu = 0;
}

static int32_t ishidden(uint32_t hidden, int32_t position)
{
    return hidden >> position & 1;
}

int32_t menutosystem(uint32_t hidden, int32_t position)
{
    for (int32_t at = 0; at < 32 && at <= position; at++)
        position += ishidden(hidden, at);
    return position;
}

int32_t menufromsystem(uint32_t hidden, int32_t position)
{
    int32_t counted = position;
    for (int32_t at = 0; at < position && at < 32; at++)
        counted -= ishidden(hidden, at);
    return counted;
}
