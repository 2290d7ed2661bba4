#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>

namespace
{

void catalogue(const std::string &text)
{
    REQUIRE(addtranstext(text.data(), static_cast<int32_t>(text.size())) == nullptr);
}

} // namespace

TEST_CASE("no error stays no error, and leaves the last one alone")
{
    errorblock *err = makeerror(ERRORMEMORY);
    CHECK(makeerror(0) == nullptr);
    CHECK(err->code == ERRORMEMORY);
    CHECK(std::string(err->text) == "EME");
    CHECK(saveerror(nullptr) == nullptr);
}

TEST_CASE("codes become words in two steps, each with its fallback")
{
    const struct {
        uint32_t code;
        const char *bare, *worded;
    } rows[] = {{1, "Not enough memory, or not within *desktop world.",
                 "Not enough memory, or not within *desktop world."},
                {2, "EME", "Not enough memory."},
                {5, "Memory is corrupt!", "Memory is corrupt!"},
                {25, "ENOE", "Error not found."},
                {27, "ENOE", "Error not found."},
                {30, "EMAXSTRING", "EMAXSTRING"},
                {31, "EUNKFT", "EUNKFT"},
                {4711, "ENOE", "Error not found."}};
    for (const auto &row : rows)
        CHECK(std::string(makeerror(row.code)->text) == row.bare);
    catalogue("ENOE:Error not found.\nEME:Not enough memory.\n");
    for (const auto &row : rows) {
        errorblock *err = makeerror(row.code);
        CHECK(err->code == row.code);
        CHECK(std::string(err->text) == row.worded);
    }
}

TEST_CASE("the newest table is searched first, and a removed one not at all")
{
    const errorrow newer[] = {{2, "newer"}, {900, "nine"}, {0, nullptr}};
    const errorrow newest[] = {{900, "ninety"}, {0, nullptr}};
    errornode a, b;
    adderrors(newer, &a);
    adderrors(newest, &b);
    CHECK(std::string(lookuperror(2)) == "newer");
    CHECK(std::string(lookuperror(900)) == "ninety");
    adderrors(newer, &a); // a node that is in the chain moves to its head
    CHECK(std::string(lookuperror(900)) == "nine");
    remerrors(&a);
    remerrors(&a);
    CHECK(std::string(lookuperror(900)) == "ninety");
    CHECK(std::string(lookuperror(2)) == "{EME}");
    remerrors(&b);
    CHECK(std::string(lookuperror(900)) == "{ENOE}");
}

TEST_CASE("arguments, and the tokens that come in through them")
{
    CHECK(std::string(makeerrorf(ERRORNOTFOUND, "x")->text) == "ENOTFOUND");
    CHECK(std::string(makeerrorf(ERRORMAXSTRING, "fs_strcat")->text) == "EMAXSTRING");
    catalogue("ENOTFOUND:File %s not found.\nWHERE:here\n");
    CHECK(std::string(makeerrorf(ERRORNOTFOUND, "{WHERE}")->text) == "File here not found.");
    errorblock *err = makeerrortext(77, "%s and %d, {WHERE}", "this", 5);
    CHECK(err->code == 77);
    CHECK(std::string(err->text) == "this and 5, here");
    err = makeerrortext(78, "again: %s", err->text); // out of the very block
    CHECK(std::string(err->text) == "again: this and 5, here");
}

TEST_CASE("texts that don't fit are cut")
{
    std::string longest(600, 'x');
    CHECK(std::string(makeerrortext(1, "%s", longest.c_str())->text) == longest.substr(0, 251));
    catalogue("ENOTFOUND:File %s not found.\n");
    CHECK(std::string(makeerrorf(ERRORNOTFOUND, longest.c_str())->text) ==
          "File " + longest.substr(0, 246));
    const errorrow table[] = {{900, longest.c_str()}, {0, nullptr}};
    errornode node;
    adderrors(table, &node);
    CHECK(std::string(makeerror(900)->text) == longest.substr(0, 251));
    CHECK(std::string(makeerrorf(900)->text) == longest.substr(0, 251));
}

TEST_CASE("a kept error outlives others")
{
    errorblock *kept = saveerror(makeerrortext(77, "first"));
    errorblock *other = makeerror(ERRORREAD);
    errorblock *err = restoreerror(kept, other);
    CHECK(err->code == 77);
    CHECK(std::string(err->text) == "first");
    CHECK(other->code == ERRORREAD);
    CHECK(restoreerror(nullptr, other) == other);
    flexfailafter(0);
    CHECK(saveerror(makeerror(ERRORREAD)) == nullptr);

    errorblock full;
    full.code = 1;
    std::memset(full.text, 'x', sizeof full.text); // no end, as from a failed call
    err = restoreerror(saveerror(&full), nullptr);
    CHECK(std::strlen(err->text) == sizeof err->text - 1);
}
