#include "base/errors.h"
#include "base/flex.h"
#include "tests/base/scratch.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <utility>

namespace
{

int32_t sizeofblock(flexptr anchor)
{
    int32_t size = -1;
    flex_size(&anchor, &size);
    return size;
}

std::string bytesof(flexptr anchor)
{
    return std::string(static_cast<char *>(anchor), static_cast<size_t>(sizeofblock(anchor)));
}

void fill(flexptr *anchor, const std::string &bytes)
{
    REQUIRE(flex_alloc(anchor, static_cast<int32_t>(bytes.size())) == nullptr);
    std::memcpy(*anchor, bytes.data(), bytes.size());
}

// Every call that may move a block does, whatever the run asks for.
struct shakemode {
    shakemode()
    {
        flexshake(true);
    }
    ~shakemode()
    {
        flexshake(shaken());
    }
};

intptr_t movedby;
int moves;

void movecount(intptr_t argument, intptr_t delta)
{
    movedby += delta;
    moves += static_cast<int>(argument);
}

// The block as it is when its owner is told.
std::string seenbytes;

void movelook(intptr_t argument, intptr_t)
{
    seenbytes = bytesof(*reinterpret_cast<flexptr *>(argument));
}

flexptr spare;
int hookcalls;

errorblock *freespare(int32_t argument)
{
    hookcalls++;
    CHECK(argument == 0);
    if (!spare) return makeerror(ERRORNOFILE);
    flex_free(&spare);
    return nullptr;
}

} // namespace

TEST_CASE("a new block is zero-filled and aligned, and an empty one is no empty anchor")
{
    for (int32_t size : {0, 1, 17, 100000}) {
        flexptr anchor = nullptr;
        CHECK(flex_alloc(&anchor, size) == nullptr);
        REQUIRE(anchor);
        CHECK(reinterpret_cast<uintptr_t>(anchor) % 16 == 0);
        CHECK(bytesof(anchor) == std::string(static_cast<size_t>(size), '\0'));
        CHECK(flexblocks() == 1);
        CHECK(flex_free(&anchor) == nullptr);
        CHECK(anchor == nullptr);
        CHECK(flex_free(&anchor) == nullptr);
    }
}

TEST_CASE("sizes and offsets that can't be are refused, and nothing changes")
{
    flexptr anchor = nullptr;
    CHECK(code(flex_alloc(&anchor, -1)) == ERRORCORRUPTMEMORY);
    CHECK(code(flex_alloc(&anchor, INT32_MAX)) == ERRORMEMORY);
    CHECK(anchor == nullptr);
    fill(&anchor, "payload");
    CHECK(code(flex_extend(&anchor, -1)) == ERRORCORRUPTMEMORY);
    CHECK(code(flex_extend(&anchor, INT32_MAX)) == ERRORMEMORY);
    for (auto [at, by] : {std::pair{8, 1}, {8, -1}, {-1, 5}, {-3, -5}})
        CHECK(code(flex_midextend(&anchor, at, by)) == ERRORCORRUPTMEMORY);
    CHECK(code(flex_midextend(&anchor, 7, INT32_MAX)) == ERRORMEMORY);
    CHECK(code(flex_chunk(&anchor, INT32_MAX, 256)) == ERRORMEMORY);
    for (auto *step : {+[](flexptr *a) { return flex_extend(a, 20); },
                       +[](flexptr *a) { return flex_midextend(a, 3, 4); },
                       +[](flexptr *a) { return flex_chunk(a, 20, 16); }}) {
        flexfailafter(0);
        CHECK(code(step(&anchor)) == ERRORMEMORY);
    }
    CHECK(bytesof(anchor) == "payload");
    flex_free(&anchor);
}

TEST_CASE("gaps open and close where a string's would")
{
    flexptr anchor;
    fill(&anchor, "abcdef");
    CHECK(flex_midextend(&anchor, 3, -10) == nullptr); // no more than there is before it
    CHECK(bytesof(anchor) == "def");

    std::string model = "def";
    std::mt19937 random(7);
    for (int round = 0; round < 500; round++) {
        size_t at = random() % (model.size() + 1);
        size_t by = random() % 9;
        int32_t place = static_cast<int32_t>(at);
        if (model.size() > 60 || random() % 3 == 0) {
            by = std::min(by, at);
            model.erase(at - by, by);
            REQUIRE(flex_midextend(&anchor, place, -static_cast<int32_t>(by)) == nullptr);
        } else {
            std::string added(by, static_cast<char>('a' + round % 26));
            model.insert(at, added);
            REQUIRE(flex_midextend(&anchor, place, static_cast<int32_t>(by)) == nullptr);
            std::memcpy(static_cast<char *>(anchor) + at, added.data(), by);
        }
        REQUIRE(bytesof(anchor) == model);
    }
    flex_free(&anchor);
}

TEST_CASE("chunks: the next multiple strictly above, unless the block fits well")
{
    // A block of before bytes, asked for size in chunks; 0 is an empty anchor.
    const struct {
        int32_t before, size, chunk, after;
    } rows[] = {{0, 1000, 256, 1000},    {0, 10, 256, 256},       {1000, 1000, 256, 1024},
                {1024, 1000, 256, 1024}, {1300, 1000, 256, 1024}, {1256, 1000, 256, 1256},
                {1257, 1000, 256, 1024}, {1024, 1024, 256, 1280}, {1024, 1023, 256, 1024},
                {100, 0, 256, 100},      {600, 0, 256, 256}};
    for (const auto &row : rows) {
        CAPTURE(row.before);
        CAPTURE(row.size);
        flexptr anchor = nullptr;
        void *plain = nullptr;
        if (row.before) flex_alloc(&anchor, row.before);
        if (row.before) heap_alloc(&plain, row.before);
        CHECK(flex_chunk(&anchor, row.size, row.chunk) == nullptr);
        CHECK(sizeofblock(anchor) == row.after);
        CHECK(heap_chunk(&plain, row.size, row.chunk) == nullptr);
        std::memset(plain, 1, static_cast<size_t>(row.after));
        flex_free(&anchor);
        heap_free(&plain);
    }
}

TEST_CASE("the out-of-memory hook")
{
    flexptr anchor = nullptr;
    hookcalls = 0;
    flex_alloc(&spare, 10);
    flex_setfail(freespare);
    flexfailafter(0);
    CHECK(flex_alloc(&anchor, 10) == nullptr); // at the second try
    CHECK(spare == nullptr);
    CHECK(hookcalls == 1);

    flexfailafter(0);
    CHECK(code(flex_extend(&anchor, 20)) == ERRORNOFILE); // the hook's own error
    CHECK(hookcalls == 2);
    flexfailafter(0);
    CHECK(code(flex_midextend(&anchor, 0, 5)) == ERRORMEMORY);
    flexfailafter(0);
    CHECK(code(flex_chunk(&anchor, 50, 16)) == ERRORMEMORY);
    CHECK(code(flex_extend(&anchor, -1)) == ERRORCORRUPTMEMORY);
    CHECK(hookcalls == 2);
    CHECK(sizeofblock(anchor) == 10);
    flex_free(&anchor);
}

TEST_CASE("whoever asked is told of each move, and of no other")
{
    shakemode on;
    movedby = moves = 0;
    flexptr a, b;
    fill(&a, "first");
    fill(&b, "second");
    flex_setreloc(&a, movecount, 1);
    intptr_t start = reinterpret_cast<intptr_t>(a);
    flex_extend(&a, 100);
    flex_midextend(&a, 0, 5);
    flex_midextend(&a, 5, -5);
    flex_chunk(&a, 99, 50);
    CHECK(moves == 4);
    CHECK(reinterpret_cast<intptr_t>(a) - start == movedby);
    flex_extend(&b, 100);
    flex_swap(&a, &b);
    CHECK(moves == 4);
    CHECK(bytesof(a).substr(0, 6) == "second");
    flex_setreloc(&b, nullptr, 0);
    flex_extend(&b, 7);
    CHECK(moves == 4);
    CHECK(bytesof(b).substr(0, 5) == "first");
    flex_free(&a);
    flex_free(&b);
}

TEST_CASE("whoever is told finds the block finished")
{
    shakemode on;
    flexptr anchor;
    fill(&anchor, "abcdef");
    flex_setreloc(&anchor, movelook, reinterpret_cast<intptr_t>(&anchor));
    flex_midextend(&anchor, 2, 3);
    CHECK(seenbytes.size() == 9);
    CHECK(seenbytes.substr(5) == "cdef");
    flex_midextend(&anchor, 5, -4);
    CHECK(seenbytes == "acdef");
    flex_extend(&anchor, 2);
    CHECK(seenbytes == "ac");
    flex_free(&anchor);
}

TEST_CASE("the heap's state goes to the trace")
{
    headless.keeptrace = true;
    flexptr anchor;
    flex_alloc(&anchor, 10);
    flex_check("now");
    flex_free(&anchor);
    CHECK(headless.tracetext == "Alloc 10 valid -2\r\nCheck memory now valid -2\r\nheap OK\r\n");
    CHECK(flex_space() == 0x7fffffff);
}

TEST_CASE("a growing block that goes down is worth a line")
{
    shakemode on;
    headless.keeptrace = true;
    flexptr anchor;
    flex_alloc(&anchor, 10);
    flex_setreloc(&anchor, movecount, 1);
    int down = 0, lines = 0;
    for (int i = 0; i < 40; i++) {
        flexptr before = anchor;
        flex_extend(&anchor, i % 2 ? 10 : 5000);
        down += anchor < before;
        flex_midextend(&anchor, 1, -1); // a closing gap never is
    }
    for (size_t at = 0;
         (at = headless.tracetext.find("!!!!XXX realloc down\r\n", at)) != std::string::npos; at++)
        lines++;
    CHECK(down > 0);
    CHECK(lines == down);
    flex_free(&anchor);
}

TEST_CASE("plain allocations")
{
    void *pointer = nullptr;
    CHECK(code(heap_alloc(&pointer, -1)) == ERRORCORRUPTMEMORY);
    CHECK(code(heap_allocraw(&pointer, -1)) == ERRORMEMORY);
    CHECK(code(heap_alloc(&pointer, INT32_MAX)) == ERRORMEMORY);
    CHECK(pointer == nullptr);
    CHECK(heap_free(&pointer) == nullptr);

    for (auto *make : {heap_alloc, heap_allocraw, heap_realloc}) {
        CHECK(make(&pointer, 0) == nullptr);
        REQUIRE(pointer);
        *static_cast<char *>(pointer) = 'x';
        CHECK(heap_realloc(&pointer, 3) == nullptr);
        CHECK(*static_cast<char *>(pointer) == 'x');
        flexfailafter(0);
        CHECK(code(heap_realloc(&pointer, 100)) == ERRORMEMORY);
        CHECK(code(heap_realloc(&pointer, -1)) == ERRORCORRUPTMEMORY);
        CHECK(*static_cast<char *>(pointer) == 'x');
        CHECK(flexblocks() == 1);
        heap_free(&pointer);
        CHECK(pointer == nullptr);
    }
}
