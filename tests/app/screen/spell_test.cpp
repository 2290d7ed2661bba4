// The spell check, and a setter's whole way with it.
#include "tests/app/screen/script.h"
#include "tests/support/runner.h"
#include "tests/support/win32/program.h"

#include <doctest/doctest.h>

// The rows of a script are lines.
// clang-format off

namespace
{

const char *const ASKED = "Dictionaries changed. Retain changes?";

// Two dictionaries in use, and a grid whose words across are these.
void check(const std::string &picture)
{
    play({
        {dictionaries, 1, "one: bat cat horse house mouse; two: Mice zebra"}, {another, picture},
        {menu, COMMANDSPELLCHECK}, {infront, "Spell Check (Guess)"},
    });
}

} // namespace

TEST_CASE("each word that nobody knows is shown with its suggestions")
{
    check("CAT##/#####/hose#/#####/m.use/#####/zebar/#####/mice#/#####/qq###/#####");
    play({
        {text, CHECKFIELD, "hose"},
        {type, "s"}, {text, CHECKFIELD, "hoses"}, // goes behind it
        {word, 0, "horse"}, {word, 1, "house"}, {text, CHECKDICTIONARY, "one"},
        // not the one with a blank
        {press, CHECKCONTINUE}, {text, CHECKFIELD, "zebar"}, {word, 0, "zebra"},
        {key, VK_RETURN}, {text, CHECKFIELD, "qq"},
        // nothing was changed
        {key, VK_RETURN}, {shown, "Spell Check (Guess)", "no"}, {box, "none"},
        {another, "cat##/#####/HOUSE/#####/m.ce#/#####"}, {menu, COMMANDSPELLCHECK},
        {box, "No new words!"},
        {answer, IDOK}, {infront, "Quillmere"},
    });
}

TEST_CASE("a word that is added is in memory until the end, and then kept or not")
{
    for (bool keep : {true, false}) {
        check("hose##/######/zebar#/######");
        play({
            {press, CHECKADD}, {words, "one", "bat cat horse hose house mouse"},
            {kept, "one", "bat cat horse house mouse"}, {text, CHECKFIELD, "hose"},
            {press, CHECKCONTINUE}, {text, CHECKFIELD, "zebar"},
            {fill, CHECKFIELD, "zebras"}, {press, CHECKADD},
            {keep ? step{press, CHECKCLOSE} : step{key, VK_ESCAPE}}, {text, QUESTIONTEXT, ASKED},
            {press, keep ? QUESTIONYES : QUESTIONNO}, {infront, "Quillmere"},
            {words, "one", keep ? "bat cat horse hose house mouse zebras" : "bat cat horse house mouse"},
            {kept, "one", keep ? "bat cat horse hose house mouse zebras" : "bat cat horse house mouse"},
            {changed, "no"},
        });
    }
}

TEST_CASE("the list shows the dictionary that words go to")
{
    check("hose##/######/zebar#/######");
    play({
        {press, CHECKBROWSE}, {infront, "Spell Check (one)"}, {wordrow, "-1"},
        {ticked, CHECKBROWSE, "yes"}, {word, 0, "bat"},
        {press, CHECKDICTIONARY}, {key, VK_DOWN}, {key, VK_RETURN}, {infront, "Spell Check (two)"},
        {word, 0, "Mice"},
        // the word in the field
        {press, CHECKADD}, {words, "two", "hose Mice zebra"}, {wordrow, "0"},
        {press, CHECKCONTINUE}, {text, CHECKFIELD, "zebar"}, {infront, "Spell Check (two)"},
        {press, CHECKBROWSE}, {infront, "Spell Check (Guess)"}, {word, 0, "zebra"},
        {press, CHECKCLOSE}, {text, QUESTIONTEXT, ASKED},
        {press, QUESTIONNO}, {infront, "Quillmere"},
    });
}

TEST_CASE("the lists of the check and of the editor follow what either does")
{
    check("hose##/######");
    play({
        {press, CHECKBROWSE}, {infront, "Spell Check (one)"},
        {menu, COMMANDEDITDICT, "one"}, {infront, "Edit (one)"},
        {aside, "Edit (one)"}, {front, "Spell Check (one)"}, {press, CHECKADD},
        {text, EDITCOUNT, "6"}, {wordrow, "3"},
        {front, "Edit (one)"}, {fill, EDITWORD, "ant"}, {key, VK_RETURN},
        {front, "Spell Check (one)"}, {wordrow, "4"},
        {menu, COMMANDNEWDICT}, {infront, "Create New Dictionary"},
        {type, "first"}, {key, VK_RETURN}, {front, "Spell Check (one)"}, {word, 0, "ant"},
        {front, "Edit (one)"}, {press, DIALOGCANCEL}, {front, "Spell Check (one)"}, {wordrow, "-1"},
        {menu, COMMANDLOADDICT, "one"}, {inuse, "two"},
        {front, "Spell Check (one)"}, {press, CHECKBROWSE}, {press, CHECKBROWSE},
        {infront, "Spell Check (two)"},
        // A word goes to no other dictionary than the one that is seen chosen.
        {press, CHECKADD}, {words, "two", "hose Mice zebra"}, {text, CHECKDICTIONARY, "two"},
        {press, CHECKBROWSE}, {press, CHECKCLOSE}, {text, QUESTIONTEXT, ASKED},
        {press, QUESTIONNO},
    });
}

TEST_CASE("a suggestion is taken by the mouse or the arrows, and the list follows typing")
{
    check("hose##/######"); // horse, house
    play({
        {pickword, 1}, {text, CHECKFIELD, "house"},
        {key, VK_DOWN}, {text, CHECKFIELD, "house"}, // the last
        {key, VK_UP}, {text, CHECKFIELD, "horse"}, {wordrow, "0"},
        {press, CHECKFIELD}, {key, VK_END}, {type, "s"}, {wordrow, "-1"},
        {key, VK_BACK}, {wordrow, "0"},
        {press, CHECKBROWSE}, {wordrow, "2"}, // of the whole dictionary
        {press, CHECKADD}, {words, "one", "bat cat horse house mouse"}, // it is there
        {press, CHECKBROWSE}, {press, CHECKCLOSE}, {text, QUESTIONTEXT, ASKED},
        {press, QUESTIONNO}, {infront, "Quillmere"},
    });
}

TEST_CASE("a right press on Add goes on as well; Return and Escape in the list are the window's")
{
    check("hose##/######/zebar#/######");
    play({
        {press, CHECKADD, "right"}, {text, CHECKFIELD, "zebar"},
        {press, CHECKADD, "right"}, {text, QUESTIONTEXT, ASKED},
        {press, QUESTIONYES}, {infront, "Quillmere"},
        {kept, "one", "bat cat horse hose house mouse zebar"},
    });
    check("hose##/######/zebra#/######/hosr##/######");
    play({
        {pickword, 0}, {press, CHECKFIELD}, {key, VK_TAB}, {focus, -1, "yes"},
        {key, VK_RETURN}, {text, CHECKFIELD, "hosr"},
        {key, VK_TAB}, {key, VK_ESCAPE}, {infront, "Quillmere"},
    });
}

TEST_CASE("the question comes whichever way the check ends, and can be put off")
{
    check("hose##/######");
    play({
        {press, CHECKADD}, {press, CHECKCONTINUE}, // the last word was dealt with
        {text, QUESTIONTEXT, ASKED},
        {press, QUESTIONYES}, {kept, "one", "bat cat horse hose house mouse"},
    });
    check("hose##/######");
    play({
        {enabled, "yes"}, {press, CHECKADD}, {key, ALT | VK_F4}, {text, QUESTIONTEXT, ASKED},
        {enabled, "no"}, // a menu there would pull away what is asked about
        {press, QUESTIONNO}, {words, "one", "bat cat horse house mouse"}, {infront, "Quillmere"},
        {enabled, "yes"},
    });
    check("hose##/######");
    play({
        {press, CHECKADD}, {press, CHECKCLOSE}, {text, QUESTIONTEXT, ASKED},
        {key, VK_ESCAPE}, {infront, "Quillmere"}, {changed, "yes"},
        {kept, "one", "bat cat horse house mouse"}, // for the editor to settle
        {menu, COMMANDEDITDICT, "two"}, {press, EDITOK},
        {kept, "one", "bat cat horse hose house mouse"}, {changed, "no"},
    });
}

TEST_CASE(
    "a check that is started again begins at the first word; without dictionaries none begins")
{
    check("hose##/######/zebar#/######");
    play({
        {press, CHECKCONTINUE}, {text, CHECKFIELD, "zebar"},
        {command, COMMANDSPELLCHECK}, {text, CHECKFIELD, "hose"}, {infront, "Spell Check (Guess)"},
        {press, CHECKCLOSE}, {infront, "Quillmere"},
        {menu, COMMANDSPELLCHECK}, {text, CHECKFIELD, "hose"},
        {press, CHECKCLOSE}, {infront, "Quillmere"},
        {dictionaries, "mine: ant"}, // of a name that nobody uses unasked
        {menu, COMMANDSPELLCHECK}, {infront, "Quillmere"}, {box, "none"},
    });
}

// Words come in from a list, are edited, checked against a grid, kept or not, and found
// again by a program that is started afresh; what was kept is read by quill.

TEST_CASE("words that a setter keeps are in the file, in the grid's check and in the next start")
{
    play({
        {dictionaries, ""}, {menu, COMMANDNEWDICT}, {infront, "Create New Dictionary"},
        {type, "mine"}, {key, VK_RETURN}, {known, "mine"},
        {menu, COMMANDEDITDICT, "mine"}, {text, EDITCOUNT, "0"},
        // a word too many and one too few
        {put, "list.txt house|HORSE|words of old|mouse||cat"}, {pickword, 0, "right"},
        {key, VK_DOWN}, {key, VK_RETURN}, {choose, 0, "list.txt"}, {text, EDITCOUNT, "5"},
        {fill, EDITWORD, "stable"}, {key, VK_RETURN}, {fill, EDITWORD, "wordsofold"},
        {press, EDITDELETE}, {pickword, 0}, {text, EDITWORD, "cat"},
        {press, EDITDELETE}, {text, EDITCOUNT, "4"},
        {press, EDITOK}, {quill, "dict words @mine.dic", "Horse|house|mouse|stable"}, {inuse, ""},
        {menu, COMMANDLOADDICT, "mine"}, {inuse, "mine"},
        {another, "....#/#####"}, {click, "0,0"}, {type, "h"}, {key, VK_RIGHT},
        {another, "hose#/#####"}, {menu, COMMANDSPELLCHECK}, {text, CHECKFIELD, "hose"},
        {pickword, 0}, {text, CHECKFIELD, "Horse"},
        {fill, CHECKFIELD, "hosepipe"}, {press, CHECKADD}, {press, CHECKCONTINUE},
        {text, QUESTIONTEXT, ASKED}, {press, QUESTIONYES}, // it was the only word
        {quill, "dict words @mine.dic", "Horse|hosepipe|house|mouse|stable"},
        {nextstart}, {menu, COMMANDEDITDICT, "mine"}, {text, EDITCOUNT, "5"},
        {type, "hosepipe"}, {wordrow, "1"},
        {press, DIALOGCANCEL},
    });

    // The whole program once more, which finds the directory in the system's records.
    if (!recorded(true)) {
        MESSAGE("skipped: the second start needs the right to write the system's records");
        return;
    }
    program p = programstart("quillmere.exe");
    bool up = programwindow() != 0;
    CHECK(up);
    for (int code : {int{VK_MENU}, int{'W'}, VK_DOWN, VK_DOWN, VK_RIGHT, VK_RETURN})
        drivekey(code);
    window other = drivewaitwindow("Edit (mine)");
    CHECK(other);
    CHECK(drivetext(other, EDITCOUNT) == "5");
    drivefill(other, EDITWORD, "mouse");
    drivekey(VK_TAB); // into the list, where the word is selected
    drivekey(VK_DOWN);
    CHECK(drivewait([&] { return drivetext(other, EDITWORD) == "stable"; }));
    CHECK(programquit(p));
    CHECK(programstatus(p) == 0);
    recorded(false);
}
