#include "base/files.h"
#include "base/flex.h"
#include "base/loadfilter.h"
#include "base/numbers.h"
#include "base/registry.h"
#include "base/savefilter.h"
#include "tests/base/scratch.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace
{

std::string expanded(const std::string &in, int32_t size = PATHSIZE)
{
    char out[PATHSIZE + 8];
    memset(out, '!', sizeof out);
    CHECK(!pathexpand(in.c_str(), out, size));
    for (size_t i = static_cast<size_t>(size); i < sizeof out; i++)
        CHECK(out[i] == '!');
    return out;
}

// Changes a path by a text, for rows.
auto change(errorblock *(*call)(char *, const char *), const char *text)
{
    return [=](const std::string &in) {
        char path[PATHSIZE];
        strcpy(path, in.c_str());
        errorblock *err = call(path, text);
        return path + std::string(err ? " " : "") + words(err);
    };
}

constexpr char KEY[] = "HKEY_CURRENT_USER\\Software\\Quillmere test\\"; // this test's own

errorblock *store(const std::string &name, const std::string &text)
{
    return regwrite((KEY + name).c_str(), text.c_str());
}

// The text of a value, "none" where it can't be read.
std::string stored(const std::string &key)
{
    char out[64];
    memset(out, '!', sizeof out);
    int32_t size = sizeof out;
    errorblock *err = regread(key.c_str(), out, &size);
    CHECK(out[size] == 0);
    CHECK(size == (out[0] ? static_cast<int32_t>(strlen(out)) + 1 : 0));
    if (err) CHECK(out[0] == 0);
    return err ? "none" : out;
}

constexpr filetyperow types[] = {
    {0x103, "qmg", "Grid"},          {0xFFF, "txt", "Text"},      {0xFFD, nullptr, "Data"},
    {0x100, "wmf", "Metafile"},      {0x102, "wmf", "Placeable"}, {-2, "dat", "Default"},
    {FILETYPEEND, nullptr, nullptr},
};
constexpr filetyperow newer[] = {{7, "txt", "Newer"}, {FILETYPEEND, nullptr, nullptr}};

// The strings of a packed list, a bar behind each.
std::string strings(const char *list)
{
    std::string out;
    for (; *list; list += strlen(list) + 1)
        out += list + std::string("|");
    return out;
}

constexpr int32_t formats[] = {0x103, 0xFFF, 0x102};

void getformat(intptr_t, int32_t index, int32_t *type, char *name, int32_t size)
{
    *type = formats[index];
    if (name) snprintf(name, static_cast<size_t>(size), "name%d", static_cast<int>(index));
}

constexpr savefilter table[] = {
    {"Grid", getformat, 1}, {"{WORDS}", getformat, 1}, {"Picture", getformat, 1}};

std::string saved; // the path and the type that the handler was given

errorblock *handler(const char *path, int32_t type)
{
    saved = path + std::string(" ") + std::to_string(type);
    return nullptr;
}

std::string done(const std::string &path)
{
    char out[PATHSIZE] = "";
    CHECK(!savefilterdone(path.c_str(), out, sizeof out));
    CHECK(saved.starts_with(std::string(out) + " "));
    return saved;
}

std::string word(uint32_t value)
{
    std::string bytes;
    for (int i = 0; i < 4; i++, value >>= 8)
        bytes += static_cast<char>(value);
    return bytes;
}

// The bytes of a shortcut that says where its file lies and nothing else.
std::string shortcut(const std::string &target)
{
    const std::string classid("\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16);
    std::string header = word(0x4C) + classid + word(2) + word(0x20); // 2: a place follows
    header += std::string(32, 0) + word(1) + std::string(12, 0);
    std::string volume = word(0x11) + word(3) + word(0) + word(0x10) + std::string(1, 0);
    uint32_t pathat = 0x1C + 0x11, suffixat = pathat + static_cast<uint32_t>(target.size()) + 1;
    std::string place = word(suffixat + 1) + word(0x1C) + word(1) + word(0x1C) + word(pathat) +
                        word(0) + word(suffixat) + volume + target + std::string(2, 0);
    return header + place + word(0);
}

} // namespace

TEST_CASE("paths expand, by the values of variables and of the registry")
{
    const std::string key = "<" + std::string(KEY), full(400, 'p');
    CHECK(!store("", "C:\\Words"));
    CHECK(!store("empty", ""));
    CHECK(!store("a>b", "both")); // a name may hold the closing bracket
    CHECK(!store("long", full));  // for a path
    CHECK(!store("quoted", "\"C:\\My words\""));
    const char *variable = std::getenv("PATH");
    REQUIRE(variable);
    std::string value = strlen(variable) < PATHSIZE ? variable : "<%PATH%>";
    rows("pathexpand", [](const auto &in) { return expanded(in); },
         {{"\"C:\\My words\\a.qmg\"", "C:\\My words\\a.qmg"},
          {"<<x>", "<x>"},
          {"a<<<b", "a<<b"},
          {"<NOSUCHROOT\\x\\y>\\z<noroot>\\z<>", "<NOSUCHROOT\\x\\y>\\z<noroot>\\z<>"},
          {"<" + full + ">", ("<" + full).substr(0, PATHSIZE - 1)},
          {"<%PATH%>", value},
          {"<%NOSUCHVARIABLE%>\\x", "%NOSUCHVARIABLE%\\x"},
          {key + ">\\Main.dic", "C:\\Words\\Main.dic"},
          {key + "quoted>\\a.dic", "C:\\My words\\a.dic"},
          {"<HKCU\\Software\\Quillmere test\\>", "C:\\Words"},
          {"<HKEY_LOCAL_MACHINE\\Software\\Quillmere test\\>", "C:\\Words"}, // the user's own
          {"<HKLM\\Software\\Quillmere test\\quoted>", "C:\\My words"},
          {"<HKLM\\Software\\Quillmere test\\no>", "<HKLM\\Software\\Quillmere test\\no>"},
          {"<hkcu\\Software\\Quillmere test\\>", "<hkcu\\Software\\Quillmere test\\>"},
          {key + "a>b>c", "bothc"},
          {key + "empty>", key + "empty>"},
          {key + "long>", key + "long>"}});
    CHECK(expanded("abcdef", 4) == "abc");
    CHECK(!regdelete(KEY));
}

TEST_CASE("a path of the current folder means the same file after the folder changes")
{
    scratch place;
    std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(place.folder);
    place.write("a.qmg", "x");
    char path[PATHSIZE], again[PATHSIZE];
    CHECK(!pathabsolute("\"a.qmg\"", path, sizeof path));
    CHECK(code(pathabsolute(std::string(PATHSIZE, 'p').c_str(), again, PATHSIZE)) ==
          ERRORMAXSTRING);
    CHECK(code(pathabsolute("a.qmg", again, 8)) == ERRORMAXSTRING);
    CHECK(again[0] == 0);
    std::filesystem::current_path(before);
    CHECK(platformobject(path) == 1);
    CHECK(!pathabsolute(path, again, sizeof again));
    CHECK(std::string(again) == path);
}

TEST_CASE("registry values are written, read and deleted, and a key's entries listed")
{
    std::string value = KEY + std::string("name"), below = KEY + std::string("below\\");
    CHECK(!store("", "C:\\Words"));
    CHECK(!store("name", "text \xE9"));
    CHECK(stored(value) == "text \xE9");
    CHECK(stored("no backslash") == ""); // nothing was opened, and nothing is wrong
    CHECK(regwrite("NOROOT\\a\\b", "x"));

    char name[64], data[64] = "";
    int32_t index = 0, size = 6;
    uint32_t type;
    CHECK(regread(value.c_str(), data, &size));
    CHECK(size == 0); // one byte more is wanted
    void *address;
    CHECK(!regreadnew(value.c_str(), &address, &size));
    CHECK((size == 7 && std::string(static_cast<char *>(address)) == "text \xE9"));
    heap_free(&address);
    CHECK((regreadnew(below.c_str(), &address, &size) && !address));
    CHECK(!regdelete(value.c_str()));
    CHECK(regdelete(value.c_str()));

    CHECK(!store("below\\deep\\v", "1"));
    keyhandle handle = 1;
    REQUIRE(!regopen(std::string(KEY, sizeof KEY - 2).c_str(), &handle, "r"));
    CHECK(!regenumkey(handle, name, sizeof name, &index));
    CHECK((std::string(name) == "below" && index == 1));
    CHECK(regenumkey(handle, name, sizeof name, &index));
    index = 0;
    size = sizeof data;
    CHECK(!regenumvalue(handle, name, sizeof name, &type, data, &size, &index));
    CHECK((std::string(name) + data == "C:\\Words" && type == VALUETEXT));
    CHECK(regenumvalue(handle, name, sizeof name, &type, data, &size, &index));
    CHECK(!regclose(&handle, nullptr));
    CHECK(regdelete(below.c_str())); // holds a key
    CHECK(!regdelete((below + "deep\\").c_str()));
    CHECK(!regdelete(below.c_str()));
    CHECK(!regdelete(KEY));

    // A root alone is a key.
    CHECK(code(regwrite(("HKCU\\" + std::string(300, 'k')).c_str(), "")) == ERRORMAXSTRING);
    CHECK(!regwrite("HKCU\\Quillmere test value", "at the root"));
    CHECK(stored("HKEY_CURRENT_USER\\Quillmere test value") == "at the root");
    CHECK(!regdelete("HKCU\\Quillmere test value"));
}

TEST_CASE("paths are joined, come apart, and change their extensions")
{
    char out[PATHSIZE];
    auto join = [](char *path, const char *leaf) { return fs_strcat(path, 7, leaf); };
    rows("fs_strcat", change(join, "x"), {{"dir\\", "dir\\x"}, {"dir", "dir\\x"}, {"", "\\x"}});
    rows("fs_strcat", change(join, "de"), {{"abc", "abc\\de"}, {"abcd", "abcd EMAXSTRING"}});
    CHECK(code(fs_strcpycat(out, 6, "abcdef", "x")) == ERRORMAXSTRING);
    rows("leafname", [](const auto &in) { return leafname(in.c_str()); },
         {{"c:x", "x"}, {"a/b:c", "b:c"}, {"a\\b/c", "b/c"}, {"plain", "plain"}, {"dir\\", ""}});
    int32_t room = PATHSIZE;
    auto folder = [&](const std::string &in) {
        dirname(in.c_str(), out, room);
        return std::string(out);
    };
    rows("dirname", folder, {{"c:\\a\\b.qmg", "c:\\a"}, {"b.qmg", ""}, {"c:x", "c"}});
    room = 4;
    rows("dirname", folder, {{"abcdef\\x", "abc"}});
    CHECK(!pathgetext("dir.x\\leaf"));
    CHECK(pathhasext("x.QMG", "qmg") == 0);
    CHECK(pathhasext("qmg", "qmg") != 0);

    const std::string full(PATHSIZE - 3, 'n');
    rows("pathsetext", change(pathsetext, "txt"),
         {{"x.b.qmg", "x.b.txt"}, {"x.TXT", "x.TXT"}, {"d.x\\y", "d.x\\y.txt"}});
    rows("pathforceext", change(pathforceext, "metafile"),
         {{"x.TXT", "x.metafile"}, {"x.", "x.metafile"}, {full, full + " EMAXSTRING"}});
    rows("pathforceext", change(pathforceext, "x"), {{full, full + ".x"}});
    rows("pathinsert", change(pathinsert, "-2"),
         {{"a.b.qmg", "a.b-2.qmg"},
          {"d.x\\y", "d.x\\y-2"},
          {full, full + "-2"},
          {full + "n", full + "n EMAXSTRING"}});
}

TEST_CASE("a name tells its file type, and a type its extension and description")
{
    CHECK(filetypeof("a.qmg") == FILETYPEDATA); // no table knows it
    auto extension = [](const std::string &in) {
        char out[4];
        int32_t type = numberparse(in.c_str(), nullptr);
        filetypetext(type, out, sizeof out);
        return out + std::string(" ") + filetypedescription(type);
    };
    rows("filetypetext", extension, {{"0x103", " "}});
    typetable known(types);
    rows("filetypeof",
         [](const auto &in) {
             return std::to_string(filetypeof(in.c_str())) + " " +
                    std::to_string(filetypeofstrict(in.c_str()));
         },
         {{"c:\\x.y\\A.QmG", "259 259"},
          {"a,txt", "4095 4095"},
          {"a,fff", "4093 -1"},
          {"a", "4093 4093"},
          {"a.wmf", "256 256"},
          {"a.dat", "-2 -2"}});
    rows("filetypetext", extension,
         {{"0x103", "qmg Grid"}, {"0x102", "wmf Placeable"}, {"0xFFD", "dat Data"}, {"9", "dat "}});
    {
        typetable second(newer);
        CHECK(filetypeof("a.txt") == 7);
        CHECK(filetypeof("a.qmg") == 0x103);
    }
    CHECK(filetypeof("a.txt") == 0xFFF);
}

TEST_CASE("a shortcut's file takes its place, where the system has shortcuts")
{
    scratch place;
    const char target[] = "C:\\words\\caf\xE9.qmg";
    place.write("x.lnk", shortcut(target));
    std::string path = place.path("x.lnk");
    if (expanded(path) == path) {
        MESSAGE("skipped: no shortcuts on this system");
        return;
    }
    CHECK(expanded("\"" + place.path("X.LNK") + "\"") == target);
    pathfollow(false);
    CHECK(expanded(path) == path);
    pathfollow(true);
    place.write("x.lnk", "no shortcut");
    CHECK(expanded(path) == path);
}

TEST_CASE("a table of formats serves one save dialog")
{
    typetable known(types);
    catalogue("WORDS:Text of words\nTEXT:Texts\n");
    char path[PATHSIZE] = "a.qmg";
    int32_t current = 3; // a row that isn't there gives way to the first
    savefilterset(3, table, &current);
    savefilterbuild(path, 0xFFF, handler);
    CHECK(strings(savechoice.filter) == "Grid|*.qmg|Text of words|*.txt|Picture|*.wmf|");
    CHECK((savechoice.filterindex == 1 && savechoice.type == 0x103));
    CHECK(std::string(path) == "name0");
    for (int32_t row : {3, 4, 0})
        savefilterchange(row, path, sizeof path);
    CHECK((std::string(path) == "name2" && current == 2)); // what the next save offers
    CHECK(done("dir.x\\y.qmg") == "dir.x\\y.wmf 258");
    savefilterbuild(path, 0xFFF, handler);
    CHECK(strings(savechoice.filter) == "Text|*.txt|");
    savefilterchange(2, path, sizeof path); // a single format: nothing to change to
    rows("savefilterdone", done, {{"x.qmg", "x.txt 4095"}, {"x.TXT", "x.TXT 4095"}});
    std::string full(PATHSIZE - 2, 'p');
    saved.clear();
    CHECK(code(savefilterdone(full.c_str(), path, sizeof path)) == ERRORMAXSTRING);
    CHECK(code(savefilterdone("a.txt", path, 5)) == ERRORMAXSTRING); // the caller's own room
    CHECK(saved == "");
}

TEST_CASE("a load filter lists the patterns of each row, as many as it holds")
{
    typetable known(types);
    constexpr int32_t textandall[] = {0xFFF, -1}, grids[] = {0x103}, unknown[] = {9999};
    loadgroup groups[] = {{"{TEXT}", 2, textandall}, {"Grids", 1, grids}, {"Grids", 1, unknown}};
    catalogue("TEXT:Texts\n");
    CHECK(strings(loadfilterbuild(groups, 3)) == "Texts|*.txt;*.*;|Grids|*.qmg;|Grids|*.dat;|");
    const std::string many(80 * sizeof(int32_t), 0);
    loadgroup longrow = {"Many", 80, reinterpret_cast<const int32_t *>(many.data())};
    CHECK(strings(loadfilterbuild(&longrow, 1)) == "");
}
