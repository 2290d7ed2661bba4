// graphics/fontsize.h - sizes and angles of fonts in the units of a device.
//
// Sizes are told in sixteenths of a point, so that one description gives the
// same size in inches on every device.
#pragma once

#include <cstdint>

constexpr int32_t FONTUNITS = 1152; // sixteenths of a point to the inch

// Pixels on a device of dpi to the inch, the fraction dropped.
int32_t fontpixels(int32_t size, int32_t dpi);

// An angle of 16.16 degrees in tenths of a degree, the fraction dropped.
int32_t fontangle(int32_t angle);
