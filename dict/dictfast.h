// dict/dictfast.h - the search that skips; for dictfind alone.
#pragma once

#include "dict/dictionary.h"

// Looks for the word from an index entry on. flags as dictfind's.
bool dictfastscan(const char *word, const Dictionary *dict, uint32_t entryn, uint32_t *flags);
