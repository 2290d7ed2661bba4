// base/trace.h - the diagnostic line.
//
// Calls stand at every interesting step; a reader of the trace can follow
// start-up, allocation, delivery and failures. No levels, no switch. A trace
// never makes an error of its own, and may be called from anywhere.
#pragma once

struct bfile;
struct errorblock;

// One line: formatted into 510 bytes, cut beyond 509, then CR LF.
[[gnu::format(printf, 1, 2)]] void trace(const char *format, ...);

// The same with 16-bit text.
void tracew(const wchar_t *format, ...);

// Draws straight on the screen at pixel row row * 10, when nothing else works.
[[gnu::format(printf, 2, 3)]] void tracescreen(int row, const char *format, ...);

// Appends a line of at most 511 bytes to the log file "Quillmere.log" in the
// system's folder for temporary files.
[[gnu::format(printf, 1, 2)]] void tracefile(const char *format, ...);

// Appends "label (text)" to the same file; nothing for no error.
void traceerror(const char *label, const errorblock *error);

// The first lines of a generated text file: its title, who made it and when.
// They are comments to the reader of catalogues.
errorblock *textfileheader(bfile *file, const char *title);

// Asked of the window side: writes length bytes of a line, its end included,
// to the diagnostic console; the wide twin; and the text on the screen. In
// desktop/win32/traceconsole.cpp and tracepaint.cpp; without windows where
// boxshow is (base/boxes.h).
void tracewrite(const char *text, int length);
void tracewritew(const wchar_t *text, int length);
void tracepaint(int y, const char *text, int length);
