// What was done, and where the program stood when it went wrong.
#include "base/boxes.h"
#include "tests/app/random/random.h"

#include <windows.h>

#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>

dice firstdice, otherdice;
bool telling;

namespace
{

constexpr size_t RINGLINES = 400;
constexpr DWORD64 FRAMES = 40;

std::mutex ringlock;
std::string ring[RINGLINES];
size_t lines;
HANDLE programthread;
bool faulty;

void ringprint()
{
    for (size_t i = lines > RINGLINES ? lines - RINGLINES : 0; i < lines; i++)
        std::printf("%s\n", ring[i % RINGLINES].c_str());
}

// What on the stack could be a place in this program, the innermost first, as its linker
// saw it, for a list of lines.
void stackprint(const CONTEXT &context)
{
    constexpr DWORD64 LINKED = 0x140000000, WORDS = 1000;
    auto base = reinterpret_cast<DWORD64>(GetModuleHandleA(nullptr));
    auto *header = reinterpret_cast<const IMAGE_DOS_HEADER *>(base);
    auto *image = reinterpret_cast<const IMAGE_NT_HEADERS *>(base + header->e_lfanew);
    DWORD64 end = base + image->OptionalHeader.BaseOfCode + image->OptionalHeader.SizeOfCode;
    auto *stack = reinterpret_cast<const DWORD64 *>(context.Rsp);
    for (DWORD64 i = 0, printed = 0; i <= WORDS && printed < FRAMES; i++) {
        DWORD64 place = i ? stack[i - 1] : context.Rip;
        if (place <= base + image->OptionalHeader.BaseOfCode || place >= end) continue;
        std::printf("  at 0x%llx\n", place - base + LINKED);
        printed++;
    }
}

// Of the thread that the program runs on, whichever thread asks.
void programstack()
{
    CONTEXT context = {};
    context.ContextFlags = CONTEXT_FULL;
    if (GetThreadId(programthread) == GetCurrentThreadId()) {
        RtlCaptureContext(&context);
        stackprint(context);
        return;
    }
    SuspendThread(programthread);
    if (GetThreadContext(programthread, &context)) stackprint(context);
}

[[noreturn]] void stop(const char *reason, const CONTEXT *context)
{
    note("FAULT");
    ringlock.lock(); // for good
    if (faulty) Sleep(INFINITE);
    faulty = true;
    ringprint();
    if (context)
        stackprint(*context);
    else
        programstack();
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
    char reason[80];
    std::snprintf(reason, sizeof reason, "a crash of code %08lx", code);
    stop(reason, crash->ContextRecord);
}

void aborted(int)
{
    stop("an assertion failed", nullptr);
}

void left(int status)
{
    fault("the program ended itself with status %d", status);
}

} // namespace

int roll(dice &from, int below)
{
    return static_cast<int>(from.source() % static_cast<uint32_t>(below));
}

int rollbetween(dice &from, int low, int high)
{
    return low + roll(from, high - low + 1);
}

bool chance(dice &from, int percent)
{
    return roll(from, 100) < percent;
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
    stop(formatted(format, arguments).c_str(), nullptr);
}

void faultswatch()
{
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &programthread, 0,
                    FALSE, DUPLICATE_SAME_ACCESS);
    AddVectoredExceptionHandler(1, crashed);
    std::signal(SIGABRT, aborted);
    setleave(left);
}
