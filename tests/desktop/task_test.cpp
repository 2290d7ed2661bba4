#include "desktop/task.h"

#include "base/boxes.h"
#include "base/dates.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/poll.h"
#include "tests/desktop/fake/fakesource.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

namespace
{

// A folder with a catalogue to start from.
std::string catalogue()
{
    std::ofstream(scratchfolder() + "/Messages.txt") << "NAME:Quillmere\nEME:No memory.\n";
    return scratchfolder();
}

intptr_t failing; // the message that fails

errorblock *stagehook(int32_t zero)
{
    fake.log.push_back("hook " + std::to_string(zero));
    return fake.failstage == "hook" ? fakeerror() : nullptr;
}

errorblock *start(const std::string &directory)
{
    return starttask("Quillmere", nullptr, "!Quillmere", directory.c_str(), 0, stagehook);
}

// The start-up's own lines of the trace, up to "err=", and whether something
// else than 0 stands behind that. Memory and catalogue have lines among them.
std::string traced(std::vector<bool> *failed)
{
    std::istringstream lines(headless.tracetext);
    std::string line, all;
    while (std::getline(lines, line)) {
        line.pop_back(); // the CR
        size_t at = line.find(" err=");
        if (at == std::string::npos && line[0] != '#') continue;
        if (at != std::string::npos) failed->push_back(line.substr(at) != " err=0");
        all += (all.empty() ? "" : ", ") + line.substr(0, at);
    }
    return all;
}

errorblock *noteone(intptr_t number, intptr_t, intptr_t, intptr_t)
{
    fake.log.push_back("message " + std::to_string(number));
    return nullptr;
}

errorblock *failone(intptr_t number, intptr_t, intptr_t, intptr_t)
{
    return number == failing ? fakeerror() : nullptr;
}

errorblock *noterunning(intptr_t, intptr_t, intptr_t, intptr_t)
{
    fake.log.push_back("running " + std::to_string(taskrunning()));
    return nullptr;
}

errorblock *quitnow(intptr_t)
{
    fake.log.push_back("poll");
    postquit(0);
    return nullptr;
}

const char order[] = "start task, flex_init2, initerror, inittemp, inittrans, initalloc, "
                     "##### hourglass init #####, taskerrors, addsprites, add messages, "
                     "end inittask";

} // namespace

TEST_CASE("the start-up runs in its order and traces it")
{
    headless.keeptrace = true;
    REQUIRE(start(catalogue()) == nullptr);
    CHECK(fakelog() == "modeinfoinit, inittemp, initsprites, hook 0, hourglassinit, "
                       "Sprites.spr, addspritesshared, tasktemplates");
    std::vector<bool> failed;
    CHECK(traced(&failed) == order);
    CHECK(failed == std::vector<bool>(10, false));

    CHECK(std::string(tasktitle()) == "Quillmere"); // the name's place
    CHECK(std::string(taskicon()) == "!Quillmere");
    CHECK(taskprocess() == 4711);
    CHECK(taskrunning() == 0);
    CHECK(std::string(lookuptoken("NAME")) == "Quillmere");
    CHECK(std::string(makeerror(ERRORMEMORY)->text) == "No memory.");
    CHECK(addmessagehandler(1, noteone, 0) == nullptr); // the block table is there
}

TEST_CASE("a stage that fails ends the start-up, and the trace goes on")
{
    headless.keeptrace = true;
    const struct {
        const char *stage, *done;
        size_t firstfailed;
        int32_t blocks; // the catalogue's store, then the block table
    } rows[] = {
        {"modeinfoinit", "modeinfoinit", 0, 0},
        {"inittemp", "modeinfoinit, inittemp", 3, 0},
        {"initsprites", "modeinfoinit, inittemp, initsprites", 4, 0},
        {"hook", "modeinfoinit, inittemp, initsprites, hook 0", 5, 1},
        {"hourglassinit", "modeinfoinit, inittemp, initsprites, hook 0, hourglassinit", 6, 2},
        {"addspritesshared",
         "modeinfoinit, inittemp, initsprites, hook 0, hourglassinit, "
         "Sprites.spr, addspritesshared",
         7, 2},
        {"tasktemplates",
         "modeinfoinit, inittemp, initsprites, hook 0, hourglassinit, "
         "Sprites.spr, addspritesshared, tasktemplates",
         9, 2},
    };
    for (auto &row : rows) {
        CAPTURE(row.stage);
        modulesreset();
        headless.keeptrace = true;
        fake.failstage = row.stage;
        setdateformats("none", "none");
        errorblock *err = start(catalogue());
        REQUIRE(err);
        CHECK(err->code == 99);
        CHECK(fakelog() == row.done);
        CHECK(flexblocks() == row.blocks);
        char date[DATESIZE];
        nowtextdate(date);
        CHECK(std::string(date) != "none"); // texts of times are there in any case
        std::vector<bool> failed;
        traced(&failed);
        std::vector<bool> expected(10, false);
        for (size_t i = row.firstfailed; i < 10; i++)
            expected[i] = true;
        CHECK(failed == expected);
    }
}

TEST_CASE("the start-up tells of its stages by messages")
{
    // Whoever wants to know registers as soon as the block table is there.
    fake.onstage = [](const std::string &stage) {
        if (stage != "hourglassinit") return;
        for (intptr_t number : {TASKSPRITES, TASKSPRITES2, TASKTEXTS}) {
            addmessagehandler(number, noteone, 0);
            addmessagehandler(number, failone, 0);
        }
    };
    headless.keeptrace = true;
    failing = 0;
    SUBCASE("none fails")
    {
        REQUIRE(start(catalogue()) == nullptr);
        CHECK(fakelog() == "modeinfoinit, inittemp, initsprites, hook 0, hourglassinit, "
                           "Sprites.spr, addspritesshared, message 65536, message 65542, "
                           "message 65537, tasktemplates");
    }
    SUBCASE("sprites")
    {
        failing = TASKSPRITES;
        REQUIRE(start(catalogue()));
        CHECK(fakelog().find("message 65542") == std::string::npos);
        CHECK(std::string(lookuptoken("NAME")) == "NAME"); // no catalogue either
    }
    SUBCASE("texts")
    {
        failing = TASKTEXTS;
        REQUIRE(start(catalogue()));
        CHECK(fakelog().find("tasktemplates") == std::string::npos);
        CHECK(std::string(lookuptoken("NAME")) == "Quillmere");
    }
}

TEST_CASE("a missing catalogue is told in words")
{
    std::remove((catalogue() + "/Messages.txt").c_str());
    errorblock *err = start(scratchfolder());
    REQUIRE(err);
    CHECK(std::string(err->text) == "Messages file not found.");
}

TEST_CASE("start-up without memory fails and leaves nothing behind")
{
    std::string folder = catalogue();
    int32_t n = 0;
    for (;; n++) {
        modulesreset();
        CHECK(flexblocks() == 0);
        flexfailafter(n);
        errorblock *err = start(folder);
        if (!err) break;
        CHECK(err->code == ERRORMEMORY);
        REQUIRE(n < 100);
    }
    CHECK(n >= 2); // the catalogue's store and the block table
}

TEST_CASE("the poll runs until it is told to quit")
{
    REQUIRE(start(catalogue()) == nullptr);
    fakelog();
    addmessagehandler(TASKRUN, noteone, 0);
    addmessagehandler(TASKRUN, noterunning, 0);
    addprepollhandler(quitnow, 0);
    int status = -1;
    try {
        runtask();
    } catch (const fakeleft &left) {
        status = left.status;
    }
    CHECK(status == 0);
    CHECK(fakelog() == "message 65543, running 1, poll, wait");
}
