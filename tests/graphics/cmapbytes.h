// tests/graphics/cmapbytes.h - character maps made up for tests.
//
// Links fonttable, the device side of graphics/cmap.h, to a text of bytes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The table "cmap" that fonttable gives out, and how often it was asked.
extern std::string cmapbytes;
extern int cmapreads;

// A segment with a delta or, if there are any, with glyphs of its own.
struct segmentmade {
    int first, last, delta;
    std::vector<int> glyphs;
};

// A subtable of format 4. end adds the segment that every font ends with.
std::string subtablemade(std::vector<segmentmade> segments, bool end = true);

// A table of subtables with their platforms and encodings.
struct recordmade {
    int platform, encoding;
    std::string subtable;
};
std::string cmapmade(const std::vector<recordmade> &records);

std::string bigword(int value);
