#include "base/userfiles.h"

#include "base/errors.h"
#include "base/platform.h"
#include "tests/base/scratch.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace
{

namespace fs = std::filesystem;

// The one place for application data that this run has.
void dataset(const std::string &folder)
{
    static char variable[2 * PATHSIZE];
    strcpy(variable, ("APPDATA=" + folder).c_str());
    REQUIRE(putenv(variable) == 0);
}

// A folder of application data, and one beside the test program that no other
// run uses.
struct userfolders {
    scratch place;
    std::string kind = "Kind" + std::to_string(platformclock());
    fs::path beside, elsewhere;
    std::string leaf;

    userfolders()
    {
        char directory[PATHSIZE], login[256];
        REQUIRE_FALSE(platformprogramdirectory(directory, sizeof directory));
        REQUIRE_FALSE(platformloginname(login, sizeof login));
        directory[strlen(directory) - 1] = 0; // its separator
        leaf = std::string(login) + ".txt";
        beside = fs::path(directory) / kind;
        elsewhere = fs::path(place.folder) / "Quillmere" / kind;
        dataset(place.folder);
    }
    ~userfolders()
    {
        dataset("");
        std::error_code ignored;
        fs::remove_all(beside, ignored);
    }

    bool found(const fs::path &folder) const
    {
        char path[PATHSIZE];
        CHECK_FALSE(userfilefind(kind.c_str(), "txt", path));
        std::string name = path;
        for (char &ch : name)
            if (ch == '\\') ch = '/';
        return fs::path(name) == fs::path(folder.generic_string()) / leaf;
    }
    errorblock *save(userfilewriter write) const
    {
        return userfilesave(kind.c_str(), "txt", write);
    }
    std::string text(const fs::path &folder) const
    {
        std::ifstream file(folder / leaf, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void age(const fs::path &folder) const
    {
        fs::last_write_time(folder / leaf,
                            fs::file_time_type::clock::now() - std::chrono::hours(1));
    }
};

errorblock *one(const char *path)
{
    return filesave(path, 0, "one", 3);
}
errorblock *two(const char *path)
{
    return filesave(path, 0, "two", 3);
}
int failures; // calls that still fail
errorblock *failing(const char *path)
{
    return failures-- > 0 ? makeerrortext(ERRORWRITE, "%s", path) : two(path);
}

} // namespace

TEST_CASE("a user's file lies beside the program, in a folder made for it")
{
    userfolders folders;
    CHECK(folders.found(folders.beside)); // where it will be
    CHECK_FALSE(fs::exists(folders.beside));
    CHECK_FALSE(folders.save(one));
    CHECK(folders.text(folders.beside) == "one");
    CHECK_FALSE(folders.save(two));
    CHECK(folders.text(folders.beside) == "two");
    CHECK(folders.found(folders.beside));
    CHECK_FALSE(fs::exists(fs::path(folders.place.folder) / "Quillmere"));
}

TEST_CASE("where nothing can be written beside the program it goes to the user's data")
{
    userfolders folders;
    failures = 1;
    CHECK_FALSE(folders.save(failing));
    CHECK(folders.text(folders.elsewhere) == "two");
    CHECK(folders.found(folders.elsewhere));

    // Also where an older one stays that could be written then.
    CHECK_FALSE(folders.save(one));
    folders.age(folders.beside);
    CHECK(folders.found(folders.elsewhere));

    // What was saved last is what is read, wherever it went.
    folders.age(folders.elsewhere);
    CHECK_FALSE(folders.save(one));
    CHECK(folders.found(folders.beside));
}

TEST_CASE("with no place to save to, the first error is told")
{
    userfolders folders;
    failures = 2;
    std::string told = words(folders.save(failing));
    CHECK(told.find("Quillmere") == std::string::npos);
    CHECK(told.find(folders.kind) != std::string::npos);

    dataset(""); // a system without such a folder
    CHECK(folders.found(folders.beside));
    failures = 1;
    CHECK(words(folders.save(failing)).find(folders.kind) != std::string::npos);
}
