#include "base/rawmemory.h"

#include "base/flex.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{

constexpr int SPOILT = 0xDD;

struct {
    bool shaking;
    int32_t failafter = -1;
    int32_t held;
} raw;

// Counts down to the failure that a test asked for.
bool faultdue()
{
    if (raw.failafter < 0) return false;
    return raw.failafter-- == 0;
}

// A resize that always goes elsewhere.
void *shakenresize(void *old, int32_t oldsize, int32_t newsize)
{
    void *made = std::malloc(static_cast<size_t>(newsize));
    if (!made) return nullptr;
    std::memset(made, SPOILT, static_cast<size_t>(newsize));
    std::memcpy(made, old, static_cast<size_t>(std::min(oldsize, newsize)));
    std::memset(old, SPOILT, static_cast<size_t>(oldsize));
    std::free(old);
    return made;
}

void *resize(void *old, int32_t oldsize, int32_t newsize)
{
    if (raw.shaking) return shakenresize(old, oldsize, newsize);
    return std::realloc(old, static_cast<size_t>(newsize));
}

} // namespace

void *rawalloc(int64_t size, bool zero)
{
    if (faultdue() || size > INT32_MAX) return nullptr;
    size_t bytes = static_cast<size_t>(size);
    void *made = zero ? std::calloc(bytes, 1) : std::malloc(bytes);
    if (!made) return nullptr;
    if (!zero && raw.shaking) std::memset(made, SPOILT, bytes);
    raw.held++;
    return made;
}

void *rawresize(void *old, int32_t oldsize, int64_t newsize)
{
    if (faultdue() || newsize > INT32_MAX) return nullptr;
    return resize(old, oldsize, static_cast<int32_t>(newsize));
}

void *rawshrink(void *old, int32_t oldsize, int32_t newsize)
{
    void *made = resize(old, oldsize, newsize);
    return made ? made : old;
}

void *rawshake(void *old, int32_t size)
{
    return raw.shaking ? rawshrink(old, size, size) : old;
}

void rawfree(void *old, int32_t size)
{
    if (raw.shaking) std::memset(old, SPOILT, static_cast<size_t>(size));
    std::free(old);
    raw.held--;
}

void flexshake(bool on)
{
    raw.shaking = on;
}

void flexfailafter(int32_t n)
{
    raw.failafter = n;
}

int32_t flexblocks()
{
    return raw.held;
}
