// dict/dictfast.h - the search that skips; for dictfind alone.
#pragma once

#include "dict/dictionary.h"

// Looks for the word from an index entry on. flags as dictfind's.
bool dictfastscan(const char *word, const Dictionary *dict, uint32_t entryn, uint32_t *flags);

// The same from a hash of the words, among which is no phrase; hyphens count.
struct wordhash;
bool dictfasthashed(const char *word, const Dictionary *dict, const wordhash *hash,
                    uint32_t *flags);
