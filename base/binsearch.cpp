#include "base/binsearch.h"

const void *binsearch(const void *key, const void *base, int32_t count, int32_t size,
                      binorder compare, int *result)
{
    const char *records = static_cast<const char *>(base);
    int32_t low = 0, high = count; // the key's place is in low..high
    *result = -1;
    while (low < high) {
        int32_t middle = low + (high - low) / 2;
        const char *record = records + int64_t{middle} * size;
        int order = compare(record, key);
        *result = (order > 0) - (order < 0);
        if (!order) return record;
        if (order < 0)
            low = middle + 1;
        else
            high = middle;
    }
    return records + int64_t{low} * size;
}
