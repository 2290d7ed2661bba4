#include "base/bfile.h"

#include "base/flex.h"
#include "base/safesave.h"
#include "base/saveblock.h"
#include "tests/base/scratch.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <random>

namespace
{

// An open stream with a buffer of 256 bytes, on nothing without a path.
struct stream : bfile {
    explicit stream(const char *mode) : stream("", mode) {}
    stream(const std::string &path, const char *mode)
    {
        REQUIRE(!bopen(path.empty() ? nullptr : path.c_str(), mode, 256, this));
    }
    ~stream()
    {
        CHECK(!bclose(this, nullptr)); // closed before or not
    }
};

std::string pattern(size_t length)
{
    std::string bytes(length, 0);
    for (size_t i = 0; i < length; i++)
        bytes[i] = static_cast<char>(i * 7 + i / 256);
    return bytes;
}

errorblock *put(bfile *file, const std::string &bytes)
{
    return bwriteall(file, bytes.data(), static_cast<int32_t>(bytes.size()));
}

// The next bytes, fewer at the end.
std::string get(bfile *file, int32_t most = 1 << 20)
{
    std::string bytes(static_cast<size_t>(most), 0);
    int32_t count;
    CHECK(!bread(file, bytes.data(), most, &count));
    return bytes.substr(0, static_cast<size_t>(count));
}

// The byte at a position, -1 behind the end.
int32_t byteat(bfile *file, int32_t position)
{
    int32_t byte = 99;
    CHECK(!bseek(file, position));
    CHECK(!bgetc(file, &byte));
    return byte;
}

// The stream under random steps against a plain string, which is what it holds.
std::string steps(bfile *file, unsigned seed)
{
    std::string bytes;
    size_t position = 0;
    std::mt19937 draw(seed);
    for (int i = 0; i < 300; i++) {
        size_t large = draw() % 2 ? draw() % 1500 : draw() % 6 * 256;
        std::string data = pattern(draw() % 4 ? draw() % 40 : large);
        std::string ahead = position < bytes.size() ? bytes.substr(position, data.size()) : "";
        int32_t byte, told;
        switch (draw() % 5) {
        case 0:
            if (data.size() == 1)
                REQUIRE(!bputc(file, data[0]));
            else
                REQUIRE(!put(file, data));
            bytes.resize(std::max(bytes.size(), position + data.size()));
            bytes.replace(position, data.size(), data);
            position += data.size();
            break;
        case 1:
            data.assign(ahead.size(), 0);
            REQUIRE(!breadall(file, data.data(), static_cast<int32_t>(ahead.size())));
            REQUIRE(data == ahead);
            position += ahead.size();
            break;
        case 2:
            position = draw() % (bytes.size() + 30);
            REQUIRE(!bseek(file, static_cast<int32_t>(position)));
            break;
        case 3:
            REQUIRE(!bgetc(file, &byte));
            REQUIRE(byte == (position < bytes.size() ? static_cast<uint8_t>(bytes[position]) : -1));
            position += position < bytes.size();
            break;
        default:
            if (draw() % 3 == 0) REQUIRE(!bflush(file));
        }
        REQUIRE(!btell(file, &told));
        REQUIRE(told == static_cast<int32_t>(position));
    }
    return bytes;
}

// Saves 1000 bytes of ch in two steps; the error of the whole.
errorblock *save(const std::string &path, char ch, int32_t buffer = 256)
{
    safesave to;
    errorblock *err = safeopen(path.c_str(), buffer, &to);
    for (int step = 0; step < 2 && !err; step++)
        err = put(&to.file, std::string(500, ch));
    return safeclose(&to, err);
}

} // namespace

TEST_CASE("the end of data is no error but to an exact read")
{
    scratch place;
    bfile none;
    errorblock *err = bopen(place.path("none").c_str(), "r", 256, &none);
    CHECK(code(bclose(&none, err)) == 2);

    place.write("f", "ab");
    stream file(place.path("f"), "r");
    int32_t byte;
    char data[4];
    CHECK((!bpeek(&file, &byte) && byte == 'a'));
    CHECK(!bskip(&file, 1));
    CHECK(code(breadall(&file, data, 2)) == ERRORREAD);
    CHECK((!bgetc(&file, &byte) && byte == -1));
    CHECK(code(bskip(&file, -3)) == ERRORREAD);
    CHECK(byteat(&file, 0x7fffffff) == -1);
    CHECK(code(bskip(&file, 1)) == ERRORREAD);
    CHECK(code(bwrite(&file, data, 4, nullptr)) == ERRORWRITE);

    stream full("w"); // on nothing, where memory is short for the next byte
    CHECK(!put(&full, pattern(256)));
    flexfailafter(0);
    CHECK(code(bputc(&full, 'x')) == ERRORMEMORY);
    CHECK(!bputc(&full, 'x'));
    CHECK(byteat(&full, 256) == 'x');
    flexfailafter(0);
    CHECK(!bopen(nullptr, "w", BFILEBUFFER, &none)); // half the buffer will do
    CHECK(none.size == BFILEBUFFER / 2);
    CHECK(!bclose(&none, nullptr));
}

TEST_CASE("numbers lie lowest byte first, lines end in two bytes")
{
    scratch place;
    stream out(place.path("f"), "w");
    CHECK(!bwrite32(&out, 0x80010203));
    CHECK(!bwrite16(&out, 0x12345));
    CHECK(!bprintline(&out, "%d five", 5));
    CHECK(!bprintlines(&out, 2, "x"));
    CHECK(!bprintf(&out, "%s", std::string(1023, 'z').c_str()));
    CHECK(code(bprintline(&out, "%s", std::string(1024, 'q').c_str())) == ERRORMAXSTRING);
    CHECK(!bclose(&out, nullptr));
    std::string start("\x03\x02\x01\x80\x45\x23");
    CHECK(place.read("f") == start + "5 five\r\nx\r\n\r\n" + std::string(1023, 'z'));

    stream in(place.path("f"), "r");
    uint32_t word = 0xFFFFFFFF;
    CHECK((!bread32(&in, &word) && word == 0x80010203));
    CHECK((!bread16(&in, &word) && word == 0x2345));
}

TEST_CASE("lines end in CR, LF or a pair of them, or at the buffer's size less one")
{
    scratch place;
    place.write("f", literal("ab\r\nc\n\rd\r\re\n\nabcd\r\nz\0y"));
    stream file(place.path("f"), "r");
    for (const char *want :
         {"ab", "c", "d", "", "e", "", "abc", "", "z", "y.", "."}) { // the d of "abcd" is lost
        char text[5] = "!!!!";
        int32_t end = 9;
        CHECK(!bgetline(&file, text, 4, &end));
        CHECK(text + std::string(end, '.') == want);
    }
}

TEST_CASE("any mix of steps reads and writes as a plain file would")
{
    for (unsigned seed = 0; seed < 20; seed++) {
        CAPTURE(seed);
        scratch place;
        platformfault.readlimit = seed % 2 ? 100 : -1;
        platformfault.writelimit = seed % 3 ? -1 : 77;
        stream onfile(place.path("f"), "u"), onnothing("u");
        std::string bytes = steps(&onfile, seed);
        CHECK(!bclose(&onfile, nullptr));
        CHECK(place.read("f") == bytes);
        bytes = steps(&onnothing, seed);
        CHECK(!bseek(&onnothing, 0));
        CHECK(get(&onnothing) == bytes);
    }
}

TEST_CASE("a stream and blocks read from a transfer or a file, and write to it")
{
    scratch place;
    std::string bytes = pattern(5000), path = place.path("f");
    int32_t size, count;
    bool done;
    char data[700];
    CHECK(!saveblock(path.c_str(), 0xFFF, "hello", 5));
    CHECK((!loadblockopen(path.c_str(), &size) && size == 5));
    CHECK(code(loadblockread(path.c_str(), data, 4, &count, &done)) == ERRORMEMORY);
    CHECK(!loadblockread(path.c_str(), data, 5, &count, &done));
    CHECK((std::string(data, static_cast<size_t>(count)) == "hello" && done));
    CHECK(code(loadblockopen(place.path("none").c_str(), &size)) == ERRORNOTFOUND);

    ramreadset(bytes.data(), 700);
    {
        stream file(path, "r"); // whatever its path
        CHECK(get(&file, 650) == bytes.substr(0, 650));
        CHECK(byteat(&file, 3) == static_cast<uint8_t>(bytes[3]));
    }
    CHECK((!loadblockopen("none", &size) && size == 700)); // rewound
    for (bool last : {false, true}) {
        CHECK(!loadblockread("none", data + (last ? 500 : 0), 500, &count, &done));
        CHECK((count == (last ? 200 : 500) && done == last));
    }
    CHECK(std::string(data, 700) == bytes.substr(0, 700));
    CHECK(!loadblockclose(nullptr));
    ramreadclear();

    void *out = nullptr;
    auto delivered = [&] {
        return std::string(static_cast<char *>(out), static_cast<size_t>(size));
    };
    ramwriteset(&out, &size);
    stream file(path, "w");
    CHECK(!put(&file, bytes.substr(0, 4900)));
    CHECK(!put(&file, bytes.substr(4900)));
    CHECK(!bclose(&file, nullptr));
    CHECK(delivered() == bytes);
    CHECK(!save(path, 's'));
    CHECK(delivered() == std::string(1000, 's'));
    CHECK(!saveblock("none", 0, "abc", 3));
    CHECK(delivered() == "abc");
    flexfailafter(0);
    CHECK(code(saveblock("none", 0, bytes.data(), 5000)) == ERRORWRITE);
    CHECK(size == 0);
    CHECK(place.read("f") == "hello");
}

TEST_CASE("a safe save: whatever step fails, the old file is whole and nothing else is left")
{
    scratch place;
    std::string path = place.path("f");
    auto stands = [&] { return place.read("f") == "old" && !place.has("f.~new"); };
    for (int32_t platformfaultrecord::*step :
         {&platformfaultrecord::writes, &platformfaultrecord::syncs, &platformfaultrecord::closes})
        for (int32_t n = 0;; n++) {
            platformfault = {};
            place.write("f", "old");
            platformfault.*step = n;
            errorblock *err = save(path, 'x');
            if (!err) break;
            CHECK(code(err) == 31);
            CHECK(stands());
        }
    CHECK((place.read("f") == std::string(1000, 'x') && !place.has("f.~new")));
    platformfault = {};
    place.write("f", "old");
    // The caller's error comes first, and a write error that nobody passed on counts.
    for (uint32_t error : {ERRORMEMORY, 0u}) {
        safesave to;
        REQUIRE(!safeopen(path.c_str(), 256, &to));
        CHECK(!bputc(&to.file, 'x'));
        CHECK(place.has("f.~new")); // which no scan takes for what it is beside
        platformfault.writes = 0;
        if (!error) CHECK(put(&to.file, std::string(600, 'x')));
        if (!error) CHECK(!put(&to.file, std::string(600, 'y')));
        CHECK(code(safeclose(&to, makeerror(error))) == (error ? error : ERRORWRITE));
        CHECK(stands());
    }
    CHECK(code(save(std::string(PATHSIZE, 'n'), 'x')) == ERRORMAXSTRING);
}

TEST_CASE("a safe save writes over the file where none can be made or put in place beside it")
{
    scratch place;
    std::string path = place.path("f"), longer = path;
    while (longer.size() < PATHSIZE - 1) // without room for the other name
        longer.insert(longer.size() - 1, longer.size() % 2 ? "./" : "/");
    for (bool there : {false, true}) {
        CHECK(!save(longer, there ? 'y' : 'x'));
        CHECK(place.read("f") == std::string(1000, there ? 'y' : 'x'));
    }
    flexfailafter(1); // while the contents grow
    CHECK(code(save(longer, 'z')) == ERRORMEMORY);
    CHECK(place.read("f") == std::string(1000, 'y'));
    for (int32_t platformfaultrecord::*step :
         {&platformfaultrecord::opens, &platformfaultrecord::replaces}) {
        platformfault = {};
        platformfault.*step = 0;
        place.write("f", "old");
        CHECK(!save(path, 'x'));
        CHECK(place.read("f") == std::string(1000, 'x'));
        CHECK(!place.has("f.~new"));
    }
    // An error names the file that was asked for.
    CHECK(words(save(place.path("none\\f"), 'x')).ends_with("none\\f)"));
}

TEST_CASE("a safe save through a link, where the system has them, leaves it a link")
{
    scratch place;
    std::error_code failed;
    std::filesystem::create_directories(place.folder + "/far");
    place.write("far/f", "old");
    std::filesystem::create_symlink(place.folder + "/far/f", place.folder + "/link", failed);
    if (failed) {
        MESSAGE("skipped: no links on this system");
        return;
    }
    safesave to;
    REQUIRE(!safeopen(place.path("link").c_str(), 256, &to));
    CHECK(place.has("far/f.~new")); // on the disc that it has to be on
    CHECK(!put(&to.file, "new"));
    CHECK(!safeclose(&to, nullptr));
    CHECK(std::filesystem::is_symlink(place.folder + "/link"));
    CHECK(place.read("far/f") == "new");
}
