// tools/quill/arguments.h - the words of a command line, sorted.
#pragma once

#include "find/solve.h"

#include <cstdint>
#include <string>
#include <vector>

// Which options a command takes.
constexpr uint32_t TAKESDICTIONARIES = 1; // --dictionaries DIR, --dict NAME
constexpr uint32_t TAKESMARK = 2;         // --mark L,T,R,B
constexpr uint32_t TAKESMAX = 4;          // --max N
constexpr uint32_t TAKESWORDSQUARE = 8;   // --wordsquare

struct arguments {
    std::vector<std::string> words; // what is no option, in order
    std::string dictionaries;       // empty: the shipped ones
    std::vector<std::string> dicts;
    std::vector<cellbox> marks;
    int32_t max;
    bool wordsquare;
};

// Sorts words into args. Returns empty, or what is wrong with them.
std::string argumentsread(const std::vector<std::string> &words, uint32_t takes, arguments *args);
