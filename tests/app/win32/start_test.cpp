// The Windows program from outside: its trace, its boxes, its status.
#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include "tests/support/driver.h"
#include "tests/support/win32/program.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace
{

// The stages of the start-up; the hourglass comes if nothing failed before it.
const char *const order[] = {
    "start task err=",
    "flex_init2 err=",
    "initerror err=",
    "inittemp err=",
    "inittrans err=",
    "initalloc err=",
    "##### hourglass init #####",
    "taskerrors err=",
    "addsprites err=",
    "add messages err=",
    "end inittask err=",
};
constexpr size_t HOURGLASS = 6;

// The start-up's own lines, without those of memory and files among them: all stages
// in their order, and 0 behind those before the first that fails.
void stagescheck(const std::vector<std::string> &all, size_t failed)
{
    std::vector<std::string> lines;
    for (const std::string &line : all)
        if (line.find(" err=") != std::string::npos || line.starts_with("#####"))
            lines.push_back(line);
    std::vector<std::string> stages(std::begin(order), std::end(order));
    if (failed < stages.size()) stages.erase(stages.begin() + HOURGLASS);
    REQUIRE(lines.size() == stages.size());
    for (size_t i = 0; i < lines.size(); i++) {
        REQUIRE(lines[i].starts_with(stages[i]));
        if (stages[i].back() == '=')
            CHECK((lines[i].substr(stages[i].size()) == "0") == (i < failed));
    }
}

} // namespace

TEST_CASE("the program starts in its order, waits, and quits with status 0")
{
    program p = programstart("quillmere.exe");
    REQUIRE(p.process.hProcess);
    stagescheck(programtrace(p, "end inittask"), std::size(order));
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
    std::vector<std::string> all = programtrace(p, "end inittask");
    CHECK(std::count(all.begin(), all.end(), "caf\xE9") == 1);
    CHECK(std::count(all.begin(), all.end(), "wide caf\xE9") == 1);
    stagescheck(all, 3);
    CHECK(programstays(p, 200));
    driveboxanswer(box, IDOK);
    CHECK(programstatus(p) == 0);
}
