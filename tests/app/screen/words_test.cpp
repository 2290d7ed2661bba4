// The editor of dictionaries: words in and out of it, and what can go wrong.
#include "tests/app/screen/script.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <functional>
#include <utility>

// The rows of a script are lines.
// clang-format off

namespace
{

// w000 to w199: more than the list shows.
std::string many()
{
    std::string all = "mine:";
    for (int i = 1000; i < 1200; i++)
        all += " w" + std::to_string(i).substr(1);
    return all;
}

void edit(const std::string &dictionary)
{
    play({
        {dictionaries, dictionary + "; other: else"}, {menu, COMMANDEDITDICT, "mine"},
        {infront, "Edit (mine)"}, {focus, EDITWORD, "yes"},
    });
}

} // namespace

TEST_CASE("typing scrolls the words to the place, and selects the very word")
{
    edit(many());
    play({
        {text, EDITCOUNT, "200"}, {wordrow, "-1"},
        {type, "w15"}, {wordseen, 149, "yes"}, {wordrow, "-1"}, // the last below it
        {type, "0"}, {wordrow, "150"}, {wordseen, 150, "yes"}, {wordink, 150, "000000"},
        {wordink, 149, "ffffff"},
        {type, "x"}, {wordrow, "-1"}, {wordink, 150, "ffffff"},
        {fill, EDITWORD, "W003"}, {wordrow, "-1"}, {wordseen, 3, "yes"}, // another case
        {fill, EDITWORD, ""}, {wordseen, 0, "yes"},
    });
}

TEST_CASE("a press on a row takes its word, and below the last one none")
{
    edit("mine: ant bee cow");
    play({
        {pickword, 1}, {text, EDITWORD, "bee"}, {wordrow, "1"}, {focus, -1, "yes"},
        {wordink, 1, "000000"}, {outlined, 1, "yes"}, // white on black
        {pickword, 0}, {wordink, 1, "ffffff"}, {outlined, 1, "no"},
        {pickword, 2}, {text, EDITWORD, "cow"},
        {pickword, 4}, {text, EDITWORD, ""}, {wordrow, "-1"},
    });
}

TEST_CASE("arrows walk the list, and Tab leads in and out of it")
{
    edit(many());
    play({
        {pickword, 0}, {key, VK_UP}, {text, EDITWORD, "w000"},
        {key, VK_DOWN}, {text, EDITWORD, "w001"},
        {key, VK_DOWN, "30"}, {text, EDITWORD, "w031"}, {wordseen, 31, "yes"}, {wordseen, 0, "no"},
        {fill, EDITWORD, "w199"}, {key, VK_TAB}, {focus, -1, "yes"}, {caretrow, "199"},
        {key, VK_DOWN}, {text, EDITWORD, "w199"},
        {key, VK_TAB}, {focus, EDITADD, "yes"}, {caretrow, "-1"}, {outlined, 199, "no"},
        {key, SHIFT | VK_TAB}, {focus, -1, "yes"},
        {key, SHIFT | VK_TAB}, {focus, EDITWORD, "yes"},
        {fill, EDITWORD, "v"}, {key, VK_TAB}, {wordrow, "-1"},
    });
    // With nothing selected the outline stands in the middle.
    int middle = std::stoi(caretrow(0, ""));
    CHECK(middle > 2);
    play({
        {wordseen, middle, "yes"}, {wordink, middle, "ffffff"}, {outlined, middle, "yes"},
        {key, VK_UP}, {wordrow, std::to_string(middle - 1)},
    });
}

TEST_CASE("pages, ends and typed letters lead through the list, and Delete to the next word")
{
    edit(many());
    play({
        {pickword, 3}, {key, VK_END}, {text, EDITWORD, "w199"}, {wordseen, 199, "yes"},
        {key, VK_NEXT}, {wordrow, "199"}, {key, VK_HOME}, {text, EDITWORD, "w000"},
        {wordseen, 0, "yes"}, {key, VK_NEXT, "2"}, {wordseen, 0, "no"}, {undrawn, "0"},
        {key, VK_PRIOR, "2"}, {wordrow, "0"}, {key, VK_PRIOR}, {wordrow, "0"},
        {type, "W1"}, {wordrow, "100"}, {type, "x57"}, {text, EDITWORD, "w157"}, // x leads nowhere
        {wordseen, 157, "yes"}, {focus, -1, "yes"},
        {key, VK_DELETE}, {text, EDITCOUNT, "199"}, {wordrow, "-1"}, {caretrow, "157"},
        {word, 157, "w158"}, {outlined, 157, "yes"}, {key, VK_DELETE}, {text, EDITCOUNT, "199"},
        {key, VK_END}, {key, VK_DELETE}, {caretrow, "197"}, {outlined, 197, "yes"},
        {type, "w02"}, {wordrow, "20"}, {press, EDITDELETE}, {key, SHIFT | VK_TAB, "2"},
        {focus, -1, "yes"}, {wordrow, "-1"}, {caretrow, "20"}, {word, 20, "w021"},
    });
}

TEST_CASE("words come and go by button and by Return; what is no word changes nothing")
{
    edit("mine: ant bee cow");
    play({
        {key, VK_RETURN}, {fill, EDITWORD, std::string(32, 'a')}, {press, EDITADD},
        {press, EDITDELETE}, {text, EDITCOUNT, "3"}, {wordrow, "-1"}, {changed, "no"},
        {fill, EDITWORD, "bat"}, {key, VK_RETURN}, {text, EDITCOUNT, "4"}, {text, EDITWORD, "bat"},
        {wordrow, "1"}, {changed, "yes"},
        // takes the place of the other form
        {fill, EDITWORD, "Cow"}, {press, EDITADD}, {wordrow, "3"},
        {words, "mine", "ant bat bee Cow"},
        {fill, EDITWORD, "ant"}, {press, EDITDELETE}, {text, EDITCOUNT, "3"}, {wordrow, "-1"},
        {wordink, 0, "ffffff"},
        {press, EDITDELETE}, {text, EDITCOUNT, "3"}, // nothing is selected
        {pickword, 2}, {key, VK_RETURN}, {text, EDITCOUNT, "3"}, // adds what is there
        {fill, EDITWORD, "zoo"}, {key, VK_TAB}, {outlined, 2, "yes"},
        {key, VK_RETURN}, {wordrow, "3"}, {focus, EDITWORD, "yes"},
        {key, VK_TAB}, {outlined, 2, "no"}, {outlined, 3, "yes"},
        {words, "mine", "bat bee Cow zoo"},
        {fill, EDITWORD, std::string(31, 'a')}, {key, VK_RETURN}, {wordrow, "0"},
        {key, VK_END}, {type, "a"}, {wordrow, "-1"}, // a word of 31 letters is found, a longer one is not it
    });
}

TEST_CASE("the next word that is typed takes the place of the one that was added")
{
    edit("mine: ant");
    play({
        {type, "bee"}, {press, EDITADD}, {focus, EDITWORD, "yes"}, {wordrow, "1"},
        {type, "cow"}, {key, VK_RETURN}, {type, "dog"}, {key, VK_RETURN},
        {words, "mine", "ant bee cow dog"}, {text, EDITWORD, "dog"},
    });
}

TEST_CASE("OK saves, Cancel and Escape read again, and the frame decides nothing")
{
    edit("mine: ant");
    play({
        {fill, EDITWORD, "bee"}, {key, VK_RETURN}, {press, DIALOGCANCEL},
        {shown, "Edit (mine)", "no"}, {words, "mine", "ant"}, {changed, "no"},
        {menu, COMMANDEDITDICT, "mine"}, {fill, EDITWORD, "bee"}, {key, VK_RETURN},
        {key, VK_ESCAPE}, {shown, "Edit (mine)", "no"}, {words, "mine", "ant"},
        {menu, COMMANDEDITDICT, "mine"}, {fill, EDITWORD, "bee"}, {key, VK_RETURN}, {pickword, 0},
        {key, VK_ESCAPE}, {shown, "Edit (mine)", "no"}, {words, "mine", "ant"}, {changed, "no"},
        {menu, COMMANDEDITDICT, "mine"}, {fill, EDITWORD, "bee"}, {key, VK_RETURN},
        {key, ALT | VK_F4}, {shown, "Edit (mine)", "no"}, {changed, "yes"}, {kept, "mine", "ant"},
        {menu, COMMANDEDITDICT, "mine"}, {text, EDITCOUNT, "2"},
        {press, EDITOK}, {shown, "Edit (mine)", "no"}, {changed, "no"}, {kept, "mine", "ant bee"},
        {menu, COMMANDEDITDICT, "mine"}, {erase, "mine.dic"}, {press, EDITOK}, // nothing to write
        {shown, "Edit (mine)", "no"}, {file, "mine.dic", "none"},
        // A dictionary that goes takes its changes along.
        {menu, COMMANDEDITDICT, "other"}, {infront, "Edit (other)"},
        {fill, EDITWORD, "more"}, {key, VK_RETURN}, {key, ALT | VK_F4}, {changed, "yes"},
        {menu, COMMANDDELETEDICT, "other"}, {file, "other.dic", "none"}, {changed, "no"},
    });
}

TEST_CASE("the editor follows its dictionary when others come and go")
{
    edit("mine: ant");
    play({
        {fill, EDITWORD, "bee"}, {key, VK_RETURN}, {menu, COMMANDNEWDICT},
        {infront, "Create New Dictionary"},
        {type, "first"}, {key, VK_RETURN}, {known, "first mine other"},
        {front, "Edit (mine)"}, {fill, EDITWORD, "cow"}, {key, VK_RETURN}, {text, EDITCOUNT, "3"},
        {words, "first", ""}, {words, "mine", "ant bee cow"},
        {menu, COMMANDDELETEDICT, "first"}, {known, "mine other"}, {word, 2, "cow"},
        // In use and out of it: what is open stays.
        {menu, COMMANDLOADDICT, "mine"}, {inuse, "mine"},
        {menu, COMMANDLOADDICT, "mine"}, {inuse, ""}, {words, "mine", "ant bee cow"},
        // A second one comes into the open editor at its next redraw.
        {menu, COMMANDEDITDICT, "other"}, {front, "Edit (mine)"}, {fill, EDITWORD, "else"},
        {wordrow, "0"},
        {menu, COMMANDEDITDICT, "mine"}, {front, "Edit (mine)"}, {fill, EDITWORD, "cow"},
        {wordrow, "2"},
        {menu, COMMANDDELETEDICT, "mine"}, {shown, "Edit (mine)", "no"}, {known, "other"},
    });
}

TEST_CASE("words come in by files that are dropped, and out and in by the list's menu")
{
    edit("mine: ant m");
    play({
        {fill, EDITWORD, "m"}, {wordrow, "1"},
        {put, "more.txt a|bees"}, {drop, ONWORDS, "more.txt"}, {wordrow, "3"},
        {wordink, 3, "000000"}, {wordink, 1, "ffffff"},
        {put, "words.txt cow|BEES|d-o-g||xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx|last"},
        {drop, ONWORDS, "words.txt"}, {text, EDITCOUNT, "8"},
        {words, "mine", "a ant Bees cow dog last m xxxxxxxxx"},
        {changed, "yes"},
        {put, "grid.qmg eel|"}, {drop, ONWORDS, "grid.qmg"}, {text, EDITCOUNT, "8"},
        {drop, ONWORDS, "."}, {box, ". is a folder. Words come from files."}, {answer, IDOK},
        {press, EDITFILES}, {key, VK_DOWN, "2"}, {key, VK_RETURN}, {choose, 0, "out.txt"},
        {file, "out.txt", "a|ant|Bees|cow|dog|last|m|xxxxxxxxx"},
        {press, DIALOGCANCEL}, {words, "mine", "ant m"},
        {menu, COMMANDEDITDICT, "mine"}, {infront, "Edit (mine)"},
        {pickword, 0, "right"}, {key, VK_DOWN}, {key, VK_RETURN}, {choose, 0, "out.txt"},
        {text, EDITCOUNT, "8"}, {word, 3, "cow"},
        {pickword, 0, "right"}, {key, VK_DOWN}, {key, VK_RETURN}, {choose, 0, ""},
        {text, EDITCOUNT, "8"},
        {put, "empty.txt"}, {drop, ONWORDS, "empty.txt"}, {text, EDITCOUNT, "8"},
        {press, DIALOGCANCEL},
        // Files that can't be had are told of, those whose names no call here takes, too.
        {menu, COMMANDEDITDICT, "mine"}, {infront, "Edit (mine)"},
        {erase, "more.txt"}, {drop, ONWORDS, "more.txt"}, {answer, IDOK}, {hold, "words.txt"},
        {drop, ONWORDS, "words.txt"}, {answer, IDOK}, {pickword, 0, "right"}, {key, VK_DOWN, "2"},
        {key, VK_RETURN}, {choose, 0, "words.txt"}, {answer, IDOK}, {letgo}, {text, EDITCOUNT, "2"},
        {drop, ONWORDS, "\xD0\xB6\xC5\xBE.txt"},
        {box, "The name of a file has letters that Windows can't write in the code page of programs: "
              "?\x9E.txt"},
        {answer, IDOK}, {drop, ONWORDS, std::string(250, 'x')}, {answer, IDOK},
        {changed, "no"},
    });
}

namespace
{

std::function<void()> atcount; // what is hit when the number of words is first told
WNDPROC counted;

void hitkey(int32_t code)
{
    for (DWORD up : {0, KEYEVENTF_KEYUP})
        keybd_event(static_cast<BYTE>(code), 0, up, 0);
}

void hitcontrol(int32_t control)
{
    driveplace at = driveicon(drivefind("Edit (mine)"), control);
    int width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
    auto across = static_cast<DWORD>((at.x * 65536 + width - 1) / width);
    auto down = static_cast<DWORD>((at.y * 65536 + height - 1) / height);
    for (DWORD button : {0, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP})
        mouse_event(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | button, across, down, 0, 0);
}

// On the program's own thread, right before it looks for a stop: at no other time.
LRESULT CALLBACK counting(HWND h, UINT message, WPARAM w, LPARAM l)
{
    if (message == WM_SETTEXT && text(DIALOGCANCEL, "") == "Stop")
        if (auto hit = std::exchange(atcount, nullptr)) hit();
    return CallWindowProcA(counted, h, message, w, l);
}

// A text is dropped; in the middle of its import a key that types and a button that
// keeps all are hit, and then what stops it: a key, or 0 for the button.
void dropandhit(int32_t stop, const std::string &leaf)
{
    ask([&] {
        auto h = reinterpret_cast<HWND>(drivecontrol(drivefind("Edit (mine)"), EDITCOUNT));
        counted = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(h, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(counting)));
        atcount = [stop] {
            hitkey('X');
            hitcontrol(EDITOK);
            stop ? hitkey(stop) : hitcontrol(DIALOGCANCEL);
        };
        return "";
    });
    drop(ONWORDS, leaf);
    if (!drivewait([] { return ask([] { return yes(atcount != nullptr); }) == "no"; }, 60000))
        stumble("no number of words is told");
}

} // namespace

TEST_CASE("Escape and Stop end an import, and nothing that is hit meanwhile reaches the editor")
{
    // The long word has them added one by one, which takes its time.
    std::string many(30, 'z');
    uint32_t random = 1;
    for (int n = 0; n < 300000; n++) {
        many += "|";
        for (int i = 0; i < 9; i++)
            many += static_cast<char>('a' + (random = random * 1664525 + 1013904223) / 4096 % 26);
    }
    for (int32_t stop : {VK_ESCAPE, 0}) {
        edit("mine: ant");
        play({
            {fill, EDITWORD, "bee"}, {put, "many.txt " + many}, {dropandhit, stop, "many.txt"},
            {text, DIALOGCANCEL, "Cancel"}, {shown, "Edit (mine)", "yes"}, {changed, "yes"},
            {text, EDITWORD, "bee"}, // whose caret blinks: nothing is said of what is undrawn
            {kept, "mine", "ant"},
        });
        int came = std::stoi(text(EDITCOUNT, ""));
        CHECK(came > 1000);
        CHECK(came < 300000);
        play({{press, DIALOGCANCEL}, {words, "mine", "ant"}});
    }
}

TEST_CASE("an empty dictionary shows nothing, has nothing to choose and makes no file")
{
    edit("mine:");
    play({
        {key, VK_TAB}, {key, VK_UP}, {key, VK_DOWN}, {pickword, 0}, {wordrow, "-1"},
        {caretrow, "-1"}, {text, EDITWORD, ""}, {wordink, 0, "ffffff"}, {outlined, 0, "no"},
        {press, EDITDELETE}, {press, EDITADD}, {text, EDITCOUNT, "0"},
        {pickword, 0, "right"}, {key, VK_DOWN, "2"}, {key, VK_RETURN}, {choose, 0, "empty.out.txt"},
        {file, "empty.out.txt", "none"},
    });
}

TEST_CASE("a word that doesn't fit into memory is told of; a file that can't be read again, too")
{
    edit("mine: ant");
    play({
        {fill, EDITWORD, "bee"}, {nomemory, 0}, {key, VK_RETURN}, {box, "Not enough memory."},
        {nomemory, -1}, {answer, IDOK}, {changed, "no"},
        {front, "Edit (mine)"}, {fill, EDITWORD, "bee"}, {key, VK_RETURN}, {erase, "mine.dic"},
        {press, DIALOGCANCEL}, {answer, IDOK}, {shown, "Edit (mine)", "no"},
        {words, "mine", "not loaded"},
    });
}

TEST_CASE("a damaged dictionary can't be edited or added to, and its file stays")
{
    play({
        {dictionaries, "mine: ant bee cow"}, {another, "ant#/####"},
        {copyfile, "mine.dic whole.dic"},
    });
    std::string whole = file(0, "whole.dic");
    for (int cut : {270, 9, 1}) // words but no index, some of a header, hardly anything
        play({
            {erase, "mine.dic"}, {copyfile, cut, "whole.dic mine.dic"},
            {menu, COMMANDEDITDICT, "mine"}, {answer, IDOK}, {shown, "Edit (mine)", "no"},
            {menu, COMMANDLOADDICT, "mine"}, {inuse, "mine"}, // with no words
            {menu, COMMANDSPELLCHECK}, {press, CHECKADD}, {answer, IDOK}, {changed, "no"},
            {press, CHECKCLOSE}, {infront, "Quillmere*"},
            {menu, COMMANDLOADDICT, "mine"}, {inuse, ""},
            {file, "mine.dic", whole.substr(0, static_cast<size_t>(cut))},
        });
}

TEST_CASE("a dictionary that another program has open is let alone")
{
    play({
        {dictionaries, "mine: ant"}, {hold, "mine.dic"}, {menu, COMMANDEDITDICT, "mine"},
        {answer, IDOK}, {shown, "Edit (mine)", "no"},
        {menu, COMMANDDELETEDICT, "mine"}, {answer, IDOK}, {known, "mine"},
        {letgo}, {menu, COMMANDEDITDICT, "mine"}, {type, "bee"}, {key, VK_RETURN},
        // What couldn't be saved is told of and still there, to be saved later.
        {hold, "mine.dic"}, {press, EDITOK}, {answer, IDOK},
        {shown, "Edit (mine)", "yes"}, {words, "mine", "ant bee"}, {changed, "yes"},
        {letgo}, {kept, "mine", "ant"},
        {press, EDITOK}, {shown, "Edit (mine)", "no"}, {changed, "no"}, {kept, "mine", "ant bee"},
    });
}
