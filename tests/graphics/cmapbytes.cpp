#include "tests/graphics/cmapbytes.h"

#include "graphics/cmap.h"

#include <algorithm>

std::string cmapbytes;
int cmapreads;

int32_t fonttable(intptr_t, uint32_t tag, uint32_t offset, void *out, int32_t size)
{
    cmapreads++;
    if (tag != CMAPTAG || offset >= cmapbytes.size()) return 0;
    size_t had = std::min(static_cast<size_t>(size), cmapbytes.size() - offset);
    std::copy_n(cmapbytes.begin() + offset, had, static_cast<char *>(out));
    return static_cast<int32_t>(had);
}

std::string bigword(int value)
{
    return {static_cast<char>(value >> 8), static_cast<char>(value)};
}

std::string subtablemade(std::vector<segmentmade> segments, bool end)
{
    if (end) segments.push_back({0xFFFF, 0xFFFF, 1, {}});
    int count = static_cast<int>(segments.size());
    std::string ends, starts, deltas, offsets, glyphs;
    for (int i = 0; i < count; i++) {
        const segmentmade &s = segments[static_cast<size_t>(i)];
        ends += bigword(s.last);
        starts += bigword(s.first);
        deltas += bigword(s.delta);
        offsets +=
            bigword(s.glyphs.empty() ? 0 : (count - i) * 2 + static_cast<int>(glyphs.size()));
        for (int glyph : s.glyphs)
            glyphs += bigword(glyph);
    }
    std::string rest = ends + bigword(0) + starts + deltas + offsets + glyphs;
    // The three fields of a binary search aren't looked at.
    return bigword(4) + bigword(14 + static_cast<int>(rest.size())) + bigword(0) +
           bigword(count * 2) + bigword(0) + bigword(0) + bigword(0) + rest;
}

std::string cmapmade(const std::vector<recordmade> &records)
{
    std::string head = bigword(0) + bigword(static_cast<int>(records.size())), tables;
    size_t first = 4 + 8 * records.size();
    for (const recordmade &r : records) {
        int place = static_cast<int>(first + tables.size());
        head += bigword(r.platform) + bigword(r.encoding) + bigword(place >> 16) + bigword(place);
        tables += r.subtable;
    }
    return head + tables;
}
