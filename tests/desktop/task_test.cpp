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

#include <doctest/doctest.h>

#include <utility>

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

const std::string whole = "modeinfoinit, inittemp, initsprites, hook, hourglassinit, Sprites.spr, "
                          "addspritesshared, message 65536, message 65542, message 65537, "
                          "tasktemplates";

} // namespace

TEST_CASE("the start-up runs in its order, and the poll runs until it is to end")
{
    putfile(scratch("Messages.txt"), "NAME:Quillmere\nEME:No memory.\n");
    REQUIRE_FALSE(start(""));
    CHECK(fakelog() == whole);
    CHECK(std::string(tasktitle()) == "Quillmere"); // the name's place
    CHECK(std::string(taskicon()) == "!Quillmere");
    CHECK(taskprocess() == 4711);
    CHECK(std::string(lookuptoken("NAME")) == "Quillmere");
    CHECK(std::string(makeerror(ERRORMEMORY)->text) == "No memory.");
    postquit(0);
    CHECK(fakeended(runtask) == 0);
    CHECK(fakelog() == "message 65543 running, wait");
}

TEST_CASE("a stage that fails ends the start-up")
{
    putfile(scratch("Messages.txt"), "NAME:Quillmere\nEME:No memory.\n");
    const std::pair<std::string, int32_t> rows[] = {
        // the catalogue's store, the block table
        {"modeinfoinit", 0},  {"inittemp", 0},         {"initsprites", 0},   {"hook", 1},
        {"hourglassinit", 2}, {"addspritesshared", 2}, {"message 65536", 2}, {"tasktemplates", 2}};
    for (const auto &[stage, blocks] : rows) {
        CAPTURE(stage);
        CHECK(fakecode(start(stage.c_str())) == 99);
        CHECK(fakelog() == whole.substr(0, whole.find(stage) + stage.size()));
        CHECK(flexblocks() == blocks);
        char date[DATESIZE];
        nowtextdate(date);
        CHECK(std::string(date) != "none"); // texts of times are there in any case
    }
    int32_t n = 0;
    for (; errorblock *err = start("", n); n++)
        CHECK(err->code == ERRORMEMORY);
    CHECK(n >= 2); // the catalogue's store and the block table
    std::filesystem::remove(scratch("Messages.txt"));
    CHECK(std::string(start("")->text) == "Messages file not found."); // told in words
}
