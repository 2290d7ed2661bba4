#include "graphics/dragboxstate.h"

#include "graphics/modeinfo.h"

#include <algorithm>

dragstaterecord dragstate;

void dragstatestart(const dragbox *record, int32_t clientx, int32_t clienty, int32_t pointerx,
                    int32_t pointery)
{
    dragstate = {};
    dragstate.given = *record;
    dragstate.box = {ostodevx(record->x0) - clientx, ostoscreeny(record->y1) - clienty,
                     ostodevx(record->x1) - clientx, ostoscreeny(record->y0) - clienty};
    dragstate.startx = dragstate.lastx = pointerx;
    dragstate.starty = dragstate.lasty = pointery;
}

void dragstateend()
{
    dragstate = {};
}

dragmovement dragstatemoved()
{
    return {dragstate.lastx - dragstate.startx, dragstate.lasty - dragstate.starty};
}

dragmovement dragstatetoggle()
{
    if (!dragstate.shown) dragstate.shownat = dragstatemoved();
    dragstate.shown = !dragstate.shown;
    return dragstate.shownat;
}

int32_t dragstatemove(int32_t x, int32_t y, dragmovement *places)
{
    dragstate.lastx = x;
    dragstate.lasty = y;
    if (!dragstate.shown) return 0;
    places[0] = places[1] = dragstate.shownat;
    if (!dragstatehorizontal()) places[1] = dragstate.shownat = dragstatemoved();
    return 2;
}

bool dragstatehorizontal()
{
    return dragstate.given.type == DRAGBAR && dragstate.given.x0 != dragstate.given.x1;
}

dragpixels dragstatebox(dragmovement at)
{
    const dragpixels &box = dragstate.box;
    if (dragstate.given.type != DRAGBAR)
        return {box.left + at.x, box.top + at.y, box.right + at.x, box.bottom + at.y};
    int32_t left = std::min(box.left, box.right), top = std::min(box.top, box.bottom);
    if (dragstatehorizontal())
        return {left, top + at.y, std::max(box.left, box.right), top + at.y + DRAGBARTHICK};
    return {left + at.x, top, left + at.x + DRAGBARTHICK, std::max(box.top, box.bottom)};
}

// A bar is collapsed onto its line, and stays where it is along it.
dragresult dragstateresult()
{
    const dragbox &box = dragstate.given;
    int32_t right = devtoosx(dragstatemoved().x), down = devtoosy(dragstatemoved().y);
    if (box.type != DRAGBAR) return {box.x0 + right, box.y0 - down, box.x1 + right, box.y1 - down};
    if (dragstatehorizontal()) {
        int32_t y = std::min(box.y0, box.y1) - down;
        return {box.x0, y, box.x1, y};
    }
    int32_t x = std::min(box.x0, box.x1) + right;
    return {x, box.y0, x, box.y1};
}
