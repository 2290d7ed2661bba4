#include "base/bfile.h"
#include "base/boxes.h"
#include "base/dates.h"
#include "base/errors.h"
#include "base/platform.h"
#include "base/trace.h"
#include "tests/base/scratch.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

#include <cstring>

namespace
{

// What the log file holds now.
std::string logtext()
{
    char path[PATHSIZE + 16];
    platformtempfolder(path, PATHSIZE);
    strcat(path, "Quillmere.log");
    FILE *log = platformstream(path, "rb");
    std::string text;
    for (int ch; log && (ch = std::fgetc(log)) != EOF;)
        text += static_cast<char>(ch);
    if (log) std::fclose(log);
    return text;
}

} // namespace

TEST_CASE("a trace is one line, cut where it is too long")
{
    headless.keeptrace = true;
    trace("dic dir %s", "x");
    CHECK(headless.tracetext == "dic dir x\r\n");
    for (size_t length : {508u, 509u, 510u, 2000u}) {
        headless.tracetext.clear();
        trace("%s", std::string(length, 't').c_str());
        CHECK(headless.tracetext == std::string(length < 509 ? length : 509, 't') + "\r\n");
    }
}

TEST_CASE("a trace leaves the error under way alone")
{
    errorblock *err = makeerrortext(77, "as it was");
    trace("%s", "line");
    tracew(L"%d", 5);
    tracescreen(1, "%s", "text");
    CHECK(code(err) == 77);
    CHECK(words(err) == "as it was");
}

// The file is shared with every other run, so that each looks for its own lines.
TEST_CASE("lines are added to the log file")
{
    std::string own = scratchfolder(), wide = own + std::string(600, 'l');
    tracefile("%s %d", own.c_str(), 1);
    traceerror(own.c_str(), nullptr);
    traceerror(own.c_str(), makeerrortext(77, "words"));
    tracefile("%s", wide.c_str());
    std::string log = logtext();
    size_t first = log.find(own + " 1\n"), second = log.find(own + " (words)\n");
    size_t third = log.find(wide.substr(0, 511) + "\n");
    CHECK((first < second && second < third && third != std::string::npos));
    CHECK(log.find(own + " ()") == std::string::npos);
}

TEST_CASE("a generated text begins with who made it")
{
    scratch place;
    bfile file;
    settaskname("Tester", nullptr);
    setdateformats("the day", "then");
    REQUIRE(bopen(place.path("f").c_str(), "w", 256, &file) == nullptr);
    CHECK(textfileheader(&file, "Title") == nullptr);
    CHECK(bclose(&file, nullptr) == nullptr);
    setdateformats(nullptr, nullptr);
    CHECK(place.read("f") ==
          "//->Title\r\n// Produced by Tester at then the day\r\n//\r\n//\r\n\r\n\r\n");
}
