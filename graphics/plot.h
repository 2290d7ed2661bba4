// graphics/plot.h - lines, boxes and shapes on the current surface.
//
// Coordinates are OS units, widths and heights go right and up. Each call turns
// its points into device pixels by surfacedevice and draws in the colour that
// was set last. The system's answers are not looked at: all return 0.
#pragma once

#include <cstdint>

struct errorblock;

errorblock *moveto(int32_t x, int32_t y);

// To the end point, which is drawn too.
errorblock *lineto(int32_t x, int32_t y);

// The cursor in device pixels. Not OS units: who asks draws by itself.
errorblock *getcursorpos(int32_t *x, int32_t *y);

errorblock *bezierto(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t x3, int32_t y3);

// Filled, without the pixels of the right and the bottom edge.
errorblock *fillbox(int32_t x, int32_t y, int32_t width, int32_t height);
// The same, and taller where it must be for the text of the selected font to stay in it,
// which stands on the line y = baseline.
errorblock *filltextbox(int32_t x, int32_t y, int32_t width, int32_t height, int32_t baseline);
// Filled, one pixel more at the top and at the right.
errorblock *drawbox(int32_t x, int32_t y, int32_t width, int32_t height);
// The outline of fillbox.
errorblock *hollowbox(int32_t x, int32_t y, int32_t width, int32_t height);
// Four lines, all their pixels.
errorblock *linebox(int32_t x, int32_t y, int32_t width, int32_t height);

// Draws a shape from the last points and this one, which becomes the last.
// The code is an action in its low three bits and a shape. Actions 0 to 3 take
// the point relative to the last one, in device pixels; 0 and 4 just move.
constexpr int32_t PLOTMOVE = 4, PLOTDRAW = 5; // absolute actions
constexpr int32_t PLOTLINE = 0;               // and all other multiples of 8 below 64
constexpr int32_t PLOTPOINT = 64;
constexpr int32_t PLOTTRIANGLE = 80;       // two last points and this, filled
constexpr int32_t PLOTRECTANGLE = 96;      // last point to this
constexpr int32_t PLOTPARALLELOGRAM = 112; // two last points and this, filled
constexpr int32_t PLOTCIRCLE = 144;        // round the last point, through this
constexpr int32_t PLOTPIE = 176;           // round the older, from the last to this
constexpr int32_t PLOTELLIPSE = 192;       // round the older, as wide as the last, as high as this
errorblock *plot(int32_t code, int32_t x, int32_t y);

// The last four points that moveto, lineto and plot were given, in device
// pixels; they belong to no surface. back: 0 the last, to 3.
struct plotpoint {
    int32_t x, y;
};
plotpoint plotlast(int32_t back);
void plotenter(plotpoint point);
void plotreset();

// Paths are made of the calls above.
errorblock *pathbegin();
errorblock *pathend();
errorblock *pathclose();             // back to the figure's start
errorblock *pathfillmode(bool even); // even-odd, or by winding
errorblock *pathpaint();             // outline and inside

// Pens other than setcolour's: a dotted one of the current colour, and a
// geometric one of a colour word (style and lengths are the system's).
errorblock *pathdotted();
errorblock *surfaceextpen(uint32_t style, uint32_t width, uint32_t word, int32_t count,
                          const uint32_t *lengths);

// Sounds. frequency in Hz, 0 for 400; duration in ms, 0 for 300; both 0 the
// system's plain sound. A frequency of -1 sounds the system's sound of type
// duration first.
errorblock *beep(int32_t frequency, int32_t duration);
errorblock *vdu(int32_t code); // 7 beeps; nothing else does anything
