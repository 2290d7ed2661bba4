#include "app/mainwindow.h"
#include "app/stages.h"
#include "tests/desktop/fake/fakesource.h"

window mainwindow = 4;

errorblock *linktemplates(const char *)
{
    return fakestage("linktemplates");
}

errorblock *linkmenus()
{
    return fakestage("linkmenus");
}

errorblock *openmainwindow()
{
    return fakestage("openmainwindow");
}
