// Help over a system that only notes what it was asked.
#include "desktop/help.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "base/messages.h"
#include "base/platform.h"
#include "base/registry.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/helpsystem.h"
#include "desktop/helptable.h"
#include "desktop/hourglass.h"
#include "desktop/mouse.h"
#include "desktop/templatechain.h"
#include "graphics/modeinfo.h"
#include "tests/desktop/fake/fakesource.h"
#include "tests/support/testfiles.h"

#include <doctest/doctest.h>

namespace
{

mouserecord pointer;
const char *answer; // of window 5's handler, 0 for none

errorblock *answered(window, intptr_t data, int32_t, const char **text)
{
    *text = answer;
    return data == 99 ? fakeerror() : nullptr;
}

// Windows with a handler, one that fails, and with the texts of templates 1, 3 and
// 70, on a screen of 800 pixels' height at 120 to the inch.
struct helpdesk {
    templaterow rows[4] = {{1, 0, nullptr, "Confirm"},
                           {3, 0, nullptr, "Info"},
                           {70, 0, nullptr, "edit"},
                           {0, 0, nullptr, nullptr}};
    templatelink link;

    helpdesk()
    {
        modeinfo.xdpi = modeinfo.ydpi = 120;
        modeinfo.heightpx = 800;
        templatelinked(rows, &link);
        REQUIRE_FALSE(blockstart());
        addhelphandler(answered, 5, 0);
        addhelphandler(answered, 6, 99);
        for (const templaterow &row : rows)
            addhelphandler(nullptr, 100 + row.number, row.number);
    }
    ~helpdesk()
    {
        templateunlinked(&link);
        modeinfo = {};
    }
};

// What comes up for a control, without its place and font.
std::string shown(window w, int32_t icon)
{
    CHECK(fakecode(helpicon(w, icon, 0)) == (w == 6 ? 99 : 0));
    std::string popup = fakelog();
    return popup.substr(0, popup.find(" at "));
}

} // namespace

errorblock *helpsystemtopic(window, const char *path)
{
    fake.log.push_back(path);
    return nullptr;
}

errorblock *helpsystempopup(window, const char *text, int32_t x, int32_t y, const char *font)
{
    fake.log.push_back(std::string(text) + " at " + std::to_string(x) + " " + std::to_string(y) +
                       " in " + font);
    return nullptr;
}

errorblock *helpsystemplace(window w, int32_t *x, int32_t *y)
{
    *x = static_cast<int32_t>(w) * 3;
    *y = 300;
    return nullptr;
}

void helpsystemfont(window, helpfont *font)
{
    *font = {.name = "Arial", .height = 13};
}

errorblock *getpointer(mouserecord *mouse)
{
    *mouse = pointer;
    return pointer.x ? fakeerror() : nullptr;
}

void hourglasson() {}
void hourglassoff() {}

int hourglasshelp(bool on)
{
    fake.log.push_back("cursor " + std::to_string(on));
    return 0;
}

TEST_CASE("the manual is where the path says, or beside the program")
{
    helpdesk desk;
    std::string key = "HKEY_CURRENT_USER\\Software\\Quillmere help test\\";
    std::string path = "<" + key + "Path>\\Quillmere help test.chm>"; // any window
    char folder[PATHSIZE];
    REQUIRE_FALSE(platformprogramdirectory(folder, sizeof folder));
    std::string beside = std::string(folder) + "Quillmere help test.chm";
    REQUIRE_FALSE(regwrite((key + "Path").c_str(), "C:\\Nowhere"));
    CHECK_FALSE(helpcontents(5, path.c_str()));
    REQUIRE_FALSE(filesave(beside.c_str(), 0, "x", 1));
    CHECK_FALSE(helpcontents(5, path.c_str()));
    filedelete(beside.c_str());
    regdelete(key.c_str());
    CHECK(fakelog() == "C:\\Nowhere\\Quillmere help test.chm>, " + beside + ">");
}

TEST_CASE("the text of a control comes from its window's handler")
{
    helpdesk desk;
    REQUIRE_FALSE(addtranstext("WORD:spell\n", 11));
    // Beside the control, 90 and 300 OS units, or the window; 13 pixels are 7.8 points.
    std::string longtext = "To " + std::string(5000, 'x') + " {WORD}";
    answer = longtext.c_str();
    CHECK_FALSE(helpicon(5, 17, 30));
    CHECK(fakelog() == longtext.substr(0, 5004) + "spell at 60 600 in Arial, 8, ,");
    answer = nullptr;
    for (window w : {5, 6, 7}) // of no text, a failing one, and nobody's
        CHECK(shown(w, 1) == "");
}

TEST_CASE("the next press asks what is under the pointer")
{
    helpdesk desk;
    answer = "Text";
    fake.nohook = true;
    CHECK(helpinteractive(7));
    fake.nohook = false;
    const struct {
        intptr_t down;
        mouserecord pointer;
        std::string heard;
    } rows[] = {{0x201, {0, 0, 4, 5, 9}, "Text at 1018 600 in Arial, 8, ,, "}, // control 509
                {0x204, {0, 0, 4, 5, -1}, "Text at 10 600 in Arial, 8, ,, "},
                {0xA1, {0, 0, 4, -1, 9}, ""}, // over no window
                {0xA4, {1, 0, 4, 5, 9}, ""}}; // and nowhere
    for (const auto &row : rows) {
        pointer = row.pointer;
        CHECK_FALSE(helpinteractive(7));
        CHECK_FALSE(helpinteractive(7)); // runs already
        CHECK(fake.hooks == 1);
        for (intptr_t message : {intptr_t{0x200}, intptr_t{0x202}, row.down}) // or no press
            CHECK(hookdeliver(5, 0, message) == (message == row.down));
        CHECK(fake.hooks == 0);
        CHECK(fakelog() == "cursor 1, " + row.heard + "cursor 0");
    }
}

TEST_CASE("lines of a table give icons of a template their text, the first that fits")
{
    helpdesk desk;
    const std::string lines = "/ Confirm,5:A comment\r\n"
                              "Confirm,0,11:Answers: yes, or no.\r\n\r\n"
                              "INFO,255:The program\nnobody,1:Unknown\n"
                              "Confirm 4:No comma\nConfirm,7 no colon\n"
                              "Confirm,254:Any other\nConfirm,13:Too late\n"
                              "edit,1:One\nInfo,3:Three\n"
                              "edit,0x11:The last, without an end of line";
    const std::string answers = "Answers: yes, or no.", last = "The last, without an end of line";
    REQUIRE_FALSE(helptableadd(lines.data(), static_cast<int32_t>(lines.size())));
    CHECK((shown(101, 0) == answers && shown(101, 11) == answers));
    for (int32_t icon : {-1, 4, 5, 7, 13})
        CHECK(shown(101, icon) == "Any other");
    CHECK((shown(103, -1) == "The program" && shown(103, 3) == "Three" && shown(103, 0) == ""));
    CHECK((shown(170, 1) == "One" && shown(170, 17) == last && shown(100, 1) == ""));

    // From a file, which may be missing.
    putfile(scratch("Help.txt"), "Info,8:From a file\n");
    CHECK_FALSE(addhelptable(scratchfolder().c_str(), "Help.txt"));
    CHECK(shown(103, 8) == "From a file");
    CHECK(fakecode(addhelptable(scratchfolder().c_str(), "Missing.txt")) == ERRORNOTFOUND);
}
