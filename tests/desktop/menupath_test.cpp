#include "desktop/menupath.h"

#include <doctest/doctest.h>

#include <vector>

namespace
{

enum { BAR = 1, FILEMENU, WORDS, LISTS, POPUP, LOST, RINGA, RINGB };

menurow row(int32_t tag, int32_t parent, int32_t position, intptr_t menu)
{
    menurow made = {};
    made.tag = tag;
    made.parent = parent;
    made.position = position;
    made.menu = menu;
    return made;
}

// Two tables, chained as addmenus does; gone with the test.
struct tables {
    std::vector<menurow> first = {
        row(BAR, 0, 0, 100),   row(FILEMENU, BAR, 0, 101), row(WORDS, BAR, 1, 102),
        row(LOST, 99, 0, 103), row(RINGA, RINGB, 0, 104),  row(RINGB, RINGA, 0, 105),
        row(-1, 0, 0, 0),
    };
    std::vector<menurow> second = {row(LISTS, WORDS, 4, 106), row(POPUP, 0, 0, 0),
                                   row(-1, 0, 0, 0)};
    menulink older = {nullptr, first.data()};
    menulink newer = {&older, second.data()};

    tables()
    {
        menustate = {&newer, 0, 0};
    }
    ~tables()
    {
        menustate = {};
    }
};

// The words that were written.
std::vector<int32_t> pathof(int32_t tag, int32_t item)
{
    constexpr int32_t UNWRITTEN = 7777;
    std::vector<int32_t> words(MENUPATH, UNWRITTEN);
    menupathto(menufind(tag), item, words.data());
    while (!words.empty() && words.back() == UNWRITTEN)
        words.pop_back();
    return words;
}

} // namespace

TEST_CASE("menus are found by tag and by handle, and a menu of 0 never")
{
    tables made;
    CHECK(menufind(LISTS) == &made.second[0]);
    CHECK(menufind(WORDS) == &made.first[2]);
    CHECK(menufind(50) == nullptr);
    CHECK(menufind(-1) == nullptr);
    CHECK(menufindhandle(102) == &made.first[2]);
    CHECK(menufindhandle(0) == nullptr);
    CHECK(menufindhandle(7) == nullptr);
}

TEST_CASE("a path has the position of each menu below the root")
{
    tables made;
    using words = std::vector<int32_t>;
    CHECK(pathof(BAR, -1) == words{-1, -1});
    CHECK(pathof(BAR, 300) == words{300, -1});
    CHECK(pathof(WORDS, 300) == words{1, 300, -1});
    CHECK(pathof(LISTS, 0) == words{1, 4, 0, -1});
    CHECK(pathof(LISTS, -1) == words{1, 4, -1, -1});
    CHECK(menuroot(menufind(LISTS)) == menufind(BAR));
    CHECK(menuroot(menufind(POPUP)) == menufind(POPUP));
}

TEST_CASE("a menu without a root has no path")
{
    tables made;
    for (int32_t tag : {LOST, RINGA}) {
        CHECK(pathof(tag, 1).empty());
        CHECK(menuroot(menufind(tag)) == nullptr);
    }
}

TEST_CASE("a path ends within its words")
{
    std::vector<menurow> deep;
    for (int32_t tag = 1; tag <= MENUPATH; tag++)
        deep.push_back(row(tag, tag - 1, tag * 10, tag));
    deep.push_back(row(-1, 0, 0, 0));
    menulink link = {nullptr, deep.data()};
    menustate.tables = &link;

    std::vector<int32_t> words(MENUPATH);
    CHECK(menupathto(menufind(MENUPATH - 1), 5, words.data()));
    CHECK(words[0] == 20); // of the second menu: the first is the root
    CHECK(words[MENUPATH - 3] == (MENUPATH - 1) * 10);
    CHECK(words[MENUPATH - 2] == 5);
    CHECK(words[MENUPATH - 1] == -1);
    CHECK_FALSE(menupathto(menufind(MENUPATH), 5, words.data()));
    menustate = {};
}

TEST_CASE("a menu that goes takes all that hung below it")
{
    tables made;
    menuforget(WORDS);
    menuforget(50);
    for (int32_t tag : {WORDS, LISTS})
        CHECK(menufind(tag)->menu == 0);
    for (int32_t tag : {BAR, FILEMENU, RINGA})
        CHECK(menufind(tag)->menu != 0);
}

TEST_CASE("hidden positions are stepped over, and counted back")
{
    CHECK(menutosystem(0b110011, 0) == 2);
    CHECK(menutosystem(0b110011, 2) == 6);
    CHECK(menutosystem(0xFFFFFFFF, 1) == 33);
    CHECK(menutosystem(0, 100) == 100);
    CHECK(menutosystem(0, -1) == -1);

    for (uint32_t hidden : {0u, 1u, 0b10u, 0b110011u, 0x80000000u, 0xAAAAAAAAu})
        for (int32_t position = 0; position < 40; position++) {
            int32_t system = menutosystem(hidden, position);
            if (system < 32) CHECK((hidden >> system & 1) == 0);
            CHECK(menufromsystem(hidden, system) == position);
        }
}
