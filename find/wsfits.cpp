#include "find/wsfits.h"

#include "find/wsmake.h"
#include "grid/grid.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int32_t LANES = 32, KEPT = 16;

fitmap maps[KEPT];

uint8_t letters[GRIDSTRIDE][GRIDSTRIDE + LANES]; // the grid's; lanes reach behind a column

fitmap *mapof(int32_t level)
{
    return &maps[level % KEPT];
}

// The first start, and the one behind the last, from which a word ends inside a side.
void startsof(int32_t step, int32_t side, int32_t length, int32_t *first, int32_t *end)
{
    *first = step < 0 ? length - 1 : 0;
    *end = step > 0 ? side - length + 1 : side;
}

// Which of the next starts in a column take the word: a byte each, 255 or 0. False if
// none does.
bool lanesfit(int32_t x, int32_t y, wsstep step, const char *word, int32_t length, uint8_t *fit)
{
    std::memset(fit, 255, LANES);
    for (int32_t i = 0; i < length; i++) {
        const uint8_t *cells = &letters[x + i * step.dx][y + i * step.dy];
        const auto letter = static_cast<uint8_t>(word[i]);
        for (int32_t lane = 0; lane < LANES; lane++) {
            uint8_t fits = cells[lane] == letter || cells[lane] == ' ' ? 255 : 0;
            fit[lane] &= fits;
        }
        uint64_t any[LANES / 8];
        std::memcpy(any, fit, sizeof any);
        if (!(any[0] | any[1] | any[2] | any[3])) return false;
    }
    return true;
}

void directionfits(fitmap *map, int32_t direction, const char *word, int32_t length)
{
    wsstep step = wssteps[direction];
    int32_t left, right, top, bottom;
    startsof(step.dx, grid.width, length, &left, &right);
    startsof(step.dy, grid.height, length, &top, &bottom);
    for (int32_t x = left; x < right; x++)
        for (int32_t y = top; y < bottom; y += LANES) {
            uint8_t fit[LANES];
            if (!lanesfit(x, y, step, word, length, fit)) continue;
            int32_t inside = std::min(LANES, bottom - y);
            for (int32_t lane = 0; lane < inside; lane++)
                if (fit[lane]) {
                    map->at[x][y + lane] |= static_cast<uint8_t>(1 << direction);
                    map->any = true;
                }
        }
}

} // namespace

const fitmap *wsfits(int32_t level, int32_t under, const char *word, int32_t length)
{
    fitmap *map = mapof(level);
    map->level = level;
    map->under = under;
    map->changed = grid.changed;
    map->any = false;
    size_t height = static_cast<size_t>(grid.height);
    for (int32_t x = 0; x < grid.width; x++) {
        std::memcpy(letters[x], grid.letters[x], height);
        std::memset(map->at[x], 0, height);
    }
    for (int32_t direction = 0; direction < WSDIRECTIONS; direction++)
        directionfits(map, direction, word, length);
    return map;
}

const fitmap *wsfitskept(int32_t level)
{
    const fitmap *map = mapof(level);
    return map->level == level && map->changed == grid.changed ? map : nullptr;
}

void wsfitsmove(int32_t level)
{
    for (fitmap &map : maps)
        if (map.under > level) map.level = -1;
}
