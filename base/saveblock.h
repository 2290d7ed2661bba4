// base/saveblock.h - whole files in one piece, or a transfer in the place of one.
#pragma once

#include <cstdint>

struct errorblock;

// Writes size bytes as the whole file at path, or hands them to a transfer for
// writing when one is set. type is the file's, which its name shows already.
errorblock *saveblock(const char *path, int32_t type, const void *address, int32_t size);

// A load in three steps. loadblockopen gives the bytes that are there; error 28
// when path is no file. loadblockread takes up to size bytes and says when all
// is read; a file comes whole or, with too little room for it, as error 2.
errorblock *loadblockopen(const char *path, int32_t *size);
errorblock *loadblockread(const char *path, void *address, int32_t size, int32_t *count,
                          bool *done);
errorblock *loadblockclose(errorblock *error); // returns error

// The guess at the size of the next save; it becomes 4096 again.
void saveblocksize(int32_t *old);
