// The Windows program from outside: its trace, its boxes, its status.
#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include "tests/support/driver.h"
#include "tests/support/win32/program.h"

#include <doctest/doctest.h>

#include <algorithm>

static bool holds(const std::vector<std::string> &lines, const std::string &line)
{
    return std::count(lines.begin(), lines.end(), line) == 1;
}

TEST_CASE("the program starts in its order, waits, and quits with status 0")
{
    program p = programstart("quillmere.exe");
    REQUIRE(p.process.hProcess);
    std::vector<std::string> lines = programtrace(p, "end inittask");
    CHECK((holds(lines, "inittemp err=0") && holds(lines, "end inittask err=0")));
    CHECK(holds(lines, "##### hourglass init #####"));
    CHECK(programbreak(p));
    CHECK(programstays(p, 500));
    REQUIRE(programquit(p));
    CHECK(programstatus(p) == 0);
}

TEST_CASE("a start-up that fails shows why, and ends with status 0")
{
    program p = programstart("quillmerefail.exe");
    REQUIRE(p.process.hProcess);
    window box = driveboxwait(30000);
    REQUIRE(box);
    CHECK(drivetext(box) == "Quillmere");
    CHECK(driveboxtext(box) == "No window classes to be had");

    // The lines go on to the end, and tell the error from where it was made.
    std::vector<std::string> lines = programtrace(p, "end inittask");
    CHECK((holds(lines, "caf\xE9") && holds(lines, "wide caf\xE9")));
    CHECK((holds(lines, "initerror err=0") && !holds(lines, "inittemp err=0")));
    CHECK((!holds(lines, "end inittask err=0") && !holds(lines, "##### hourglass init #####")));
    CHECK(programstays(p, 200));
    driveboxanswer(box, IDOK);
    CHECK(programstatus(p) == 0);
}
