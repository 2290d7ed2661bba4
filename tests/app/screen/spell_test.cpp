// The spell check, with a user's hands and eyes.
#include "app/commands.h"
#include "desktop/icons.h"
#include "desktop/windows.h"
#include "dict/dicteditwindow.h"
#include "dict/dictfile.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "find/spell.h"
#include "find/spellwindow.h"
#include "graphics/modeinfo.h"
#include "tests/app/screen/boxhands.h"
#include "tests/app/screen/dictionaryhands.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/screen.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <string>
#include <vector>

namespace
{

using list = std::vector<std::string>;

constexpr int32_t SPELLCHECK = 40017;
constexpr int32_t FIELD = 1019, BROWSE = 1021, DICTIONARIES = 1022, ADD = 1024, CONTINUE = 1025,
                  CLOSE = 1026;

list wordsof(const Dictionary &dict)
{
    list words;
    for (uint32_t i = 0; i < dictcount(&dict); i++)
        words.push_back(dictword(i, &dict));
    return words;
}

const Dictionary &dictionary(const char *name)
{
    return dicts[dictnamefind(name)].dict;
}

// What the file holds.
list saved(const char *name)
{
    Dictionary dict = {};
    REQUIRE_FALSE(dictload(dictdirectory, name, &dict));
    list words = wordsof(dict);
    dictfree(&dict);
    return words;
}

// Two dictionaries in use, and a grid whose words across are these, one in each
// second row.
void begin(const list &words)
{
    screenstart();
    if (check.self) SendMessageA(reinterpret_cast<HWND>(check.self), WM_CLOSE, 0, 0);
    dictionariesbegin(
        {{"one", {"bat", "cat", "horse", "house", "mouse"}}, {"two", {"Mice", "zebra"}}});
    dictsetclear();
    for (const char *name : {"one", "two"})
        REQUIRE_FALSE(dictuse(static_cast<uint32_t>(dictnamefind(name))));
    std::string picture;
    for (const std::string &word : words)
        picture += word + std::string(8 - word.size(), '#') + "\n########\n";
    documentread(picture);
}

void spellnow(const list &words)
{
    begin(words);
    REQUIRE_FALSE(commandrun(SPELLCHECK));
    drivepump();
    REQUIRE(check.self);
    drivefront(check.self);
}

void press(int32_t icon)
{
    driveiconclick(check.self, icon);
}

std::string field()
{
    return drivetext(check.self, FIELD);
}

} // namespace

TEST_CASE("each word that nobody knows is shown with its suggestions")
{
    spellnow({"CAT", "hose", "m.use", "zebar", "mice", "qq"});
    CHECK(drivetext(check.self) == "Spell Check (Guess)");
    CHECK(field() == "hose");
    drivetype("s"); // goes behind it
    CHECK(field() == "hoses");
    CHECK(check.view.wordrows == &spell.guessstore);
    CHECK(wordsof(spell.guessstore) == list{"horse", "house"});
    CHECK(drivetext(check.self, DICTIONARIES) == "one");
    press(CONTINUE); // the word with a blank isn't asked about
    CHECK(field() == "zebar");
    CHECK(wordsof(spell.guessstore) == list{"zebra"});
    drivekey(VK_RETURN);
    CHECK(field() == "qq");
    CHECK(dictcount(&spell.guessstore) == 0);
    drivekey(VK_RETURN);
    CHECK(check.self == 0); // nothing was changed, nothing is asked
}

TEST_CASE("without a word to ask about a box says so")
{
    begin({"cat", "HOUSE", "m.ce"});
    CHECK(drivebox(IDOK, [] { commandrun(SPELLCHECK); }) == "No new words!");
    CHECK(check.self == 0);
}

TEST_CASE("a word that is added is in memory until the end, and then kept or not")
{
    spellnow({"hose", "zebar"});
    press(ADD);
    CHECK(wordsof(dictionary("one")) == list{"bat", "cat", "horse", "hose", "house", "mouse"});
    CHECK(saved("one").size() == 5);
    CHECK(field() == "hose");
    press(CONTINUE);
    press(FIELD);
    drivekey('A', DRIVECTRL);
    drivetype("zebras");
    press(ADD);

    std::string question;
    size_t after = 0;
    SUBCASE("kept")
    {
        question = questionanswer(ANSWERYES, [] { press(CLOSE); });
        after = 7;
    }
    SUBCASE("not kept")
    {
        question = questionanswer(ANSWERNO, [] { drivekey(VK_ESCAPE); });
        after = 5;
    }
    CHECK(question == "Dictionaries changed. Retain changes?");
    CHECK(check.self == 0);
    CHECK(saved("one").size() == after);
    CHECK(wordsof(dictionary("one")).size() == after);
    CHECK_FALSE(dictanychanges());
}

TEST_CASE("the list shows the dictionary that words go to")
{
    spellnow({"hose", "zebar"});
    press(BROWSE);
    CHECK(drivetext(check.self) == "Spell Check (one)");
    CHECK(check.view.wordrows == &dictionary("one"));
    CHECK(check.view.rowsel == -1);
    int on;
    REQUIRE_FALSE(iconselected(check.self, BROWSE, &on));
    CHECK(on);

    press(DICTIONARIES); // opens it
    drivekey(VK_DOWN);
    drivekey(VK_RETURN);
    CHECK(drivetext(check.self) == "Spell Check (two)");
    CHECK(check.view.wordrows == &dictionary("two"));
    press(ADD);
    CHECK(wordsof(dictionary("two")) == list{"hose", "Mice", "zebra"});
    CHECK(check.view.rowsel == 0); // the word in the field
    press(CONTINUE);
    CHECK(field() == "zebar");
    CHECK(drivetext(check.self) == "Spell Check (two)");
    press(BROWSE);
    CHECK(drivetext(check.self) == "Spell Check (Guess)");
    CHECK(check.view.wordrows == &spell.guessstore);
    questionanswer(ANSWERNO, [] { press(CLOSE); });
}

TEST_CASE("the lists of the check and of the editor follow what either does")
{
    spellnow({"hose"});
    press(BROWSE);
    REQUIRE_FALSE(dictedit(static_cast<uint32_t>(dictnamefind("one"))));
    SetWindowPos(reinterpret_cast<HWND>(editor.self), nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
    drivepump();
    drivefront(check.self);
    press(ADD);
    CHECK(drivetext(editor.self, 1015) == "6");
    CHECK(check.view.rowsel == 3);
    drivefront(editor.self);
    driveiconclick(editor.self, 1017);
    drivetype("ant");
    drivekey(VK_RETURN);
    CHECK(check.view.rowsel == 4);
    REQUIRE_FALSE(dictcreate("first"));
    CHECK(check.view.wordrows == &dictionary("one"));
    driveiconclick(editor.self, 2); // Cancel
    CHECK(check.view.rowsel == -1);
    REQUIRE_FALSE(dictunuse(static_cast<uint32_t>(dictnamefind("one"))));
    drivefront(check.self);
    press(BROWSE);
    press(BROWSE);
    CHECK(drivetext(check.self) == "Spell Check (two)");
    press(BROWSE);
    press(CLOSE);
    CHECK_FALSE(check.self);
}

TEST_CASE("a word goes to no other dictionary than the one that is seen chosen")
{
    spellnow({"hose"});
    REQUIRE_FALSE(dictunuse(static_cast<uint32_t>(dictnamefind("one"))));
    press(ADD);
    CHECK(drivetext(check.self, DICTIONARIES) == "two");
    CHECK(dictcount(&dictionary("two")) == 2);
    press(ADD);
    CHECK(dictcount(&dictionary("two")) == 3);
    questionanswer(ANSWERNO, [] { press(CLOSE); });
}

TEST_CASE("a suggestion is taken by the mouse or the arrows, and the list follows typing")
{
    spellnow({"hose"}); // horse, house
    int height = ostodevy(wordmetrics.rowheight);
    driveplace second = driveclient(check.view.pane, 20, height + height / 2);
    driveclick(second.x, second.y);
    CHECK(field() == "house");
    drivekey(VK_DOWN); // it is the last
    CHECK(field() == "house");
    drivekey(VK_UP);
    CHECK(field() == "horse");
    CHECK(check.view.rowsel == 0);
    press(FIELD);
    drivekey(VK_END);
    drivetype("s");
    CHECK(check.view.rowsel == -1);
    drivekey(VK_BACK);
    CHECK(check.view.rowsel == 0);
    press(BROWSE);
    CHECK(check.view.rowsel == 2); // of the whole dictionary
    press(ADD);                    // it is there
    CHECK(dictcount(&dictionary("one")) == 5);
    questionanswer(ANSWERNO, [] { press(CLOSE); });
}

TEST_CASE("a right press on Add goes on to the next word as well")
{
    spellnow({"hose", "zebar"});
    driveplace at = driveicon(check.self, ADD);
    driveclick(at.x, at.y, DRIVERIGHT);
    CHECK(wordsof(dictionary("one")).size() == 6);
    CHECK(field() == "zebar");
    std::string question = questionanswer(ANSWERYES, [&] { driveclick(at.x, at.y, DRIVERIGHT); });
    CHECK(question == "Dictionaries changed. Retain changes?");
    CHECK(saved("one").size() == 7);
}

TEST_CASE("Return and Escape in the list are the window's")
{
    spellnow({"hose", "zebar"});
    driveplace at = drivemiddle(check.view.pane);
    driveclick(at.x, at.y);
    press(FIELD);
    drivekey(VK_TAB); // into the list
    caretrecord caret;
    REQUIRE_FALSE(getcaret(&caret));
    CHECK(caret.self == check.view.pane);
    drivekey(VK_RETURN);
    CHECK(field() == "zebar");
    drivekey(VK_TAB);
    drivekey(VK_ESCAPE);
    CHECK(check.self == 0);
}

TEST_CASE("the question comes whichever way the check ends, and can be put off")
{
    std::string question;
    spellnow({"hose"});
    press(ADD);
    SUBCASE("the last word was dealt with")
    {
        question = questionanswer(ANSWERYES, [] { press(CONTINUE); });
        CHECK(saved("one").size() == 6);
    }
    SUBCASE("the close box")
    {
        question = questionanswer(ANSWERNO, [] { drivekey(VK_F4, DRIVEALT); });
        CHECK(dictcount(&dictionary("one")) == 5);
    }
    SUBCASE("put off: what was added stays in memory, for the dictionary's editor to settle")
    {
        question = questionanswer(ANSWERESCAPE, [] { press(CLOSE); });
        CHECK(dictanychanges());
        CHECK(saved("one").size() == 5);
        CHECK(dictcount(&dictionary("one")) == 6);
        REQUIRE_FALSE(dictedit(static_cast<uint32_t>(dictnamefind("two"))));
        drivefront(editor.self);
        driveiconclick(editor.self, 1012);
        CHECK(saved("one").size() == 6);
    }
    CHECK(question == "Dictionaries changed. Retain changes?");
    CHECK_FALSE(check.self);
    CHECK_FALSE(dictanychanges());
}

TEST_CASE("a check that is started again begins at the first word")
{
    spellnow({"hose", "zebar"});
    press(CONTINUE);
    CHECK(field() == "zebar");
    REQUIRE_FALSE(commandrun(SPELLCHECK));
    drivepump();
    CHECK(field() == "hose");
    CHECK(GetForegroundWindow() == reinterpret_cast<HWND>(check.self));
    press(CLOSE);
    REQUIRE_FALSE(commandrun(SPELLCHECK));
    drivepump();
    CHECK(field() == "hose");
    press(CLOSE);
    CHECK(check.self == 0);
}
