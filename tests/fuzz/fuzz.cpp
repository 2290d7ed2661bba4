#include "tests/fuzz/fuzz.h"

#include "base/flex.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace
{

namespace fs = std::filesystem;

constexpr size_t MOSTINPUT = 8192;

struct scratchfolder {
    fs::path path =
        fs::temp_directory_path() / ("quillfuzz" + std::to_string(std::random_device{}()));

    scratchfolder()
    {
        fs::create_directories(path);
    }
    ~scratchfolder()
    {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
};

} // namespace

void fuzzfail(const char *file, int line, const char *condition)
{
    std::fprintf(stderr, "%s:%d: not so: %s\n", file, line, condition);
    std::abort();
}

uint8_t fuzzbyte(fuzzfeed *feed)
{
    if (!feed->size) return 0;
    feed->size--;
    return *feed->data++;
}

std::string fuzzrest(fuzzfeed *feed)
{
    std::string rest(reinterpret_cast<const char *>(feed->data), feed->size);
    feed->size = 0;
    return rest;
}

std::string fuzzfolder()
{
    static const scratchfolder folder;
    return folder.path.string();
}

std::string fuzzpath(const char *leaf)
{
    return fuzzfolder() + "/" + leaf;
}

void fuzzwrite(const std::string &path, fuzzfeed feed)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << fuzzrest(&feed);
    FUZZCHECK(file.good());
}

std::string fuzzread(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    FUZZCHECK(file.good());
    return {std::istreambuf_iterator<char>(file), {}};
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size > MOSTINPUT) return 0;
    fuzztarget({data, size});
    FUZZCHECK(flexblocks() == 0);
    return 0;
}
