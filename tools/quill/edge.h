// tools/quill/edge.h - where the console companion meets its system.
//
// Inside, text is code page 1252; outside it is UTF-8 on Linux and the
// console's code page on Windows. Conversion happens here and nowhere else.
#pragma once

#include <string>
#include <vector>

struct errorblock;

// Before anything else: results go out as they are, without line-end
// translation, and the first Ctrl+C only asks to stop.
void edgestart();

// The command line, converted. Error: a character that code page 1252 lacks.
errorblock *edgearguments(int count, char **words, std::vector<std::string> *out);

// Text from outside, and to the outside.
errorblock *edgein(const std::string &bytes, std::string *text);
std::string edgeout(const std::string &text);

// Standard error is a terminal.
bool edgeterminal();

// Ctrl+C was pressed.
bool edgestopped();
