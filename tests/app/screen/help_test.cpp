// Every way into help, over a system that only notes what it was asked.
#include "app/commands.h"
#include "app/mainwindow.h"
#include "base/platform.h"
#include "base/registry.h"
#include "desktop/handlers.h"
#include "desktop/helpsystem.h"
#include "grid/gridview.h"
#include "tests/app/screen/screen.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <fstream>
#include <string>

namespace
{

constexpr int32_t GRIDSIZE = 40008; // a command
constexpr const char *INSTALLED =
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Quillmere.exe\\";

std::string asked; // of the system, in order
int32_t askedicon;

void begin()
{
    screenstart();
    asked.clear();
    askedicon = -99;
}

bool menuopen()
{
    HWND menu = FindWindowA("#32768", nullptr);
    return menu && IsWindowVisible(menu);
}

// An entry of the Help menu, by the letters underlined in it.
void helpmenu(int letter)
{
    driveaside([] {},
               [&] {
                   drivekey('H', DRIVEALT);
                   drivewait(menuopen);
                   drivekey(letter);
                   drivewait([] { return !menuopen(); });
               });
    drivepump();
}

std::string topic(const std::string &folder)
{
    return "topic " + folder + "Quillmere.chm>;";
}

std::string programfolder()
{
    char folder[PATHSIZE];
    REQUIRE_FALSE(platformprogramdirectory(folder, sizeof folder));
    return folder;
}

errorblock *answered(window, intptr_t, int32_t icon, const char **text)
{
    askedicon = icon;
    *text = "This is {NAME}.";
    return nullptr;
}

// A dialog of the program, with help for all of it, as an extension would give it.
struct helpeddialog {
    window w;
    helpeddialog()
    {
        begin();
        REQUIRE_FALSE(commandrun(GRIDSIZE));
        drivepump();
        w = drivewaitwindow("Grid Size");
        REQUIRE(w);
        REQUIRE_FALSE(addhelphandler(answered, w, 0));
    }
    ~helpeddialog()
    {
        remhelphandler(answered, w, 0);
        drivekey(VK_ESCAPE);
    }
};

// Where a control's text is asked for, its top left; of the window with 0.
std::string popupat(window shown)
{
    RECT frame;
    GetWindowRect(reinterpret_cast<HWND>(shown), &frame);
    return "popup This is Quillmere. " + std::to_string(frame.left) + " " +
           std::to_string(frame.top) + ";";
}

} // namespace

errorblock *helpsystemtopic(window w, const char *path)
{
    CHECK(w == mainwindow);
    asked += std::string("topic ") + path + ";";
    return nullptr;
}

errorblock *helpsystempopup(window, const char *text, int32_t x, int32_t y, const char *)
{
    asked += std::string("popup ") + text + " " + std::to_string(x) + " " + std::to_string(y) + ";";
    return nullptr;
}

errorblock *helpsystemopen(window, const char *address)
{
    asked += std::string("open ") + address + ";";
    return nullptr;
}

TEST_CASE("Help in the menu opens the manual where the program was installed, or beside it")
{
    begin();
    std::string value = std::string(INSTALLED) + "Path", folder = scratchfolder() + "\\Puzzles";
    regdelete(value.c_str());
    helpmenu('H');
    CHECK(asked == topic(programfolder()));
    asked.clear();
    REQUIRE_FALSE(regwrite(value.c_str(), folder.c_str()));
    REQUIRE(CreateDirectoryA(folder.c_str(), nullptr));
    std::ofstream(folder + "\\Quillmere.chm") << "x";
    helpmenu('H');
    CHECK(asked == topic(folder + "\\"));
    regdelete(value.c_str());
}

TEST_CASE("F1 opens the manual, and with Ctrl nothing")
{
    begin();
    regdelete((std::string(INSTALLED) + "Path").c_str());
    drivekey(VK_F1); // in the window, as it comes up
    CHECK(asked == topic(programfolder()));
    asked.clear();
    driveplace cell = driveclient(gridwindow, 20, 20);
    driveclick(cell.x, cell.y);
    drivekey(VK_F1, DRIVECTRL);
    CHECK(asked == "");
    drivekey(VK_F1);
    CHECK(asked == topic(programfolder()));
}

TEST_CASE("windows without a text show none, however it is asked for")
{
    begin();
    REQUIRE_FALSE(commandrun(GRIDSIZE));
    drivepump();
    window w = drivewaitwindow("Grid Size");
    REQUIRE(w);
    driveplace button = driveicon(w, 2);
    drivekey(VK_F1);
    driveclick(button.x, button.y, DRIVERIGHT);
    drivekey(VK_F1, DRIVESHIFT);
    driveclick(button.x, button.y);
    CHECK(asked == "");
    CHECK(drivefind("Grid Size") == w); // the press was the question
    driveclick(button.x, button.y);
    CHECK_FALSE(drivefind("Grid Size"));
    driveplace cell = driveclient(gridwindow, 20, 20);
    driveclick(cell.x, cell.y, DRIVERIGHT); // a block, and no help
    CHECK(asked == "");
}

TEST_CASE("F1 asks for the control with the focus, a right click for what is under it")
{
    helpeddialog dialog;
    drivekey(VK_F1);
    CHECK(askedicon == 1008);
    CHECK(asked == popupat(drivecontrol(dialog.w, 1008)));
    asked.clear();
    drivekey(VK_F1, DRIVECTRL);
    CHECK(asked == "");
    driveiconclick(dialog.w, 1, DRIVERIGHT);
    CHECK(askedicon == 1);
    CHECK(asked == popupat(drivecontrol(dialog.w, 1)));
    asked.clear();
    driveplace ground = driveclient(dialog.w, 3, 3);
    driveclick(ground.x, ground.y, DRIVERIGHT);
    CHECK(askedicon == -1);
    CHECK(asked == popupat(dialog.w));
}

TEST_CASE("Shift and F1 make the next press ask")
{
    helpeddialog dialog;
    driveplace button = driveicon(dialog.w, 1);
    drivemove(button.x, button.y);
    drivekey(VK_F1, DRIVESHIFT);
    CHECK(asked == "");
    driveclick(button.x, button.y);
    CHECK(askedicon == 1);
    CHECK(asked == popupat(drivecontrol(dialog.w, 1)));
    CHECK(drivefind("Grid Size") == dialog.w);
}

TEST_CASE("About tells of the program, and its links open")
{
    begin();
    helpmenu('A');
    window box = drivewaitwindow("About Quillmere", "Task");
    REQUIRE(box);
    CHECK(drivetext(box, 1012) == "Quillmere");
    CHECK(drivetext(box, 1013) == "2.20 (26-June-2012)");
    CHECK(drivetext(box, 1014) == "The Quillmere authors");
    CHECK(drivetext(box, 1015) == "(c) 2026 The Quillmere authors");
    for (int link : {1018, 1000, 1016}) {
        driveplace place = driveicon(box, link);
        driveclick(place.x, place.y);
    }
    CHECK(asked == "open https://quillmere.example.org/;open https://www.example.org/;"
                   "open mailto:hello@quillmere.example.org;");
    helpmenu('A'); // it is there already
    CHECK(drivefind("About Quillmere", "Task") == box);
    SUBCASE("until OK")
    {
        driveiconclick(box, 1);
    }
    SUBCASE("until Escape")
    {
        drivekey(VK_ESCAPE);
    }
    CHECK_FALSE(drivefind("About Quillmere", "Task"));
}
