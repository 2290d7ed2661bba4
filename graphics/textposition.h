// graphics/textposition.h - where text stands, in device pixels.
#pragma once

#include <cstdint>

// Of a plotter's flags: the position is in OS units; without it, in millipoints.
// Other bits that no plotter names mean nothing.
constexpr uint32_t TEXTOSUNITS = 16;
constexpr int32_t MILLIPOINTS = 400; // 1/72000 of an inch, to the OS unit

// A position as surfacedevice has it, on the current surface and in exact
// arithmetic: the same position is always the same pixel. x and y may have 41
// bits, the sum of a position and an OS position in millipoints; the surface's
// scale then at most 22.
void textdevice(uint32_t flags, int64_t x, int64_t y, int32_t *devicex, int32_t *devicey);
