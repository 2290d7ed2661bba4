// How searches begin and end, and what may happen meanwhile.
#include "base/errorcodes.h"
#include "base/flex.h"
#include "dict/dictset.h"
#include "find/anagram.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "find/spell.h"
#include "find/wsmake.h"
#include "find/wssolve.h"
#include "tests/find/testdicts.h"
#include "tests/grid/gridlooks.h"

namespace
{

// Five letters across, the second known, and four down from the last.
constexpr const char *CROSSING = ".a...\n####.\n####.\n####.\n";

// How many solutions a picture has.
int32_t solved(const char *picture)
{
    gridmarked(picture);
    headless.polls = 0;
    searchrun(solvestart());
    return solutions.count;
}

// Stop is pressed at a poll.
int stop;
void stopat(int poll)
{
    stop = poll;
    headless.polls = 0;
    headless.onpoll = [] {
        if (headless.polls == stop) search.stopflag = 1;
    };
}

} // namespace

TEST_CASE("a start asks for dictionaries, a mark, slots and a text")
{
    const std::string longest(32, '.'), typed(60, 'x');
    const struct {
        std::string picture, text;
        uint32_t solve, anagram;
    } rows[] = {
        {"##", "x", ENMW, ENMW},      {".#", "x", ENTS, EASW}, {longest, "x", ENTS, EASW},
        {"...\n.##", "cat", 0, EASW}, {"ca.", "", 0, EASP},    {"ca.", "cats", 0, EAMAT},
        {"ca.", typed, 0, EAMAT},     {"cat", "", 0, 0},
    };
    CHECK((code(solvestart()) == ENOD && code(anagramstart("")) == ENOD && code(wsnew()) == ENOD));
    CHECK((wssolve() == nullptr && headless.worker == nullptr));
    testdict({"cat", "act"});
    for (const auto &[picture, text, solve, anagram] : rows) {
        gridmarked(picture);
        CHECK(code(solvestart()) == solve);
        CHECK((headless.worker == solverun) == (solve == 0));
        headless.worker = nullptr;
        CHECK(code(anagramstart(text.c_str())) == anagram);
        CHECK((headless.worker == anagramrun) == (anagram == 0));
    }
    searchrun(nullptr);
    CHECK(solutions.count == 2);
    grid.letters[1][0] = 0; // as a search may leave it
    CHECK(code(anagramstart("")) == EASP);

    std::string rowsoftwos; // more slots than there is room for
    for (int y = 0; y < 20; y++)
        rowsoftwos += "..#..#..#..#..#..#..#..#..#..#..#..#..#..#\n" + std::string(42, '#') + "\n";
    gridmarked(rowsoftwos);
    CHECK((solvestart() == nullptr && solutions.slotcount == MAXSLOTS));
}

TEST_CASE("each search shows its list or the grid at its start and its end")
{
    const struct {
        errorblock *(*start)();
        int refreshes, redraws; // at either
    } rows[] = {
        {solvestart, 1, 0}, {[] { return anagramstart("cat"); }, 1, 0},
        {wssolve, 1, 0},    {wsmake, 0, 1},
        {wsnew, 1, 1},
    };
    testdict({"cat", "longer"}); // which has no place, and ends New
    for (auto [start, refreshes, redraws] : rows) {
        solreset();
        gridmarked("cat");
        gridunchanged();
        headlessreset();
        CHECK_FALSE(start());
        CHECK((headless.refreshes == refreshes && headless.redraws == redraws));
        searchrun(nullptr);
        CHECK((headless.refreshes == 2 * refreshes && headless.redraws == 2 * redraws));
        CHECK((headless.begins == 1 && grid.changed == redraws));
    }
}

TEST_CASE("what a poll lets in harms no search, and Stop ends it soon")
{
    std::mt19937 random(40);
    testdict(madewords(random, 5000));
    CHECK((solved("...e") > 0));
    CHECK(headless.polls == static_cast<int>(plaindicts[0].words.size() + 1) / 2049);
    int32_t all = solved(CROSSING);
    for (const char *picture : {CROSSING, "...a.\n####.\n####.\n####.\n"}) {
        stopat(3);
        CHECK(solved(picture) < all);
        CHECK((headless.polls >= 3 && headless.polls < 20));
    }
    headless.begins = headless.ends = 0;
    headless.onpoll = [] { // the buttons of the searches, and a run that was left from before
        CHECK((solvestart() == nullptr && anagramstart("") == nullptr));
        CHECK((headless.worker == nullptr && solverun(0) == nullptr));
        CHECK(solutions.slotcount == 2);
    };
    CHECK((solved(CROSSING) == all && headless.polls > 0 && headless.begins == 1));

    headless.onpoll = [] { solutions.slotcount = 1; }; // fewer than the search is deep
    solved(CROSSING);

    headless.onpoll = [] { // a document of the other kind: its list takes no references
        grid.kind = GRIDWORDSQUARE;
        solreset();
    };
    CHECK((solved(CROSSING) == 0 && headless.polls == 1));
}

TEST_CASE("short memory loses a solution and nothing else")
{
    testdict({"aa", "ab", "ba", "bb", "a bc", "cab", "bac"});
    int lost = 0;
    for (int32_t n = 0; n < 10; n++) {
        gridmarked("...\n.##\n");
        REQUIRE_FALSE(solvestart());
        flexfailafter(n);
        searchrun(nullptr);
        flexfailafter(-1);
        CHECK((solutions.count == 3 || solutions.count == 4)); // words not kept are read again
        lost += 4 - solutions.count;
    }
    CHECK(lost == 1);
}

TEST_CASE("a Wordsquare's searches keep what is found, or placed, and say so once")
{
    testdict({"ant", "bee", "cow"});
    grid.kind = GRIDWORDSQUARE;
    grid.minwordlength = 3;
    gridset("cowbeeant");
    stopat(3);
    headless.progress = 0;
    searchrun(wssolve());
    CHECK((headless.polls == 3 && solutions.count == 2)); // the fourth cell is searched
    CHECK(headless.progress == 1); // the second is none of those that are shown

    solreset();
    grid.width = grid.height = 30;
    for (int n = 0; n < 20; n++)
        REQUIRE_FALSE(soladdword(-1, -1, -1, -1, "word"));
    stopat(11);
    searchrun(wsmake());
    CHECK((headless.boxes == 1 && headless.boxtext == "Fitted 11 words, up to word"));
    for (int32_t i = 0; i < 20; i++)
        CHECK((solword(i)->x >= 0) == (i < 11));
    stopat(11);
    searchrun(wsnew());
    CHECK(headless.polls == 11);
}

TEST_CASE("the spell check stops at unknown words alone")
{
    const std::string longest(31, 'a');
    const std::pair<std::string, std::string> rows[] = {
        // A picture, and the unknown words, each behind a space.
        {"CAT##xy#\n########\nicecream\n", " xy"},
        {"c.t##toe\n", ""}, // one that isn't finished
        {"qq#xqz\n", " qq xqz"},
        {longest + "a\n", " " + longest}, // longer than any word can be
        {longest + "\n", ""},
    };
    testdict({"cat", "ice cream", "Toe", longest});
    for (const auto &[picture, unknown] : rows) {
        std::string met;
        gridset(picture);
        checkstart();
        while (checkwalk())
            met += std::string(" ") + spell.checkword;
        CHECK((met == unknown && checkwalk() == 0));
    }
    CHECK(dictcount(&spell.guessstore) == 0); // for one that is too long
}
