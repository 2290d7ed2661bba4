// base/bfile.h - the one buffered stream that file contents pass through.
//
// It sits on a file, on a memory transfer from another task (transfer.h), or
// on nothing but a growing buffer; its users don't see which. The buffer is a
// window on the file that slides where the next byte is wanted; big reads and
// writes go past it in whole multiples of its size.
//
// A bfile lives in its user's frame from bopen to bclose. Numbers in files are
// little-endian. A transfer for writing takes its bytes in order: nobody seeks
// back in one.
//
// Errors: the open's own; 3 and 4 for an exact read or write cut short; 2 when
// no buffer of more than 128 bytes can be had.
#pragma once

#include "base/flex.h"
#include "base/platform.h"

#include <cstdint>

constexpr int32_t BFILEBUFFER = 32768; // bytes: what callers ask for

// Bits of flags; the mode's letter stands in bits 8 to 15.
constexpr uint32_t BFILETRANSFER = 1; // data moves through the transfer calls
constexpr uint32_t BFILEDIRTY = 2;    // the buffer holds bytes not yet written
constexpr uint32_t BFILESTALE = 4;    // position is outside the buffer
constexpr uint32_t BFILEMEMORY = 8;   // no file: the buffer is all, and grows
constexpr uint32_t BFILEFAILED = 16;  // a write has failed: not all is in the file

struct bfile {
    flexptr buffer;
    uint32_t spare[2];
    int32_t size;        // capacity of the buffer
    int32_t valid;       // bytes of it that hold data
    int32_t position;    // of the next read or write, in the file
    int32_t bufferstart; // file position of the buffer's first byte
    uint32_t flags;
    filehandle handle;
};

// Opens path (macros allowed; 0 for a growing buffer) with mode "r", "w" or
// "u" and a buffer of size bytes, or half of it, and so on down to above 128.
errorblock *bopen(const char *path, const char *mode, int32_t size, bfile *file);

// Writes out, closes and frees. Returns error if it is set, else what closing
// met. Safe after a failed bopen.
errorblock *bclose(bfile *file, errorblock *error);

// Writes out what the buffer holds. A failure is told once: it leaves the
// BFILEFAILED bit, and the bytes are not tried again.
errorblock *bflush(bfile *file);

// Moves the position, and nothing else until the next byte. Error 3 for a
// place before the start or past what 31 bits hold.
errorblock *bseek(bfile *file, int32_t position);
errorblock *bskip(bfile *file, int32_t offset);
errorblock *btell(bfile *file, int32_t *position);
errorblock *bsize(bfile *file, int32_t *valid); // bytes in the buffer

// The next byte, or -1 at the end, which is no error.
errorblock *bgetc(bfile *file, int32_t *byte);
errorblock *bpeek(bfile *file, int32_t *byte);
errorblock *bputc(bfile *file, int32_t byte);

// Up to length bytes; count may be 0 if nobody asks.
errorblock *bread(bfile *file, void *data, int32_t length, int32_t *count);
errorblock *bwrite(bfile *file, const void *data, int32_t length, int32_t *count);

// Exactly length bytes, or error 3 or 4.
errorblock *breadall(bfile *file, void *data, int32_t length);
errorblock *bwriteall(bfile *file, const void *data, int32_t length);

errorblock *bread32(bfile *file, uint32_t *word);
errorblock *bwrite32(bfile *file, uint32_t word);
errorblock *bread16(bfile *file, uint32_t *word);
errorblock *bwrite16(bfile *file, uint32_t word);

// A line, without its end, into buffer of size bytes: to CR, LF or either
// pair of them, to a zero byte, to the end of data, or to size bytes, of which
// the last gives way to the zero. end is 1 only when the data ended first.
errorblock *bgetline(bfile *file, char *buffer, int32_t size, int32_t *end);

// Formatted text of at most 1023 bytes, then no, one or count line ends CR LF.
[[gnu::format(printf, 2, 3)]] errorblock *bprintf(bfile *file, const char *format, ...);
[[gnu::format(printf, 2, 3)]] errorblock *bprintline(bfile *file, const char *format, ...);
[[gnu::format(printf, 3, 4)]] errorblock *bprintlines(bfile *file, int32_t count,
                                                      const char *format, ...);
