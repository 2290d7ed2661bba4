// graphics/dragboxstate.h - the drag under way, and where its box is drawn.
//
// For the drag box itself. Boxes are pixels of the drag's window, y down.
//
// A box is taken away by drawing it once more at the very place where it was
// drawn. A horizontal bar doesn't follow the pointer on the screen (its result
// does): it is drawn at the place where the last toggle left it.
#pragma once

#include "graphics/dragbox.h"

#include <cstdint>

constexpr int32_t DRAGBARTHICK = 4; // pixels

struct dragpixels {
    int32_t left, top, right, bottom;
};

struct dragmovement {
    int32_t x, y; // the pointer's since the start
};

struct dragstaterecord {
    dragbox given;          // given.window is 0 while no box is on
    dragpixels box;         // where the drag began
    int32_t startx, starty; // the pointer, in pixels of the window
    int32_t lastx, lasty;
    bool shown;           // the box is on the screen,
    dragmovement shownat; // this far from where it began
};

// Changed by these operations alone.
extern dragstaterecord dragstate;

// The window's client area begins at pixel clientx, clienty of the screen.
void dragstatestart(const dragbox *record, int32_t clientx, int32_t clienty, int32_t pointerx,
                    int32_t pointery);
void dragstateend();

dragmovement dragstatemoved();

// Each place is to be drawn once. Toggling gives one, a move none to two.
dragmovement dragstatetoggle();
int32_t dragstatemove(int32_t x, int32_t y, dragmovement *places);

bool dragstatehorizontal(); // of a bar

// What is drawn at a place: the corners of a rubber box, or all of a bar.
dragpixels dragstatebox(dragmovement at);

dragresult dragstateresult();
