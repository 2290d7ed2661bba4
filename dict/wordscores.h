// dict/wordscores.h - lists of words with scores, as setters trade them: a line a
// word, WORD;SCORE, the score a whole number.
#pragma once

#include <cstdint>
#include <string>

// Keeps of such a list the words that score least or more, a line each, as a text
// that an import reads. What stands before the last ";" of a line is its word.
// Lines without a score are left out; the result is how many, empty ones aside.
int32_t scoredwords(std::string *list, int32_t least);
