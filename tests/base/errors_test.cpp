#include "base/bfile.h"
#include "base/boxes.h"
#include "base/dates.h"
#include "base/flex.h"
#include "base/platform.h"
#include "base/syserr.h"
#include "base/trace.h"
#include "tests/base/scratch.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace
{

// Whether this box came up last.
bool shown(const std::string &text, uint32_t flags, const std::string &title = "Quillmere")
{
    CAPTURE(headless.boxtext);
    return headless.boxtext == text && headless.boxflags == flags && headless.boxtitle == title;
}

} // namespace

TEST_CASE("codes become words in two steps, each with its fallback")
{
    const struct {
        uint32_t code;
        const char *bare, *worded;
    } list[] = {{2, "EME", "Not enough memory."},
                {5, "Memory is corrupt!", "Memory is corrupt!"},
                {25, "ENOE", "Error not found."},
                {4711, "ENOE", "Error not found."}};
    for (const auto &row : list)
        CHECK(words(makeerror(row.code)) == row.bare);
    catalogue("ENOE:Error not found.\nEME:Not enough memory.\n"
              "ENOTFOUND:File %s not found.\nWHERE:here\n");
    for (const auto &row : list) {
        errorblock *err = makeerror(row.code);
        CHECK(words(err) == row.worded);
        CHECK(!makeerror(0)); // and the last one stays
        CHECK(code(err) == row.code);
    }
    CHECK(words(makeerrorf(ERRORNOTFOUND, "{WHERE}")) == "File here not found.");
    errorblock *err = makeerrortext(77, "%s and %d, {WHERE}", "this", 5);
    CHECK(code(err) == 77);
    CHECK(words(err) == "this and 5, here");

    std::string longest(600, 'x');
    CHECK(words(makeerrortext(1, "%s", longest.c_str())) == longest.substr(0, 251));
    CHECK(words(makeerrorf(ERRORNOTFOUND, longest.c_str())) == "File " + longest.substr(0, 246));
}

TEST_CASE("the library's own numbers stay what they are")
{
    std::string all;
    for (uint32_t number = 2; number < 33; number++)
        all += lookuperror(number) + std::string(" ");
    CHECK(all == "{EME} {ERD} {EWR} Memory is corrupt! {EINT} {ETEMP} {ENOTF} {ESVDG} {ENOWS} "
                 "{EUXDS} {EUXRF} {EMEMAF} {EMEMBF} {EMEMAD} {EMEMFE} {EMEMCH} {EMEMBAD} "
                 "{ENOTOKVAL} {ENOEVENT} {ETEMPX} {ETEMPF} {EREP} {ESCAN} {ENOE} {ELCAN} {ENOE} "
                 "{ENOTFOUND} {ENOPRINTER} {EMAXSTRING} {EUNKFT} {ENOE} ");
}

TEST_CASE("a kept error outlives others")
{
    errorblock *copy = saveerror(makeerrortext(77, "first"));
    errorblock *other = makeerror(ERRORREAD);
    CHECK(words(restoreerror(copy, other)) == "first");
    CHECK(restoreerror(nullptr, other) == other);
    CHECK(!saveerror(nullptr));
    flexfailafter(0);
    CHECK(!saveerror(other));
    errorblock *err = makeerrortext(77, "first");
    kepterror kept = keeperror(err);
    CHECK(code(firsterror(kept, makeerrortext(78, "second"))) == 77);
    CHECK(words(err) == "first");
    CHECK(firsterror(keeperror(nullptr), err) == err);
}

TEST_CASE("a failed call is reported with its name, code and details")
{
    CHECK(words(syserrnew(7, "Call")) == "(Call) (7)");
    CHECK(!syserrnew(0, "Call"));
    CHECK(!syserrcode(0, "Call"));
    errorblock *err = syserrcode(2, "Call", "%s %d", "x", 5);
    CHECK(code(err) == 2);
    std::string text = words(err);
    // The system's words end as it ends them: Windows with a line's end.
    char system[252];
    platformerrortext(2, system, sizeof system);
    CHECK(system[0]);
    CHECK(text == system + std::string("(Call) (2) (x 5)"));
    CHECK(words(syserrcode(2, "Call")) == system + std::string("(Call) (2)"));

    // The suffix has its own limit, whatever the message takes.
    std::string details(600, 'd');
    text = words(syserrcode(2, "Call", "%s", details.c_str()));
    CHECK(text.size() - text.find("(Call)") == 251);
}

TEST_CASE("an error's box, the quiet error's none, and texts in place of errors")
{
    CHECK(!errorbox(makeerrortext(50, "It failed."), false));
    CHECK(shown("It failed.", 8208));
    settaskname("name", "A title");
    CHECK(!errorbox(makeerrortext(50, "It may fail."), true));
    CHECK(shown("It may fail.", 8240, "A title"));
    settaskname("Quillmere", nullptr);
    errorbox(makeerror(ERRORQUIET), false);
    reporterror(nullptr);
    CHECK(headless.boxes == 2);
    CHECK(boxdepth() == 0);

    catalogue("NAME:Quillmere");
    reporttext("{NAME} %s", REPORTWARNING);
    CHECK(shown("Quillmere %s", 8240));
    reportf(0, "%s has %d", "{NAME}", 5);
    CHECK(shown("Quillmere has 5", 8208));
    reportf(2, "%s", std::string(400, 'x').c_str());
    CHECK(shown(std::string(251, 'x'), 8240));
}

TEST_CASE("a fatal report leaves with 1, after its box")
{
    setleave([](int status) { throw status; }); // leave does not come back
    CHECK_THROWS_AS(reportfatal(makeerror(ERRORMEMORY)), int);
    CHECK(shown("EME", 8208));
    CHECK_THROWS_AS(reportf(1, "one"), int);
    CHECK(shown("one", 8208));
    CHECK_THROWS_AS(reporttextfatal("two"), int);
    reportfatal(nullptr);
}

TEST_CASE("questions")
{
    int answer = -1;
    askbox(0, 0x30001, &answer, "x");
    CHECK(shown("x", 32 | 1));
    askbox(0, 0x1050000, &answer, "x");
    CHECK(shown("x", 0));
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

TEST_CASE("lines are added to the log file")
{
    std::string wide(600, 'l');
    tracefile("%s", wide.c_str());
    traceerror("label", nullptr);
    traceerror("label", makeerrortext(77, "words"));
    std::ifstream file(scratchfolder() + "/Quillmere.log", std::ios::binary);
    std::string log(std::istreambuf_iterator<char>(file), {});
    CHECK(log == wide.substr(0, 511) + "\nlabel (words)\n");
}

TEST_CASE("a generated text begins with who made it")
{
    scratch place;
    bfile file;
    settaskname("Tester", nullptr);
    setdateformats("the day", "then");
    REQUIRE(!bopen(place.path("f").c_str(), "w", 256, &file));
    CHECK(!textfileheader(&file, "Title"));
    CHECK(!bclose(&file, nullptr));
    setdateformats(nullptr, nullptr);
    CHECK(place.read("f") ==
          "//->Title\r\n// Produced by Tester at then the day\r\n//\r\n//\r\n\r\n\r\n");
}
