#include "desktop/blocks.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>
#include <vector>

// What walks see is told again by a list in which nothing moves: each block has a
// number of its own that always grows, and a walk's place is the last it has seen.
TEST_CASE("walks survive any adding and removing")
{
    struct numbered {
        uint64_t number;
        int32_t type;
        intptr_t owner, data;
    };
    struct walk {
        bool under = false;
        blockiter iter;
        uint64_t seen = 0;
    };
    REQUIRE_FALSE(blockstart());
    std::mt19937 random(2718);
    auto draw = [&](uint32_t n) { return static_cast<int32_t>(random() % n); };
    std::vector<numbered> list;
    walk walks[6];
    uint64_t next = 1;
    size_t most = 0;

    for (int i = 0; i < 200000; i++) {
        // It fills up to a few hundred and empties again, over and over.
        int32_t type = draw(4), owner = draw(5), data = draw(30), what = draw(12);
        walk &w = walks[draw(6)];
        auto same = [&](const numbered &b) {
            return b.type == type && b.owner == owner && b.data == data;
        };
        bool done, there = std::ranges::any_of(list, same);
        if (what < (i / 4000 % 2 ? 1 : 4)) {
            REQUIRE_FALSE(addblock(type, 0, owner, data, nullptr, &done));
            REQUIRE(done == !there);
            if (!there) list.push_back({next++, type, owner, data});
        } else if (what < 5) {
            REQUIRE_FALSE(remblock(type, 0, owner, data, nullptr, &done));
            REQUIRE(done == there);
            std::erase_if(list, same);
        } else if (!w.under) {
            blockiter_start(&w.iter);
            w.under = true;
            w.seen = 0;
        } else if (what < 10) {
            int32_t wanted = draw(3) ? type : BLOCKANY, of = draw(3) ? owner : BLOCKANY;
            auto found = std::ranges::find_if(list, [&](const numbered &b) {
                return b.number > w.seen && (wanted == BLOCKANY || b.type == wanted) &&
                       (of == BLOCKANY || b.owner == of);
            });
            block b = {};
            REQUIRE(nextblock(&w.iter, wanted, BLOCKANY, of, &b) == (found != list.end()));
            w.seen = found == list.end() ? next - 1 : found->number;
            if (found == list.end()) continue;
            REQUIRE((b.type == found->type && b.window == found->owner && b.data == found->data));
        } else if (what == 10) {
            blockiter_rewind(&w.iter);
            w.seen = 0;
        } else {
            blockiter_end(&w.iter); // in any order
            w.under = false;
        }
        REQUIRE(blockcount() == std::ssize(list));
        most = std::max(most, list.size());
    }
    CHECK(most > 2 * BLOCKCHUNK);
    for (walk &w : walks)
        if (w.under) blockiter_end(&w.iter);
}
