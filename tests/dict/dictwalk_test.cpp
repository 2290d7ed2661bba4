// Long random walks of adding and removing. The fuzz target judges them: it has the
// model of the blocks beside the store.
#include "tests/fuzz/fuzz.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <random>

TEST_CASE("long walks agree with the model to the byte, over words of any letters")
{
    std::mt19937 random(7);
    for (uint8_t manner : {4, 0, 1, 4, 2, 3, 6}) {
        std::string program(shaken() ? 2000 : 8192, static_cast<char>(manner));
        for (size_t at = 1; at < program.size(); at++)
            program[at] = static_cast<char>(random());
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(program.data()), program.size());
    }
}
