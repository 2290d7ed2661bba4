// base/encoding.h - code page 1252, and what is outside it.
//
// Inside, every character is one byte. The five bytes that the code page leaves
// undefined (129, 141, 143, 144, 157) stand for the control characters of the
// same numbers, so that every byte comes back from a round trip.
#pragma once

#include <cstdint>

struct errorblock;

constexpr uint32_t ERRORENCODING = 0x120; // text that code page 1252 can't hold

// One character each way; -1 for one that the code page lacks.
uint32_t unicodefrom1252(uint8_t ch);
int32_t unicodeto1252(uint32_t unicode);

// The error of such a character.
errorblock *encodingerror(uint32_t unicode);

// Converts inlength bytes of UTF-8; out is terminated, and length counts its
// bytes without the zero. Errors: ERRORENCODING for a character that the code
// page lacks and for bytes that are no UTF-8; 30 for too little room. out then
// holds what came before.
errorblock *utf8to1252(const char *in, int32_t inlength, char *out, int32_t size, int32_t *length);

// The way back, at most three bytes a character. Error 30 for too little room.
errorblock *cp1252toutf8(const char *in, int32_t inlength, char *out, int32_t size,
                         int32_t *length);
