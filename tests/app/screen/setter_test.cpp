// A setter's way: words come in from a list, are edited, checked against a grid,
// kept or not, and found again by a program that is started afresh. All of it by
// mouse and keys; what was kept is read by the console companion.
#include "base/text.h"
#include "dict/dicteditwindow.h"
#include "dict/dictset.h"
#include "find/spellwindow.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "tests/app/screen/boxhands.h"
#include "tests/app/screen/companion.h"
#include "tests/app/screen/dictionaryhands.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/menuhands.h"
#include "tests/app/screen/screen.h"
#include "tests/app/win32/program.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace
{

using list = std::vector<std::string>;

// Controls of the editor and of the spell check.
constexpr int FIELD = 1017, COUNT = 1015, ADD = 1005, DELETEWORD = 1013, KEEP = 1012, UNDO = 2;
constexpr int CHECKFIELD = 1019, CHECKADD = 1024, CHECKCONTINUE = 1025, CHECKCLOSE = 1026;

// The Words menu; what opens a menu of dictionaries is followed by a number.
const menupath SPELLCHECK = {1, 0}, LOAD = {1, 1, 0}, EDIT = {1, 2, 0}, CREATE = {1, 3},
               DELETEDICT = {1, 4, 0};

// An empty directory of dictionaries.
void begin()
{
    screenstart();
    dictionariesbegin({});
    drivepump();
}

// The program as it begins, with the directory as it is now.
void beginagain()
{
    std::string folder = dictdirectory;
    modulesreset();
    screenstart();
    strcopyn(dictdirectory, folder.c_str(), sizeof dictdirectory);
    REQUIRE_FALSE(dictstart());
    drivepump();
}

list kept()
{
    return companion("dict words \"" + dictionaryplace("mine.dic") + "\"");
}

void fill(window w, int field, const std::string &text)
{
    driveiconclick(w, field);
    drivekey('A', DRIVECTRL);
    drivekey(VK_DELETE);
    drivetype(text);
}

void rowpress(const wordview &view, int32_t row)
{
    int height = ostodevy(wordmetrics.rowheight);
    driveplace at = driveclient(view.pane, 20, row * height + height / 2);
    driveclick(at.x, at.y);
}

void create(const std::string &name)
{
    menuchoose(CREATE);
    REQUIRE(drivewaitwindow("Create New Dictionary"));
    drivetype(name);
    drivekey(VK_RETURN);
}

void edit()
{
    menuchoose(EDIT);
    REQUIRE(editor.self);
}

// The list's own menu, and in the file box that it brings up a path and Return.
void listchoose(int entry, const std::string &path)
{
    bool chosen = false;
    driveplace at = drivemiddle(editor.view.pane);
    auto script = [&] {
        driveclick(at.x, at.y, DRIVERIGHT);
        window shown = drivewaitwindow("", "#32768");
        if (!shown) return;
        driveplace entryplace = driveclient(shown, 20, 12 + 18 * entry);
        driveclick(entryplace.x, entryplace.y);
        if (!drivewaitwindow("", "#32770")) return;
        Sleep(200); // its own first messages
        drivetype(path);
        drivekey(VK_RETURN);
        chosen = drivewait([] { return !drivefind("", "#32770"); });
    };
    driveaside([] {}, script);
    drivepump();
    CHECK(chosen);
}

// Work that ends a spell check, and in its question.
void checkend(int answer, const std::function<void()> &work)
{
    CHECK(questionanswer(answer, work) == "Dictionaries changed. Retain changes?");
    CHECK_FALSE(check.self);
}

// "mine", from a list with a word too many and one too few.
void listedit()
{
    create("mine");
    edit();
    CHECK(drivetext(editor.self, COUNT) == "0");
    std::ofstream(dictionaryplace("list.txt"), std::ios::binary)
        << "house\r\nHORSE\r\nwords of old\r\nmouse\r\n\r\ncat";
    listchoose(0, dictionaryplace("list.txt"));
    CHECK(drivetext(editor.self, COUNT) == "5");
    fill(editor.self, FIELD, "stable");
    drivekey(VK_RETURN);
    fill(editor.self, FIELD, "wordsofold");
    driveiconclick(editor.self, DELETEWORD);
    rowpress(editor.view, 0);
    CHECK(drivetext(editor.self, FIELD) == "cat");
    driveiconclick(editor.self, DELETEWORD);
    CHECK(drivetext(editor.self, COUNT) == "4");
}

// A row of cells, and this word typed into it.
void gridtype(const std::string &word)
{
    std::string picture = std::string(word.size(), '.') + "#\n" + std::string(word.size(), '#');
    picture += "#\n";
    documentread(picture);
    cellclick(0, 0);
    drivetype(word);
}

// A dictionary that the program finds in the system's records of where they are.
struct recordeddirectory {
    static constexpr const char *KEY = "Software\\Orchardlight\\Dictionaries";
    char before[MAX_PATH] = "";
    DWORD size = sizeof before;
    bool had, done;

    recordeddirectory()
    {
        had =
            !RegGetValueA(HKEY_LOCAL_MACHINE, KEY, nullptr, RRF_RT_REG_SZ, nullptr, before, &size);
        done = set(dictdirectory);
    }
    ~recordeddirectory()
    {
        if (had)
            set(before);
        else if (done)
            RegDeleteKeyA(HKEY_LOCAL_MACHINE, KEY);
    }
    static bool set(const char *folder)
    {
        return !RegSetKeyValueA(HKEY_LOCAL_MACHINE, KEY, nullptr, REG_SZ, folder,
                                static_cast<DWORD>(strlen(folder) + 1));
    }
};

// The other process has done what it was told so far.
void answers(window w)
{
    Sleep(50);
    DWORD_PTR ignored;
    SendMessageTimeoutA(reinterpret_cast<HWND>(w), WM_NULL, 0, 0, SMTO_NORMAL, 5000, &ignored);
}

// A window of another process that is in front.
window infront(const program &p, const std::string &title)
{
    HWND found = nullptr;
    drivewait(
        [&] {
            DWORD process = 0;
            HWND front = GetForegroundWindow();
            GetWindowThreadProcessId(front, &process);
            auto w = reinterpret_cast<window>(front);
            if (process == p.process.dwProcessId && drivetext(w).starts_with(title)) found = front;
            return found != nullptr;
        },
        10000);
    return reinterpret_cast<window>(found);
}

// The Edit menu's first dictionary, in a program of its own.
window programedit(const program &p)
{
    window main = infront(p, "Quillmere");
    if (!main) return 0;
    Sleep(500); // the window manager has its say
    drivekey(VK_MENU);
    answers(main);
    for (int key : {int{'W'}, VK_DOWN, VK_DOWN, VK_RIGHT, VK_RETURN}) {
        drivekey(key);
        answers(main);
    }
    return infront(p, "Edit (mine)");
}

} // namespace

TEST_CASE("words that a setter keeps are in the file, in the grid's check and in the next start")
{
    begin();
    listedit();
    driveiconclick(editor.self, KEEP);
    CHECK_FALSE(editor.self);
    CHECK(kept() == list{"Horse", "house", "mouse", "stable"});
    CHECK_FALSE(dictinset(0));
    menuchoose(LOAD);
    CHECK(dictinset(0));
    CHECK(menulook({1, 1})[0].ticked);

    gridtype("hose");
    menuchoose(SPELLCHECK);
    REQUIRE(check.self);
    CHECK(drivetext(check.self) == "Spell Check (Guess)");
    CHECK(drivetext(check.self, CHECKFIELD) == "hose");
    rowpress(check.view, 0); // a suggestion
    CHECK(drivetext(check.self, CHECKFIELD) == "Horse");
    fill(check.self, CHECKFIELD, "hosepipe");
    driveiconclick(check.self, CHECKADD);
    checkend(ANSWERYES, [] { driveiconclick(check.self, CHECKCONTINUE); }); // it was the only word
    CHECK(kept() == list{"Horse", "hosepipe", "house", "mouse", "stable"});
    CHECK(companion("dict check \"" + dictionaryplace("mine.dic") + "\"").size() == 1);

    beginagain();
    edit();
    CHECK(drivetext(editor.self, COUNT) == "5");
    drivetype("hosepipe");
    CHECK(editor.view.rowsel == 1);
    driveiconclick(editor.self, UNDO);

    recordeddirectory record;
    if (!record.done) {
        MESSAGE("skipped: the second start needs the right to write the system's records");
        return;
    }
    program p = programstart("quillmere.exe");
    REQUIRE(p.process.hProcess);
    window other = programedit(p);
    CHECK(other);
    if (other) {
        CHECK(drivetext(other, COUNT) == "5");
        fill(other, FIELD, "mouse");
        drivekey(VK_TAB); // into the list, where the word is selected
        drivekey(VK_DOWN);
        answers(other);
        CHECK(drivetext(other, FIELD) == "stable");
    }
    REQUIRE(programquit(p));
    CHECK(programstatus(p) == 0);
}

TEST_CASE(
    "words that a setter doesn't keep are nowhere, with the editor's Cancel and the check's No")
{
    begin();
    listedit();
    driveiconclick(editor.self, UNDO);
    CHECK_FALSE(editor.self);
    CHECK(kept().empty()); // as it was created
    edit();
    CHECK(drivetext(editor.self, COUNT) == "0");
    fill(editor.self, FIELD, "house");
    driveiconclick(editor.self, ADD);
    driveiconclick(editor.self, KEEP);

    menuchoose(LOAD);
    gridtype("hose");
    menuchoose(SPELLCHECK);
    driveiconclick(check.self, CHECKADD);
    checkend(ANSWERNO, [] { driveiconclick(check.self, CHECKCLOSE); });
    CHECK(kept() == list{"house"});
    menuchoose(SPELLCHECK); // it is asked about again
    CHECK(drivetext(check.self, CHECKFIELD) == "hose");
    drivekey(VK_ESCAPE);
    beginagain();
    edit();
    CHECK(drivetext(editor.self, COUNT) == "1");
}

TEST_CASE("words of windows that were closed by their boxes wait in memory for the next answer")
{
    begin();
    create("mine");
    edit();
    drivetype("mouse");
    drivekey(VK_RETURN);
    drivekey(VK_F4, DRIVEALT);
    CHECK_FALSE(editor.self);
    CHECK(kept().empty());
    SUBCASE("OK of the next editor")
    {
        edit();
        CHECK(drivetext(editor.self, COUNT) == "1");
        driveiconclick(editor.self, KEEP);
        CHECK(kept() == list{"mouse"});
    }
    SUBCASE("Yes to the next spell check, which asks of its own words too")
    {
        menuchoose(LOAD);
        gridtype("hose");
        menuchoose(SPELLCHECK);
        driveiconclick(check.self, CHECKADD);
        checkend(ANSWERYES, [] { drivekey(VK_F4, DRIVEALT); });
        CHECK(kept() == list{"hose", "mouse"});
    }
    SUBCASE("a start of the program, which knows nothing of them")
    {
        beginagain();
        edit();
        CHECK(drivetext(editor.self, COUNT) == "0");
    }
    SUBCASE("Delete, which takes them and the file at once")
    {
        menuchoose(DELETEDICT);
        CHECK_FALSE(std::filesystem::exists(dictionaryplace("mine.dic")));
        CHECK(ndicts == 0);
        CHECK_FALSE(dictanychanges());
    }
}
