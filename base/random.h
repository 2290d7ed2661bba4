// base/random.h - the one random source: the standard library's generator at
// 15 bits a draw on every platform, seedable, so that a making can be repeated.
#pragma once

#include <cstdint>

void randomseed(uint32_t seed);
int32_t randomdraw(); // 0..32767
