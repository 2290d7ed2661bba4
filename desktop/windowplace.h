// desktop/windowplace.h - where windows lie: their states in OS units against
// the system's boxes in pixels.
//
// A position is always converted by itself and a size follows as the difference
// of two, so that reading a state and opening by it moves nothing. Where a unit is
// larger than a pixel, above 180 dots to the inch, an edge that a state tells as it
// is now stays on its pixel.
#pragma once

#include "desktop/windows.h"

#include <cstdint>

// The client area that a state asks for, on the screen.
pixelbox placeclient(const windowstaterecord &state);

// The frame round it, by the borders that the window has now.
pixelbox placeframe(const windowstaterecord &state, const windowgeometry &now);

// A frame kept to the work area of its screen: made smaller where it must be, then
// moved inside.
pixelbox placeinside(const pixelbox &frame, const pixelbox &work);

// The four words of a state for a client area, and a box for one of the screen.
void placestate(const pixelbox &client, windowstaterecord *state);
osbox placebox(const pixelbox &pixels);

// A box of the work area in pixels of the client area, which shows the given
// scroll position (of a state): every pixel that some of it falls on.
pixelbox placework(const osbox &box, int32_t xscroll, int32_t yscroll);
