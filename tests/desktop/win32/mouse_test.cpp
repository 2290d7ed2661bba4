// The pointer: presses, double clicks, drags and its looks.
#include "desktop/mouse.h"

#include "base/errors.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <cstdlib>

// Left presses are 4, their drags 64, double clicks 1024; of the right button 1, 16
// and 256.
TEST_CASE("presses, double clicks and drags, on the background and on controls")
{
    script s(CONTROLS, "click");
    s.play({
        {"at 200 100; press; ?mouse", "click 4 -1;1;"},
        {"release; ?mouse", "0;"},
        {"Press; Release", "click 1 -1;"},
        {"at 200 140; double; by 5 5", "click 4 -1;click 1024 -1;"},
        {"at 200 60; Double; by 5 5", "click 1 -1;click 256 -1;"},
        {"at 240 60; press; by 1 0; by 8 9; release", "click 4 -1;click 64 -1;"},
        {"at 240 90; Press; by 1 0; by 8 9; Release", "click 1 -1;click 16 -1;"},
        {"on 11; click", "click 4 11;"},
        {"on 12; click", "click 4 12;"},
        {"on 13; click", "click 4 13;"}, // disabled: falls through to the window
        {"on 10; click", ""},
        {"on 12; by 8 0; press; by 1 0; by 5 0; release", "click 4 12;click 64 12;"},
        // A press ends another, and the loss of the capture ends it quietly.
        {"at 240 20; press; Press; by 1 0", "click 4 -1;click 1 -1;click 16 -1;"},
        {"Release; release; by 20 0; press", "click 4 -1;"},
        {"capture 11; ?mouse; uncapture; by 4 0; release", "0;"},
        {"add click7; at 200 170; press; release", "click 4 -1;"}, // one handler hears of it
    });
}

TEST_CASE("the shape of the pointer is asked for over the client area")
{
    script s(CONTROLS, "pointer1 pointer2");
    s.play({{"let 2; at 200 100", "pointer1 -1;pointer2 -1;*"},
            {"?cursor", "cross;"},
            {"let 0; by 10 0", "pointer1 -1;pointer2 -1;*"},
            {"?cursor", "arrow;"}});
}

namespace
{

int32_t dragkind;
osbox dragarea; // the limits of the pointer

errorblock *dragend(window, intptr_t data, const dragresult *box)
{
    said("%dend %d %d %d %d;", static_cast<int>(data), box->x0, box->y0, box->x1, box->y1);
    return nullptr;
}

errorblock *dragmoves(window, intptr_t, mouserecord *mouse)
{
    said("at %d %d;", static_cast<int>(mouse->x), static_cast<int>(mouse->y));
    return nullptr;
}

errorblock *dragstart(mouserecord *mouse)
{
    said("%d;", static_cast<int>(mouse->buttons));
    if (mouse->buttons != BUTTONLEFTDRAG) return nullptr;
    auto x = static_cast<int32_t>(mouse->x), y = static_cast<int32_t>(mouse->y);
    int32_t wide = dragkind == DRAGRUBBER ? 40 : 0, high = dragkind == DRAGBAR ? 100 : wide;
    dragbox box = {mouse->window, dragkind,    x,           y - high,   x + wide, y,
                   dragarea.x0,   dragarea.y0, dragarea.x1, dragarea.y1};
    setdragfunctions2(mouse->window, 5, dragend, dragmoves);
    return startdrag(&box);
}

// From pixels 300, 250 of the screen, where it is pressed.
struct dragscript : script {
    explicit dragscript(int32_t kind) : script(PLAIN, "calls")
    {
        dragkind = kind;
        dragarea = {-10000, -10000, 10000, 10000};
        onclick = dragstart;
        act("at 100 100");
    }
    std::string at(int right, int down)
    {
        return "at " + std::to_string(devtoosx(300 + right)) + " " +
               std::to_string(screentoosy(250 + down)) + ";";
    }
    // The box that the end tells of.
    osbox end()
    {
        std::string told = act("release; ?mouse");
        osbox b = {};
        CHECK(sscanf(told.c_str(), "5end %d %d %d %d;0;", &b.x0, &b.y0, &b.x1, &b.y1) == 4);
        return b;
    }
};

} // namespace

TEST_CASE("a drag tells of its moves, and ends with the box at the pointer's place")
{
    for (int32_t kind : {DRAGRUBBER, DRAGPOINT, DRAGBAR}) {
        CAPTURE(kind);
        dragscript d(kind);
        d.play({{"press; by 1 0; ?mouse", "4;64;2;"},
                {"by 399 30", d.at(400, 30)}, // outside the window
                {"by -370 -10", d.at(30, 20)}});
        osbox box = d.end();
        // It began a pixel to the right of the press.
        CHECK(abs(box.x0 - devtoosx(329)) <= 2);
        CHECK(abs(box.y1 - screentoosy(kind == DRAGBAR ? 250 : 270)) <= 2);
        CHECK(box.x1 - box.x0 == (kind == DRAGRUBBER ? 40 : 0));
        CHECK(box.y1 - box.y0 == (kind == DRAGRUBBER ? 40 : kind == DRAGBAR ? 100 : 0));
    }
    dragscript d(DRAGPOINT); // its limits hold it, wherever the pointer goes
    dragarea = {devtoosx(290), screentoosy(260), devtoosx(310), screentoosy(240)};
    d.play({{"press; by 1 0", "4;64;"}, {"by -6 60", d.at(-5, 10)}, {"by 65 -120", d.at(10, -10)}});
    d.end();
}

TEST_CASE("the other button, lost capture or the window's close end a drag like its release")
{
    for (const char *ends : {"Press; Release", "capture 0; uncapture", "close"}) {
        CAPTURE(ends);
        dragscript d(DRAGRUBBER);
        d.play({{"press; by 1 0", "4;64;"}, {ends, "5end*"}, {"?mouse; by 8 0; release", "0;"}});
    }
}

TEST_CASE("shapes of the pointer by kind, and a name that isn't there leaves it as it is")
{
    auto system = reinterpret_cast<intptr_t>(GetModuleHandleA("kernel32"));
    const struct {
        int32_t kind;
        intptr_t module;
        const char *name, *shown;
    } rows[] = {
        {POINTERARROW, 0, nullptr, "arrow;"},    {POINTERBUSY, 0, nullptr, "busy;"},
        {POINTERCROSS, 0, nullptr, "cross;"},    {POINTERHELP, 0, nullptr, "help;"},
        {POINTERTEXT, 0, nullptr, "text;"},      {POINTERICON, 0, nullptr, "icon;"},
        {POINTERNOENTRY, 0, nullptr, "no;"},     {POINTERPROGRAM, 0, "hand", "hand;"},
        {POINTERMODULE, 0, "splith", "splith;"}, {POINTERNONE, 0, nullptr, "none;"},
        {POINTERSAME, 0, nullptr, "all;"},       {POINTERPROGRAM, 0, "none", "all;"},
        {POINTERMODULE, system, "hand", "all;"},
    };
    script s(PLAIN);
    for (const auto &r : rows) {
        CAPTURE(r.kind);
        SetCursor(LoadCursorA(nullptr, IDC_SIZEALL));
        const errorblock *err = setpointer(r.kind, r.module, r.name);
        CHECK((err != nullptr) == (r.name && std::string(r.shown) == "all;"));
        CHECK(s.act("?cursor") == r.shown);
    }
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
}
