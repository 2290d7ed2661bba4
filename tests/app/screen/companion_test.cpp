// What the searches list, against what the console companion finds in the file
// that the program has saved.
#include "app/buttons.h"
#include "app/mainwindow.h"
#include "desktop/icons.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "resources/identifiers.h"
#include "tests/app/screen/companion.h"
#include "tests/app/screen/dictionaryhands.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/searchhands.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <algorithm>
#include <string>

namespace
{

list sorted(list words)
{
    std::sort(words.begin(), words.end());
    return words;
}

// The rows of a Wordsquare's list as the companion prints them: words and places.
list placedrows()
{
    list lines;
    for (int32_t i = 0; i < solutions.count; i++) {
        const wsentry *entry = solword(i);
        std::string line = entry->text;
        for (int32_t n : {entry->x, entry->y, int32_t{entry->dx}, int32_t{entry->dy}})
            line += '\t' + std::to_string(n);
        lines.push_back(line);
    }
    return sorted(lines);
}

// The file that both read.
std::string saved()
{
    std::string file = dictionaryplace("searched.qmg");
    REQUIRE_FALSE(gridsave(file.c_str()));
    return "\"" + file + "\"";
}

list found(const std::string &words, const std::string &dictionary)
{
    return sorted(companion(words + " --dictionaries \"" + std::string(dictdirectory) +
                            "\" --dict " + dictionary));
}

} // namespace

TEST_CASE("the companion solves the saved Crossword alike, and finds the same anagrams")
{
    crosswordbegin("c.t.a\n..###\n.e###\n.....\n");
    if (!dictionarylarge()) return;
    REQUIRE_FALSE(dictunuse(static_cast<uint32_t>(dictnamefind("words"))));
    markdrag(0, 0, 4, 0);
    std::string file = saved();
    searchrun(BARSOLVE);
    CHECK(solutions.count > 0);
    CHECK(sorted(listrows()) == found("solve " + file + " --mark 0,0,4,0", "MainDict"));

    cellclick(0, 1); // which takes the mark away
    markdrag(0, 3, 4, 3);
    for (const char *letters : {"stare", "t*r*s"}) {
        bartype(BARLETTERS, letters);
        searchrun(BARANAGRAM);
        CHECK(solutions.count > 1);
        CHECK(sorted(listrows()) == found("anagram " + std::string(letters), "MainDict"));
        seticontext(buttonwindow, BARLETTERS, "");
    }

    // A row that is chosen stands in the file too.
    std::string chosen = listrows()[1];
    rowclick(1);
    list picture = companion("grid draw " + saved());
    REQUIRE(picture.size() == 4);
    CHECK(picture[3] == chosen);
}

TEST_CASE("the companion finds the same words, in the same places, of a saved Wordsquare")
{
    squarebegin(12);
    if (!dictionarylarge()) return;
    grid.minwordlength = 3;

    // None of these is the beginning of another.
    for (const char *word : {"stare", "cat", "incomprehensibly", "ease", "toe"}) {
        bartype(BARWORD, word);
        drivekey(VK_RETURN);
    }
    rowclick(2);
    barpress(BARDELETE);
    searchrun(BARMAKE);
    list made = placedrows();
    CHECK(made.size() == 4);
    list hidden = found("find " + saved() + " --min 3", "words");
    CHECK(std::includes(hidden.begin(), hidden.end(), made.begin(), made.end()));

    REQUIRE_FALSE(dictunuse(static_cast<uint32_t>(dictnamefind("MainDict"))));
    searchrun(BARNEW);
    REQUIRE_FALSE(dictuse(static_cast<uint32_t>(dictnamefind("MainDict"))));
    REQUIRE_FALSE(dictunuse(static_cast<uint32_t>(dictnamefind("words"))));
    searchrun(BARSQUARESOLVE);
    CHECK(solutions.count > 10);
    CHECK(placedrows() == found("find " + saved() + " --min 3", "MainDict"));
}
