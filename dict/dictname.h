// dict/dictname.h - what a new dictionary may be called.
//
// Its file bears the name, so that a name which the system takes for something
// else would make no dictionary, or one that can't be found again.
#pragma once

struct errorblock;

// 0 for a name that can be a file's, and for none at all. Error EDNAME says what
// is wrong.
errorblock *dictnamecheck(const char *name);
