// graphics/pickers.h - the system's boxes for choosing a colour and a font.
#pragma once

#include <cstdint>

struct errorblock;
struct fontrecord;

// Bit 0 of result: OK was chosen. Without it the word and the record are as
// they were. The custom colours last for the run.
errorblock *choosecolour(intptr_t window, int32_t unused, uint32_t *word, int32_t *result);
errorblock *choosefont(intptr_t window, int32_t unused, fontrecord *font, int32_t *result);
