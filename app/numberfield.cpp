#include "app/numberfield.h"

#include "desktop/icons.h"

#include <algorithm>
#include <cstdlib>

constexpr int32_t FIELDSIZE = 32;

errorblock *numbershow(window self, const numberfield &row, int32_t value)
{
    errorblock *err = seticonrange(self, row.arrows, row.arrowslow, row.high);
    return err ? err : seticontextf(self, row.field, "%d", value);
}

errorblock *numbertake(window self, const numberfield &row, int32_t *value)
{
    char text[FIELDSIZE], *end;
    errorblock *err = copyicontext(self, row.field, text, sizeof text);
    if (err) return err;
    long number = strtol(text, &end, 10); // the nearest that fits, of one too large
    if (end == text) return nullptr;
    *value = static_cast<int32_t>(std::clamp<long>(number, row.low, row.high));
    return nullptr;
}
