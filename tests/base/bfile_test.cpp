#include "base/bfile.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/saveblock.h"
#include "tests/base/scratch.h"
#include "tools/headless.h"

#include <cstring>
#include <random>

namespace
{

std::string pattern(size_t length)
{
    std::string bytes(length, 0);
    for (size_t i = 0; i < length; i++)
        bytes[i] = static_cast<char>(i * 7 + i / 256);
    return bytes;
}

std::string rest(bfile *file, int32_t most = 1 << 20)
{
    std::string bytes(static_cast<size_t>(most), 0);
    int32_t count;
    CHECK(bread(file, bytes.data(), most, &count) == nullptr);
    return bytes.substr(0, static_cast<size_t>(count));
}

std::string line(bfile *file, int32_t size, int32_t *end)
{
    char text[64];
    memset(text, '!', sizeof text);
    CHECK(bgetline(file, text, size, end) == nullptr);
    CHECK(text[size] == '!');
    return text;
}

uint32_t codeof(const errorblock *err)
{
    return err ? err->code : 0;
}

// The stream under random steps against a plain string.
struct model {
    std::string bytes;
    size_t position = 0;

    std::string read(size_t length)
    {
        std::string out = position < bytes.size() ? bytes.substr(position, length) : "";
        position += out.size();
        return out;
    }
    void write(const std::string &in)
    {
        if (position + in.size() > bytes.size()) bytes.resize(position + in.size());
        bytes.replace(position, in.size(), in);
        position += in.size();
    }
};

void steps(bfile *file, model *m, unsigned seed)
{
    std::mt19937 draw(seed);
    for (int i = 0; i < 300; i++) {
        size_t length = draw() % 4 ? draw() % 40 : draw() % 1500;
        std::string data = pattern(length);
        int32_t byte, position;
        switch (draw() % 6) {
        case 0:
            REQUIRE(bwriteall(file, data.data(), static_cast<int32_t>(length)) == nullptr);
            m->write(data);
            break;
        case 1: {
            std::string want = m->read(length);
            data.assign(want.size(), 0);
            REQUIRE(breadall(file, data.data(), static_cast<int32_t>(want.size())) == nullptr);
            REQUIRE(data == want);
            break;
        }
        case 2:
            m->position = draw() % (m->bytes.size() + 30);
            REQUIRE(bseek(file, static_cast<int32_t>(m->position)) == nullptr);
            break;
        case 3: {
            std::string want = m->read(1);
            REQUIRE(bgetc(file, &byte) == nullptr);
            REQUIRE(byte == (want.empty() ? -1 : static_cast<uint8_t>(want[0])));
            break;
        }
        case 4:
            REQUIRE(bputc(file, 'p') == nullptr);
            m->write("p");
            break;
        default:
            if (draw() % 3 == 0) REQUIRE(bflush(file) == nullptr);
        }
        REQUIRE(btell(file, &position) == nullptr);
        REQUIRE(position == static_cast<int32_t>(m->position));
    }
}

} // namespace

TEST_CASE("a stream on nothing grows and reads back")
{
    bfile file;
    std::string bytes = pattern(1000);
    REQUIRE(bopen(nullptr, "w", 256, &file) == nullptr);
    for (char ch : bytes)
        REQUIRE(bputc(&file, static_cast<uint8_t>(ch)) == nullptr);
    CHECK(file.size == 1024); // doubled, and doubled again
    int32_t valid;
    CHECK(bsize(&file, &valid) == nullptr);
    CHECK(valid == 1000);
    CHECK(bseek(&file, 0) == nullptr);
    CHECK(rest(&file) == bytes);

    CHECK(bwriteall(&file, bytes.data(), 1000) == nullptr);
    CHECK(bwriteall(&file, pattern(5000).data(), 5000) == nullptr);
    CHECK(file.size == 7000); // more than the double was wanted
    CHECK(bseek(&file, 1000) == nullptr);
    CHECK(rest(&file, 1000) == bytes);
    CHECK(bclose(&file, nullptr) == nullptr);
}

TEST_CASE("a stream filled to its brim reads back too")
{
    bfile file;
    std::string bytes = pattern(256);
    REQUIRE(bopen(nullptr, "w", 256, &file) == nullptr);
    CHECK(bwriteall(&file, bytes.data(), 256) == nullptr);
    CHECK(file.size == 256);
    CHECK(bseek(&file, 0) == nullptr);
    CHECK(rest(&file) == bytes);
    CHECK(bclose(&file, nullptr) == nullptr);
}

TEST_CASE("the buffer is halved down to 256 bytes while memory is short")
{
    int32_t blocks = flexblocks();
    bfile file;
    REQUIRE(bopen(nullptr, "w", BFILEBUFFER, &file) == nullptr);
    CHECK(file.size == 32768);
    CHECK(bclose(&file, nullptr) == nullptr);
    flexfailafter(0); // one failure only
    REQUIRE(bopen(nullptr, "w", BFILEBUFFER, &file) == nullptr);
    CHECK(file.size == 16384);
    CHECK(bclose(&file, nullptr) == nullptr);
    flexfailafter(0);
    CHECK(codeof(bopen(nullptr, "w", 256, &file)) == ERRORMEMORY); // 128 is not tried
    CHECK(bclose(&file, nullptr) == nullptr);
    flexfailafter(-1);
    CHECK(flexblocks() == blocks);
}

TEST_CASE("a failed open leaves a stream that may be closed")
{
    scratch place;
    bfile file;
    errorblock *err = bopen(place.path("none").c_str(), "r", 256, &file);
    REQUIRE(err);
    CHECK(file.buffer == nullptr);
    uint32_t code = err->code;
    CHECK(bclose(&file, err)->code == code);
    CHECK(bclose(&file, nullptr) == nullptr);
    platformfault.opens = 0;
    CHECK(words(bopen(place.path("f").c_str(), "w", 256, &file)) == "(CreateFile) (31)");
}

TEST_CASE("the end of data is no error but to an exact read")
{
    scratch place;
    place.write("f", "ab");
    bfile file;
    int32_t byte;
    char data[4];
    REQUIRE(bopen(place.path("f").c_str(), "r", 256, &file) == nullptr);
    CHECK(bpeek(&file, &byte) == nullptr);
    CHECK(byte == 'a');
    CHECK(bskip(&file, 1) == nullptr);
    CHECK(codeof(breadall(&file, data, 2)) == ERRORREAD);
    for (int i = 0; i < 2; i++) {
        CHECK(bgetc(&file, &byte) == nullptr);
        CHECK(byte == -1);
    }
    CHECK(codeof(bskip(&file, -3)) == ERRORREAD);
    CHECK(codeof(bseek(&file, -1)) == ERRORREAD);
    CHECK(bseek(&file, 0x7fffffff) == nullptr);
    CHECK(codeof(bskip(&file, 1)) == ERRORREAD);
    CHECK(bgetc(&file, &byte) == nullptr);
    CHECK(byte == -1);
    CHECK(codeof(bwrite(&file, data, 4, nullptr)) == ERRORWRITE);
    CHECK(bclose(&file, nullptr) == nullptr);
}

TEST_CASE("numbers lie lowest byte first")
{
    scratch place;
    bfile file;
    uint32_t word;
    REQUIRE(bopen(place.path("f").c_str(), "w", 256, &file) == nullptr);
    CHECK(bwrite32(&file, 0x80010203) == nullptr);
    CHECK(bwrite16(&file, 0x12345) == nullptr);
    CHECK(bclose(&file, nullptr) == nullptr);
    CHECK(place.read("f") == std::string("\x03\x02\x01\x80\x45\x23", 6));

    REQUIRE(bopen(place.path("f").c_str(), "r", 256, &file) == nullptr);
    CHECK(bread32(&file, &word) == nullptr);
    CHECK(word == 0x80010203);
    word = 0xFFFFFFFF;
    CHECK(bread16(&file, &word) == nullptr);
    CHECK(word == 0x2345);
    CHECK(codeof(bread16(&file, &word)) == ERRORREAD);
    CHECK(bclose(&file, nullptr) == nullptr);
}

TEST_CASE("lines end in CR, LF or a pair of them")
{
    scratch place;
    place.write("f", std::string("ab\r\nc\n\rd\r\re\n\n") + std::string("z\0y", 3));
    bfile file;
    int32_t end = 9;
    REQUIRE(bopen(place.path("f").c_str(), "r", 256, &file) == nullptr);
    for (const char *want : {"ab", "c", "d", "", "e", "", "z"}) {
        CHECK(line(&file, 10, &end) == want);
        CHECK(end == 0);
    }
    CHECK(line(&file, 10, &end) == "y");
    CHECK(end == 1);
    CHECK(line(&file, 10, &end) == "");
    CHECK(end == 1);
    CHECK(bclose(&file, nullptr) == nullptr);
}

TEST_CASE("a line of the buffer's size loses its last character")
{
    scratch place;
    place.write("f", "abcd\r\nef");
    bfile file;
    int32_t end;
    REQUIRE(bopen(place.path("f").c_str(), "r", 256, &file) == nullptr);
    CHECK(line(&file, 4, &end) == "abc");
    CHECK(line(&file, 4, &end) == "");
    CHECK(line(&file, 4, &end) == "ef");
    CHECK(end == 1);
    CHECK(bclose(&file, nullptr) == nullptr);
}

TEST_CASE("formatted lines")
{
    scratch place;
    bfile file;
    REQUIRE(bopen(place.path("f").c_str(), "w", 256, &file) == nullptr);
    CHECK(bprintf(&file, "%d ", 5) == nullptr);
    CHECK(bprintline(&file, "%s", "five") == nullptr);
    CHECK(bprintlines(&file, 2, "x") == nullptr);
    CHECK(bprintlines(&file, 0, "y") == nullptr);
    CHECK(bprintf(&file, "%s", std::string(1023, 'z').c_str()) == nullptr);
    CHECK(codeof(bprintline(&file, "%s", std::string(1024, 'q').c_str())) == ERRORMAXSTRING);
    CHECK(bclose(&file, nullptr) == nullptr);
    CHECK(place.read("f") == "5 five\r\nx\r\n\r\ny" + std::string(1023, 'z'));
}

TEST_CASE("the window moves only when it must, and whole buffers go past it")
{
    scratch place;
    std::string bytes = pattern(2000), data(2000, 0);
    place.write("f", bytes);
    bfile file;
    int32_t byte;
    REQUIRE(bopen(place.path("f").c_str(), "r", 256, &file) == nullptr);
    CHECK(bseek(&file, 100) == nullptr);
    CHECK(bgetc(&file, &byte) == nullptr);
    platformfault.reads = 0; // inside the window nothing asks the file
    CHECK(bseek(&file, 355) == nullptr);
    CHECK(bgetc(&file, &byte) == nullptr);
    CHECK(byte == static_cast<uint8_t>(bytes[355]));
    CHECK(bseek(&file, 100) == nullptr);
    CHECK(bgetc(&file, &byte) == nullptr);
    CHECK(byte == static_cast<uint8_t>(bytes[100]));
    CHECK(bseek(&file, 356) == nullptr);
    CHECK(bgetc(&file, &byte) != nullptr);

    CHECK(bseek(&file, 0) == nullptr);
    CHECK(bgetc(&file, &byte) == nullptr);
    platformfault.reads = 2; // 1999 bytes: the window, six buffers at once, one window more
    CHECK(breadall(&file, data.data(), 1999) == nullptr);
    CHECK(data.substr(0, 1999) == bytes.substr(1));
    CHECK(platformfault.reads == 0);
    CHECK(bclose(&file, nullptr) == nullptr);

    REQUIRE(bopen(place.path("g").c_str(), "w", 256, &file) == nullptr);
    platformfault.writes = 2; // seven buffers at once, then what is left
    CHECK(bwriteall(&file, bytes.data(), 2000) == nullptr);
    CHECK(platformfault.writes == 1);
    CHECK(bclose(&file, nullptr) == nullptr);
    CHECK(platformfault.writes == 0);
    CHECK(place.read("g") == bytes);
}

TEST_CASE("any mix of steps reads and writes as a plain file would")
{
    for (unsigned seed = 0; seed < 20; seed++) {
        CAPTURE(seed);
        scratch place;
        bfile file;
        model onfile, onnothing;
        platformfault.readlimit = seed % 2 ? 100 : -1;
        platformfault.writelimit = seed % 3 ? -1 : 77;
        REQUIRE(bopen(place.path("f").c_str(), "u", 256, &file) == nullptr);
        steps(&file, &onfile, seed);
        CHECK(bclose(&file, nullptr) == nullptr);
        CHECK(place.read("f") == onfile.bytes);
        REQUIRE(bopen(nullptr, "u", 256, &file) == nullptr);
        steps(&file, &onnothing, seed);
        CHECK(bseek(&file, 0) == nullptr);
        CHECK(rest(&file) == onnothing.bytes);
        CHECK(bclose(&file, nullptr) == nullptr);
    }
}

TEST_CASE("a write that fails is told once, by the step that met it")
{
    scratch place;
    bfile file;
    std::string bytes = pattern(600);
    REQUIRE(bopen(place.path("f").c_str(), "w", 256, &file) == nullptr);
    CHECK(bwriteall(&file, bytes.data(), 200) == nullptr);
    platformfault.writes = 0;
    CHECK(words(bwriteall(&file, bytes.data(), 200)) == "(WriteFile) (31)");
    CHECK((file.flags & BFILEFAILED) != 0);
    CHECK(bclose(&file, nullptr) == nullptr);

    REQUIRE(bopen(place.path("f").c_str(), "w", 256, &file) == nullptr);
    CHECK(bwriteall(&file, bytes.data(), 200) == nullptr);
    platformfault.writes = 0;
    errorblock *first = makeerror(ERRORREAD);
    CHECK(bclose(&file, first)->code == ERRORREAD);
    CHECK(flexblocks() == 0);

    for (int32_t space : {0, 100, 256, 599}) {
        REQUIRE(bopen(place.path("f").c_str(), "w", 256, &file) == nullptr);
        platformfault.space = space;
        errorblock *err = bwriteall(&file, bytes.data(), 600);
        CHECK(words(bclose(&file, err)) == "(WriteFile) (112)");
        platformfault = {};
        CHECK(place.read("f") == bytes.substr(0, static_cast<size_t>(space)));
    }
    REQUIRE(bopen(place.path("f").c_str(), "w", 256, &file) == nullptr);
    platformfault.closes = 0;
    CHECK(words(bclose(&file, nullptr)) == "(CloseHandle) (31)");
}

TEST_CASE("a growing buffer without memory keeps what it holds")
{
    bfile file;
    std::string bytes = pattern(256);
    REQUIRE(bopen(nullptr, "w", 256, &file) == nullptr);
    CHECK(bwriteall(&file, bytes.data(), 256) == nullptr);
    flexfailafter(0);
    CHECK(codeof(bputc(&file, 'x')) == ERRORMEMORY);
    flexfailafter(-1);
    CHECK(bputc(&file, 'x') == nullptr);
    CHECK(bseek(&file, 0) == nullptr);
    CHECK(rest(&file) == bytes + "x");
    CHECK(bclose(&file, nullptr) == nullptr);
}

TEST_CASE("a stream reads from a transfer, whatever its path")
{
    scratch place;
    std::string bytes = pattern(700);
    bfile file;
    int32_t left, byte;
    ramreadset(bytes.data(), 700);
    CHECK(ramreadactive());
    REQUIRE(bopen(place.path("none").c_str(), "r", 256, &file) == nullptr);
    CHECK(rest(&file, 650) == bytes.substr(0, 650));
    CHECK(bseek(&file, 3) == nullptr);
    CHECK(bgetc(&file, &byte) == nullptr);
    CHECK(byte == static_cast<uint8_t>(bytes[3]));
    CHECK(bclose(&file, nullptr) == nullptr);
    ramreadsize(&left);
    CHECK(left == 700); // rewound

    int32_t size, count, done;
    char data[500];
    CHECK(loadblockopen("none", &size) == nullptr);
    CHECK(size == 700);
    CHECK(loadblockread("none", data, 500, &count, &done) == nullptr);
    CHECK(count == 500);
    CHECK(done == 0);
    CHECK(loadblockread("none", data, 500, &count, &done) == nullptr);
    CHECK(count == 200);
    CHECK(done == 1);
    CHECK(!memcmp(data, bytes.data() + 500, 200));
    CHECK(loadblockclose(nullptr) == nullptr);
    ramreadsize(&left);
    CHECK(left == 700);
    ramreadclear();
    CHECK(!ramreadactive());
}

TEST_CASE("a stream writes into a transfer, which delivers at the end")
{
    std::string bytes = pattern(5000);
    void *data = nullptr;
    int32_t size = -1;
    bfile file;
    ramwriteset(&data, &size);
    REQUIRE(bopen("none", "w", 256, &file) == nullptr);
    CHECK(bwriteall(&file, bytes.data(), 4900) == nullptr);
    CHECK(bwriteall(&file, bytes.data() + 4900, 100) == nullptr);
    CHECK(size == -1);
    CHECK(bclose(&file, nullptr) == nullptr);
    REQUIRE(size == 5000);
    CHECK(!memcmp(data, bytes.data(), 5000));

    headless.keeptrace = true;
    CHECK(saveblock("none", 0, "abc", 3) == nullptr);
    CHECK(headless.tracetext == "ram save block\r\n");
    REQUIRE(size == 3);
    CHECK(!memcmp(data, "abc", 3));

    flexfailafter(0);
    CHECK(codeof(saveblock("none", 0, bytes.data(), 5000)) == ERRORWRITE);
    flexfailafter(-1);
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
    CHECK(codeof(loadblockread(path.c_str(), data, 4, &count, &done)) == ERRORMEMORY);
    CHECK(count == 0);
    CHECK(loadblockread(path.c_str(), data, 5, &count, &done) == nullptr);
    CHECK(count == 5);
    CHECK(done == 1);
    CHECK(!memcmp(data, "hello", 5));
    CHECK(codeof(loadblockopen(place.path("none").c_str(), &size)) == ERRORNOTFOUND);
    errorblock *err = makeerror(ERRORREAD);
    CHECK(loadblockclose(err) == err);
    saveblocksize(&size);
    CHECK(size == 4096);
}
