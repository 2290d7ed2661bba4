#include "base/errors.h"
#include "base/safesave.h"
#include "tests/base/scratch.h"

namespace
{

// Saves 1000 bytes of ch in two steps; the error of the whole.
errorblock *save(const std::string &path, char ch, int32_t buffer = 256)
{
    safesave to;
    std::string bytes(500, ch);
    errorblock *err = safeopen(path.c_str(), buffer, &to);
    if (!err) err = bwriteall(&to.file, bytes.data(), 500);
    if (!err) err = bwriteall(&to.file, bytes.data(), 500);
    return safeclose(&to, err);
}

// A folder with an old file in it.
struct oldfile : scratch {
    oldfile()
    {
        write("f", "old");
    }
    std::string path() const
    {
        return scratch::path("f");
    }
    // Whether the old file is as it was, and nothing else is there.
    bool stands() const
    {
        return read("f") == "old" && !has("f.~new");
    }
};

} // namespace

TEST_CASE("the old file stands until the new one is whole and takes its place")
{
    scratch place;
    std::string path = place.path("f.dic");
    CHECK(save(path, 'a') == nullptr);
    safesave to;
    REQUIRE(safeopen(path.c_str(), 256, &to) == nullptr);
    CHECK(bwriteall(&to.file, std::string(600, 'n').data(), 600) == nullptr);
    CHECK(place.read("f.dic") == std::string(1000, 'a'));
    CHECK(place.has("f.dic.~new")); // which no scan takes for a dictionary
    CHECK(safeclose(&to, nullptr) == nullptr);
    CHECK(place.read("f.dic") == std::string(600, 'n'));
    CHECK(!place.has("f.dic.~new"));
}

TEST_CASE("whatever step fails, the old file is whole and nothing else is left")
{
    int failures = 0;
    for (int32_t platformfaultrecord::*step :
         {&platformfaultrecord::opens, &platformfaultrecord::writes, &platformfaultrecord::syncs,
          &platformfaultrecord::closes, &platformfaultrecord::replaces}) {
        for (int32_t n = 0;; n++) {
            oldfile place;
            platformfault.*step = n;
            errorblock *err = save(place.path(), 'x');
            if (!err) break;
            failures++;
            CHECK(code(err) == 31);
            CHECK(place.stands());
        }
    }
    CHECK(failures >= 5 + 2); // several writes each
    for (int32_t space = 0; space < 1000; space += 111) {
        oldfile place;
        platformfault.space = space;
        CHECK(words(save(place.path(), 'x')) == "(WriteFile) (112)");
        CHECK(place.stands());
    }
    oldfile place;
    flexfailafter(0);
    CHECK(code(save(place.path(), 'x', 128)) == ERRORMEMORY);
    CHECK(place.stands());
    flexfailafter(1);
    CHECK(save(place.path(), 'x', 128) == nullptr); // the buffer is all that it takes
}

TEST_CASE("the caller's error comes first, and undoes the save")
{
    for (int32_t writes : {-1, 0}) { // alone, or with a write that fails too
        oldfile place;
        safesave to;
        REQUIRE(safeopen(place.path().c_str(), 256, &to) == nullptr);
        CHECK(bputc(&to.file, 'x') == nullptr);
        platformfault.writes = writes;
        CHECK(code(safeclose(&to, makeerror(ERRORMEMORY))) == ERRORMEMORY);
        CHECK(place.stands());
    }
}

TEST_CASE("a write error that nobody passed on still counts")
{
    oldfile place;
    safesave to;
    REQUIRE(safeopen(place.path().c_str(), 256, &to) == nullptr);
    platformfault.writes = 0;
    CHECK(bwriteall(&to.file, std::string(600, 'x').data(), 600) != nullptr);
    CHECK(bwriteall(&to.file, std::string(600, 'y').data(), 600) == nullptr);
    CHECK(code(safeclose(&to, nullptr)) == ERRORWRITE);
    CHECK(place.stands());
}

TEST_CASE("a save that can't begin says why and may be closed")
{
    scratch place;
    safesave to;
    errorblock *err = safeopen(place.path("no\\such").c_str(), 256, &to);
    CHECK(words(err).find("(CreateFile)") != std::string::npos);
    CHECK(safeclose(&to, err) == err);
    CHECK(code(safeopen(std::string(PATHSIZE - 5, 'n').c_str(), 256, &to)) == ERRORMAXSTRING);
    CHECK(safeclose(&to, nullptr) == nullptr);
}

TEST_CASE("a save into a transfer touches no file")
{
    oldfile place;
    void *data;
    int32_t size = 0;
    ramwriteset(&data, &size);
    CHECK(save(place.path(), 'x') == nullptr);
    CHECK(size == 1000);
    CHECK(place.stands());
}
