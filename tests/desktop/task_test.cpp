#include "desktop/task.h"

#include "base/boxes.h"
#include "base/dates.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"
#include "tests/desktop/fake/fakesource.h"
#include "tests/support/testfiles.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <cstring>
#include <sstream>

namespace
{

errorblock *noted(intptr_t number, intptr_t, intptr_t, intptr_t)
{
    std::string name = "message " + std::to_string(number);
    fake.log.push_back(name + (taskrunning() ? " running" : ""));
    return fake.failstage == name ? fakeerror() : nullptr;
}

// From the start of the modules, with a catalogue or without.
errorblock *start(const char *failing, int32_t failafter = -1)
{
    modulesreset();
    headless.keeptrace = true;
    fake.failstage = failing;
    // Whoever wants messages registers as soon as the block table is there.
    fake.onstage = [](const std::string &stage) {
        for (intptr_t number : {TASKSPRITES, TASKSPRITES2, TASKTEXTS, TASKRUN})
            if (stage == "hourglassinit") addmessagehandler(number, noted, 0);
    };
    setdateformats("none", "none");
    flexfailafter(failafter);
    errorblock *err = starttask("Quillmere", nullptr, "!Quillmere", scratchfolder().c_str(), 0,
                                [](int32_t) { return fakestage("hook"); });
    flexfailafter(-1);
    return err;
}

void catalogue()
{
    putfile(scratch("Messages.txt"), "NAME:Quillmere\nEME:No memory.\n");
}

// The start-up's own lines of the trace, from "err=" on 0 or something else.
std::string traced()
{
    std::istringstream lines(headless.tracetext);
    std::string all;
    for (std::string line; std::getline(lines, line);) {
        size_t at = line.find(" err=");
        if (at == std::string::npos && line[0] != '#') continue;
        bool failed = at != std::string::npos && line.substr(at) != " err=0\r";
        all += line.substr(0, std::min(at, line.size() - 1)) + (failed ? "!" : "") + ", ";
    }
    return all;
}

const std::string whole = "modeinfoinit, inittemp, initsprites, hook, hourglassinit, Sprites.spr, "
                          "addspritesshared, message 65536, message 65542, message 65537, "
                          "tasktemplates";

} // namespace

TEST_CASE("the start-up runs in its order, traces it, and the poll runs until it is to end")
{
    catalogue();
    REQUIRE_FALSE(start(""));
    CHECK(fakelog() == whole);
    CHECK(traced() == "start task, flex_init2, initerror, inittemp, inittrans, initalloc, "
                      "##### hourglass init #####, taskerrors, addsprites, add messages, "
                      "end inittask, ");
    CHECK(std::string(tasktitle()) == "Quillmere"); // the name's place
    CHECK(std::string(taskicon()) == "!Quillmere");
    CHECK(taskprocess() == 4711);
    CHECK(std::string(lookuptoken("NAME")) == "Quillmere");
    CHECK(std::string(makeerror(ERRORMEMORY)->text) == "No memory.");
    postquit(0);
    CHECK(fakeended(runtask) == 0);
    CHECK(fakelog() == "message 65543 running, wait");
}

TEST_CASE("a stage that fails ends the start-up, and the trace goes on")
{
    catalogue();
    const struct {
        const char *stage;
        const char *traced; // the first line with an error
        int32_t blocks;     // the catalogue's store, then the block table
    } rows[] = {{"modeinfoinit", "start task", 0},    {"inittemp", "inittemp", 0},
                {"initsprites", "inittrans", 0},      {"hook", "initalloc", 1},
                {"hourglassinit", "taskerrors", 2},   {"addspritesshared", "addsprites", 2},
                {"message 65536", "add messages", 2}, {"message 65537", "end inittask", 2},
                {"tasktemplates", "end inittask", 2}};
    for (const auto &row : rows) {
        std::string stage = row.stage;
        CAPTURE(stage);
        CHECK(fakecode(start(row.stage)) == 99);
        CHECK(fakelog() == whole.substr(0, whole.find(stage) + stage.size()));
        CHECK(flexblocks() == row.blocks);
        std::string all = traced();
        CHECK(all.find("!") == all.find(row.traced + std::string("!")) + strlen(row.traced));
        CHECK(all.ends_with("end inittask!, "));
        char date[DATESIZE];
        nowtextdate(date);
        CHECK(std::string(date) != "none"); // texts of times are there in any case
    }
    std::filesystem::remove(scratch("Messages.txt"));
    CHECK(std::string(start("")->text) == "Messages file not found."); // told in words
}

TEST_CASE("start-up without memory fails and leaves nothing behind")
{
    catalogue();
    int32_t n = 0;
    for (; errorblock *err = start("", n); n++)
        CHECK(err->code == ERRORMEMORY);
    CHECK(n >= 2); // the catalogue's store and the block table
}
