#include "desktop/ddecommand.h"

#include "base/text.h"

#include <cstring>

static void blanks(const char **text)
{
    while (**text == ' ' || **text == '\t')
        ++*text;
}

// Steps over a character, with blanks before it.
static bool mark(const char **text, char wanted)
{
    blanks(text);
    if (**text != wanted) return false;
    ++*text;
    return true;
}

static bool isletter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

static bool verbis(const char *verb, size_t length, const char *name)
{
    return strlen(name) == length && !cstrnicmp(verb, name, static_cast<int32_t>(length));
}

static bool readverb(const char **text, ddeverbs *verb)
{
    blanks(text);
    const char *start = *text;
    while (isletter(**text))
        ++*text;
    auto length = static_cast<size_t>(*text - start);
    *verb = verbis(start, length, "open")      ? DDEOPEN
            : verbis(start, length, "print")   ? DDEPRINT
            : verbis(start, length, "printto") ? DDEPRINTTO
                                               : DDENOVERB;
    return length > 0;
}

// There is no way to write a quote inside a name, as no file has one.
static bool readname(const char **text, char *name)
{
    if (!mark(text, '"')) return false;
    const char *end = strchr(*text, '"');
    if (!end || end == *text || end - *text >= PATHSIZE) return false;
    auto length = static_cast<size_t>(end - *text);
    memcpy(name, *text, length);
    name[length] = 0;
    *text = end + 1;
    return true;
}

bool ddecommandread(const char **text, ddecommandrecord *command)
{
    const char *at = *text;
    bool bracket = mark(&at, '[');
    command->printer[0] = 0;
    if (!readverb(&at, &command->verb)) return false;
    if (!mark(&at, '(') || !readname(&at, command->name)) return false;
    if (command->verb == DDEPRINTTO && !(mark(&at, ',') && readname(&at, command->printer)))
        return false;
    if (!mark(&at, ')')) return false;
    if (bracket && !mark(&at, ']')) return false;
    *text = at;
    return true;
}
