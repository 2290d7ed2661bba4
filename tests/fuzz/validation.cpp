// Validation strings: taken apart, changed token by token and taken apart again.
// The first two bytes are a letter and the room for a value's copy, the rest the
// string, a zero and a value.

#include "desktop/validation.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>
#include <vector>

namespace
{

struct token {
    char letter;
    std::string value;
    bool operator==(const token &) const = default;
};

std::vector<token> apart(const char *text)
{
    std::vector<char> buffer(VALIDATIONSIZE);
    std::vector<token> all;
    char letter;
    while ((text = nexttoken(text, &letter, buffer.data())))
        all.push_back({letter, buffer.data()});
    return all;
}

// What is quoted comes back, as far as it fits.
std::string quoted(const std::string &value, int32_t size)
{
    std::vector<char> buffer(static_cast<size_t>(size));
    quotetoken(value.c_str(), buffer.data(), size);
    std::vector<token> back = apart((std::string("\\v") + buffer.data()).c_str());
    FUZZCHECK(back.size() == 1 && back[0].letter == 'v');
    FUZZCHECK(value.starts_with(back[0].value));
    return buffer.data();
}

} // namespace

void fuzztarget(fuzzfeed feed)
{
    if (feed.size > 2 * VALIDATIONSIZE) return; // longer than any string there is
    char letter = static_cast<char>(fuzzbyte(&feed));
    if (letter == 0 || letter == '\\') letter = 's';
    int32_t room = 1 + fuzzbyte(&feed);
    std::string rest = fuzzrest(&feed), string = rest.c_str();
    std::string value = rest.size() > string.size() ? rest.c_str() + string.size() + 1 : "";

    // Memory of just the size shows a byte too far.
    std::vector<char> exact(string.c_str(), string.c_str() + string.size() + 1);
    std::vector<token> before = apart(exact.data());
    bool greys;
    tokencondition(exact.data(), static_cast<uint32_t>(room), true, &greys);
    quoted(value, room);
    if (string.size() >= VALIDATIONSIZE) return;

    std::vector<char> text(VALIDATIONSIZE);
    std::memcpy(text.data(), exact.data(), exact.size());
    bool fits = replacetoken(letter, quoted(value, VALIDATIONSIZE).c_str(), text.data());
    FUZZCHECK(fits || string == text.data());
    if (!fits) return;

    // All the others are as they were, but for an empty one at the end, which
    // gives way to one that is appended.
    std::vector<token> after = apart(text.data());
    size_t at = 0;
    while (at < before.size() && before[at].letter != letter)
        at++;
    if (at == before.size() && at > 0 && before[at - 1].letter == 0) at--;
    if (at == before.size()) before.emplace_back();
    before[at] = {letter, after.size() > at ? after[at].value : ""};
    FUZZCHECK(after == before);
    FUZZCHECK(value.starts_with(after[at].value));
}
