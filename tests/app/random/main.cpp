#include "app/mainwindow.h"
#include "app/startup.h"
#include "base/errors.h"
#include "base/text.h"
#include "base/trace.h"
#include "desktop/task.h"
#include "dict/dictset.h"
#include "tests/app/random/random.h"

#include <windows.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

// Lines go nowhere: this process's own console is where the results are.
void tracewrite(const char *, int) {}
void tracewritew(const wchar_t *, int) {}

namespace
{

constexpr DWORD RESTEVERY = 30000;  // milliseconds
constexpr uint64_t CHECKEVERY = 20; // steps

void programbegin()
{
    std::setlocale(LC_ALL, ".1252");
    taskinstance = reinterpret_cast<intptr_t>(GetModuleHandleA(nullptr));
    errorblock *err = starttask("Quillmere", "Quillmere", "!Quillmere", nullptr, 0, nullptr);
    if (!err) err = loadappresources(nullptr);
    if (!err) err = initdata();
    if (!err) err = openmainwindow();
    if (err) fault("The program doesn't start: %s", err->text);
    drivepump();
}

void round(DWORD start, DWORD length)
{
    while (GetTickCount() - start < length) {
        stepbegun();
        steprandom();
        stepended();
        if (steps % CHECKEVERY == 0) invariants();
    }
    invariants();
    rest();
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
    std::filesystem::create_directories(scratch);
    std::filesystem::current_path(scratch);
    firstdice.source.seed(seed);
    otherdice.source.seed(seed + 1000003);

    faultswatch();
    scratchfill();
    programbegin();
    handstart();
    stepbegun();
    restbegin();
    stepended();
    auto length = static_cast<DWORD>(minutes * 60000);
    for (DWORD start = GetTickCount(); GetTickCount() - start < length;) {
        DWORD left = length - (GetTickCount() - start);
        round(GetTickCount(), left < RESTEVERY ? left : RESTEVERY);
    }
    handend();
    std::printf("Random input: no fault in %llu steps of seed %u\n",
                static_cast<unsigned long long>(steps), seed);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 0); // the program's windows are not closed at its end
}
