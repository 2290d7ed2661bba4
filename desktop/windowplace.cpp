#include "desktop/windowplace.h"

#include "graphics/modeinfo.h"
#include "graphics/surface.h"

#include <algorithm>

pixelbox placeclient(const windowstaterecord &state)
{
    return {ostodevx(state.x0), ostoscreeny(state.y1), ostodevx(state.x1), ostoscreeny(state.y0)};
}

pixelbox placeframe(const windowstaterecord &state, const windowgeometry &now)
{
    pixelbox wanted = placeclient(state);
    osbox held = placebox(now.client);
    if (state.x0 == held.x0) wanted.left = now.client.left;
    if (state.y1 == held.y1) wanted.top = now.client.top;
    if (state.x1 == held.x1) wanted.right = now.client.right;
    if (state.y0 == held.y0) wanted.bottom = now.client.bottom;
    return {wanted.left + now.frame.left - now.client.left,
            wanted.top + now.frame.top - now.client.top,
            wanted.right + now.frame.right - now.client.right,
            wanted.bottom + now.frame.bottom - now.client.bottom};
}

pixelbox placeinside(const pixelbox &frame, const pixelbox &work)
{
    int32_t width = std::min(frame.right - frame.left, work.right - work.left);
    int32_t height = std::min(frame.bottom - frame.top, work.bottom - work.top);
    int32_t left = std::max(work.left, std::min(frame.left, work.right - width));
    int32_t top = std::max(work.top, std::min(frame.top, work.bottom - height));
    return {left, top, left + width, top + height};
}

osbox placebox(const pixelbox &pixels)
{
    return {devtoosx(pixels.left), screentoosy(pixels.bottom), devtoosx(pixels.right),
            screentoosy(pixels.top)};
}

void placestate(const pixelbox &client, windowstaterecord *state)
{
    osbox box = placebox(client);
    state->x0 = box.x0;
    state->y0 = box.y0;
    state->x1 = box.x1;
    state->y1 = box.y1;
}

void centrestate(windowstaterecord *state, int32_t n)
{
    constexpr int32_t STEP = 40;
    int32_t width = state->x1 - state->x0, height = state->y1 - state->y0;
    state->x0 = (modeinfo.widthos - width) / 2 + STEP * (n % 4);
    state->y0 = (modeinfo.heightos - height) / 2 - STEP * (n % 5);
    state->x1 = state->x0 + width;
    state->y1 = state->y0 + height;
}

// Drawing drops fractions: the last unit of the box decides its last pixel, or, where
// a unit is larger than a pixel, the last pixel of that unit does.
static int32_t behind(int32_t units, int32_t dpi)
{
    int32_t first = muldiv64(int64_t{units} - 1, dpi, OSUNITS);
    return std::max(first + 1, muldiv64(units, dpi, OSUNITS));
}

pixelbox placework(const osbox &box, int32_t xscroll, int32_t yscroll)
{
    int32_t x = ostodevx(xscroll), y = ostodevy(yscroll);
    return {muldiv64(box.x0, modeinfo.xdpi, OSUNITS) - x,
            muldiv64(-int64_t{box.y1}, modeinfo.ydpi, OSUNITS) + y,
            behind(box.x1, modeinfo.xdpi) - x, behind(-box.y0, modeinfo.ydpi) + y};
}
