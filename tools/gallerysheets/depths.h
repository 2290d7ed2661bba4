// tools/gallerysheets/depths.h - one picture as sprites of every depth: a colour
// wheel with a dark corner at the top left and a bar at the bottom, so that it
// shows which way up it is.
#pragma once

#include <cstdint>
#include <string>

constexpr int32_t DEPTHSIDE = 48; // pixels each way
constexpr int32_t DEPTHS[] = {1, 2, 4, 8, 16, 24, 32};

// A file of sprites "wheel" and the depth ("wheel16"), and the same behind
// "round", with a mask.
std::string depthsfile();

// Where that file is, as depths.spr; set before the sprites are drawn.
extern std::string depthsfolder;
