// desktop/win32/windowgeometry.h - windows as the system has them.
#pragma once

#include "desktop/windowplace.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

struct errorblock;

// The size of its client area, in pixels.
errorblock *clientsize(window w, int32_t *width, int32_t *height);
