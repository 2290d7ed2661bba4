#include "graphics/sprites.h"

#include "base/errors.h"
#include "base/syserr.h"

#include <windows.h>

errorblock *spriteresource(intptr_t module, const char *name, const void **data, int32_t *size)
{
    *data = nullptr;
    *size = 0;
    HMODULE from = module ? reinterpret_cast<HMODULE>(module) : GetModuleHandleA(nullptr);
    HRSRC place = FindResourceA(from, name, "Sprites");
    if (!place) return nullptr;
    HGLOBAL loaded = LoadResource(from, place);
    if (!loaded) return syserrname("LoadResource", name);
    *data = LockResource(loaded);
    *size = static_cast<int32_t>(SizeofResource(from, place));
    return nullptr;
}
