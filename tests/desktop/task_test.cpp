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

#include <algorithm>
#include <cstdio>
#include <cstring>
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
    return fake.failstage == "hook 0" ? fakeerror() : nullptr;
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

// The stages that the fake system and the hook hear of.
const char stages[] = "modeinfoinit, inittemp, initsprites, hook 0, hourglassinit, "
                      "Sprites.spr, addspritesshared, tasktemplates";

const char order[] = "start task, flex_init2, initerror, inittemp, inittrans, initalloc, "
                     "##### hourglass init #####, taskerrors, addsprites, add messages, "
                     "end inittask";

} // namespace

TEST_CASE("the start-up runs in its order and traces it")
{
    headless.keeptrace = true;
    REQUIRE(start(catalogue()) == nullptr);
    CHECK(fakelog() == stages);
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
        const char *stage;
        size_t firstfailed;
        int32_t blocks; // the catalogue's store, then the block table
    } rows[] = {{"modeinfoinit", 0, 0}, {"inittemp", 3, 0},      {"initsprites", 4, 0},
                {"hook 0", 5, 1},       {"hourglassinit", 6, 2}, {"addspritesshared", 7, 2},
                {"tasktemplates", 9, 2}};
    for (auto &row : rows) {
        CAPTURE(row.stage);
        modulesreset();
        headless.keeptrace = true;
        fake.failstage = row.stage;
        setdateformats("none", "none");
        CHECK(fakecode(start(catalogue())) == 99);
        std::string upto = stages;
        upto.resize(upto.find(row.stage) + std::strlen(row.stage));
        CHECK(fakelog() == upto);
        CHECK(flexblocks() == row.blocks);
        char date[DATESIZE];
        nowtextdate(date);
        CHECK(std::string(date) != "none"); // texts of times are there in any case
        std::vector<bool> failed, expected(10, true);
        std::fill_n(expected.begin(), row.firstfailed, false);
        traced(&failed);
        CHECK(failed == expected);
    }
}

TEST_CASE("the start-up tells of its stages by messages")
{
    const struct {
        intptr_t fails;
        const char *heard, *name; // and what the catalogue says
    } rows[] = {{0, ", message 65536, message 65542, message 65537, tasktemplates", "Quillmere"},
                {TASKSPRITES, ", message 65536", "NAME"},
                {TASKTEXTS, ", message 65536, message 65542, message 65537", "Quillmere"}};
    for (const auto &row : rows) {
        modulesreset();
        // Whoever wants to know registers as soon as the block table is there.
        fake.onstage = [](const std::string &stage) {
            if (stage != "hourglassinit") return;
            for (intptr_t number : {TASKSPRITES, TASKSPRITES2, TASKTEXTS}) {
                addmessagehandler(number, noteone, 0);
                addmessagehandler(number, failone, 0);
            }
        };
        failing = row.fails;
        CHECK((start(catalogue()) == nullptr) == (row.fails == 0));
        std::string heard = fakelog();
        CHECK(heard.substr(heard.find(", message")) == row.heard);
        CHECK(std::string(lookuptoken("NAME")) == row.name);
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
    CHECK(fakeended(runtask) == 0);
    CHECK(fakelog() == "message 65543, running 1, poll, wait");
}
