#include "base/boxes.h"
#include "base/errors.h"
#include "base/messages.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <csetjmp>
#include <string>

namespace
{

std::jmp_buf beforeleave;
int leftwith;

// Comes back from leave, which otherwise ends the process.
void backout(int status)
{
    leftwith = status;
    std::longjmp(beforeleave, 1);
}

// Runs action and tells the status that it left with, -1 if it came back.
int leftby(void (*action)())
{
    leftwith = -1;
    setleave(backout);
    if (!setjmp(beforeleave)) action();
    setleave(nullptr);
    return leftwith;
}

} // namespace

TEST_CASE("an error's box, and the quiet error's none")
{
    CHECK(errorbox(makeerrortext(50, "It failed."), false) == nullptr);
    CHECK(headless.boxtext == "It failed.");
    CHECK(headless.boxtitle == "Quillmere");
    CHECK(headless.boxflags == 8208);
    settaskname("name", "A title");
    CHECK(errorbox(makeerrortext(50, "It may fail."), true) == nullptr);
    CHECK(headless.boxtitle == "A title");
    CHECK(headless.boxflags == 8240);
    settaskname("name", nullptr);
    reporterror(makeerrortext(50, "It failed."));
    CHECK(headless.boxtitle == "name");
    CHECK(std::string(taskname()) == "name");
    CHECK(headless.boxes == 3);

    CHECK(errorbox(makeerror(ERRORQUIET), false) == nullptr);
    reporterror(nullptr);
    reportfatal(nullptr);
    CHECK(headless.boxes == 3);
    CHECK(boxdepth() == 0);
}

TEST_CASE("texts in place of errors")
{
    addtranstext("NAME:Quillmere", 14);
    reporttext("{NAME} %s", 0);
    CHECK(headless.boxtext == "Quillmere %s");
    CHECK(headless.boxflags == 8208);
    reporttext("{NAME}", REPORTWARNING);
    CHECK(headless.boxflags == 8240);
    reportf(0, "%s has %d", "{NAME}", 5);
    CHECK(headless.boxtext == "Quillmere has 5");
    CHECK(headless.boxflags == 8208);
    reportf(2, "%s", std::string(400, 'x').c_str());
    CHECK(headless.boxtext == std::string(251, 'x'));
    CHECK(headless.boxflags == 8240);
}

TEST_CASE("fatal reports leave with 1, after their box")
{
    CHECK(leftby([] { reportfatal(makeerror(ERRORMEMORY)); }) == 1);
    CHECK(headless.boxtext == "EME");
    CHECK(leftby([] { reportf(1, "one"); }) == 1);
    CHECK(headless.boxtext == "one");
    CHECK(headless.boxflags == 8208);
    CHECK(leftby([] { reporttextfatal("two"); }) == 1);
    CHECK(headless.boxtext == "two");
    CHECK(leftby([] { reportf(2, "three"); }) == -1);
    CHECK(leftby([] { leave(7); }) == 7);
}

TEST_CASE("questions")
{
    const struct {
        uint32_t flags, shown;
    } looks[] = {{0, 0},
                 {1, 1},
                 {2, 4},
                 {3, 3},
                 {4, 0},
                 {0x10002, 48 | 4},
                 {0x20000, 64},
                 {0x30001, 32 | 1},
                 {0x40003, 16 | 3},
                 {0x50000, 0},
                 {0x1010002, 48 | 4}};
    int answer = -1;
    for (const auto &look : looks) {
        CAPTURE(look.flags);
        CHECK(askbox(0, look.flags, &answer, "x") == nullptr);
        CHECK(headless.boxflags == look.shown);
    }
    const int answers[][2] = {{1, ASKOK}, {2, ASKCANCEL}, {6, ASKYES}, {7, ASKNO}, {0, 0}, {9, 0}};
    for (auto [pressed, told] : answers) {
        headless.boxanswer = pressed;
        askbox(0, 0, &answer, "x");
        CHECK(answer == told);
    }

    addtranstext("FS09:grids", 10);
    askbox(0, 0x10002, &answer, "%d {FS09} %s", 3, "{FS09}");
    CHECK(headless.boxtext == "3 grids {FS09}"); // arguments aren't expanded
    CHECK(headless.boxtitle == "Quillmere");
    askbox(0, 0, &answer, "%s", std::string(400, 'x').c_str());
    CHECK(headless.boxtext == std::string(255, 'x'));
}
