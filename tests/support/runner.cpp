#include "tests/support/runner.h"

#include "base/flex.h"

#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include <cstring>
#include <filesystem>
#include <random>

int blocksatrest;

namespace
{

std::string datafolder;
bool shaking;

// Leaks are found where they happen: a test ends with what it began with.
struct blockwatch : doctest::IReporter {
    explicit blockwatch(const doctest::ContextOptions &) {}
    void report_query(const doctest::QueryData &) override {}
    void test_run_start() override {}
    void test_run_end(const doctest::TestRunStats &) override {}
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
    void test_case_exception(const doctest::TestCaseException &) override {}
    void subcase_start(const doctest::SubcaseSignature &) override {}
    void subcase_end() override {}
    void log_assert(const doctest::AssertData &) override {}
    void log_message(const doctest::MessageData &) override {}
    void test_case_skipped(const doctest::TestCaseData &) override {}
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
    int result = context.run();
    std::error_code ignored;
    std::filesystem::remove_all(scratchfolder(), ignored);
    return result;
}
