// base/escapes.h - three notations for characters that can't stand as they are:
// backslashes for quoted text, source-text escapes, and bar escapes.
#pragma once

#include <cstdint>

// A backslash before each double quote and backslash. out has room for twice
// the length and a zero.
void strescape(const char *in, char *out);

// Writes ch as source text holds it and returns the new end, with no zero
// there; at most four bytes. Without ESCAPEKEEPHIGH, 128 to 159 are written as
// numbers too.
constexpr uint32_t ESCAPEKEEPHIGH = 1;
char *charescape(uint8_t ch, char *out, uint32_t flags);

// Does so for length bytes, high ones kept, and writes a zero.
void strescapen(const char *in, int32_t length, char *out);

// Removes backslashes: those before f, n, r, t and v make control codes, any
// other character behind one stands for itself. out may be in. Numbers aren't
// known: this is the twin of strescape, and of charescape as far as that.
void strunescape(const char *in, char *out);

// Decodes bar escapes: |! adds 128 to what follows, |? is 127, | before @ to _
// a control code, | before any other byte that byte. Ends at a zero, |@ among
// them, or when size bytes are written, and stores their count. A zero follows
// if there is room.
void gstrans(char *out, int32_t size, const char *in, int32_t *length);
