#include "find/wsmake.h"

#include "base/random.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "tests/find/testdicts.h"
#include "tests/grid/gridlooks.h"
#include "tests/support/runner.h"

#include <algorithm>
#include <cstring>

namespace
{

void square(int32_t width, int32_t height, uint32_t directions)
{
    grid.kind = GRIDWORDSQUARE;
    grid.width = width;
    grid.height = height;
    grid.filldirections = directions;
    gridclear();
    gridclearcounts();
}

void list(const std::vector<std::string> &words)
{
    solreset();
    for (const std::string &word : words)
        REQUIRE(soladdword(-1, -1, -1, -1, word.c_str()) == nullptr);
}

std::string letters()
{
    std::string text;
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++)
            text += static_cast<char>(grid.letters[x][y]);
    return text;
}

std::string readback(const wsentry &entry)
{
    std::string text;
    for (size_t i = 0; i < strlen(entry.text); i++) {
        int32_t x = entry.x + static_cast<int32_t>(i) * entry.dx;
        int32_t y = entry.y + static_cast<int32_t>(i) * entry.dy;
        REQUIRE(gridinside(x, y));
        text += static_cast<char>(grid.letters[x][y]);
    }
    return text;
}

std::vector<std::string> somewords(std::mt19937 &random, const std::vector<std::string> &from,
                                   size_t count, size_t longest)
{
    std::vector<std::string> words;
    while (words.size() < count) {
        std::string word = from[below(random, static_cast<uint32_t>(from.size()))];
        if (word.size() <= longest && word[0] >= 'a') words.push_back(word);
    }
    return words;
}

// A square told again by plain recursion, which draws as the making draws.
struct retelling {
    std::vector<std::string> words;
    std::vector<std::vector<int>> places;
    std::string cells;
    std::vector<int> uses;
    int width, height;
    uint32_t mask;

    bool place(size_t i)
    {
        const int steps[8][2] = {{1, 0},  {1, 1},  {1, -1}, {0, 1},
                                 {0, -1}, {-1, 0}, {-1, 1}, {-1, -1}};
        if (i == words.size()) return true;
        int startx = randomdraw() % width, starty = randomdraw() % height;
        int startd = randomdraw() & 7;
        int length = static_cast<int>(words[i].size());
        int start = starty * width + startx;
        for (int n = 0; n < width * height; n++) {
            int cell = (start + n) % (width * height);
            for (int t = 0; t < 8; t++) {
                int d = (startd + t) % 8, x = cell % width, y = cell / width;
                if (!(mask >> d & 1)) continue;
                int ex = x + (length - 1) * steps[d][0], ey = y + (length - 1) * steps[d][1];
                if (ex < 0 || ey < 0 || ex >= width || ey >= height) continue;
                std::vector<size_t> line;
                for (int k = 0; k < length; k++)
                    line.push_back(
                        static_cast<size_t>((y + k * steps[d][1]) * width + x + k * steps[d][0]));
                bool fits = true;
                for (size_t k = 0; k < line.size(); k++)
                    fits = fits && (cells[line[k]] == ' ' || cells[line[k]] == words[i][k]);
                if (!fits) continue;
                for (size_t k = 0; k < line.size(); k++) {
                    cells[line[k]] = words[i][k];
                    uses[line[k]]++;
                }
                if (place(i + 1)) {
                    places[i] = {x, y, steps[d][0], steps[d][1]};
                    return true;
                }
                for (size_t at : line)
                    if (--uses[at] == 0) cells[at] = ' ';
            }
        }
        return false;
    }
};

int32_t cellssum(const uint8_t (&cells)[GRIDSTRIDE][GRIDSTRIDE])
{
    int32_t sum = 0;
    for (const auto &column : cells)
        for (uint8_t cell : column)
            sum += cell;
    return sum;
}

} // namespace

TEST_CASE("placing agrees with plain recursion, place by place")
{
    std::vector<std::string> words = realwords(7);
    std::mt19937 random(44);
    int placed = 0, failed = 0;
    for (int n = 0; n < 300; n++) {
        int32_t width = 3 + static_cast<int32_t>(below(random, 5));
        int32_t height = 3 + static_cast<int32_t>(below(random, 5));
        uint32_t mask = 1 + below(random, 255);
        std::vector<std::string> chosen = somewords(random, words, 1 + below(random, 5), 6);
        square(width, height, mask);
        list(chosen);

        auto area = static_cast<size_t>(width * height);
        retelling told = {.words = chosen,
                          .places = {chosen.size(), {-1, -1, -1, -1}},
                          .cells = std::string(area, ' '),
                          .uses = std::vector<int>(area),
                          .width = width,
                          .height = height,
                          .mask = mask};
        randomseed(static_cast<uint32_t>(n));
        bool expected = told.place(0);
        randomseed(static_cast<uint32_t>(n));
        CHECK(wsplace(0) == (expected ? 1 : 0));
        CHECK(letters() == told.cells);
        for (size_t i = 0; i < chosen.size(); i++) {
            const wsentry *entry = solword(static_cast<int32_t>(i));
            CHECK(std::vector<int>{entry->x, entry->y, entry->dx, entry->dy} == told.places[i]);
        }
        (expected ? placed : failed)++;
        solreset();
    }
    CHECK(placed > 100);
    CHECK(failed > 10);
}

// That a seed gives one square is seen from outside, by tests/tools/quill_test.py.
TEST_CASE("every placed word of a full square reads back")
{
    std::mt19937 random(45);
    std::vector<std::string> chosen = somewords(random, realwords(5), 25, 12);
    square(26, 22, 255);
    list(chosen);
    searchrun(wsmake());
    CHECK(letters().find(' ') == std::string::npos);
    for (int32_t i = 0; i < solutions.count; i++)
        CHECK(readback(*solword(i)) == chosen[static_cast<size_t>(i)]);
    CHECK((headless.begins == headless.ends && headless.busy == 0));
}

TEST_CASE("a word clicked while a square is made stands marked, and can be unmarked")
{
    square(9, 9, 255);
    list({"cat", "otter"});
    headless.onpoll = [] {
        if (headless.polls == 1) CHECK(solselect(0, false));
    };
    grid.flags[8][8] = CELLMARKED;
    markrescan();
    CHECK(solselect(1, false)); // it is no longer selected
    CHECK(wsmake() == nullptr);
    CHECK(solselected() == 0);
    CHECK(nomark()); // the square is emptied
    CHECK(headlessrun() == nullptr);
    CHECK(cellssum(grid.flags) == 3 * CELLMARKED);
    CHECK(cellssum(grid.counts) == 3);
    CHECK_FALSE(nomark());
    CHECK(solselect(0, true));
    CHECK(cellssum(grid.flags) == 0);
}

TEST_CASE("words that fit nowhere leave an empty grid")
{
    square(5, 5, 255);
    list({"cat", "elephant"});
    CHECK(wsplace(0) == 0);
    CHECK(letters() == std::string(25, ' '));
    CHECK(cellssum(grid.counts) == 0);
    solreset();
    CHECK(wsplace(0) == 1); // an empty list

    // Capitals are compared as they are and laid in lower case.
    square(3, 1, 1);
    list({"Cat"});
    CHECK(wsplace(0) == 1);
    CHECK(letters() == "cat");
    list({"Cat"});
    CHECK(wsplace(0) == 0);
    solreset();

    // Directions of 0 are the default ones.
    square(1, 6, 0);
    list({"column"});
    CHECK(wsplace(0) == 1);
    CHECK(letters() == "column");
}

TEST_CASE("Stop keeps what is placed and says so once")
{
    std::vector<std::string> words = realwords(11);
    std::mt19937 random(46);
    square(30, 30, 255);
    list(somewords(random, words, 20, 8));
    randomseed(7);
    headless.onpoll = [] {
        if (headless.polls == 11) search.stopflag = 1;
    };
    searchrun(wsmake());
    CHECK(headless.boxes == 1);
    CHECK(headless.boxtext == std::string("Fitted 11 words, up to ") + solword(11)->text);
    for (int32_t i = 0; i < 20; i++)
        CHECK((solword(i)->x >= 0) == (i < 11));
    for (int32_t i = 0; i < 11; i++)
        CHECK(readback(*solword(i)) == solword(i)->text);
}

TEST_CASE("a list as long as a text file doesn't wear the stack out")
{
    size_t words = shaken() ? 2000 : 40000;
    square(4, 1, 1);
    list(std::vector<std::string>(words, "four"));
    CHECK(wsplace(0) == 1); // all in one place
    CHECK(solword(static_cast<int32_t>(words) - 1)->x == 0);
}

TEST_CASE("New fills a square from the dictionaries")
{
    CHECK(wsnew() != nullptr);
    testdict("one", realwords(2));
    square(12, 12, 255);
    solutions.slotcount = 3; // as a Crossword left it
    searchrun(wsnew());
    CHECK(solutions.slotcount == 1);
    CHECK(letters().find(' ') == std::string::npos);
    CHECK(solutions.count == 0); // the words are for the solver to find
    testdictsfree();

    testdict("empty", {});
    square(4, 4, 255);
    searchrun(wsnew()); // and it ends
}

TEST_CASE("random words come round-robin from the second dictionary on")
{
    testdict("a", {"alpha"});
    testdict("b", {"beta"});
    testdict("c", {});
    char word[WORDSIZE];
    std::string seen;
    dictrandomreset();
    for (int i = 0; i < 6; i++) {
        dictrandomword(word);
        seen += std::string(word) + ",";
    }
    CHECK(seen == "beta,,alpha,beta,,alpha,");
    testdictsfree();

    testdict("many", realwords(3));
    uint32_t count = dictcount(&dicts[0].dict);
    randomseed(5);
    uint32_t low = static_cast<uint32_t>(randomdraw());
    uint32_t high = static_cast<uint32_t>(randomdraw());
    randomseed(5);
    dictrandomword(word);
    CHECK(std::string(word) == testdictwords(0)[((low + 32768 * high) & 0xFFFFFF) % count]);
}
