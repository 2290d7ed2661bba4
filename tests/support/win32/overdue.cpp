// A test whose window waits for ever is ended with what can be said of it: its name,
// and a picture of the screen. Killed from outside it would say nothing.
#include "tests/support/driver.h"
#include "tests/support/listener.h"

#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

namespace
{

constexpr DWORD LONGEST = 150000; // milliseconds, of one test

std::atomic<const char *> running; // 0 between tests
std::atomic<DWORD> since;

[[noreturn]] void tell(const char *name)
{
    fprintf(stderr, "ERROR: overdue after %lu s: %s\n", LONGEST / 1000, name);
    char self[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, self, sizeof self);
    std::string picture = std::string(self) + ".overdue.png"; // boxes change the directory
    drivesave(drivelookscreen(), picture);
    fprintf(stderr, "  the screen is in %s\n", picture.c_str());
    fflush(stderr);
    TerminateProcess(GetCurrentProcess(), 3);
    std::abort();
}

void watch()
{
    for (;;) {
        Sleep(1000);
        const char *name = running;
        if (name && GetTickCount() - since > LONGEST) tell(name);
    }
}

struct overduewatch : listener {
    explicit overduewatch(const doctest::ContextOptions &) {}
    void test_run_start() override
    {
        std::thread(watch).detach();
    }
    void test_case_start(const doctest::TestCaseData &test) override
    {
        since = GetTickCount();
        running = test.m_name;
    }
    void test_case_end(const doctest::CurrentTestCaseStats &) override
    {
        running = nullptr;
    }
};

} // namespace

REGISTER_LISTENER("overduewatch", 2, overduewatch);
