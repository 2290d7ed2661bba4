#include "tests/graphics/spritemade.h"

#include <cstring>

std::string spriteresourcebytes;

errorblock *spriteresource(intptr_t module, const char *name, const void **data, int32_t *size)
{
    bool there = module == 7 && !std::strcmp(name, "made");
    *data = there ? spriteresourcebytes.data() : nullptr;
    *size = there ? static_cast<int32_t>(spriteresourcebytes.size()) : 0;
    return nullptr;
}
