// The process's entry: the values that the rest reads, then the demonstration.
#include "base/boxes.h"
#include "base/paths.h"
#include "desktop/task.h"
#include "tools/deskdemo/deskdemo.h"

#include <windows.h>

#include <cstdlib>

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show)
{
    taskinstance = reinterpret_cast<intptr_t>(instance);
    taskshow = show;
    taskleaf = __argc > 0 ? leafname(__argv[0]) : nullptr;
    reportfatal(demostart());
    runtask();
}
