// dict/dictdelete.h - the delete that tells why; for dictadd, which must not
// try again what can't be done.
#pragma once

#include "dict/dictionary.h"

// dictdelete, with its result in *gone. Errors: 2.
errorblock *dictdeleteword(Dictionary *dict, dictcursor *cursor, bool *gone);
