#include "base/chars.h"

namespace
{

// What the regular runs of letters don't tell.
constexpr struct {
    uint8_t upper, lower;
} oddpairs[] = {{138, 154}, {140, 156}, {159, 255}};

struct casetables {
    uint8_t upper[256], lower[256];
};

constexpr casetables maketables()
{
    casetables tables{};
    for (int ch = 0; ch < 256; ch++)
        tables.upper[ch] = tables.lower[ch] = static_cast<uint8_t>(ch);
    for (int ch = 0; ch < 224; ch++) {
        bool capital = (ch >= 'A' && ch <= 'Z') || (ch >= 192 && ch <= 222 && ch != 215);
        if (!capital) continue;
        tables.lower[ch] = static_cast<uint8_t>(ch + 32);
        tables.upper[ch + 32] = static_cast<uint8_t>(ch);
    }
    for (auto pair : oddpairs) {
        tables.lower[pair.upper] = pair.lower;
        tables.upper[pair.lower] = pair.upper;
    }
    return tables;
}

constexpr casetables cases = maketables();

} // namespace

uint8_t charupper(uint8_t ch)
{
    return cases.upper[ch];
}

uint8_t charlower(uint8_t ch)
{
    return cases.lower[ch];
}

bool charisletter(uint8_t ch)
{
    constexpr uint8_t caseless[] = {131, 142, 158, 170, 181, 186, 223};
    if (cases.upper[ch] != ch || cases.lower[ch] != ch) return true;
    for (uint8_t letter : caseless)
        if (ch == letter) return true;
    return false;
}
