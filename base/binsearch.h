// base/binsearch.h - search in sorted records.
#pragma once

#include <cstdint>

// Compares a record with the key: negative when the record comes first.
using binorder = int (*)(const void *record, const void *key);

// The record that matches among count records of size bytes at base, with
// result 0. Without a match, the place where the key would go, and in result
// the sign of the last comparison; -1 for an empty array.
const void *binsearch(const void *key, const void *base, int32_t count, int32_t size,
                      binorder compare, int *result);
