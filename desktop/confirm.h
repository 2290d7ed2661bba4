// desktop/confirm.h - the library's own question.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// Kinds, and a bit that asks even where confirmation is off. The answers are
// told with each kind; -1 while another question is open.
constexpr uint32_t CONFIRMFORCE = 0x80000000;
[[gnu::format(printf, 4, 5)]] errorblock *confirm(window parent, uint32_t kind, int *answer,
                                                  const char *format, ...);

// Whether questions are asked; 1 at the start.
void setconfirm(int on);
