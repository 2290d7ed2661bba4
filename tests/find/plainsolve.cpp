#include "grid/grid.h"
#include "tests/find/plainsearch.h"

#include <algorithm>

namespace
{

using slot = std::vector<size_t>; // places in the array of letters

bool marked(int32_t x, int32_t y)
{
    return gridinside(x, y) && (grid.flags[x][y] & CELLKIND) == CELLMARKED;
}

std::vector<slot> slotsof()
{
    std::vector<slot> slots;
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++)
            for (int32_t dx : {1, 0}) {
                int32_t dy = 1 - dx, cx = x, cy = y;
                auto joined = [&] { // to the cell before
                    return marked(cx - dx, cy - dy) && marked(cx, cy) &&
                           !(grid.flags[cx][cy] & (dx ? BARLEFT : BARTOP));
                };
                if (!marked(x, y) || joined()) continue;
                slot run;
                do {
                    run.push_back(static_cast<size_t>(cx * GRIDSTRIDE + cy));
                    cx += dx, cy += dy;
                } while (joined());
                if (run.size() > 1 && run.size() < 32) slots.push_back(run);
            }
    return slots;
}

// The place where a letter that the pattern knows is not the word's.
size_t agreeing(const std::string &pattern, const std::string &word)
{
    size_t at = 0;
    while (at < pattern.size() && (pattern[at] == ' ' || lower(pattern[at]) == lower(word[at])))
        at++;
    return at;
}

struct solver {
    std::vector<slot> slots = slotsof();
    std::vector<wordref> now = std::vector<wordref>(slots.size());
    plainsolution out;
    size_t limit;

    // A cell that holds nothing cuts the pattern short.
    std::string read(const slot &cells)
    {
        std::string text;
        for (size_t i = 0; i < cells.size() && out.letters[cells[i]]; i++)
            text += static_cast<char>(out.letters[cells[i]]);
        return text;
    }

    // Closed up over its spaces, patterns that are put back too: where one ended
    // in spaces a NUL follows, and the cells behind keep what they held.
    void write(const slot &cells, const std::string &text)
    {
        std::string letters = closedup(text);
        if (text.empty() || text.back() == ' ') letters += '\0';
        for (size_t i = 0; i < letters.size() && i < cells.size(); i++)
            out.letters[cells[i]] = gridcase(static_cast<uint8_t>(letters[i]));
    }

    // The next slot, or behind the last the solution itself; false unwinds.
    bool goon(size_t k)
    {
        if (k + 1 < slots.size()) return solve(k + 1);
        out.found.push_back(now);
        return out.found.size() <= limit;
    }

    // Where the index lets a scan for the known letters begin.
    size_t begin(const plaindict &from, const std::string &known)
    {
        const Dictionary *dict = &dicts[from.number].dict;
        if (known.empty() || from.words.empty()) return 0;
        uint32_t entry = dictentrybelow(known.c_str(), static_cast<int32_t>(known.size()), dict, 0);
        return static_cast<const dictindex *>(dict->index)[entry].wordn;
    }

    // Words as they are, over the whole dictionary, or closed up and as far as the
    // known letters at the front allow; false unwinds.
    bool scan(size_t k, const plaindict &dict, const std::string &pattern, bool whole)
    {
        std::string known = lower(pattern.substr(0, std::min<size_t>(pattern.find(' '), 8)));
        for (size_t n = whole ? 0 : begin(dict, known); n < dict.words.size(); n++) {
            const std::string &word = whole ? dict.words[n] : dict.closed[n];
            if (word.size() != pattern.size()) continue;
            size_t place = agreeing(pattern, word);
            if (place == pattern.size()) {
                now[k] = makewordref(dict.number, static_cast<uint32_t>(n));
                if (k + 1 < slots.size()) write(slots[k], word);
                bool more = goon(k);
                if (k + 1 < slots.size()) write(slots[k], pattern);
                if (!more) return false;
            } else if (!whole && place < known.size() &&
                       known < dict.lowers[n].substr(0, known.size())) {
                break;
            }
        }
        return whole || out.found.size() <= limit;
    }

    // A pattern that is a word already goes on to the next dictionary even when
    // the later slots unwind, and the last one's answer counts.
    bool solve(size_t k)
    {
        std::string pattern = read(slots[k]), known = lower(pattern);
        size_t space = pattern.find(' '),
               letter = known.find_first_of("abcdefghijklmnopqrstuvwxyz");
        bool more = true, whole = letter != std::string::npos && letter > space;
        for (const plaindict &dict : plaindicts) {
            if (space != std::string::npos) {
                if (!scan(k, dict, pattern, whole)) return false;
                continue;
            }
            auto found = std::find(dict.lowers.begin(), dict.lowers.end(), known);
            if (found == dict.lowers.end()) continue;
            now[k] = makewordref(dict.number, static_cast<uint32_t>(found - dict.lowers.begin()));
            more = goon(k);
            if (k + 1 == slots.size() && !more) return false;
        }
        return more;
    }
};

} // namespace

int32_t plainslots()
{
    return static_cast<int32_t>(slotsof().size());
}

plainsolution plainsolve(int32_t limit)
{
    solver solver;
    solver.limit = static_cast<size_t>(limit);
    solver.out.letters.assign(&grid.letters[0][0], &grid.letters[0][0] + sizeof grid.letters);
    solver.solve(0);
    return solver.out;
}
