// The looks of a drawn control: two walks over its string, one for what is
// behind it and one for what is on it. A failure leaves something undrawn: a box
// that told of it would only bring the next paint about.

#include "base/messages.h"
#include "base/numbers.h"
#include "desktop/validation.h"
#include "desktop/win32/abx.h"
#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/modeinfo.h"
#include "graphics/spriteplot.h"
#include "graphics/surface.h"
#include "graphics/textmeasure.h"
#include "graphics/textplot.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace
{

enum anchor { ANCHORSTART, ANCHORMIDDLE, ANCHOREND };

// One walk. Tokens take effect in their order, so each sees what the ones
// before it have set.
struct walk {
    HWND control;
    uint32_t state;
    RECT box; // less the edges drawn so far
    int32_t x, y;
    anchor across, down;
    uint32_t foreground, background; // colour codes
    bool condition;
    bool greys;  // the string greys itself
    HDC dc;      // of the background pass; 0 only asks
    bool erased; // it has filled, or said that nothing is to be
    bool filled;
    HFONT font, underlined;
};

// A colour of the system as a colour code.
constexpr uint32_t codeof(int number)
{
    return static_cast<uint32_t>(number) + 18;
}

bool iscolour(uint32_t code)
{
    return colourcodevalue(code) != COLOURNONE;
}

// As text has it.
uint32_t wordof(uint32_t code)
{
    return colourcodevalue(code) << 8;
}

void across(walk *w, anchor where)
{
    w->across = where;
    w->x = where == ANCHORSTART ? w->box.left
           : where == ANCHOREND ? w->box.right
                                : (w->box.left + w->box.right) / 2;
}

void down(walk *w, anchor where)
{
    w->down = where;
    w->y = where == ANCHORSTART ? w->box.top
           : where == ANCHOREND ? w->box.bottom
                                : (w->box.top + w->box.bottom) / 2;
}

void acrossleft(walk *w, char *)
{
    across(w, ANCHORSTART);
}

void acrossmiddle(walk *w, char *)
{
    across(w, ANCHORMIDDLE);
}

void acrossright(walk *w, char *)
{
    across(w, ANCHOREND);
}

void downtop(walk *w, char *)
{
    down(w, ANCHORSTART);
}

void downmiddle(walk *w, char *)
{
    down(w, ANCHORMIDDLE);
}

void downbottom(walk *w, char *)
{
    down(w, ANCHOREND);
}

void step(walk *w, char *value)
{
    w->x += numberparse(value, nullptr);
}

void condition(walk *w, char *value)
{
    w->condition = tokencondition(value, w->state, w->condition, &w->greys);
}

HDC context()
{
    return reinterpret_cast<HDC>(currentsurface->dc);
}

// One pixel wide, in the text colour.
void edgeline(walk *w)
{
    if (!iscolour(w->foreground)) return;
    HBRUSH brush = CreateSolidBrush(colourcodevalue(w->foreground));
    FrameRect(context(), &w->box, brush);
    DeleteObject(brush);
}

void edge(walk *w, char *value)
{
    static constexpr UINT EDGES[] = {EDGE_BUMP, EDGE_ETCHED, EDGE_RAISED, EDGE_SUNKEN};
    constexpr int32_t LINE = 4;

    if (!w->condition) return;
    int32_t kind = numberparse(value, nullptr);
    if (kind < 0 || kind > LINE) return;
    if (kind == LINE) {
        edgeline(w);
        InflateRect(&w->box, -1, -1);
    } else {
        DrawEdge(context(), &w->box, EDGES[kind], BF_RECT | BF_ADJUST);
    }
    w->x = std::clamp<int32_t>(w->x, w->box.left, std::max(w->box.left, w->box.right));
    w->y = std::clamp<int32_t>(w->y, w->box.top, std::max(w->box.top, w->box.bottom));
}

int32_t pictureoffset(anchor where, int32_t size)
{
    return where == ANCHORSTART ? 0 : where == ANCHOREND ? -size : -size / 2;
}

// The top left of a picture of that size; x moves on behind it.
POINT pictureplace(walk *w, int32_t width, int32_t height)
{
    POINT place = {w->x + pictureoffset(w->across, width), w->y + pictureoffset(w->down, height)};
    if (w->across == ANCHORSTART) w->x += width;
    if (w->across == ANCHOREND) w->x -= width;
    return place;
}

bool greyed(const walk *w)
{
    return (w->state & CONTROLDISABLED) && !w->greys;
}

// Sprites are made for 96 dots to the inch, and drawn as large on every screen.
void picture(walk *w, char *value)
{
    constexpr int32_t DOTS = 96;
    int32_t width, height;
    const sprite *found = w->condition ? spritefind(spritepool, value) : nullptr;
    if (!found || spritesize(found, &width, &height, nullptr)) return;
    spritefactors factors = {modeinfo.xdpi, modeinfo.ydpi, DOTS, DOTS};
    width = width * factors.xmul / DOTS;
    height = height * factors.ymul / DOTS;
    POINT place = pictureplace(w, width, height);
    spriteplotdevice(spritepool, spritenamed(value), greyed(w) ? SPRITEGREYED : 0, place.x,
                     place.y + height, &factors, nullptr);
}

void icon(walk *w, const char *name, int size)
{
    HANDLE loaded = LoadImageA(GetModuleHandleA(nullptr), name, IMAGE_ICON, size, size, 0);
    if (!loaded) return;
    HICON drawn = static_cast<HICON>(loaded);
    POINT place = pictureplace(w, size, size);
    DrawIconEx(context(), place.x, place.y, drawn, size, size, 0, nullptr, DI_NORMAL);
    DestroyIcon(drawn);
}

void iconlarge(walk *w, char *value)
{
    icon(w, value, 32);
}

void iconsmall(walk *w, char *value)
{
    icon(w, value, 16);
}

void foreground(walk *w, char *value)
{
    w->foreground = static_cast<uint32_t>(numberparse(value, nullptr));
}

void background(walk *w, char *value)
{
    w->background = static_cast<uint32_t>(numberparse(value, nullptr));
}

// The control's own font once more, underlined.
HFONT underlinedfont(HFONT font)
{
    LOGFONTA description;
    HGDIOBJ from = font ? font : GetStockObject(SYSTEM_FONT);
    if (!GetObjectA(from, sizeof description, &description)) return nullptr;
    description.lfUnderline = TRUE;
    return CreateFontIndirectA(&description);
}

// A font of 0 is the context's own, which a selected one hides.
void fontselect(HFONT font)
{
    if (!font) font = static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
    fontset(reinterpret_cast<fonthandle>(font), FONTCLEAR, 0, 0);
}

void underline(walk *w, char *value)
{
    bool on = numberparse(value, nullptr) != 0;
    if (on && !w->underlined) w->underlined = underlinedfont(w->font);
    fontselect(on && w->underlined ? w->underlined : w->font);
}

void textat(const walk *w, const char *text, int32_t x, int32_t y)
{
    textclip clip = {w->box.left, w->box.top, w->box.right, w->box.bottom};
    plottextx(text, static_cast<int32_t>(std::strlen(text)), TEXTOSUNITS, x, y, &clip, nullptr);
}

// The text's top, or its bottom where it stands on that.
int32_t textline(const walk *w)
{
    if (w->down != ANCHORMIDDLE) return w->y;
    fontmetrics metrics = {};
    fontmetricsget(&metrics);
    return w->box.top + (w->box.bottom - w->box.top - metrics.height) / 2;
}

void text(walk *w, char *value)
{
    if (!w->condition) return;
    expandtokens(value, VALIDATIONSIZE);
    uint32_t sides = w->across == ANCHOREND      ? FONTRIGHT
                     : w->across == ANCHORMIDDLE ? FONTCENTRE
                                                 : 0;
    fontalign(sides | (w->down == ANCHOREND ? FONTBOTTOM : FONTTOP));
    int32_t y = textline(w);
    uint32_t behind = iscolour(w->background) ? wordof(w->background) : FONTCLEAR;
    if (greyed(w)) {
        fontset(0, behind, wordof(codeof(COLOR_3DHILIGHT)), 0);
        textat(w, value, w->x + 1, y + 1);
        fontset(0, FONTCLEAR, wordof(codeof(COLOR_GRAYTEXT)), 0);
        textat(w, value, w->x, y);
    } else if (iscolour(w->foreground)) {
        fontset(0, behind, wordof(w->foreground), 0);
        textat(w, value, w->x, y);
    }
}

struct letterrow {
    char letter;
    void (*function)(walk *w, char *value);
};

constexpr letterrow paintletters[] = {
    {'B', downbottom}, {'C', acrossmiddle}, {'E', edge},        {'I', iconlarge},
    {'L', acrossleft}, {'O', condition},    {'R', acrossright}, {'T', downtop},
    {'V', downmiddle}, {'a', picture},      {'g', foreground},  {'i', iconsmall},
    {'k', background}, {'s', text},         {'t', step},        {'u', underline},
};

void backgroundif(walk *w, char *value)
{
    if (w->condition) background(w, value);
}

void fill(walk *w, char *)
{
    if ((w->background & 255) == 0) return;
    w->erased = true;
    if (!iscolour(w->background)) return;
    w->filled = true;
    if (!w->dc) return;
    HBRUSH brush = CreateSolidBrush(colourcodevalue(w->background));
    FillRect(w->dc, &w->box, brush);
    DeleteObject(brush);
}

constexpr letterrow eraseletters[] = {{'F', fill}, {'O', condition}, {'k', backgroundif}};

walk walkstart(HWND control)
{
    walk w = {};
    w.control = control;
    w.state = abxstate(control);
    GetClientRect(control, &w.box);
    w.foreground = codeof(COLOR_MENUTEXT);
    w.background = codeof(COLOR_BTNFACE);
    w.condition = true;
    w.font = reinterpret_cast<HFONT>(GetWindowLongPtrA(control, GWLP_USERDATA));
    return w;
}

void walktokens(walk *w, std::span<const letterrow> letters)
{
    char string[VALIDATIONSIZE], value[VALIDATIONSIZE], letter;
    abxstring(w->control, string);
    const char *token = string;
    while ((token = nexttoken(token, &letter, value)))
        for (const letterrow &row : letters)
            if (row.letter == letter) row.function(w, value);
}

void paintwalk(HWND control)
{
    walk w = walkstart(control);
    RECT whole = w.box;
    fontselect(w.font);
    walktokens(&w, paintletters);
    fontset(0, wordof(codeof(COLOR_WINDOW)), wordof(codeof(COLOR_WINDOWTEXT)), 0);
    if (w.state & CONTROLFOCUS) DrawFocusRect(context(), &whole);
    fontlose(reinterpret_cast<fonthandle>(w.underlined));
}

} // namespace

bool abxerase(HWND control, HDC dc)
{
    walk w = walkstart(control);
    w.dc = dc;
    walktokens(&w, eraseletters);
    return dc ? w.erased : w.erased && !w.filled;
}

// In pixels of the control, y down. A text may be set, and painted at once, while
// another window is being painted.
void abxpaint(HWND control)
{
    if (!GetUpdateRect(control, nullptr, FALSE)) return;
    surface *around = currentsurface, *s;
    if (surfacenew(&s)) {
        ValidateRect(control, nullptr); // or it would be asked for again at once
        return;
    }
    HDC dc = BeginPaint(control, reinterpret_cast<PAINTSTRUCT *>(&s->paint));
    s->dc = reinterpret_cast<intptr_t>(dc);
    surfacesetorigin(0, 0, s);
    surfaceidentityup(s);
    setcurrentsurface(s);
    paintwalk(control);
    surfacerelease(s);
    EndPaint(control, reinterpret_cast<PAINTSTRUCT *>(&s->paint));
    surfacefree(s);
    setcurrentsurface(around);
}

// What the control doesn't erase is the parent's: it paints first, and the
// control again.
void abxpaintnow(HWND control)
{
    HWND painted = control;
    if (abxerase(control, nullptr)) {
        RECT box;
        painted = GetParent(control);
        GetWindowRect(control, &box);
        MapWindowPoints(nullptr, painted, reinterpret_cast<POINT *>(&box), 2);
        InvalidateRect(painted, &box, TRUE);
    }
    InvalidateRect(control, nullptr, TRUE);
    UpdateWindow(painted);
}
