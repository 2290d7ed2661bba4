#include "tests/desktop/win32/partner.h"

#include "tests/support/driver.h"

#include <doctest/doctest.h>
#include <windows.h>

namespace
{

HANDLE handle(intptr_t word)
{
    return reinterpret_cast<HANDLE>(word);
}

bool readbyte(HANDLE from, char *byte)
{
    DWORD there = 0, got = 0;
    return PeekNamedPipe(from, nullptr, 0, nullptr, &there, nullptr) && there > 0 &&
           ReadFile(from, byte, 1, &got, nullptr) && got == 1;
}

std::string readline(HANDLE from)
{
    std::string line;
    bool whole = drivewait(
        [&] {
            char byte;
            while (readbyte(from, &byte)) {
                if (byte == '\n') return true;
                if (byte != '\r') line += byte;
            }
            return false;
        },
        10000);
    return whole ? line : "silent";
}

} // namespace

std::string partnerpath()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    std::string folder = path;
    return folder.substr(0, folder.rfind('\\') + 1) + "desktoppartner.exe";
}

partnerprogram::partnerprogram()
{
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE theirin, theirout, ourin, ourout;
    CreatePipe(&theirin, &ourin, &inherited, 0);
    CreatePipe(&ourout, &theirout, &inherited, 0);
    SetHandleInformation(ourin, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(ourout, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA how = {};
    how.cb = sizeof how;
    how.dwFlags = STARTF_USESTDHANDLES;
    how.hStdInput = theirin;
    how.hStdOutput = how.hStdError = theirout;
    PROCESS_INFORMATION started = {};
    char command[] = "desktoppartner attended";
    BOOL made = CreateProcessA(partnerpath().c_str(), command, nullptr, nullptr, TRUE, 0, nullptr,
                               nullptr, &how, &started);
    CloseHandle(theirin);
    CloseHandle(theirout);
    CloseHandle(started.hThread);
    process = reinterpret_cast<intptr_t>(started.hProcess);
    in = reinterpret_cast<intptr_t>(ourin);
    out = reinterpret_cast<intptr_t>(ourout);
    REQUIRE(made);
    REQUIRE(readline(ourout) == "ready");
}

partnerprogram::~partnerprogram()
{
    CloseHandle(handle(in));
    if (WaitForSingleObject(handle(process), 2000) != WAIT_OBJECT_0)
        TerminateProcess(handle(process), 1);
    CloseHandle(handle(process));
    CloseHandle(handle(out));
}

std::string partnerprogram::ask(const std::string &line)
{
    std::string whole = line + "\n";
    DWORD written = 0;
    WriteFile(handle(in), whole.data(), static_cast<DWORD>(whole.size()), &written, nullptr);
    return readline(handle(out));
}

void partnerprogram::kill()
{
    TerminateProcess(handle(process), 1);
    WaitForSingleObject(handle(process), 5000);
    drivepump(50);
}
