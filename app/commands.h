// app/commands.h - the commands of the menu bar, as a table.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// Does what the entry of that identifier says; nothing for an unknown one. A
// command that would change what a search works on has it stopped first, and is
// carried out when it has.
errorblock *commandrun(int32_t id);

// The same for a choice among the dictionaries, by dict/dictmenu.h.
errorblock *commanddictionary(int32_t position, int32_t id);

// A handler of the keys of the menu that no part of the window has for itself: F1
// opens the manual.
errorblock *commandkey(window self, intptr_t data, int32_t icon, int32_t *code);

// Greys and ticks the entries as the document is now.
void commandsprepare();
