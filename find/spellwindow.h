// find/spellwindow.h - the window of the spell check, over find/spell.h.
//
// It opens at the first word that no dictionary in use holds, shows it with
// suggestions or with a dictionary beside it, and closes behind the last. Words
// that are added stay in memory until it closes, when the user says whether to
// keep them.
#pragma once

#include "desktop/events.h"
#include "dict/dictset.h"
#include "dict/wordview.h"

#include <cstdint>

struct errorblock;
struct comborecord;

// The names in the combo box, as they were when it was filled: dictionaries
// come and go while the window is open.
struct listedrecord {
    uint32_t count;
    char names[MAXDICTS][sizeof dictrec::name];
};

// Changed by this module alone.
struct checkrecord {
    window parent;
    window self;         // 0 while closed
    bool browsing;       // the list shows a dictionary; outlives the window
    uint32_t dictionary; // position in dictset: where words are added
    listedrecord listed;
    comborecord *combo;
    wordview view;
};
extern checkrecord check;

// Starts at the grid's first word; the window stands in front of parent. Without
// a dictionary nothing happens.
errorblock *spellcheck(window parent);
