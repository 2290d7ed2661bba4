#include "base/textkind.h"

#include <cstring>

namespace
{

// The first that fits counts. So a 32-bit text of low bytes first is taken for
// a 16-bit one, whose mark is the start of its own.
constexpr struct {
    int32_t kind;
    int32_t length;
    char mark[5];
} marks[] = {
    {TEXTMARKWIDE, 2, "\xFF\xFE"},       {TEXTMARKWIDEBIG, 2, "\xFE\xFF"},
    {TEXTMARKUTF8, 3, "\xEF\xBB\xBF"},   {TEXTMARK32, 4, "\xFF\xFE\x00\x00"},
    {TEXTMARK32, 4, "\x00\x00\xFE\xFF"},
};

constexpr int32_t ENOUGHZEROS = 3;

} // namespace

int32_t textkind(const void *bytes, int32_t length)
{
    for (const auto &row : marks)
        if (length >= row.length && !std::memcmp(bytes, row.mark, static_cast<size_t>(row.length)))
            return row.kind;

    const char *text = static_cast<const char *>(bytes);
    int32_t zeros[2] = {0, 0};
    for (int32_t i = 0; i < length; i++)
        if (!text[i]) zeros[i & 1]++;
    if (zeros[0] >= ENOUGHZEROS) return TEXTWIDEBIG;
    return zeros[1] >= ENOUGHZEROS ? TEXTWIDE : TEXTSINGLE;
}
