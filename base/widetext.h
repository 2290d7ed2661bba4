// base/widetext.h - 16-bit text of the system to code page 1252 and back.
#pragma once

#include <cstdint>

struct errorblock;

// What becomes of a character that the code page lacks.
enum widelack {
    LACKREFUSED,  // ERRORENCODING, see encoding.h
    LACKQUESTION, // "?", one even for a surrogate pair
};

// Convert up to the zero; out has room for size units and is always
// terminated. Error 30 for too little room. After an error out holds what came
// before.
errorblock *widetomulti(const char16_t *in, char *out, int32_t size, widelack lack);
errorblock *multitowide(const char *in, char16_t *out, int32_t size);
