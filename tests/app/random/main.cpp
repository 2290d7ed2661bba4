#include "base/errors.h"
#include "desktop/poll.h"
#include "grid/gridwindow.h"
#include "tests/app/random/random.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <thread>

namespace
{

constexpr DWORD RESTEVERY = 30000;  // milliseconds
constexpr uint64_t CHECKEVERY = 20; // steps

void round(DWORD length)
{
    for (DWORD start = GetTickCount(); GetTickCount() - start < length;) {
        if (playon()) continue;
        steprandom();
        if (steps % CHECKEVERY == 0 && !boxup())
            inprogram([] {
                if (!searchunderway()) invariants();
            });
    }
    rest();
}

void userwork(DWORD length, uint32_t seed)
{
    rest();
    for (DWORD start = GetTickCount(); GetTickCount() - start < length;)
        round(std::min(length - (GetTickCount() - start), RESTEVERY));
    std::printf("Random input: no fault in %llu steps of seed %u\n",
                static_cast<unsigned long long>(steps), seed);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 0); // the program's windows are not closed at its end
}

// --seed=N --minutes=N --data=FOLDER --tell; the scratch folder is the one that this
// program lies in.
void arguments(int count, char **words, uint32_t *seed, double *minutes)
{
    for (int i = 1; i < count; i++) {
        if (!std::strcmp(words[i], "--tell")) telling = true;
        if (!std::strncmp(words[i], "--seed=", 7))
            *seed = static_cast<uint32_t>(std::strtoul(words[i] + 7, nullptr, 10));
        if (!std::strncmp(words[i], "--minutes=", 10))
            *minutes = std::strtod(words[i] + 10, nullptr);
        if (!std::strncmp(words[i], "--data=", 7))
            datafolder = std::filesystem::absolute(words[i] + 7).string();
    }
}

} // namespace

int main(int count, char **words)
{
    uint32_t seed = 1;
    double minutes = 1;
    arguments(count, words, &seed, &minutes);
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    scratch = std::filesystem::path(path).parent_path().string() + "\\files";
    std::filesystem::create_directories(scratchfile("dictionaries"));
    std::filesystem::current_path(scratch);
    dice.seed(seed);

    faultswatch();
    dictionariesdrop(scratchfile("dictionaries"));
    if (errorblock *err = programbegin()) fault("The program doesn't start: %s", err->text);
    drivepump();
    userhands(true);
    programwatch();
    std::thread(userwork, static_cast<DWORD>(minutes * 60000), seed).detach();
    for (;;)
        pollonce();
}
