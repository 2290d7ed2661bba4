#include "tests/support/win32/program.h"

#include "tests/support/driver.h"

constexpr DWORD PATIENCE = 30000; // milliseconds; a machine may be busy

static std::string ownfolder()
{
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    std::string folder = path;
    return folder.substr(0, folder.find_last_of('\\') + 1);
}

program programstart(const std::string &exe, const std::string &words, bool own)
{
    program p = {};
    p.job = CreateJobObjectA(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(p.job, JobObjectExtendedLimitInformation, &limits, sizeof limits);

    std::string path = exe.find('\\') == std::string::npos ? ownfolder() + exe : exe;
    std::string line = "\"" + path + "\" " + words;
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, own ? DETACHED_PROCESS : 0,
                       nullptr, nullptr, &start, &p.process))
        AssignProcessToJobObject(p.job, p.process.hProcess);
    driven = p.process.dwProcessId;
    return p;
}

// Other windows of that class have no menu, nor has the console a class of ours.
window programwindow()
{
    window found = 0;
    auto up = [&] {
        found = drivefind("", "Task");
        return found && !drivetext(found).empty();
    };
    if (!drivewait(up, static_cast<int>(PATIENCE))) return 0;
    SetForegroundWindow(reinterpret_cast<HWND>(found));
    drivefront(found);
    return found;
}

bool programquit(const program &p)
{
    return drivewait([&] { return PostThreadMessageA(p.process.dwThreadId, WM_QUIT, 0, 0) != 0; },
                     static_cast<int>(PATIENCE));
}

int programstatus(program &p)
{
    DWORD status = 0;
    bool ended = WaitForSingleObject(p.process.hProcess, PATIENCE) == WAIT_OBJECT_0;
    if (!ended || !GetExitCodeProcess(p.process.hProcess, &status)) return -1;
    CloseHandle(p.process.hThread);
    CloseHandle(p.process.hProcess);
    CloseHandle(p.job);
    p = {};
    driven = 0;
    return static_cast<int>(status);
}

bool programstays(const program &p, DWORD milliseconds)
{
    return WaitForSingleObject(p.process.hProcess, milliseconds) == WAIT_TIMEOUT;
}

static std::vector<std::string> consolelines()
{
    std::vector<std::string> lines;
    HANDLE output =
        CreateFileA("CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (output == INVALID_HANDLE_VALUE) return lines;
    if (GetConsoleScreenBufferInfo(output, &info))
        for (SHORT row = 0; row <= info.dwCursorPosition.Y; row++) {
            std::string line(static_cast<size_t>(info.dwSize.X), ' ');
            DWORD read = 0;
            ReadConsoleOutputCharacterA(output, line.data(), static_cast<DWORD>(line.size()),
                                        {0, row}, &read);
            line.resize(read);
            line.resize(line.find_last_not_of(' ') + 1);
            lines.push_back(line);
        }
    CloseHandle(output);
    return lines;
}

// A process has one console: this one gives up its own for a while. Its standard
// output is a pipe or a file and stays.
std::vector<std::string> programtrace(const program &p, const std::string &last)
{
    std::vector<std::string> lines;
    auto seen = [&] {
        FreeConsole();
        if (AttachConsole(p.process.dwProcessId)) {
            lines = consolelines();
            FreeConsole();
        }
        for (const std::string &line : lines)
            if (line.starts_with(last)) return true;
        return false;
    };
    if (!drivewait(seen, static_cast<int>(PATIENCE))) lines.clear();
    return lines;
}

static BOOL WINAPI breakignored(DWORD)
{
    return TRUE;
}

bool programbreak(const program &p)
{
    FreeConsole();
    if (!AttachConsole(p.process.dwProcessId)) return false;
    SetConsoleCtrlHandler(breakignored, TRUE);
    GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, 0); // which Wine sends to no whole console
    bool sent = GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
    HANDLE input =
        CreateFileA("CONIN$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD mode;
    bool harmless = GetConsoleMode(input, &mode) && !(mode & ENABLE_QUICK_EDIT_MODE);
    CloseHandle(input);
    FreeConsole();
    return sent && harmless;
}
