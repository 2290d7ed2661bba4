#include "grid/gridsizewindow.h"

#include "base/numbers.h"
#include "desktop/dialogs.h"
#include "desktop/icons.h"
#include "grid/grid.h"
#include "grid/gridshape.h"
#include "resources/identifiers.h"

namespace
{

window self, owner; // 0 while it isn't open

errorblock *sizefill();
errorblock *sizetake();
errorblock *sizeend();

constexpr dialogrecord sizedialog = {
    .self = &self,
    .locked = &owner,
    .number = TEMPLATEGRIDSIZE,
    .handlers =
        {
            {.control = DIALOGOK, .press = sizetake},
            {.control = DIALOGCANCEL, .press = sizeend},
            {.closed = sizeend},
        },
    .fill = sizefill,
};

// The arrows go one further than a grid can be; that number is then not taken.
constexpr int32_t ARROWSLOW = 2, ARROWSHIGH = 128;

errorblock *sizefill()
{
    errorblock *err = seticonrange(self, SIZEWIDTHARROWS, ARROWSLOW, ARROWSHIGH);
    if (!err) err = seticontextf(self, SIZEWIDTH, "%d", grid.width);
    if (!err) err = seticonrange(self, SIZEHEIGHTARROWS, ARROWSLOW, ARROWSHIGH);
    if (!err) err = seticontextf(self, SIZEHEIGHT, "%d", grid.height);
    return err;
}

errorblock *sizeread(int32_t field, int32_t now, int32_t *size)
{
    char text[16];
    errorblock *err = copyicontext(self, field, text, sizeof text);
    int32_t number = err ? now : numberparse(text, nullptr);
    *size = number < ARROWSLOW || number > GRIDMAX ? now : number;
    return err;
}

errorblock *sizetake()
{
    int32_t width, height;
    errorblock *err = sizeread(SIZEWIDTH, grid.width, &width);
    if (!err) err = sizeread(SIZEHEIGHT, grid.height, &height);
    if (err) return err;
    err = sizeend();
    gridsize(width, height);
    return err;
}

errorblock *sizeend()
{
    return dialogend(sizedialog);
}

} // namespace

errorblock *gridsizeopen(window parent)
{
    return dialogopen(sizedialog, parent);
}
