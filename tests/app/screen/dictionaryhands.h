// tests/app/screen/dictionaryhands.h - dictionaries of a test's own.
#pragma once

#include <string>
#include <vector>

struct testdictionary {
    std::string name;
    std::vector<std::string> words;
};

// A fresh directory that holds these, known and not in use. The next test has
// none of them.
void dictionariesbegin(const std::vector<testdictionary> &dictionaries);

// Puts a dictionary that was built before into it too, and in use: false, with a
// visible skip, where there is none.
bool dictionarylarge();

// Of a file there.
std::string dictionaryplace(const std::string &leaf);
