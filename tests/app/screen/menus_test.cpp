// Every entry of every menu, and the menu of dictionaries.
#include "app/mainwindow.h"
#include "base/text.h"
#include "desktop/windows.h"
#include "dict/dicteditwindow.h"
#include "dict/dictset.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridshape.h"
#include "grid/gridwindow.h"
#include "tests/app/screen/dictionaryhands.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/menuhands.h"
#include "tests/app/screen/screen.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

namespace
{

using list = std::vector<std::string>;

HWND handle(window w)
{
    return reinterpret_cast<HWND>(w);
}

// A menu's entries, "!" before those that are grey and "+" before ticked ones.
std::string shown(const menupath &path)
{
    std::string text;
    for (const menuentry &entry : menulook(path)) {
        if (entry.text.empty()) continue;
        if (!text.empty()) text += ' ';
        std::string name = entry.text.substr(0, entry.text.find('\t'));
        std::erase(name, '&');
        std::erase(name, ' ');
        text += (entry.grey ? "!" : "") + std::string(entry.ticked ? "+" : "") + name;
    }
    return text;
}

// A directory of its own, with these dictionaries.
void begin(const list &names)
{
    screenstart();
    std::vector<testdictionary> dictionaries;
    for (const std::string &name : names)
        dictionaries.push_back({name, {name, "word"}});
    dictionariesbegin(dictionaries);
}

// In a script: another window than the main one that has come up, 0 for none.
window other()
{
    window found = 0;
    drivewait([&] {
        for (HWND h = nullptr; (h = FindWindowExA(nullptr, h, nullptr, nullptr));) {
            DWORD process = 0;
            GetWindowThreadProcessId(h, &process);
            char name[32] = "";
            GetClassNameA(h, name, sizeof name);
            bool ours = process == GetCurrentProcessId() && IsWindowVisible(h) &&
                        h != handle(mainwindow) &&
                        (std::string(name) == "Task" || std::string(name) == "#32770");
            if (ours) found = reinterpret_cast<window>(h);
        }
        return found != 0;
    });
    return found;
}

// The title of what comes up by an entry, and for an error its text; it is
// closed.
std::string opens(int32_t id)
{
    std::string seen;
    menuchoose(menufindpath(id), [&] {
        window w = other();
        Sleep(150); // its own first messages
        seen = drivetext(w);
        if (seen == "Quillmere") seen = drivetext(w, 0xFFFF);
        PostMessageA(handle(w), WM_CLOSE, 0, 0);
        drivewait([&] { return !IsWindowVisible(handle(w)); });
    });
    return seen;
}

// The position of a dictionary in the menu.
int at(const char *name)
{
    int number = dictnamefind(name);
    REQUIRE(number >= 0);
    return number;
}

list inuse()
{
    list names;
    for (uint32_t i = 0; i < dictset.count; i++)
        names.push_back(dicts[dictset.numbers[i]].name);
    return names;
}

} // namespace

TEST_CASE("an entry is grey only for its cause, and ticked by what it tells of")
{
    begin({"one"});
    const std::string unnamed = "NewGrid NewWords Open... !Save SaveGridAs... SaveCluesAs... "
                                "SaveAsDefault Exit";
    CHECK(shown({0}) == unnamed);
    CHECK(shown({1}) == "SpellCheck... Load Edit Create... Delete");
    CHECK(shown({2}) == "GridType Size... Reflect UpperCase LowerCase Customise...");
    CHECK(shown({2, 0}) == "+Crossword Wordsquare");
    CHECK(shown({2, 2}) == "Vertical- Horizontal| Diagonal/ Diagonal\\");
    CHECK(shown({3}) == "Choices... Help... AboutQuillmere...");
    for (int under : {1, 2, 4})
        CHECK(shown({1, under}) == "one");

    gridsetfilename("C:\\some.qmg");
    CHECK(shown({0}).find("!") == std::string::npos);

    gridsetkind(GRIDWORDSQUARE);
    CHECK(shown({0}) == unnamed);
    CHECK(shown({1}) == "!SpellCheck... Load Edit Create... Delete");
    CHECK(shown({2}) == "GridType Size... Reflect UpperCase LowerCase Customise...");
    CHECK(shown({2, 0}) == "Crossword +Wordsquare");
    CHECK(shown({2, 2}) == "!Vertical- !Horizontal| !Diagonal/ !Diagonal\\");
    CHECK(shown({3}) == "Choices... Help... AboutQuillmere...");

    gridsetkind(GRIDCROSSWORD);
    strcopyn(dictdirectory, "C:\\no such folder", sizeof dictdirectory);
    CHECK(shown({1}) == "!SpellCheck... Load Edit !Create... Delete");
}

TEST_CASE("every entry that opens a window opens it, in both kinds of grid")
{
    begin({"one"});
    for (int32_t kind : {GRIDCROSSWORD, GRIDWORDSQUARE}) {
        CAPTURE(kind);
        gridsetkind(kind);
        CHECK(opens(40022) == "Open");
        CHECK(opens(40004) == "Save As");
        CHECK(opens(40005) == "Save As");
        CHECK(opens(40020) == "Create New Dictionary");
        CHECK(opens(40008) == "Grid Size");
        CHECK(opens(40026) == "Customisation");
        CHECK(opens(40027) == "Choices");
        CHECK(opens(40016) == "About Quillmere");
        CHECK(IsWindowEnabled(handle(mainwindow)));
    }
    gridsetkind(GRIDCROSSWORD);
    REQUIRE_FALSE(dictuse(0));
    CHECK(opens(40017) == "No new words!");
}

TEST_CASE("dictionaries are loaded, ticked and unloaded by the menu, and the grid names them")
{
    begin({"Alpha", "beta", "Gamma"});
    documentread("...\n...\n");
    menuchoose({1, 1, at("Gamma")});
    menuchoose({1, 1, at("Alpha")});
    CHECK(drivetext(mainwindow) == "Quillmere*");
    CHECK(dicts[at("Alpha")].loaded);
    CHECK(dictcount(&dicts[at("Gamma")].dict) == 2);
    CHECK_FALSE(dicts[at("beta")].loaded);
    std::string load = shown({1, 1});
    CHECK(load.find("+Alpha") != std::string::npos);
    CHECK(load.find("+Gamma") != std::string::npos);
    CHECK(load.find("+beta") == std::string::npos);
    CHECK(shown({1, 2}).find('+') == std::string::npos);
    CHECK(shown({1, 4}).find('+') == std::string::npos);
    CHECK(shown({1, 1}) == load);

    list both = inuse();
    std::string file = scratchfolder() + "\\named.qmg";
    REQUIRE_FALSE(gridwrite(file.c_str()));
    menuchoose({1, 1, at("Gamma")});
    CHECK(inuse() == list{"Alpha"});
    CHECK_FALSE(dicts[at("Gamma")].loaded);
    menuchoose({1, 1, at("beta")});
    drivedrop(mainwindow, {file}, drivemiddle(mainwindow));
    CHECK(inuse() == both);
    CHECK(dictcount(&dicts[at("Gamma")].dict) == 2);
    CHECK_FALSE(dicts[at("beta")].loaded);
    CHECK(drivetext(mainwindow) == "Quillmere - named.qmg");

    // A name that is no longer known is passed over.
    menuchoose({1, 4, at("Alpha")});
    CHECK_FALSE(std::filesystem::exists(dictionaryplace("Alpha.dic")));
    CHECK(dictnamefind("Alpha") == -1);
    CHECK(inuse() == list{"Gamma"});
    CHECK(shown({1, 1}).find("Alpha") == std::string::npos);
    CHECK(shown({1, 1}).find("+Gamma") != std::string::npos);
    drivedrop(mainwindow, {file}, drivemiddle(mainwindow));
    CHECK(inuse() == list{"Gamma"});
}

TEST_CASE("a dictionary is edited, made and taken away by the menu")
{
    begin({"Alpha", "beta"});
    documentread("...\n");
    menuchoose({1, 2, at("beta")});
    REQUIRE(editor.self);
    CHECK(drivetext(editor.self).find("beta") != std::string::npos);
    SendMessageA(handle(editor.self), WM_CLOSE, 0, 0);
    drivepump();
    CHECK(gridsunsaved() == 0);

    menuchoose(menufindpath(40020));
    drivetype("newest");
    drivekey(VK_RETURN);
    CHECK(std::filesystem::exists(dictionaryplace("newest.dic")));
    for (int under : {1, 2, 4}) {
        std::string names = shown({1, under});
        CHECK(names.find("newest") != std::string::npos);
        CHECK(names.find("+newest") == std::string::npos);
    }
    if (editor.self) SendMessageA(handle(editor.self), WM_CLOSE, 0, 0);
    drivepump();

    // What can't be deleted is told of, and stays.
    HANDLE held = CreateFileA(dictionaryplace("beta.dic").c_str(), GENERIC_READ, FILE_SHARE_READ,
                              nullptr, OPEN_EXISTING, 0, nullptr);
    std::string said;
    menuchoose({1, 4, at("beta")}, [&] {
        window box = drivewaitwindow("", "#32770");
        Sleep(100);
        said = drivetext(box, 0xFFFF);
        PostMessageA(handle(box), WM_COMMAND, IDCANCEL, 0);
        drivewait([] { return !drivefind("", "#32770"); });
    });
    CloseHandle(held);
    CHECK(said != "");
    CHECK(dictnamefind("beta") >= 0);
    menuchoose({1, 4, at("beta")});
    CHECK(dictnamefind("beta") == -1);
    CHECK_FALSE(drivefind("", "#32770"));
}
