// output/posix/painter.h - the way into libquillpaint.so, which lies beside quill.
//
// It alone is linked to librsvg and the libraries behind that: loading them takes
// longer than most of what quill does, so only who paints does it.
#pragma once

// Writes pages of SVG, each a text with a zero behind it, as a PDF file of pages or the
// first as a PNG picture, by pieces to take. What went wrong, in words; 0 when all went
// well.
using paintfunction = const char *(*)(const char *const *pages, int count, bool pdf,
                                      void (*take)(void *to, const unsigned char *bytes,
                                                   unsigned int size),
                                      void *to);
constexpr const char *PAINTNAME = "quillpaint";
