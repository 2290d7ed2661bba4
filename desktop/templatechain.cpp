#include "desktop/templatechain.h"

#include "base/errors.h"
#include "base/text.h"

// The newest first.
static templatelink *chain;

void templatelinked(templaterow *table, templatelink *link)
{
    *link = {chain, table};
    chain = link;
}

bool templateunlinked(templatelink *link)
{
    for (templatelink **place = &chain; *place; place = &(*place)->next)
        if (*place == link) {
            *place = link->next;
            return true;
        }
    return false;
}

void templatesreset()
{
    chain = nullptr;
}

errorblock *findtemplate(int32_t number, const void **resource)
{
    for (const templatelink *link = chain; link; link = link->next)
        for (const templaterow *row = link->table; row->number; row++)
            if (row->number == number) {
                *resource = row->resource;
                return nullptr;
            }
    return makeerrorf(ERRORTEMPLATETAG, static_cast<int>(number));
}

int32_t templatenumber(const char *name)
{
    for (const templatelink *link = chain; link; link = link->next)
        for (const templaterow *row = link->table; row->number; row++)
            if (!cstricmp(row->name, name)) return row->number;
    return 0;
}
