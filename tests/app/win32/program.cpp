#include "tests/app/win32/program.h"

constexpr DWORD PATIENCE = 30000; // milliseconds; a machine may be busy

static std::string ownfolder()
{
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    std::string folder = path;
    return folder.substr(0, folder.find_last_of('\\') + 1);
}

program programstart(const std::string &exe, const std::string &words)
{
    program p = {};
    p.job = CreateJobObjectA(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(p.job, JobObjectExtendedLimitInformation, &limits, sizeof limits);

    std::string line = "\"" + ownfolder() + exe + "\" " + words;
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr,
                       nullptr, &start, &p.process))
        AssignProcessToJobObject(p.job, p.process.hProcess);
    return p;
}

bool programquit(const program &p)
{
    for (DWORD waited = 0; waited < PATIENCE; waited += 20) {
        if (PostThreadMessageA(p.process.dwThreadId, WM_QUIT, 0, 0)) return true;
        Sleep(20);
    }
    return false;
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
    bool found = false;
    for (DWORD waited = 0; !found && waited < PATIENCE; waited += 50) {
        FreeConsole();
        if (AttachConsole(p.process.dwProcessId)) {
            lines = consolelines();
            FreeConsole();
        }
        for (const std::string &line : lines)
            if (line.compare(0, last.size(), last) == 0) found = true;
        if (!found) Sleep(50);
    }
    if (!found) lines.clear();
    return lines;
}

struct boxsearch {
    DWORD process;
    HWND found;
};

// Dialogs are of one class, whoever makes them.
static BOOL CALLBACK isbox(HWND w, LPARAM parameter)
{
    auto *search = reinterpret_cast<boxsearch *>(parameter);
    char name[16];
    DWORD process = 0;
    GetWindowThreadProcessId(w, &process);
    GetClassNameA(w, name, sizeof name);
    if (process != search->process || std::string(name) != "#32770" || !IsWindowVisible(w))
        return TRUE;
    search->found = w;
    return FALSE;
}

static std::string textof(HWND w)
{
    char text[512] = "";
    SendMessageA(w, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

programbox programboxwait(const program &p)
{
    constexpr int MESSAGETEXT = 0xFFFF; // the control of a message box that has its text
    boxsearch search = {p.process.dwProcessId, nullptr};
    for (DWORD waited = 0; !search.found && waited < PATIENCE; waited += 50) {
        EnumWindows(isbox, reinterpret_cast<LPARAM>(&search));
        if (!search.found) Sleep(50);
    }
    if (!search.found) return {};
    return {search.found, textof(search.found), textof(GetDlgItem(search.found, MESSAGETEXT))};
}
