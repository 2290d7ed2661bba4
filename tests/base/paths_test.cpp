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

std::string joined(const char *path, const char *leaf, int32_t size, uint32_t code = 0)
{
    char out[PATHSIZE];
    strcpy(out, path);
    errorblock *err = fs_strcat(out, size, leaf);
    CHECK((err ? err->code : 0) == code);
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
    static std::string value(const char *name)
    {
        return std::string(KEY) + "\\" + name;
    }
};

std::string stored(const std::string &key, uint32_t *code = nullptr)
{
    char out[64] = "untouched";
    int32_t size = sizeof out;
    errorblock *err = regread(key.c_str(), out, &size);
    if (code) *code = err ? err->code : 0;
    CHECK(size == (err || !out[0] ? 0 : static_cast<int32_t>(strlen(out)) + 1));
    return out;
}

constexpr filetyperow rows[] = {
    {0x103, "qmg", "Grid"},          {0xFFF, "txt", "Text"},      {0xFFD, nullptr, "Data"},
    {0x100, "wmf", "Metafile"},      {0x102, "wmf", "Placeable"}, {-2, "dat", "Default"},
    {FILETYPEEND, nullptr, nullptr},
};
constexpr filetyperow newer[] = {{7, "txt", "Newer"}, {FILETYPEEND, nullptr, nullptr}};

struct typetable {
    filetypenode node, second;
    typetable()
    {
        addfiletypes(rows, &node);
    }
    ~typetable()
    {
        remfiletypes(&node);
    }
};

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
    CHECK(expanded("a<b") == "a<b");
    CHECK(expanded("a<<<b") == "a<<b");
    CHECK(expanded("") == "");
    CHECK(expanded("<>") == "<>");
    CHECK(expanded("<NOSUCHROOT\\x\\y>\\z") == "<NOSUCHROOT\\x\\y>\\z");
    CHECK(expanded("<noroot>\\z") == "<noroot>\\z");
}

TEST_CASE("an expansion is cut at the buffer's end")
{
    CHECK(expanded("abcdef", 4) == "abc");
    CHECK(expanded("abcdef", 1) == "");
    std::string length(400, 'p');
    CHECK(expanded(length) == length.substr(0, PATHSIZE - 1));
    CHECK(expanded("<" + length + ">") == ("<" + length).substr(0, PATHSIZE - 1));
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

    SUBCASE("an empty value leaves the macro in the text")
    {
        CHECK(regwrite(testkey::value("empty").c_str(), "") == nullptr);
        CHECK(expanded(root + "empty>\\x") == root + "empty>\\x");
    }
    SUBCASE("a name may hold the closing bracket")
    {
        CHECK(regwrite(testkey::value("a>b").c_str(), "both") == nullptr);
        CHECK(expanded(root + "a>b>c") == "bothc");
    }
    SUBCASE("a value that is too long for a path is none")
    {
        CHECK(regwrite(testkey::value("long").c_str(), std::string(300, 'v').c_str()) == nullptr);
        CHECK(expanded(root + "long>") == root + "long>");
    }
}

TEST_CASE("registry values are written, read and deleted")
{
    testkey key;
    uint32_t code;
    std::string value = testkey::value("name");
    CHECK(stored(value, &code) == "");
    CHECK(code != 0);
    CHECK(regwrite(value.c_str(), "text \xE9") == nullptr);
    CHECK(stored(value, &code) == "text \xE9");
    CHECK(code == 0);
    CHECK(stored("no backslash", &code) == "");
    CHECK(code == 0); // nothing was opened, and nothing is wrong
    CHECK(stored("NOROOT\\a\\b", &code) == "");
    CHECK(code != 0);

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
    CHECK(stored(value) == "");
}

TEST_CASE("the entries of a key are read one after the other")
{
    testkey key;
    std::string below = testkey::value("below") + "\\deep\\";
    CHECK(regwrite((below + "v").c_str(), "1") == nullptr);
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

    CHECK(regdelete((testkey::value("below") + "\\").c_str()) != nullptr); // holds a key
    CHECK(regdelete(below.c_str()) == nullptr);
    CHECK(regdelete((testkey::value("below") + "\\").c_str()) == nullptr);
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
    errorblock *err = fs_strcpycat(out, sizeof out, "abcdef", "x");
    REQUIRE(err);
    CHECK(err->code == ERRORMAXSTRING);
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
        errorblock *err = change(path, "xyz");
        REQUIRE(err);
        CHECK(err->code == ERRORMAXSTRING);
        CHECK(path == full);
    }
    CHECK(pathsetext(path, "x") == nullptr);
    CHECK(path == full + ".x");
}

TEST_CASE("a name tells its file type")
{
    CHECK(filetypeof("a.qmg") == FILETYPEDATA); // no table knows it
    typetable table;
    CHECK(filetypeof("a.qmg") == 0x103);
    CHECK(filetypeof("c:\\x.y\\A.QmG") == 0x103);
    CHECK(filetypeof("a,txt") == 0xFFF);
    CHECK(filetypeof("a,fff") == 0xFFD);
    CHECK(filetypeof("a") == 0xFFD);
    CHECK(filetypeof("a.unknown") == 0xFFD);
    CHECK(filetypeof("a,txt.qmg") == 0x103);
    CHECK(filetypeof("a.wmf") == 0x100); // the first row that matches
    CHECK(filetypeof("a.dat") == -2);
    CHECK(filetypeofstrict("a.txt") == 0xFFF);
    CHECK(filetypeofstrict("a.unknown") == -1);
    CHECK(filetypeofstrict("a") == 0xFFD);
}

TEST_CASE("a type tells its extension and description")
{
    CHECK(extension(0x103) == "");
    typetable table;
    CHECK(extension(0x103) == "qmg");
    CHECK(extension(0x102) == "wmf");
    CHECK(extension(0xFFD) == "dat");
    CHECK(extension(12345) == "dat");
    CHECK(std::string(filetypedescription(0x102)) == "Placeable");
    CHECK(std::string(filetypedescription(12345)) == "");
    char cut[3];
    filetypetext(0x103, cut, sizeof cut);
    CHECK(std::string(cut) == "qm");

    addfiletypes(newer, &table.second);
    CHECK(filetypeof("a.txt") == 7);
    CHECK(filetypeof("a.qmg") == 0x103);
    remfiletypes(&table.second);
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
