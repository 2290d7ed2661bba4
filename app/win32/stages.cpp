// The stages of the application's start that have nothing to start yet. Each
// goes to the module that it is about when that is built.

#include "app/stages.h"

errorblock *linktemplates(const char *)
{
    return nullptr;
}

errorblock *linkmenus()
{
    return nullptr;
}
