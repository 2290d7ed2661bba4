// base/messages.h - the message catalogue, and {KEY} tokens in any text.
//
// Every word that a user reads stands in a catalogue file of KEY:text lines,
// code page 1252. The store holds key and text alternately, each
// zero-terminated, then an empty key; entries added first win.
#pragma once

#include <cstdarg>
#include <cstdint>

struct errorblock;

// An empty store. endtrans is for tests: a program keeps its store to the end.
errorblock *inittrans();
void endtrans();

// Adds the catalogue directory\name, or, with a directory of 0, the program's
// own resource of that name. Errors: 28 with the path, or "Messages file not
// found." while the store is empty; a missing resource adds nothing.
errorblock *addtrans(const char *directory, const char *name);

// Adds a catalogue that lies in memory, size bytes, as a resource does.
errorblock *addtranstext(const char *text, int32_t size);

// The text of a key, compared to the byte, or the key itself.
const char *lookuptoken(const char *key);

// Expands the {KEY} tokens of text in place; a value is expanded in turn. A
// token whose text would not leave the whole below limit bytes stays. "{{" is
// one brace, and the byte behind it is passed over. A value that leads back to
// its own token would never end: after 4096 replacements the rest stays as it
// is. Returns 0.
errorblock *expandtokens(char *text, int32_t limit);

// What every call with a format shares: expands the format (256 bytes, silently
// cut), then formats into buffer, cut to size. The result isn't expanded.
[[gnu::format(printf, 3, 0)]] void messageformat(int32_t size, char *buffer, const char *format,
                                                 va_list arguments);

// Expands the format (1024 bytes), formats into buffer, and expands again.
// Errors: 30 for a format too long; the buffer is filled all the same.
[[gnu::format(printf, 3, 4)]] errorblock *transprintf(int32_t size, char *buffer,
                                                      const char *format, ...);
