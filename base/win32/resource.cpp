#include "base/platform.h"

#include "base/syserr.h"

#include <windows.h>

// A name that is missing is no error: not every program carries every resource.
errorblock *platformresource(const char *type, const char *name, const void **data, int32_t *size)
{
    *data = nullptr;
    *size = 0;
    HMODULE module = GetModuleHandleA(nullptr);
    HRSRC place = FindResourceA(module, name, type);
    if (!place) return nullptr;
    HGLOBAL loaded = LoadResource(module, place);
    if (!loaded) return syserrname("LoadResource", name);
    *data = LockResource(loaded);
    *size = static_cast<int32_t>(SizeofResource(module, place));
    return nullptr;
}
