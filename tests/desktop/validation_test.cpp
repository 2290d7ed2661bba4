#include "desktop/validation.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>
#include <vector>

namespace
{

// The tokens as "letter=value" with a bar between them. Memory of just the size of
// the string shows a byte too far.
std::string tokens(const std::string &string)
{
    std::vector<char> exact(string.c_str(), string.c_str() + string.size() + 1);
    std::vector<char> buffer(VALIDATIONSIZE);
    std::string all;
    char letter;
    for (const char *at = exact.data(); (at = nexttoken(at, &letter, buffer.data()));)
        all +=
            (all.empty() ? "" : "|") + std::string(1, letter ? letter : '0') + "=" + buffer.data();
    return all;
}

std::string quoted(const char *value, int32_t size)
{
    std::vector<char> buffer(static_cast<size_t>(size));
    quotetoken(value, buffer.data(), size);
    return buffer.data();
}

std::string replaced(const std::string &string, char letter, const std::string &value)
{
    std::vector<char> text(VALIDATIONSIZE);
    std::strcpy(text.data(), string.c_str());
    return replacetoken(letter, value.c_str(), text.data()) ? text.data() : "doesn't fit";
}

} // namespace

TEST_CASE("strings of controls are taken apart, a backslash in a value is written twice")
{
    const std::pair<const char *, const char *> rows[] = {
        {"\\E2\\V\\C\\arindent\\g0xFF\\s{HOME}", "E=2|V=|C=|a=rindent|g=0xFF|s={HOME}"},
        {"Words\\C", "s=Words|C="},
        {"\\sC:\\\\grids\\K1", "s=C:\\grids|K=1"},
        {"\\\\\\\\share\\C", "s=\\\\share|C="},
        {"\\sends in\\", "s=ends in|0="},
        {"\\", "0="}};
    for (auto [string, apart] : rows)
        CHECK(tokens(string) == apart);
    std::string longest(3 * VALIDATIONSIZE, 'x'); // is cut
    CHECK(tokens("\\s" + longest + "\\E1") ==
          "s=" + longest.substr(0, VALIDATIONSIZE - 1) + "|E=1");

    // Cut, but never in the middle of a doubled one.
    CHECK(quoted("ab\\c", 6) == "ab\\\\c");
    CHECK(quoted("ab\\c", 5) == "ab\\\\");
    CHECK(quoted("ab\\c", 4) == "ab");
    CHECK(quoted("abc", 1) == "");
}

TEST_CASE("the first token of a letter is found, and replaced where it stands")
{
    char buffer[VALIDATIONSIZE];
    CHECK((gettoken("\\s\\\\E9\\E1\\E2", 'E', buffer) && std::string(buffer) == "1"));
    CHECK_FALSE(gettoken("\\e1", 'E', buffer));
    CHECK(replaced("\\E3\\s12\\K1", 's', "345") == "\\E3\\s345\\K1");
    CHECK(replaced("old\\C", 's', "") == "\\s\\C");
    CHECK(replaced("\\E3", 's', "new") == "\\E3\\snew");
    CHECK(replaced("\\E1\\", 's', "new") == "\\E1\\snew");
    // All 1023 bytes can be used, and what doesn't fit changes nothing.
    std::string longest(VALIDATIONSIZE - 5, 'x');
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
    } rows[] = {
        {"F", F, true},       {"P", P, true},
        {"S", S, true},       {"M", M, true},
        {"G", G, true, true}, {"F", ~F, false},
        {"P", ~P, false},     {"S", ~S, false},
        {"M", ~M, false},     {"G", ~G, false, true},
        {"1", 0, true},       {"0", ~0U, false},
        {"!P", 0, true},      {"!!P", P, false}, // said twice is said once
        {"P+S", S, true},     {"P-S", S, false},
        {"P-S", S | P, true}, {"S-!P", S, true},
        {"1+1-0", 0, false},  {"P-!G", 0, false, true},
        {"-1", 0, true},      {"-1", 0, false, false, false}, // what stood before is its start
        {"", 0, true},        {"x ?+", 0, false, false, false}};
    for (const auto &row : rows) {
        CAPTURE(row.expression);
        bool greys = false;
        CHECK(tokencondition(row.expression, row.state, row.before, &greys) == row.value);
        CHECK(greys == row.greys);
    }
}
