// The main program of a fuzz target in a build without libFuzzer: runs every
// file named, and every file of the folders named. With --shake, movable blocks
// move at every chance.

#include "base/flex.h"
#include "tests/fuzz/fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <vector>

namespace
{

std::vector<std::filesystem::path> inputs(const std::filesystem::path &path)
{
    if (!std::filesystem::is_directory(path)) return {path};
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::directory_iterator(path))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

// In a block of its own size, so that a read past the end is seen.
void run(const std::string &bytes)
{
    std::vector<uint8_t> data(bytes.begin(), bytes.end());
    data.shrink_to_fit();
    LLVMFuzzerTestOneInput(data.data(), data.size());
}

} // namespace

int main(int count, char **words)
{
    int ran = 0;
    for (int i = 1; i < count; i++) {
        if (!std::strcmp(words[i], "--shake")) {
            flexshake(true);
            continue;
        }
        for (const auto &path : inputs(words[i])) {
            // Told before it runs: a fault leaves the name of its input behind.
            std::printf("%s\n", path.string().c_str());
            std::fflush(stdout);
            run(fuzzread(path.string()));
            ran++;
        }
    }
    std::printf("%d inputs replayed\n", ran);
    return ran ? 0 : 1; // a corpus that isn't there tests nothing
}
