#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "base/registry.h"
#include "tests/base/scratch.h"

#include <cstdlib>
#include <cstring>

namespace
{

std::string expanded(const std::string &in, int32_t size = PATHSIZE)
{
    char out[PATHSIZE + 8];
    memset(out, '!', sizeof out);
    CHECK(pathexpand(in.c_str(), out, size) == nullptr);
    for (size_t i = static_cast<size_t>(size); i < sizeof out; i++)
        CHECK(out[i] == '!');
    return out;
}

std::string joined(const char *path, const char *leaf, int32_t size, uint32_t error = 0)
{
    char out[PATHSIZE];
    strcpy(out, path);
    CHECK(code(fs_strcat(out, size, leaf)) == error);
    return out;
}

std::string folderof(const char *path, int32_t size = PATHSIZE)
{
    char out[PATHSIZE];
    dirname(path, out, size);
    return out;
}

std::string changed(errorblock *(*change)(char *, const char *), const std::string &path,
                    const char *text)
{
    char out[PATHSIZE];
    strcpy(out, path.c_str());
    CHECK(change(out, text) == nullptr);
    return out;
}

constexpr char KEY[] = "HKEY_CURRENT_USER\\Software\\Quillmere test";

// A key of this test's own in the store, gone at the end.
struct testkey {
    testkey()
    {
        CHECK(regwrite(value("").c_str(), "C:\\Words") == nullptr);
    }
    ~testkey()
    {
        CHECK(regdelete((std::string(KEY) + "\\").c_str()) == nullptr);
    }
    static std::string value(const std::string &name)
    {
        return std::string(KEY) + "\\" + name;
    }
};

// The text of a value, "none" where it can't be read.
std::string stored(const std::string &key)
{
    char out[64] = "untouched";
    int32_t size = sizeof out;
    errorblock *err = regread(key.c_str(), out, &size);
    CHECK(size == (out[0] ? static_cast<int32_t>(strlen(out)) + 1 : 0));
    if (err) CHECK(out[0] == 0);
    return err ? "none" : out;
}

constexpr filetyperow rows[] = {
    {0x103, "qmg", "Grid"},          {0xFFF, "txt", "Text"},      {0xFFD, nullptr, "Data"},
    {0x100, "wmf", "Metafile"},      {0x102, "wmf", "Placeable"}, {-2, "dat", "Default"},
    {FILETYPEEND, nullptr, nullptr},
};
constexpr filetyperow newer[] = {{7, "txt", "Newer"}, {FILETYPEEND, nullptr, nullptr}};

std::string extension(int32_t type)
{
    char out[32];
    filetypetext(type, out, sizeof out);
    return out;
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

TEST_CASE("plain path characters pass, quotes don't")
{
    CHECK(expanded("\"C:\\My words\\a.qmg\"") == "C:\\My words\\a.qmg");
    CHECK(expanded("<<x>") == "<x>");
    CHECK(expanded("a<<<b") == "a<<b");
    for (const char *same : {"a<b", "", "<>", "<NOSUCHROOT\\x\\y>\\z", "<noroot>\\z"})
        CHECK(expanded(same) == same);

    CHECK(expanded("abcdef", 4) == "abc");
    CHECK(expanded("abcdef", 1) == "");
    std::string full(400, 'p');
    CHECK(expanded(full) == full.substr(0, PATHSIZE - 1));
    CHECK(expanded("<" + full + ">") == ("<" + full).substr(0, PATHSIZE - 1));
}

TEST_CASE("a macro gives an environment variable")
{
    const char *variable = std::getenv("PATH");
    REQUIRE(variable);
    std::string value = variable, macro = "<%PATH%>";
    CHECK(expanded(macro) == (value.size() < PATHSIZE ? value : macro));
    CHECK(expanded("<%NOSUCHVARIABLE%>\\x") == "%NOSUCHVARIABLE%\\x");
}

TEST_CASE("a macro gives a registry value, and what follows goes on")
{
    testkey key;
    std::string root = "<" + std::string(KEY) + "\\";
    CHECK(expanded(root + ">") == "C:\\Words");
    CHECK(expanded(root + ">\\Main.dic") == "C:\\Words\\Main.dic");
    CHECK(expanded("<HKCU\\Software\\Quillmere test\\>") == "C:\\Words");
    CHECK(expanded("<hkcu\\Software\\Quillmere test\\>") == "<hkcu\\Software\\Quillmere test\\>");
    CHECK(expanded(root + "missing>") == root + "missing>");

    const struct {
        const char *name, *path, *after;
        std::string value;
    } rows[] = {{"empty", "empty>\\x", "", ""},
                {"a>b", "a>b>c", "bothc", "both"}, // a name may hold the closing bracket
                {"long", "long>", "", std::string(300, 'v')}}; // for a path
    for (const auto &row : rows) {
        std::string macro = root + row.path;
        CHECK(regwrite(testkey::value(row.name).c_str(), row.value.c_str()) == nullptr);
        CHECK(expanded(macro) == (*row.after ? row.after : macro));
    }
}

TEST_CASE("registry values are written, read and deleted")
{
    testkey key;
    std::string value = testkey::value("name");
    CHECK(stored(value) == "none");
    CHECK(regwrite(value.c_str(), "text \xE9") == nullptr);
    CHECK(stored(value) == "text \xE9");
    CHECK(stored("no backslash") == ""); // nothing was opened, and nothing is wrong
    CHECK(stored("NOROOT\\a\\b") == "none");

    char small[4] = "";
    int32_t size = sizeof small;
    CHECK(regread(value.c_str(), small, &size) != nullptr);
    CHECK(size == 0);

    void *address;
    CHECK(regreadnew(value.c_str(), &address, &size) == nullptr);
    CHECK(size == 7);
    CHECK(std::string(static_cast<char *>(address)) == "text \xE9");
    heap_free(&address);
    CHECK(regreadnew(testkey::value("other").c_str(), &address, &size) != nullptr);
    CHECK(address == nullptr);

    CHECK(regdelete(value.c_str()) == nullptr);
    CHECK(regdelete(value.c_str()) != nullptr);
    CHECK(stored(value) == "none");
}

TEST_CASE("the entries of a key are read one after the other")
{
    testkey key;
    std::string below = testkey::value("below\\"), deep = below + "deep\\";
    CHECK(regwrite((deep + "v").c_str(), "1") == nullptr);
    keyhandle handle = 1;
    CHECK(regopen("nothing", &handle, "r") == nullptr);
    CHECK(handle == 0);
    CHECK(regclose(&handle, nullptr) == nullptr);
    REQUIRE(regopen(KEY, &handle, "r") == nullptr);

    char name[64], data[64];
    int32_t index = 0, size = sizeof data;
    uint32_t type;
    CHECK(regenumkey(handle, name, sizeof name, &index) == nullptr);
    CHECK(std::string(name) == "below");
    CHECK(index == 1);
    CHECK(regenumkey(handle, name, sizeof name, &index) != nullptr);
    CHECK(index == 1);

    index = 0;
    CHECK(regenumvalue(handle, name, sizeof name, &type, data, &size, &index) == nullptr);
    CHECK(std::string(name) == "");
    CHECK(std::string(data) == "C:\\Words");
    CHECK(type == VALUETEXT);
    CHECK(regenumvalue(handle, name, sizeof name, &type, data, &size, &index) != nullptr);
    CHECK(regclose(&handle, nullptr) == nullptr);
    CHECK(handle == 0);

    CHECK(regdelete(below.c_str()) != nullptr); // holds a key
    CHECK(regdelete(deep.c_str()) == nullptr);
    CHECK(regdelete(below.c_str()) == nullptr);
}

TEST_CASE("a path and a leaf are joined by one backslash")
{
    CHECK(joined("dir\\", "x", PATHSIZE) == "dir\\x");
    CHECK(joined("dir", "x", PATHSIZE) == "dir\\x");
    CHECK(joined("", "x", PATHSIZE) == "\\x");
    CHECK(joined("abc", "de", 7) == "abc\\de");
    CHECK(joined("abc", "def", 7, ERRORMAXSTRING) == "abc");

    char out[6];
    CHECK(fs_strcpycat(out, sizeof out, "ab", "cd") == nullptr);
    CHECK(std::string(out) == "ab\\cd");
    CHECK(code(fs_strcpycat(out, sizeof out, "abcdef", "x")) == ERRORMAXSTRING);
}

TEST_CASE("a path comes apart")
{
    CHECK(std::string(leafname("c:x")) == "x");
    CHECK(std::string(leafname("a/b:c")) == "b:c");
    CHECK(std::string(leafname("a\\b/c")) == "b/c"); // a backslash goes before the others
    CHECK(std::string(leafname("plain")) == "plain");
    CHECK(std::string(leafname("dir\\")) == "");
    CHECK(folderof("c:\\a\\b.qmg") == "c:\\a");
    CHECK(folderof("b.qmg") == "");
    CHECK(folderof("c:x") == "c");
    CHECK(folderof("abcdef\\x", 4) == "abc");
}

TEST_CASE("extensions are looked at and changed")
{
    CHECK(pathgetext("dir.x\\leaf") == nullptr);
    CHECK(std::string(pathgetext("a.b.c")) == "c");
    CHECK(pathhasext("x.QMG", "qmg") == 0);
    CHECK(pathhasext("x.qmg2", "qmg") != 0);
    CHECK(pathhasext("qmg", "qmg") != 0);
    CHECK(changed(pathsetext, "x.qmg", "txt") == "x.txt");
    CHECK(changed(pathsetext, "x.TXT", "txt") == "x.TXT");
    CHECK(changed(pathsetext, "d.x\\y", "txt") == "d.x\\y.txt");
    CHECK(changed(pathforceext, "x.TXT", "txt") == "x.txt");
    CHECK(changed(pathforceext, "x.", "metafile") == "x.metafile");
    CHECK(changed(pathinsert, "a.b.qmg", "-2") == "a.b-2.qmg");
    CHECK(changed(pathinsert, "d.x\\y", "-2") == "d.x\\y-2");
}

TEST_CASE("an extension that doesn't fit changes nothing")
{
    char path[PATHSIZE];
    std::string full(PATHSIZE - 3, 'n');
    for (auto change : {pathsetext, pathforceext, pathinsert}) {
        strcpy(path, full.c_str());
        CHECK(code(change(path, "xyz")) == ERRORMAXSTRING);
        CHECK(path == full);
    }
    CHECK(pathsetext(path, "x") == nullptr);
    CHECK(path == full + ".x");
}

TEST_CASE("a name tells its file type")
{
    CHECK(filetypeof("a.qmg") == FILETYPEDATA); // no table knows it
    typetable table(rows);
    const struct {
        const char *name;
        int32_t type;
    } names[] = {{"a.qmg", 0x103},     {"c:\\x.y\\A.QmG", 0x103},
                 {"a,txt", 0xFFF},     {"a,fff", 0xFFD},
                 {"a", 0xFFD},         {"a.unknown", 0xFFD},
                 {"a,txt.qmg", 0x103}, {"a.wmf", 0x100}, // the first row that matches
                 {"a.dat", -2}};
    for (const auto &row : names)
        CHECK(filetypeof(row.name) == row.type);
    CHECK(filetypeofstrict("a.txt") == 0xFFF);
    CHECK(filetypeofstrict("a.unknown") == -1);
    CHECK(filetypeofstrict("a") == 0xFFD);
}

TEST_CASE("a type tells its extension and description")
{
    CHECK(extension(0x103) == "");
    typetable table(rows);
    CHECK(extension(0x103) == "qmg");
    CHECK(extension(0x102) == "wmf");
    CHECK(extension(0xFFD) == "dat");
    CHECK(extension(12345) == "dat");
    CHECK(std::string(filetypedescription(0x102)) == "Placeable");
    CHECK(std::string(filetypedescription(12345)) == "");
    char cut[3];
    filetypetext(0x103, cut, sizeof cut);
    CHECK(std::string(cut) == "qm");

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
    std::string found = expanded(path);
    if (found == path) {
        MESSAGE("skipped: no shortcuts on this system");
        return;
    }
    CHECK(found == target);
    CHECK(expanded("\"" + place.path("X.LNK") + "\"") == target);
    pathfollow(false);
    CHECK(expanded(path) == path);
    pathfollow(true);
    place.write("x.lnk", "no shortcut");
    CHECK(expanded(path) == path);
    CHECK(expanded(place.path("none.lnk")) == place.path("none.lnk"));
}
