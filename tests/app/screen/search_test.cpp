// The searches: what they list, and that they are stopped in the middle.
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "graphics/modeinfo.h"
#include "grid/gridview.h"
#include "tests/app/screen/script.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace
{

int dark(const drivepicture &p, int left, int top, int right, int bottom)
{
    int dots = 0;
    for (int y = std::max(top, 0); y < std::min(bottom, p.height); y++)
        for (int x = std::max(left, 0); x < std::min(right, p.width); x++)
            dots += (p.at(x, y) & 0xFF) < 0x60;
    return dots;
}

// Pictures in the list have letters along their top and their left, and none in their
// middle.
void crossingpictures(int32_t rows)
{
    drivepicture p = drivelook(solutionswindow);
    int left = ostodevx(6), height = ostodevy(solutions.textheight),
        width = ostodevx(solutions.charwidth), top = ostodevy(10);
    for (int32_t at = 0; at < rows; at++) {
        int y = ostodevy(at * solutions.rowheight) + top;
        for (int i = 0; i < 3; i++) {
            CHECK(dark(p, left + i * width, y, left + (i + 1) * width, y + height) > 0);
            CHECK(dark(p, left, y + i * height, left + width, y + (i + 1) * height) > 0);
        }
        CHECK(dark(p, left + width + 1, y + height + 1, left + 3 * width, y + 3 * height) == 0);
    }
}

std::string said; // by a box

void remember(int32_t, const std::string &)
{
    said = driveboxtext(driveboxwait());
}

} // namespace

// The rows of a script are lines.
// clang-format off

TEST_CASE("Solve lists what fits, and a press on a row writes it into the grid")
{
    play({
        {crossword, "c.t../..###/..###"}, {drag, "0,0 2,0"}, {searched, BARSOLVE},
        {listed, "cat, cot"}, {undrawn, "0"},
        {pick, 2}, {document, "c.t../..###/..###"}, // below the last
        {pick, 1, "right"}, {document, "c.t../..###/..###"},
        {standing, "-1"},
        {pick, 1}, {document, "cot../..###/..###"}, {title, "Quillmere*"}, {standing, "1"},
        {pick, 0, "double"}, {document, "cat../..###/..###"}, {listed, "cat, cot"}, {undrawn, "0"},
        {standing, "0"},
        // Behind a press the list walks, and leaves the other keys to the grid and the menu.
        {key, VK_DOWN}, {document, "cot../..###/..###"}, {standing, "1"}, {undrawn, "0"},
        {key, VK_DOWN}, {standing, "1"}, {key, VK_UP, "2"}, {document, "cat../..###/..###"},
        {key, VK_RETURN}, {standing, "0"}, {key, VK_F1 + 4}, {mark, "none"}, {count, "0"},
        {setting, cell(3, 0), "cursor"}, {type, "x"}, {document, "catx./..###/....."},
        {drag, "0,0 2,0"}, {searched, BARSOLVE}, {listed, "cat"},
        {click, "4,0"}, {count, "0"}, {undrawn, "0"}, // another mark, and the rows are gone
    });
}

TEST_CASE("what a control of the bar has no use for is the grid's and the menu's")
{
    play({
        {crossword, ".../###"}, {click, "0,0"}, {press, BARSOLVE}, {box, "Need marked word!"},
        {answer, IDOK}, {focus, BARSOLVE, "yes"}, {title, "Quillmere"},
        {type, "ab"}, {document, "ab./###"}, {title, "Quillmere*"},
        {key, VK_BACK}, {key, VK_LEFT}, {cursor, "0,0"}, {key, VK_SPACE}, {box, "Need marked word!"},
        {answer, IDOK}, {key, VK_TAB, "2"}, {focus, BARLETTERS, "yes"},
        {type, "cd"}, {key, VK_LEFT}, {key, VK_DELETE}, {text, BARLETTERS, "c"}, {cursor, "0,0"},
        {crossword, ".../###"}, {title, "Quillmere"}, {key, VK_F1 + 5}, {title, "Quillmere*"},
        {fill, BARLETTERS, ""},
    });
}

TEST_CASE("words that cross are solved together, and shown as they lie")
{
    play({
        {crossword, "..../.###/.###"}, {drag, "0,0 2,2"}, {searched, BARSOLVE},
        {value, "slots", "2"},
        {listed, "act act, act art, art act, art art, bat bat, cat cat, cat cot, cot cat, cot cot, oat oat, rat rat, tar tar, tar tea, tar toe, tea tar, tea tea, tea toe, toe tar, toe tea, toe toe"},
    });
    crossingpictures(2);
    play({
        {wheel, -60}, {pick, 19}, {document, "toe./o###/e###"}, {undrawn, "0"}, {standing, "19"},
        {key, VK_UP, "19"}, {document, "act./c###/t###"}, {undrawn, "0"}, {standing, "0"},
        // A phrase is shown as it is written into the grid, closed up.
        {crossword, "c.../.###/.###"}, {menu, COMMANDEDITDICT, "words"}, {fill, EDITWORD, "c at"},
        {key, VK_RETURN}, {press, EDITOK}, {drag, "0,0 2,2"}, {searched, BARSOLVE},
        {listed, "c at c at, c at cat, c at cot, cat c at, cat cat, cat cot, cot c at, cot cat, cot cot"},
    });
    crossingpictures(1);
    play({{pick, 0}, {document, "cat./a###/t###"}});
}

TEST_CASE("what Solve and Anagram can't do is said")
{
    play({
        {crossword, "..../.###"}, {press, BARSOLVE}, {box, "Need marked word!"},
        {answer, IDOK}, {press, BARANAGRAM}, {box, "Need marked word!"},
        {answer, IDOK}, {drag, "3,0 3,1"}, {press, BARSOLVE}, {box, "Nothing to solve!"},
        {answer, IDOK}, {drag, "0,0 3,1"}, {press, BARANAGRAM},
        {box, "An anagram must be a single marked word!"},
        {answer, IDOK}, {click, "1,0"}, {drag, "0,0 3,0"}, {press, BARANAGRAM},
        {box, "Can't have space in anagram"},
        {answer, IDOK}, {fill, BARLETTERS, "tea"}, {key, VK_RETURN},
        {box, "The marked area of grid must have the same number of characters as in the anagram text."},
        {answer, IDOK}, {menu, COMMANDLOADDICT, "words"}, {press, BARSOLVE},
        {box, "No dictionaries loaded!"},
        {answer, IDOK}, {there, BARSOLVE, "yes"},
        {fill, BARLETTERS, ""},
    });
}

TEST_CASE("Anagram takes the typed letters, by button and Return, or those of the grid")
{
    play({
        {crossword, "...t/...."}, {drag, "0,0 2,0"}, {fill, BARLETTERS, "tac"}, {key, VK_RETURN},
        {listed, "act, cat"}, {text, BARLETTERS, "tac"}, {focus, BARLETTERS, "yes"},
        {text, BARMARKLENGTH, "3"},
        {key, VK_BACK}, {type, "*"}, {searched, BARANAGRAM},
        {listed, "act, art, bat, cat, oat, rat, tar, tea"},
        {pick, 2}, {document, "batt/...."}, {undrawn, "0"}, {standing, "2"},
        {fill, BARLETTERS, ""}, {searched, BARANAGRAM}, {listed, "bat"},
    });
}

TEST_CASE("a long Solve counts, repaints and stops, and the bar comes back as it was")
{
    if (!largehere()) return;
    for (bool escape : {false, true})
        play({
            {crossword, "...../.####/.####/.####/.####"}, {large, 1, "MainDict"},
            {setting, 1000000, "limit"}, {drag, "0,0 4,4"}, {fill, BARLETTERS, "keep me"},
            {press, BARSOLVE}, {there, BARSTOP, "yes"}, {value, "counting", "yes"},
            {repainted, ONGRID, "yes"},
            {escape ? step{key, VK_ESCAPE} : step{press, BARSTOP}}, {there, BARSTOP, "no"},
            {searchend}, {value, "slots", "2"}, {value, "listing", "yes"},
            {text, BARLETTERS, "keep me"}, {focus, BARSOLVE, "yes"},
            {pick, 0}, {undrawn, "0"},
            {fill, BARLETTERS, ""},
        });
}

TEST_CASE("a command in the middle of a search ends it first")
{
    if (!largehere()) return;
    play({
        {crossword, "...../.####/.####/.####/.####"}, {setting, 1000000, "limit"}, {large, 1, "MainDict"},
        {menu, COMMANDSAVEAS}, {choose, 0, "searched"}, {drag, "0,0 4,4"}, {press, BARSOLVE},
        {there, BARSTOP, "yes"}, {key, CTRL | 'S'}, {title, "Quillmere - searched.qmg"},
        {quill, "grid draw @searched.qmg", ".....|.####|.####|.####|.####"}, // as it is seen
        {press, BARSOLVE}, {there, BARSTOP, "yes"}, {menu, COMMANDUPPERCASE}, {there, BARSOLVE, "yes"}, {count, "0"}, {mark, "none"},
        {undrawn, "0"},
        {entries, MENUATGRID, "Grid Type, Size..., Reflect, +Upper Case, Lower Case, Customise..."},
    });
}

TEST_CASE("a word that is added under a search waits for the search's end")
{
    if (!largehere()) return;
    play({
        {crossword, "...../.####/.####/.####/.####"}, {setting, 1000000, "limit"}, {large, 1, "mine"},
        {menu, COMMANDEDITDICT, "mine"}, {infront, "Edit (mine)"},
        {fill, EDITWORD, "zzyzx"}, {wordrow, "-1"},
        {front}, {drag, "0,0 4,4"}, {press, BARSOLVE}, {there, BARSTOP, "yes"},
        {press, EDITADD}, {there, BARSTOP, "no"},
        {searchend}, {changed, "yes"}, {count, "0"}, // they would be other words now
    });
    CHECK(wordrow(0, "") != "-1");
}

TEST_CASE("words are typed into a Wordsquare's list, selected there, and deleted")
{
    play({
        {square, 9}, {fill, BARWORD, "stare"}, {key, VK_RETURN}, {text, BARWORD, ""},
        {type, "tea"}, {key, VK_RETURN}, {type, "Rat"}, {key, VK_RETURN},
        {type, "toolongtofitinhere"}, {key, VK_RETURN},
        {listed, "stare, tea, Rat, toolongtofitinhere"}, {undrawn, "0"},
        // A word that fits no side is told of at once, and none is placed.
        {press, BARMAKE}, {box, "Fitted 3 words, up to toolongtofitinhere"}, {answer, IDOK},
        {searchend}, {value, "filled", "yes"}, {lying, "0"}, {undrawn, "0"},
        {pick, 3}, {press, BARDELETE}, {listed, "stare, tea, Rat"},
        {searched, BARMAKE}, {value, "filled", "yes"}, {listed, "stare, tea, Rat"}, {lying, "3"},
        {title, "Quillmere*"}, {undrawn, "0"},
        {pick, 0}, {marked, "5"}, {undrawn, "0"},
        {pick, 1}, {marked, "3"},
        {pick, 1}, {marked, "3"}, // the only one selected: it stays so
        {pick, 2, "ctrl"}, {pick, 0, "right"}, {selected, "3"}, {undrawn, "0"},
        {pick, 1, "right"}, {pick, 5, "right"}, {selected, "2"}, // below the last
        {press, BARDELETE}, {listed, "tea"}, {marked, "0"}, {undrawn, "0"},
        {press, BARDELETE}, {listed, "tea"}, // nothing is selected
    });
}

TEST_CASE("a click on a word that was found brings it into view")
{
    play({
        {square, 40}, {click, "0,0"}, {setting, cell(29, 30), "cursor"}, {key, VK_RIGHT},
        {type, "stare"}, {setting, cell(1, 0), "cursor"}, {key, VK_LEFT}, {scrolled, "0,0"},
        {searched, BARSQUARESOLVE}, {listed, "stare"}, {pick, 0}, {marked, "5"}, {undrawn, "0"},
    });
    CHECK(scrolled(0, "") != "0,0");
}

TEST_CASE("a Make that finds no end is stopped with what it has")
{
    // One more than lie beside each other, and all letters differ where they'd cross.
    std::string crowd;
    for (char first = 'a'; first < 'a' + 11; first++)
        crowd += std::string(9, first) + static_cast<char>(first + 11) + "|";
    for (bool escape : {false, true}) {
        play({{fresh}, {square, 10}, {press, BARWORD}});
        for (size_t at = 0; at < crowd.size(); at += 11)
            play({{type, crowd.substr(at, 10)}, {key, VK_RETURN}});
        play({
            {count, "11"},
            {press, BARMAKE}, {there, BARSTOP, "yes"}, {value, "progress", "yes"},
            {repainted, ONLIST, "yes"},
            {escape ? step{key, VK_ESCAPE} : step{press, BARSTOP}}, {remember}, {answer, IDOK},
            {searchend}, {value, "filled", "yes"}, {undrawn, "0"},
        });
        int fitted = std::stoi(lying(0, ""));
        CHECK(fitted > 0);
        CHECK(fitted < 11);
        CHECK(said == "Fitted " + std::to_string(fitted) + " words, up to " +
                          crowd.substr(static_cast<size_t>(fitted) * 11, 10));
    }
}

TEST_CASE("a New without end is stopped, and its square filled")
{
    play({
        {square, 9}, {dictionaries, 1, "short: cat dog"}, // which fit over themselves for ever
        {press, BARNEW}, {there, BARSTOP, "yes"},
        {press, BARSTOP}, {there, BARSTOP, "no"},
        {searchend}, {box, "none"}, {count, "0"}, {value, "filled", "yes"}, {undrawn, "0"},
    });
}

TEST_CASE("a long Solve of a Wordsquare is stopped with what it has")
{
    if (!largehere()) return;
    play({
        {square, 127}, {large, 8, "MainDict"}, {setting, 2, "minimum"}, {searched, BARNEW},
        {searched, BARSQUARESOLVE},
    });
    int all = std::stoi(count(0, ""));
    play({
        {press, BARSQUARESOLVE}, {there, BARSTOP, "yes"},
        {press, BARSTOP}, {there, BARSTOP, "no"},
        {searchend}, {undrawn, "0"},
    });
    CHECK(std::stoi(count(0, "")) < all);
}
