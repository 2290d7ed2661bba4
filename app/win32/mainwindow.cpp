#include "app/mainwindow.h"

window mainwindow;

// There are no templates to make it from yet: the program runs without a window
// until it is told to quit.
errorblock *openmainwindow()
{
    return nullptr;
}
