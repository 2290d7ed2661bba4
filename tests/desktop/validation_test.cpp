#include "desktop/validation.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace
{

// A text in memory of just its size, so that one byte too far is seen.
struct exact {
    std::vector<char> bytes;
    explicit exact(const std::string &text) : bytes(text.c_str(), text.c_str() + text.size() + 1) {}
    const char *text() const
    {
        return bytes.data();
    }
};

// The tokens as "letter=value" with a bar between them.
std::string tokens(const std::string &string)
{
    exact held(string);
    std::vector<char> buffer(VALIDATIONSIZE);
    std::string all;
    char letter;
    const char *text = held.text();
    while ((text = nexttoken(text, &letter, buffer.data()))) {
        if (!all.empty()) all += '|';
        all += (letter ? std::string(1, letter) : "0") + "=" + buffer.data();
    }
    return all;
}

std::string quoted(const std::string &value, int32_t size = VALIDATIONSIZE)
{
    std::vector<char> buffer(static_cast<size_t>(size));
    quotetoken(value.c_str(), buffer.data(), size);
    return buffer.data();
}

std::string replaced(const std::string &string, char letter, const std::string &value)
{
    std::vector<char> text(VALIDATIONSIZE);
    std::strcpy(text.data(), string.c_str());
    bool fits = replacetoken(letter, value.c_str(), text.data());
    return fits ? text.data() : "doesn't fit";
}

std::string value(const std::string &string, char letter)
{
    exact held(string);
    std::vector<char> buffer(VALIDATIONSIZE);
    return gettoken(held.text(), letter, buffer.data()) ? buffer.data() : "none";
}

bool condition(const char *expression, uint32_t state = 0, bool before = true)
{
    bool greys = false;
    return tokencondition(expression, state, before, &greys);
}

} // namespace

TEST_CASE("strings of controls are taken apart")
{
    CHECK(tokens("\\E2\\V\\C\\arindent\\K1") == "E=2|V=|C=|a=rindent|K=1");
    CHECK(tokens("\\Pihand\\V\\u1\\g0xFF000001\\s{HOME}\\K1") ==
          "P=ihand|V=|u=1|g=0xFF000001|s={HOME}|K=1");
    CHECK(tokens("Words\\C") == "s=Words|C=");
    CHECK(tokens("\\e\\E") == "e=|E=");
    CHECK(tokens("") == "");
}

TEST_CASE("backslashes in values are written twice")
{
    CHECK(tokens("\\sC:\\\\grids\\K1") == "s=C:\\grids|K=1");
    CHECK(tokens("\\\\\\\\share\\C") == "s=\\\\share|C=");
    CHECK(tokens("\\s\\\\\\K1") == "s=\\|K=1");
    CHECK(tokens("\\sends in\\") == "s=ends in|0=");
    CHECK(tokens("\\") == "0=");
    CHECK(quoted("a\\b\\") == "a\\\\b\\\\");
    for (std::string text : {"", "\\", "\\\\", "a\\", "\\s\\K", "C:\\a\\b"})
        CHECK(tokens("\\s" + quoted(text) + "\\K1") == "s=" + text + "|K=1");

    // Cut, but never in the middle of a doubled one.
    CHECK(quoted("ab\\c", 4) == "ab");
    CHECK(quoted("ab\\c", 5) == "ab\\\\");
    CHECK(quoted("abc", 1) == "");
}

TEST_CASE("the first token of a letter")
{
    CHECK(value("\\E1\\E2", 'E') == "1");
    CHECK(value("text\\E1", 's') == "text");
    CHECK(value("\\e1", 'E') == "none");
    CHECK(value("\\s\\\\E9\\E1", 'E') == "1");

    const char *string = "text\\E1\\sx";
    tokenplace place;
    REQUIRE(findtoken('s', string, &place));
    CHECK(place.start == string);
    CHECK(place.end == string + 4);
    REQUIRE(findtoken('E', string, &place));
    CHECK(place.start == string + 4);
    CHECK(place.end == string + 7);
    CHECK_FALSE(findtoken('K', string, &place));
}

TEST_CASE("values are replaced where they stand")
{
    CHECK(replaced("\\E3\\s12\\K1", 's', "345") == "\\E3\\s345\\K1");
    CHECK(replaced("\\E3\\s12\\K1", 's', "") == "\\E3\\s\\K1");
    CHECK(replaced("\\E3\\K1", 's', "new") == "\\E3\\K1\\snew");
    CHECK(replaced("old\\C", 's', "") == "\\s\\C");
    CHECK(replaced("", 's', "new") == "\\snew");
    CHECK(tokens(replaced("\\E1\\", 's', "new")) == "E=1|s=new");

    // All 1023 bytes can be used, and what doesn't fit changes nothing.
    std::string head = "\\s\\C";
    std::string longest(VALIDATIONSIZE - 1 - head.size(), 'x');
    CHECK(replaced(head, 's', longest) == "\\s" + longest + "\\C");
    CHECK(replaced(head, 's', longest + "x") == "doesn't fit");
    CHECK(replaced(std::string(VALIDATIONSIZE - 1, 'x'), 's', "y") == "\\sy");
    CHECK(replaced(std::string(VALIDATIONSIZE - 2, 'x'), 'E', "") == "doesn't fit");
}

TEST_CASE("longer strings than there should be are cut")
{
    std::string text(3 * VALIDATIONSIZE, 'x');
    CHECK(value(text, 's').size() == VALIDATIONSIZE - 1);
    CHECK(tokens("\\s" + text + "\\E1").ends_with("x|E=1"));
    CHECK(value("\\s" + std::string(4 * VALIDATIONSIZE, '\\'), 's') ==
          std::string(VALIDATIONSIZE - 1, '\\'));
}

TEST_CASE("conditions")
{
    const std::pair<const char *, uint32_t> terms[] = {{"F", CONTROLFOCUS},
                                                       {"P", CONTROLPRESSED},
                                                       {"S", CONTROLSELECTED},
                                                       {"M", CONTROLMARKED},
                                                       {"G", CONTROLDISABLED}};
    for (auto [term, state] : terms) {
        CHECK(condition(term, state));
        CHECK_FALSE(condition(term, ~state));
    }
    CHECK(condition("1"));
    CHECK_FALSE(condition("0", ~0U));

    CHECK(condition("!P"));
    CHECK_FALSE(condition("!!P", CONTROLPRESSED)); // said twice is said once
    CHECK(condition("P+S", CONTROLSELECTED));
    CHECK_FALSE(condition("P-S", CONTROLSELECTED));
    CHECK(condition("P-S", CONTROLSELECTED | CONTROLPRESSED));
    CHECK(condition("S-!P", CONTROLSELECTED));
    CHECK(condition("S!-P", CONTROLSELECTED));
    CHECK(condition("P-0+1"));       // from left to right
    CHECK_FALSE(condition("1+1-0")); // without precedence
    CHECK(condition("0S", CONTROLSELECTED));
    CHECK_FALSE(condition("1S")); // the last one stands

    // What stood before is where it starts.
    CHECK(condition("-1", 0, true));
    CHECK_FALSE(condition("-1", 0, false));
    CHECK(condition("", 0, true));
    CHECK_FALSE(condition("x ?+", 0, false));
}

TEST_CASE("a string that asks whether it is disabled greys itself")
{
    bool greys = false;
    tokencondition("P+S", ~0U, true, &greys);
    CHECK_FALSE(greys);
    for (const char *expression : {"P-!G", "P"}) { // and it stays so
        tokencondition(expression, 0, true, &greys);
        CHECK(greys);
    }
}
