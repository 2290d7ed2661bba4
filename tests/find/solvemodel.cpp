#include "tests/find/solvemodel.h"

#include "tests/find/testdicts.h"

#include <algorithm>
#include <string>
#include <utility>

namespace
{

using cell = std::pair<int32_t, int32_t>; // x, y
using slot = std::vector<cell>;

bool marked(int32_t x, int32_t y)
{
    return x < grid.width && y < grid.height && (grid.flags[x][y] & 3) == CELLMARKED;
}

// The run that begins at a cell, or nothing where none begins.
slot runfrom(int32_t x, int32_t y, bool down)
{
    int32_t dx = down ? 0 : 1, dy = down ? 1 : 0;
    uint8_t bar = down ? BARTOP : BARLEFT;
    bool before = (down ? y : x) > 0 && marked(x - dx, y - dy) && !(grid.flags[x][y] & bar);
    slot run;
    if (!marked(x, y) || before) return run;
    do
        run.emplace_back(x, y);
    while (marked(x += dx, y += dy) && !(grid.flags[x][y] & bar));
    return run;
}

std::vector<slot> slotsof()
{
    std::vector<slot> slots;
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++)
            for (bool down : {false, true}) {
                slot run = runfrom(x, y, down);
                if (run.size() > 1 && run.size() < 32) slots.push_back(run);
            }
    return slots;
}

// The place where a letter that the pattern knows is not the word's. Both are
// lower case.
size_t differs(const std::string &pattern, const std::string &word)
{
    size_t at = 0;
    while (at < pattern.size() && (pattern[at] == ' ' || pattern[at] == word[at]))
        at++;
    return at;
}

// A dictionary's words, as they are, in lower case, and that without spaces.
struct tellerdict {
    std::vector<std::string> words, lowers, closed;
};

struct teller {
    std::vector<slot> slots = slotsof();
    std::vector<tellerdict> dictionaries; // by place in the set
    std::vector<uint8_t> letters;
    std::vector<wordref> now;
    std::vector<std::vector<wordref>> found;
    size_t limit;

    uint8_t &at(cell place)
    {
        return letters[static_cast<size_t>(place.first) * 128 + static_cast<size_t>(place.second)];
    }

    std::string read(size_t k)
    {
        std::string text;
        for (cell place : slots[k]) {
            if (!at(place)) break;
            text += static_cast<char>(at(place));
        }
        return text;
    }

    void write(size_t k, const std::string &text)
    {
        std::string letters_ = closedup(text);
        if (text.empty() || text.back() == ' ') letters_ += '\0';
        for (size_t i = 0; i < letters_.size() && i < slots[k].size(); i++) {
            char ch = letters_[i];
            if (grid.casemode == CASEUPPER && ch >= 'a' && ch <= 'z')
                ch = static_cast<char>(ch - 32);
            if (grid.casemode == CASELOWER) ch = lower(ch);
            at(slots[k][i]) = static_cast<uint8_t>(ch);
        }
    }

    // A word for slot k; false when the search is over or the scan is.
    bool take(size_t k, size_t d, size_t n, const std::string &word, const std::string &pattern)
    {
        now[k] = makewordref(dictset.numbers[d], static_cast<uint32_t>(n));
        if (k + 1 == slots.size()) {
            found.push_back(now);
            return found.size() <= limit;
        }
        write(k, word);
        bool more = solve(k + 1);
        write(k, pattern);
        return more;
    }

    bool whole(size_t k, size_t d, const std::string &pattern, bool before)
    {
        const std::vector<std::string> &lowers = dictionaries[d].lowers;
        auto at = std::find(lowers.begin(), lowers.end(), lower(pattern));
        if (at == lowers.end()) return before;
        now[k] = makewordref(dictset.numbers[d], static_cast<uint32_t>(at - lowers.begin()));
        if (k + 1 < slots.size()) return solve(k + 1);
        found.push_back(now);
        return found.size() <= limit;
    }

    bool scanall(size_t k, size_t d, const std::string &pattern)
    {
        const tellerdict &dict = dictionaries[d];
        std::string known = lower(pattern);
        for (size_t n = 0; n < dict.words.size(); n++)
            if (dict.words[n].size() == pattern.size() &&
                differs(known, dict.lowers[n]) == pattern.size() &&
                !take(k, d, n, dict.words[n], pattern))
                return false;
        return true;
    }

    // The last index entry whose letters sort below those that are known.
    size_t begin(size_t d, const std::string &known)
    {
        const Dictionary &dict = dicts[dictset.numbers[d]].dict;
        const dictindex *entry = static_cast<const dictindex *>(dict.index);
        size_t first = 0;
        for (uint32_t i = 0; i < dict.noindex && !known.empty(); i++)
            if (lower(std::string(entry[i].word, known.size())) < known) first = entry[i].wordn;
        return first;
    }

    bool scanfrom(size_t k, size_t d, const std::string &pattern, size_t space)
    {
        const tellerdict &dict = dictionaries[d];
        std::string letters_ = lower(pattern);
        std::string known = letters_.substr(0, std::min<size_t>(space, 8));
        for (size_t n = begin(d, known); n < dict.words.size(); n++) {
            if (dict.closed[n].size() != pattern.size()) continue;
            size_t place = differs(letters_, dict.closed[n]);
            if (place == pattern.size()) {
                if (!take(k, d, n, closedup(dict.words[n]), pattern)) return false;
            } else if (place < known.size() && known < dict.lowers[n].substr(0, known.size())) {
                return true;
            }
        }
        return true;
    }

    // False unwinds. A word that is whole goes on to the next dictionary even
    // then, and the last one's answer counts.
    bool solve(size_t k)
    {
        std::string pattern = read(k), known = lower(pattern);
        size_t space = pattern.find(' ');
        size_t letter = pattern.size();
        for (size_t i = pattern.size(); i-- > 0;)
            if (known[i] >= 'a' && known[i] <= 'z') letter = i;
        bool more = true;
        for (size_t d = 0; d < dictionaries.size(); d++) {
            if (space == std::string::npos) {
                more = whole(k, d, pattern, more);
                if (k + 1 == slots.size() && !more) return false;
            } else if (letter < pattern.size() && letter > space) {
                if (!scanall(k, d, pattern)) return false;
            } else {
                if (!scanfrom(k, d, pattern, space) || found.size() > limit) return false;
            }
        }
        return more;
    }
};

} // namespace

int32_t solvemodelslots()
{
    return static_cast<int32_t>(slotsof().size());
}

solvemodelresult solvemodel(int32_t limit)
{
    teller model;
    model.limit = static_cast<size_t>(limit);
    model.letters.assign(&grid.letters[0][0], &grid.letters[0][0] + sizeof grid.letters);
    model.now.resize(model.slots.size());
    for (uint32_t i = 0; i < dictset.count; i++) {
        tellerdict dict = {.words = testdictwords(dictset.numbers[i]), .lowers = {}, .closed = {}};
        for (const std::string &word : dict.words) {
            dict.lowers.push_back(lower(word));
            dict.closed.push_back(closedup(lower(word)));
        }
        model.dictionaries.push_back(dict);
    }
    model.solve(0);
    return {.solutions = model.found, .letters = model.letters};
}
