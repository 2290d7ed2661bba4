// base/edittext.h - editing text in place.
//
// Nothing here knows the room behind a text: a caller whose replacement is
// longer than what it replaces has made sure of it.
#pragma once

#include <cstdint>

// Replaces the first occurrence of from by to, without case in the first.
// false if there is none.
bool strreplacei(char *text, const char *from, const char *to);
bool strreplace(char *text, const char *from, const char *to);

// Replaces every occurrence of one character.
void strreplacech(char *text, char from, char to);

// Copies text without the quotes at its start, up to the next quote or its end.
// out may be text.
void strunquote(char *out, const char *text);

int32_t strcountch(const char *text, char ch);

// The strings of a packed list: zero-terminated, the last one empty and not
// counted.
int32_t strcountlist(const char *list);
