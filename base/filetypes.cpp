#include "base/filetypes.h"

#include "base/paths.h"
#include "base/text.h"

#include <cstring>

namespace
{

filetypenode *tables; // the newest first

bool hasextension(const filetyperow &row)
{
    return row.extension && row.extension[0];
}

// What a name says of its type, or 0.
const char *typemark(const char *path)
{
    if (const char *extension = pathgetext(path)) return extension;
    const char *comma = strrchr(leafname(path), ',');
    return comma ? comma + 1 : nullptr;
}

int32_t typesearch(const char *extension, bool strict)
{
    int32_t fallback = strict ? -1 : FILETYPEDATA;
    for (const filetypenode *node = tables; node; node = node->next)
        for (const filetyperow *row = node->table; row->type != FILETYPEEND; row++) {
            if (hasextension(*row) && !cstricmp(row->extension, extension)) return row->type;
            if (!hasextension(*row) && !strict) fallback = row->type;
        }
    return fallback;
}

int32_t marktype(const char *path, bool strict)
{
    const char *mark = typemark(path);
    return mark ? typesearch(mark, strict) : FILETYPEDATA;
}

const filetyperow *rowof(int32_t type)
{
    for (const filetypenode *node = tables; node; node = node->next)
        for (const filetyperow *row = node->table; row->type != FILETYPEEND; row++)
            if (row->type == type) return row;
    return nullptr;
}

} // namespace

errorblock *addfiletypes(const filetyperow *table, filetypenode *node)
{
    node->table = table;
    node->next = tables;
    tables = node;
    return nullptr;
}

errorblock *remfiletypes(filetypenode *node)
{
    for (filetypenode **link = &tables; *link; link = &(*link)->next)
        if (*link == node) {
            *link = node->next;
            break;
        }
    return nullptr;
}

int32_t filetypeof(const char *path)
{
    return marktype(path, false);
}

int32_t filetypeofstrict(const char *path)
{
    return marktype(path, true);
}

void filetypetext(int32_t type, char *out, int32_t size)
{
    const filetyperow *row = rowof(type);
    if (!row || !hasextension(*row)) row = rowof(FILETYPEDEFAULT);
    strcopyn(out, row && row->extension ? row->extension : "", size);
}

const char *filetypedescription(int32_t type)
{
    const filetyperow *row = rowof(type);
    return row && row->description ? row->description : "";
}
