// Moving the view, and the system's scroll bars.

#include "desktop/scroll.h"

#include "base/syserr.h"
#include "base/trace.h"
#include "desktop/wdata.h"
#include "desktop/win32/windowgeometry.h"
#include "desktop/windowinternal.h"
#include "desktop/windows.h"
#include "graphics/dragbox.h"
#include "graphics/modeinfo.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>

static_assert(SCROLLLINEBACK == SB_LINEUP && SCROLLLINEON == SB_LINEDOWN &&
              SCROLLPAGEBACK == SB_PAGEUP && SCROLLPAGEON == SB_PAGEDOWN &&
              SCROLLTHUMB == SB_THUMBPOSITION && SCROLLTHUMBTRACK == SB_THUMBTRACK &&
              SCROLLFIRST == SB_TOP && SCROLLLAST == SB_BOTTOM);

namespace
{

// One direction of a window. Positions of a vertical one grow downward.
struct axis {
    wdata *data;
    bool vertical;
};

// In OS units.
struct axisrange {
    int32_t minimum, maximum;
};

// A window without a bar never gets one.
bool hasbar(const axis &a)
{
    return a.data->style & (a.vertical ? STYLEVSCROLL : STYLEHSCROLL);
}

bool centred(const axis &a)
{
    return a.data->flags & WINDOWCENTRED;
}

int barnumber(const axis &a)
{
    return a.vertical ? SB_VERT : SB_HORZ;
}

int32_t topixels(const axis &a, int32_t units)
{
    return a.vertical ? ostodevy(units) : ostodevx(units);
}

int32_t tounits(const axis &a, int32_t pixels)
{
    return a.vertical ? devtoosy(pixels) : devtoosx(pixels);
}

axisrange rangeof(const axis &a)
{
    const wdata *d = a.data;
    return a.vertical ? axisrange{-d->ymax, -d->ymin} : axisrange{d->xmin, d->xmax};
}

// A bar that was never set is as good as an empty one.
bool nobar(DWORD code)
{
    return code == 0 || code == ERROR_INVALID_PARAMETER || code == ERROR_NO_SCROLLBARS;
}

int32_t barread(const axis &a, UINT what)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = what;
    SetLastError(0);
    if (GetScrollInfo(systemwindow(a.data->handle), barnumber(a), &info))
        return what == SIF_TRACKPOS ? info.nTrackPos : info.nPos;
    DWORD code = GetLastError();
    if (!nobar(code))
        trace("getscroll info returns error %s", syserrcode(code, "GetScrollInfo")->text);
    return 0;
}

int32_t positionread(const axis &a)
{
    if (hasbar(a) && !centred(a)) return barread(a, SIF_POS);
    return a.vertical ? a.data->yscroll : a.data->xscroll;
}

// The system limits a position to the range less the page, in units: the page is
// told such that this is where the last pixel is reached, or that all fits.
int32_t pageof(const axis &a, const scrollbar &bar)
{
    axisrange range = rangeof(a);
    int32_t last = bar.maximum - bar.page;
    if (last > bar.minimum) return range.maximum - tounits(a, last);
    return std::max(tounits(a, bar.page), range.maximum - range.minimum);
}

// It is given a position that stays.
int32_t positionheld(const axis &a, int32_t position, int32_t page)
{
    axisrange range = rangeof(a);
    if (!hasbar(a) || centred(a)) return position;
    return std::max(std::min(position, range.maximum - page), range.minimum);
}

// The record comes first: a bar that comes or goes calls rescroll, which goes on
// from what is kept.
void positionwrite(const axis &a, int32_t position, int32_t page)
{
    (a.vertical ? a.data->yscroll : a.data->xscroll) = position;
    (a.vertical ? a.data->ypage : a.data->xpage) = page;
    if (!hasbar(a)) return;
    axisrange range = rangeof(a);
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = range.minimum;
    info.nMax = std::max(range.maximum - 1, range.minimum); // the last unit, not the end
    info.nPage = static_cast<UINT>(page);
    info.nPos = position;
    SetScrollInfo(systemwindow(a.data->handle), barnumber(a), &info, TRUE);
}

// Each of two bars may be there only for the room that the other takes: what fits
// without both is to be seen without.
void roomwithoutboth(const wdata *d, int32_t *width, int32_t *height)
{
    constexpr LONG BOTH = WS_HSCROLL | WS_VSCROLL;
    if ((GetWindowLongA(systemwindow(d->handle), GWL_STYLE) & BOTH) != BOTH) return;
    int32_t wide = *width + GetSystemMetrics(SM_CXVSCROLL);
    int32_t high = *height + GetSystemMetrics(SM_CYHSCROLL);
    if (ostodevx(d->xmax) - ostodevx(d->xmin) > wide) return;
    if (ostodevy(-d->ymin) - ostodevy(-d->ymax) > high) return;
    *width = wide;
    *height = high;
}

errorblock *barget(const axis &a, scrollbar *bar)
{
    int32_t width, height;
    errorblock *err = clientsize(a.data->handle, &width, &height);
    if (err) return err;
    roomwithoutboth(a.data, &width, &height);
    axisrange range = rangeof(a);
    *bar = {topixels(a, range.minimum), topixels(a, range.maximum), a.vertical ? height : width,
            topixels(a, positionread(a))};
    return nullptr;
}

// Puts the bar at a pixel position that was limited, and tells how far the view
// moves by that. A caller's own units are kept if they mean this pixel.
int32_t barset(const axis &a, const scrollbar &bar, int32_t pixels, int32_t units)
{
    int32_t page = pageof(a, bar);
    int32_t position = topixels(a, units) == pixels ? units : tounits(a, pixels);
    position = positionheld(a, position, page);
    positionwrite(a, position, page);
    return topixels(a, position) - bar.position;
}

// Moves the contents, children too unless they stay. A drag's box is on the
// screen only and would move along: it is taken off meanwhile.
errorblock *contentsscroll(window w, int32_t x, int32_t y)
{
    if (!x && !y) return nullptr;
    const wdata *data = wdatafind(w);
    UINT flags = SW_ERASE | SW_INVALIDATE;
    if (!data || !(data->flags & WINDOWCHILDRENSTAY)) flags |= SW_SCROLLCHILDREN;
    dragboxflush(w);
    int result = ScrollWindowEx(systemwindow(w), -x, -y, nullptr, nullptr, nullptr, nullptr, flags);
    errorblock *err = result == ERROR ? syserr("ScrollWindowEx") : nullptr;
    dragboxflush(w);
    return err;
}

errorblock *axisscroll(const axis &a, int32_t distance)
{
    window w = a.data->handle;
    return a.vertical ? contentsscroll(w, 0, distance) : contentsscroll(w, distance, 0);
}

// The bar again, by the client area as it is now. *moved is raised by what the
// view moves.
errorblock *barfollow(const axis &a, int32_t *moved)
{
    scrollbar bar;
    errorblock *err = barget(a, &bar);
    if (err) return err;
    int32_t units = positionread(a);
    *moved += barset(a, bar, scrolllimit(bar, bar.position, centred(a)), units);
    return nullptr;
}

errorblock *axismove(const axis &a, int32_t position)
{
    scrollbar bar;
    errorblock *err = barget(a, &bar);
    if (err || bar.maximum <= bar.minimum) return err;
    int32_t pixels = scrolllimit(bar, topixels(a, position), centred(a));
    if (pixels == bar.position) return nullptr;
    return axisscroll(a, barset(a, bar, pixels, position));
}

errorblock *axisextent(window w, bool vertical)
{
    axis a = {wdatafind(w), vertical};
    if (!a.data) return nullptr; // a handler of the other bar's coming ended it
    int32_t moved = 0;
    errorblock *err = barfollow(a, &moved);
    if (!err && wdatafind(w)) err = axisscroll(a, moved);
    return err;
}

} // namespace

int32_t scrollposition(window w, bool vertical)
{
    wdata *data = wdatafind(w);
    return data ? positionread({data, vertical}) : 0;
}

errorblock *setextent(window w, int32_t xmin, int32_t ymin, int32_t xmax, int32_t ymax)
{
    checkhandle(w, "set extent");
    wdata *data;
    errorblock *err = windowdata(w, &data);
    if (err) return err;
    data->xmin = xmin;
    data->ymin = ymin;
    data->xmax = xmax;
    data->ymax = ymax;
    err = axisextent(w, true);
    if (!err) err = axisextent(w, false);
    return err;
}

static errorblock *move(window w, bool vertical, int32_t position)
{
    wdata *data;
    errorblock *err = windowdata(w, &data);
    return err ? err : axismove({data, vertical}, position);
}

errorblock *setscrollx(window w, int32_t position)
{
    return move(w, false, position);
}

errorblock *setscrolly(window w, int32_t position)
{
    return move(w, true, position);
}

// Where the position is kept changes with the flag.
errorblock *setflags(window w, uint32_t set, uint32_t clear)
{
    checkhandle(w, "flags");
    wdata *data;
    errorblock *err = windowdata(w, &data);
    if (err) return err;
    data->xscroll = positionread({data, false});
    data->yscroll = positionread({data, true});
    data->flags = (data->flags & ~clear) | set;
    return nullptr;
}

// The window whose bars are being set, and the rounds that takes. Changed by
// rescroll alone.
static struct {
    window self;
    int32_t rounds;
} following;

// A bar that comes or goes changes the client area, of which the nested call
// tells: both bars are then set again. The contents move once, in the end.
static errorblock *follow(window w, int32_t *x, int32_t *y)
{
    errorblock *err = nullptr;
    do {
        following.rounds = 1;
        wdata *data = wdatafind(w);
        if (!data) return nullptr;
        err = barfollow({data, true}, y);
        if (!err && wdatafind(w)) err = barfollow({data, false}, x);
    } while (!err && following.rounds > 1);
    return err;
}

errorblock *rescroll(window w, bool *busy)
{
    *busy = false;
    if (following.self == w) {
        following.rounds++;
        *busy = true;
        return nullptr;
    }
    auto outer = following;
    following = {w, 1};
    int32_t x = 0, y = 0;
    errorblock *err = follow(w, &x, &y);
    following = outer;
    if (!err) err = contentsscroll(w, 0, y);
    if (!err) err = contentsscroll(w, x, 0);
    return err;
}

// The message's own thumb has 16 bits; the bar knows it all.
static int32_t thumbplace(const axis &a, int32_t code, int32_t thumb)
{
    bool real = hasbar(a) && (code == SCROLLTHUMB || code == SCROLLTHUMBTRACK);
    return real ? barread(a, SIF_TRACKPOS) : thumb;
}

errorblock *scrollmessage(window w, bool vertical, int32_t code, int32_t thumb, bool *moved)
{
    *moved = false;
    wdata *data;
    errorblock *err = windowdata(w, &data);
    if (err) return err;
    axis a = {data, vertical};
    scrollbar bar;
    err = barget(a, &bar);
    if (err) return err;
    int32_t units = thumbplace(a, code, thumb);
    int32_t pixels = scrolllimit(bar, scrollstep(bar, code, topixels(a, units)), centred(a));
    if (pixels == bar.position) return nullptr;
    *moved = true;
    return axisscroll(a, barset(a, bar, pixels, units));
}

bool scrollwheelwindow(window w, int32_t delta, bool horizontal)
{
    wdata *data = wdatafind(w);
    if (!data || !hasbar({data, !horizontal})) return false;
    int32_t lines = scrollwheel(delta, horizontal ? &data->xwheel : &data->ywheel,
                                horizontal ? &data->xwheeldir : &data->ywheeldir);
    // Away from the user is up, but to the right is on.
    bool on = horizontal ? lines > 0 : lines < 0;
    for (int32_t i = std::abs(lines); i > 0; i--)
        SendMessageA(systemwindow(w), horizontal ? WM_HSCROLL : WM_VSCROLL,
                     static_cast<WPARAM>(on ? SCROLLLINEON : SCROLLLINEBACK), 0);
    return true;
}

void wheelclear(window w)
{
    wdata *data = wdatafind(w);
    if (data) data->xwheel = data->ywheel = 0;
}
