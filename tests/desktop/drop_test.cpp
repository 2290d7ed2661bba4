#include "desktop/drop.h"

#include "base/filetypes.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "tests/desktop/fake/fakesource.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

namespace
{

constexpr window W = 10;

// What each of the three does, and what was heard of them.
struct {
    bool accept, failask, failload, faildone;
    const char *removes; // letters of those that take all away: a, l, d
} does;

void removeall();

errorblock *heard(char who, const std::string &what, bool fails)
{
    fake.log.push_back(what);
    if (does.removes && *does.removes == who) removeall();
    return fails ? fakeerror() : nullptr;
}

errorblock *ask(const char *name, int32_t filetype, mouserecord *mouse, intptr_t data, int *accept)
{
    CHECK(*accept == 0);
    *accept = does.accept;
    char text[64];
    snprintf(text, sizeof text, "%d ask %s %x at %d", static_cast<int>(data), name,
             static_cast<unsigned>(filetype), static_cast<int>(mouse->x));
    return heard('a', text, does.failask);
}

errorblock *load(const char *name, int32_t filetype, intptr_t data, intptr_t zero)
{
    CHECK(zero == 0);
    char text[64];
    snprintf(text, sizeof text, "%d load %s %x", static_cast<int>(data), name,
             static_cast<unsigned>(filetype));
    return heard('l', text, does.failload);
}

errorblock *done(intptr_t data)
{
    return heard('d', std::to_string(data) + " done", does.faildone);
}

void addall()
{
    for (intptr_t data : {1, 2}) { // only the first of each counts
        adddrophandler(W, data, ask);
        adddroploadhandler(W, data, load);
        adddropdonehandler(W, data, done);
    }
    adddrophandler(W + 1, 9, ask);
}

void removeall()
{
    for (intptr_t data : {1, 2}) {
        remdrophandler(W, data, ask);
        remdroploadhandler(W, data, load);
        remdropdonehandler(W, data, done);
    }
}

std::string drop(const char *name, bool folder = false)
{
    mouserecord mouse = {};
    mouse.x = 77;
    filedrop(W, name, folder, &mouse);
    return fakelog();
}

void start()
{
    REQUIRE_FALSE(blockstart());
    does = {};
    does.accept = true;
    headless.keeptrace = true;
    addall();
}

} // namespace

TEST_CASE("a dropped file has the type of its name, and a folder more")
{
    start();
    static const filetyperow rows[] = {
        {0x123, "qmg", ""}, {FILETYPEDEFAULT, "dat", ""}, {FILETYPEEND, nullptr, nullptr}};
    filetypenode node;
    addfiletypes(rows, &node);
    CHECK(drop("a.qmg") == "1 ask a.qmg 123 at 77, 1 load a.qmg 123, 1 done");
    CHECK(drop("b.QMG", true) == "1 ask b.QMG 1123 at 77, 1 load b.QMG 1123, 1 done");
    CHECK(drop("c.odd") == "1 ask c.odd ffd at 77, 1 load c.odd ffd, 1 done");
    CHECK(drop("d", true) == "1 ask d 1ffd at 77, 1 load d 1ffd, 1 done");
    remfiletypes(&node);
}

TEST_CASE("a drop that is refused or fails ends there, and the failure is shown")
{
    struct {
        bool accept, failask, failload, faildone;
        const char *heard;
        uint32_t shown;
    } rows[] = {
        {false, false, false, false, "1 ask a ffd at 77", 0},
        {true, true, false, false, "1 ask a ffd at 77", 1},
        {false, true, false, false, "1 ask a ffd at 77", 1},
        {true, false, true, false, "1 ask a ffd at 77, 1 load a ffd", 1},
        {true, false, false, true, "1 ask a ffd at 77, 1 load a ffd, 1 done", 1},
    };
    for (const auto &row : rows) {
        start();
        does = {row.accept, row.failask, row.failload, row.faildone, nullptr};
        headless.boxes = 0;
        CHECK(drop("a") == row.heard);
        CHECK(headless.boxes == row.shown);
        blockend();
    }
}

TEST_CASE("handlers may end a drop's window as they hear of it")
{
    struct {
        const char *removes, *heard;
    } rows[] = {{"a", "1 ask a ffd at 77"},
                {"l", "1 ask a ffd at 77, 1 load a ffd"},
                {"d", "1 ask a ffd at 77, 1 load a ffd, 1 done"}};
    for (const auto &row : rows) {
        start();
        does.removes = row.removes;
        CHECK(drop("a") == row.heard);
        CHECK(blockcount() == 1); // the other window's
        blockend();
    }
}

TEST_CASE("a window that asks nobody loads nothing")
{
    start();
    remdrophandler(W, 2, ask);
    remdrophandler(W, 1, ask);
    CHECK(drop("a") == "");
    adddrophandler(W, 3, ask);
    remdroploadhandler(W, 1, load);
    remdroploadhandler(W, 2, load);
    CHECK(drop("a") == "3 ask a ffd at 77"); // nor is it done
    removeall();
}
