// The message catalogue: the input up to its first zero is one, the rest is a
// text whose tokens it expands. What a key yields is told in rows by the tests
// of base; here no bytes may do harm, and adding them again may change nothing.

#include "base/errors.h"
#include "base/messages.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>
#include <vector>

namespace
{

// What some keys yield, those of the corpus and one of the input's own.
std::string looked(const std::string &file)
{
    std::string found;
    for (const std::string &key :
         {std::string("A"), std::string("B"), std::string("KEY"), file.substr(0, file.find(':'))})
        found += lookuptoken(key.c_str()) + std::string("|");
    return found;
}

void expand(const std::string &text, size_t room)
{
    std::vector<char> buffer(text.begin(), text.end());
    buffer.resize(text.size() + 1 + room);
    FUZZCHECK(!expandtokens(buffer.data(), static_cast<int32_t>(buffer.size())));
    FUZZCHECK(std::memchr(buffer.data(), 0, buffer.size()));
}

} // namespace

void fuzztarget(fuzzfeed feed)
{
    std::string all = fuzzrest(&feed);
    size_t split = all.find('\0');
    std::string file = all.substr(0, split);
    std::string text = split == std::string::npos ? "{A}{B}" : all.substr(split + 1);
    text.resize(std::strlen(text.c_str()));

    initerror();
    FUZZCHECK(!inittrans());
    FUZZCHECK(!addtranstext(file.data(), static_cast<int32_t>(file.size())));
    std::string found = looked(file);
    FUZZCHECK(!addtranstext(file.data(), static_cast<int32_t>(file.size())));
    FUZZCHECK(looked(file) == found);
    expand(text, 0);
    expand(text, 300);
    endtrans();
}
