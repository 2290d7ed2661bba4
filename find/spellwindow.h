// find/spellwindow.h - the window of the spell check, over find/spell.h.
//
// It opens at the first word that no dictionary in use holds, shows it with
// suggestions or with a dictionary beside it, and closes behind the last. Words
// that are added stay in memory until it closes, when the user says whether to
// keep them.
#pragma once

#include "desktop/events.h"

struct errorblock;

// Starts at the grid's first word; the window stands in front of parent. Without
// a dictionary nothing happens.
errorblock *spellcheck(window parent);
