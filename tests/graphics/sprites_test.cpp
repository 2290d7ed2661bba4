// Areas, and what becomes of any file.
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
};

std::string named(const std::string &name, int32_t bpp = 4, int32_t width = 9, int32_t height = 3)
{
    spritemade made = spritestriped(bpp, width, height, true);
    made.name = name;
    return spritebytes(made);
}

void patch(std::string *bytes, size_t at, uint32_t value)
{
    std::memcpy(&(*bytes)[at], &value, sizeof value);
}

// Where the head of the first sprite's fields stand in a file.
enum field : size_t { NEXT = 12, WIDTH = 28, HEIGHT = 32, FIRSTBIT = 36, LASTBIT = 40 };
enum : size_t { IMAGE = 44, MASK = 48, MODE = 52 };

} // namespace

TEST_CASE("an empty area")
{
    areamade a;
    int32_t size;
    flex_size(&a.block, &size);
    CHECK(size == 256);
    CHECK(a.head().size == 256);
    CHECK(a.used() == spritefile({}));
    CHECK(!spritefind(a.block, "rindent"));
    CHECK(!spritefind(nullptr, "rindent"));
}

TEST_CASE("a file's sprites go behind those that are there")
{
    spritefolder folder;
    areamade a;
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
    CHECK(spritefind(a.block, "TWELVE BYTES") != found);
    CHECK(spritefind(a.block, "twelve bytes and more"));
    CHECK(!spritefind(a.block, "twelve byte"));
    CHECK(!spritefind(a.block, "rind"));
}

TEST_CASE("an area grows only for a file larger than its free space")
{
    spritefolder folder;
    areamade a;
    folder.write("a.spr", spritefile({named("small", 1, 4, 2)}));
    REQUIRE_FALSE(folder.add(&a));
    CHECK(a.head().size == 256);
    std::string rest = spritefile({named("rest", 1, 4, 2)});
    rest.resize(static_cast<size_t>(a.head().size - a.head().free));
    folder.write("b.spr", rest);
    REQUIRE_FALSE(folder.add(&a, "b.spr")); // all of what is free
    CHECK(a.head().size == 256);
    CHECK(a.head().count == 2);
    rest.resize(static_cast<size_t>(a.head().size - a.head().free) + 1);
    folder.write("c.spr", rest);
    int32_t wanted = a.head().free + static_cast<int32_t>(rest.size()) + 256;
    REQUIRE_FALSE(folder.add(&a, "c.spr"));
    CHECK(a.head().size == wanted);
}

TEST_CASE("the fine form of a file comes before the plain one, and none is no error")
{
    spritefolder folder;
    areamade a;
    CHECK_FALSE(folder.add(&a));
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
    CHECK(a.head().count == 2);
}

TEST_CASE("a resource's sprites are added like a file's")
{
    areamade a;
    spriteresourcebytes = spritefile({named("one"), named("two", 8, 40, 40)});
    CHECK_FALSE(addsprites(nullptr, "made", &a.block, 0)); // another module
    CHECK(a.head().count == 0);
    REQUIRE_FALSE(addsprites(nullptr, "made", &a.block, 7));
    CHECK(a.used() == spriteresourcebytes);

    const std::string before = a.used();
    patch(&spriteresourcebytes, HEIGHT, 1000);
    CHECK(codeof(addsprites(nullptr, "made", &a.block, 7)) == ECR);
    CHECK(a.used() == before);
    spriteresourcebytes.pop_back();
    CHECK(codeof(addsprites(nullptr, "made", &a.block, 7)) == ERRORREAD);
    spriteresourcebytes.assign(11, '\xFF'); // less than a head
    CHECK(codeof(addsprites(nullptr, "made", &a.block, 7)) == ERRORREAD);
    CHECK(a.used() == before);
}

TEST_CASE("the task's own area")
{
    spriteresourcebytes = spritefile({named("one")});
    REQUIRE_FALSE(initsprites());
    CHECK_FALSE(addspritesshared(nullptr, "made")); // not in the program
    CHECK(!spritefind(spritepool, "one"));
    spritefolder folder;
    folder.write("a.spr", spritefile({named("two")}));
    REQUIRE_FALSE(addspritesshared(folder.path.c_str(), "a.spr"));
    CHECK(spritefind(spritepool, "two"));
    endsprites();
    CHECK(!spritepool);
}

TEST_CASE("a reference is a sprite with the mark, otherwise a name")
{
    areamade a;
    spritefolder folder;
    folder.write("a.spr", spritefile({named("one")}));
    REQUIRE_FALSE(folder.add(&a));
    std::string bytes = named("other");
    const sprite *s = nullptr;
    spriteresolve(a.block, spriteitself(spritein(bytes)), &s);
    CHECK(s == spritein(bytes));
    spriteresolve(a.block, spritenamed("ONE"), &s);
    CHECK(s == spritefind(a.block, "one"));
    spriteresolve(a.block, spritenamed("none"), &s);
    CHECK(!s);
    s = spritein(bytes);
    spriteresolve(nullptr, spriteitself(spritein(bytes)), &s);
    CHECK(!s);
}

TEST_CASE("a sprite's size counts the bits between its first and its last")
{
    for (int32_t bpp : {1, 2, 4, 8, 16, 24, 32})
        for (int32_t width : {1, 7, 31, 32, 33, 64})
            for (int32_t firstbit : {0, 1, 5}) {
                spritemade made = spritestriped(bpp, width, 2, true);
                if (bpp < 24) made.firstbit = firstbit * bpp % 32;
                std::string bytes = spritebytes(made);
                int32_t w, h, depth;
                REQUIRE_FALSE(spritesize(spritein(bytes), &w, &h, &depth));
                CHECK(w == width);
                CHECK(h == 2);
                CHECK(depth == bpp);
                spritelayout layout;
                REQUIRE_FALSE(spritelay(spritein(bytes), &layout));
                CHECK(layout.palettecount == static_cast<int32_t>(made.palette.size()));
                for (size_t n = 0; n < made.pixels.size(); n++) {
                    int32_t x = static_cast<int32_t>(n) % width,
                            y = static_cast<int32_t>(n) / width;
                    REQUIRE(spritepixel(&layout.image, x, y) == made.pixels[n]);
                    REQUIRE(spriteshows(&layout, x, y) == (made.mask[n] != 0));
                }
            }
}

TEST_CASE("a mask is of the image's depth or of one bit, or isn't one")
{
    spritemade made = spritestriped(4, 5, 2, true);
    made.mode = 3u << 27 | 1; // a new word of the same depth
    made.widemask = false;
    std::string bytes = spritebytes(made);
    spritelayout layout;
    REQUIRE_FALSE(spritelay(spritein(bytes), &layout));
    CHECK(layout.mask.bpp == 1);
    CHECK_FALSE(spriteshows(&layout, 2, 0));
    CHECK(spriteshows(&layout, 3, 0));

    made.mode |= SPRITEMODENOMASK;
    bytes = spritebytes(made);
    REQUIRE_FALSE(spritelay(spritein(bytes), &layout));
    CHECK(!layout.mask.bytes);
    made = spritestriped(4, 5, 2, false);
    bytes = spritebytes(made);
    REQUIRE_FALSE(spritelay(spritein(bytes), &layout));
    CHECK(!layout.mask.bytes);
}

TEST_CASE("a damaged file adds nothing")
{
    spritefolder folder;
    std::string good = spritefile({named("one"), named("two", 8, 12, 7)});
    uint32_t next;
    std::memcpy(&next, &good[NEXT], sizeof next);

    struct {
        const char *what;
        size_t at;
        uint32_t value, code;
    } const faults[] = {
        {"a count that is negative", 0, 0x80000000, ECR},
        {"a sprite too many", 0, 3, ECR},
        {"a first inside the head", 4, 12, ECR},
        {"a first off the words", 4, 17, ECR},
        {"a first behind the free space", 4, 100000, ECR},
        {"a free space before the sprites", 8, 15, ECR},
        {"more than the file has", 8, static_cast<uint32_t>(good.size()) + 5, ERRORREAD},
        {"a sprite of no size", NEXT, 0, ECR},
        {"a sprite smaller than its head", NEXT, 40, ECR},
        {"a size off the words", NEXT, next + 2, ECR},
        {"a size past the file", NEXT, 0x7FFFFFFC, ECR},
        {"a negative size", NEXT, 0x80000000, ECR},
        {"too wide", WIDTH, 2000, ECR},
        {"a width that overflows", WIDTH, 0x40000000, ECR},
        {"a negative width", WIDTH, 0xFFFFFFFF, ECR},
        {"too high", HEIGHT, 1000, ECR},
        {"a height that overflows", HEIGHT, 0x7FFFFFFF, ECR},
        {"a first bit past a word", FIRSTBIT, 32, ECR},
        {"a negative last bit", LASTBIT, 0xFFFFFFFF, ECR},
        {"an image in the head", IMAGE, 40, ECR},
        {"an image off the words", IMAGE, 46, ECR},
        {"an image past the end", IMAGE, next - 4, ECR},
        {"a negative image", IMAGE, 0xFFFFFFFC, ECR},
        {"a mask in the head", MASK, 0, ECR},
        {"a mask past the end", MASK, next - 4, ECR},
        {"a mask far away", MASK, 0x7FFFFFFC, ECR},
        {"pixels wider than a row", MODE, 0x30000001, 0}, // 32 bits: 2 pixels remain
    };
    for (const auto &fault : faults) {
        CAPTURE(fault.what);
        areamade a;
        std::string bytes = good;
        patch(&bytes, fault.at, fault.value);
        folder.write("a.spr", bytes);
        CHECK(codeof(folder.add(&a)) == fault.code);
        CHECK(a.head().count == (fault.code ? 0 : 2));
        CHECK(a.head().free == (fault.code ? 16 : static_cast<int32_t>(good.size()) + 4));
    }
    areamade a;
    folder.write("a.spr", good.substr(0, good.size() - 1));
    CHECK(codeof(folder.add(&a)) == ERRORREAD);
    folder.write("a.spr", "short");
    CHECK(codeof(folder.add(&a)) == ERRORREAD);
    folder.write("a.spr", good + "and more");
    CHECK_FALSE(folder.add(&a));
}

TEST_CASE("damage to the only sprite of a file")
{
    spritefolder folder;
    const std::string good = spritefile({named("one", 1, 8, 1)});
    auto with = [&](size_t at, size_t value) {
        areamade a;
        std::string bytes = good;
        patch(&bytes, at, static_cast<uint32_t>(value));
        folder.write("a.spr", bytes);
        return codeof(folder.add(&a));
    };
    CHECK(with(FIRSTBIT, 9) == ECR); // no pixel is left
    CHECK(with(NEXT, good.size()) == ECR);
}

TEST_CASE("a row of more bits than can be counted is damage")
{
    sprite s = {};
    s.next = 0x7FFFFFFC;
    s.lastbit = 31;
    s.image = s.mask = 44;
    s.mode = 25;
    s.width = (1 << 24) - 1;
    int32_t width;
    REQUIRE_FALSE(spritesize(&s, &width, nullptr, nullptr));
    CHECK(width == 1 << 29);
    s.width = 1 << 27;
    CHECK(codeof(spritesize(&s, nullptr, nullptr, nullptr)) == ECR);
}

TEST_CASE("a sprite of an unknown mode can be kept, not looked at")
{
    spritefolder folder;
    areamade a;
    std::string bytes = spritefile({named("odd"), named("one")});
    patch(&bytes, MODE, 15u << 27 | 1);
    folder.write("a.spr", bytes);
    REQUIRE_FALSE(folder.add(&a));
    CHECK(codeof(spritesize(spritefind(a.block, "odd"), nullptr, nullptr, nullptr)) == EMODE);
    CHECK_FALSE(spritesize(spritefind(a.block, "one"), nullptr, nullptr, nullptr));
}

TEST_CASE("short memory adds nothing")
{
    spritefolder folder;
    folder.write("a.spr", spritefile({named("one", 8, 40, 40)}));
    spriteresourcebytes = spritefile({named("two"), named("three", 8, 40, 40)});
    for (const char *from : {"file", "resource"})
        for (int32_t n = 0;; n++) {
            REQUIRE(n < 50);
            areamade a;
            flexfailafter(n);
            errorblock *err =
                *from == 'f' ? folder.add(&a) : addsprites(nullptr, "made", &a.block, 7);
            flexfailafter(-1);
            if (!err) break;
            CHECK(err->code == ERRORMEMORY);
            CHECK(a.used() == spritefile({}));
        }
}

TEST_CASE("a sprite saved alone, byte for byte")
{
    spritefolder folder;
    std::string path = folder.path + "/saved.spr", bytes = named("one");
    REQUIRE_FALSE(spritesave(spritein(bytes), path.c_str()));
    std::ifstream file(path, std::ios::binary);
    std::string saved = {std::istreambuf_iterator<char>(file), {}};
    std::string wanted = spritefile({bytes}) + std::string(44, 0);
    patch(&wanted, 8, static_cast<uint32_t>(bytes.size()) + 60);
    CHECK(saved == wanted);

    areamade a; // and what follows it there is no sprite
    REQUIRE_FALSE(folder.add(&a, "saved.spr"));
    CHECK(a.used() == spritefile({bytes}));
    CHECK(!spritefind(a.block, ""));

    patch(&bytes, 0, 0x7FFFFFFF);
    CHECK(codeof(spritesave(spritein(bytes), path.c_str())) == ECR);
}
