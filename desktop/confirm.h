// desktop/confirm.h - the library's own question: a box that must be answered
// before the program goes on.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// Kinds, and the answer by each button. The close box and Escape are Cancel.
// Keys: the first letter of a button, and Return for Yes or Save.
constexpr uint32_t CONFIRMYESNO = 0;             // No 0, Yes 1; Escape -1
constexpr uint32_t CONFIRMDISCARDCANCEL = 1;     // Discard 1, Cancel -1
constexpr uint32_t CONFIRMDISCARDCANCELSAVE = 2; // Discard 0, Cancel -1, Save 1
constexpr uint32_t CONFIRMFORCE = 0x80000000;    // asks even where questions are off

// POLLS. Asks, in front of parent; no window of the program takes input meanwhile. Where
// questions are off the answer is 0 for Discard, Cancel, Save and 1 for the
// others; while another question is open it is -1, as after an error. Tokens of
// the format are expanded, and those of the arguments; the text is cut to 255
// bytes.
[[gnu::format(printf, 4, 5)]] errorblock *confirm(window parent, uint32_t kind, int *answer,
                                                  const char *format, ...);

// Whether questions are asked; 1 at the start.
void setconfirm(bool on);
