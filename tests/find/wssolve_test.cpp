#include "find/wssolve.h"

#include "find/solutions.h"
#include "find/solve.h"
#include "tests/find/testdicts.h"
#include "tests/grid/gridlooks.h"

#include <algorithm>
#include <set>

namespace
{

std::string line(const std::string &text, int32_t x, int32_t y, int32_t dx, int32_t dy)
{
    return text + " " + std::to_string(x) + " " + std::to_string(y) + " " + std::to_string(dx) +
           " " + std::to_string(dy);
}

// Told again from a plain set of the words that a store without phrases holds.
std::multiset<std::string> told()
{
    std::set<std::string> known;
    for (uint32_t i = 0; i < dictset.count; i++)
        for (const std::string &word : testdictwords(dictset.numbers[i]))
            known.insert(closedup(lower(word)));
    std::multiset<std::string> found;
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            for (int32_t d = 0; d < 9; d++) {
                int32_t dx = d / 3 - 1, dy = d % 3 - 1;
                if (!dx && !dy) continue;
                std::string text, longest;
                for (int32_t cx = x, cy = y;
                     cx >= 0 && cy >= 0 && cx < grid.width && cy < grid.height && text.size() < 31;
                     cx += dx, cy += dy) {
                    char ch = lower(static_cast<char>(grid.letters[cx][cy]));
                    if (ch < 'a' || ch > 'z' || (grid.flags[cx][cy] & 3) != 0) break;
                    text += ch;
                    if (static_cast<int32_t>(text.size()) >= grid.minwordlength &&
                        known.count(text))
                        longest = text;
                }
                if (!longest.empty()) found.insert(line(longest, x, y, dx, dy));
            }
    return found;
}

std::multiset<std::string> solved()
{
    searchrun(wssolve());
    std::multiset<std::string> found;
    for (int32_t i = 0; i < solutions.count; i++) {
        const wsentry *word = solword(i);
        found.insert(line(word->text, word->x, word->y, word->dx, word->dy));
    }
    return found;
}

void fill(const std::string &letters, int32_t width)
{
    gridclear();
    grid.kind = GRIDWORDSQUARE;
    grid.width = width;
    grid.height = static_cast<int32_t>(letters.size()) / width;
    for (size_t i = 0; i < letters.size(); i++)
        grid.letters[static_cast<int32_t>(i) % width][static_cast<int32_t>(i) / width] =
            static_cast<uint8_t>(letters[i]);
}

// Letters as words have them, so that there is much to find; some blanks,
// marked cells, capitals and accents among them.
std::string randomletters(std::mt19937 &random, const std::vector<std::string> &words, size_t count)
{
    std::string letters;
    while (letters.size() < count) {
        const std::string &word = words[below(random, static_cast<uint32_t>(words.size()))];
        letters += word.substr(0, 2 + below(random, 6));
        if (below(random, 12) == 0) letters += " \xE9*Z"[below(random, 4)];
    }
    letters.resize(count);
    return letters;
}

} // namespace

TEST_CASE("hidden words agree with looking every line up in a set")
{
    std::vector<std::string> words = realwords(2);
    testdict("one", words);
    testdict("two", {"Aa", "\xE9lan", "xyz", "b"});
    std::mt19937 random(55);
    size_t total = 0;
    for (int n = 0; n < 60; n++) {
        int32_t width = 1 + static_cast<int32_t>(below(random, 12));
        size_t count = static_cast<size_t>(width) * (1 + below(random, 12));
        fill(randomletters(random, words, count), width);
        for (int32_t x = 0; x < grid.width; x++)
            if (below(random, 20) == 0)
                grid.flags[x][below(random, static_cast<uint32_t>(grid.height))] = CELLMARKED;
        grid.minwordlength = 1 + static_cast<int32_t>(below(random, 6));
        std::multiset<std::string> expected = told();
        CHECK(solved() == expected);
        total += expected.size();
        solreset();
    }
    CHECK(total > 100);
}

TEST_CASE("worked cases")
{
    testdict("d", {"car", "carpet", "ice cream", "pet", "Rac", std::string(31, 'q')});
    grid.minwordlength = 3;
    fill("carpet", 6);
    CHECK(solved() == std::multiset<std::string>{"carpet 0 0 1 0", "pet 3 0 1 0", "rac 2 0 -1 0"});
    fill("ICECREAM", 1); // a phrase is found by its letters, in either case
    CHECK(solved() == std::multiset<std::string>{"icecream 0 0 0 1"});
    fill(std::string(40, 'q'), 40);
    CHECK(solved().size() == 20); // ten starts each way have 31 letters before them
}

TEST_CASE("the list is sorted by text, and Stop keeps what was found")
{
    testdict("d", {"ant", "bee", "cow"});
    grid.minwordlength = 3;
    fill("cowbeeant", 9);
    searchrun(wssolve());
    REQUIRE(solutions.count == 3);
    CHECK(std::string(solword(0)->text) == "ant");
    CHECK(std::string(solword(2)->text) == "cow");
    CHECK(headless.polls == 9); // once for each cell

    headless.polls = 0;
    headless.onpoll = [] {
        if (headless.polls == 3) search.stopflag = 1;
    };
    searchrun(wssolve());
    CHECK(headless.polls == 3);
    CHECK(solutions.count == 2); // the fourth cell is searched, and then it ends
    CHECK(headless.busy == 0);

    // A word clicked meanwhile can be unmarked behind the search.
    grid.counts[1][0] = 1; // left by a list that is gone
    headless.polls = 0;
    headless.onpoll = [] {
        if (headless.polls == 2) CHECK(solselect(0, false));
    };
    searchrun(wssolve());
    REQUIRE(solutions.count == 3);
    CHECK(solword(2)->selected == 1);
    CHECK(grid.flags[1][0] == CELLMARKED);
    CHECK(solselect(2, true));
    CHECK(grid.flags[1][0] == CELLOPEN);
}

TEST_CASE("without a dictionary nothing happens")
{
    fill("carpet", 6);
    REQUIRE(soladdword(-1, -1, -1, -1, "kept") == nullptr);
    CHECK(wssolve() == nullptr);
    CHECK((headless.worker == nullptr));
    CHECK(solutions.count == 1);
}
