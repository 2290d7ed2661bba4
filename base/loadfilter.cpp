#include "base/loadfilter.h"

#include "base/files.h"
#include "base/messages.h"
#include "base/text.h"

#include <cstdio>
#include <cstring>

namespace
{

constexpr int32_t FILTERSIZE = 256;
constexpr int32_t ALLFILES = -1;
char filter[FILTERSIZE];

// Writes "*.ext;" of each type at out; the bytes taken without the zero, or -1
// for too little room.
int32_t patterns(const loadgroup &group, char *out, int32_t size)
{
    int32_t length = 0;
    for (int32_t i = 0; i < group.count; i++) {
        char extension[32] = "*";
        if (group.types[i] != ALLFILES) filetypetext(group.types[i], extension, sizeof extension);
        int32_t added =
            std::snprintf(out + length, static_cast<size_t>(size - length), "*.%s;", extension);
        if (added >= size - length) return -1;
        length += added;
    }
    out[length] = 0;
    return length;
}

// Writes one row at out; the bytes it takes, or -1 for too little room.
int32_t rowwrite(const loadgroup &group, char *out, int32_t size)
{
    if (size < 2 || xzstrncpyu(out, group.description, size)) return -1;
    expandtokens(out, size);
    int32_t length = static_cast<int32_t>(strlen(out)) + 1;
    if (length >= size) return -1;
    int32_t more = patterns(group, out + length, size - length);
    return more < 0 ? -1 : length + more + 1;
}

} // namespace

const char *loadfilterbuild(const loadgroup *groups, int32_t count)
{
    int32_t end = 0;
    for (int32_t i = 0; i < count; i++) {
        int32_t length = rowwrite(groups[i], filter + end, FILTERSIZE - 2 - end);
        if (length < 0) break;
        end += length;
    }
    filter[end] = filter[end + 1] = 0;
    return filter;
}
