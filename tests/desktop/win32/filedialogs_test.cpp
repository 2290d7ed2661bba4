// The boxes for files as a user meets them.
#include "desktop/filedialogs.h"

#include "base/errors.h"
#include "base/files.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/task.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstring>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace
{

constexpr int32_t GRID = 0x103, TEXT = 0xFFF, PICTURE = 0x101;

constexpr filetyperow rows[] = {
    {GRID, "qmg", "Grid (*.qmg)"},       {TEXT, "txt", "Text (*.txt)"},
    {PICTURE, "emf", "Picture (*.emf)"}, {-2, "dat", "Data (*.dat)"},
    {FILETYPEEND, nullptr, nullptr},
};

// Types, a block table, and a note of what was saved or loaded.
struct {
    std::string path;
    int32_t type;
    intptr_t data;
    int calls;
    bool fail;
} given;

struct filedesk {
    filetypenode node;
    std::string folder = scratchfolder();
    filedesk()
    {
        given = {};
        addfiletypes(rows, &node);
        REQUIRE_FALSE(blockstart());
    }
    ~filedesk()
    {
        remfiletypes(&node);
    }
    std::string at(const std::string &leaf) const
    {
        return folder + "\\" + leaf;
    }
};

errorblock *saved(const char *path, int32_t type)
{
    given.path = path;
    given.type = type;
    given.calls++;
    return given.fail ? makeerrortext(77, "No room") : nullptr;
}

errorblock *loaded(const char *path, int32_t type, intptr_t data, intptr_t zero)
{
    CHECK(zero == 0);
    given.data = data;
    return saved(path, type);
}

errorblock *loadasked(const char *path, int32_t type, intptr_t, intptr_t)
{
    return saved(path, type);
}

// Formats that put their extension behind the name themselves.
void format(intptr_t, int32_t index, int32_t *type, char *name, int32_t)
{
    *type = rows[index].type;
    if (name) pathsetext(name, rows[index].extension);
}

constexpr savefilter formats[] = {
    {"Grid file", format},
    {"Text file", format},
    {"Picture file", format},
};

constexpr int NAMES = 0x47C, NAME = 0x480, TYPES = 0x470;

HWND boxcontrol(window box, int icon)
{
    return GetDlgItem(reinterpret_cast<HWND>(box), icon);
}

std::string shown(HWND field)
{
    char text[300] = "";
    SendMessageA(field, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

std::string nameshown(window box)
{
    return shown(boxcontrol(box, NAMES) ? boxcontrol(box, NAMES) : boxcontrol(box, NAME));
}

std::string typeshown(window box)
{
    return shown(boxcontrol(box, TYPES));
}

void typechoose(window box, int row)
{
    SendMessageA(boxcontrol(box, TYPES), CB_SETCURSEL, static_cast<WPARAM>(row - 1), 0);
    SendMessageA(reinterpret_cast<HWND>(box), WM_COMMAND, MAKEWPARAM(TYPES, CBN_SELENDOK),
                 reinterpret_cast<LPARAM>(boxcontrol(box, TYPES)));
}

// While work runs, look gets the box; then OK is pressed.
void inbox(const std::function<void()> &work, const std::function<void(window)> &look)
{
    driveaside(work, [&] {
        window box = drivewaitwindow("", "#32770");
        CHECK(box);
        if (!box) return;
        Sleep(200); // its own first messages
        look(box);
        PostMessageA(reinterpret_cast<HWND>(box), WM_COMMAND, IDOK, 0);
    });
}

} // namespace

TEST_CASE("a box starts with the name and the folder of its path")
{
    filedesk desk;
    char path[PATHSIZE];
    std::strcpy(path, desk.at("Start here.qmg").c_str());
    std::string name, type;
    inbox([&] { CHECK_FALSE(savefile(path, sizeof path, TEXT, saved)); },
          [&](window box) {
              name = nameshown(box);
              type = typeshown(box);
          });
    CHECK(name == "Start here.qmg");
    CHECK(type == "Text (*.txt)");
    // What is saved ends in the extension of its type.
    CHECK(given.path == desk.at("Start here.txt"));
    CHECK(given.type == TEXT);
    CHECK(path == given.path);
}

TEST_CASE("another type changes the name, and is what is saved")
{
    filedesk desk;
    char path[PATHSIZE];
    std::strcpy(path, desk.at("a").c_str());
    int32_t current = 1;
    savefilterset(std::size(formats), formats, &current);
    std::string first, second, type;
    inbox([&] { CHECK_FALSE(savefile(path, sizeof path, GRID, saved)); },
          [&](window box) {
              first = nameshown(box);
              type = typeshown(box);
              typechoose(box, 3);
              Sleep(100);
              second = nameshown(box);
          });
    CHECK(first == "a.txt");
    CHECK(type == "Text file");
    CHECK(second == "a.emf");
    CHECK(given.path == desk.at("a.emf"));
    CHECK(given.type == PICTURE);
    CHECK(current == 2);

    // The next box has one format again.
    std::strcpy(path, desk.at("b").c_str());
    CHECK(drivefilebox("", 0, true, [&] { savefile(path, sizeof path, GRID, saved); }));
    CHECK(given.path == desk.at("b.qmg"));
}

TEST_CASE("a cancelled save is told to who asks for it, an error of the save always")
{
    filedesk desk;
    char path[PATHSIZE] = "Clues";
    errorblock *err = nullptr;
    auto save = [&] { err = savefile(path, sizeof path, TEXT, saved); };
    CHECK(drivefilebox("", 0, false, save));
    CHECK_FALSE(err);
    CHECK(
        drivefilebox("", 0, false, [&] { err = savefileloud(path, sizeof path, TEXT, saved, 0); }));
    REQUIRE(err);
    CHECK(err->code == ERRORSAVECANCELLED);
    CHECK(given.calls == 0);
    CHECK(std::string(path) == "Clues");

    given.fail = true;
    CHECK(drivefilebox(desk.at("x"), 0, true, save));
    REQUIRE(err);
    CHECK(err->code == 77);
    CHECK(given.path == desk.at("x.txt"));
}

TEST_CASE("a file that is there is loaded by its type")
{
    filedesk desk;
    std::string file = desk.at("words \xE9.txt");
    REQUIRE_FALSE(filesave(file.c_str(), 0, "a", 1));
    static const int32_t grids[] = {GRID}, texts[] = {TEXT, -1};
    static const loadgroup groups[] = {{"Grids", 1, grids}, {"Texts", 2, texts}};
    char path[PATHSIZE] = "";
    auto load = [&](bool ok, loadhandler handler) {
        CHECK(drivefilebox(file, 0, ok,
                           [&] { CHECK_FALSE(loadfile(path, 0, groups, 2, handler, 42, 0)); }));
    };
    load(false, loaded);
    CHECK(given.calls == 0);
    CHECK(std::string(path) == "");

    load(true, loaded); // by the caller's handler
    CHECK(given.path == file);
    CHECK((given.type == TEXT && given.data == 42));
    CHECK(path == file);

    given = {};
    REQUIRE_FALSE(addloadhandler(TEXT, loadasked));
    load(true, nullptr);        // by the one of its type
    sendmessage(TASKRUN, 0, 0); // until then the request waits
    CHECK(given.path == file);
    CHECK(given.calls == 1);
    remloadhandler(TEXT, loadasked);
    filedelete(file.c_str());
}
