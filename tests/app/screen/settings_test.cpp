// The dialogs of settings, with a user's hands and eyes.
#include "app/choices.h"
#include "app/commands.h"
#include "app/mainwindow.h"
#include "base/platform.h"
#include "base/text.h"
#include "desktop/icons.h"
#include "dict/dicteditwindow.h"
#include "dict/dictset.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "graphics/modeinfo.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "grid/gridsettings.h"
#include "grid/gridshape.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/screen.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>

namespace
{

constexpr int CHOICES = 40027, CUSTOMISE = 40026, OPEN = 40022, SAVEAS = 40004; // commands
constexpr int OK = 1, CANCEL = 2, SAVE = 3;
constexpr const char *TITLECHOICES = "Choices", *TITLECUSTOM = "Customisation";

// Controls of the system's boxes.
constexpr int REDEDIT = 706, GREENEDIT = 707, BLUEEDIT = 708, HEIGHTLIST = 0x472;

// As at the first start of a user.
void begin()
{
    screenstart();
    solutionsreset();
    gridreset();
    gridunchanged();
    metricsupdate();
    gridkindapply(GRIDCROSSWORD);
    gridextent();
    gridredraw();
    drivepump();
}

window dialog(const char *title, int command)
{
    CHECK_FALSE(commandrun(command));
    drivepump();
    window w = drivewaitwindow(title);
    REQUIRE(w);
    CHECK_FALSE(IsWindowEnabled(reinterpret_cast<HWND>(mainwindow)));
    return w;
}

// The dialog is gone and the program takes input again.
bool gone(const char *title)
{
    auto front = [] { return GetForegroundWindow() == reinterpret_cast<HWND>(mainwindow); };
    return !drivefind(title) && IsWindowEnabled(reinterpret_cast<HWND>(mainwindow)) &&
           drivewait(front);
}

// Over what stands there.
void fill(window w, int field, const std::string &text)
{
    driveiconclick(w, field);
    drivekey(VK_END);
    for (size_t n = drivetext(w, field).size(); n; n--)
        drivekey(VK_BACK);
    drivetype(text);
    CHECK(drivetext(w, field) == text);
}

// What the system's box that comes up by a press is told before its OK or Cancel.
void pick(window w, int control, const std::function<void(HWND)> &tell, int button = IDOK)
{
    bool seen = false;
    driveaside([&] { driveiconclick(w, control); },
               [&] {
                   auto box = reinterpret_cast<HWND>(drivewaitwindow("", "#32770"));
                   if (!box) return;
                   Sleep(100); // its own first messages
                   tell(box);
                   seen = true;
                   PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
               });
    drivepump();
    CHECK(seen);
}

void rgb(HWND box, int red, int green, int blue)
{
    SetDlgItemInt(box, REDEDIT, static_cast<UINT>(red), FALSE);
    SetDlgItemInt(box, GREENEDIT, static_cast<UINT>(green), FALSE);
    SetDlgItemInt(box, BLUEEDIT, static_cast<UINT>(blue), FALSE);
}

uint32_t pixelof(window w, int control)
{
    driveplace place = driveicon(w, control);
    drivemove(2, 2); // out of the way
    return drivepixel(place.x, place.y);
}

int pixelsof(window w, int control, uint32_t colour)
{
    RECT box;
    GetWindowRect(reinterpret_cast<HWND>(drivecontrol(w, control)), &box);
    drivepicture screen = drivelookscreen();
    int count = 0;
    for (int y = box.top; y < box.bottom; y++)
        for (int x = box.left; x < box.right; x++)
            count += screen.at(x, y) == colour;
    return count;
}

// The user's file of choices, out of the way and back again.
struct choicesfile {
    std::filesystem::path folder, file;

    choicesfile()
    {
        char directory[PATHSIZE], login[256];
        REQUIRE_FALSE(platformprogramdirectory(directory, sizeof directory));
        REQUIRE_FALSE(platformloginname(login, sizeof login));
        folder = std::filesystem::path(directory) / "Choices";
        file = folder / (std::string(login) + ".dat");
        std::filesystem::remove(file);
    }
    ~choicesfile()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
};

// A test's changes of the choices don't outlast it.
struct choiceskept {
    choicesrecord before = {};

    choiceskept()
    {
        choicesget(&before);
    }
    ~choiceskept()
    {
        choicesset(before);
        metricsupdate();
    }
};

// In the system's box for fonts.
void points(HWND box, const char *height)
{
    HWND heights = GetDlgItem(box, HEIGHTLIST);
    SendMessageA(heights, CB_SELECTSTRING, 0, reinterpret_cast<LPARAM>(height));
    SendMessageA(box, WM_COMMAND, MAKEWPARAM(HEIGHTLIST, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(heights));
}

void twenty(HWND box)
{
    points(box, "20");
}

// A place in a cell, in parts of its sides.
driveplace incell(int32_t x, int32_t y, double across, double down)
{
    return driveclient(gridwindow, static_cast<int>(ostodevx(grid.cellwidth) * (x + across)),
                       static_cast<int>(ostodevy(grid.cellheight) * (y + down)));
}

uint32_t cellcolour(int32_t x, int32_t y)
{
    driveplace place = incell(x, y, 0.5, 0.5);
    return drivepixel(place.x, place.y);
}

drivepicture gridlook()
{
    drivemove(2, 2);
    return drivelook(gridwindow);
}

int count(const drivepicture &picture, uint32_t colour)
{
    return static_cast<int>(std::count(picture.pixels.begin(), picture.pixels.end(), colour));
}

// The last row of pixels that has this colour.
int lowest(const drivepicture &picture, uint32_t colour)
{
    auto last = std::find(picture.pixels.rbegin(), picture.pixels.rend(), colour);
    return static_cast<int>(picture.pixels.rend() - last) / picture.width;
}

bool samesettings(const gridsettings &a, const gridsettings &b)
{
    auto samefont = [](const fontrecord &f, const fontrecord &g) {
        return f.height == g.height && f.width == g.width && f.weight == g.weight &&
               std::strcmp(f.face, g.face) == 0;
    };
    return a.textcolour == b.textcolour && a.gridcolour == b.gridcolour &&
           a.fillcolour == b.fillcolour && a.backcolour == b.backcolour &&
           samefont(a.gridfont, b.gridfont) && samefont(a.cluefont, b.cluefont) &&
           a.squarescale == b.squarescale && a.minwordlength == b.minwordlength &&
           a.showsolutions == b.showsolutions && a.filldirections == b.filldirections;
}

// The document is saved, another begun, and the file opened again.
void throughfile(const std::string &leaf)
{
    std::string path = scratchfolder() + "\\" + leaf;
    CHECK(drivefilebox(path, 0, true, [] { CHECK_FALSE(commandrun(SAVEAS)); }));
    drivepump();
    begin();
    CHECK(drivefilebox(path, 0, true, [] { CHECK_FALSE(commandrun(OPEN)); }));
    drivepump();
}

} // namespace

TEST_CASE("Choices: a limit out of range is brought into it; only Save writes the file")
{
    begin();
    choicesfile user;
    window w = dialog(TITLECHOICES, CHOICES);
    CHECK(drivetext(w, 1022) == "1000");
    SUBCASE("OK")
    {
        fill(w, 1022, "5");
        driveiconclick(w, OK);
        CHECK(gone(TITLECHOICES));
        CHECK(solutions.maxsolutions == 20);
        CHECK_FALSE(std::filesystem::exists(user.file));
    }
    SUBCASE("Return is OK, too large a number the largest")
    {
        fill(w, 1022, "99999999999999");
        drivekey(VK_RETURN);
        CHECK(gone(TITLECHOICES));
        CHECK(solutions.maxsolutions == 1000000);
    }
    SUBCASE("no number leaves it")
    {
        fill(w, 1022, "");
        driveiconclick(w, OK);
        CHECK(gone(TITLECHOICES));
        CHECK(solutions.maxsolutions == 1000);
    }
    SUBCASE("Save")
    {
        fill(w, 1022, "321");
        driveiconclick(w, SAVE);
        CHECK(gone(TITLECHOICES));
        CHECK(solutions.maxsolutions == 321);
        REQUIRE(std::filesystem::exists(user.file));
        CHECK(std::filesystem::file_size(user.file) == 184);
        choicesrecord choices = {};
        CHECK_FALSE(choicesread(user.file.string().c_str(), &choices));
        CHECK(choices.maxsolutions == 321);
        CHECK(choices.splitfraction == grid.splitfraction);
    }
    SUBCASE("Cancel, Escape and the close box leave everything")
    {
        for (int way = 0; way < 3; way++) {
            if (way) w = dialog(TITLECHOICES, CHOICES);
            fill(w, 1022, "77");
            if (way == 0) driveiconclick(w, CANCEL);
            if (way == 1) drivekey(VK_ESCAPE);
            if (way == 2) drivekey(VK_F4, DRIVEALT);
            CHECK(gone(TITLECHOICES));
            CHECK(solutions.maxsolutions == 1000);
        }
        CHECK_FALSE(std::filesystem::exists(user.file));
    }
}

TEST_CASE("Choices: the arrows change the limit")
{
    begin();
    window w = dialog(TITLECHOICES, CHOICES);
    RECT box;
    GetWindowRect(reinterpret_cast<HWND>(drivecontrol(w, 1023)), &box);
    driveclick((box.left + box.right) / 2, box.top + 4);
    CHECK(drivetext(w, 1022) == "1001");
    fill(w, 1022, "21");
    for (int n = 0; n < 3; n++)
        driveclick((box.left + box.right) / 2, box.bottom - 4);
    CHECK(drivetext(w, 1022) == "20");
    driveiconclick(w, CANCEL);
}

TEST_CASE("Choices: a colour, chosen by its sample, is shown there and then in the grid")
{
    begin();
    grid.cursorx = grid.cursory = 2;
    gridredraw();
    drivepump();
    driveplace cell = driveclient(gridwindow, ostodevx(grid.cellwidth * 5 / 2),
                                  ostodevy(grid.cellheight * 5 / 2));
    window w = dialog(TITLECHOICES, CHOICES);
    CHECK(pixelof(w, 1016) == 0x00BBFF);
    pick(
        w, 1033, [](HWND box) { rgb(box, 200, 100, 50); }, IDCANCEL);
    CHECK(pixelof(w, 1016) == 0x00BBFF);
    pick(w, 1016, [](HWND box) { rgb(box, 200, 100, 50); });
    CHECK(pixelof(w, 1016) == 0xC86432);
    CHECK(pixelof(w, 1019) == 0xEEEEBB); // the other one's
    CHECK(cursorcolour == CURSORCOLOURDEFAULT);
    SUBCASE("OK")
    {
        driveiconclick(w, OK);
        CHECK(cursorcolour == 0x3264C800);
        CHECK(drivepixel(cell.x, cell.y) == 0xC86432);
    }
    SUBCASE("Cancel")
    {
        driveiconclick(w, CANCEL);
        CHECK(cursorcolour == CURSORCOLOURDEFAULT);
        CHECK(drivepixel(cell.x, cell.y) == 0x00BBFF);
    }
    CHECK(gone(TITLECHOICES));
}

TEST_CASE("Choices: the list of words takes a larger font")
{
    begin();
    gridsetkind(GRIDWORDSQUARE);
    CHECK_FALSE(soladdtyped("heron"));
    solfont.width = 5; // which the box for fonts takes away
    int32_t before = solutions.rowheight;
    window w = dialog(TITLECHOICES, CHOICES);
    int small = pixelsof(w, 1018, 0);
    pick(w, 1013, [](HWND box) {
        char height[8] = "";
        GetDlgItemTextA(box, HEIGHTLIST, height, sizeof height);
        CHECK(std::string(height) == "8");
        twenty(box);
    });
    CHECK(pixelsof(w, 1018, 0) > small);
    CHECK(solutions.rowheight == before);
    driveiconclick(w, OK);
    CHECK(std::abs(solfont.height - 320) < 8); // whole pixels
    CHECK(solfont.width == 0);
    CHECK(solutions.rowheight > 2 * before);
    CHECK(solutions.slotcount == 1);
    drivepicture list = drivelook(solutionswindow);
    int lowest = 0;
    for (int y = 0; y < list.height; y++)
        for (int x = 0; x < list.width; x++)
            if (list.at(x, y) == 0) lowest = y;
    CHECK(lowest > ostodevy(before)); // letters reach below the old row
    solreset();
}

TEST_CASE("Customisation: the scale's arrows go below what is taken")
{
    begin();
    window w = dialog(TITLECUSTOM, CUSTOMISE);
    CHECK(drivetext(w, 1007) == "180");
    fill(w, 1007, "92");
    RECT box;
    GetWindowRect(reinterpret_cast<HWND>(drivecontrol(w, 1015)), &box);
    for (int n = 0; n < 4; n++)
        driveclick((box.left + box.right) / 2, box.bottom - 4);
    CHECK(drivetext(w, 1007) == "90");
    CHECK(gridsunsaved() == 0);
    SUBCASE("OK takes the least")
    {
        driveiconclick(w, OK);
        CHECK(gone(TITLECUSTOM));
        CHECK(grid.squarescale == 150);
        CHECK(grid.cellwidth == 30);
        CHECK(gridsunsaved() == 1);
        CHECK(drivetext(mainwindow).back() == '*');
        driveplace line = driveclient(gridwindow, ostodevx(30 * 3), ostodevy(30) / 2);
        CHECK(drivepixel(line.x, line.y) == 0);
    }
    SUBCASE("Cancel changes nothing")
    {
        driveiconclick(w, CANCEL);
        CHECK(gone(TITLECUSTOM));
        CHECK(grid.squarescale == 180);
        CHECK(grid.cellwidth == 36);
        CHECK(gridsunsaved() == 0);
    }
}

TEST_CASE("Customisation: samples of fonts are in the colours of the text and behind it")
{
    begin();
    grid.flags[1][1] = CELLBLOCK;
    window w = dialog(TITLECUSTOM, CUSTOMISE);
    CHECK(pixelsof(w, 1013, 0xFFFFFF) > 200);
    pick(w, 1012, [](HWND box) { rgb(box, 255, 255, 128); });
    CHECK(pixelsof(w, 1013, 0xFFFFFF) == 0);
    CHECK(pixelsof(w, 1013, 0xFFFF80) > 200);
    CHECK(pixelsof(w, 1016, 0xFFFF80) > 200);
    pick(w, 1019, [](HWND box) { rgb(box, 255, 0, 0); });
    CHECK(pixelof(w, 1014) == 0xFF0000);
    CHECK(pixelsof(w, 1013, 0xFF0000) > 10);
    pick(w, 1011, [](HWND box) { rgb(box, 0, 128, 0); }); // of blocks, by the sample
    driveiconclick(w, OK);
    CHECK(grid.textcolour == 0x0000FF00);
    CHECK(grid.backcolour == 0x80FFFF00);
    CHECK(grid.fillcolour == 0x00800000);
    auto cellpixel = [](int32_t x, int32_t y) {
        driveplace place = driveclient(gridwindow, ostodevx(grid.cellwidth * (2 * x + 1) / 2),
                                       ostodevy(grid.cellheight * (2 * y + 1) / 2));
        return drivepixel(place.x, place.y);
    };
    CHECK(cellpixel(1, 1) == 0x008000);
    CHECK(cellpixel(2, 1) == 0xFFFF80);
}

TEST_CASE("Customisation of a Wordsquare: what is made, and how")
{
    begin();
    gridsetkind(GRIDWORDSQUARE);
    gridunchanged();
    grid.filldirections = 15;
    window w = dialog(TITLECUSTOM, CUSTOMISE);
    const struct {
        int control;
        bool on;
    } boxes[] = {{1030, true},  {1034, true},  {1033, true},  {1029, true},
                 {1028, false}, {1031, false}, {1036, false}, {1035, false}};
    for (const auto &box : boxes) {
        int on = -1;
        CHECK_FALSE(iconselected(w, box.control, &on));
        CHECK(on == box.on);
    }
    driveiconclick(w, 1030); // Left, away
    driveiconclick(w, 1035); // Up+Right, added
    driveiconclick(w, 1032); // no lines in pictures
    fill(w, 1008, "13");
    driveiconclick(w, OK);
    CHECK(gone(TITLECUSTOM));
    CHECK(grid.filldirections == (14 | 128));
    CHECK(grid.showsolutions == 0);
    CHECK(grid.minwordlength == 12);
    CHECK(gridsunsaved() == 1);
}

TEST_CASE("Choices: all that is set is seen at once, and after Save it is in the file")
{
    begin();
    choicesfile user;
    choiceskept kept;
    std::string folder = scratchfolder() + "\\looks";
    std::filesystem::create_directories(folder);
    strcopyn(dictdirectory, folder.c_str(), sizeof dictdirectory);
    REQUIRE_FALSE(dictcreate("mine"));
    for (const char *word : {"ant", "bee", "cow"})
        REQUIRE_FALSE(dictadd(word, &dicts[0].dict));
    REQUIRE_FALSE(dictedit(0));
    SetWindowPos(reinterpret_cast<HWND>(editor.self), nullptr, 10, 500, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER);
    grid.cursorx = grid.cursory = 1;
    grid.flags[3][2] |= CELLMARKED;
    gridredraw();
    drivepump();
    CHECK(cellcolour(3, 2) == 0xEEEEBB);
    int small = lowest(drivelook(editor.view.pane), 0);

    window w = dialog(TITLECHOICES, CHOICES);
    pick(w, 1033, [](HWND box) { rgb(box, 200, 100, 50); });
    pick(w, 1012, [](HWND box) { rgb(box, 10, 220, 30); });
    pick(w, 1011, twenty);
    pick(w, 1018, twenty); // by its sample
    fill(w, 1022, "321");
    driveiconclick(w, SAVE);
    CHECK_FALSE(drivefind(TITLECHOICES));
    CHECK(IsWindowEnabled(reinterpret_cast<HWND>(mainwindow)));
    CHECK(cellcolour(1, 1) == 0xC86432);
    CHECK(cellcolour(3, 2) == 0x0ADC1E);
    CHECK(lowest(drivelook(editor.view.pane), 0) > 2 * small);

    choicesrecord set = {}, saved = {};
    choicesget(&set);
    CHECK_FALSE(choicesread(user.file.string().c_str(), &saved));
    CHECK(saved.cursorcolour == 0x3264C800);
    CHECK(saved.selectedcolour == 0x1EDC0A00);
    for (const fontrecord *font : {&saved.dictfont, &saved.solfont}) {
        CHECK(std::abs(font->height - 320) < 8); // whole pixels
        CHECK(font->width == 0);
    }
    CHECK(saved.maxsolutions == 321);
    choicesset(kept.before);
    CHECK_FALSE(choicesload()); // as the next start does
    CHECK(dictfont.height == saved.dictfont.height);
    CHECK(selectedcolour == 0x1EDC0A00);
    CHECK(solutions.maxsolutions == 321);
}

TEST_CASE("Customisation: all that is set is seen at once, and goes with the grid's file")
{
    begin();
    std::string picture = "ab#\n.c.\n";
    documentread(picture);
    grid.cursorx = 0;
    grid.cursory = 1;
    window w = dialog(TITLECUSTOM, CUSTOMISE);
    pick(w, 1009, [](HWND box) { rgb(box, 0, 0, 255); }); // lines
    pick(w, 1014, [](HWND box) { rgb(box, 255, 0, 0); }); // text
    pick(w, 1017, [](HWND box) { rgb(box, 0, 128, 0); }); // blocks
    pick(w, 1020, [](HWND box) { rgb(box, 255, 255, 128); });
    fill(w, 1007, "300");
    driveiconclick(w, OK);
    CHECK(gone(TITLECUSTOM));
    CHECK(grid.cellwidth == 60);
    CHECK(cellcolour(2, 0) == 0x008000);
    CHECK(cellcolour(2, 1) == 0xFFFF80);
    drivepicture before = gridlook();
    driveplace line = incell(1, 1, 0, 0.5);
    CHECK(drivepixel(line.x, line.y) == 0x0000FF);
    CHECK(count(before, 0xFF0000) > 0);

    // Squares go by the text's font. Numbers are for pictures.
    w = dialog(TITLECUSTOM, CUSTOMISE);
    pick(w, 1013, twenty);
    int small = pixelsof(w, 1016, 0xFF0000);
    pick(w, 1016, twenty);
    CHECK(pixelsof(w, 1016, 0xFF0000) > 2 * small);
    driveiconclick(w, OK);
    drivepicture after = gridlook();
    CHECK(grid.cellwidth > 90);
    CHECK(count(after, 0xFF0000) > count(before, 0xFF0000) * 3 / 2);
    CHECK(std::abs(grid.cluefont.height - 320) < 8);

    gridsettings set = {}, opened = {};
    gridsettingsget(&set);
    throughfile("looks.qmg");
    gridsettingsget(&opened);
    CHECK(samesettings(set, opened));
    grid.cursorx = 0;
    grid.cursory = 1;
    gridredraw();
    drivepump();
    CHECK(gridlook().pixels == after.pixels);
}

TEST_CASE("Customisation of a Wordsquare goes with its file")
{
    begin();
    gridsetkind(GRIDWORDSQUARE);
    window w = dialog(TITLECUSTOM, CUSTOMISE);
    pick(w, 1009, [](HWND box) { rgb(box, 0, 0, 255); });
    pick(w, 1013, twenty);
    driveiconclick(w, 1032); // no lines in pictures
    driveiconclick(w, 1036); // Down+Right, the other way round
    fill(w, 1008, "7");
    driveiconclick(w, OK);
    gridsettings set = {}, opened = {};
    gridsettingsget(&set);
    CHECK(set.minwordlength == 7);
    throughfile("square.qmg");
    CHECK(grid.kind == GRIDWORDSQUARE);
    gridsettingsget(&opened);
    CHECK(samesettings(set, opened));
}

TEST_CASE("dialogs of settings leave nothing behind")
{
    begin();
    auto openclose = [](const char *title, int command) {
        window w = dialog(title, command);
        driveiconclick(w, OK);
        CHECK(gone(title));
    };
    openclose(TITLECHOICES, CHOICES);
    openclose(TITLECUSTOM, CUSTOMISE);
    drivecounts before = drivecountnow();
    for (int n = 0; n < 5; n++) {
        openclose(TITLECHOICES, CHOICES);
        openclose(TITLECUSTOM, CUSTOMISE);
    }
    drivecounts after = drivecountnow();
    CHECK(after.gdiobjects <= before.gdiobjects);
    CHECK(after.userobjects <= before.userobjects);
}
