#include "desktop/validation.h"

#include <cstring>

static bool doubled(const char *text)
{
    return text[0] == '\\' && text[1] == '\\';
}

// The letter of the token at text, and where its value begins.
static const char *tokenhead(const char *text, char *letter)
{
    *letter = 's';
    if (*text != '\\' || doubled(text)) return text;
    *letter = text[1];
    return text + (text[1] ? 2 : 1);
}

static const char *valueend(const char *value)
{
    while (*value && (*value != '\\' || doubled(value)))
        value += doubled(value) ? 2 : 1;
    return value;
}

const char *nexttoken(const char *text, char *letter, char *buffer)
{
    *buffer = 0;
    if (!*text) return nullptr;
    const char *value = tokenhead(text, letter);
    const char *end = valueend(value);
    int32_t length = 0;
    while (value < end && length < VALIDATIONSIZE - 1) {
        buffer[length++] = *value;
        value += doubled(value) ? 2 : 1;
    }
    buffer[length] = 0;
    return end;
}

bool gettoken(const char *text, char letter, char *buffer)
{
    char found;
    while ((text = nexttoken(text, &found, buffer)))
        if (found == letter) return true;
    return false;
}

bool findtoken(char letter, const char *text, tokenplace *place)
{
    while (*text) {
        char found;
        const char *end = valueend(tokenhead(text, &found));
        if (found == letter) {
            *place = {text, end};
            return true;
        }
        text = end;
    }
    return false;
}

bool replacetoken(char letter, const char *value, char *text)
{
    // Behind a last single backslash another would make it a doubled one.
    tokenplace place;
    if (!findtoken(letter, text, &place) && !findtoken(0, text, &place))
        place.start = place.end = text + std::strlen(text);

    // Text at the start gets its letter written out: an empty value keeps its
    // place among the tokens.
    size_t head = static_cast<size_t>(place.start - text), length = std::strlen(value);
    size_t tail = std::strlen(place.end) + 1;
    if (head + 2 + length + tail > VALIDATIONSIZE) return false;
    std::memmove(text + head + 2 + length, place.end, tail);
    text[head] = '\\';
    text[head + 1] = letter;
    std::memcpy(text + head + 2, value, length);
    return true;
}

void quotetoken(const char *value, char *buffer, int32_t size)
{
    for (; *value; value++) {
        int32_t step = *value == '\\' ? 2 : 1;
        if (size <= step) break; // half a doubled backslash would start a token
        if (step == 2) *buffer++ = '\\';
        *buffer++ = *value;
        size -= step;
    }
    *buffer = 0;
}

// False for what is no term.
static bool termvalue(char term, uint32_t state, bool *value)
{
    static constexpr char TERMS[] = "FPSMG"; // by the bits of the state
    const char *bit = term ? std::strchr(TERMS, term) : nullptr;
    if (bit) *value = state >> (bit - TERMS) & 1;
    if (term == '1' || term == '0') *value = term == '1';
    return bit || term == '1' || term == '0';
}

bool tokencondition(const char *expression, uint32_t state, bool before, bool *greys)
{
    bool value = before, negated = false;
    char join = 0;
    for (const char *p = expression; *p; p++) {
        bool term;
        if (*p == '!') negated = true;
        if (*p == '+' || *p == '-') join = *p;
        if (!termvalue(*p, state, &term)) continue;
        if (*p == 'G') *greys = true;
        term = term != negated;
        value = join == '+' ? value || term : join == '-' ? value && term : term;
        negated = false;
        join = 0;
    }
    return value;
}
