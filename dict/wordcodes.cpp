#include "dict/wordcodes.h"

namespace
{

struct lettergroup {
    uint8_t code;
    const char *text;
};

// In ascending code, which is also the order in which the encoder tries them.
// clang-format off
constexpr lettergroup GROUPS[] = {
    {31, "ng"}, {32, "ss"}, {33, "ess"}, {34, "on"}, {35, "er"}, {36, "ed"}, {37, "le"},
    {38, "ion"},
    {40, "te"}, {41, "ble"}, {42, "al"}, {43, "es"}, {44, "ce"},
    {46, "nt"}, {47, "us"},
    {58, "tion"}, {59, "an"}, {60, "ate"}, {61, "ic"}, {62, "ty"}, {63, "ent"}, {64, "ies"},
    {91, "se"}, {92, "able"}, {93, "ne"}, {94, "ation"}, {95, "re"}, {96, "nce"},
    {123, "st"}, {124, "ing"}, {125, "ous"}, {126, "ge"}, {127, "de"}, {128, "ly"}, {129, "nd"},
    {130, "ity"}, {131, "rd"}, {132, "ck"}, {133, "sm"}, {134, "ry"}, {135, "sh"}, {136, "en"},
    {137, "ar"}, {138, "ia"}, {139, "in"}, {140, "ter"}, {141, "ul"}, {142, "ted"}, {143, "lity"},
    {144, "ch"}, {145, "ility"}, {146, "bility"}, {147, "ard"}, {148, "lly"}, {149, "ence"},
    {150, "is"}, {151, "et"}, {152, "ve"}, {153, "um"}, {154, "ct"}, {155, "ance"}, {156, "me"},
    {157, "ine"}, {158, "ht"}, {159, "ay"}, {160, "tic"}, {161, "ad"}, {162, "ll"}, {163, "ian"},
    {164, "ip"}, {165, "cal"}, {166, "ght"}, {167, "el"}, {168, "and"}, {169, "ries"},
    {170, "ication"}, {171, "ant"}, {172, "cy"}, {173, "age"}, {174, "at"}, {175, "th"},
    {176, "ial"}, {177, "ious"}, {178, "id"}, {179, "ke"}, {180, "ire"}, {181, "one"}, {182, "ish"},
    {183, "ive"}, {184, "logy"}, {185, "ness"}, {186, "ogical"}, {187, "il"}, {188, "own"},
    {189, "ties"}, {190, "it"}, {191, "ue"},
};
// clang-format on

// The other codes are those of single characters.
constexpr bool ownscode(int32_t ch)
{
    return ch == '\'' || ch == '-' || (ch >= '0' && ch <= '9') || (ch >= 'A' && ch <= 'Z') ||
           (ch >= 'a' && ch <= 'z') || ch >= 192;
}

constexpr void addcode(codetable *table, uint8_t code, uint8_t letter)
{
    uint8_t *link = &table->first[letter];
    while (*link)
        link = &table->next[*link];
    *link = code;
}

constexpr codetable maketable()
{
    codetable table = {};
    for (const lettergroup &group : GROUPS) {
        codetext *text = &table.texts[group.code];
        while (group.text[text->length]) {
            text->text[text->length] = group.text[text->length];
            text->length++;
        }
        addcode(&table, group.code, static_cast<uint8_t>(group.text[0]));
    }
    for (int32_t ch = 0; ch < 256; ch++) {
        if (!ownscode(ch)) continue;
        table.texts[ch] = {{static_cast<char>(ch)}, 1};
        addcode(&table, static_cast<uint8_t>(ch), static_cast<uint8_t>(ch));
    }
    return table;
}

// The code that stands for all of rest, of length letters, or 0; and the first
// one that stands for a part of it from its front, or 0.
struct codechoice {
    uint8_t whole;
    uint8_t front;
};

codechoice choosecode(const char *rest, size_t length)
{
    codechoice choice = {};
    uint8_t code = wordcodes.first[static_cast<uint8_t>(*rest)];
    for (; code; code = wordcodes.next[code]) {
        const codetext *group = &wordcodes.texts[code];
        if (group->length > length || memcmp(rest, group->text, group->length) != 0) continue;
        if (group->length == length) {
            choice.whole = code;
            return choice;
        }
        if (!choice.front) choice.front = code;
    }
    return choice;
}

} // namespace

constinit const codetable wordcodes = maketable();

// A code that ends the word is taken before one that goes on; of those that go
// on the first in the order of the table, not the longest.
int32_t wordcode(const char *before, const char *word, uint8_t *out)
{
    uint32_t shared = 0;
    while (word[shared] && word[shared] == before[shared])
        shared++;
    out[0] = static_cast<uint8_t>(shared);
    const char *rest = word + shared;
    size_t length = strlen(rest);
    int32_t n = 1;
    while (length && n < WORDSIZE) {
        codechoice choice = choosecode(rest, length);
        size_t taken = 1;
        if (choice.whole || choice.front) {
            out[n++] = choice.whole ? choice.whole : choice.front;
            taken = wordcodes.texts[out[n - 1]].length;
        } else {
            out[n++] = ESCAPECODE;
            out[n++] = static_cast<uint8_t>(*rest);
        }
        rest += taken;
        length -= taken;
    }
    return length ? 0 : n;
}
