// base/files.h - what a path names, one-call file operations, directory scans.
//
// Each call expands its path first (pathexpand, paths.h) unless it says
// otherwise. A missing object is no error for the calls that ask: it is type 0.
#pragma once

#include "base/platform.h"

#include <cstdint>

struct errorblock;

constexpr int32_t OBJECTNONE = 0, OBJECTFILE = 1, OBJECTDIRECTORY = 2;

// What is known of an object. The time is 40 bits of centiseconds since the
// first of January 1900: its low word in execaddress, its top byte in the low
// byte of loadaddress, whose top 12 bits are all set when there is a time.
struct fileinfo {
    int32_t objecttype;
    uint32_t length;
    uint32_t loadaddress;
    uint32_t execaddress;
    uint32_t attributes;
    int32_t filetype;
    char name[256]; // the leaf; filled by findnext only
};
static_assert(sizeof(fileinfo) == 24 + 256);

errorblock *fileinfoget(const char *path, fileinfo *info);
errorblock *fileobject(const char *path, int32_t *type);
int fileexists(const char *directory, const char *leaf);

// Mode "r" reads; "u" reads and writes, made if missing; "w" reads and writes
// from empty.
errorblock *fileopen(const char *path, const char *mode, filehandle *handle);
errorblock *fileclose(filehandle handle, errorblock *error);
errorblock *fileread(filehandle handle, void *data, int32_t length, int32_t *count);
errorblock *filereadall(filehandle handle, void *data, int32_t length);
errorblock *filewrite(filehandle handle, const void *data, int32_t length, int32_t *count);
errorblock *filewriteall(filehandle handle, const void *data, int32_t length);
errorblock *fileseek(filehandle handle, int32_t position);

errorblock *filedelete(const char *path);
errorblock *filerename(const char *from, const char *to);

// Puts the finished file from in the place of to, which may exist; from is
// gone afterwards. Neither name ever stands for half a file.
errorblock *filereplace(const char *from, const char *to);

// Directory scan, one at a time: the first call starts it at path with the
// pattern, later ones go on; done is 1 when nothing is left. Names come in the
// order of a Windows disc: sorted, ignoring case.
errorblock *findnext(const char *path, fileinfo *info, const char *pattern, int32_t *done);
errorblock *findclose();
void findreset();
void findgethandle(filehandle *handle);
void findsethandle(filehandle handle);
