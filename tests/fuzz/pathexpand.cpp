// Path macros: the first byte is the size of the result's buffer, the rest the
// path as it was configured.

#include "base/flex.h"
#include "base/paths.h"
#include "tests/fuzz/fuzz.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace
{

// Without a "<" nothing can be looked up: what comes out is known.
void checkplain(const std::string &in, const std::string &out, size_t room)
{
    std::string plain = in;
    plain.erase(std::remove(plain.begin(), plain.end(), '"'), plain.end());
    FUZZCHECK(out == plain.substr(0, room));
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzzfeed feed = {data, size};
    // From one byte up to somewhat more than a path takes.
    int32_t room = fuzzbyte(&feed) + fuzzbyte(&feed) % 32 + 1;
    std::string in = fuzzrest(&feed);
    in.resize(std::strlen(in.c_str()));
    if (in.size() >= PATHSIZE) in.resize(PATHSIZE - 1);

    std::vector<char> source(in.begin(), in.end()), out(static_cast<size_t>(room), '#');
    source.push_back(0);
    source.shrink_to_fit();
    FUZZCHECK(!pathexpand(source.data(), out.data(), room));
    FUZZCHECK(std::memchr(out.data(), 0, out.size()));
    if (in.find('<') == std::string::npos) checkplain(in, out.data(), out.size() - 1);
    FUZZCHECK(flexblocks() == 0);
    return 0;
}
