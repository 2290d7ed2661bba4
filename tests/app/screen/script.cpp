// The runner of scripts: the program on this thread, its user on another.
#include "tests/app/screen/script.h"

#include "desktop/poll.h"
#include "grid/gridwindow.h"
#include "tests/app/screen/inside.h"

#include <doctest/doctest.h>

#include <atomic>
#include <thread>

namespace
{

constexpr int PATIENCE = 5000; // milliseconds, for what a row expects

std::string stumbled;
bool decided;

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
        PostMessageA(handle(asked), WM_CLOSE, 0, 0);
}

} // namespace

std::string ask(const std::function<std::string()> &question)
{
    std::string seen;
    inprogram([&] { seen = question(); });
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
    std::string fault;
    std::atomic<bool> played = false, back = false, ended = false;
    userhands(true);
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
    userhands(false);
    drivepump();
    if (!fault.empty()) FAIL(fault);
}
