#include "desktop/helptable.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "base/numbers.h"
#include "base/platform.h"
#include "base/text.h"
#include "base/trace.h"
#include "desktop/help.h"
#include "desktop/templates.h"

#include <cstring>

namespace
{

// The entries of a template begin at first; the last of them says so.
struct helpgroup {
    int32_t number, first;
};

struct helpentry {
    uint32_t icon;
    int32_t text; // offset
};

constexpr uint32_t LASTENTRY = 0x80000000, ICONBITS = 0x0FFFFFFF;
constexpr int32_t NAMESIZE = 64;

struct {
    flexptr groups, entries, texts;
    int32_t ngroups, nentries, ntext;
} table;

helpgroup *groups()
{
    return static_cast<helpgroup *>(table.groups);
}

helpentry *entries()
{
    return static_cast<helpentry *>(table.entries);
}

// Room for size bytes at offset at.
errorblock *storeopen(flexptr *store, int32_t at, int32_t size)
{
    return *store ? flex_midextend(store, at, size) : flex_alloc(store, size);
}

// The first group of that number or a higher one.
int32_t groupfind(int32_t number)
{
    int32_t low = 0, high = table.ngroups;
    while (low < high) {
        int32_t middle = (low + high) / 2;
        if (groups()[middle].number < number)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

bool groupis(int32_t group, int32_t number)
{
    return group < table.ngroups && groups()[group].number == number;
}

int32_t groupstart(int32_t group)
{
    return group < table.ngroups ? groups()[group].first : table.nentries;
}

errorblock *groupopen(int32_t group, int32_t number)
{
    if (groupis(group, number)) return nullptr;
    constexpr int32_t size = sizeof(helpgroup);
    int32_t first = groupstart(group);
    errorblock *err = storeopen(&table.groups, group * size, size);
    if (err) return err;
    groups()[group] = {number, first};
    table.ngroups++;
    return nullptr;
}

// A group without entries would have those of the next.
void groupunopen(int32_t group)
{
    if (groupstart(group) != groupstart(group + 1)) return;
    constexpr int32_t size = sizeof(helpgroup);
    flex_midextend(&table.groups, (group + 1) * size, -size);
    table.ngroups--;
}

errorblock *entryadd(int32_t number, uint32_t icon, int32_t text)
{
    int32_t group = groupfind(number);
    errorblock *err = groupopen(group, number);
    if (err) return err;
    constexpr int32_t size = sizeof(helpentry);
    int32_t at = groupstart(group + 1);
    err = storeopen(&table.entries, at * size, size);
    if (err) {
        groupunopen(group);
        return err;
    }
    if (at > groupstart(group)) entries()[at - 1].icon &= ~LASTENTRY;
    entries()[at] = {icon | LASTENTRY, text};
    table.nentries++;
    for (int32_t later = group + 1; later < table.ngroups; later++)
        groups()[later].first++;
    return nullptr;
}

errorblock *textadd(const char *text, const char *end, int32_t *offset)
{
    auto length = static_cast<int32_t>(end - text);
    errorblock *err = storeopen(&table.texts, table.ntext, length + 1);
    if (err) return err;
    char *place = static_cast<char *>(table.texts) + table.ntext;
    std::memcpy(place, text, static_cast<size_t>(length));
    place[length] = 0;
    *offset = table.ntext;
    table.ntext += length + 1;
    return nullptr;
}

const char *find(const char *text, const char *end, char wanted)
{
    return static_cast<const char *>(std::memchr(text, wanted, static_cast<size_t>(end - text)));
}

// The template that a line is for, 0 for none.
int32_t linetemplate(const char *line, const char *comma)
{
    char name[NAMESIZE] = "";
    if (comma - line < NAMESIZE) strcopyn(name, line, static_cast<int32_t>(comma - line) + 1);
    int32_t number = templatenumber(name);
    if (!number) trace("help template %s", name);
    return number;
}

errorblock *lineadd(const char *line, const char *end)
{
    const char *comma = line < end && *line != '/' ? find(line, end, ',') : nullptr;
    const char *colon = comma ? find(comma, end, ':') : nullptr;
    if (!colon) return nullptr;
    int32_t number = linetemplate(line, comma);
    if (!number) return nullptr;

    int32_t text;
    errorblock *err = textadd(colon + 1, end, &text);
    for (; !err && comma; comma = find(comma + 1, colon, ','))
        err = entryadd(number, static_cast<uint32_t>(numberparse(comma + 1, nullptr)) & ICONBITS,
                       text);
    return err;
}

bool endsline(char c)
{
    return !c || c == '\r' || c == '\n';
}

errorblock *fileadd(const char *directory, const char *name)
{
    char path[PATHSIZE];
    fileinfo info;
    errorblock *err = fs_strcpycat(path, sizeof path, directory, name);
    if (!err) err = fileinfoget(path, &info);
    if (err) return err;
    if (info.objecttype != OBJECTFILE) return makeerrorf(ERRORNOTFOUND, path);
    void *text = nullptr;
    int32_t size = 0;
    err = fileloadnew(path, &text, &size);
    if (!err) err = helptableadd(static_cast<const char *>(text), size);
    heap_free(&text);
    return err;
}

} // namespace

errorblock *helptableadd(const char *text, int32_t size)
{
    errorblock *err = nullptr;
    const char *end = text + size;
    for (const char *line = text; !err && line < end; line++) {
        const char *begin = line;
        while (line < end && !endsline(*line))
            line++;
        err = lineadd(begin, line);
    }
    return err;
}

const char *helptabletext(int32_t number, int32_t icon)
{
    int32_t group = groupfind(number);
    if (!groupis(group, number)) return nullptr;
    uint32_t wanted = static_cast<uint32_t>(icon == -1 ? HELPWINDOW : icon);
    for (const helpentry *entry = entries() + groupstart(group);; entry++) {
        uint32_t here = entry->icon & ICONBITS;
        if (here == wanted || here == HELPDEFAULT)
            return static_cast<const char *>(table.texts) + entry->text;
        if (entry->icon & LASTENTRY) return nullptr;
    }
}

void helptablereset()
{
    flex_free(&table.groups);
    flex_free(&table.entries);
    flex_free(&table.texts);
    table = {};
}

errorblock *addhelptable(const char *directory, const char *name)
{
    if (directory) return fileadd(directory, name);
    const void *data;
    int32_t size;
    errorblock *err = platformresource("INTHELP", name, &data, &size);
    if (err || !data) return err;
    return helptableadd(static_cast<const char *>(data), size);
}
