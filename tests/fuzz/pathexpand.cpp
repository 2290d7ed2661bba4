// Path macros: the first byte is the size of the result's buffer, the rest the
// path as it was configured.

#include "base/paths.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>
#include <vector>

void fuzztarget(fuzzfeed feed)
{
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
    // Without a "<" nothing can be looked up: what comes out is known.
    std::erase(in, '"');
    if (in.find('<') == std::string::npos) FUZZCHECK(in.substr(0, out.size() - 1) == out.data());
}
