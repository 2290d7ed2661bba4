// A file named on the command line, and the ways out of the program.
#include "base/paths.h"
#include "tests/support/driver.h"
#include "tests/support/win32/program.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <future>
#include <iterator>

namespace
{

std::string temporary(const char *leaf)
{
    return (std::filesystem::temp_directory_path() / leaf).string();
}

void filewrite(const std::string &path, const std::string &text)
{
    std::ofstream(path, std::ios::binary) << text;
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

bool titled(window w, const std::string &title)
{
    return drivewait([&] { return drivetext(w) == title; });
}

} // namespace

TEST_CASE("what is named on the command line is opened as far as it goes")
{
    std::string good = gridfile("my own grid.other"), cut = temporary("cut.qmg"), whole;
    std::string missing = temporary("missing.qmg"), damaged = temporary("damaged.qmg");
    std::ifstream in(good, std::ios::binary);
    whole.assign(std::istreambuf_iterator<char>(in), {});
    filewrite(cut, whole.substr(0, 280));
    filewrite(damaged, "Quillmere Grid");
    const struct {
        std::string words, title;
        bool told; // that the file is damaged
    } ways[] = {
        {good, "Quillmere - my own grid.other", false},
        {missing, "Quillmere - missing.qmg", false},
        {cut, "Quillmere - cut.qmg", false},
        {damaged, "Quillmere", true},
    };
    for (const auto &[words, title, told] : ways) {
        CAPTURE(words);
        program p = programstart("quillmere.exe", "\"" + words + "\"");
        if (told) {
            window box = driveboxwait(30000);
            REQUIRE(box);
            CHECK(drivetext(box) == "Quillmere");
            CHECK(driveboxtext(box) == "Corruption in file.");
            driveboxanswer(box, IDOK);
        }
        window w = programwindow();
        REQUIRE(w);
        CHECK(titled(w, title));
        CHECK_FALSE(drivefind("", "#32770"));
        PostMessageA(reinterpret_cast<HWND>(w), WM_CLOSE, 0, 0); // nothing is asked
        CHECK(programstatus(p) == 0);
    }
    std::error_code ignored; // an ended program may still hold its file
    for (const std::string &path : {good, cut, damaged})
        std::filesystem::remove(path, ignored);
}

TEST_CASE("a folder of the registry may hold variables")
{
    constexpr char key[] = "Software\\Quillmere test variables", text[] = "\"%TEMP%\\words\"";
    RegSetKeyValueA(HKEY_CURRENT_USER, key, "folder", REG_EXPAND_SZ, text, sizeof text);
    char path[PATHSIZE], wanted[PATHSIZE];
    ExpandEnvironmentStringsA("%TEMP%\\words\\a.dic", wanted, sizeof wanted);
    pathexpand("<HKCU\\Software\\Quillmere test variables\\folder>\\a.dic", path, sizeof path);
    CHECK(std::string(path) == wanted);
    RegDeleteKeyA(HKEY_CURRENT_USER, key);
}

TEST_CASE("a changed grid ends the program only by Yes")
{
    program p = programstart("quillmere.exe");
    window w = programwindow();
    REQUIRE(w);
    int width, height;
    drivesize(w, &width, &height);
    driveplace cell = driveclient(w, width / 2, height / 4);
    drivemove(cell.x, cell.y);
    driveclick(cell.x, cell.y);
    drivetype("z");
    REQUIRE(titled(w, "Quillmere*"));
    drivekey('F', DRIVEALT); // by its letters, as every user of the menus can
    drivekey('X');
    window box = driveboxwait();
    REQUIRE(box);
    CHECK(driveboxtext(box) == "Grid edited and not saved. Continue?");
    driveboxanswer(box, IDNO);
    CHECK(programstays(p, 300));
    // Nor does the system's session end over it.
    auto session = std::async(std::launch::async, [&] {
        return SendMessageA(reinterpret_cast<HWND>(w), WM_QUERYENDSESSION, 0, 0);
    });
    box = driveboxwait();
    REQUIRE(box);
    driveboxanswer(box, IDNO);
    CHECK(session.get() == 0);
    CHECK(drivetext(w) == "Quillmere*");
    PostMessageA(reinterpret_cast<HWND>(w), WM_CLOSE, 0, 0);
    box = driveboxwait();
    REQUIRE(box);
    driveboxanswer(box, IDYES);
    CHECK(programstatus(p) == 0);
}
