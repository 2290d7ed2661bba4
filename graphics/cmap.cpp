#include "graphics/cmap.h"

#include "base/encoding.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/trace.h"

#include <algorithm>

namespace
{

// Of the subtable, in 16-bit words: a header, the end codes, a pad, and the
// start codes, deltas and range offsets, then glyphs.
constexpr int32_t HEADERWORDS = 7;
constexpr int32_t FORMATAT = 0, LENGTHAT = 1, SEGMENTSAT = 3;
constexpr int32_t FORMATSEGMENTS = 4;
constexpr uint16_t PLATFORMWINDOWS = 3;
constexpr uint16_t SYMBOLBASE = 0xF000;
constexpr uint16_t CODELAST = 0xFFFF; // the segment that ends every table

// Files are big-endian.
uint16_t word(const uint8_t *bytes)
{
    return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}

void swapwords(uint16_t *words, int32_t count)
{
    const uint8_t *bytes = reinterpret_cast<const uint8_t *>(words);
    for (int32_t i = 0; i < count; i++)
        words[i] = word(bytes + 2 * i);
}

bool tableread(intptr_t dc, uint32_t offset, void *out, int32_t size)
{
    return fonttable(dc, CMAPTAG, offset, out, size) == size;
}

// Where the subtable lies, 0 for none.
uint32_t subtableplace(intptr_t dc, int32_t *encoding)
{
    uint8_t count[2], record[8];
    uint32_t place = 0;
    if (!tableread(dc, 2, count, sizeof count)) return 0;
    for (uint32_t i = 0; i < word(count); i++) {
        if (!tableread(dc, 4 + 8 * i, record, sizeof record)) break;
        int32_t kind = word(record + 2);
        if (word(record) != PLATFORMWINDOWS || kind > CMAPUNICODE) continue;
        place = uint32_t{word(record + 4)} << 16 | word(record + 6);
        if (encoding) *encoding = kind;
    }
    return place;
}

int32_t segmentsof(const uint16_t *header)
{
    return header[SEGMENTSAT] / 2;
}

// The four arrays lie inside the length that the subtable tells of itself.
bool headergood(const uint16_t *header)
{
    return header[FORMATAT] == FORMATSEGMENTS &&
           HEADERWORDS + 1 + 4 * segmentsof(header) <= header[LENGTHAT] / 2;
}

int32_t segmentend(const charmap *map, int32_t segment)
{
    return map->words[HEADERWORDS + segment];
}

int32_t segmentstart(const charmap *map, int32_t segment)
{
    return map->words[HEADERWORDS + 1 + map->nsegments + segment];
}

// The segment that holds a code, -1 for none. Only the first that ends at the
// code or behind it may.
int32_t segmentfind(const charmap *map, int32_t code)
{
    int32_t segment = 0;
    while (segment < map->nsegments && segmentend(map, segment) < code)
        segment++;
    return segment < map->nsegments && segmentstart(map, segment) <= code ? segment : -1;
}

int32_t segmentglyph(const charmap *map, int32_t segment, int32_t code)
{
    int32_t deltaat = HEADERWORDS + 1 + 2 * map->nsegments + segment;
    int32_t offsetat = deltaat + map->nsegments;
    int32_t delta = map->words[deltaat], offset = map->words[offsetat];
    if (!offset) return (code + delta) & 0xFFFF;
    // The offset counts from where it stands itself.
    int32_t at = offsetat + offset / 2 + code - segmentstart(map, segment);
    if (at >= map->nwords || !map->words[at]) return 0;
    return (map->words[at] + delta) & 0xFFFF;
}

// The codes first..last that segmentfind finds in a segment: what lies under
// the end of one before it is lost to it. So a walk meets a code once, however
// the segments overlap.
struct segmentwalk {
    int32_t segment, first, last;
};
constexpr segmentwalk WALKSTART = {-1, 0, -1};

bool segmentnext(const charmap *map, segmentwalk *walk)
{
    while (++walk->segment < map->nsegments) {
        int32_t end = segmentend(map, walk->segment);
        walk->first = std::max(segmentstart(map, walk->segment), walk->last + 1);
        walk->last = std::max(walk->last, end);
        if (walk->first <= end) return true;
    }
    return false;
}

// Adds a character to the ranges, to the last one if it follows on that.
void rangeadd(unicoderange *list, int32_t *count, uint32_t code)
{
    if (*count && list[*count - 1].first + list[*count - 1].count == code)
        list[*count - 1].count++;
    else
        list[(*count)++] = {code, 1};
}

// The characters of the code page whose bytes a symbol font has.
void symbolranges(const charmap *map, unicoderange *list, int32_t *count)
{
    uint32_t codes[256];
    int32_t ncodes = 0;
    for (int32_t byte = 0; byte < 256; byte++)
        if (segmentfind(map, SYMBOLBASE + byte) >= 0)
            codes[ncodes++] = unicodefrom1252(static_cast<uint8_t>(byte));
    std::sort(codes, codes + ncodes);
    for (int32_t i = 0; i < ncodes; i++)
        rangeadd(list, count, codes[i]);
}

void segmentranges(const charmap *map, unicoderange *list, int32_t *count)
{
    segmentwalk walk = WALKSTART;
    while (segmentnext(map, &walk))
        if (walk.first < CODELAST)
            list[(*count)++] = {static_cast<uint32_t>(walk.first),
                                static_cast<uint32_t>(walk.last - walk.first + 1)};
}

} // namespace

int32_t cmapload(intptr_t dc, uint16_t *buffer, int32_t size, int32_t *required, int32_t *encoding)
{
    uint16_t header[HEADERWORDS];
    *required = 0;
    uint32_t place = subtableplace(dc, encoding);
    if (!place || !tableread(dc, place, header, sizeof header)) return 0;
    swapwords(header, HEADERWORDS);
    if (!headergood(header)) return 0;
    *required = header[LENGTHAT];
    if (!buffer || *required > size) return 0;
    // The header is the one that was found good, whatever a second reading gives.
    std::copy(header, header + HEADERWORDS, buffer);
    int32_t rest = *required / 2 - HEADERWORDS;
    if (!tableread(dc, place + sizeof header, buffer + HEADERWORDS, rest * 2)) {
        *required = 0;
        return 0;
    }
    swapwords(buffer + HEADERWORDS, rest);
    return 1;
}

errorblock *charmapread(intptr_t dc, charmap *map)
{
    void *words = nullptr;
    int32_t required, again;
    *map = {};
    cmapload(dc, nullptr, 0, &required, nullptr);
    if (!required) return nullptr;
    errorblock *err = heap_allocraw(&words, required);
    if (err) return err;
    map->words = static_cast<uint16_t *>(words);
    if (cmapload(dc, map->words, required, &again, &map->encoding)) {
        map->nwords = again / 2;
        map->nsegments = segmentsof(map->words);
    } else {
        charmapfree(map);
    }
    return nullptr;
}

void charmapfree(charmap *map)
{
    void *words = map->words;
    heap_free(&words);
    *map = {};
}

int32_t charmapglyph(const charmap *map, uint16_t code)
{
    int32_t segment = segmentfind(map, code), asked = code;
    if (segment < 0 && map->encoding == CMAPSYMBOL && codetosymbol(code) >= 0) {
        asked = SYMBOLBASE + codetosymbol(code);
        segment = segmentfind(map, asked);
    }
    return segment < 0 ? -1 : segmentglyph(map, segment, asked);
}

uint16_t cmapglyph(intptr_t dc, uint16_t code)
{
    charmap map;
    charmapread(dc, &map); // short of memory: as if the font had none
    int32_t glyph = map.words ? charmapglyph(&map, code) : 0;
    if (!map.words)
        trace("no Unicode cmap");
    else if (glyph < 0)
        trace("ch not in cmap %x", static_cast<unsigned>(code));
    charmapfree(&map);
    return static_cast<uint16_t>(std::max(glyph, 0));
}

int32_t cmapcount(intptr_t dc)
{
    charmap map;
    charmapread(dc, &map);
    segmentwalk walk = WALKSTART;
    int32_t count = 0;
    while (map.words && segmentnext(&map, &walk))
        for (int32_t code = walk.first; code <= walk.last; code++)
            if (segmentglyph(&map, walk.segment, code)) count++;
    charmapfree(&map);
    return count;
}

int32_t codetosymbol(uint16_t code)
{
    return code < 256 ? code : unicodeto1252(code);
}

errorblock *cmapranges(intptr_t dc, unicoderange **list, int32_t *count)
{
    charmap map;
    void *ranges = nullptr;
    *list = nullptr;
    *count = 0;
    errorblock *err = charmapread(dc, &map);
    if (!err && !map.words) trace("no Unicode cmap");
    int32_t most = map.nsegments + 257; // with the ranges of the code page, and the end
    if (!err) err = heap_alloc(&ranges, most * static_cast<int32_t>(sizeof(unicoderange)));
    if (!err) {
        *list = static_cast<unicoderange *>(ranges);
        if (map.words && map.encoding == CMAPSYMBOL) symbolranges(&map, *list, count);
        segmentranges(&map, *list, count);
    }
    charmapfree(&map);
    return err;
}
