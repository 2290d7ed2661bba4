// app/numberfield.h - a number in a dialog, with arrows beside it.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

struct numberfield {
    int32_t field, arrows; // controls
    int32_t arrowslow;     // how far down the arrows go, which may be below low
    int32_t low, high;     // what is taken
};

errorblock *numbershow(window self, const numberfield &row, int32_t value);

// What the field says, brought into range. A text without a number leaves the
// value.
errorblock *numbertake(window self, const numberfield &row, int32_t *value);
