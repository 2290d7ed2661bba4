#include "base/dates.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/syserr.h"
#include "tests/base/scratch.h"
#include "tools/headless.h"

#include <cstring>
#include <filesystem>
#include <utility>
#include <vector>

namespace
{

using namelist = std::vector<std::string>;

namelist scanned(const scratch &place, const char *pattern)
{
    namelist names;
    fileinfo info;
    int32_t done = 0;
    while (!findnext(place.folder.c_str(), &info, pattern, &done) && !done)
        names.emplace_back(info.name);
    CHECK(done == 1);
    return names;
}

// An object's record; of type 0 if there is none.
fileinfo infoof(const std::string &path)
{
    fileinfo info;
    memset(&info, 1, sizeof info);
    CHECK(fileinfoget(path.c_str(), &info) == nullptr);
    return info;
}

// Writes "abc" through a handle; the error of the first step that failed.
errorblock *savethree(const std::string &path)
{
    filehandle handle;
    errorblock *err = fileopen(path.c_str(), "w", &handle);
    if (!err) err = filewriteall(handle, "a", 1);
    if (!err) err = filewriteall(handle, "bc", 2);
    if (!err) err = filesync(handle);
    return fileclose(handle, err);
}

} // namespace

TEST_CASE("a missing object is no error for those who ask")
{
    scratch place;
    CHECK(infoof(place.path("none")).objecttype == OBJECTNONE);
    CHECK(infoof(place.path("no\\such\\folder")).objecttype == OBJECTNONE);

    int32_t type = 9;
    CHECK(fileobject(nullptr, &type) == nullptr);
    CHECK(type == OBJECTNONE);
    for (const std::string &path : {place.path("none"), place.folder}) {
        void *data = &type;
        int32_t size = 9;
        CHECK(fileloadnew(path.c_str(), &data, &size) == nullptr);
        CHECK(data == nullptr);
        CHECK(size == 0);
    }
    CHECK(fileload(place.path("none").c_str(), &type) == nullptr);
}

TEST_CASE("a file's record tells its kind, length and time")
{
    scratch place;
    time5 before, after, time;
    timeget(&before);
    place.write("a.txt", "12345");
    timeget(&after);
    timeadd(&before, 300, false); // a disc may count in steps of two seconds
    timeadd(&after, 300, true);
    fileinfo info = infoof("\"" + place.path("a.txt") + "\"");
    CHECK(info.objecttype == OBJECTFILE);
    CHECK(info.length == 5);
    CHECK((info.loadaddress >> 8) == 0xFFFFFD);
    CHECK(timefromfileinfo(&info, &time) == 1);
    CHECK(timecompare(&time, &before) == 1);
    CHECK(timecompare(&after, &time) == 1);
    CHECK(!isreadonly(info));

    CHECK(infoof(place.folder).objecttype == OBJECTDIRECTORY);
    CHECK(fileexists(place.folder.c_str(), "a.txt") == 1);
    CHECK(fileexists(place.folder.c_str(), "b.txt") == 0);
}

TEST_CASE("a file's time can be set")
{
    scratch place;
    place.write("old", "");
    std::string path = place.path("old");
    fileinfo was = infoof(path), info = was;
    time5 time = {0x12345678, 0x51}; // in 1999
    timetofileinfo(&info, &time);
    CHECK(filesettime(path.c_str(), &info) == nullptr);
    fileinfo now = infoof(path);
    CHECK(now.execaddress == time.low);
    CHECK((now.loadaddress & 0xFF) == time.high);
    CHECK(filetimecompare(&now, &was, 100) == -1);
    CHECK(filetimecompare(&was, &now, 100) == 1);

    info = now;
    info.execaddress += 50;
    CHECK(filetimecompare(&info, &now, 50) == 0);
    CHECK(filetimecompare(&info, &now, 49) == 1);
    CHECK(filetimecompare(&now, &info, 49) == -1);

    info.loadaddress = 0; // undated: the file keeps its time
    CHECK(filesettime(path.c_str(), &info) == nullptr);
    CHECK(infoof(path).execaddress == now.execaddress);
    CHECK(filesettime(place.path("none").c_str(), &now) == nullptr);
}

TEST_CASE("of two paths the second is picked first")
{
    scratch place;
    place.write("a", "");
    place.write("b", "");
    std::string a = place.path("a"), b = place.path("b"), none = place.path("none");
    auto picked = [](const char *first, const char *second, int32_t type) {
        const char *chosen = "unset";
        fileinfo info;
        CHECK(filepick(first, second, type, &chosen, &info) == nullptr);
        return chosen;
    };
    CHECK(picked(a.c_str(), b.c_str(), OBJECTFILE) == b.c_str());
    CHECK(picked(a.c_str(), none.c_str(), OBJECTFILE) == a.c_str());
    CHECK(picked(nullptr, b.c_str(), OBJECTFILE) == b.c_str());
    CHECK(picked(a.c_str(), b.c_str(), OBJECTDIRECTORY) == nullptr);
    CHECK(picked(nullptr, nullptr, OBJECTFILE) == nullptr);
}

TEST_CASE("modes of opening")
{
    scratch place;
    std::string path = place.path("f");
    filehandle handle = 1;
    CHECK(words(fileopen(path.c_str(), "r", &handle)).ends_with("(CreateFile) (2) (" + path + ")"));
    CHECK(handle == 0);
    CHECK(fileclose(handle, nullptr) == nullptr);
    CHECK(fileopen(place.folder.c_str(), "r", &handle) != nullptr); // a folder is no file
    CHECK(fileopen(place.folder.c_str(), "w", &handle) != nullptr);

    CHECK(filesave(path.c_str(), 0, "hello", 5) == nullptr);
    REQUIRE(fileopen(path.c_str(), "u", &handle) == nullptr); // update keeps what is there
    CHECK(filewriteat(handle, 1, "EL", 2) == nullptr);
    for (int32_t want : {int{'l'}, int{'o'}, -1}) {
        int32_t byte, position, end;
        CHECK(filegetc(handle, &byte) == nullptr);
        CHECK(byte == want);
        CHECK(filetell(handle, &position) == nullptr);
        CHECK(position == (want == 'l' ? 4 : 5));
        CHECK(fileateof(handle, &end) == nullptr);
        CHECK(end == (want != 'l'));
    }
    CHECK(filetruncate(handle, 3) == nullptr);
    CHECK(fileclose(handle, nullptr) == nullptr);
    CHECK(place.read("f") == "hEL");

    REQUIRE(fileopen(path.c_str(), "w", &handle) == nullptr); // writing begins anew
    CHECK(fileclose(handle, nullptr) == nullptr);
    CHECK(place.read("f") == "");
    CHECK(filewriteat(0, 5, nullptr, 0) == nullptr); // no bytes, no position
    CHECK(filereadat(0, 5, nullptr, 0) == nullptr);
}

TEST_CASE("a read past the end is an error, and a stream of the runtime opens too")
{
    scratch place;
    place.write("f", "abc");
    filehandle handle;
    char data[8] = "";
    REQUIRE(fileopen(place.path("f").c_str(), "r", &handle) == nullptr);
    CHECK(code(filereadat(handle, 1, data, 3)) == ERRORREAD);
    CHECK(filereadat(handle, 1, data, 2) == nullptr);
    CHECK(std::string(data) == "bc");
    CHECK(fileclose(handle, nullptr) == nullptr);

    FILE *file = fileopenstd(("\"" + place.path("f") + "\"").c_str(), "rb");
    REQUIRE(file);
    CHECK(std::fgetc(file) == 'a');
    std::fclose(file);
    CHECK(fileopenstd(place.path("none").c_str(), "rb") == nullptr);
}

TEST_CASE("objects are renamed, replaced and deleted")
{
    scratch place;
    place.write("a", "new");
    place.write("b", "old");
    std::string a = place.path("a"), b = place.path("b"), sub = place.path("sub");
    CHECK(filerename(a.c_str(), b.c_str()) != nullptr); // never over another file
    CHECK(place.read("b") == "old");
    CHECK(filereplace(a.c_str(), b.c_str()) == nullptr);
    CHECK(place.read("b") == "new");
    CHECK(!place.has("a"));
    CHECK(filerename(b.c_str(), a.c_str()) == nullptr);
    CHECK(filereplace(a.c_str(), b.c_str()) == nullptr); // nothing there to replace
    CHECK(place.read("b") == "new");
    CHECK(filereplace(a.c_str(), b.c_str()) != nullptr);

    CHECK(mkdir(sub.c_str()) == nullptr);
    CHECK(mkdir(sub.c_str()) == nullptr);
    place.write("sub/x", "");
    CHECK(filedelete(sub.c_str()) != nullptr);
    CHECK(filedelete((sub + "\\x").c_str()) == nullptr);
    CHECK(filedelete(sub.c_str()) == nullptr);
    CHECK(!place.has("sub"));
    CHECK(words(filedelete(sub.c_str())).find("(DeleteFile) (2)") != std::string::npos);
    CHECK(mkdir(place.path("no\\such").c_str()) != nullptr);
}

TEST_CASE("a scan gives names sorted without case, and only those that match")
{
    scratch place;
    CHECK(scanned(place, "*") == namelist{});
    for (const char *name :
         {"b.dic", "A.DIC", "c.dic.~new", "Main_2.dic", "mainDict.dic", "d.txt", "noext"})
        place.write(name, "");
    std::filesystem::create_directories(place.folder + "/z.dic");
    CHECK(scanned(place, "*.dic") ==
          namelist{"A.DIC", "b.dic", "mainDict.dic", "Main_2.dic", "z.dic"});
    CHECK(scanned(place, "?.d*") == namelist{"A.DIC", "b.dic", "c.dic.~new", "z.dic"});
    CHECK(scanned(place, "*.*").size() == 8);
    CHECK(scanned(place, "NOEXT") == namelist{"noext"});
    CHECK(scanned(place, "x*") == namelist{});

    fileinfo info;
    int32_t done;
    CHECK(findnext(place.path("b.dic").c_str(), &info, nullptr, &done) == nullptr);
    CHECK(done == 0);
    CHECK(info.objecttype == OBJECTFILE);
    CHECK(std::string(info.name) == "b.dic");
    CHECK(findclose() == nullptr);
    CHECK(findclose() == nullptr);
    CHECK(findnext(place.path("none").c_str(), &info, "*.dic", &done) != nullptr);
    CHECK(scanned(place, "d*") == namelist{"d.txt"}); // the failed scan is closed
}

TEST_CASE("a nested scan saves the outer one, and says so when it doesn't")
{
    scratch place;
    for (const char *name : {"a", "b", "c"})
        place.write(name, "");
    headless.keeptrace = true;
    fileinfo info;
    int32_t done;
    filehandle outer;
    REQUIRE(findnext(place.folder.c_str(), &info, "*", &done) == nullptr);
    findgethandle(&outer);
    CHECK(outer != 0);
    findsethandle(0);
    CHECK(headless.tracetext == "!!!!!! find handle overwrite in loadscan !!!!!\r\n");
    findreset();
    CHECK(scanned(place, "*") == namelist{"a", "b", "c"});
    headless.tracetext.clear();
    findsethandle(outer);
    CHECK(headless.tracetext == "");
    REQUIRE(findnext(place.folder.c_str(), &info, "*", &done) == nullptr);
    CHECK(std::string(info.name) == "b");
    findreset();
    CHECK(headless.tracetext == "!!!!!! find handle overwrite !!!!!\r\n");
    findsethandle(outer);
}

TEST_CASE("names outside ASCII reach the disc and come back")
{
    scratch place;
    const char *name = "caf\xE9 \x80.dic";
    CHECK(filesave(place.path(name).c_str(), 0, "x", 1) == nullptr);
    CHECK(scanned(place, "CAF\xC9*") == namelist{name});
    CHECK(fileexists(place.folder.c_str(), name) == 1);
    CHECK(filedelete(place.path(name).c_str()) == nullptr);
    CHECK(scanned(place, "*") == namelist{});
}

TEST_CASE("every step that fails is told once, and the first failure wins")
{
    scratch place;
    std::string path = place.path("f");
    const std::pair<int32_t *, const char *> steps[] = {
        {&platformfault.opens, "(CreateFile) (31)"},
        {&platformfault.writes, "(WriteFile) (31)"},
        {&platformfault.syncs, "(FlushFileBuffers) (31)"},
        {&platformfault.closes, "(CloseHandle) (31)"}};
    for (auto [step, told] : steps) {
        *step = 0;
        CHECK(words(savethree(path)) == told);
        CHECK(savethree(path) == nullptr);
    }
    platformfault.writes = 1;
    platformfault.closes = 0;
    CHECK(words(savethree(path)) == "(WriteFile) (31)");
    CHECK(place.read("f") == "a");
    platformfault.replaces = 0;
    CHECK(filereplace(path.c_str(), place.path("g").c_str()) != nullptr);
    CHECK(place.has("f"));
}

TEST_CASE("short reads and writes are made up for, a full disc isn't")
{
    scratch place;
    std::string path = place.path("f");
    char data[11] = "";
    platformfault.readlimit = platformfault.writelimit = 3;
    CHECK(filesave(path.c_str(), 0, "0123456789", 10) == nullptr);
    CHECK(fileload(path.c_str(), data) == nullptr);
    CHECK(std::string(data) == "0123456789");

    platformfault.writelimit = 0;
    CHECK(code(filesave(path.c_str(), 0, "01", 2)) == ERRORWRITE);
    platformfault = {};
    platformfault.space = 4;
    CHECK(words(filesave(path.c_str(), 0, "012345", 6)) == "(WriteFile) (112)");
    CHECK(place.read("f") == "0123");
}

TEST_CASE("a load that fails leaves nothing behind")
{
    scratch place;
    place.write("f", "abc");
    void *data;
    int32_t size;
    auto load = [&] { return fileloadnew(place.path("f").c_str(), &data, &size); };
    platformfault.reads = 0;
    CHECK(words(load()) == "(ReadFile) (31)");
    CHECK(data == nullptr);
    CHECK(size == 0);
    flexfailafter(0);
    CHECK(code(load()) == ERRORMEMORY);
    CHECK(data == nullptr);
    REQUIRE(load() == nullptr);
    CHECK(size == 3);
    CHECK(!memcmp(data, "abc", 3));
    heap_free(&data);
}

TEST_CASE("a failed call is reported with its name, code and details")
{
    CHECK(words(syserrnew(7, "Call")) == "(Call) (7)");
    CHECK(syserrcode(0, "Call") == nullptr);
    errorblock *err = syserrcode(2, "Call", "%s %d", "x", 5);
    CHECK(code(err) == 2);
    CHECK(words(err).size() > strlen("(Call) (2) (x 5)"));
    CHECK(words(err).ends_with("(Call) (2) (x 5)"));
    CHECK(words(syserrcode(2, "Call")).ends_with("(Call) (2)"));

    // The suffix has its own limit, whatever the message takes.
    std::string details(600, 'd');
    std::string text = words(syserrcode(2, "Call", "%s", details.c_str()));
    size_t suffix = text.find("(Call)");
    REQUIRE(suffix != std::string::npos);
    CHECK(text.size() - suffix == 251);
    CHECK(text.size() > 252);

    err = makeerrortext(77, "first");
    kepterror kept = keeperror(err);
    errorblock *other = makeerrortext(78, "second");
    CHECK(code(firsterror(kept, other)) == 77);
    CHECK(words(err) == "first");
    CHECK(firsterror(keeperror(nullptr), other) == other);
}
