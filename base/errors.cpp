#include "base/errors.h"

#include "base/flex.h"
#include "base/messages.h"
#include "base/text.h"

#include <cstring>

namespace
{

struct {
    errornode *tables; // newest first
    errorblock block;
    errorblock restored;
} errors;

constexpr int32_t TEXTSIZE = sizeof errorblock::text;

// Formats beside the block, since an argument may be the block's own text.
[[gnu::format(printf, 2, 0)]] errorblock *fill(uint32_t code, const char *format, va_list arguments)
{
    char text[TEXTSIZE];
    messageformat(TEXTSIZE, text, format, arguments);
    expandtokens(text, TEXTSIZE);
    errors.block.code = code;
    strcopyn(errors.block.text, text, TEXTSIZE);
    return &errors.block;
}

} // namespace

errorblock *initerror()
{
    errors.tables = nullptr;
    return nullptr;
}

errorblock *adderrors(const errorrow *table, errornode *node)
{
    remerrors(node); // a chain with one node twice would have no end
    node->table = table;
    node->next = errors.tables;
    errors.tables = node;
    return nullptr;
}

errorblock *remerrors(errornode *node)
{
    errornode **link = &errors.tables;
    while (*link && *link != node)
        link = &(*link)->next;
    if (*link) *link = node->next;
    return nullptr;
}

const char *lookuperror(uint32_t code)
{
    for (const errornode *node = errors.tables; node; node = node->next)
        for (const errorrow *row = node->table; row->code; row++)
            if (row->code == code) return row->text;
    return "{ENOE}";
}

errorblock *makeerror(uint32_t code)
{
    if (!code) return nullptr;
    errors.block.code = code;
    strcopyn(errors.block.text, lookuperror(code), TEXTSIZE);
    expandtokens(errors.block.text, TEXTSIZE);
    return &errors.block;
}

// The format is a table's, which no compiler can check.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
errorblock *makeerrorf(uint32_t code, ...)
{
    va_list arguments;
    va_start(arguments, code);
    errorblock *err = fill(code, lookuperror(code), arguments);
    va_end(arguments);
    return err;
}
#pragma GCC diagnostic pop

errorblock *makeerrortext(uint32_t code, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    errorblock *err = fill(code, format, arguments);
    va_end(arguments);
    return err;
}

errorblock *saveerror(const errorblock *error)
{
    if (!error) return nullptr;
    errorblock kept = *error;
    kept.text[TEXTSIZE - 1] = 0; // a failed call's text may run on behind its block
    void *copy = nullptr;
    if (heap_alloc(&copy, sizeof kept)) return nullptr;
    std::memcpy(copy, &kept, sizeof kept);
    return static_cast<errorblock *>(copy);
}

errorblock *restoreerror(errorblock *copy, errorblock *other)
{
    if (!copy) return other;
    errors.restored = *copy;
    void *freed = copy;
    heap_free(&freed);
    return &errors.restored;
}
