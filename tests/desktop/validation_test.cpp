#include "desktop/validation.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>
#include <utility>

namespace
{

// The tokens as "letter=value" with a bar between them.
std::string tokens(const std::string &string)
{
    char letter, buffer[VALIDATIONSIZE];
    std::string all;
    for (const char *at = string.c_str(); (at = nexttoken(at, &letter, buffer));)
        all += (all.empty() ? "" : "|") + std::string(1, letter ? letter : '0') + "=" + buffer;
    return all;
}

std::string quoted(const char *value, int32_t size)
{
    char buffer[VALIDATIONSIZE];
    quotetoken(value, buffer, size);
    return buffer;
}

std::string replaced(const std::string &string, char letter, const std::string &value)
{
    char text[VALIDATIONSIZE];
    std::strcpy(text, string.c_str());
    return replacetoken(letter, value.c_str(), text) ? text : "doesn't fit";
}

} // namespace

// Any strings at all: the fuzz target.
TEST_CASE("strings of controls are taken apart, a backslash in a value is written twice")
{
    const std::pair<const char *, const char *> rows[] = {
        {"\\E2\\V\\C\\arindent\\g0xFF\\s{HOME}", "E=2|V=|C=|a=rindent|g=0xFF|s={HOME}"},
        {"Words\\C", "s=Words|C="},
        {"\\sC:\\\\grids\\K1", "s=C:\\grids|K=1"},
        {"\\sends in\\", "s=ends in|0="}};
    for (auto [string, apart] : rows)
        CHECK(tokens(string) == apart);
    std::string longest(3 * VALIDATIONSIZE, 'x'); // is cut
    CHECK(tokens("\\s" + longest + "\\E1") ==
          "s=" + longest.substr(0, VALIDATIONSIZE - 1) + "|E=1");
    CHECK(quoted("ab\\c", 5) == "ab\\\\"); // cut, but never in the middle of a doubled one
    CHECK(quoted("ab\\c", 4) == "ab");

    CHECK(replaced("\\E3\\s12\\K1", 's', "345") == "\\E3\\s345\\K1");
    CHECK(replaced("old\\C", 's', "") == "\\s\\C");
    CHECK(replaced("\\E1\\", 's', "new") == "\\E1\\snew");
    // All 1023 bytes can be used, and what doesn't fit changes nothing.
    longest.resize(VALIDATIONSIZE - 5);
    CHECK(replaced("\\s\\C", 's', longest) == "\\s" + longest + "\\C");
    CHECK(replaced("\\s\\C", 's', longest + "x") == "doesn't fit");
}

TEST_CASE("conditions go from left to right, the last term stands, and G greys")
{
    constexpr uint32_t F = CONTROLFOCUS, P = CONTROLPRESSED, S = CONTROLSELECTED, M = CONTROLMARKED,
                       G = CONTROLDISABLED;
    const struct {
        const char *expression;
        uint32_t state;
        bool value, greys = false, before = true;
    } rows[] = {{"F", F, true},
                {"M", M, true},
                {"G", G, true, true},
                {"F", ~F, false},
                {"P", ~P, false},
                {"S", ~S, false},
                {"M", ~M, false},
                {"1", 0, true},
                {"0", ~0U, false},
                {"!P", 0, true},
                {"!!P", P, false}, // said twice is said once
                {"P+S", S, true},
                {"P-S", S | P, true},
                {"S-!P", S, true},
                {"1+1-0", 0, false},
                {"P-!G", 0, false, true},
                {"-1", 0, false, false, false}, // what stood before is its start
                {"", 0, true},
                {"x ?+", 0, false, false, false}};
    for (const auto &row : rows) {
        CAPTURE(row.expression);
        bool greys = false;
        CHECK(tokencondition(row.expression, row.state, row.before, &greys) == row.value);
        CHECK(greys == row.greys);
    }
}
