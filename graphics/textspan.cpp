#include "graphics/textspan.h"

int32_t spanlength(const textspan *span)
{
    // The text needs no zero when the length says where it ends.
    int32_t length = 0;
    while (length < span->length && span->text[length])
        length++;
    return length;
}

int32_t spanlengthw(const textspanw *span)
{
    int32_t length = 0;
    while (length < span->length && span->text[length])
        length++;
    return length;
}

int32_t textcut(const char *text, int32_t fitted, int32_t split)
{
    int32_t at = fitted;
    while (at > 0 && static_cast<uint8_t>(text[at]) != split)
        at--;
    return at;
}

int32_t textsum(const int32_t *widths, int32_t count, int32_t limit, int32_t *width)
{
    int32_t at = 0;
    *width = 0;
    while (at < count && (limit < 0 || *width + widths[at] <= limit))
        *width += widths[at++];
    return at;
}
