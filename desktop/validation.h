// desktop/validation.h - the language that describes a drawn control.
//
// A validation string is a row of tokens: a backslash, a letter and a value up
// to the next single backslash; a backslash in a value is written twice. Text at
// the start is a token of letter s.
#pragma once

#include <cstdint>

// Copies the value of the token at text, of at most VALIDATIONSIZE - 1 bytes,
// and tells its letter. Where the next one begins; 0 at the end of the string.
constexpr int32_t VALIDATIONSIZE = 1024;
const char *nexttoken(const char *text, char *letter, char *buffer);

// The value of the first token of a letter; false if there is none.
bool gettoken(const char *text, char letter, char *buffer);

// Where a token starts, at its backslash, and where it ends.
struct tokenplace {
    const char *start, *end;
};
bool findtoken(char letter, const char *text, tokenplace *place);

// Replaces the value, of which backslashes are doubled already; appends the
// token if there is none. text has VALIDATIONSIZE bytes; false if it doesn't fit.
bool replacetoken(char letter, const char *value, char *text);

// Doubles the backslashes of value; cut to size.
void quotetoken(const char *value, char *buffer, int32_t size);

// A decimal or 0x number, maybe negative; rest, unless 0, is what follows it.
int32_t tokennumber(const char *text, const char **rest);
