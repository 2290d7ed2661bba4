// tests/graphics/codeof.h - what became of a call that can fail.
#pragma once

#include "base/errors.h"

// The code of an error, 0 for none.
inline uint32_t codeof(const errorblock *err)
{
    return err ? err->code : 0;
}
