// base/filetypes.h - file types by number, told from a name's end.
//
// A table's rows are searched in order, the table added last before the
// others. A row without an extension gives the type of extensions that no row
// has; the default row's extension stands for rows without one and for types
// without a row, and "dat", which is usually the default's, thus has the
// default's own number.
#pragma once

#include <cstdint>

struct errorblock;

constexpr int32_t FILETYPEEND = -1;     // ends a table
constexpr int32_t FILETYPEDEFAULT = -2; // the default row
constexpr int32_t FILETYPEDATA = 0xFFD; // what an unknown file holds
constexpr int32_t FILETYPETEXT = 0xFFF;

struct filetyperow {
    int32_t type;
    const char *extension;   // without its dot; 0 or empty for none
    const char *description; // of a file dialog's row
};

// The node that chains a table in; static storage of the table's owner.
struct filetypenode {
    filetypenode *next;
    const filetyperow *table;
};

errorblock *addfiletypes(const filetyperow *table, filetypenode *node); // always 0
errorblock *remfiletypes(filetypenode *node);                           // always 0

// The type by the extension or, in a name without one, by the text behind its
// last comma, which is an extension too. With neither it is data. An unknown
// extension gives data, or -1 by the strict call.
int32_t filetypeof(const char *path);
int32_t filetypeofstrict(const char *path);

// The extension of a type, and the text of its dialog row or an empty one.
void filetypetext(int32_t type, char *out, int32_t size);
const char *filetypedescription(int32_t type);
