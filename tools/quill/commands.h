// tools/quill/commands.h - the commands, a function each.
//
// A command gets its sorted arguments, writes its results and returns the
// first failure.
#pragma once

#include "tools/quill/arguments.h"

struct errorblock;

using commandfunction = errorblock *(*)(const arguments &);

errorblock *commanddictbuild(const arguments &args);
errorblock *commanddictwords(const arguments &args);
errorblock *commanddictfind(const arguments &args);
errorblock *commanddictadd(const arguments &args);
errorblock *commanddictremove(const arguments &args);
errorblock *commanddictcheck(const arguments &args);
errorblock *commandgridbuild(const arguments &args);
errorblock *commandgriddraw(const arguments &args);
errorblock *commandgridwords(const arguments &args);
errorblock *commandgridimport(const arguments &args);
errorblock *commandgridexport(const arguments &args);
errorblock *commandsheet(const arguments &args);
errorblock *commandstats(const arguments &args);
errorblock *commandsolve(const arguments &args);
errorblock *commandfillall(const arguments &args);
errorblock *commandfillgrid(const arguments &args);
errorblock *commandanagram(const arguments &args);
errorblock *commandguess(const arguments &args);
errorblock *commandspell(const arguments &args);
errorblock *commandmake(const arguments &args);
errorblock *commandfill(const arguments &args);
errorblock *commandfind(const arguments &args);
errorblock *commandclues(const arguments &args);
