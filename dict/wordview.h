// dict/wordview.h - a word store as a scrolling list beside a field.
//
// One design for every window with a list of words. The owner has an edit field
// and a control that marks the list's place; the list is a pane over it. What is
// typed scrolls the list to where the word stands or would stand, and selects it
// if it is there; what is clicked goes into the field.
//
// The view holds no words: row r is word r of the store and is drawn from it, so
// a list of any size takes no memory. The store may change, or be another one,
// at any time: whoever does that calls wordviewschanged. Selection
// and caret are row numbers, and the owner's to clear.
//
//     static wordview view;
//     err = createtop(TEMPLATEEDIT, &owner);
//     if (!err) err = wordviewopen(&view, owner, FIELD, PLACE, store);
//     if (!err) err = opencentred(owner, 0);
//     if (!err) err = wordviewplace(&view);
//     ...
//     wordviewclose(&view); // from any point
//     removewindow(&owner);
//
// The pane has key handlers for arrows, pages, Home, End and Tab, and letters typed
// into it lead to the first word that begins with them; the owner adds its own to
// view.pane for Return and Escape, and takes them out before wordviewclose.
#pragma once

#include "base/fontrecord.h"
#include "desktop/events.h"
#include "dict/dictionary.h"

#include <cstdint>

struct errorblock;

struct wordview {
    window owner;
    window pane;                // 0 while closed
    const Dictionary *wordrows; // may be set while open
    int32_t rowsel;             // the selected row, -1 for none
    int32_t rowcaret;           // the row with the keyboard's outline, -1 for none
    int32_t rownext;            // the row behind a deleted one, until the field changes, or -1
    int32_t field, place;       // controls of the owner
    char typed[WORDSIZE];       // the letters that were typed into the list so far
    uint32_t typedat;           // and when the last of them was, by tickcount
    // Set by the owner before or after the opening:
    bool arrowscaret;                    // arrows go from rowcaret, else from rowsel
    errorblock *(*menu)(wordview *view); // what a right press does, 0 for nothing
    // What the owner does first when stores have changed or moved, 0 for nothing: it
    // sets wordrows, and shows what it tells of the store.
    errorblock *(*follow)(wordview *view);
    wordview *next; // of all open views
};

// Creates the pane, not yet shown, with nothing selected, and follows the field.
// After an error the view is closed.
errorblock *wordviewopen(wordview *view, window owner, int32_t field, int32_t place,
                         const Dictionary *store);

// Shows the pane over its place. Before that the owner has been opened.
errorblock *wordviewplace(wordview *view);

// The pane goes. Does nothing to a closed view.
void wordviewclose(wordview *view);

// The open view of a pane, or of an owner; 0 for none.
wordview *wordviewof(window w);

// The store has another number of words.
errorblock *wordviewextent(wordview *view);

// Marks a row for painting, or all of them for row -1.
errorblock *wordviewpaint(wordview *view, int32_t row);

// Scrolls so that the row is in the middle, as far as there are rows; or only as
// far as is needed for all of it to be seen.
errorblock *wordviewcentre(wordview *view, int32_t row);
errorblock *wordviewreveal(wordview *view, int32_t row);

// Scrolls to what the field says and selects it; happens by itself when the
// field's text changes.
errorblock *wordviewsync(wordview *view);

// Selects a row of the store and puts the caret there; another is ignored. The
// field stays.
errorblock *wordviewselect(wordview *view, int32_t row);

// The word of that row is gone, and wordviewschanged has been called: the caret stands
// on the next word, now or with the focus. The selection goes by the field.
errorblock *wordviewdeleted(wordview *view, int32_t row);

// Paints the rows that meet the clip: the pane's redraw handler.
errorblock *wordviewredraw(window self, intptr_t data);

// Words came or went, or stores have moved: every open view, whoever changed them,
// has its owner follow, is measured and painted anew and follows its field.
errorblock *wordviewschanged();

// The font of the lists has changed: open views are measured and painted anew.
errorblock *wordviewsrefresh();

// The lists' font and its metrics, OS units. Changed by dictmetricsupdate alone.
struct wordmetricsrecord {
    fontrecord font;
    int32_t rowheight;
    int32_t listwidth;
    int32_t ascent; // from a row's top down to the words' base line
};
extern wordmetricsrecord wordmetrics;
