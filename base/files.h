// base/files.h - what a path names, one-call file operations, directory scans.
//
// Each call that takes a path expands it first (pathexpand, paths.h) unless it
// says otherwise. A missing object is no error for the calls that ask: it is
// type 0. The calls that need the object leave it to their callers to say so
// with error 28.
#pragma once

#include "base/filetypes.h"
#include "base/paths.h"
#include "base/platform.h"

#include <cstdint>
#include <cstdio>

struct errorblock;

constexpr int32_t OBJECTNONE = 0, OBJECTFILE = 1, OBJECTDIRECTORY = 2;

// What is known of an object. The time is 40 bits of centiseconds since the
// first of January 1900: its low word in execaddress, its top byte in the low
// byte of loadaddress, whose top 12 bits are all set when there is a time and
// whose middle 12 are the type's.
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

constexpr bool ishidden(const fileinfo &info)
{
    return info.attributes & 2;
}
constexpr bool issystem(const fileinfo &info)
{
    return info.attributes & 4;
}
constexpr bool isreadonly(const fileinfo &info)
{
    return info.attributes & 1;
}

errorblock *fileinfoget(const char *path, fileinfo *info);
errorblock *fileinfoexpanded(const char *path, fileinfo *info); // path is expanded already
errorblock *fileobject(const char *path, int32_t *type);        // always 0; so may path be
bool fileexists(const char *directory, const char *leaf);       // for an object of any type

// The one of two paths, either of them 0, that is an object of the wanted
// type; the second goes first. chosen is 0 for neither.
errorblock *filepick(const char *first, const char *second, int32_t wanted, const char **chosen,
                     fileinfo *info);

// Sets the last-write time if info has one. Failures are ignored.
errorblock *filesettime(const char *path, const fileinfo *info);

// -1 if a is older than b by more than tolerance centiseconds, 1 if newer by
// more, else 0. An undated one counts as the first of January 1900.
int filetimecompare(const fileinfo *a, const fileinfo *b, int32_t tolerance);

// Mode "r" reads; "u" reads and writes, made if missing; "w" reads and writes
// from empty. handle is 0 on failure.
errorblock *fileopen(const char *path, const char *mode, filehandle *handle);
FILE *fileopenstd(const char *path, const char *mode); // a stream of the runtime; 0 on failure

// Closes; a handle of 0 does nothing. Returns error if it is set.
errorblock *fileclose(filehandle handle, errorblock *error);

// One read or write, of what the system will move at once; and all of it, or
// error 3 or 4. The At forms position first; no length does nothing.
errorblock *fileread(filehandle handle, void *data, int32_t length, int32_t *count);
errorblock *filereadall(filehandle handle, void *data, int32_t length);
errorblock *filereadat(filehandle handle, int32_t position, void *data, int32_t length);
errorblock *filewrite(filehandle handle, const void *data, int32_t length, int32_t *count);
errorblock *filewriteall(filehandle handle, const void *data, int32_t length);
errorblock *filewriteat(filehandle handle, int32_t position, const void *data, int32_t length);
errorblock *filegetc(filehandle handle, int32_t *byte); // -1 at the end

errorblock *fileseek(filehandle handle, int32_t position);
errorblock *filetell(filehandle handle, int32_t *position);
errorblock *filesize(filehandle handle, int32_t *size);
errorblock *fileateof(filehandle handle, int32_t *end); // 1 at or past the end
errorblock *filetruncate(filehandle handle, int32_t length);
errorblock *filesync(filehandle handle); // returns when the disc holds what was written

// Whole files. A load of what is no file does nothing, with no error. address
// of fileload has room for all of it; fileloadnew makes a plain allocation.
errorblock *filesave(const char *path, int32_t unused, const void *address, int32_t size);
errorblock *fileload(const char *path, void *address);
errorblock *fileloadnew(const char *path, void **address, int32_t *size);

errorblock *filedelete(const char *path); // an empty directory too
errorblock *filerename(const char *from, const char *to);

// Makes a directory, unless an object has that name already. The Windows
// runtime has a mkdir too: <io.h> and <direct.h> don't go with this header.
errorblock *mkdir(const char *path);

// Puts the finished file from in the place of to, which may exist; from is
// gone afterwards. Neither name ever stands for half a file.
errorblock *filereplace(const char *from, const char *to);

// Directory scan, one at a time: the first call starts it at path with the
// pattern, later ones go on; done is 1 when nothing is left. Names come in the
// order of a Windows disc: sorted, ignoring case. An error or the end closes
// the scan. A pattern of 0 takes path itself as the last name to match.
errorblock *findnext(const char *path, fileinfo *info, const char *pattern, bool *done);
errorblock *findclose();

// Marks the start of a new scan: one that is still open is forgotten, and that
// goes to the trace.
void findreset();

// Keep a scan while a nested one runs, and take it up again.
void findgethandle(filehandle *handle);
void findsethandle(filehandle handle);
