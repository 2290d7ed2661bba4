// desktop/combo.h - combo and list boxes whose rows the library draws.
//
// A row's text is of tokens (validation.h), drawn from the left: t moves right
// by a number of pixels, i draws a small icon of the program and moves on behind
// it, s draws text. Text without any token is just that.
//
// A record belongs to a control of a window, which has the style of fixed owner
// drawing and keeps its strings. It ends before the window does.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// event 1: the selection changed; of a list box, 1 a double click and 2 a
// selection. The record may be removed from inside.
using combofunction = errorblock *(*)(int32_t event, window self, intptr_t data, int32_t index,
                                      int32_t zero);

struct comborecord;
errorblock *addcombo(window w, intptr_t data, int32_t icon, comborecord **record,
                     combofunction callback);
errorblock *remcombo(comborecord *record);
errorblock *comboadd(comborecord *record, const char *text);
errorblock *comboclear(comborecord *record);
errorblock *comboselect(comborecord *record, int32_t index);
errorblock *comboselected(comborecord *record, int32_t *index); // -1 for none

struct listrecord;
errorblock *addlistbox(window w, intptr_t data, int32_t icon, listrecord **record,
                       combofunction callback);
errorblock *remlistbox(listrecord *record);
errorblock *listadd(listrecord *record, const char *text);
errorblock *listclear(listrecord *record);
