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

} // namespace

TEST_CASE("a save takes the old file's place")
{
    scratch place;
    std::string path = place.path("f.dic");
    CHECK(save(path, 'a') == nullptr);
    CHECK(place.read("f.dic") == std::string(1000, 'a'));
    CHECK(save(path, 'b') == nullptr);
    CHECK(place.read("f.dic") == std::string(1000, 'b'));
    CHECK(!place.has("f.dic.~new"));
}

TEST_CASE("the old file stands until the new one is whole")
{
    scratch place;
    place.write("f.dic", "old");
    safesave to;
    REQUIRE(safeopen(place.path("f.dic").c_str(), 256, &to) == nullptr);
    CHECK(bwriteall(&to.file, std::string(600, 'n').data(), 600) == nullptr);
    CHECK(place.read("f.dic") == "old");
    CHECK(place.has("f.dic.~new"));
    fileinfo info;
    int32_t done = 0, found = 0;
    while (!findnext(place.folder.c_str(), &info, "*.dic", &done) && !done)
        found++;
    CHECK(found == 1); // the unfinished one is no dictionary
    CHECK(safeclose(&to, nullptr) == nullptr);
    CHECK(place.read("f.dic") == std::string(600, 'n'));
}

TEST_CASE("whatever step fails, the old file is whole and nothing else is left")
{
    int failures = 0;
    for (int32_t platformfaultrecord::*step :
         {&platformfaultrecord::opens, &platformfaultrecord::writes, &platformfaultrecord::syncs,
          &platformfaultrecord::closes, &platformfaultrecord::replaces}) {
        for (int32_t n = 0;; n++) {
            scratch place;
            place.write("f", "old");
            platformfault.*step = n;
            errorblock *err = save(place.path("f"), 'x');
            if (!err) break;
            failures++;
            CHECK(err->code == 31);
            CHECK(place.read("f") == "old");
            CHECK(!place.has("f.~new"));
        }
    }
    CHECK(failures >= 5 + 2); // several writes each
    for (int32_t space = 0; space < 1000; space += 111) {
        scratch place;
        place.write("f", "old");
        platformfault.space = space;
        CHECK(words(save(place.path("f"), 'x')) == "(WriteFile) (112)");
        CHECK(place.read("f") == "old");
        CHECK(!place.has("f.~new"));
    }
    for (int32_t n = 0; n < 2; n++) {
        scratch place;
        place.write("f", "old");
        flexfailafter(n);
        errorblock *err = save(place.path("f"), 'x', 128);
        flexfailafter(-1);
        CHECK((err != nullptr) == (n == 0)); // the buffer is all that it takes
        CHECK(place.read("f") == (err ? "old" : std::string(1000, 'x')));
    }
}

TEST_CASE("the caller's error comes first, and undoes the save")
{
    scratch place;
    place.write("f", "old");
    safesave to;
    REQUIRE(safeopen(place.path("f").c_str(), 256, &to) == nullptr);
    CHECK(bputc(&to.file, 'x') == nullptr);
    platformfault.writes = 0;
    errorblock *err = makeerror(ERRORMEMORY);
    CHECK(safeclose(&to, err)->code == ERRORMEMORY);
    CHECK(place.read("f") == "old");
    CHECK(!place.has("f.~new"));
}

TEST_CASE("a write error that nobody passed on still counts")
{
    scratch place;
    place.write("f", "old");
    safesave to;
    REQUIRE(safeopen(place.path("f").c_str(), 256, &to) == nullptr);
    platformfault.writes = 0;
    CHECK(bwriteall(&to.file, std::string(600, 'x').data(), 600) != nullptr);
    CHECK(bwriteall(&to.file, std::string(600, 'y').data(), 600) == nullptr);
    errorblock *err = safeclose(&to, nullptr);
    REQUIRE(err);
    CHECK(err->code == ERRORWRITE);
    CHECK(place.read("f") == "old");
    CHECK(!place.has("f.~new"));
}

TEST_CASE("a save that can't begin says why and may be closed")
{
    scratch place;
    safesave to;
    errorblock *err = safeopen(place.path("no\\such").c_str(), 256, &to);
    REQUIRE(err);
    CHECK(words(err).find("(CreateFile)") != std::string::npos);
    CHECK(safeclose(&to, err) == err);
    err = safeopen(std::string(PATHSIZE - 5, 'n').c_str(), 256, &to);
    REQUIRE(err);
    CHECK(err->code == ERRORMAXSTRING);
    CHECK(safeclose(&to, nullptr) == nullptr);
}

TEST_CASE("a save into a transfer touches no file")
{
    scratch place;
    place.write("f", "old");
    void *data;
    int32_t size = 0;
    ramwriteset(&data, &size);
    CHECK(save(place.path("f"), 'x') == nullptr);
    CHECK(size == 1000);
    CHECK(place.read("f") == "old");
    CHECK(!place.has("f.~new"));
}
