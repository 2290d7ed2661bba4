// dict/dicteditwindow.h - the editor of a dictionary's words, and the box that
// asks for a new dictionary's name.
//
// One dictionary at a time. What is added and deleted lies in memory; OK saves
// every changed dictionary, whoever changed it, and Cancel reads them again from
// their files. Closed by its frame the editor decides nothing: the changes stay,
// marked, until the next OK or Cancel.
#pragma once

#include "desktop/events.h"
#include "dict/wordview.h"

#include <cstdint>

struct errorblock;

// The selection of the list's menu.
errorblock *editmenuselect(const int32_t *path, window w);

// Changed by dicteditwindow.cpp alone.
struct editrecord {
    window self; // 0 while closed
    wordview view;
    uint32_t number; // of the dictionary
    char name[32];
};
extern editrecord editor;

// Opens the editor on a loaded dictionary. One that is open goes on with the
// dictionary from its next redraw; title, count and the list's length stay.
errorblock *editopen(window parent, uint32_t number, Dictionary *dict, const char *name);

// Adds the field's word. One that the store doesn't take is dropped in silence.
// Errors: 2.
errorblock *editadd(uint32_t number);

// Deletes the selected word.
errorblock *editdelete(uint32_t number);

// Words came or went: the count, the lists, and what of them the fields select.
// before is the number of words there were.
errorblock *editshow(uint32_t before);

// The records of dictionaries have moved: the editor follows its own by name, and
// closes if it is gone; other lists of words follow theirs.
void editrenumber();

// The list's boxes for files of words, and drops of them on it.
errorblock *editimportbox();
errorblock *editexportbox();
errorblock *editdropsadd();
void editdropsremove();

// Asks for a name, with parent disabled until it is told, and creates the
// dictionary as dictcreate does.
errorblock *newdictopen(window parent);

// Asked of the application, which defines them in app/commands.cpp: call
// function(data) when no search walks the words; what was found before refers to
// words that have moved.
errorblock *dictwhenidle(errorblock *(*function)(intptr_t), intptr_t data);
void dictrefsgone();
