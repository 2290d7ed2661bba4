// searchbench GRIDS FOLDER - measures searches in Quillmere's window, from the press of
// the button until the bar is back, beside the same searches by quill.exe. What quill
// takes for a search that ends at once (its start, and the dictionary) is taken off.
#include "graphics/win32/windowhandle.h"
#include "resources/identifiers.h"
#include "tests/support/win32/program.h"
#include "tools/tour/outside.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace
{

constexpr int TIMES = 5; // of which the shortest counts: others use the machine too
constexpr double ALLOWEDTIMES = 1.3, ALLOWEDMORE = 0.1;
constexpr const char *DICTIONARY = "MainDict", *LIMIT = "100000";

std::string folder, bin;

// A grid as a text picture, the cells that are marked by a drag, and what is pressed.
struct searchrow {
    const char *name, *picture;
    int32_t columns, rows, left, top, right, bottom;
    int32_t button;
    const char *letters; // of an anagram
    const char *words;   // of quill, before the options of all
};

const searchrow searches[] = {
    {"a block of 7 by 7", "............", 12, 12, 0, 0, 6, 6, BARSOLVE, "",
     "solve grid.qmg --mark 0,0,6,6"},
    {"a pair that crosses", "........\n.#######", 8, 8, 0, 0, 7, 7, BARSOLVE, "",
     "solve grid.qmg --mark 0,0,7,7"},
    {"an anagram", "........", 8, 8, 0, 0, 7, 0, BARANAGRAM, "********", "anagram ********"},
    {"a square of 127 by 127", "", 127, 127, 0, 0, 0, 0, BARSQUARESOLVE, "", "find grid.qmg"},
};

double now()
{
    LARGE_INTEGER ticks, second;
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&second);
    return static_cast<double>(ticks.QuadPart) / static_cast<double>(second.QuadPart);
}

// One run of quill in the folder, its output in a file: what goes to NUL goes letter by
// letter. Its seconds.
double quillrun(const std::string &words)
{
    std::string line = "\"" + bin + "\\quill.exe\" " + words;
    SECURITY_ATTRIBUTES inherit = {sizeof inherit, nullptr, TRUE};
    HANDLE output = CreateFileA((folder + "\\output.txt").c_str(), GENERIC_WRITE, 0, &inherit,
                                CREATE_ALWAYS, 0, nullptr);
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = output;
    PROCESS_INFORMATION process;
    double before = now();
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, folder.c_str(),
                        &start, &process))
        outsidefault("quill.exe can't be started");
    WaitForSingleObject(process.hProcess, INFINITE);
    double seconds = now() - before;
    DWORD status = 1;
    GetExitCodeProcess(process.hProcess, &status);
    for (HANDLE h : {process.hThread, process.hProcess, output})
        CloseHandle(h);
    if (status) outsidefault("quill " + words + " failed");
    return seconds;
}

std::string indictionary(const std::string &words)
{
    return words + " --dict " + DICTIONARY + " --dictionaries program\\Dictionaries";
}

template<class measure> double shortest(measure once)
{
    double best = once();
    for (int n = 1; n < TIMES; n++)
        best = std::min(best, once());
    return best;
}

void gridmake(const searchrow &search)
{
    if (!*search.picture) {
        quillrun(indictionary("fill --size 127x127 --directions 255 --seed 3 -o grid.qmg"));
        return;
    }
    std::ofstream picture(folder + "\\grid.txt");
    std::string lines = search.picture;
    size_t last = lines.find('\n') + 1;
    picture << lines << '\n';
    for (int32_t row = last ? 2 : 1; row < search.rows; row++)
        picture << lines.substr(last) << '\n';
    picture.close();
    quillrun("grid build grid.qmg grid.txt");
}

// A control of the bar, which is another window after each search.
HWND barcontrol(int32_t id)
{
    for (HWND h = GetWindow(systemwindow(mainwindow), GW_CHILD); h; h = GetWindow(h, GW_HWNDNEXT))
        if (HWND control = GetDlgItem(h, id)) return control;
    return nullptr;
}

// The bar gives way to the one with Stop, and comes back.
double windowonce(int32_t button)
{
    HWND pressed = barcontrol(button);
    double before = now();
    PostMessageA(pressed, BM_CLICK, 0, 0);
    while (IsWindow(pressed))
        Sleep(1);
    while (!barcontrol(button))
        Sleep(1);
    double seconds = now() - before;
    drivepause(200); // until the list is drawn
    return seconds;
}

double windowmeasure(const searchrow &search)
{
    outsidestart(folder + "\\program\\quillmere.exe", folder + "\\grid.qmg");
    menucommand(COMMANDCHOICES);
    window choices = dialog("Choices");
    fill(choices, CHOICESMAX, LIMIT);
    leave(choices, DIALOGOK);
    menudictionary(COMMANDLOADDICT, DICTIONARY);
    if (search.button != BARSQUARESOLVE) {
        cellsmeasure(search.columns, search.rows);
        cellsdrag(search.left, search.top, search.right, search.bottom);
    }
    if (*search.letters) fill(panebar(), BARLETTERS, search.letters);
    double seconds = shortest([&] { return windowonce(search.button); });
    if (!listshows() && search.button != BARSOLVE) outsidefault("nothing was found");
    outsideend();
    return seconds;
}

void compare(const searchrow &search, double start)
{
    gridmake(search);
    std::string words = indictionary(search.words);
    if (search.button != BARSQUARESOLVE) words += std::string(" --max ") + LIMIT;
    double quill = std::max(shortest([&] { return quillrun(words); }) - start, 0.001);
    double inwindow = windowmeasure(search);
    bool good = inwindow <= ALLOWEDTIMES * quill + ALLOWEDMORE;
    say("%-24s window %6.3f s, quill %6.3f s, ratio %5.2f, without the tenth %5.2f%s", search.name,
        inwindow, quill, inwindow / quill, (inwindow - ALLOWEDMORE) / quill,
        good ? "" : "  more than wanted");
}

} // namespace

int main(int, char **words)
{
    folder = words[2];
    char self[MAX_PATH];
    GetModuleFileNameA(nullptr, self, sizeof self);
    bin = self;
    bin.resize(bin.find_last_of('\\'));
    double start = shortest([] { return quillrun(indictionary("anagram q")); });
    say("quill starts in %.3f s", start);
    for (const searchrow &search : searches)
        compare(search, start);
    std::printf("Searches measured\n");
    return 0;
}
