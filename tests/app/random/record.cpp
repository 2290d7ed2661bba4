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
constexpr int FRAMES = 40;

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

// Places in this program stand as its linker saw them, for a list of lines.
void placeprint(DWORD64 place)
{
    HMODULE module = nullptr;
    char path[MAX_PATH] = "";
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCSTR>(place), &module);
    GetModuleFileNameA(module, path, sizeof path);
    DWORD64 base = reinterpret_cast<DWORD64>(module);
    if (module == GetModuleHandleA(nullptr))
        std::printf("  at 0x%llx\n", place - base + 0x140000000);
    else
        std::printf("  in %s+0x%llx\n", path, place - base);
}

void stackprint(CONTEXT context)
{
    for (int i = 0; i < FRAMES && context.Rip; i++) {
        placeprint(context.Rip);
        DWORD64 base = 0, frame = 0;
        void *data = nullptr;
        RUNTIME_FUNCTION *function = RtlLookupFunctionEntry(context.Rip, &base, nullptr);
        if (!function) {
            context.Rip = *reinterpret_cast<DWORD64 *>(context.Rsp);
            context.Rsp += 8;
        } else {
            RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, function, &context, &data,
                             &frame, nullptr);
        }
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

void note(const char *format, ...)
{
    char text[400];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%8.2f ", GetTickCount() / 1000.0);
    std::lock_guard<std::mutex> guard(ringlock);
    ring[lines++ % RINGLINES] = std::string(stamp) + text;
    if (telling) std::printf("%s%s\n", stamp, text);
}

void fault(const char *format, ...)
{
    char text[400];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    stop(text, nullptr);
}

void faultswatch()
{
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &programthread, 0,
                    FALSE, DUPLICATE_SAME_ACCESS);
    AddVectoredExceptionHandler(1, crashed);
    std::signal(SIGABRT, aborted);
    setleave(left);
}
