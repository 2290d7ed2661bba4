// desktop/press.h - presses of drawn controls, as a state machine.
//
// One control can be pressed at a time, so there is one record of a press. The
// control's procedure tells what the mouse did; what is to be done about it is
// asked of the window side, below. Clicks run handlers, which may poll, press
// another control or delete this one: each step is finished with the record
// before it delivers, and looks again afterwards.
#pragma once

#include "desktop/events.h"

#include <cstdint>

// Of the record's word. The low five are the press itself.
constexpr uint32_t PRESSLEFT = 1, PRESSRIGHT = 2, PRESSDOUBLE = 4, PRESSSINGLE = 8, PRESSLOOKS = 16;
// What is still to be reported, and how.
constexpr uint32_t PRESSDRAG = 32, PRESSCLICK = 64, PRESSDOUBLECLICK = 128, PRESSRELEASE = 256,
                   PRESSDOUBLERELEASE = 512, PRESSREPEAT = 1024;

struct pressrecord {
    window control; // 0 for none so far
    uint32_t word;
    int32_t delay; // ticks before a held button repeats
};

// Changed by the calls below alone.
extern pressrecord press;

// What the letters of a K token ask for: 1 a press and 2 a double click, at the
// press or, behind R, at the release over the control; D the start of a drag; A
// clicks again and again while a button is held. Others are passed over.
uint32_t presscodes(const char *codes);

// A button went down, and its second press within a double click; button is
// BUTTONLEFT or BUTTONRIGHT. A double click follows its first press, and what
// that wanted reported still holds.
void pressdown(window control, int32_t button, const char *codes);
void pressdouble(window control, int32_t button, const char *codes);
void pressmove(window control, bool inside);
void pressup(window control, int32_t button, bool inside);

// Capture was lost; the control goes, and then nothing is drawn.
void presslost(window control);
void pressgone(window control);

// The repeat timer's tick; over: the pointer is still over the control.
void presstick(window control, bool over);
constexpr uint32_t PRESSTICK = 100; // milliseconds
constexpr int32_t PRESSDELAY = 5;   // ticks

// Asked of the window side (win32/abxpress.cpp).
void presslook(window control, bool pressed);
void presscapture(window control, bool on);
void presstimer(window control, bool on);
void pressclick(window control, int32_t buttons);
