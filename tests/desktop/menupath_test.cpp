#include "desktop/menupath.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace
{

enum { BAR = 1, WORDS, LISTS, POPUP, LOST, RING, DEEP = 100 };

menurow row(int32_t tag, int32_t parent, int32_t position, intptr_t menu)
{
    menurow made = {};
    made.tag = tag, made.parent = parent, made.position = position, made.menu = menu;
    return made;
}

// Two tables, chained as addmenus does, and in them a chain of menus as long as a
// path and one more; gone with the test.
struct tables {
    std::vector<menurow> first = {row(BAR, 0, 0, 100), row(WORDS, BAR, 1, 102),
                                  row(LOST, 99, 0, 103), row(RING, RING, 0, 104)};
    std::vector<menurow> second = {row(LISTS, WORDS, 4, 106), row(POPUP, 0, 0, 0),
                                   row(-1, 0, 0, 0)};
    menulink older = {nullptr, nullptr}, newer = {&older, second.data()};

    tables()
    {
        for (int32_t n = 0; n < MENUPATH; n++)
            first.push_back(row(DEEP + n, n ? DEEP + n - 1 : 0, n, 200 + n));
        first.push_back(row(-1, 0, 0, 0));
        older.table = first.data();
        menustate = {&newer, 0, 0};
    }
    ~tables()
    {
        menustate = {};
    }
};

// The words that are written, and the root above them.
std::string pathof(int32_t tag, int32_t item)
{
    std::vector<int32_t> words(MENUPATH, 777);
    bool written = menupathto(menufind(tag), item, words.data());
    std::string path;
    for (int32_t word : words)
        if (word != 777) path += std::to_string(word) + " ";
    CHECK(written == !path.empty());
    menurow *root = menuroot(menufind(tag));
    return path + (root ? "of " + std::to_string(root->tag) : "none");
}

} // namespace

TEST_CASE("menus are found by tag and by handle, and their paths from the root")
{
    tables made;
    CHECK((menufind(LISTS) == &made.second[0] && menufind(WORDS) == &made.first[1]));
    CHECK((!menufind(50) && !menufind(-1)));
    CHECK((menufindhandle(102) == &made.first[1] && !menufindhandle(0) && !menufindhandle(7)));

    const struct {
        int32_t tag, item;
        std::string path;
    } rows[] = {{BAR, -1, "-1 -1 of 1"},
                {WORDS, 300, "1 300 -1 of 1"},
                {LISTS, 0, "1 4 0 -1 of 1"},
                {POPUP, 2, "2 -1 of 4"},
                {LOST, 1, "none"},
                {RING, 1, "none"},
                {DEEP + MENUPATH - 1, 5, "none"}}; // one too many
    for (const auto &row : rows)
        CHECK(pathof(row.tag, row.item) == row.path);
    std::string longest;
    for (int n = 1; n < MENUPATH - 1; n++)
        longest += std::to_string(n) + " ";
    CHECK(pathof(DEEP + MENUPATH - 2, 5) == longest + "5 -1 of 100");

    menuforget(WORDS); // takes all that hangs below it
    for (auto tag : {BAR, WORDS, LISTS, RING, DEEP})
        CHECK((menufind(tag)->menu == 0) == (tag == WORDS || tag == LISTS));
}

TEST_CASE("hidden positions are stepped over, and counted back")
{
    CHECK((menutosystem(0b110011, 2) == 6 && menutosystem(0, -1) == -1));
    CHECK(menutosystem(0xFFFFFFFF, 1) == 33);
    for (uint32_t hidden : {1u, 0b110011u, 0x80000000u, 0xAAAAAAAAu})
        for (int32_t position = 0; position < 40; position++) {
            int32_t system = menutosystem(hidden, position);
            CHECK((system >= 32 || !(hidden >> system & 1)));
            CHECK(menufromsystem(hidden, system) == position);
        }
}
