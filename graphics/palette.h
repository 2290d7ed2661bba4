// graphics/palette.h - the palettes of a device that has one.
//
// On a device of more than 8 bits a pixel there are no palettes, and none of
// the events does anything.
#pragma once

#include "graphics/modeinfo.h"

#include <cstdint>

// Handles of the system, 0 without a palette device; changed by palettesetup
// and paletteend.
extern intptr_t identitypalette; // each device index by itself
extern intptr_t palette;         // the library's colours among the system's own

// At the start and on a change of the display, of which dc is a context.
void palettesetup(intptr_t dc);
void paletteend();

// On a palette device selects palette and realises it, or selects
// identitypalette.
void paletteselect(intptr_t dc);
void paletteidentity(intptr_t dc);

// The system asks the window for its palette; changed gets 1.
void paletterealise(intptr_t window, bool *changed);
// Another window changed the device palette; data is the message's.
void palettechanged(intptr_t window, intptr_t other, intptr_t data);
// The display changed.
void paletteupdate(intptr_t window);

// How many entries of systempalette count on this device, and the nearest of
// them to each desktop colour.
int32_t palettelength();
void palettenearest();

// The 256 colours of a sprite of 8 bits that has no palette of its own, or one
// of 16 colours: base has 16.
extern const uint32_t palettebase[16];
void paletteexpand(const uint32_t *base, uint32_t *colours);

// An entry of a palette that is to be made; bytes as the system has them.
struct paletteentry {
    uint8_t red, green, blue, flags;
};
constexpr uint8_t PALETTEEXPLICIT = 2; // red and green are a device index
constexpr uint8_t PALETTENOCOLLAPSE = 4;

// The entries of the two palettes for size of them, at most 256, from the
// colours of systempalette.
void paletteidentityentries(int32_t size, paletteentry *entries);
void paletteentries(int32_t size, paletteentry *entries);
