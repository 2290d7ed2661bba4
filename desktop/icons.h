// desktop/icons.h - the controls of a window.
//
// A control is called an icon and addressed by its window and its number, which
// is its identifier in the template. These calls work on any control. A number
// that the window hasn't gives the system's error. Boxes are in the work area,
// OS units.
#pragma once

#include "desktop/events.h"
#include "desktop/windows.h"

#include <cstdint>

struct errorblock;

errorblock *seticonselected(window w, int32_t icon, bool on);
errorblock *iconselected(window w, int32_t icon, bool *on);
errorblock *shadeicon(window w, int32_t icon);
errorblock *unshadeicon(window w, int32_t icon);
errorblock *seticonshaded(window w, int32_t icon, bool on);

// The new state is (old without clear) exclusive-or eor. With both 0 the icon is
// just redrawn.
constexpr uint32_t ICONSELECTED = 1U << 21, ICONSHADED = 1U << 22;
errorblock *seticonstate(window w, int32_t icon, uint32_t eor, uint32_t clear);
errorblock *redrawicon(window w, int32_t icon);

struct iconstaterecord {
    osbox box;
    uint32_t flags;        // 0
    const char *text;      // of geticontext's buffer
    const char *classname; // of one buffer, which the next call overwrites
};
errorblock *geticonstate(window w, int32_t icon, iconstaterecord *record);
errorblock *iconbox(window w, int32_t icon, osbox *box);       // of the work area
errorblock *iconpixels(window w, int32_t icon, pixelbox *box); // of the screen

// The text of one buffer of ICONTEXTSIZE bytes, which the next call of anyone
// overwrites: copy it before reading another or polling. copyicontext cuts to
// size.
constexpr int32_t ICONTEXTSIZE = 1024;
errorblock *geticontext(window w, int32_t icon, char **text);
errorblock *copyicontext(window w, int32_t icon, char *buffer, int32_t size);
errorblock *seticontext(window w, int32_t icon, const char *text);
errorblock *seticontextifchanged(window w, int32_t icon, const char *text);
// Formats, then expands tokens, to at most ICONTEXTSIZE bytes. Error: 30 for a
// longer text, which is then not set.
[[gnu::format(printf, 3, 4)]] errorblock *seticontextf(window w, int32_t icon, const char *format,
                                                       ...);

// The button that Return presses, and that shows it. A template names its own; this
// is for a window that deletes buttons.
errorblock *seticondefault(window w, int32_t icon);

// The most characters that can be typed into a writable icon; what is set by
// program isn't cut.
errorblock *seticonlimit(window w, int32_t icon, int32_t characters);

// The numbers that an up-down icon gives to the field beside it, low and high
// among them. Its arrows start from what stands in the field, typed or set; a
// typed number isn't limited. Fields that a template hasn't joined are joined
// here: the one before the arrows in its order.
errorblock *seticonrange(window w, int32_t icon, int32_t low, int32_t high);

// Gives the focus to an icon, if it hasn't it, or with icon -1 to the window.
// Text that can be edited gets its caret to index, with nothing selected. x, y
// and height are not used.
errorblock *setcaret(window w, int32_t icon, int32_t x, int32_t y, int32_t height, int32_t index);
errorblock *caretatend(window w, int32_t icon);

// The window and the icon with the focus, and what is selected in it; -1 for
// what is absent.
struct caretrecord {
    window self;
    int32_t icon;
    int32_t start, end;
};
errorblock *getcaret(caretrecord *caret);
errorblock *getcaretpair(window *w, int32_t *icon);

errorblock *focuswindow(window w);
errorblock *focusicon(window w, int32_t icon);

// Gives the focus to text that can be edited, with all of it selected: what is typed
// takes its place.
errorblock *selecticon(window w, int32_t icon);

// Gives the focus to what Tab leads to from a window that stands among the icons
// of w; with back set, Shift+Tab. Text that can be edited is selected.
errorblock *focusnext(window w, window from, bool back);

// What such a window goes behind (windows.h) to stand over an icon and, in the
// order of Tab, just before it.
errorblock *iconbehind(window w, int32_t icon, intptr_t *behind);

errorblock *deleteicon(window w, int32_t icon);

// Drawn controls (validation.h): the text and background colours, and any token.
// They are drawn again at once. A value that doesn't fit is cut.
errorblock *setcolours(window w, int32_t icon, uint32_t fg, uint32_t bg);
errorblock *settoken(window w, int32_t icon, char letter, const char *value);
