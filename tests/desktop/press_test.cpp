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

// What happens to the button, and what it asks for then.
std::string down(const char *codes, int32_t button = BUTTONLEFT)
{
    pressdown(BUTTON, button, codes);
    return taken();
}

std::string again(const char *codes, int32_t button = BUTTONLEFT)
{
    pressdouble(BUTTON, button, codes);
    return taken();
}

std::string move(bool over)
{
    pressmove(BUTTON, over);
    return taken();
}

std::string up(bool over, int32_t button = BUTTONLEFT)
{
    pressup(BUTTON, button, over);
    return taken();
}

std::string lost()
{
    presslost(BUTTON);
    return taken();
}

std::string tick(bool over)
{
    presstick(BUTTON, over);
    return taken();
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
    CHECK(presscodes("1R2D") == (PRESSCLICK | PRESSDOUBLERELEASE | PRESSDRAG));
    CHECK(presscodes("3xr") == 0);
}

TEST_CASE("a control that reports at the press")
{
    start();
    CHECK(down("1") == "down capture 4 notimer ");
    CHECK(move(true) == "");
    CHECK(up(true) == "free up notimer ");
    CHECK(down("1", BUTTONRIGHT) == "down capture 1 notimer ");
    up(true, BUTTONRIGHT);
    CHECK((press.word & 31) == 0);
}

TEST_CASE("one that reports at the release, over itself only")
{
    start();
    CHECK(down("R1") == "down capture notimer ");
    CHECK(move(false) == "up ");
    CHECK(move(false) == "");
    SUBCASE("released beside it")
    {
        CHECK(up(false) == "free up notimer ");
    }
    SUBCASE("released after coming back")
    {
        CHECK(move(true) == "down ");
        CHECK(up(true) == "free up 4 notimer ");
    }
    SUBCASE("cut short by somebody who took the capture")
    {
        CHECK(lost() == "up notimer ");
        CHECK(up(true) == "");
    }
}

TEST_CASE("a drag is the first movement")
{
    start();
    CHECK(down("D1") == "down capture 4 notimer ");
    CHECK(move(true) == "64 ");
    CHECK(move(true) == "");
    CHECK(up(true) == "free up notimer ");
    down("D", BUTTONRIGHT);
    CHECK(move(false) == "16 up ");
    up(false, BUTTONRIGHT);

    // Its handler starts a drag of the window's own, which takes the capture.
    down("D");
    onclick = [] { presslost(BUTTON); };
    CHECK(move(true) == "64 up notimer ");
    CHECK(move(true) == "");

    // Without any movement it is no drag later on.
    onclick = nullptr;
    down("D");
    up(true);
    CHECK(move(true) == "");
    down("D");
    lost();
    CHECK(move(true) == "");
}

TEST_CASE("double clicks")
{
    start();
    CHECK(down("12") == "down capture 4 notimer ");
    CHECK(up(true) == "free up notimer ");
    CHECK(again("12") == "down capture 1024 notimer ");
    CHECK(up(true) == "free up notimer ");
    for (bool over : {true, false}) {
        down("R12", BUTTONRIGHT);
        up(true, BUTTONRIGHT);
        CHECK(again("R12", BUTTONRIGHT) == "down capture notimer ");
        CHECK(up(over, BUTTONRIGHT) == (over ? "free up 256 notimer " : "free up notimer "));
    }
}

TEST_CASE("a held button repeats after a pause")
{
    start();
    CHECK(down("A") == "down capture notimer timer 4 ");
    for (int i = 0; i < 5; i++)
        CHECK(tick(true) == "");
    CHECK(tick(true) == "4 ");
    CHECK(tick(false) == "");
    CHECK(tick(true) == "4 ");
    CHECK(up(true) == "free up notimer ");

    // A second press in quick succession starts again, and so does the pause.
    CHECK(again("A") == "down capture notimer timer 4 ");
    CHECK(tick(true) == "");
    CHECK(lost() == "up notimer ");
}

TEST_CASE("handlers that press elsewhere or delete the control")
{
    start();
    SUBCASE("deleted at the press: nothing more is asked")
    {
        onclick = [] { pressgone(BUTTON); };
        CHECK(down("1A") == "down capture 4 ");
        CHECK(tick(true) == "");
        CHECK(up(true) == "");
    }
    SUBCASE("deleted at the release")
    {
        again("R12");
        onclick = [] { pressgone(BUTTON); };
        CHECK(up(true) == "free up 4 ");
    }
    SUBCASE("released inside the press's own handler")
    {
        onclick = [] {
            onclick = nullptr;
            pressup(BUTTON, BUTTONLEFT, true);
        };
        CHECK(down("1A") == "down capture 4 free up notimer notimer ");
    }
    SUBCASE("a press of another control, while the first looks pressed")
    {
        down("R1");
        pressdown(OTHER, BUTTONLEFT, "1");
        CHECK(taken() == "up notimer other down other capture other 4 other notimer ");
        CHECK(move(false) == "");
        CHECK(up(true) == "");
        CHECK(lost() == "");
        pressup(OTHER, BUTTONLEFT, true);
        CHECK(taken() == "other free other up other notimer ");
    }
}
