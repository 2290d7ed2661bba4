// app/longwork.h - long work in the poll, and commands that come in between.
//
// A search is asked for by a button and runs a tenth of a second later, from the
// poll; while it runs it polls itself. So a command can come before it has
// begun, or in its middle. One that would pull the document or a dictionary from
// under it has it stopped first.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

using afterfunction = errorblock *(*)(intptr_t data);

// Calls function(data) when no search runs: at once, or else from the poll, when
// the search has heard that it is to stop. A search that waits to begin is
// dropped. Of several that wait, the last is called.
errorblock *aftersearch(afterfunction function, intptr_t data);
