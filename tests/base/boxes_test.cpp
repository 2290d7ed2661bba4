#include "base/boxes.h"
#include "base/errors.h"
#include "tests/base/scratch.h"
#include "tools/headless.h"

#include <csetjmp>

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

// The box that came up last.
bool shown(const std::string &text, uint32_t flags, const std::string &title = "Quillmere")
{
    CAPTURE(headless.boxtext);
    return headless.boxtext == text && headless.boxflags == flags && headless.boxtitle == title;
}

} // namespace

TEST_CASE("an error's box, and the quiet error's none")
{
    CHECK(errorbox(makeerrortext(50, "It failed."), false) == nullptr);
    CHECK(shown("It failed.", 8208));
    settaskname("name", "A title");
    CHECK(errorbox(makeerrortext(50, "It may fail."), true) == nullptr);
    CHECK(shown("It may fail.", 8240, "A title"));
    settaskname("name", nullptr);
    reporterror(makeerrortext(50, "It failed."));
    CHECK(shown("It failed.", 8208, "name"));
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
    catalogue("NAME:Quillmere");
    reporttext("{NAME} %s", 0);
    CHECK(shown("Quillmere %s", 8208));
    reporttext("{NAME}", REPORTWARNING);
    CHECK(shown("Quillmere", 8240));
    reportf(0, "%s has %d", "{NAME}", 5);
    CHECK(shown("Quillmere has 5", 8208));
    reportf(2, "%s", std::string(400, 'x').c_str());
    CHECK(shown(std::string(251, 'x'), 8240));
}

TEST_CASE("fatal reports leave with 1, after their box")
{
    CHECK(leftby([] { reportfatal(makeerror(ERRORMEMORY)); }) == 1);
    CHECK(shown("EME", 8208));
    CHECK(leftby([] { reportf(1, "one"); }) == 1);
    CHECK(shown("one", 8208));
    CHECK(leftby([] { reporttextfatal("two"); }) == 1);
    CHECK(shown("two", 8208));
    CHECK(leftby([] { reportf(2, "three"); }) == -1);
    CHECK(leftby([] { leave(7); }) == 7);
}

TEST_CASE("questions")
{
    const uint32_t looks[][2] = {{0, 0},
                                 {1, 1},
                                 {2, 4},
                                 {4, 0},
                                 {0x10002, 48 | 4},
                                 {0x20000, 64},
                                 {0x30001, 32 | 1},
                                 {0x40003, 16 | 3},
                                 {0x50000, 0},
                                 {0x1010002, 48 | 4}};
    int answer = -1;
    for (auto [flags, look] : looks) {
        CAPTURE(flags);
        CHECK(askbox(0, flags, &answer, "x") == nullptr);
        CHECK(shown("x", look));
    }
    const int answers[][2] = {{1, ASKOK}, {2, ASKCANCEL}, {6, ASKYES}, {7, ASKNO}, {0, 0}, {9, 0}};
    for (auto [pressed, told] : answers) {
        headless.boxanswer = pressed;
        askbox(0, 0, &answer, "x");
        CHECK(answer == told);
    }

    catalogue("FS09:grids");
    askbox(0, 0, &answer, "%d {FS09} %s", 3, "{FS09}");
    CHECK(shown("3 grids {FS09}", 0)); // arguments aren't expanded
    askbox(0, 0, &answer, "%s", std::string(400, 'x').c_str());
    CHECK(shown(std::string(255, 'x'), 0));
}
