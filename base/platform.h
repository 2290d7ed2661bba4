// base/platform.h - everything that base asks of the system.
//
// Defined twice: base/win32 over Win32, base/posix with just what the logic
// needs. Calls are thin: a failure is reported the way syserr.h tells, with the
// system's message, the call's name and the code. The logic above never looks
// at those codes; what it must tell apart comes back as a value.
//
// Paths are code page 1252 and already expanded; on posix "\" and "/" both
// separate, and names are converted to UTF-8 at this edge.
#pragma once

#include <cstdint>
#include <cstdio>

struct errorblock;

// A file handle, or a directory scan's: 0 is none.
using filehandle = intptr_t;

constexpr int32_t PATHSIZE = 260; // bytes of every path buffer

// What the system knows of one object.
struct platforminfo {
    int32_t objecttype;  // 0 not found, 1 file, 2 directory
    uint32_t length;     // bytes, low word
    uint32_t attributes; // the system's; 2 hidden, 4 system, 1 read only
    uint64_t time;       // last write, 100 ns since 1601
};

// Failures: the last one's code and the system's words for a code.
uint32_t platformlasterror();
void platformerrortext(uint32_t code, char *out, int32_t size);

// Files. Others may read what is open here, and write nothing.
enum platformopening {
    PLATFORMREAD,     // must exist
    PLATFORMUPDATE,   // read and write; made if missing
    PLATFORMTRUNCATE, // read and write from empty; must exist
    PLATFORMCREATE,   // read and write; must not exist
};
errorblock *platformopen(const char *path, platformopening how, filehandle *handle);
errorblock *platformclose(filehandle handle);
errorblock *platformread(filehandle handle, void *data, int32_t length, int32_t *count);
errorblock *platformwrite(filehandle handle, const void *data, int32_t length, int32_t *count);
errorblock *platformseek(filehandle handle, int32_t position);
errorblock *platformtell(filehandle handle, int32_t *position);
errorblock *platformsize(filehandle handle, int32_t *size); // an error over 2 GB
errorblock *platformtruncate(filehandle handle);            // ends the file at the position
errorblock *platformsync(filehandle handle);                // what was written is on the disc
FILE *platformstream(const char *path, const char *mode);   // 0 if it can't be had

// Objects. platforminfoget gives type 0 and no error for a missing one.
errorblock *platforminfoget(const char *path, platforminfo *info);
int32_t platformobject(const char *path); // the type alone, 0 for any failure
errorblock *platformsettime(const char *path, uint64_t time);
errorblock *platformdelete(const char *path);
errorblock *platformremovedir(const char *path);
errorblock *platformmakedir(const char *path);
errorblock *platformrename(const char *from, const char *to);
errorblock *platformreplace(const char *from, const char *to); // to may exist

// The file that a save to path has to put in place: what a link there leads to, else
// path itself. False where no other file can take its place: a device, a pipe, a link
// that can't be followed. out has PATHSIZE bytes.
bool platformtarget(const char *path, char *out);

// Directory scan. path ends in a name that may hold the wildcards * and ?,
// compared without case. Names come sorted ignoring case, the dot entries
// among them on Windows. done is 1 when nothing is left and then nothing else
// is set; a start that finds nothing is done and has no handle.
errorblock *platformscanstart(const char *path, platforminfo *info, char *name, int32_t size,
                              filehandle *handle, bool *done);
errorblock *platformscannext(filehandle handle, platforminfo *info, char *name, int32_t size,
                             bool *done);
errorblock *platformscanend(filehandle handle);

// The store of values under a path of keys: the registry, or on posix a table
// in memory that starts empty. root is one of the numbers; 0 is refused.
using keyhandle = intptr_t; // 0 is none
constexpr int32_t ROOTCLASSES = 1, ROOTUSER = 2, ROOTMACHINE = 3, ROOTUSERS = 4, ROOTCONFIG = 5;
constexpr int32_t VALUETEXT = 1; // the type of a string value

enum platformkeyaccess { KEYFORREAD, KEYFORWRITE, KEYFORALL };
errorblock *platformkeyopen(int32_t root, const char *key, platformkeyaccess access,
                            keyhandle *handle);
errorblock *platformkeycreate(int32_t root, const char *key, keyhandle *handle);
errorblock *platformkeyclose(keyhandle handle);
errorblock *platformkeydelete(int32_t root, const char *key); // it must have no keys below

// size goes in as the room in out and comes back as the bytes of the value,
// the zero that ends a text among them if the store holds it. An out of 0 asks
// for the size alone. A text of the kind that holds variables comes expanded.
errorblock *platformvalueread(keyhandle handle, const char *name, void *out, int32_t *size);
errorblock *platformvaluewrite(keyhandle handle, const char *name, const char *text);
errorblock *platformvaluedelete(keyhandle handle, const char *name);

// Entry index of a key. Reading past the last is an error.
errorblock *platformkeyenum(keyhandle handle, int32_t index, char *name, int32_t size);
errorblock *platformvalueenum(keyhandle handle, int32_t index, char *name, int32_t size,
                              uint32_t *type, void *data, int32_t *datasize);

// Expands each %NAME% of text; one that names no variable stays. An empty
// result for one that doesn't fit.
void platformenvironment(const char *text, char *out, int32_t size);

// The path from its root, by the current folder now. False, and an empty result,
// for one that doesn't fit.
bool platformfullpath(const char *path, char *out, int32_t size);

// The file that a shortcut stands for; empty for none.
void platformshortcut(const char *path, char *out, int32_t size);

// Clocks: 100 ns since 1601, UTC; and milliseconds from some start, wrapping.
uint64_t platformclock();
uint32_t platformticks();

struct platformdate {
    int32_t year, month, day; // in full; 1..12; 1..31
    int32_t hour, minute, second;
    int32_t weekday; // 0 Sunday
};
errorblock *platformlocaltime(uint64_t time, platformdate *date);

// Who and where. Folders end in a separator.
errorblock *platformloginname(char *out, int32_t size);
errorblock *platformprogramdirectory(char *out, int32_t size);
void platformtempfolder(char *out, int32_t size); // empty when there is none

// The runtime's own view of its heap: -2 is well. Valid: the system's view.
int32_t platformheapcheck();
bool platformheapvalid();

// A resource of the program's module, which lives as long as the program. data
// is 0, without an error, when there is none; name may be "#" and a number.
errorblock *platformresource(const char *type, const char *name, const void **data, int32_t *size);
