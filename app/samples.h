// app/samples.h - samples of colours and fonts in a dialog, each beside a button
// that asks for another one.
//
// The samples are drawn controls that leave their place to the dialog, which
// paints them. What they show lies with the dialog, as the copies that its OK
// takes over.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;
struct fontrecord;

struct samplerow {
    int32_t sample, button; // controls
    uint32_t *colour;       // either a colour
    fontrecord *font;       // or a font
};

struct sampleset {
    const samplerow *rows;
    int32_t count;
    const uint32_t *text, *background; // the colours of the samples of fonts
};

// The whole of a redraw handler.
errorblock *samplespaint(window self, const sampleset &set);

// A press of a sample or of its button shows the box of the system; all is drawn
// again when something was chosen. Other controls do nothing.
errorblock *sampleschoose(window self, const sampleset &set, int32_t icon);
