// The message catalogue: the input up to its first zero is one, the rest is a
// text whose tokens it expands. Keys and texts are worked out here a second
// time, slowly, from the rules of the file.

#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>
#include <utility>
#include <vector>

namespace
{

using pairs = std::vector<std::pair<std::string, std::string>>;

bool control(char ch)
{
    return static_cast<uint8_t>(ch) < 32;
}

// Comments and empty lines go, and line ends come down to one byte.
std::string cleaned(const std::string &file)
{
    std::string kept;
    char before = '\n';
    for (size_t at = 0; at < file.size(); at++) {
        if (control(before) && file[at] == '/' && at + 1 < file.size() && file[at + 1] == '/') {
            while (at < file.size() && !control(file[at]))
                at++;
            continue;
        }
        if (!control(file[at]) || !control(before)) kept += file[at];
        before = file[at];
    }
    return kept;
}

pairs entries(const std::string &text)
{
    pairs found;
    size_t at = 0;
    while (at < text.size()) {
        size_t colon = text.find(':', at);
        if (colon == std::string::npos || colon + 1 == text.size()) return found;
        size_t end = colon + 1;
        while (end < text.size() && static_cast<uint8_t>(text[end]) >= 31)
            end++;
        found.emplace_back(text.substr(at, colon - at), text.substr(colon + 1, end - colon - 1));
        at = end + 1;
    }
    if (!found.empty() && (found.back().first.empty() || found.back().second.empty()))
        found.pop_back();
    return found;
}

// The first entry of a key wins; an empty key ends the store.
void checklookup(const pairs &all)
{
    pairs seen;
    for (const auto &[key, text] : all) {
        if (key.empty()) break;
        bool first = true;
        for (const auto &earlier : seen)
            if (earlier.first == key) first = false;
        if (first) {
            FUZZCHECK(text == lookuptoken(key.c_str()));
            seen.emplace_back(key, text);
        }
    }
    constexpr char none[] = "two line ends\n\ncome down to one";
    FUZZCHECK(lookuptoken(none) == none);
}

void expand(const std::string &text, size_t room)
{
    std::vector<char> buffer(text.begin(), text.end());
    buffer.resize(text.size() + 1 + room);
    FUZZCHECK(!expandtokens(buffer.data(), static_cast<int32_t>(buffer.size())));
    FUZZCHECK(std::memchr(buffer.data(), 0, buffer.size()));
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size > 4096) return 0;
    fuzzfeed feed = {data, size};
    std::string all = fuzzrest(&feed);
    size_t split = all.find('\0');
    std::string file = all.substr(0, split);
    std::string text = split == std::string::npos ? "{A}{B}" : all.substr(split + 1);
    text.resize(std::strlen(text.c_str()));

    initerror();
    FUZZCHECK(!inittrans());
    FUZZCHECK(!addtranstext(file.data(), static_cast<int32_t>(file.size())));
    checklookup(entries(cleaned(file)));
    // Again: nothing changes what a key yields.
    FUZZCHECK(!addtranstext(file.data(), static_cast<int32_t>(file.size())));
    checklookup(entries(cleaned(file)));
    expand(text, 0);
    expand(text, 300);
    endtrans();
    FUZZCHECK(flexblocks() == 0);
    return 0;
}
