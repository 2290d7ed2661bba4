// desktop/combo.h - combo and list boxes whose rows the library draws.
//
// A row's text is of tokens (validation.h): s text, l an image, i an icon, t a
// step to the right.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// event 1: the selection changed; of a list box, 1 a double click and 2 a
// selection.
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
