// base/numbers.h - numbers as text, and the whole-number arithmetic of the
// interface.
#pragma once

#include <cstdint>

// Reads "-", "0x" and digits, each but the last optional, capitals as small
// letters. It stops at the first other character; used, unless it is 0, gets
// the bytes consumed, to which a zero that ends the text counts. No digits are
// the number 0. Without "0x" too the digits a to f add their values: "1a" is
// 20. Too large a number keeps its low 32 bits.
int32_t numberparse(const char *text, int32_t *used);

// Hexadecimal digits alone.
uint32_t hexparse(const char *text, int32_t *used);

// Whether the whole text is a number, with a to f after "0x" only and at least
// one digit.
bool isnumber(const char *text);

// A number with a point and places (at least 1) decimals; of trailing zeros
// only one right behind the point stays. 1 if it didn't fit and was cut.
int numbertext(double value, int32_t places, char *out, int32_t size);

// A size in bytes, K or M, in a static text of at most 16 bytes.
const char *sizetext(uint32_t bytes);

// a * b / c, rounded to the nearest, halves away from zero. -1 for a result
// beyond 32 bits and for a c of 0.
int32_t muldiv(int32_t a, int32_t b, int32_t c);

// The length of the line from 0, 0 to dx, dy, its fraction dropped.
int32_t distance(int32_t dx, int32_t dy);
