// desktop/loadrequest.h - a file that comes from outside.
#pragma once

#include <cstdint>

struct errorblock;

// Hands the file to the first load handler of its type, with flag, and when that
// returned no error tells the first loaded handler of the type. handled is set
// if there was a load handler, else left alone. Errors: the handlers'.
//
// Before the poll runs, and with a flag of 0, the request is only noted; it is
// handled, and carried out when the poll starts. Errors: 2.
errorblock *loadfile(const char *name, intptr_t flag, bool *handled);
