// What was done, and where the program stood when it went wrong.
#include "base/boxes.h"
#include "tests/app/random/random.h"

#include <windows.h>

#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>

std::mt19937 dice;
bool telling;

namespace
{

constexpr size_t RINGLINES = 400;

std::mutex ringlock;
std::string ring[RINGLINES];
size_t lines;
bool faulty;

void ringprint()
{
    for (size_t i = lines > RINGLINES ? lines - RINGLINES : 0; i < lines; i++)
        std::printf("%s\n", ring[i % RINGLINES].c_str());
}

[[noreturn]] void stop(const char *reason)
{
    note("FAULT");
    ringlock.lock(); // for good
    if (faulty) Sleep(INFINITE);
    faulty = true;
    ringprint();
    std::printf("Random input: FAULT: %s\n", reason);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 1);
    std::abort();
}

LONG CALLBACK crashed(EXCEPTION_POINTERS *crash)
{
    DWORD code = crash->ExceptionRecord->ExceptionCode;
    bool deadly = code == EXCEPTION_ACCESS_VIOLATION || code == EXCEPTION_STACK_OVERFLOW ||
                  code == EXCEPTION_ILLEGAL_INSTRUCTION || code == EXCEPTION_INT_DIVIDE_BY_ZERO;
    if (!deadly) return EXCEPTION_CONTINUE_SEARCH;
    // As the linker saw the place.
    fault("a crash of code %08lx at 0x%llx", code,
          0x140000000 + crash->ContextRecord->Rip -
              reinterpret_cast<DWORD64>(GetModuleHandleA(nullptr)));
}

void aborted(int)
{
    stop("an assertion failed");
}

void left(int status)
{
    fault("the program ended itself with status %d", status);
}

} // namespace

int roll(int below)
{
    return static_cast<int>(dice() % static_cast<uint32_t>(below));
}

int rollbetween(int low, int high)
{
    return low + roll(high - low + 1);
}

bool chance(int percent)
{
    return roll(100) < percent;
}

static std::string formatted(const char *format, va_list arguments)
{
    char text[400];
    std::vsnprintf(text, sizeof text, format, arguments);
    return text;
}

void note(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%8.2f ", GetTickCount() / 1000.0);
    std::string line = stamp + formatted(format, arguments);
    va_end(arguments);
    std::lock_guard<std::mutex> guard(ringlock);
    ring[lines++ % RINGLINES] = line;
    if (telling) std::printf("%s\n", line.c_str());
}

void fault(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    stop(formatted(format, arguments).c_str());
}

void faultswatch()
{
    AddVectoredExceptionHandler(1, crashed);
    std::signal(SIGABRT, aborted);
    setleave(left);
}
