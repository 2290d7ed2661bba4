#include "base/dates.h"
#include "base/flex.h"
#include "base/platform.h"
#include "base/userfiles.h"
#include "tests/base/scratch.h"
#include "tools/headless.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace
{

namespace fs = std::filesystem;

// The names of a scan, a space behind each.
std::string scanned(const scratch &place, const char *pattern)
{
    std::string names;
    fileinfo info;
    bool done = false;
    while (!findnext(place.folder.c_str(), &info, pattern, &done) && !done)
        names += info.name + std::string(" ");
    CHECK(done == 1);
    return names;
}

// An object's record; of type 0 if there is none.
fileinfo infoof(const std::string &path)
{
    fileinfo info;
    memset(&info, 1, sizeof info);
    CHECK(!fileinfoget(path.c_str(), &info));
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

// The one place for application data that this run has.
void dataset(const std::string &folder)
{
    static char variable[2 * PATHSIZE];
    strcpy(variable, ("APPDATA=" + folder).c_str());
    REQUIRE(putenv(variable) == 0);
}

int failures; // calls that still fail

errorblock *userwrite(const char *path)
{
    return failures-- > 0 ? makeerrortext(ERRORWRITE, "%s", path) : filesave(path, 0, "two", 3);
}

} // namespace

TEST_CASE("a file's record tells its kind, length and time, which can be set")
{
    scratch place;
    time5 before, after, time;
    timeget(&before);
    place.write("a.txt", "12345");
    place.write("b", "");
    timeget(&after);
    timeadd(&before, 300, false); // a disc may count in steps of two seconds
    timeadd(&after, 300, true);
    std::string path = place.path("a.txt"), b = place.path("b"), none = place.path("none");
    fileinfo was = infoof("\"" + path + "\""), info = was;
    CHECK(infoof(none).objecttype == OBJECTNONE);
    CHECK((was.objecttype == OBJECTFILE && was.length == 5 && !isreadonly(was)));
    CHECK((was.loadaddress >> 8) == 0xFFFFFD);
    CHECK(timefromfileinfo(&was, &time) == 1);
    CHECK((timecompare(&time, &before) == 1 && timecompare(&after, &time) == 1));
    CHECK(infoof(place.folder).objecttype == OBJECTDIRECTORY);
    CHECK(fileexists(place.folder.c_str(), "a.txt") == 1);

    time = {0x12345678, 0x51}; // in 1999
    timetofileinfo(&info, &time);
    CHECK(!filesettime(path.c_str(), &info));
    fileinfo now = infoof(path);
    CHECK((now.execaddress == time.low && (now.loadaddress & 0xFF) == time.high));
    CHECK(filetimecompare(&now, &was, 100) == -1);
    info.execaddress = now.execaddress + 50;
    CHECK(filetimecompare(&now, &info, 50) == 0);
    CHECK(filetimecompare(&info, &now, 49) == 1);
    info.loadaddress = 0; // undated: the file keeps its time
    CHECK(!filesettime(path.c_str(), &info));
    CHECK(infoof(path).execaddress == now.execaddress);
    CHECK(!filesettime(none.c_str(), &now));

    fs::permissions(place.folder + "/b", fs::perms::owner_read | fs::perms::group_read);
    CHECK(isreadonly(infoof(b)));
    fs::permissions(place.folder + "/b", fs::perms::owner_all);

    // Of two paths the second is picked first.
    auto picked = [&](const char *first, const char *second, int32_t type) {
        const char *chosen = "unset";
        CHECK(!filepick(first, second, type, &chosen, &info));
        return chosen;
    };
    CHECK(picked(path.c_str(), b.c_str(), OBJECTFILE) == b.c_str());
    CHECK(picked(path.c_str(), none.c_str(), OBJECTFILE) == path.c_str());
    CHECK(!picked(nullptr, b.c_str(), OBJECTDIRECTORY));
}

TEST_CASE("modes of opening")
{
    scratch place;
    std::string path = place.path("f");
    filehandle handle = 1;
    CHECK(words(fileopen(path.c_str(), "r", &handle)).ends_with("(CreateFile) (2) (" + path + ")"));
    CHECK(handle == 0);
    CHECK(!fileclose(handle, nullptr));
    CHECK(fileopen(place.folder.c_str(), "r", &handle)); // a folder is no file
    CHECK(fileopen(place.folder.c_str(), "w", &handle));

    CHECK(!filesave(path.c_str(), 0, "hello", 5));
    REQUIRE(!fileopen(path.c_str(), "u", &handle)); // update keeps what is there
    CHECK(!filewriteat(handle, 1, "EL", 2));
    for (int32_t want : {int{'l'}, int{'o'}, -1}) {
        int32_t byte, position, end;
        CHECK((!filegetc(handle, &byte) && byte == want));
        CHECK((!filetell(handle, &position) && position == (want == 'l' ? 4 : 5)));
        CHECK((!fileateof(handle, &end) && end == (want != 'l')));
    }
    char data[4] = "";
    CHECK(code(filereadat(handle, 3, data, 3)) == ERRORREAD);
    CHECK(!filereadat(handle, 1, data, 2));
    CHECK(std::string(data) == "EL");
    CHECK(!filetruncate(handle, 3));
    CHECK(!fileclose(handle, nullptr));
    CHECK(place.read("f") == "hEL");
    for (const std::string &missing : {place.path("none"), place.folder}) {
        void *whole = data;
        int32_t size = 9;
        CHECK(!fileloadnew(missing.c_str(), &whole, &size));
        CHECK((!whole && size == 0));
    }
    FILE *file = fileopenstd(("\"" + path + "\"").c_str(), "rb");
    REQUIRE(file);
    CHECK(std::fgetc(file) == 'h');
    std::fclose(file);
    std::string longer = path; // by one character, and cut it would be the file's
    while (longer.size() < PATHSIZE - 1)
        longer.insert(longer.size() - 1, longer.size() % 2 ? "./" : "/");
    longer += 'x';
    int32_t type = OBJECTFILE;
    CHECK(!fileopenstd(longer.c_str(), "rb"));
    CHECK(code(fileopen(longer.c_str(), "w", &handle)) == ERRORMAXSTRING);
    CHECK(words(filedelete(longer.c_str())).starts_with("The name of a file is longer than 259"));
    CHECK(!fileobject(longer.c_str(), &type));
    CHECK(type == OBJECTNONE);
    CHECK(place.read("f") == "hEL");
    REQUIRE(!fileopen(path.c_str(), "w", &handle)); // writing begins anew
    CHECK(!fileclose(handle, nullptr));
    CHECK(place.read("f") == "");
}

TEST_CASE("objects are renamed, replaced and deleted")
{
    scratch place;
    place.write("a", "new");
    place.write("b", "old");
    std::string a = place.path("a"), b = place.path("b"), sub = place.path("sub");
    CHECK(filerename(a.c_str(), b.c_str())); // never over another file
    CHECK(place.read("b") == "old");
    CHECK(!filereplace(a.c_str(), b.c_str()));
    CHECK((place.read("b") == "new" && !place.has("a")));
    CHECK(!filerename(b.c_str(), a.c_str()));
    CHECK(!filereplace(a.c_str(), b.c_str())); // nothing there to replace
    CHECK(filereplace(a.c_str(), b.c_str()));
    for (int twice = 0; twice < 2; twice++)
        CHECK(!mkdir(sub.c_str()));
    place.write("sub/x", "");
    CHECK(filedelete(sub.c_str()));
    CHECK(!filedelete((sub + "\\x").c_str()));
    CHECK(!filedelete(sub.c_str()));
    CHECK(words(filedelete(sub.c_str())).find("(DeleteFile) (2)") != std::string::npos);
    CHECK(mkdir(place.path("no\\such").c_str()));
}

TEST_CASE("a scan gives names sorted without case, and only those that match")
{
    scratch place;
    headless.keeptrace = true;
    for (const char *name :
         {"b.dic", "A.DIC", "c.dic.~new", "Main_2.dic", "mainDict.dic", "d.txt", "noext"})
        place.write(name, "");
    CHECK(!filesave(place.path("caf\xE9 \x80.dic").c_str(), 0, "x", 1));
    fs::create_directories(place.folder + "/z.dic");
    rows("findnext", [&](const auto &in) { return scanned(place, in.c_str()); },
         {{"*.dic", "A.DIC b.dic caf\xE9 \x80.dic mainDict.dic Main_2.dic z.dic "},
          {"?.d*", "A.DIC b.dic c.dic.~new z.dic "},
          {"NOEXT", "noext "},
          {"CAF\xC9*", "caf\xE9 \x80.dic "},
          {"x*", ""}});
    CHECK(scanned(place, "*.*") == scanned(place, "*"));

    fileinfo info;
    bool done;
    CHECK(!findnext(place.path("b.dic").c_str(), &info, nullptr, &done));
    CHECK(std::string(info.name) == "b.dic");
    CHECK(!findclose());
    CHECK(findnext(place.path("none").c_str(), &info, "*.dic", &done));

    // A nested scan saves the outer one, and says so when it doesn't.
    filehandle outer;
    REQUIRE(!findnext(place.folder.c_str(), &info, "*.d*", &done));
    findgethandle(&outer);
    CHECK(headless.tracetext == "");
    findsethandle(0);
    CHECK(scanned(place, "d*") == "d.txt ");
    findsethandle(outer);
    CHECK(headless.tracetext == "!!!!!! find handle overwrite in loadscan !!!!!\r\n");
    REQUIRE(!findnext(place.folder.c_str(), &info, "*", &done));
    CHECK(std::string(info.name) == "b.dic");
}

TEST_CASE("every step that fails is told once, and what is short is made up for")
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
        CHECK(!savethree(path));
    }
    platformfault.writes = 1;
    platformfault.closes = 0; // the first failure wins
    CHECK(words(savethree(path)) == "(WriteFile) (31)");

    char text[11] = "";
    platformfault.readlimit = platformfault.writelimit = 3; // a full disc isn't made up for
    CHECK(!filesave(path.c_str(), 0, "0123456789", 10));
    CHECK(!fileload(path.c_str(), text));
    CHECK(std::string(text) == "0123456789");
    platformfault.writelimit = 0;
    CHECK(code(filesave(path.c_str(), 0, "01", 2)) == ERRORWRITE);
    platformfault = {};
    platformfault.space = 4;
    CHECK(words(filesave(path.c_str(), 0, "012345", 6)) == "(WriteFile) (112)");
    CHECK(place.read("f") == "0123");

    void *data;
    int32_t size;
    auto load = [&] { return fileloadnew(path.c_str(), &data, &size); };
    platformfault.reads = 0;
    CHECK(words(load()) == "(ReadFile) (31)");
    CHECK(size == 0);
    flexfailafter(0);
    CHECK(code(load()) == ERRORMEMORY);
    CHECK(!data);
}

TEST_CASE("a user's file lies beside the program or, where nothing can be written, in his data")
{
    scratch place;
    char directory[PATHSIZE], login[256], found[PATHSIZE];
    REQUIRE(!platformprogramdirectory(directory, sizeof directory));
    REQUIRE(!platformloginname(login, sizeof login));
    std::string kind = "Kind" + std::to_string(platformclock()), leaf = login + std::string(".txt");
    fs::path beside = fs::path(directory, directory + strlen(directory) - 1) / kind / leaf;
    fs::path elsewhere = fs::path(place.folder) / "Quillmere" / kind / leaf;
    auto isat = [&](const fs::path &path) {
        CHECK(!userfilefind(kind.c_str(), "txt", found));
        std::replace(found, found + strlen(found), '\\', '/');
        return fs::path(found) == fs::path(path.generic_string());
    };
    auto save = [&](int failing) {
        failures = failing;
        return words(userfilesave(kind.c_str(), "txt", userwrite));
    };
    dataset(place.folder);
    CHECK(isat(beside)); // where it will be
    CHECK(save(0) == "");
    CHECK(fs::exists(beside));
    // What was saved last is what is read, wherever it went.
    fs::last_write_time(beside, fs::file_time_type::clock::now() - std::chrono::hours(1));
    CHECK(save(1) == "");
    CHECK(isat(elsewhere));
    fs::remove(beside);
    CHECK(isat(elsewhere));

    std::string told = save(2); // the first error is told
    CHECK(told.find("Quillmere") == std::string::npos);
    CHECK(told.find(kind) != std::string::npos);
    dataset(""); // a system without such a folder
    CHECK(isat(beside));
    CHECK(save(1).find(kind) != std::string::npos);
    fs::remove_all(beside.parent_path());
}
