#include "base/errors.h"
#include "base/flex.h"
#include "tests/base/scratch.h"

#include <cstring>

TEST_CASE("no error stays no error, and leaves the last one alone")
{
    errorblock *err = makeerror(ERRORMEMORY);
    CHECK(makeerror(0) == nullptr);
    CHECK(code(err) == ERRORMEMORY);
    CHECK(words(err) == "EME");
    CHECK(saveerror(nullptr) == nullptr);
}

TEST_CASE("codes become words in two steps, each with its fallback")
{
    const struct {
        uint32_t code;
        const char *bare, *worded;
    } rows[] = {{2, "EME", "Not enough memory."},
                {5, "Memory is corrupt!", "Memory is corrupt!"},
                {25, "ENOE", "Error not found."},
                {30, "EMAXSTRING", "EMAXSTRING"},
                {4711, "ENOE", "Error not found."}};
    for (const auto &row : rows)
        CHECK(words(makeerror(row.code)) == row.bare);
    catalogue("ENOE:Error not found.\nEME:Not enough memory.\n");
    for (const auto &row : rows) {
        errorblock *err = makeerror(row.code);
        CHECK(code(err) == row.code);
        CHECK(words(err) == row.worded);
    }
}

TEST_CASE("the newest table is searched first, and a removed one not at all")
{
    const errorrow newer[] = {{2, "newer"}, {900, "nine"}, {0, nullptr}};
    const errorrow newest[] = {{900, "ninety"}, {0, nullptr}};
    errornode a, b;
    auto found = [](const char *two, const char *ninehundred) {
        CHECK(std::string(lookuperror(2)) == two);
        CHECK(std::string(lookuperror(900)) == ninehundred);
    };
    adderrors(newer, &a);
    adderrors(newest, &b);
    found("newer", "ninety");
    adderrors(newer, &a); // a node that is in the chain moves to its head
    found("newer", "nine");
    remerrors(&a);
    remerrors(&a);
    found("{EME}", "ninety");
    remerrors(&b);
    found("{EME}", "{ENOE}");
}

TEST_CASE("arguments, and the tokens that come in through them")
{
    CHECK(words(makeerrorf(ERRORNOTFOUND, "x")) == "ENOTFOUND");
    catalogue("ENOTFOUND:File %s not found.\nWHERE:here\n");
    CHECK(words(makeerrorf(ERRORNOTFOUND, "{WHERE}")) == "File here not found.");
    errorblock *err = makeerrortext(77, "%s and %d, {WHERE}", "this", 5);
    CHECK(code(err) == 77);
    CHECK(words(err) == "this and 5, here");
    // Out of the very block.
    CHECK(words(makeerrortext(78, "again: %s", err->text)) == "again: this and 5, here");
}

TEST_CASE("texts that don't fit are cut")
{
    std::string longest(600, 'x');
    CHECK(words(makeerrortext(1, "%s", longest.c_str())) == longest.substr(0, 251));
    catalogue("ENOTFOUND:File %s not found.\n");
    CHECK(words(makeerrorf(ERRORNOTFOUND, longest.c_str())) == "File " + longest.substr(0, 246));
    const errorrow table[] = {{900, longest.c_str()}, {0, nullptr}};
    errornode node;
    adderrors(table, &node);
    CHECK(words(makeerror(900)) == longest.substr(0, 251));
    CHECK(words(makeerrorf(900)) == longest.substr(0, 251));
}

TEST_CASE("a kept error outlives others")
{
    errorblock *kept = saveerror(makeerrortext(77, "first"));
    errorblock *other = makeerror(ERRORREAD);
    errorblock *err = restoreerror(kept, other);
    CHECK(code(err) == 77);
    CHECK(words(err) == "first");
    CHECK(code(other) == ERRORREAD);
    CHECK(restoreerror(nullptr, other) == other);
    flexfailafter(0);
    CHECK(saveerror(makeerror(ERRORREAD)) == nullptr);

    errorblock full;
    full.code = 1;
    std::memset(full.text, 'x', sizeof full.text); // no end, as from a failed call
    CHECK(words(restoreerror(saveerror(&full), nullptr)).size() == sizeof full.text - 1);
}
