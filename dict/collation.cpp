#include "dict/collation.h"

#include "dict/dictionary.h"

namespace
{

// The characters in ascending order.
// clang-format off
constexpr uint8_t ORDER[256] = {
    // Controls and holes of the code page.
    0, 1, 2, 3, 4, 5, 6, 7, 8, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30,
    31, 127, 128, 129, 141, 142, 143, 144, 157, 158,
    // Apostrophe, hyphens and dashes; spaces; punctuation; signs.
    39, 45, 173, 150, 151,
    32, 160, 9, 10, 11, 12, 13,
    33, 34, 35, 36, 37, 38, 40, 41, 42, 44, 46, 47, 58, 59, 63, 64, 91, 92, 93, 94, 136, 95, 96,
    123, 124, 125, 126, 161, 166, 168, 175, 180, 184, 191, 152, 145, 146, 130, 147, 148, 132, 139,
    155,
    43, 60, 61, 62, 177, 171, 187, 215, 247, 162, 163, 164, 165, 167, 169, 172, 174, 176, 181, 182,
    183, 134, 135, 149, 133, 137,
    // Digits, each with its fractions and powers.
    48, 188, 189, 190, 49, 185, 50, 178, 51, 179, 52, 53, 54, 55, 56, 57,
    // Letters.
    97, 65, 170, 225, 193, 224, 192, 226, 194, 228, 196, 227, 195, 229, 197, 230, 198,
    98, 66,
    99, 67, 231, 199,
    100, 68, 240, 208,
    101, 69, 233, 201, 232, 200, 234, 202, 235, 203,
    102, 70, 131,
    103, 71, 104, 72,
    105, 73, 237, 205, 236, 204, 238, 206, 239, 207,
    106, 74, 107, 75, 108, 76, 109, 77,
    110, 78, 241, 209,
    111, 79, 186, 243, 211, 242, 210, 244, 212, 246, 214, 245, 213, 248, 216, 156, 140,
    112, 80, 113, 81, 114, 82,
    115, 83, 154, 138, 223,
    116, 84, 254, 222, 153,
    117, 85, 250, 218, 249, 217, 251, 219, 252, 220,
    118, 86, 119, 87, 120, 88,
    121, 89, 253, 221, 255, 159,
    122, 90,
};
// clang-format on

// The upper-case form; chars.h has the same rule, but not where a table can be
// made from it before the program runs.
constexpr uint8_t upper(int32_t ch)
{
    if ((ch >= 97 && ch <= 122) || (ch >= 224 && ch <= 246) || (ch >= 248 && ch <= 254))
        return static_cast<uint8_t>(ch - 32);
    if (ch == 154 || ch == 156) return static_cast<uint8_t>(ch - 16);
    return ch == 255 ? 159 : static_cast<uint8_t>(ch);
}

constexpr collationkeys makekeys()
{
    collationkeys keys = {};
    for (int32_t key = 0; key < 256; key++)
        keys.sort[ORDER[key]] = static_cast<uint8_t>(key);
    for (int32_t ch = 0; ch < 256; ch++)
        keys.fold[ch] = keys.sort[upper(ch)];
    return keys;
}

constexpr bool permutation()
{
    bool seen[256] = {};
    for (uint8_t ch : ORDER)
        seen[ch] = true;
    for (bool there : seen)
        if (!there) return false;
    return true;
}
static_assert(permutation());

} // namespace

constinit const collationkeys collation = makekeys();

int wordcompare(const char *a, const char *b, int32_t limit, uint32_t *flags)
{
    constexpr int NOTHING = -1;
    int ignored = *flags & FINDHYPHENS ? '-' : *flags & fastfind ? ' ' : NOTHING;
    uint32_t cased = 0;
    *flags &= FINDOPTIONS;
    for (; limit > 0; limit--) {
        while (static_cast<uint8_t>(*a) == ignored)
            a++;
        while (static_cast<uint8_t>(*b) == ignored)
            b++;
        auto achar = static_cast<uint8_t>(*a++), bchar = static_cast<uint8_t>(*b++);
        int difference = collation.sort[achar] - collation.sort[bchar];
        if (difference && collation.fold[achar] != collation.fold[bchar]) return difference;
        if (difference && !cased) cased = difference < 0 ? CASEBELOW : CASEABOVE;
        if (!achar) break;
    }
    *flags |= cased;
    return 0;
}

int wordorder(const char *a, const char *b)
{
    uint32_t flags = 0;
    return wordcompare(a, b, WORDLENGTH, &flags);
}
