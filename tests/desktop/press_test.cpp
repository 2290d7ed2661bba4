#include "desktop/press.h"

#include <doctest/doctest.h>

#include <functional>
#include <string>

namespace
{

constexpr window BUTTON = 100, OTHER = 200;

// What was asked of the window side, in order.
std::string asked;
std::function<void()> onclick;

std::string taken()
{
    std::string line;
    line.swap(asked);
    return line;
}

void start()
{
    pressgone(press.control);
    asked.clear();
    onclick = nullptr;
}

std::string of(window control)
{
    return control == BUTTON ? "" : "other ";
}

} // namespace

void presslook(window control, bool pressed)
{
    asked += of(control) + (pressed ? "down " : "up ");
}

// Giving up capture tells of its loss, as the system does.
void presscapture(window control, bool on)
{
    asked += of(control) + (on ? "capture " : "free ");
    if (!on) presslost(control);
}

void presstimer(window control, bool on)
{
    asked += of(control) + (on ? "timer " : "notimer ");
}

void pressclick(window control, int32_t buttons)
{
    asked += of(control) + std::to_string(buttons) + " ";
    if (onclick) onclick();
}

TEST_CASE("letters of a K token")
{
    CHECK(presscodes("1") == PRESSCLICK);
    CHECK(presscodes("R1") == PRESSRELEASE);
    CHECK(presscodes("1R2") == (PRESSCLICK | PRESSDOUBLERELEASE));
    CHECK(presscodes("2D") == (PRESSDOUBLECLICK | PRESSDRAG));
    CHECK(presscodes("A") == PRESSREPEAT);
    CHECK(presscodes("3xr") == 0);
    CHECK(presscodes("") == 0);
}

TEST_CASE("a control that reports at the press")
{
    start();
    pressdown(BUTTON, BUTTONLEFT, "1");
    CHECK(taken() == "down capture 4 notimer ");
    pressmove(BUTTON, true);
    CHECK(taken() == "");
    pressup(BUTTON, BUTTONLEFT, true);
    CHECK(taken() == "free up notimer ");

    pressdown(BUTTON, BUTTONRIGHT, "1");
    CHECK(taken() == "down capture 1 notimer ");
    pressup(BUTTON, BUTTONRIGHT, true);
    CHECK((press.word & 31) == 0);
}

TEST_CASE("one that reports at the release, over itself only")
{
    start();
    pressdown(BUTTON, BUTTONLEFT, "R1");
    CHECK(taken() == "down capture notimer ");
    pressmove(BUTTON, false);
    pressmove(BUTTON, false);
    CHECK(taken() == "up ");
    SUBCASE("released beside it")
    {
        pressup(BUTTON, BUTTONLEFT, false);
        CHECK(taken() == "free up notimer ");
    }
    SUBCASE("released after coming back")
    {
        pressmove(BUTTON, true);
        CHECK(taken() == "down ");
        pressup(BUTTON, BUTTONLEFT, true);
        CHECK(taken() == "free up 4 notimer ");
    }
    SUBCASE("cut short by somebody who took the capture")
    {
        presslost(BUTTON);
        CHECK(taken() == "up notimer ");
        pressup(BUTTON, BUTTONLEFT, true);
        CHECK(taken() == "");
    }
}

TEST_CASE("a drag is the first movement")
{
    start();
    pressdown(BUTTON, BUTTONLEFT, "D1");
    CHECK(taken() == "down capture 4 notimer ");
    pressmove(BUTTON, true);
    pressmove(BUTTON, true);
    CHECK(taken() == "64 ");
    pressup(BUTTON, BUTTONLEFT, true);
    CHECK(taken() == "free up notimer ");

    pressdown(BUTTON, BUTTONRIGHT, "D");
    taken();
    pressmove(BUTTON, false);
    CHECK(taken() == "16 up ");
    pressup(BUTTON, BUTTONRIGHT, false);
    taken();

    // Its handler starts a drag of the window's own, which takes the capture.
    pressdown(BUTTON, BUTTONLEFT, "D");
    taken();
    onclick = [] { presslost(BUTTON); };
    pressmove(BUTTON, true);
    CHECK(taken() == "64 up notimer ");
    pressmove(BUTTON, true);
    CHECK(taken() == "");

    // Without any movement it is no drag later on.
    onclick = nullptr;
    pressdown(BUTTON, BUTTONLEFT, "D");
    pressup(BUTTON, BUTTONLEFT, true);
    taken();
    pressmove(BUTTON, true);
    CHECK(taken() == "");
    pressdown(BUTTON, BUTTONLEFT, "D");
    presslost(BUTTON);
    taken();
    pressmove(BUTTON, true);
    CHECK(taken() == "");
}

TEST_CASE("double clicks")
{
    start();
    pressdown(BUTTON, BUTTONLEFT, "12");
    pressup(BUTTON, BUTTONLEFT, true);
    CHECK(taken() == "down capture 4 notimer free up notimer ");
    pressdouble(BUTTON, BUTTONLEFT, "12");
    CHECK(taken() == "down capture 1024 notimer ");
    pressup(BUTTON, BUTTONLEFT, true);
    CHECK(taken() == "free up notimer ");

    pressdown(BUTTON, BUTTONRIGHT, "R12");
    pressup(BUTTON, BUTTONRIGHT, true);
    taken();
    pressdouble(BUTTON, BUTTONRIGHT, "R12");
    CHECK(taken() == "down capture notimer ");
    SUBCASE("released over it")
    {
        pressup(BUTTON, BUTTONRIGHT, true);
        CHECK(taken() == "free up 256 notimer ");
    }
    SUBCASE("released beside it")
    {
        pressup(BUTTON, BUTTONRIGHT, false);
        CHECK(taken() == "free up notimer ");
    }
}

TEST_CASE("a held button repeats after a pause")
{
    start();
    pressdown(BUTTON, BUTTONLEFT, "A");
    CHECK(taken() == "down capture notimer timer 4 ");
    for (int i = 0; i < 5; i++)
        presstick(BUTTON, true);
    CHECK(taken() == "");
    presstick(BUTTON, true);
    presstick(BUTTON, false);
    presstick(BUTTON, true);
    CHECK(taken() == "4 4 ");
    pressup(BUTTON, BUTTONLEFT, true);
    CHECK(taken() == "free up notimer ");

    // A second press in quick succession starts again, and so does the pause.
    pressdouble(BUTTON, BUTTONLEFT, "A");
    CHECK(taken() == "down capture notimer timer 4 ");
    presstick(BUTTON, true);
    CHECK(taken() == "");
    presslost(BUTTON);
    CHECK(taken() == "up notimer ");
}

TEST_CASE("handlers that press elsewhere or delete the control")
{
    start();
    SUBCASE("deleted at the press: nothing more is asked")
    {
        onclick = [] { pressgone(BUTTON); };
        pressdown(BUTTON, BUTTONLEFT, "1A");
        CHECK(taken() == "down capture 4 ");
        presstick(BUTTON, true);
        pressup(BUTTON, BUTTONLEFT, true);
        CHECK(taken() == "");
    }
    SUBCASE("deleted at the release")
    {
        pressdouble(BUTTON, BUTTONLEFT, "R12");
        taken();
        onclick = [] { pressgone(BUTTON); };
        pressup(BUTTON, BUTTONLEFT, true);
        CHECK(taken() == "free up 4 ");
    }
    SUBCASE("released inside the press's own handler")
    {
        onclick = [] {
            onclick = nullptr;
            pressup(BUTTON, BUTTONLEFT, true);
        };
        pressdown(BUTTON, BUTTONLEFT, "1A");
        CHECK(taken() == "down capture 4 free up notimer notimer ");
    }
    SUBCASE("a press of another control, while the first looks pressed")
    {
        pressdown(BUTTON, BUTTONLEFT, "R1");
        taken();
        pressdown(OTHER, BUTTONLEFT, "1");
        CHECK(taken() == "up notimer other down other capture other 4 other notimer ");
        pressmove(BUTTON, false);
        pressup(BUTTON, BUTTONLEFT, true);
        presslost(BUTTON);
        CHECK(taken() == "");
        pressup(OTHER, BUTTONLEFT, true);
        CHECK(taken() == "other free other up other notimer ");
    }
}
