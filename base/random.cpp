#include "base/random.h"

#include <cstdlib>

void randomseed(uint32_t seed)
{
    std::srand(seed);
}

int32_t randomdraw()
{
    // Runtimes draw 15 or 31 bits; the upper ones of a long draw are the
    // better ones.
    return std::rand() / (RAND_MAX / 32768 + 1);
}
