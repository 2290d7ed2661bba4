// Whole fills beside all that can be tried.

#include "find/fill.h"

#include "base/chars.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "tests/find/testdicts.h"
#include "tests/grid/gridlooks.h"

#include <set>

namespace
{

// The letters of all slots, parted by spaces.
using fills = std::set<std::string>;

uint8_t *cellof(const slotrec &slot, int32_t i)
{
    return slot.direction ? &grid.letters[slot.x][slot.y + i] : &grid.letters[slot.x + i][slot.y];
}

std::string slottext(const slotrec &slot)
{
    std::string text;
    for (int32_t i = 0; i < slot.length; i++)
        text += static_cast<char>(charlower(*cellof(slot, i)));
    return text;
}

// Word after word into the grid, and out of it again.
void plainfills(const std::set<std::string> &words, bool repeat, int32_t n, fills *all)
{
    std::string told;
    if (n == solutions.slotcount) {
        std::set<std::string> different;
        for (int32_t slot = 0; slot < n; slot++) {
            told += slottext(search.slots[slot]) + " ";
            different.insert(slottext(search.slots[slot]));
        }
        if (repeat || static_cast<int32_t>(different.size()) == n) all->insert(told);
        return;
    }
    const slotrec &slot = search.slots[n];
    std::string before = slottext(slot);
    for (const std::string &word : words) {
        bool fits = word.size() == before.size();
        for (size_t i = 0; i < before.size() && fits; i++)
            fits = before[i] == ' ' || before[i] == word[i];
        if (!fits) continue;
        for (int32_t i = 0; i < slot.length; i++)
            *cellof(slot, i) = static_cast<uint8_t>(word[static_cast<size_t>(i)]);
        plainfills(words, repeat, n + 1, all);
        for (int32_t i = 0; i < slot.length; i++)
            *cellof(slot, i) = static_cast<uint8_t>(before[static_cast<size_t>(i)]);
    }
}

std::string filltold()
{
    std::string told;
    for (int32_t slot = 0; slot < filling.slots; slot++) {
        for (int32_t i = 0; i < search.slots[slot].length; i++)
            told += static_cast<char>(charlower(fillletter(slot, i)));
        told += " ";
        std::string word = wordtext(fillword(slot));
        CHECK(told.ends_with(lower(closedup(word)) + " "));
    }
    return told;
}

std::vector<std::string> found;
size_t most;

bool foundone()
{
    found.push_back(filltold());
    return found.size() < most;
}

} // namespace

TEST_CASE("every fill of small grids is found once, and one exactly when there is any")
{
    std::mt19937 random(41);
    size_t all = 0, none = 0;
    for (int n = 0; n < 700; n++) {
        std::set<std::string> letters;
        for (uint32_t more = 1 + below(random, 2); more; more--) {
            wordlist words(below(random, 80));
            for (std::string &word : words) {
                for (uint32_t l = 2 + below(random, 4); l; l--)
                    word += "ababcaABe \xE9'"[below(random, 12)];
                if (word.find('\'') == word.npos) letters.insert(lower(closedup(word)));
            }
            testdict(words);
        }
        std::string picture;
        for (int y = 0; y < 3; y++)
            for (int x = 0; x < 5; x++)
                picture += x == 4 ? '\n' : "....#..#.a.b"[below(random, n % 2 ? 8 : 12)];
        gridmarked(picture);
        grid.flags[1][1] |= n % 3 ? 0 : BARLEFT;
        REQUIRE_FALSE(slotsbegin());
        bool repeat = n % 4 == 0;
        fills expected;
        plainfills(letters, repeat, 0, &expected);
        if (fillmake({repeat, false, -1, static_cast<uint32_t>(n), nullptr})) {
            CHECK(solutions.slotcount == 0);
        } else {
            found.clear();
            most = ~size_t{0};
            CHECK(fillevery(foundone) == FILLALL);
            CHECK(
                (found.size() == expected.size() && fills(found.begin(), found.end()) == expected));
            fillend end;
            CHECK((fillone(&end) == !expected.empty() && end == FILLALL));
            CHECK((expected.empty() || expected.contains(filltold())));
            most = 1 + expected.size() / 2; // the same in the same order, and an end
            std::vector<std::string> before = found;
            found.clear();
            CHECK((fillevery(foundone) == FILLSTOPPED) == !expected.empty());
            CHECK(std::equal(found.begin(), found.end(), before.begin()));
        }
        fillfree();
        all += expected.size();
        none += expected.empty();
        testdictsfree();
    }
    CHECK((all > 3000 && none > 100 && none < 600));
}

TEST_CASE("what stands in a grid stays, known or not, and the best is there when time is over")
{
    testdict({"cat", "cot", "dot", "tap", "pop", "ace"});
    testdict({"cut", "top"});
    auto filled = [](const char *picture, int32_t liked, bool (*goon)()) {
        gridmarked(picture);
        REQUIRE_FALSE(slotsbegin());
        REQUIRE_FALSE(fillmake({false, true, liked, 1, goon}));
        fillend end;
        std::string told = fillone(&end) ? "+" : end == FILLALL ? "-" : "...";
        for (int32_t slot = 0; slot < filling.slots; slot++)
            told += " " + std::string(wordtext(fillword(slot)));
        fillfree();
        return told + " " + std::to_string(filling.best);
    };
    auto never = [] { return false; };
    CHECK(filled("c.t\n.##\n.##\n", -1, nullptr).starts_with("+ c"));
    CHECK(filled("c.t\n", 1, nullptr) == "+ cut 1");
    CHECK(filled("xyz\n##.\n##.\n", -1, nullptr) == "-   -1"); // nothing begins so
    CHECK(filled("xyt\n##.\n##.\n", 1, nullptr) == "+  top 2");
    CHECK(filled("xyt\n##.\n##.\n", 0, nullptr) == "+  tap 2");
    CHECK(filled("cot\n.##\n.##\n", -1, never) == "...   1"); // only what was there
    testdictsfree();
}
