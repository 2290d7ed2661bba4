#include "output/gridstats.h"

#include <algorithm>
#include <iterator>

namespace
{

struct place {
    int32_t x, y;
};

bool isblock(place at)
{
    return (grid.flags[at.x][at.y] & CELLKIND) == CELLBLOCK;
}

// Between neighbours, in either order.
bool barred(place a, place b)
{
    uint8_t bar = a.y == b.y ? BARLEFT : BARTOP;
    return grid.flags[std::max(a.x, b.x)][std::max(a.y, b.y)] & bar;
}

// Whether a step from one place leads on to the next cell of a word.
bool joined(place from, int32_t dx, int32_t dy)
{
    place to = {from.x + dx, from.y + dy};
    return gridinside(from.x, from.y) && gridinside(to.x, to.y) && !isblock(from) && !isblock(to) &&
           !barred(from, to);
}

place mapped(int32_t symmetry, place at)
{
    int32_t right = grid.width - 1, bottom = grid.height - 1;
    switch (symmetry) {
    case 0:
        return {right - at.x, bottom - at.y};
    case 1:
        return {bottom - at.y, at.x};
    case 2:
        return {right - at.x, at.y};
    case 3:
        return {at.x, bottom - at.y};
    default:
        return {at.y, at.x};
    }
}

// Each cell is the like of the one that it is mapped to, and so is the edge to its
// neighbour on the right and below.
bool symmetric(int32_t symmetry)
{
    bool square = grid.width == grid.height;
    if (!square && (symmetry == 1 || symmetry == 4)) return false;
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++) {
            place at = {x, y}, image = mapped(symmetry, at);
            if (isblock(at) != isblock(image)) return false;
            for (place next : {place{x + 1, y}, place{x, y + 1}})
                if (gridinside(next.x, next.y) &&
                    barred(at, next) != barred(image, mapped(symmetry, next)))
                    return false;
        }
    return true;
}

// Marks all that hangs together with a cell. The places that wait are those of one
// flood, each put in once.
void flood(place start, bool (*seen)[GRIDSTRIDE])
{
    std::vector<place> waiting = {start};
    seen[start.x][start.y] = true;
    while (!waiting.empty()) {
        place at = waiting.back();
        waiting.pop_back();
        for (place step : {place{1, 0}, place{-1, 0}, place{0, 1}, place{0, -1}}) {
            place to = {at.x + step.x, at.y + step.y};
            if (!joined(at, step.x, step.y) || seen[to.x][to.y]) continue;
            seen[to.x][to.y] = true;
            waiting.push_back(to);
        }
    }
}

void cellsread(gridstats *stats)
{
    bool seen[GRIDSTRIDE][GRIDSTRIDE] = {};
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++) {
            place at = {x, y};
            for (place back : {place{x - 1, y}, place{x, y - 1}})
                stats->bars += gridinside(back.x, back.y) && barred(back, at);
            if (isblock(at)) {
                stats->blocks++;
                continue;
            }
            stats->open++;
            if (uint8_t letter = gridletter(x, y); letter != ' ') {
                stats->filled++;
                stats->letters[letter >= 'a' && letter <= 'z' ? letter - 32 : letter]++;
            }
            int words = (joined({x - 1, y}, 1, 0) || joined(at, 1, 0)) +
                        (joined({x, y - 1}, 0, 1) || joined(at, 0, 1));
            stats->checked += words == 2;
            stats->unchecked += words == 1;
            if (!seen[x][y]) {
                stats->pieces++;
                flood(at, seen);
            }
        }
}

// The words in one direction; those without a blank go into filled.
int32_t wordsread(gridstats *stats, int32_t dx, int32_t dy, std::vector<std::string> *filled)
{
    int32_t count = 0;
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++) {
            if (joined({x - dx, y - dy}, dx, dy) || !joined({x, y}, dx, dy)) continue;
            std::string word;
            place at = {x, y};
            for (;; at = {at.x + dx, at.y + dy}) {
                word += static_cast<char>(gridletter(at.x, at.y));
                if (!joined(at, dx, dy)) break;
            }
            count++;
            stats->lengths[word.size()]++;
            std::ranges::transform(word, word.begin(), [](char c) {
                return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
            });
            if (word.find(' ') == std::string::npos) filled->push_back(word);
        }
    return count;
}

} // namespace

void gridstatsread(gridstats *stats)
{
    *stats = {};
    cellsread(stats);
    std::vector<std::string> words;
    stats->across = wordsread(stats, 1, 0, &words);
    stats->down = wordsread(stats, 0, 1, &words);
    std::ranges::sort(words);
    for (size_t i = 1; i < words.size(); i++)
        if (words[i] == words[i - 1] && (stats->same.empty() || stats->same.back() != words[i]))
            stats->same.push_back(words[i]);
    for (int32_t i = 0; i < static_cast<int32_t>(std::size(symmetrynames)); i++)
        if (symmetric(i)) stats->symmetries |= 1u << i;
}
