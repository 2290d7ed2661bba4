// graphics/modeinfo.h - the facts of the screen, and the plain conversions that
// follow from them.
//
// OS units are 180 to the inch. These conversions have no origin but the
// screen's corner; drawing has those of graphics/surface.h.
#pragma once

#include <cstdint>

struct errorblock;

constexpr int32_t OSUNITS = 180;        // to the inch
constexpr int32_t DESKTOPCOLOURS = 16;  // the standard colours
constexpr int32_t PALETTECOLOURS = 256; // the most entries of a device palette

// Colour words are 0xBBGGRR00.
struct modeinforecord {
    int32_t xscale, yscale;       // always 1
    int32_t xscaleneg, yscaleneg; // always -1
    int32_t widthos, heightos;    // the screen's size in OS units
    int32_t xeig, yeig;           // always 0
    int32_t ncolours;             // -1 on a device of many
    int32_t charx, chary, cellx, celly;
    int32_t log2bpp;
    int32_t modeword; // depth and resolution as a sprite's mode word
    int32_t xdpi, ydpi;
    int32_t widthpx, heightpx;
    int32_t bpp;            // with 15 as 16 and 24 as 32
    int32_t pixelx, pixely; // the size of one pixel in OS units, plus 1
    int32_t rastercaps, palettedevice, sizepalette, numreserved, numcolours;
    int32_t bitspixel; // as the device says it

    uint32_t desktopcolours[DESKTOPCOLOURS + 4];
    uint32_t nearest[DESKTOPCOLOURS]; // each one's index in systempalette
    uint32_t currentcolour;           // the platform's colour of the last setcolour
    uint32_t systempalette[PALETTECOLOURS];
};

// Changed by modeinfoinit, modeinforead, the palette's events and setcolour.
extern modeinforecord modeinfo;

// In OS units; set by modeinfoinit.
extern int32_t scrollbarheight; // of a horizontal scroll bar
extern int32_t scrollbarwidth;  // of a vertical one

// What a device tells of itself, in its own numbers.
struct modefacts {
    int32_t xdpi, ydpi;
    int32_t widthpx, heightpx;
    int32_t bitspixel;
    int32_t rastercaps, sizepalette, numreserved, numcolours;
};

constexpr int32_t RASTERPALETTE = 0x100; // the bit of rastercaps

// Works out all of modeinfo but the palette fields from the facts.
void modeinfoset(const modefacts &facts);

// A depth as it is stored, and its logarithm (0 for a depth without one).
int32_t modebpp(int32_t bitspixel);
int32_t modelog2bpp(int32_t bpp);

// Reads the screen's facts, installs the default colours and makes the
// palettes. May be called again, after a change of the display. Returns 0.
errorblock *modeinfoinit();

// Reads the facts again from a given device context.
void modeinforead(intptr_t dc);

// Deletes the palettes, at the end of the task.
void modeinfoend();

// OS units to pixels of the screen and back, to the nearest.
int32_t ostodevx(int32_t x);
int32_t ostodevy(int32_t y);
int32_t devtoosx(int32_t pixels);
int32_t devtoosy(int32_t pixels);

// The same for positions from the bottom of the screen up.
int32_t ostoscreeny(int32_t y);
int32_t screentoosy(int32_t pixels);

// The product of two 16.16 numbers, to the nearest.
int32_t fixmul(int32_t a, int32_t b);
