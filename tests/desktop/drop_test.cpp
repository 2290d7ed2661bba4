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

// What the three handlers do; a letter names one: a, l or d.
struct {
    bool accept;
    char fails, removes; // which of them fails, and which takes all away
} does;

void removeall();

errorblock *heard(char who, const std::string &what)
{
    fake.log.push_back(what);
    if (does.removes == who) removeall();
    return does.fails == who ? fakeerror() : nullptr;
}

errorblock *ask(const char *name, int32_t filetype, mouserecord *mouse, intptr_t data, int *accept)
{
    CHECK(*accept == 0);
    *accept = does.accept;
    char text[64];
    snprintf(text, sizeof text, "%d ask %s %x at %d", static_cast<int>(data), name,
             static_cast<unsigned>(filetype), static_cast<int>(mouse->x));
    return heard('a', text);
}

errorblock *load(const char *name, int32_t filetype, intptr_t data, intptr_t zero)
{
    CHECK(zero == 0);
    char text[64];
    snprintf(text, sizeof text, "%d load %s %x", static_cast<int>(data), name,
             static_cast<unsigned>(filetype));
    return heard('l', text);
}

errorblock *done(intptr_t data)
{
    return heard('d', std::to_string(data) + " done");
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
    does = {true, 0, 0};
    addall();
}

} // namespace

TEST_CASE("a dropped file has the type of its name, and a folder more")
{
    start();
    static const filetyperow rows[] = {
        {0x123, "qmg", ""}, {FILETYPEDEFAULT, "dat", ""}, {FILETYPEEND, nullptr, nullptr}};
    faketypes added(rows);
    CHECK(drop("a.qmg") == "1 ask a.qmg 123 at 77, 1 load a.qmg 123, 1 done");
    CHECK(drop("b.QMG", true) == "1 ask b.QMG 1123 at 77, 1 load b.QMG 1123, 1 done");
    CHECK(drop("c.odd") == "1 ask c.odd ffd at 77, 1 load c.odd ffd, 1 done");
    CHECK(drop("d", true) == "1 ask d 1ffd at 77, 1 load d 1ffd, 1 done");
}

TEST_CASE("a drop ends where it is refused or fails, or where its window goes")
{
    const std::string asked = "1 ask a ffd at 77", loaded = asked + ", 1 load a ffd";
    const struct {
        bool accept;
        char fails, removes;
        std::string heard;
    } rows[] = {{false, 0, 0, asked},
                {true, 'a', 0, asked},
                {false, 'a', 0, asked},
                {true, 'l', 0, loaded},
                {true, 'd', 0, loaded + ", 1 done"},
                {true, 0, 'a', asked},
                {true, 0, 'l', loaded},
                {true, 0, 'd', loaded + ", 1 done"}};
    for (const auto &row : rows) {
        start();
        does = {row.accept, row.fails, row.removes};
        headless.boxes = 0;
        CHECK(drop("a") == row.heard);
        CHECK(headless.boxes == (row.fails ? 1 : 0)); // the failure is shown
        if (row.removes) CHECK(blockcount() == 1);    // the other window's
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
