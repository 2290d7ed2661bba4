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
constexpr uint32_t TAKESMAKING = 16;      // --size WxH, --directions MASK, --seed N
constexpr uint32_t TAKESMIN = 32;         // --min N
constexpr uint32_t TAKESMINSCORE = 64;    // --min-score N
constexpr uint32_t TAKESOUT = 128;        // -o OUT, which must be given
constexpr uint32_t TAKESFORMAT = 256;     // --as FORMAT
constexpr uint32_t TAKESLOSSY = 512;      // --lossy

constexpr uint32_t TAKESEVERY = 1024; // --count, --repeat
constexpr uint32_t TAKESONE = 2048;   // --seed N, --prefer NAME, --seconds N
constexpr uint32_t TAKESSHEET = 4096; // --title TEXT, --words FILE

constexpr int32_t NOSCORE = INT32_MIN;

struct arguments {
    std::vector<std::string> words; // what is no option, in order
    std::string dictionaries;       // empty: the shipped ones
    std::vector<std::string> dicts;
    std::vector<cellbox> marks;
    int32_t max;           // 1000 if not given
    int32_t min;           // 0 if not given
    int32_t minscore;      // NOSCORE if not given
    int32_t width, height; // 0 if not given
    int32_t directions;    // 0 if not given
    uint32_t seed;
    int32_t seconds;             // 60 if not given
    std::string prefer;          // empty if not given
    std::string out;             // empty if not given
    std::string format;          // empty if not given
    std::string title, wordlist; // empty if not given
    bool wordsquare, lossy, count, repeat, maxgiven;
};

// Sorts words into args. A making needs its size and its file. Without a seed
// the time of day gives one. Returns empty, or what is wrong with them.
std::string argumentsread(const std::vector<std::string> &words, uint32_t takes, arguments *args);
