// Help over a system that only notes what it was asked.
#include "desktop/help.h"

#include "base/errors.h"
#include "base/files.h"
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
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>

namespace
{

struct {
    int busy, helpcursor;
    helpfont font;
    mouserecord pointer;
    bool fail; // the pointer can't be read
} asked;

// A screen of 800 pixels' height at 120 to the inch, and a block table.
struct helpdesk {
    helpdesk()
    {
        asked = {};
        std::strcpy(asked.font.name, "Arial");
        asked.font.height = 13;
        modeinfo.xdpi = modeinfo.ydpi = 120;
        modeinfo.heightpx = 800;
        REQUIRE_FALSE(blockstart());
        headless.keeptrace = true;
    }
    ~helpdesk()
    {
        modeinfo = {};
    }
};

const char *answer; // the handler's
int32_t askedicon;

errorblock *answered(window self, intptr_t data, int32_t icon, const char **text)
{
    CHECK(self == 5);
    askedicon = icon;
    *text = answer;
    return data == 99 ? fakeerror() : nullptr;
}

bool traced(const std::string &line)
{
    return headless.tracetext.find(line + "\r\n") != std::string::npos;
}

} // namespace

errorblock *helpsystemtopic(window w, const char *path)
{
    fake.log.push_back("topic " + std::to_string(w) + " " + path);
    return nullptr;
}

errorblock *helpsystempopup(window w, const char *text, int32_t x, int32_t y, const char *font)
{
    fake.log.push_back("popup " + std::to_string(w) + " " + text + " at " + std::to_string(x) +
                       " " + std::to_string(y) + " in " + font);
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
    *font = asked.font;
}

errorblock *getpointer(mouserecord *mouse)
{
    *mouse = asked.pointer;
    return asked.fail ? fakeerror() : nullptr;
}

void hourglasson()
{
    asked.busy++;
}

void hourglassoff()
{
    asked.busy--;
}

int hourglasshelp(int on)
{
    int old = asked.helpcursor;
    asked.helpcursor = on;
    return old;
}

TEST_CASE("the manual is where the path says, or beside the program")
{
    helpdesk desk;
    constexpr char KEY[] = "HKEY_CURRENT_USER\\Software\\Quillmere help test\\";
    REQUIRE_FALSE(regwrite((std::string(KEY) + "Path").c_str(), "C:\\Nowhere"));
    std::string path = "<" + std::string(KEY) + "Path>\\Quillmere help test.chm>"; // any window
    CHECK_FALSE(helpcontents(5, path.c_str()));
    CHECK(fakelog() == "topic 5 C:\\Nowhere\\Quillmere help test.chm>");
    CHECK(traced("topic " + path));
    CHECK(traced("temp C:\\Nowhere\\Quillmere help test.chm>"));

    char folder[PATHSIZE];
    REQUIRE_FALSE(platformprogramdirectory(folder, sizeof folder));
    std::string beside = std::string(folder) + "Quillmere help test.chm";
    REQUIRE_FALSE(filesave(beside.c_str(), 0, "x", 1));
    CHECK_FALSE(helpcontents(5, path.c_str()));
    CHECK(fakelog() == "topic 5 " + beside + ">");
    CHECK(traced("temp " + beside + ">"));
    filedelete(beside.c_str());

    regdelete(KEY); // it was never installed
    CHECK_FALSE(helpcontents(5, path.c_str()));
    CHECK(fakelog() == "topic 5 " + beside + ">");
}

TEST_CASE("the text of a control comes from its window's handler")
{
    helpdesk desk;
    constexpr char words[] = "WORD:spell\n";
    REQUIRE_FALSE(addtranstext(words, sizeof words - 1));
    answer = "To {WORD}";
    CHECK_FALSE(helpicon(5, 17, 30)); // nobody's window
    CHECK(fakelog() == "");
    REQUIRE_FALSE(addhelphandler(answered, 5, 1));

    // Beside the control: 90 and 300 OS units, and 13 pixels are 7.8 points.
    CHECK_FALSE(helpicon(5, 17, 30));
    CHECK(askedicon == 17);
    CHECK(fakelog() == "popup 5 To spell at 60 600 in Arial, 8, ,");
    CHECK(traced("help pop To spell"));

    // Beside the window, in a font of 8.4 points.
    asked.font.height = 14;
    CHECK_FALSE(helpicon(5, -1, 0));
    CHECK(askedicon == -1);
    CHECK(fakelog() == "popup 5 To spell at 10 600 in Arial, 8, ,");

    std::string longtext = std::string(5000, 'x') + " {WORD}";
    answer = longtext.c_str();
    CHECK_FALSE(helpicon(5, 17, 30));
    CHECK(fakelog().find("x spell at") != std::string::npos);

    answer = nullptr;
    CHECK_FALSE(helpicon(5, 17, 30));
    remhelphandler(answered, 5, 1);
    answer = "To {WORD}";
    REQUIRE_FALSE(addhelphandler(answered, 5, 99)); // fails
    CHECK(helpicon(5, 17, 30));
    CHECK(fakelog() == "");
}

TEST_CASE("a window without a function has the texts of its template")
{
    helpdesk desk;
    templaterow rows[] = {{3, 0, nullptr, "Info"}, {0, 0, nullptr, nullptr}};
    templatelink link;
    templatelinked(rows, &link);
    constexpr char lines[] = "Info,255:The program\nInfo,1:Leaves\n";
    REQUIRE_FALSE(helptableadd(lines, sizeof lines - 1));
    REQUIRE_FALSE(addhelphandler(nullptr, 5, 3));
    CHECK_FALSE(helpicon(5, 1, 0));
    CHECK_FALSE(helpicon(5, -1, 0));
    CHECK_FALSE(helpicon(5, 2, 0));
    CHECK(fakelog() == "popup 5 Leaves at 10 600 in Arial, 8, ,, "
                       "popup 5 The program at 10 600 in Arial, 8, ,");
    templateunlinked(&link);
}

TEST_CASE("the next press asks what is under the pointer")
{
    helpdesk desk;
    answer = "Text";
    askedicon = 0;
    REQUIRE_FALSE(addhelphandler(answered, 5, 1));
    asked.pointer = {0, 0, 4, 5, 9};
    fake.nohook = true;
    CHECK(helpinteractive(7));
    CHECK(asked.busy == 0);
    fake.nohook = false;
    for (intptr_t down : {0x201, 0x204, 0xA1, 0xA4}) {
        CHECK_FALSE(helpinteractive(7));
        CHECK_FALSE(helpinteractive(7)); // runs already
        CHECK(fake.hooks == 1);
        CHECK((asked.busy == 1 && asked.helpcursor == 1));
        for (intptr_t other : {0x200, 0x202}) // a movement, a release
            CHECK_FALSE(hookdeliver(5, 0, other));
        CHECK(fakelog() == "");
        CHECK(hookdeliver(5, 0, down));
        CHECK(fakelog() == "popup 5 Text at 1018 600 in Arial, 8, ,"); // beside control 509
        CHECK(askedicon == 9);
        CHECK(fake.hooks == 0);
        CHECK((asked.busy == 0 && asked.helpcursor == 0));
        CHECK_FALSE(hookdeliver(5, 0, down));
    }

    for (bool fail : {false, true}) { // over no window, and nowhere
        asked.fail = fail;
        asked.pointer.window = -1;
        CHECK_FALSE(helpinteractive(7));
        CHECK(hookdeliver(5, 0, 0x201));
        CHECK(asked.busy == 0);
    }
    CHECK(fakelog() == "");
}
