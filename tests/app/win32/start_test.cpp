// The Windows program from outside: its trace, its boxes, its status.
#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include "tests/app/win32/program.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace
{

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
constexpr size_t ORDERSIZE = std::size(order);

// The start-up's own lines, without those of memory and files among them.
std::vector<std::string> startlines(const std::vector<std::string> &lines)
{
    std::vector<std::string> own;
    for (const std::string &line : lines)
        if (line.find(" err=") != std::string::npos || line.compare(0, 5, "#####") == 0)
            own.push_back(line);
    return own;
}

std::string tempfile(const char *leaf, const char *content)
{
    char folder[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    std::string path = std::string(folder) + leaf;
    FILE *file = fopen(path.c_str(), "wb");
    REQUIRE(file);
    fputs(content, file);
    fclose(file);
    return path;
}

} // namespace

TEST_CASE("the program starts in its order, waits, and quits with status 0")
{
    program p = programstart("quillmere.exe");
    REQUIRE(p.process.hProcess);
    std::vector<std::string> lines = startlines(programtrace(p, "end inittask"));
    REQUIRE(lines.size() == ORDERSIZE);
    for (size_t i = 0; i < ORDERSIZE; i++) {
        std::string expected = order[i];
        if (expected.back() == '=') expected += "0";
        CHECK(lines[i] == expected);
    }
    CHECK(programstays(p, 500));
    REQUIRE(programquit(p));
    CHECK(programstatus(p) == 0);
}

TEST_CASE("a start-up that fails shows why, and ends with status 0")
{
    program p = programstart("quillmerefail.exe");
    REQUIRE(p.process.hProcess);
    programbox box = programboxwait(p);
    REQUIRE(box.window);
    CHECK(box.title == "Quillmere");
    CHECK(box.text == "No window classes to be had");

    // The lines go on to the end, and tell the error from where it was made.
    std::vector<std::string> all = programtrace(p, "end inittask");
    CHECK(std::count(all.begin(), all.end(), "caf\xE9") == 1);
    CHECK(std::count(all.begin(), all.end(), "wide caf\xE9") == 1);
    std::vector<std::string> lines = startlines(all);
    const char *const shown[] = {
        "start task err=",   "flex_init2 err=",   "initerror err=",  "inittemp err=",
        "inittrans err=",    "initalloc err=",    "taskerrors err=", "addsprites err=",
        "add messages err=", "end inittask err=",
    };
    REQUIRE(lines.size() == std::size(shown));
    for (size_t i = 0; i < lines.size(); i++) {
        CHECK(lines[i].compare(0, strlen(shown[i]), shown[i]) == 0);
        CHECK((lines[i].substr(strlen(shown[i])) == "0") == (i < 3));
    }

    CHECK(programstays(p, 200));
    PostMessageA(box.window, WM_COMMAND, IDOK, 0);
    CHECK(programstatus(p) == 0);
}

TEST_CASE("a file that is no grid is told of in the program's own words, and it stays")
{
    std::string path = tempfile("no grid at all.qmg", "zebra\r\n");
    program p = programstart("quillmere.exe", "\"" + path + "\"");
    REQUIRE(p.process.hProcess);
    programbox box = programboxwait(p);
    REQUIRE(box.window);
    CHECK(box.title == "Quillmere");
    CHECK(box.text == "Corruption in file.");
    PostMessageA(box.window, WM_COMMAND, IDOK, 0);
    CHECK(programstays(p, 500));
    REQUIRE(programquit(p));
    CHECK(programstatus(p) == 0);
    remove(path.c_str());
}
