// tools/quill/console.h - what the commands say and read.
//
// Results go to standard output and nothing else does; remarks, counts and
// failures go to standard error. Text is code page 1252 here.
#pragma once

#include <cstdint>
#include <string>

struct errorblock;

// Results.
void outtext(const std::string &text);
void outline(const std::string &text);
void outbytes(const std::string &bytes); // as they are

// A remark, a line of its own.
[[gnu::format(printf, 1, 2)]] void remark(const char *format, ...);

// A running count while long work lasts; nothing unless standard error is a
// terminal. countend wipes it.
void countshow(const char *what, int32_t n);
void countend();

// A whole file. Error 28 for a missing one.
errorblock *bytesload(const std::string &path, std::string *bytes);

// A whole text file, or standard input, converted: UTF-8 or code page 1252, by what
// it is (base/encoding.h). Error 28 for a missing file.
errorblock *textload(const std::string &path, std::string *text);
errorblock *inputload(std::string *text);

// Standard output could be written to the end. Error 4 if not.
errorblock *outclose();
