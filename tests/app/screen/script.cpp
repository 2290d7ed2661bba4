// The runner of scripts: the program on this thread, its user on another.
#include "tests/app/screen/script.h"

#include "desktop/poll.h"
#include "grid/gridwindow.h"

#include <doctest/doctest.h>

#include <atomic>
#include <thread>

namespace
{

constexpr int TICK = 10;       // milliseconds
constexpr int PATIENCE = 5000; // for what a row expects

std::atomic<int> ticks;
HWND ear; // on the program's thread
std::string stumbled;
bool decided;

// A timer's message comes only when no other is left: after two of them, all input has
// been dealt with, by whichever loop fetches messages.
LRESULT CALLBACK hear(HWND h, UINT message, WPARAM w, LPARAM l)
{
    if (message == WM_TIMER) ticks++;
    if (message == WM_APP) (*reinterpret_cast<const std::function<void()> *>(l))();
    return message == WM_TIMER || message == WM_APP ? 0 : DefWindowProcA(h, message, w, l);
}

void earopen()
{
    ear = CreateWindowExA(0, "Static", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrA(ear, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(hear));
    SetTimer(ear, 1, TICK, nullptr);
}

void tickpause(int)
{
    constexpr DWORD STUCK = 2000; // a search that doesn't poll, say
    int then = ticks + 2;
    for (DWORD start = GetTickCount(); ticks < then && GetTickCount() - start < STUCK;)
        Sleep(2);
}

std::string rowplay(const step &row)
{
    if (row.act) {
        stumbled.clear();
        row.act(row.on, row.with);
        drivepause(0);
        return stumbled;
    }
    std::string seen;
    decided = false;
    drivewait([&] { return (seen = row.see(row.on, row.with)) == row.is || decided; }, PATIENCE);
    if (seen == row.is) return "";
    return "expected \"" + row.is + "\", saw \"" + seen + "\"";
}

// The screen as it was, for whoever looks into the failure.
std::string picturesave()
{
    char self[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, self, sizeof self);
    std::string picture = std::string(self) + ".fault.png";
    drivesave(drivelookscreen(), picture);
    return picture;
}

std::string rowsplay(std::initializer_list<step> rows)
{
    int number = 0;
    for (const step &row : rows) {
        number++;
        std::string fault = rowplay(row);
        if (!fault.empty())
            return std::string(row.at.file_name()) + ":" + std::to_string(row.at.line()) +
                   ": row " + std::to_string(number) + ": " + fault + "; the screen is in " +
                   picturesave();
    }
    return "";
}

// What still holds the program's thread is ended: it has to come back.
void loopsend()
{
    stoprequest();
    if (window box = drivefind("", "#32770")) driveboxanswer(box, IDCANCEL);
    if (drivefind("", "#32768")) drivekey(VK_ESCAPE);
    if (window asked = drivefind("Quillmere"); drivecontrol(asked, QUESTIONTEXT))
        PostMessageA(reinterpret_cast<HWND>(asked), WM_CLOSE, 0, 0);
}

} // namespace

std::string ask(const std::function<std::string()> &question)
{
    std::string seen;
    std::function<void()> work = [&] { seen = question(); };
    SendMessageA(ear, WM_APP, 0, reinterpret_cast<LPARAM>(&work));
    return seen;
}

void decide()
{
    decided = true;
}

void stumble(const std::string &why)
{
    stumbled = why;
}

void play(std::initializer_list<step> rows)
{
    if (!ear) earopen();
    std::string fault;
    std::atomic<bool> played = false, back = false, ended = false;
    auto before = drivepause;
    drivepause = tickpause;
    std::thread user([&] {
        fault = rowsplay(rows);
        played = true;
        for (DWORD start = GetTickCount(); !back; Sleep(20))
            if (GetTickCount() - start > 1000) loopsend();
        ended = true;
    });
    while (!played)
        pollonce();
    back = true;
    while (!ended) // its last hand may ask this thread something
        pollonce();
    user.join();
    drivepause = before;
    drivepump();
    if (!fault.empty()) FAIL(fault);
}
