// Help as a user asks for it, over a system that only notes what it was asked.
#include "desktop/help.h"

#include "base/errors.h"
#include "base/messages.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/helpsystem.h"
#include "desktop/icons.h"
#include "desktop/stages.h"
#include "desktop/templates.h"
#include "desktop/wdata.h"
#include "desktop/windows.h"
#include "resources/identifiers.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <string>

namespace
{

std::string asked; // of the system, in order
int32_t askedicon;
int clicks;

constexpr char WORDS[] = "ABOUT:About the test\nNAME:Tester\nCOPY:(c) Nobody\nAUTHOR:A. Uthor\n"
                         "WEB:http://web.test/\nHOME:http://home.test/\nEMAIL:a@home.test\n";

struct helpdesk {
    helpdesk()
    {
        asked.clear();
        askedicon = -99;
        clicks = 0;
        REQUIRE_FALSE(blockstart());
        REQUIRE_FALSE(inittemp());
        REQUIRE_FALSE(tasktemplates());
        REQUIRE_FALSE(addtranstext(WORDS, sizeof WORDS - 1));
    }
};

errorblock *answered(window, intptr_t, int32_t icon, const char **text)
{
    askedicon = icon;
    *text = "Text";
    return nullptr;
}

errorblock *clicked(window, intptr_t, mouserecord *)
{
    clicks++;
    return nullptr;
}

// A window with buttons 3 and 6, and help for all of it.
struct helpedwindow : helpdesk {
    window w = 0;
    helpedwindow()
    {
        REQUIRE_FALSE(createtop(TEMPLATECONFIRM, &w));
        REQUIRE_FALSE(addhelphandler(answered, w, 0));
        REQUIRE_FALSE(addclickhandler(clicked, w, 0));
        REQUIRE_FALSE(opencentred(w, 0));
        REQUIRE_FALSE(focusicon(w, 6));
        drivepump(50);
    }
    ~helpedwindow()
    {
        remclickhandler(clicked, w, 0);
        remhelphandler(answered, w, 0);
        removewindow(&w);
    }
};

// What is asked for a control, 0 for the window.
std::string popupat(window shown)
{
    RECT frame;
    GetWindowRect(reinterpret_cast<HWND>(shown), &frame);
    return "popup Text " + std::to_string(frame.left) + " " + std::to_string(frame.top) +
           " Arial, 8, ,;";
}

} // namespace

errorblock *helpsystemtopic(window, const char *path)
{
    asked += std::string("topic ") + path + ";";
    return nullptr;
}

errorblock *helpsystempopup(window, const char *text, int32_t x, int32_t y, const char *font)
{
    asked += std::string("popup ") + text + " " + std::to_string(x) + " " + std::to_string(y) +
             " " + font + ";";
    return nullptr;
}

errorblock *helpsystemopen(window, const char *address)
{
    asked += std::string("open ") + address + ";";
    return nullptr;
}

TEST_CASE("F1 asks for the control with the focus, a right click for what is under it")
{
    helpedwindow desk;
    auto told = [&](int32_t icon, window shown) {
        CHECK(askedicon == icon);
        CHECK(asked == popupat(shown));
        asked.clear();
    };
    drivekey(VK_F1);
    told(6, drivecontrol(desk.w, 6));
    drivekey(VK_F1, DRIVECTRL);
    CHECK(asked == "");
    driveiconclick(desk.w, 3, DRIVERIGHT);
    told(3, drivecontrol(desk.w, 3));
    driveplace ground = driveclient(desk.w, 3, 3);
    driveclick(ground.x, ground.y, DRIVERIGHT);
    told(-1, desk.w);
}

TEST_CASE("Shift and F1 make the next press ask, and not press")
{
    helpedwindow desk;
    drivekey(VK_F1, DRIVESHIFT);
    CHECK(asked == "");
    driveiconclick(desk.w, 3);
    CHECK(askedicon == 3);
    CHECK(asked == popupat(drivecontrol(desk.w, 3)));
    CHECK(clicks == 0);
    driveiconclick(desk.w, 3);
    CHECK(clicks > 0);
}

TEST_CASE("the About box tells of the program, and its links open")
{
    helpdesk desk;
    REQUIRE_FALSE(showabout(0, 205, "(a day)", nullptr));
    window box = drivefind("About the test", "Task");
    REQUIRE(box);
    drivepump(50);
    CHECK(drivetext(box, 1012) == "Tester");
    CHECK(drivetext(box, 1013) == "2.05 (a day)");
    CHECK(drivetext(box, 1014) == "A. Uthor");
    CHECK(drivetext(box, 1015) == "(c) Nobody");
    CHECK(GetDlgCtrlID(GetFocus()) == 1);

    REQUIRE_FALSE(showabout(0, 100, "", "Another")); // it is there already
    CHECK(drivetext(box, 1012) == "Tester");
    for (int link : {1000, 1016, 1018})
        driveiconclick(box, link);
    CHECK(asked == "open http://web.test/;open mailto:a@home.test;open http://home.test/;");
    driveiconclick(box, 1);
    CHECK_FALSE(wdatafind(box));
}

TEST_CASE("the About box goes by keys and its frame's box too")
{
    constexpr int CLOSEBOX = -1;
    helpdesk desk;
    int32_t blocks = blockcount();
    for (int key : {VK_ESCAPE, VK_RETURN, CLOSEBOX}) {
        CAPTURE(key);
        REQUIRE_FALSE(showabout(0, 3, "", "Another"));
        window box = drivefind("About the test", "Task");
        REQUIRE(box);
        drivepump(50);
        CHECK(drivetext(box, 1012) == "Another");
        CHECK(drivetext(box, 1013) == "0.03 ");
        if (key == CLOSEBOX) {
            PostMessageA(reinterpret_cast<HWND>(box), WM_CLOSE, 0, 0);
            drivepump();
        } else {
            drivekey(key);
        }
        CHECK_FALSE(wdatafind(box));
        CHECK(blockcount() == blocks);
    }
}
