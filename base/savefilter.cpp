#include "base/savefilter.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/messages.h"
#include "base/text.h"
#include "base/trace.h"

#include <cstring>

savechoicerecord savechoice;

namespace
{

constexpr int32_t FILTERSIZE = sizeof savechoice.filter;
constexpr int32_t EXTENSIONSIZE = 32;

struct formattable {
    int32_t count;
    const savefilter *rows;
    int32_t *currentindex;
};

struct {
    formattable armed; // for the next dialog; a count of 0 when there is none
    formattable shown; // by the dialog that savechoice is for
    int32_t filterend; // where the next row goes
} formats;

int32_t formattype(int32_t row, char *name, int32_t size)
{
    int32_t type = 0;
    const savefilter &format = formats.shown.rows[row];
    format.getformat(format.context, row, &type, name, size);
    return type;
}

// Appends a string with its zero; false when it was cut.
bool append(const char *text, bool expand)
{
    char *at = savechoice.filter + formats.filterend;
    int32_t room = FILTERSIZE - formats.filterend;
    if (room < 2) return false;
    bool whole = !xzstrncpyu(at, text, room);
    if (expand) expandtokens(at, room);
    formats.filterend += static_cast<int32_t>(strlen(at)) + 1;
    return whole;
}

} // namespace

void savefilterset(int32_t count, const savefilter *table, int32_t *currentindex)
{
    formats.armed = {count, table, currentindex};
}

void savefilteradd(int32_t index, int32_t type, const char *description)
{
    char pattern[EXTENSIONSIZE + 2] = "*.";
    filetypetext(type, pattern + 2, EXTENSIONSIZE);
    if (!index) formats.filterend = 0;
    bool whole = append(description, true);
    whole = append(pattern, false) && whole;
    if (formats.filterend > FILTERSIZE - 2 || !whole) {
        trace("savefilterbuffer overrun");
        formats.filterend = FILTERSIZE - 2;
    }
    memset(savechoice.filter + formats.filterend, 0, 2);
}

void savefilterbuild(char *path, int32_t defaulttype, savehandler handler)
{
    savechoice.handler = handler;
    savechoice.filterindex = 1;
    savechoice.type = defaulttype;
    formats.shown = formats.armed;
    formats.armed = {};
    if (formats.shown.count <= 0) {
        savefilteradd(0, defaulttype, filetypedescription(defaulttype));
        return;
    }
    int32_t current = *formats.shown.currentindex;
    if (current < 0 || current >= formats.shown.count) current = 0;
    for (int32_t row = 0; row < formats.shown.count; row++)
        savefilteradd(row, formattype(row, nullptr, 0), formats.shown.rows[row].description);
    savefilterchange(current + 1, path, PATHSIZE);
}

void savefilterchange(int32_t filterindex, char *name, int32_t size)
{
    int32_t row = filterindex - 1;
    if (row < 0 || row >= formats.shown.count) return;
    savechoice.filterindex = filterindex;
    savechoice.type = formattype(row, name, size);
    *formats.shown.currentindex = row;
}

errorblock *savefilterdone(const char *chosen, char *path, int32_t size)
{
    // The handler may change the caller's path.
    char extension[EXTENSIONSIZE], copy[PATHSIZE];
    filetypetext(savechoice.type, extension, sizeof extension);
    errorblock *err = xzstrncpyu(copy, chosen, sizeof copy);
    if (!err) err = pathsetext(copy, extension);
    if (!err) err = xzstrncpyu(path, copy, size);
    if (!err && savechoice.handler) err = savechoice.handler(copy, savechoice.type);
    return err;
}
