#include "tests/support/runner.h"

#include "base/flex.h"

#define DOCTEST_CONFIG_IMPLEMENT
#include "tests/support/listener.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>

int blocksatrest;

namespace
{

std::string datafolder;
bool shaking;

// Leaks are found where they happen: a test ends with what it began with.
struct blockwatch : listener {
    explicit blockwatch(const doctest::ContextOptions &) {}
    void test_case_start(const doctest::TestCaseData &) override
    {
        modulesreset();
    }
    void test_case_reenter(const doctest::TestCaseData &) override
    {
        modulesreset();
    }
    void test_case_end(const doctest::CurrentTestCaseStats &) override
    {
        modulesreset();
        CHECK_MESSAGE(flexblocks() == blocksatrest, "blocks left behind: ", flexblocks());
    }
};

} // namespace

REGISTER_LISTENER("blockwatch", 1, blockwatch);

bool shaken()
{
    return shaking;
}

std::string datafile(const std::string &leaf)
{
    return datafolder.empty() ? std::string() : datafolder + "/" + leaf;
}

const std::string &scratchfolder()
{
    static const std::string folder = [] {
        auto path = std::filesystem::temp_directory_path() /
                    ("quilltest" + std::to_string(std::random_device{}()));
        std::filesystem::create_directories(path);
        return path.string();
    }();
    return folder;
}

int main(int count, char **words)
{
    doctest::Context context(count, words);
    for (int i = 1; i < count; i++) {
        if (!std::strcmp(words[i], "--shake")) flexshake(shaking = true);
        if (!std::strncmp(words[i], "--data=", 7)) datafolder = words[i] + 7;
    }
    // Whatever is written into the folder for temporary files, the log among it, is of this run.
    static std::string variables[] = {"TMPDIR=" + scratchfolder(), "TMP=" + scratchfolder()};
    for (std::string &variable : variables)
        putenv(variable.data());
    int result = context.run();
    std::error_code ignored;
    std::filesystem::remove_all(scratchfolder(), ignored);
    return result;
}
