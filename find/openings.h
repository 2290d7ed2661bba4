// find/openings.h - which words can begin with these letters?
//
// A table over all beginnings of four letters, a to z: the length of the
// longest word in use that begins so, case and spaces aside. Looking a line of
// letters up in it spares the word store nearly every search that must fail.
#pragma once

#include <cstdint>

struct errorblock;

constexpr int32_t OPENINGLETTERS = 4;

// Reads every word of the dictionaries in use into the table. Error 2.
errorblock *openingsmake();
void openingsfree();

// The letters of the longest word that begins as these OPENINGLETTERS
// lower-case letters do; 0 if none does. WORDLENGTH, which rules nothing out,
// while there is no table.
int32_t openinglongest(const char *letters);
