// Tokens in a text, against a fixed catalogue: the first byte is the room left
// behind the text, the rest the text.

#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>
#include <vector>

namespace
{

// Values that are longer and shorter than their tokens, that hold tokens in
// their turn, that open a brace and don't close it, and that are near the
// longest key.
constexpr char CATALOGUE[] = "A:\xC9t\xE9\n"
                             "NAME:Quillmere\n"
                             "LONG:a text that is a good deal longer than its token, {NAME}\n"
                             "TWO:{A}{A}\n"
                             "FOUR:{TWO}{TWO}\n"
                             "OPEN:{NAME\n"
                             "BRACES:{{A}}\n"
                             "UNKNOWN:{NOSUCHKEY}\n"
                             "ABCDEFGHIJKLMNOPQRSTUVWXYZABCD:30\n"
                             "ABCDEFGHIJKLMNOPQRSTUVWXYZABCDE:31\n";

void cataloguestart()
{
    initerror();
    FUZZCHECK(!inittrans());
    FUZZCHECK(!addtranstext(CATALOGUE, sizeof CATALOGUE - 1));
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size > 2048) return 0; // longer than any text there is
    fuzzfeed feed = {data, size};
    size_t room = fuzzbyte(&feed);
    std::string in = fuzzrest(&feed);
    in.resize(std::strlen(in.c_str()));

    static const bool started = (cataloguestart(), true);
    FUZZCHECK(started);
    size_t limit = in.size() + 1 + room;
    std::vector<char> text(limit, '#');
    std::memcpy(text.data(), in.c_str(), in.size() + 1);
    FUZZCHECK(!expandtokens(text.data(), static_cast<int32_t>(limit)));
    FUZZCHECK(std::memchr(text.data(), 0, limit));
    if (in.find('{') == std::string::npos) FUZZCHECK(in == text.data());
    return 0;
}
