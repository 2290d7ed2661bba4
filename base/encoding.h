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

// Reads UTF-8 a byte at a time, from a decoder that is zero at first. utf8byte
// gives the character that the byte ends, or says that more are to come, or that
// it can't be UTF-8; the decoder is fit for a new character then. utf8rest is
// true inside a character.
struct utf8decoder {
    uint32_t unicode;
    int32_t taken, length; // bytes of the character so far, and in all
};
constexpr uint32_t UTF8MORE = 0xFFFFFFFE, UTF8BAD = 0xFFFFFFFF;
uint32_t utf8byte(utf8decoder *decoder, uint8_t byte);
bool utf8rest(const utf8decoder &decoder);
constexpr uint32_t UTF8MARK = 0xFEFF; // what a text may begin with to say what it is

// How a text from outside is to be read: it says so at its front, or is UTF-8 with
// a character above 127; any other is code page 1252. Fed every byte in turn.
struct textkindfinder {
    utf8decoder decoder;
    bool marked, above, broken; // the mark; a character above 127; no UTF-8
    int64_t characters;
};
void textkindbyte(textkindfinder *finder, uint8_t byte);
bool textkindutf8(const textkindfinder &finder); // when all bytes were fed

// Converts inlength bytes of UTF-8; out is terminated, and length counts its
// bytes without the zero. Errors: ERRORENCODING for a character that the code
// page lacks and for bytes that are no UTF-8; 30 for too little room. out then
// holds what came before.
errorblock *utf8to1252(const char *in, int32_t inlength, char *out, int32_t size, int32_t *length);

// The way back, at most three bytes a character. Error 30 for too little room.
errorblock *cp1252toutf8(const char *in, int32_t inlength, char *out, int32_t size,
                         int32_t *length);
