// Areas, modes, and what becomes of any file.
#include "base/errorcodes.h"
#include "base/files.h"
#include "graphics/spritelayout.h"
#include "graphics/spritemode.h"
#include "graphics/sprites.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/spritemade.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace
{

struct spritefolder {
    std::string path = scratchfolder() + "/sprites";
    spritefolder()
    {
        std::filesystem::remove_all(path);
        std::filesystem::create_directories(path);
    }
    void write(const std::string &leaf, const std::string &bytes) const
    {
        std::ofstream(path + "/" + leaf, std::ios::binary) << bytes;
    }
    errorblock *add(areamade *a, const char *leaf = "a.spr") const
    {
        return addsprites(path.c_str(), leaf, &a->block, 0);
    }
    // As a file of its own, into an area of its own.
    uint32_t code(const std::string &bytes) const
    {
        areamade a;
        write("a.spr", bytes);
        errorblock *err = addsprites(path.c_str(), "a.spr", &a.block, 0);
        CHECK((a.used() == spritefile({})) == (err != nullptr));
        return codeof(err);
    }
};

std::string named(const std::string &name, int32_t bpp = 4, int32_t width = 9, int32_t height = 3)
{
    spritemade made = spritestriped(bpp, width, height, true);
    made.name = name;
    return spritebytes(made);
}

std::string patched(std::string bytes, size_t at, size_t value)
{
    uint32_t word = static_cast<uint32_t>(value);
    std::memcpy(&bytes[at], &word, sizeof word);
    return bytes;
}

// Where the head of the first sprite's fields stand in a file.
enum field : size_t { NEXT = 12, WIDTH = 28, HEIGHT = 32, FIRSTBIT = 36, LASTBIT = 40 };
enum : size_t { IMAGE = 44, MASK = 48, MODE = 52 };

uint32_t word(uint32_t type, uint32_t ydpi, uint32_t xdpi)
{
    return type << 27 | ydpi << 14 | xdpi << 1 | 1;
}

} // namespace

TEST_CASE("modes, old numbers and new words, tell depth and resolution")
{
    const uint32_t rows[][5] = {{12, 2, 4, 4, 15},
                                {15, 2, 4, 8, 255},
                                {28, 2, 2, 8, 255},
                                {82, 1, 1, 4, 15},
                                {128 + 28, 2, 2, 8, 255},
                                {0x7FFFF80 + 12, 2, 4, 4, 15},
                                {word(2, 45, 90), 2, 4, 2, 3},
                                {word(3, 180, 180), 1, 1, 4, 15},
                                {word(5, 90, 45), 4, 2, 16, 0x7FFF},
                                {word(7, 1, 8191), 1, 180, 32, 0xFFFFFFFF},
                                {word(8, 90, 90), 2, 2, 24, 0xFFFFFF},
                                {word(16 + 6, 90, 90), 2, 2, 32, 0xFFFFFF}};
    for (const auto &[mode, xeig, yeig, bits, most] : rows) {
        CAPTURE(mode);
        int32_t x, y, bpp;
        uint32_t colours;
        REQUIRE_FALSE(spriteeig(mode, &x, &y));
        REQUIRE_FALSE(spritedepth(mode, &bpp, &colours));
        CHECK(std::vector<uint32_t>{uint32_t(x), uint32_t(y), uint32_t(bpp), colours} ==
              std::vector{xeig, yeig, bits, most});
    }
    sprite s = {};
    int32_t x = 5, y;
    for (uint32_t unread : {word(9, 90, 90), word(15, 90, 90), word(16, 90, 90), word(6, 90, 89)}) {
        s.mode = unread == word(6, 90, 89) ? unread - 1 : unread; // bit 0 clear
        CHECK(codeof(spritedpi(&s, &x, nullptr, nullptr)) == EMODE);
        CHECK(x == 5);
    }
    s.mode = word(6, 0, 300);
    REQUIRE_FALSE(spritedpi(&s, &x, &y, nullptr));
    CHECK((x == 300 && y == 90));
    s.mode = 12;
    REQUIRE_FALSE(spritedpi(&s, &x, &y, nullptr));
    CHECK((x == 90 && y == 45));

    const uint32_t made[][4] = {{8, 2, 2, 28},
                                {4, 2, 2, 27},
                                {1, 2, 2, 25},
                                {8, 2, 4, 15},
                                {4, 2, 4, 12},
                                {1, 2, 4, 0},
                                {16, 2, 4, word(5, 45, 90)},
                                {24, 1, 1, word(6, 180, 180)}};
    for (const auto &[bpp, xeig, yeig, mode] : made)
        CHECK(spritemodeword(int32_t(bpp), int32_t(xeig), int32_t(yeig)) == mode);
}

TEST_CASE("a file's sprites go behind those that are there, and are found by name")
{
    spritefolder folder;
    areamade a;
    CHECK(a.head().size == 256);
    CHECK(!spritefind(nullptr, "rindent"));
    std::string one = named("rindent"), two = named("twelve bytes", 8, 30, 20);
    folder.write("a.spr", spritefile({one, two}));
    REQUIRE_FALSE(folder.add(&a));
    CHECK(a.used() == spritefile({one, two}));
    CHECK(a.head().size == 16 + static_cast<int32_t>(12 + one.size() + two.size()) + 256);
    folder.write("b.spr", spritefile({named("RINDENT", 1)}));
    REQUIRE_FALSE(folder.add(&a, "b.spr"));
    CHECK(a.used() == spritefile({one, two, named("RINDENT", 1)}));

    const sprite *found = spritefind(a.block, "Rindent"); // the first of the two
    REQUIRE(found);
    CHECK(found->mode == 27);
    CHECK(spritefind(a.block, "twelve bytes and more"));
    CHECK(!spritefind(a.block, "twelve byte"));
    const sprite *s = nullptr;
    spriteresolve(a.block, spritenamed("RINDENT"), &s);
    CHECK(s == found);
    spriteresolve(a.block, spriteitself(spritein(one)), &s);
    CHECK(s == spritein(one));
}

TEST_CASE("sprites come from the fine form, the plain one, a resource, or nowhere")
{
    spritefolder folder;
    areamade a;
    std::filesystem::create_directories(folder.path + "/a22.spr");
    CHECK_FALSE(folder.add(&a));
    CHECK(a.head().count == 0);
    folder.write("a.spr", spritefile({named("plain")}));
    REQUIRE_FALSE(folder.add(&a)); // a folder is no file
    CHECK(spritefind(a.block, "plain"));
    std::filesystem::remove(folder.path + "/a22.spr");
    folder.write("a22.spr", spritefile({named("fine")}));
    REQUIRE_FALSE(folder.add(&a));
    CHECK(spritefind(a.block, "fine"));

    spriteresourcebytes = spritefile({named("one"), named("two", 8, 40, 40)});
    areamade b;
    CHECK_FALSE(addsprites(nullptr, "made", &b.block, 0)); // another module
    CHECK(b.head().count == 0);
    REQUIRE_FALSE(addsprites(nullptr, "made", &b.block, 7));
    CHECK(b.used() == spriteresourcebytes);
    const std::string before = b.used();
    for (const std::string &bad : {before.substr(0, before.size() - 1), std::string(11, '\xFF')}) {
        spriteresourcebytes = bad;
        CHECK(codeof(addsprites(nullptr, "made", &b.block, 7)) == ERRORREAD);
    }
    CHECK(b.used() == before);

    REQUIRE_FALSE(initsprites());
    REQUIRE_FALSE(addspritesshared(folder.path.c_str(), "a.spr"));
    CHECK(spritefind(spritepool, "fine"));
    endsprites();
    CHECK(!spritepool);
}

// Which pixel is which is the plots' of spritebits_test.cpp.
TEST_CASE("a mask may be of one bit at any depth, and a mode may say that there is none")
{
    spritelayout layout;
    spritemade made = spritestriped(4, 5, 2, true);
    made.mode = word(3, 0, 0);
    made.widemask = false;
    std::string bytes = spritebytes(made);
    REQUIRE_FALSE(spritelay(spritein(bytes), &layout));
    CHECK((!spriteshows(&layout, 2, 0) && spriteshows(&layout, 3, 0)));
    CHECK(spritepixel(&layout.image, 3, 1) == made.pixels[8]);
    made.mode |= SPRITEMODENOMASK;
    bytes = spritebytes(made);
    REQUIRE_FALSE(spritelay(spritein(bytes), &layout));
    CHECK(!layout.mask.bytes);
}

TEST_CASE("a damaged file adds nothing")
{
    spritefolder folder;
    const std::string good = spritefile({named("one"), named("two", 8, 12, 7)});
    uint32_t next;
    std::memcpy(&next, &good[NEXT], sizeof next);
    const uint32_t size = static_cast<uint32_t>(good.size());
    const struct {
        size_t at;
        std::vector<uint32_t> values;
        uint32_t code;
    } faults[] = {
        {0, {0x80000000, 3}, ECR},      // a count that is negative, or too high
        {4, {12, 17, 100000}, ECR},     // a first in the head, off the words, too far
        {8, {15}, ECR},                 // a free space before the sprites
        {8, {size + 5}, ERRORREAD},     // more than the file has
        {NEXT, {0, 40, next + 2}, ECR}, // no size, less than a head, off the words
        {WIDTH, {2000, 0x40000000, 0xFFFFFFFF}, ECR},
        {HEIGHT, {1000, 0x7FFFFFFF}, ECR},
        {FIRSTBIT, {32}, ECR}, // past a word
        {LASTBIT, {0xFFFFFFFF}, ECR},
        {IMAGE, {40, 46, next - 4, 0xFFFFFFFC}, ECR},
        {MASK, {0, next - 4, 0x7FFFFFFC}, ECR},
        {MODE, {15u << 27 | 1, 0x30000001}, 0}, // unknown; of 32 bits, where 2 pixels remain
    };
    for (const auto &fault : faults)
        for (uint32_t value : fault.values) {
            CAPTURE(fault.at);
            CAPTURE(value);
            CHECK(folder.code(patched(good, fault.at, value)) == fault.code);
        }
    CHECK(folder.code(good.substr(0, good.size() - 1)) == ERRORREAD);
    CHECK(folder.code("short") == ERRORREAD);
    CHECK(folder.code(good + "and more") == 0);
    const std::string only = spritefile({named("one", 1, 8, 1)});
    CHECK(folder.code(patched(only, FIRSTBIT, 9)) == ECR); // no pixel is left
    CHECK(folder.code(patched(only, NEXT, only.size())) == ECR);

    sprite s = {};
    s.next = 0x7FFFFFFC;
    s.image = s.mask = 44;
    s.mode = 25;
    s.width = 1 << 27; // a row of more bits than can be counted
    CHECK(codeof(spritesize(&s, nullptr, nullptr, nullptr)) == ECR);
    s.width = 0;
    s.mode = 15u << 27 | 1;
    CHECK(codeof(spritesize(&s, nullptr, nullptr, nullptr)) == EMODE);
}

TEST_CASE("short memory adds nothing")
{
    spritefolder folder;
    spriteresourcebytes = spritefile({named("two"), named("three", 8, 40, 40)});
    folder.write("a.spr", spriteresourcebytes);
    for (bool file : {true, false})
        for (int32_t n = 0;; n++) {
            areamade a;
            flexfailafter(n);
            errorblock *err = file ? folder.add(&a) : addsprites(nullptr, "made", &a.block, 7);
            flexfailafter(-1);
            if (!err) break;
            CHECK(err->code == ERRORMEMORY);
            CHECK(a.used() == spritefile({}));
            REQUIRE(n < 50);
        }
}

TEST_CASE("a sprite saved alone, byte for byte")
{
    spritefolder folder;
    std::string path = folder.path + "/saved.spr", bytes = named("one");
    REQUIRE_FALSE(spritesave(spritein(bytes), path.c_str()));
    std::ifstream file(path, std::ios::binary);
    std::string saved = {std::istreambuf_iterator<char>(file), {}};
    CHECK(saved == patched(spritefile({bytes}) + std::string(44, 0), 8, bytes.size() + 60));
    areamade a; // and what follows it there is no sprite
    REQUIRE_FALSE(folder.add(&a, "saved.spr"));
    CHECK(a.used() == spritefile({bytes}));
    CHECK(codeof(spritesave(spritein(patched(bytes, 0, 0x7FFFFFFF)), path.c_str())) == ECR);
}
