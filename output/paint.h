// output/paint.h - drawings in SVG as files that show everywhere.
//
// By librsvg, which draws through cairo, where quill is built beside it: on Linux
// (posix/painter.h). Elsewhere both refuse in words.
#pragma once

#include <string>
#include <vector>

struct errorblock;

// A PDF file of these pages, each of its own size; and the first as a PNG picture, two
// pixels to the unit. Errors: 283, 2.
errorblock *paintpdf(const std::vector<std::string> &pages, std::string *bytes);
errorblock *paintpng(const std::vector<std::string> &pages, std::string *bytes);
