#include "base/transfer.h"

#include "base/flex.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace
{

constexpr int32_t CHUNK = 4096;

struct {
    const char *start;
    int32_t cursor, size;
    bool active;
} reading;

struct {
    void *data; // a plain allocation
    int32_t count;
    void **anchoraddress;
    int32_t *sizeaddress;
} writing;

} // namespace

void ramreadset(const void *address, int32_t size)
{
    reading = {static_cast<const char *>(address), 0, size, true};
}

bool ramreadactive()
{
    return reading.active;
}

void ramreadsize(int32_t *size)
{
    *size = reading.size - reading.cursor;
}

void ramread(void *address, int32_t length, int32_t *count)
{
    *count = std::min(length, reading.size - reading.cursor);
    if (*count > 0) memcpy(address, reading.start + reading.cursor, static_cast<size_t>(*count));
    reading.cursor += *count;
}

void ramreadseek(int32_t position)
{
    reading.cursor = std::clamp(position, 0, reading.size);
}

errorblock *ramreadrewind(errorblock *error)
{
    reading.cursor = 0;
    return error;
}

void ramreadclear()
{
    reading = {};
}

void ramwriteset(void **anchoraddress, int32_t *sizeaddress)
{
    writing.anchoraddress = anchoraddress;
    writing.sizeaddress = sizeaddress;
    writing.count = 0;
}

bool ramwriteactive()
{
    return writing.anchoraddress != nullptr;
}

void ramwrite(const void *address, int32_t length, int32_t *count)
{
    *count = 0;
    if (length <= 0 || length > INT_MAX - CHUNK - writing.count) return;
    if (heap_chunk(&writing.data, writing.count + length, CHUNK)) return;
    memcpy(static_cast<char *>(writing.data) + writing.count, address, static_cast<size_t>(length));
    writing.count += length;
    *count = length;
}

errorblock *ramwriteend(errorblock *error)
{
    if (writing.anchoraddress) *writing.anchoraddress = writing.data;
    if (writing.sizeaddress) *writing.sizeaddress = writing.count;
    writing.count = 0;
    return error;
}

void ramwriteclear()
{
    heap_free(&writing.data);
    writing = {};
}
