#include "desktop/ddecommand.h"

#include "base/filetypes.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/task.h"

#include <doctest/doctest.h>

#include <string>

namespace
{

std::string seen;

errorblock *load(const char *name, int32_t filetype, intptr_t, intptr_t)
{
    CHECK(filetype == FILETYPEDATA);
    seen += std::string("open ") + name + ";";
    return nullptr;
}

errorblock *print(intptr_t *record, int *)
{
    auto *name = reinterpret_cast<const char *>(record[11]);
    auto *printer = reinterpret_cast<const char *>(record[12]);
    CHECK(record[10] == FILETYPEDATA);
    seen += std::string("print ") + name;
    if (printer) seen += std::string(" to ") + printer;
    seen += ";";
    return nullptr;
}

// What the text did, carried out by handlers of data.
std::string done(const std::string &text)
{
    seen.clear();
    REQUIRE(blockstart() == nullptr);
    addloadhandler(FILETYPEDATA, load);
    addbroadcasthandler(print, BROADCASTPRINT);
    CHECK(ddecommand(text.c_str()) == 1);
    sendmessage(TASKRUN, 0, 0); // loads that waited for the poll
    blockend();
    return seen;
}

} // namespace

TEST_CASE("each verb, in any case, with and without brackets and blanks")
{
    CHECK(done("[open(\"a b.txt\")]") == "open a b.txt;");
    CHECK(done("OPEN(\"a.txt\")") == "open a.txt;");
    CHECK(done("[print(\"a.txt\")]") == "print a.txt;");
    CHECK(done("[PrintTo(\"a.txt\",\"LPT1: on \xDC\")]") == "print a.txt to LPT1: on \xDC;");
    CHECK(done(" [ open ( \"a.txt\" ) ] ") == "open a.txt;");
    CHECK(done("\t[printto\t(\"a.txt\"\t,\t\"b\")]") == "print a.txt to b;");
}

TEST_CASE("commands are done in turn, up to one that doesn't fit")
{
    CHECK(done("[print(\"1\")][print(\"2\")] print(\"3\")") == "print 1;print 2;print 3;");
    CHECK(done("[print(\"1\")] what [print(\"2\")]") == "print 1;");
    CHECK(done("[FileOpen(\"1\")][print(\"2\")]") == "print 2;"); // read past
    CHECK(done("[what(\"1\", \"2\")][print(\"2\")]").empty());
    for (const char *text :
         {"", "[", "open", "[open(\"1\")", "print(\"1\")]x[print(\"2\")", "[print(1)]",
          "[print(\"\")]", "[print(\"1)]", "[(\"1\")]", "[print(\"1\",\"2\")]", "[printto(\"1\")]",
          "[printto(\"1\",)]", "[print2(\"1\")]", "[[print(\"1\")]]"})
        CHECK_MESSAGE(done(text) == (text[0] == 'p' ? "print 1;" : ""), text);
}

TEST_CASE("names are as long as a path can be")
{
    std::string longest(PATHSIZE - 1, 'x');
    CHECK(done("print(\"" + longest + "\")") == "print " + longest + ";");
    CHECK(done("print(\"" + longest + "x\")").empty());
    CHECK(done("printto(\"a\",\"" + longest + "x\")").empty());
}
