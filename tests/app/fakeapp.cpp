#include "app/mainwindow.h"
#include "app/stages.h"
#include "tests/desktop/fake/fakesource.h"

window mainwindow = 4;

static errorblock *stage(const char *name)
{
    fake.log.push_back(name);
    return fake.failstage == name ? fakeerror() : nullptr;
}

errorblock *linktemplates(const char *)
{
    return stage("linktemplates");
}

errorblock *linkmenus()
{
    return stage("linkmenus");
}

errorblock *openmainwindow()
{
    return stage("openmainwindow");
}
