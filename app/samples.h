// app/samples.h - samples of colours and fonts in a dialog, each beside a button
// that asks for another one.
//
// The samples are drawn controls that leave their place to the dialog, which
// paints them. What they show lies with the dialog, as the copies that its OK
// takes over.
#pragma once

#include "desktop/events.h"

#include <cstdint>
#include <span>

struct errorblock;
struct fontrecord;

struct samplerow {
    int32_t sample, button; // controls
    uint32_t *colour;       // either a colour
    fontrecord *font;       // or a font
};

struct sampleset {
    std::span<const samplerow> rows;
    const uint32_t *text, *background; // the colours of the samples of fonts
};

// The whole of a redraw handler.
errorblock *samplespaint(window self, const sampleset &set);

// A press of a sample or of its button shows the box of the system; all is drawn
// again when something was chosen. Other controls do nothing.
errorblock *sampleschoose(window self, const sampleset &set, const mouserecord *mouse);

// Both as rows of the dialog's table, for the set that stands behind the name.
template<const sampleset &set> errorblock *samplesredraw(window self, intptr_t)
{
    return samplespaint(self, set);
}

template<const sampleset &set> errorblock *samplesclick(window self, intptr_t, mouserecord *mouse)
{
    return sampleschoose(self, set, mouse);
}
