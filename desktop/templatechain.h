// desktop/templatechain.h - the linked tables of templates. Inside the library
// only; findtemplate and templatenumber of templates.h look in here.
#pragma once

#include "desktop/templates.h"

// At the head of the chain. The table is whole: its resources are found.
void templatelinked(templaterow *table, templatelink *link);

// Whether it was there.
bool templateunlinked(templatelink *link);

// As at start-up.
void templatesreset();
