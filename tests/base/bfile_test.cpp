#include "base/bfile.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/saveblock.h"
#include "tests/base/scratch.h"
#include "tools/headless.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <utility>

namespace
{

// An open stream with a buffer of 256 bytes, on nothing without a path.
struct stream : bfile {
    explicit stream(const char *mode) : stream("", mode) {}
    stream(const std::string &path, const char *mode)
    {
        REQUIRE(bopen(path.empty() ? nullptr : path.c_str(), mode, 256, this) == nullptr);
    }
    ~stream()
    {
        CHECK(bclose(this, nullptr) == nullptr); // closed before or not
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
    CHECK(bread(file, bytes.data(), most, &count) == nullptr);
    return bytes.substr(0, static_cast<size_t>(count));
}

// The byte at a position, -1 behind the end.
int32_t byteat(bfile *file, int32_t position)
{
    int32_t byte = 99;
    CHECK(bseek(file, position) == nullptr);
    CHECK(bgetc(file, &byte) == nullptr);
    return byte;
}

std::string line(bfile *file, int32_t size, int32_t *end)
{
    char text[64];
    memset(text, '!', sizeof text);
    CHECK(bgetline(file, text, size, end) == nullptr);
    CHECK(text[size] == '!');
    return text;
}

int32_t transferleft()
{
    int32_t left;
    ramreadsize(&left);
    return left;
}

// The stream under random steps against a plain string, which is what it holds.
std::string steps(bfile *file, unsigned seed)
{
    std::string bytes;
    size_t position = 0;
    auto written = [&](const std::string &in) {
        bytes.resize(std::max(bytes.size(), position + in.size()));
        bytes.replace(position, in.size(), in);
        position += in.size();
    };
    auto ahead = [&](size_t length) {
        return position < bytes.size() ? bytes.substr(position, length) : "";
    };

    std::mt19937 draw(seed);
    for (int i = 0; i < 300; i++) {
        size_t length = draw() % 4 ? draw() % 40 : draw() % 1500;
        std::string data = pattern(length);
        int32_t byte, told;
        switch (draw() % 6) {
        case 0:
            REQUIRE(put(file, data) == nullptr);
            written(data);
            break;
        case 1: {
            std::string want = ahead(length);
            data.assign(want.size(), 0);
            REQUIRE(breadall(file, data.data(), static_cast<int32_t>(want.size())) == nullptr);
            REQUIRE(data == want);
            position += want.size();
            break;
        }
        case 2:
            position = draw() % (bytes.size() + 30);
            REQUIRE(bseek(file, static_cast<int32_t>(position)) == nullptr);
            break;
        case 3: {
            std::string want = ahead(1);
            REQUIRE(bgetc(file, &byte) == nullptr);
            REQUIRE(byte == (want.empty() ? -1 : static_cast<uint8_t>(want[0])));
            position += want.size();
            break;
        }
        case 4:
            REQUIRE(bputc(file, 'p') == nullptr);
            written("p");
            break;
        default:
            if (draw() % 3 == 0) REQUIRE(bflush(file) == nullptr);
        }
        REQUIRE(btell(file, &told) == nullptr);
        REQUIRE(told == static_cast<int32_t>(position));
    }
    return bytes;
}

} // namespace

TEST_CASE("the buffer of a stream on nothing doubles, or grows to what is wanted")
{
    stream file("w");
    int32_t valid;
    for (auto [more, size] : {std::pair{256, 256}, {1, 512}, {743, 1024}, {6000, 7000}}) {
        CHECK(put(&file, pattern(static_cast<size_t>(more))) == nullptr);
        CHECK(file.size == size);
    }
    CHECK(bsize(&file, &valid) == nullptr);
    CHECK(valid == 7000);
}

TEST_CASE("the buffer is halved down to 256 bytes while memory is short")
{
    const struct {
        int32_t failure, wanted, got;
    } rows[] = {{-1, BFILEBUFFER, 32768}, {0, BFILEBUFFER, 16384}, {0, 256, 0}};
    for (const auto &row : rows) {
        bfile file;
        flexfailafter(row.failure);
        CHECK(code(bopen(nullptr, "w", row.wanted, &file)) == (row.got ? 0u : ERRORMEMORY));
        CHECK(file.size == row.got);
        CHECK(bclose(&file, nullptr) == nullptr);
        CHECK(flexblocks() == 0);
    }
}

TEST_CASE("a failed open leaves a stream that may be closed")
{
    scratch place;
    bfile file;
    errorblock *err = bopen(place.path("none").c_str(), "r", 256, &file);
    CHECK(file.buffer == nullptr);
    CHECK(code(bclose(&file, err)) == 2);
    CHECK(bclose(&file, nullptr) == nullptr);
}

TEST_CASE("the end of data is no error but to an exact read")
{
    scratch place;
    place.write("f", "ab");
    stream file(place.path("f"), "r");
    int32_t byte;
    char data[4];
    CHECK(bpeek(&file, &byte) == nullptr);
    CHECK(byte == 'a');
    CHECK(bskip(&file, 1) == nullptr);
    CHECK(code(breadall(&file, data, 2)) == ERRORREAD);
    for (int i = 0; i < 2; i++) {
        CHECK(bgetc(&file, &byte) == nullptr);
        CHECK(byte == -1);
    }
    CHECK(code(bskip(&file, -3)) == ERRORREAD);
    CHECK(code(bseek(&file, -1)) == ERRORREAD);
    CHECK(byteat(&file, 0x7fffffff) == -1);
    CHECK(code(bskip(&file, 1)) == ERRORREAD);
    CHECK(code(bwrite(&file, data, 4, nullptr)) == ERRORWRITE);
}

TEST_CASE("numbers lie lowest byte first")
{
    scratch place;
    stream out(place.path("f"), "w");
    CHECK(bwrite32(&out, 0x80010203) == nullptr);
    CHECK(bwrite16(&out, 0x12345) == nullptr);
    CHECK(bclose(&out, nullptr) == nullptr);
    CHECK(place.read("f") == std::string("\x03\x02\x01\x80\x45\x23", 6));

    stream in(place.path("f"), "r");
    uint32_t word;
    CHECK(bread32(&in, &word) == nullptr);
    CHECK(word == 0x80010203);
    word = 0xFFFFFFFF;
    CHECK(bread16(&in, &word) == nullptr);
    CHECK(word == 0x2345);
    CHECK(code(bread16(&in, &word)) == ERRORREAD);
}

TEST_CASE("lines end in CR, LF or a pair of them, or at the buffer's size less one")
{
    scratch place;
    place.write("f", std::string("ab\r\nc\n\rd\r\re\n\nabcd\r\n") + std::string("z\0y", 3));
    stream file(place.path("f"), "r");
    int32_t end = 9;
    for (const char *want :
         {"ab", "c", "d", "", "e", "", "abc", "", "z"}) { // the d of "abcd" is lost
        CHECK(line(&file, 4, &end) == want);
        CHECK(end == 0);
    }
    for (const char *want : {"y", ""}) {
        CHECK(line(&file, 4, &end) == want);
        CHECK(end == 1);
    }
}

TEST_CASE("formatted lines")
{
    scratch place;
    stream file(place.path("f"), "w");
    CHECK(bprintf(&file, "%d ", 5) == nullptr);
    CHECK(bprintline(&file, "%s", "five") == nullptr);
    CHECK(bprintlines(&file, 2, "x") == nullptr);
    CHECK(bprintlines(&file, 0, "y") == nullptr);
    CHECK(bprintf(&file, "%s", std::string(1023, 'z').c_str()) == nullptr);
    CHECK(code(bprintline(&file, "%s", std::string(1024, 'q').c_str())) == ERRORMAXSTRING);
    CHECK(bclose(&file, nullptr) == nullptr);
    CHECK(place.read("f") == "5 five\r\nx\r\n\r\ny" + std::string(1023, 'z'));
}

TEST_CASE("the window moves only when it must, and whole buffers go past it")
{
    scratch place;
    std::string bytes = pattern(2000);
    place.write("f", bytes);
    stream in(place.path("f"), "r");
    int32_t byte;
    byteat(&in, 100);
    platformfault.reads = 0; // inside the window nothing asks the file
    for (int32_t position : {355, 100})
        CHECK(byteat(&in, position) == static_cast<uint8_t>(bytes[static_cast<size_t>(position)]));
    CHECK(bseek(&in, 356) == nullptr);
    CHECK(bgetc(&in, &byte) != nullptr);

    byteat(&in, 0);
    platformfault.reads = 2; // 1999 bytes: the window, six buffers at once, one window more
    CHECK(get(&in, 1999) == bytes.substr(1));
    CHECK(platformfault.reads == 0);

    stream out(place.path("g"), "w");
    platformfault.writes = 2; // seven buffers at once, then what is left
    CHECK(put(&out, bytes) == nullptr);
    CHECK(platformfault.writes == 1);
    CHECK(bclose(&out, nullptr) == nullptr);
    CHECK(platformfault.writes == 0);
    CHECK(place.read("g") == bytes);
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
        CHECK(bclose(&onfile, nullptr) == nullptr);
        CHECK(place.read("f") == bytes);
        bytes = steps(&onnothing, seed);
        CHECK(bseek(&onnothing, 0) == nullptr);
        CHECK(get(&onnothing) == bytes);
    }
}

TEST_CASE("a write that fails is told once, by the step that met it")
{
    scratch place;
    std::string path = place.path("f");
    stream told(path, "w");
    CHECK(put(&told, pattern(200)) == nullptr);
    platformfault.writes = 0;
    CHECK(words(put(&told, pattern(200))) == "(WriteFile) (31)");
    CHECK((told.flags & BFILEFAILED) != 0);
    CHECK(bclose(&told, nullptr) == nullptr);

    stream second(path, "w"); // behind an error of the caller's
    CHECK(put(&second, pattern(200)) == nullptr);
    platformfault.writes = 0;
    CHECK(code(bclose(&second, makeerror(ERRORREAD))) == ERRORREAD);
    CHECK(flexblocks() == 0);
}

TEST_CASE("a growing buffer without memory keeps what it holds")
{
    stream file("w");
    CHECK(put(&file, pattern(256)) == nullptr);
    flexfailafter(0);
    CHECK(code(bputc(&file, 'x')) == ERRORMEMORY);
    CHECK(bputc(&file, 'x') == nullptr);
    CHECK(bseek(&file, 0) == nullptr);
    CHECK(get(&file) == pattern(256) + "x");
}

TEST_CASE("a stream and blocks read from a transfer, whatever their path")
{
    scratch place;
    std::string bytes = pattern(700);
    ramreadset(bytes.data(), 700);
    {
        stream file(place.path("none"), "r");
        CHECK(get(&file, 650) == bytes.substr(0, 650));
        CHECK(byteat(&file, 3) == static_cast<uint8_t>(bytes[3]));
    }
    CHECK(transferleft() == 700); // rewound

    int32_t size, count, done;
    char data[700];
    CHECK(loadblockopen("none", &size) == nullptr);
    CHECK(size == 700);
    for (bool last : {false, true}) {
        CHECK(loadblockread("none", data + (last ? 500 : 0), 500, &count, &done) == nullptr);
        CHECK(count == (last ? 200 : 500));
        CHECK(done == last);
    }
    CHECK(std::string(data, 700) == bytes);
    CHECK(loadblockclose(nullptr) == nullptr);
    CHECK(transferleft() == 700);
    CHECK(ramreadactive());
    ramreadclear();
    CHECK(!ramreadactive());
}

TEST_CASE("a stream writes into a transfer, which delivers at the end")
{
    std::string bytes = pattern(5000);
    void *data = nullptr;
    int32_t size = -1;
    auto delivered = [&] {
        return std::string(static_cast<char *>(data), static_cast<size_t>(size));
    };
    ramwriteset(&data, &size);
    stream file("none", "w");
    CHECK(put(&file, bytes.substr(0, 4900)) == nullptr);
    CHECK(put(&file, bytes.substr(4900)) == nullptr);
    CHECK(size == -1);
    CHECK(bclose(&file, nullptr) == nullptr);
    REQUIRE(size == 5000);
    CHECK(delivered() == bytes);

    headless.keeptrace = true;
    CHECK(saveblock("none", 0, "abc", 3) == nullptr);
    CHECK(headless.tracetext == "ram save block\r\n");
    CHECK(delivered() == "abc");
    flexfailafter(0);
    CHECK(code(saveblock("none", 0, bytes.data(), 5000)) == ERRORWRITE);
    CHECK(size == 0);
    ramwriteclear();
    CHECK(!ramwriteactive());
    CHECK(flexblocks() == 0);
}

TEST_CASE("whole blocks go to files and come from them")
{
    scratch place;
    std::string path = place.path("f");
    headless.keeptrace = true;
    CHECK(saveblock(path.c_str(), 0xFFF, "hello", 5) == nullptr);
    CHECK(headless.tracetext == "file save block\r\n");
    int32_t size, count, done;
    char data[5];
    CHECK(loadblockopen(path.c_str(), &size) == nullptr);
    CHECK(size == 5);
    CHECK(code(loadblockread(path.c_str(), data, 4, &count, &done)) == ERRORMEMORY);
    CHECK(count == 0);
    CHECK(loadblockread(path.c_str(), data, 5, &count, &done) == nullptr);
    CHECK(std::string(data, static_cast<size_t>(count)) == "hello");
    CHECK(done == 1);
    CHECK(code(loadblockopen(place.path("none").c_str(), &size)) == ERRORNOTFOUND);
    errorblock *err = makeerror(ERRORREAD);
    CHECK(loadblockclose(err) == err);
    saveblocksize(&size);
    CHECK(size == 4096);
}
