#include "desktop/ddecommand.h"

#include "base/filetypes.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/task.h"
#include "tests/desktop/fake/fakesource.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

namespace
{

errorblock *opened(const char *name, int32_t, intptr_t, intptr_t)
{
    fake.log.push_back(std::string("open ") + name);
    return nullptr;
}

errorblock *printed(intptr_t *record, int *)
{
    auto *name = reinterpret_cast<const char *>(record[11]);
    auto *printer = reinterpret_cast<const char *>(record[12]);
    CHECK(record[10] == FILETYPEDATA);
    fake.log.push_back(std::string("print ") + name + (printer ? " to " : "") +
                       (printer ? printer : ""));
    return nullptr;
}

} // namespace

// The reading of a command has a second telling in its fuzz target.
TEST_CASE("commands are read and done in turn, up to one that doesn't fit")
{
    std::string longest(PATHSIZE - 1, 'x');
    const struct {
        std::string text, done;
    } rows[] = {
        {"[open(\"a b.txt\")]", "open a b.txt"},
        {"OPEN(\"a.txt\")", "open a.txt"},
        {"\t[PrintTo\t(\"a.txt\"\t, \"LPT1: on \xDC\" ) ] ", "print a.txt to LPT1: on \xDC"},
        {"[print(\"1\")][print(\"2\")] print(\"3\")", "print 1, print 2, print 3"},
        {"[print(\"1\")] what [print(\"2\")]", "print 1"},
        {"[FileOpen(\"1\")][print(\"2\")]", "print 2"}, // read past
        {"print(\"1\")]x[print(\"2\")", "print 1"},
        {"print(\"" + longest + "\")", "print " + longest},
        {"print(\"" + longest + "x\")", ""}};
    auto done = [](const std::string &text) {
        modulesreset();
        REQUIRE_FALSE(blockstart());
        addloadhandler(FILETYPEDATA, opened);
        addbroadcasthandler(printed, BROADCASTPRINT);
        CHECK(ddecommand(text.c_str()) == 1);
        sendmessage(TASKRUN, 0, 0); // loads that waited for the poll
        return fakelog();
    };
    for (const auto &row : rows)
        CHECK(done(row.text) == row.done);
    for (const char *text :
         {"", "[", "open", "[open(\"1\")", "[print(1)]", "[print(\"\")]", "[print(\"1)]",
          "[(\"1\")]", "[print(\"1\",\"2\")]", "[printto(\"1\")]", "[printto(\"1\",)]",
          "[print2(\"1\")]", "[[print(\"1\")]]"})
        CHECK_MESSAGE(done(text) == "", text);
}
