// base/registry.h - string values under a path of keys.
//
// A key is written as a text: a root's name, a backslash, the path of keys.
// Where a value is meant, its name stands behind the last backslash; an empty
// one is the key's default value. Roots are HKEY_CLASSES_ROOT,
// HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS and HKEY_CURRENT_CONFIG, or
// HKCR, HKCU, HKLM, HKU and HKCC, in upper case; others can't be opened.
#pragma once

#include "base/platform.h"

#include <cstdint>

struct errorblock;

// Mode "r" reads, "w" writes, others may do all. A text without a backslash
// opens nothing, and the handle is 0. regcreate opens with all rights and makes
// what is missing.
errorblock *regopen(const char *key, keyhandle *handle, const char *mode);
errorblock *regcreate(const char *key, keyhandle *handle);

// Closes and clears the handle, 0 or not. Keeps the first error.
errorblock *regclose(keyhandle *handle, errorblock *error);

// The value's bytes, with a zero behind them if they don't hold one already.
// size is the room in out and becomes the bytes that the store holds, a text's
// own zero among them. On failure the text is empty and size is 0.
errorblock *regread(const char *key, char *out, int32_t *size);

// The same in a new plain allocation, which the caller frees; 0 on failure.
errorblock *regreadnew(const char *key, void **address, int32_t *size);

errorblock *regwrite(const char *key, const char *text);

// A text that ends in a backslash deletes the key, any other the value.
errorblock *regdelete(const char *key);

// Reads the entry at index and moves index on. Past the last is an error.
errorblock *regenumkey(keyhandle handle, char *name, int32_t size, int32_t *index);
errorblock *regenumvalue(keyhandle handle, char *name, int32_t size, uint32_t *type, void *data,
                         int32_t *datasize, int32_t *index);
