#include "find/solve.h"

#include "base/errorcodes.h"
#include "base/flex.h"
#include "find/anagram.h"
#include "find/solutions.h"
#include "tests/find/solvemodel.h"
#include "tests/find/testdicts.h"
#include "tests/grid/gridlooks.h"
#include "tests/support/runner.h"

#include <cstring>

namespace
{

void cells(int32_t width, int32_t height)
{
    gridclear();
    grid.width = width;
    grid.height = height;
}

void mark(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    for (int32_t x = left; x <= right; x++)
        for (int32_t y = top; y <= bottom; y++)
            if ((grid.flags[x][y] & CELLKIND) != CELLBLOCK)
                grid.flags[x][y] =
                    static_cast<uint8_t>((grid.flags[x][y] & ~CELLKIND) | CELLMARKED);
}

void row(int32_t y, const char *letters)
{
    for (int32_t x = 0; letters[x]; x++)
        grid.letters[x][y] = static_cast<uint8_t>(letters[x] == '.' ? ' ' : letters[x]);
}

// Starts and runs; the solutions, words joined by "/".
std::vector<std::string> solved()
{
    searchrun(solvestart());
    std::vector<std::string> lines;
    for (int32_t i = 0; i < solutions.count; i++) {
        std::string line;
        for (int32_t slot = 0; slot < solutions.slotcount; slot++)
            line += (slot ? "/" : "") + std::string(wordtext(solref(i, slot)));
        lines.push_back(line);
    }
    return lines;
}

std::string randomword(std::mt19937 &random)
{
    std::string word;
    size_t length = 1 + below(random, 6);
    while (word.size() < length)
        word += "abcabcABe "[below(random, 10)];
    return word;
}

// A grid of small words: blocks, bars, marks of any shape, some letters.
void randomgrid(std::mt19937 &random)
{
    cells(2 + static_cast<int32_t>(below(random, 5)), 1 + static_cast<int32_t>(below(random, 5)));
    grid.casemode = static_cast<int32_t>(below(random, 3));
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++) {
            uint32_t n = below(random, 20);
            grid.flags[x][y] = n == 0 ? CELLBLOCK : n < 12 ? CELLMARKED : CELLOPEN;
            if (below(random, 9) == 0) grid.flags[x][y] |= BARLEFT;
            if (below(random, 9) == 0) grid.flags[x][y] |= BARTOP;
            grid.letters[x][y] = static_cast<uint8_t>("      abcA"[below(random, 10)]);
        }
}

// The search and the model on the same grid: solutions, order and what the
// search leaves in its own letters, while the grid's stay. Returns the slots.
int32_t agree(int32_t limit)
{
    solutions.maxsolutions = limit;
    errorblock *err = solvestart();
    if (err) {
        CHECK(solvemodelslots() == 0);
        CHECK(code(err) == (grid.markleft < 0 ? ENMW : ENTS));
        return 0;
    }
    int32_t slots = solutions.slotcount;
    CHECK(slots == solvemodelslots());
    solvemodelresult expected = solvemodel(limit);
    griddocument before = grid;
    CHECK(headlessrun() == nullptr);
    CHECK(memcmp(grid.letters, before.letters, sizeof grid.letters) == 0);
    std::vector<std::vector<wordref>> found(static_cast<size_t>(solutions.count));
    for (int32_t i = 0; i < solutions.count; i++)
        for (int32_t slot = 0; slot < slots; slot++)
            found[static_cast<size_t>(i)].push_back(solref(i, slot));
    CHECK((found == expected.solutions));
    CHECK(memcmp(search.letters, expected.letters.data(), sizeof search.letters) == 0);
    return slots;
}

// Five letters across, the second known, and four down from the last.
void crossing()
{
    cells(12, 12);
    mark(0, 0, 4, 0);
    mark(4, 0, 4, 3);
    grid.letters[1][0] = 'a';
}

} // namespace

TEST_CASE("solving agrees with a plain telling on small words, phrases and bars")
{
    std::mt19937 random(77);
    int cases[8] = {};
    int64_t found = 0, limited = 0;
    for (int n = 0; n < 1500; n++) {
        for (uint32_t dictionaries = 1 + below(random, 3); dictionaries; dictionaries--) {
            std::vector<std::string> words;
            for (uint32_t count = below(random, 60); count; count--)
                words.push_back(randomword(random));
            testdict("d", words);
        }
        randomgrid(random);
        markrescan();
        if (solvemodelslots() <= 6) {
            int32_t slots = agree(n % 3 ? 3000 : 20);
            cases[slots < 7 ? slots : 7]++;
            found += solutions.count;
            limited += solutions.count > solutions.maxsolutions;
        }
        solreset();
        testdictsfree();
    }
    for (int slots = 1; slots <= 5; slots++)
        CHECK_MESSAGE(cases[slots] >= 50, slots, " slots");
    CHECK(found > 5000);
    CHECK(limited > 20);
}

TEST_CASE("solving agrees with a plain telling on real words")
{
    std::vector<std::string> words = realwords(4);
    testdict("all", words);
    testdict("more", {"ice cream", "New York", "Zeus", "at last", "x ray", "queue", "aa"});
    std::mt19937 random(78);
    int64_t found = 0;
    for (int n = 0; n < 200; n++) {
        cells(9, 9);
        const std::string &word = words[below(random, static_cast<uint32_t>(words.size()))];
        if (word.size() < 3 || word.size() > 9) continue;
        row(0, word.c_str());
        mark(0, 0, static_cast<int32_t>(word.size()) - 1, 0);
        for (size_t x = 0; x < word.size(); x++)
            if (below(random, 3)) grid.letters[x][0] = ' ';
        if (n % 10 == 0) mark(0, 0, 0, 3); // one that crosses at the first letter
        markrescan();
        agree(200);
        found += solutions.count;
        solreset();
    }
    CHECK(found > 500);
}

TEST_CASE("the start checks dictionaries, mark and slots")
{
    cells(5, 5);
    CHECK(code(solvestart()) == ENOD);
    testdict("d", {"ab"});
    CHECK(code(solvestart()) == ENMW);
    mark(2, 2, 2, 2);
    CHECK(code(solvestart()) == ENTS);
    CHECK((headless.worker == nullptr));

    cells(40, 2); // a run longer than any word is no slot
    mark(0, 0, 31, 0);
    CHECK(code(solvestart()) == ENTS);
    mark(0, 1, 0, 1);
    CHECK(solvestart() == nullptr);
    CHECK(solutions.slotcount == 1);
    CHECK(search.slots[0].direction == 1);
    headless.worker = nullptr;
}

TEST_CASE("no more slots are opened than there is room for")
{
    testdict("d", {"ab"});
    cells(GRIDMAX, GRIDMAX); // every other row in twos
    for (int32_t y = 0; y < GRIDMAX; y += 2)
        for (int32_t x = 0; x + 1 < GRIDMAX; x += 3)
            mark(x, y, x + 1, y);
    REQUIRE(solvestart() == nullptr);
    CHECK(solutions.slotcount == MAXSLOTS);
    headless.worker = nullptr;
}

// A phrase fits by its letters where the first are known, and by its length with
// spaces where they are not.
TEST_CASE("phrases")
{
    testdict("d", {"a bed"});
    cells(9, 2);
    mark(0, 0, 3, 0);
    row(0, "a...");
    CHECK(solved() == std::vector<std::string>{"a bed"});
    row(0, "...d");
    CHECK(solved().empty());
    mark(4, 0, 4, 0);
    row(0, "....d");
    CHECK(solved() == std::vector<std::string>{"a bed"});
    markrescan();
    solapply(0); // without a gap
    CHECK(gridtext().starts_with("abed"));
    CHECK(grid.changed == 1);

    // What counts is where the first letter stands, not the first character.
    testdict("f", {"'xy", "'x y", "x'y", "x' y"});
    cells(3, 1);
    mark(0, 0, 2, 0);
    row(0, "'.y");
    CHECK(solved() == std::vector<std::string>{"'xy"});
    row(0, "x.y");
    CHECK(solved() == std::vector<std::string>{"x' y", "x'y"});
}

TEST_CASE("the list stops above the limit, and Stop ends a search")
{
    testdict("d", realwords(4));
    cells(12, 12);
    mark(0, 0, 4, 0);
    solutions.maxsolutions = 20;
    CHECK(solved().size() == 21);

    // Stop is heard soon in a long search.
    solutions.maxsolutions = 1000000;
    crossing();
    headless.polls = 0;
    headless.onpoll = [] {
        if (headless.polls == 3) search.stopflag = 1;
    };
    solved();
    CHECK(headless.polls >= 3);
    CHECK(headless.polls < 20);
    CHECK(headless.begins == headless.ends);
    CHECK(headless.busy == 0);
}

TEST_CASE("short memory loses a solution and nothing else")
{
    testdict("d", {"aa", "ab", "ba", "bb", "a bc", "cab", "bac"});
    cells(3, 3);
    mark(0, 0, 2, 0);
    mark(0, 0, 0, 1);
    const int all = 4;
    CHECK(solved().size() == all);
    int lost = 0;
    for (int32_t n = 0; n < 10; n++) {
        cells(3, 3);
        mark(0, 0, 2, 0);
        mark(0, 0, 0, 1);
        REQUIRE(solvestart() == nullptr);
        flexfailafter(n);
        CHECK(headlessrun() == nullptr);
        flexfailafter(-1);
        int missing = all - solutions.count;
        CHECK(missing >= 0);
        CHECK(missing <= 1); // words that can't be kept are read again
        lost += missing;
    }
    CHECK(lost == 1);
}

TEST_CASE("what a poll lets in harms no search")
{
    testdict("d", realwords(40));
    crossing();
    std::vector<std::string> all = solved();
    CHECK(all.size() > (shaken() ? 3 : 50));

    // The buttons of the searches, and a run that was left from before.
    auto again = [] {
        int32_t slots = solutions.slotcount;
        CHECK(solvestart() == nullptr);
        CHECK(anagramstart("") == nullptr);
        CHECK((headless.worker == nullptr));
        CHECK(solverun(0) == nullptr);
        CHECK(solutions.slotcount == slots);
    };
    crossing();
    headless.polls = 0;
    headless.onpoll = again;
    CHECK(solved() == all);
    CHECK(headless.polls > 0);
    CHECK(headless.begins == 2);

    // Fewer slots than the search is deep.
    crossing();
    headless.onpoll = [] { solutions.slotcount = 1; };
    searchrun(solvestart());

    // A document of the other kind: its list takes no references.
    crossing();
    headless.polls = 0;
    headless.onpoll = [] {
        grid.kind = GRIDWORDSQUARE;
        solreset();
    };
    searchrun(solvestart());
    CHECK(headless.polls == 1);
    CHECK(solutions.count == 0);
}
