// desktop/validation.h - the language that describes a drawn control.
//
// A validation string is a row of tokens: a backslash, a letter and a value up
// to the next single backslash; a backslash in a value is written twice. Text at
// the start is a token of letter s. Letters are case-sensitive. A string that
// ends in a single backslash ends in an empty token of letter 0.
//
// What each letter of a control means stands where it is drawn; rows of lists
// (combo.h) use a few of them.
#pragma once

#include <cstdint>

// Of a whole string, its terminator included, and so enough for any value.
constexpr int32_t VALIDATIONSIZE = 1024;

// Copies the value of the token at text, of at most VALIDATIONSIZE - 1 bytes,
// and tells its letter. Where the next one begins; 0 at the end of the string.
const char *nexttoken(const char *text, char *letter, char *buffer);

// The value of the first token of a letter; false, and an empty value, if there
// is none.
bool gettoken(const char *text, char letter, char *buffer);

// Where a token starts, at its backslash if it has one, and where it ends.
struct tokenplace {
    const char *start, *end;
};
bool findtoken(char letter, const char *text, tokenplace *place);

// Replaces the value, of which backslashes are doubled already; appends the
// token if there is none. text has VALIDATIONSIZE bytes; false, and nothing
// has changed, if it doesn't fit.
bool replacetoken(char letter, const char *value, char *text);

// Doubles the backslashes of value; cut to size.
void quotetoken(const char *value, char *buffer, int32_t size);

// The state word of a control.
constexpr uint32_t CONTROLFOCUS = 1, CONTROLPRESSED = 2, CONTROLSELECTED = 4, CONTROLMARKED = 8,
                   CONTROLDISABLED = 16;

// The value of an expression over a state: terms F, P, S, M and G for the bits
// above in turn, 1 and 0 for always and never. From left to right: "!" negates
// the next term, "+" ors it to the value so far and "-" ands it; with neither it
// takes that value's place. The value so far is at first before. greys is set
// when the expression asks for G, which says that the string does its own
// greying.
bool tokencondition(const char *expression, uint32_t state, bool before, bool *greys);
