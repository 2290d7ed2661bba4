// tests/app/screen/companion.h - what the console companion makes of the files
// that the program has written.
#pragma once

#include <string>
#include <vector>

// Runs quill, which lies beside this program, with these words: the lines that it
// prints. Its failure fails the test.
std::vector<std::string> companion(const std::string &words);
