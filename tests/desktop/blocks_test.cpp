#include "desktop/blocks.h"

#include "base/errors.h"
#include "tests/desktop/fake/fakesource.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace
{

// Two functions to tell blocks apart by; nothing calls them.
void one() {}
void two() {}

int32_t add(int32_t type, intptr_t owner, intptr_t data)
{
    bool added;
    CHECK(addblock(type, 0, owner, data, one, &added) == nullptr);
    return added;
}

bool rem(int32_t type, intptr_t owner, intptr_t data)
{
    bool removed;
    remblock(type, 0, owner, data, one, &removed);
    return removed;
}

// Blocks in the order of registration, each with a number of its own that
// always grows; a walk's place is the number it has seen last. Nothing moves.
struct modelblock {
    uint64_t serial;
    int32_t type;
    intptr_t owner, data;

    bool is(int32_t t, intptr_t o, intptr_t d) const
    {
        return type == t && owner == o && data == d;
    }
};

struct model {
    std::vector<modelblock> live;
    uint64_t next = 1;

    bool add(int32_t type, intptr_t owner, intptr_t data)
    {
        for (const modelblock &b : live)
            if (b.is(type, owner, data)) return false;
        live.push_back({next++, type, owner, data});
        return true;
    }

    bool rem(int32_t type, intptr_t owner, intptr_t data)
    {
        return std::erase_if(live, [&](const modelblock &b) { return b.is(type, owner, data); });
    }

    const modelblock *step(uint64_t *seen, int32_t type, intptr_t owner)
    {
        for (const modelblock &b : live)
            if (b.serial > *seen && (type == -1 || b.type == type) &&
                (owner == -1 || b.owner == owner)) {
                *seen = b.serial;
                return &b;
            }
        *seen = next - 1;
        return nullptr;
    }
};

struct walk {
    bool under = false;
    blockiter iter;
    uint64_t seen = 0;
};

void walkstep(model &expected, walk &w, int32_t type, intptr_t owner)
{
    block found;
    bool any = nextblock(&w.iter, type, BLOCKANY, owner, &found);
    const modelblock *b = expected.step(&w.seen, type, owner);
    REQUIRE(any == (b != nullptr));
    if (!b) return;
    REQUIRE(found.type == b->type);
    REQUIRE(found.window == b->owner);
    REQUIRE(found.data == b->data);
}

} // namespace

TEST_CASE("walks survive any adding and removing")
{
    REQUIRE(blockstart() == nullptr);
    std::mt19937 random(2718);
    auto draw = [&](uint32_t n) { return static_cast<int32_t>(random() % n); };
    model expected;
    walk walks[6];
    size_t most = 0;

    for (int i = 0; i < 200000; i++) {
        // It fills up to a few hundred and empties again, over and over.
        bool filling = i / 4000 % 2 == 0;
        int32_t type = draw(4), owner = draw(5), data = draw(30);
        walk &w = walks[draw(6)];
        int what = draw(12);
        if (what < (filling ? 4 : 1)) {
            REQUIRE(add(type, owner, data) == expected.add(type, owner, data));
        } else if (what < 5) {
            REQUIRE(rem(type, owner, data) == expected.rem(type, owner, data));
        } else if (!w.under) {
            blockiter_start(&w.iter);
            w.under = true;
            w.seen = 0;
        } else if (what < 10) {
            walkstep(expected, w, draw(3) ? type : -1, draw(3) ? owner : -1);
        } else if (what == 10) {
            blockiter_rewind(&w.iter);
            w.seen = 0;
        } else {
            blockiter_end(&w.iter); // in any order
            w.under = false;
        }
        REQUIRE(blockcount() == static_cast<int32_t>(expected.live.size()));
        most = std::max(most, expected.live.size());
    }
    CHECK(most > 2 * BLOCKCHUNK);
    for (walk &w : walks)
        if (w.under) blockiter_end(&w.iter);
}

TEST_CASE("equal blocks")
{
    REQUIRE(blockstart() == nullptr);
    headless.keeptrace = true;
    bool added, removed;
    CHECK(addblock(-11, 7, 3, 4, one, &added) == nullptr);
    CHECK(added);
    CHECK(addblock(-11, 7, 3, 4, one, &added) == nullptr);
    CHECK_FALSE(added);
    CHECK(blockcount() == 1);

    // One field makes a difference.
    const block others[] = {{-12, 7, 3, 4, one}, {-11, 8, 3, 4, one}, {-11, 7, 4, 4, one},
                            {-11, 7, 3, 5, one}, {-11, 7, 3, 4, two}, {-11, 7, 3, 4, nullptr}};
    for (const block &b : others)
        CHECK(addblock(b.type, b.subtype, b.window, b.data, b.function, nullptr) == nullptr);
    CHECK(blockcount() == 7);

    CHECK(remblock(-11, 7, 3, 4, two, &removed) == nullptr);
    CHECK(removed);
    CHECK(findblock(-11, 7, 3, 4, one) == 0);
    CHECK(headless.tracetext.empty());
    CHECK(remblock(-11, 7, 3, 4, two, &removed) == nullptr);
    CHECK_FALSE(removed);
    CHECK(headless.tracetext == "remblock missed type -11 message 7\r\n");
}

TEST_CASE("finding with and without wildcards")
{
    REQUIRE(blockstart() == nullptr);
    addblock(6, 0, 10, 100, one, nullptr);
    addblock(6, 0, 11, 100, two, nullptr);
    addblock(-10, 3, 0, 100, one, nullptr);
    CHECK(findblock(BLOCKANY, BLOCKANY, BLOCKANY, BLOCKANY, nullptr) == 0);
    CHECK(findblock(6, 0, 11, BLOCKANY, nullptr) == 1);
    CHECK(findblock(6, BLOCKANY, BLOCKANY, BLOCKANY, two) == 1);
    CHECK(findblock(BLOCKANY, 3, BLOCKANY, BLOCKANY, nullptr) == 2);
    CHECK(findblock(6, 0, 12, BLOCKANY, nullptr) == -1);
    CHECK(findblock(6, 0, 10, 100, two) == -1);
    blocksetdata(1, -7);
    CHECK(findblock(BLOCKANY, BLOCKANY, BLOCKANY, -7, nullptr) == 1);
    CHECK((blockat(1).function == two));
}

TEST_CASE("memory of the table")
{
    CHECK(fakecode(addblock(6, 0, 1, 1, one, nullptr)) == ERRORNOEVENT); // there is no table yet
    flexfailafter(0);
    CHECK(blockstart() != nullptr);
    REQUIRE(blockstart() == nullptr);
    int32_t i = 0;
    auto addupto = [&](int32_t count) {
        for (; i < count; i++)
            REQUIRE(addblock(6, 0, 1, i, one, nullptr) == nullptr);
    };
    addupto(BLOCKCHUNK);
    flexfailafter(0);
    bool added = true;
    CHECK(fakecode(addblock(6, 0, 1, i, one, &added)) == ERRORMEMORY);
    CHECK_FALSE(added);
    CHECK(blockcount() == BLOCKCHUNK);
    CHECK(findblock(6, 0, 1, BLOCKCHUNK - 1, one) == BLOCKCHUNK - 1);

    // An equal one needs no memory.
    CHECK(addblock(6, 0, 1, 0, one, nullptr) == nullptr);

    // Room that was there once is there again without asking.
    addupto(3 * BLOCKCHUNK);
    while (i > 0)
        rem(6, 1, --i);
    CHECK(blockcount() == 0);
    flexfailafter(0);
    addupto(3 * BLOCKCHUNK);
    CHECK(addblock(6, 0, 1, i, one, nullptr) != nullptr);
}
