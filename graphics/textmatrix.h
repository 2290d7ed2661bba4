// graphics/textmatrix.h - the matrix that text and sprites are plotted through.
//
// A point x, y becomes a x + c y + e, b x + d y + f, with y up the page.
#pragma once

#include <cstdint>

constexpr int32_t MATRIXONE = 0x10000;

struct plotmatrix {
    int32_t a, b, c, d; // 16.16
    int32_t e, f;       // OS units
};

// What a matrix does, as bits; 0 for the identity alone. The turns are told
// beside MATRIXTURN.
constexpr uint32_t MATRIXMOVEX = 1;       // e isn't 0
constexpr uint32_t MATRIXMOVEY = 2;       // f isn't 0
constexpr uint32_t MATRIXSCALEX = 4;      // a isn't 1
constexpr uint32_t MATRIXSCALEY = 8;      // d isn't 1
constexpr uint32_t MATRIXTURN = 16;       // b or c isn't 0, or a or d is negative
constexpr uint32_t MATRIXTURN90 = 128;    // a is 0 and b positive
constexpr uint32_t MATRIXTURNBACK = 256;  // a is 0 and b negative
constexpr uint32_t MATRIXTURNROUND = 512; // a is negative and b 0
uint32_t matrixkind(const plotmatrix *matrix);
