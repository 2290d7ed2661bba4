// A file named on the command line, and the ways out of the program.
#include "tests/app/win32/program.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>

namespace
{

constexpr DWORD PATIENCE = 20000; // milliseconds

std::string temporary(const char *leaf)
{
    char folder[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    return std::string(folder) + leaf;
}

void filewrite(const std::string &path, const std::string &text)
{
    FILE *file = fopen(path.c_str(), "wb");
    REQUIRE(file);
    fwrite(text.data(), 1, text.size(), file);
    fclose(file);
}

std::string fileread(const std::string &path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// A grid file, made by the program's console companion.
std::string gridfile(const char *leaf)
{
    std::string picture = temporary("picture.txt"), path = temporary(leaf);
    filewrite(picture, "cat#\n....\n");
    program p = programstart("quill.exe", "grid build \"" + path + "\" \"" + picture + "\"");
    REQUIRE(programstatus(p) == 0);
    return path;
}

bool within(const std::function<bool()> &condition)
{
    for (DWORD waited = 0; waited < PATIENCE; waited += 20) {
        if (condition()) return true;
        Sleep(20);
    }
    return false;
}

struct windowsearch {
    DWORD process;
    HWND found;
};

BOOL CALLBACK ismain(HWND w, LPARAM parameter)
{
    auto *search = reinterpret_cast<windowsearch *>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(w, &process);
    if (process != search->process || !IsWindowVisible(w) || !GetMenu(w)) return TRUE;
    search->found = w;
    return FALSE;
}

// The main window, once it is there.
HWND mainof(const program &p)
{
    windowsearch search = {p.process.dwProcessId, nullptr};
    within([&] {
        EnumWindows(ismain, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr;
    });
    REQUIRE(search.found);
    return search.found;
}

std::string titleof(HWND w)
{
    char text[300] = "";
    GetWindowTextA(w, text, sizeof text);
    return text;
}

bool titled(HWND w, const std::string &title)
{
    return within([&] { return titleof(w) == title; });
}

void key(WORD code, bool up)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0U;
    SendInput(1, &input, sizeof input);
}

void press(WORD code, WORD held = 0)
{
    if (held) key(held, false);
    key(code, false);
    key(code, true);
    if (held) key(held, true);
    Sleep(100);
}

// By its letters from the keyboard, as every user of the menus can.
void exitbykeys(HWND w)
{
    SetForegroundWindow(w);
    Sleep(100);
    press('F', VK_MENU);
    press('X');
}

// A letter into the first cell makes the document a changed one.
void edit(HWND w)
{
    HWND cells = nullptr;
    for (HWND child = nullptr; (child = FindWindowExA(w, child, nullptr, nullptr));) {
        RECT r;
        GetWindowRect(child, &r);
        RECT best = {};
        if (cells) GetWindowRect(cells, &best);
        if (r.right - r.left > best.right - best.left && r.bottom - r.top > 100) cells = child;
    }
    REQUIRE(cells);
    PostMessageA(cells, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageA(cells, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    Sleep(100);
    PostMessageA(cells, WM_CHAR, 'z', 1);
    REQUIRE(within([&] { return titleof(w).back() == '*'; }));
}

void answer(const programbox &box, int button)
{
    PostMessageA(box.window, WM_COMMAND, static_cast<WPARAM>(button), 0);
    CHECK(within([&] { return !IsWindow(box.window); }));
}

} // namespace

TEST_CASE("a grid named on the command line is opened, whatever its extension and blanks")
{
    for (const char *leaf : {"first.qmg", "my own grid.other"}) {
        std::string path = gridfile(leaf);
        program p = programstart("quillmere.exe", "\"" + path + "\"");
        HWND w = mainof(p);
        CHECK(titled(w, std::string("Quillmere - ") + leaf));
        exitbykeys(w);
        CHECK(programstatus(p) == 0);
        remove(path.c_str());
    }
}

TEST_CASE("two files open none; one that is not there, or ends early, opens as far as it goes")
{
    std::string path = gridfile("one.qmg"), cut = temporary("cut.qmg");
    filewrite(cut, fileread(path).substr(0, 280));
    struct {
        std::string words, title;
    } ways[] = {{"", "Quillmere"},
                {"\"" + path + "\" \"" + path + "\"", "Quillmere"},
                {"\"" + temporary("missing.qmg") + "\"", "Quillmere - missing.qmg"},
                {"\"" + cut + "\"", "Quillmere - cut.qmg"}};
    for (const auto &[words, title] : ways) {
        CAPTURE(words);
        program p = programstart("quillmere.exe", words);
        HWND w = mainof(p);
        CHECK(programstays(p, 700));
        CHECK(titleof(w) == title);
        PostMessageA(w, WM_CLOSE, 0, 0); // nothing is asked
        CHECK(programstatus(p) == 0);
    }
    remove(path.c_str());
    remove(cut.c_str());
}

TEST_CASE("a damaged grid and a text are told of, and the program stays")
{
    std::string damaged = temporary("damaged.qmg"), text = temporary("words.txt");
    filewrite(damaged, "Quillmere Grid");
    filewrite(text, "apple\r\npear\r\n");
    for (const std::string &path : {damaged, text}) {
        CAPTURE(path);
        program p = programstart("quillmere.exe", "\"" + path + "\"");
        programbox box = programboxwait(p);
        REQUIRE(box.window);
        CHECK(box.title == "Quillmere");
        CHECK(box.text == "Corruption in file.");
        answer(box, IDOK);
        HWND w = mainof(p);
        CHECK(titleof(w) == "Quillmere");
        exitbykeys(w);
        CHECK(programstatus(p) == 0);
        remove(path.c_str());
    }
}

TEST_CASE("a changed grid ends the program only by Yes")
{
    program p = programstart("quillmere.exe");
    HWND w = mainof(p);
    edit(w);
    exitbykeys(w);
    programbox box = programboxwait(p);
    REQUIRE(box.window);
    CHECK(box.text == "Grid edited and not saved. Continue?");
    answer(box, IDNO);
    CHECK(programstays(p, 300));
    CHECK(titleof(w) == "Quillmere*");
    PostMessageA(w, WM_CLOSE, 0, 0);
    box = programboxwait(p);
    REQUIRE(box.window);
    PostMessageA(box.window, WM_COMMAND, IDYES, 0);
    CHECK(programstatus(p) == 0);
}
