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

// Greys and ticks the entries as the document is now.
void commandsprepare();
