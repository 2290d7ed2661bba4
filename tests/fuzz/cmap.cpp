// Character maps of fonts: any bytes as the table. What the reader finds is
// compared with a second reading, code by code, straight from the bytes.

#include "graphics/cmap.h"

#include "base/errors.h"
#include "base/flex.h"
#include "tests/fuzz/fuzz.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace
{

std::string table;

int byteat(size_t at)
{
    return at < table.size() ? static_cast<uint8_t>(table[at]) : -1;
}

// -1 for one that isn't whole.
int wordat(size_t at)
{
    int high = byteat(at), low = byteat(at + 1);
    return high < 0 || low < 0 ? -1 : high << 8 | low;
}

// The subtable as it lies in the table.
struct reading {
    bool good;
    int encoding;
    size_t place, length, nsegments;
};

reading readtable()
{
    reading r = {};
    for (int i = 0; i < wordat(2); i++) {
        size_t at = 4 + 8 * static_cast<size_t>(i);
        int low = wordat(at + 6), encoding = wordat(at + 2);
        if (low < 0) break;
        if (wordat(at) != 3 || encoding > 1) continue;
        r.place = static_cast<size_t>(wordat(at + 4)) << 16 | static_cast<size_t>(low);
        r.encoding = encoding;
    }
    if (!r.place || wordat(r.place + 12) < 0 || wordat(r.place) != 4) return r;
    r.length = static_cast<size_t>(wordat(r.place + 2)) & ~size_t{1};
    r.nsegments = static_cast<size_t>(wordat(r.place + 6)) / 2;
    r.good = 16 + 8 * r.nsegments <= r.length && r.place + r.length <= table.size();
    return r;
}

int field(const reading &r, size_t array, size_t segment)
{
    size_t pad = array ? 2 : 0; // behind the end codes
    return wordat(r.place + 14 + pad + 2 * (array * r.nsegments + segment));
}

// The glyph of a code, -1 for none. segment is where the last search ended: the
// code is not below its code.
int glyphof(const reading &r, int code, size_t *segment)
{
    while (*segment < r.nsegments && field(r, 0, *segment) < code)
        ++*segment;
    if (*segment == r.nsegments || field(r, 1, *segment) > code) return -1;
    int delta = field(r, 2, *segment), offset = field(r, 3, *segment);
    if (!offset) return (code + delta) & 0xFFFF;
    size_t at = 14 + 2 + 2 * (3 * r.nsegments + *segment) + static_cast<size_t>(offset / 2 * 2) +
                2 * static_cast<size_t>(code - field(r, 1, *segment));
    int glyph = at + 2 <= r.length ? wordat(r.place + at) : 0;
    return glyph ? (glyph + delta) & 0xFFFF : 0;
}

std::vector<int> glyphsof(const reading &r)
{
    if (!r.good) return {};
    std::vector<int> glyphs(0x10000);
    size_t segment = 0;
    for (int code = 0; code < 0x10000; code++)
        glyphs[static_cast<size_t>(code)] = glyphof(r, code, &segment);
    return glyphs;
}

void checkglyphs(const reading &r, const std::vector<int> &glyphs)
{
    charmap map;
    FUZZCHECK(!charmapread(0, &map));
    FUZZCHECK((map.words != nullptr) == r.good);
    if (r.good) FUZZCHECK(map.encoding == r.encoding);
    int count = 0;
    for (size_t code = 0; r.good && code < 0x10000; code++) {
        count += glyphs[code] > 0;
        if (code % 97 && code > 255 && code < 0xFFF0) continue;
        int had = charmapglyph(&map, static_cast<uint16_t>(code)), want = glyphs[code];
        int symbol = codetosymbol(static_cast<uint16_t>(code));
        if (want < 0 && !r.encoding && symbol >= 0)
            want = glyphs[0xF000 + static_cast<size_t>(symbol)];
        FUZZCHECK(had == want);
    }
    charmapfree(&map);
    FUZZCHECK(cmapcount(0) == count);
}

// Ranges go up, apart from the step to a symbol font's own codes, and hold the
// codes that have a segment.
void checkranges(const reading &r, const std::vector<int> &glyphs)
{
    unicoderange *list;
    int32_t count;
    std::vector<bool> held(0x10000);
    FUZZCHECK(!cmapranges(0, &list, &count));
    FUZZCHECK(!list[count].first && !list[count].count);
    int steps = 0;
    for (int32_t i = 0; i < count; i++) {
        FUZZCHECK(list[i].count && list[i].first + list[i].count <= 0x10000);
        steps += i && list[i].first < list[i - 1].first + list[i - 1].count;
        for (uint32_t n = 0; n < list[i].count; n++)
            held[list[i].first + n] = true;
    }
    FUZZCHECK(steps <= (r.encoding ? 0 : 1));
    FUZZCHECK(r.good || !count);
    for (size_t code = 0; r.good && code < 0xFFFF; code++)
        if (r.encoding || glyphs[code] >= 0) FUZZCHECK(held[code] == (glyphs[code] >= 0));
    void *memory = list;
    heap_free(&memory);
}

} // namespace

int32_t fonttable(intptr_t, uint32_t tag, uint32_t offset, void *out, int32_t size)
{
    FUZZCHECK(tag == CMAPTAG);
    FUZZCHECK(size >= 0);
    if (offset >= table.size()) return 0;
    size_t had = std::min(static_cast<size_t>(size), table.size() - offset);
    std::memcpy(out, table.data() + offset, had);
    return static_cast<int32_t>(had);
}

void fuzztarget(fuzzfeed feed)
{
    table.assign(reinterpret_cast<const char *>(feed.data), feed.size);
    reading r = readtable();
    std::vector<int> glyphs = glyphsof(r);
    checkglyphs(r, glyphs);
    checkranges(r, glyphs);
    cmapglyph(0, static_cast<uint16_t>(table.empty() ? 0 : table.back() << 8 | 'a'));
}
