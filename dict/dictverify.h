// dict/dictverify.h - every rule of a store, for those who ask about a file.
#pragma once

#include "dict/dictionary.h"

// Decodes every word and looks at every index entry against the rules of
// dictionary.h. Returns 0, or what is first found wrong, in English, in text of
// size bytes. The store is one that was made or loaded here.
const char *dictverify(const Dictionary *dict, char *text, int32_t size);
