// base/textkind.h - a guess at how a text file is encoded.
#pragma once

#include <cstdint>

constexpr int32_t TEXTSINGLE = 0;   // single bytes, as far as can be told
constexpr int32_t TEXTWIDE = 2;     // looks like 16-bit text, low byte first
constexpr int32_t TEXTWIDEBIG = 18; // the same, high byte first
constexpr int32_t TEXTMARKUTF8 = 33;
constexpr int32_t TEXTMARKWIDE = 34;
constexpr int32_t TEXTMARK32 = 35;
constexpr int32_t TEXTMARKWIDEBIG = 50;

// By the mark at the start or, without one, by three zero bytes at even or at
// odd positions.
int32_t textkind(const void *bytes, int32_t length);
