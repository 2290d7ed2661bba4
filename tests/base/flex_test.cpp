#include "base/flex.h"

#include "tests/base/scratch.h"

#include <algorithm>
#include <cstring>
#include <random>

namespace
{

std::string bytesof(flexptr anchor)
{
    int32_t size = -1;
    flex_size(&anchor, &size);
    return std::string(static_cast<char *>(anchor), static_cast<size_t>(size));
}

void fill(flexptr *anchor, const std::string &bytes)
{
    REQUIRE(!flex_alloc(anchor, static_cast<int32_t>(bytes.size())));
    std::memcpy(*anchor, bytes.data(), bytes.size());
}

// The block's move, and its bytes as they are when its owner is told.
intptr_t movedby;
int moves;
std::string seen;

void moved(intptr_t argument, intptr_t delta)
{
    movedby += delta;
    moves++;
    seen = bytesof(*reinterpret_cast<flexptr *>(argument));
}

flexptr spare;
int hookcalls;

errorblock *freespare(int32_t)
{
    hookcalls++;
    if (!spare) return makeerror(ERRORNOFILE);
    flex_free(&spare);
    return nullptr;
}

} // namespace

TEST_CASE("a new block is zero-filled and aligned, and an empty one is no empty anchor")
{
    for (int32_t size : {0, 1, 17, 100000}) {
        flexptr anchor = nullptr;
        CHECK(!flex_alloc(&anchor, size));
        REQUIRE(anchor);
        CHECK(reinterpret_cast<uintptr_t>(anchor) % 16 == 0);
        CHECK(bytesof(anchor) == std::string(static_cast<size_t>(size), '\0'));
        for (int again = 0; again < 2; again++) {
            CHECK(!flex_free(&anchor));
            CHECK(!anchor);
        }
    }
}

TEST_CASE("sizes and offsets that can't be are refused, and nothing changes")
{
    flexptr anchor = nullptr;
    CHECK(code(flex_alloc(&anchor, -1)) == ERRORCORRUPTMEMORY);
    CHECK(code(flex_alloc(&anchor, INT32_MAX)) == ERRORMEMORY);
    CHECK(!anchor);
    fill(&anchor, "payload");
    CHECK(code(flex_extend(&anchor, -1)) == ERRORCORRUPTMEMORY);
    CHECK(code(flex_extend(&anchor, INT32_MAX)) == ERRORMEMORY);
    for (auto [at, by] : {std::pair{8, 1}, {-1, 5}})
        CHECK(code(flex_midextend(&anchor, at, by)) == ERRORCORRUPTMEMORY);
    CHECK(code(flex_chunk(&anchor, INT32_MAX, 256)) == ERRORMEMORY);

    for (auto *step : {+[](flexptr *a) { return flex_extend(a, 20); },
                       +[](flexptr *a) { return flex_midextend(a, 3, 4); },
                       +[](flexptr *a) { return flex_chunk(a, 20, 16); }}) {
        flexfailafter(0);
        CHECK(code(step(&anchor)) == ERRORMEMORY);
    }
    CHECK(bytesof(anchor) == "payload");

    // The hook helps once, and then has its own error.
    flexptr helped;
    hookcalls = 0;
    fill(&spare, "spare");
    flex_setfail(freespare);
    flexfailafter(0);
    CHECK(!flex_alloc(&helped, 10)); // at the second try
    CHECK(!spare);
    flexfailafter(0);
    CHECK(code(flex_extend(&anchor, 20)) == ERRORNOFILE);
    CHECK(hookcalls == 2);
    flexfailafter(0);
    CHECK(code(flex_midextend(&anchor, 0, 5)) == ERRORMEMORY); // doesn't ask
    CHECK(hookcalls == 2);
    flex_free(&anchor);
    flex_free(&helped);
}

TEST_CASE("gaps open and close where a string's would")
{
    std::string model = "abcdef";
    flexptr anchor;
    fill(&anchor, model);
    std::mt19937 random(7);
    for (int round = 0; round < 200; round++) {
        size_t at = random() % (model.size() + 1), by = random() % 9;
        int32_t place = static_cast<int32_t>(at);
        if (model.size() > 60 || random() % 3 == 0) { // no more is closed than there is before it
            REQUIRE(!flex_midextend(&anchor, place, -static_cast<int32_t>(by)));
            model.erase(at - std::min(by, at), std::min(by, at));
        } else {
            std::string added(by, static_cast<char>('a' + round % 26));
            REQUIRE(!flex_midextend(&anchor, place, static_cast<int32_t>(by)));
            std::memcpy(static_cast<char *>(anchor) + at, added.data(), by);
            model.insert(at, added);
        }
        REQUIRE(bytesof(anchor) == model);
    }
    flex_free(&anchor);
}

TEST_CASE("chunks: the next multiple strictly above, unless the block fits well")
{
    // A block of before bytes, asked for size in chunks of 256; 0 is an empty anchor.
    const int32_t list[][3] = {{0, 1000, 1000},    {0, 10, 256},       {1000, 1000, 1024},
                               {1300, 1000, 1024}, {1256, 1000, 1256}, {1257, 1000, 1024},
                               {1024, 1024, 1280}, {1024, 1023, 1024}, {100, 0, 100},
                               {600, 0, 256}};
    for (auto [before, size, after] : list) {
        CAPTURE(before);
        flexptr anchor = nullptr;
        if (before) flex_alloc(&anchor, before);
        CHECK(!flex_chunk(&anchor, size, 256));
        CHECK(bytesof(anchor).size() == static_cast<size_t>(after));
        flex_free(&anchor);
    }
}

TEST_CASE("whoever asked is told of each move, when the block is finished, and of no other")
{
    flexshake(true);
    movedby = moves = 0;
    flexptr a, b;
    fill(&a, "abcdef");
    fill(&b, "second");
    flex_setreloc(&a, moved, reinterpret_cast<intptr_t>(&a));
    intptr_t start = reinterpret_cast<intptr_t>(a);
    flex_midextend(&a, 2, 3);
    CHECK(seen.substr(0, 2) + seen.substr(5) == "abcdef");
    flex_midextend(&a, 5, -4);
    CHECK(seen == "acdef");
    flex_midextend(&a, 5, 0);
    flex_extend(&a, 2);
    CHECK(seen == "ac");
    flex_chunk(&a, 99, 50);
    flex_chunk(&a, 98, 50); // fits well
    CHECK(reinterpret_cast<intptr_t>(a) - start == movedby);
    flex_swap(&a, &b);
    CHECK(bytesof(a) == "second");
    flex_setreloc(&b, nullptr, 0);
    flex_extend(&b, 7);
    CHECK(moves == 6);
    flex_free(&a);
    flex_free(&b);
}
