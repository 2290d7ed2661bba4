// Dictionaries that are damaged, in use elsewhere, too many or empty, as a user
// meets them.
#include "app/commands.h"
#include "base/boxes.h"
#include "dict/dicteditwindow.h"
#include "dict/dictset.h"
#include "find/spellwindow.h"
#include "tests/app/screen/boxhands.h"
#include "tests/app/screen/dictionaryhands.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/menuhands.h"
#include "tests/app/screen/screen.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace
{

using list = std::vector<std::string>;

constexpr int32_t SPELLCHECK = 40017, CREATE = 40020;
const menupath LOAD = {1, 1, 0}, EDIT = {1, 2, 0}, DELETEDICT = {1, 4, 0};
constexpr int FIELD = 1017, COUNT = 1015, ADD = 1005, DELETEWORD = 1013, KEEP = 1012;
constexpr int CHECKADD = 1024, CHECKCLOSE = 1026;

void filewrite(const std::string &path, const std::string &text)
{
    std::ofstream(path, std::ios::binary) << text;
}

std::string fileread(const std::string &path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// A directory of its own with "mine", which holds these words.
void begin(const list &words)
{
    screenstart();
    dictionariesbegin({{"mine", words}});
}

void edit()
{
    menuchoose(EDIT);
    REQUIRE(editor.self);
}

size_t filesthere()
{
    std::filesystem::directory_iterator files(dictdirectory);
    return static_cast<size_t>(std::distance(begin(files), end(files)));
}

// Another program has it open, and lets nobody in.
struct taken {
    HANDLE file;
    explicit taken(const std::string &path)
        : file(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr))
    {
        REQUIRE(file != INVALID_HANDLE_VALUE);
    }
    ~taken()
    {
        CloseHandle(file);
    }
};

void gridwith(const std::string &word)
{
    std::string picture = word + "#\n" + std::string(word.size() + 1, '#') + "\n";
    documentread(picture);
}

} // namespace

TEST_CASE("a damaged dictionary can't be edited or added to, and its file stays")
{
    begin({"ant", "bee", "cow"});
    std::string whole = fileread(dictionaryplace("mine.dic")), damaged;
    SUBCASE("cut short")
    {
        damaged = whole.substr(0, whole.size() - 7);
    }
    SUBCASE("no words but a promise")
    {
        damaged =
            whole.substr(0, 256) + std::string("\377\377\0\0\377\0\0\0", 8) + whole.substr(264);
    }
    SUBCASE("something else")
    {
        damaged = "zebra\r\n";
    }
    SUBCASE("nothing at all") {}
    SUBCASE("of a later program")
    {
        damaged = whole;
        damaged[96] = 1;
    }
    filewrite(dictionaryplace("mine.dic"), damaged);
    CHECK(complaint([] { menuchoose(EDIT); }) != "");
    CHECK_FALSE(editor.self);
    menuchoose(LOAD); // in use, with no words
    CHECK(menulook({1, 1})[0].ticked);
    gridwith("ant");
    REQUIRE_FALSE(commandrun(SPELLCHECK));
    REQUIRE(check.self);
    CHECK(complaint([] { driveiconclick(check.self, CHECKADD); }) != "");
    CHECK_FALSE(dictanychanges());
    driveiconclick(check.self, CHECKCLOSE);
    CHECK_FALSE(check.self);
    CHECK(fileread(dictionaryplace("mine.dic")) == damaged);
}

TEST_CASE("a dictionary that another program has open is let alone")
{
    begin({"ant"});
    std::string before = fileread(dictionaryplace("mine.dic"));
    {
        taken file(dictionaryplace("mine.dic"));
        CHECK(complaint([] { menuchoose(EDIT); }) != "");
        CHECK_FALSE(editor.self);
        CHECK(complaint([] { menuchoose(DELETEDICT); }) != "");
        CHECK(ndicts == 1);
    }
    edit();
    drivetype("bee");
    drivekey(VK_RETURN);
    {
        taken file(dictionaryplace("mine.dic"));
        driveiconclick(editor.self, KEEP);
        CHECK_FALSE(editor.self);
    }
    CHECK(fileread(dictionaryplace("mine.dic")) == before);
    CHECK(filesthere() == 1);
}

TEST_CASE("a dictionary that may not be written isn't deleted")
{
    begin({"ant"});
    SetFileAttributesA(dictionaryplace("mine.dic").c_str(), FILE_ATTRIBUTE_READONLY);
    CHECK(complaint([] { menuchoose(DELETEDICT); }) != "");
    CHECK(ndicts == 1);
    CHECK(std::filesystem::exists(dictionaryplace("mine.dic")));
    SetFileAttributesA(dictionaryplace("mine.dic").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_CASE("an editor whose dictionary could not be read again takes no words until it can")
{
    begin({"ant"});
    filewrite(dictionaryplace("words.txt"), "cow\r\n");
    edit();
    drivetype("bee");
    drivekey(VK_RETURN);
    {
        taken file(dictionaryplace("mine.dic"));
        CHECK(dictdiscardchanges());
        CHECK_FALSE(wordviewschanged());
        CHECK(drivetext(editor.self, COUNT) == "0");
        CHECK(complaint([] { drivekey(VK_RETURN); }) != "");
        CHECK(complaint([] {
                  drivedrop(editor.view.pane, {dictionaryplace("words.txt")}, {10, 10});
              }) != "");
        CHECK_FALSE(dictanychanges());
    }
    driveiconclick(editor.self, ADD);
    CHECK(drivetext(editor.self, COUNT) == "2");
    CHECK(dicts[0].loaded);
}

TEST_CASE("words go neither into nor out of files that are in use")
{
    begin({"ant"});
    filewrite(dictionaryplace("words.txt"), "bee\r\n");
    edit();
    {
        taken file(dictionaryplace("words.txt"));
        CHECK(complaint([] {
                  drivedrop(editor.view.pane, {dictionaryplace("words.txt")}, {10, 10});
              }) != "");
        bool told = false;
        driveaside([] { reporterror(editexportbox()); },
                   [&] {
                       if (!drivewaitwindow("", "#32770")) return;
                       Sleep(200); // its own first messages
                       drivetype(dictionaryplace("words.txt"));
                       drivekey(VK_RETURN);
                       told = drivewaitwindow("Quillmere", "#32770");
                       drivekey(VK_RETURN);
                   });
        CHECK(told);
    }
    CHECK(drivetext(editor.self, COUNT) == "1");
    CHECK_FALSE(dictanychanges());
    CHECK(fileread(dictionaryplace("words.txt")) == "bee\r\n");
}

TEST_CASE("an empty dictionary shows nothing, has nothing to choose and makes no file")
{
    begin({});
    edit();
    drivepicture blank = drivelook(editor.view.pane);
    drivekey(VK_TAB);
    for (int key : {VK_UP, VK_DOWN, VK_UP})
        drivekey(key);
    driveplace at = driveclient(editor.view.pane, 20, 5);
    driveclick(at.x, at.y);
    CHECK(editor.view.rowsel == -1);
    CHECK(editor.view.rowcaret == -1);
    CHECK(drivetext(editor.self, FIELD) == "");
    CHECK(drivelook(editor.view.pane).pixels == blank.pixels);
    driveiconclick(editor.self, DELETEWORD);
    driveiconclick(editor.self, ADD);
    CHECK(drivetext(editor.self, COUNT) == "0");
    CHECK(drivefilebox(dictionaryplace("out.txt"), 0, true, [] { CHECK_FALSE(editexportbox()); }));
    CHECK_FALSE(std::filesystem::exists(dictionaryplace("out.txt")));
}

TEST_CASE("without a directory there is nothing to create or check")
{
    begin({"ant"});
    auto grey = [] {
        std::vector<menuentry> words = menulook({1});
        CHECK(words[0].grey == words[3].grey);
        return words[0].grey;
    };
    CHECK_FALSE(grey());
    std::filesystem::remove_all(dictdirectory);
    CHECK(grey());
    CHECK(complaint([] { menuchoose(DELETEDICT); }) != "");
    CHECK(ndicts == 1);
}

TEST_CASE("a check without dictionaries doesn't begin, nor does it say so")
{
    begin({"ant"}); // of a name that nobody uses unasked
    gridwith("bee");
    REQUIRE_FALSE(commandrun(SPELLCHECK));
    drivepump();
    CHECK_FALSE(check.self);
    CHECK_FALSE(drivefind("", "#32770"));
}

TEST_CASE("names that can't be a dictionary's are told of, and make none")
{
    begin({"ant"});
    auto name = [](const std::string &text) {
        REQUIRE_FALSE(commandrun(CREATE));
        drivepump();
        drivetype(text);
        return complaint([] { drivekey(VK_RETURN); });
    };
    CHECK(name(std::string(32, 'n')) != "");
    CHECK(name("MINE") == "Dictionary already exists.");
    CHECK(name("no\\such\\folder") != "");
    CHECK(name("") == ""); // the user knows
    CHECK(ndicts == 1);
    CHECK(filesthere() == 1);
    CHECK(name(std::string(31, 'n')) == "");
    CHECK(std::filesystem::exists(dictionaryplace(std::string(31, 'n') + ".dic")));
    for (int i = 0; i < 40; i++)
        std::filesystem::copy_file(dictionaryplace("mine.dic"),
                                   dictionaryplace("x" + std::to_string(100 + i) + ".dic"));
    REQUIRE_FALSE(dictstart());
    CHECK(menulook({1, 1}).size() == 32);
    CHECK(name("onemore") == "ENUD");
    CHECK(ndicts == 32);
    CHECK_FALSE(std::filesystem::exists(dictionaryplace("onemore.dic")));
}
