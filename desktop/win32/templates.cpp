#include "desktop/templates.h"

#include "base/flex.h"
#include "base/syserr.h"
#include "base/trace.h"
#include "desktop/stages.h"
#include "desktop/templatechain.h"
#include "desktop/wdata.h"
#include "desktop/windows.h"
#include "graphics/win32/windowhandle.h"
#include "resources/identifiers.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cstring>

namespace
{

errorblock *resourcefind(templaterow *row)
{
    HMODULE module = GetModuleHandleA(nullptr);
    HRSRC place = FindResourceA(module, row->name, RT_DIALOG);
    if (!place) return syserrname("FindResource", row->name);
    HGLOBAL loaded = LoadResource(module, place);
    if (!loaded) return syserrname("LoadResource", row->name);
    row->resource = LockResource(loaded);
    return row->resource ? nullptr : syserrname("LockResource", row->name);
}

errorblock *resourcesfind(templaterow *table)
{
    errorblock *err = nullptr;
    for (templaterow *row = table; row->number && !err; row++)
        err = resourcefind(row);
    return err;
}

// A table of all dialogs, as it grows.
struct dialoglist {
    void *rows;
    int32_t count; // the empty row at the end left out
    errorblock *err;
};

constexpr int32_t ROWCHUNK = 128;

templaterow *rowsof(const dialoglist &list)
{
    return static_cast<templaterow *>(list.rows);
}

void rowsfree(templaterow *table)
{
    for (templaterow *row = table; row->number; row++) {
        void *name = const_cast<char *>(row->name);
        heap_free(&name);
    }
    void *rows = table;
    heap_free(&rows);
}

// Room for one more row, and an empty one behind it.
errorblock *rowmake(dialoglist *list)
{
    int32_t bytes = (list->count + 2) * static_cast<int32_t>(sizeof(templaterow));
    errorblock *err = heap_chunk(&list->rows, bytes, ROWCHUNK);
    if (!err) memset(rowsof(*list) + list->count, 0, 2 * sizeof(templaterow));
    return err;
}

errorblock *rowadd(dialoglist *list, const char *name)
{
    void *copy = nullptr;
    errorblock *err = heap_alloc(&copy, static_cast<int32_t>(strlen(name)) + 1);
    if (err) return err;
    strcpy(static_cast<char *>(copy), name);
    templaterow *row = rowsof(*list) + list->count;
    *row = {TEMPLATEUNNAMED + list->count, 0, nullptr, static_cast<char *>(copy)};
    list->count++;
    return rowmake(list);
}

// A resource without a name has a number, which a name can tell too.
BOOL CALLBACK dialogfound(HMODULE, LPCSTR, LPSTR name, LONG_PTR argument)
{
    auto *list = reinterpret_cast<dialoglist *>(argument);
    char number[16];
    if (IS_INTRESOURCE(name)) {
        snprintf(number, sizeof number, "#%u",
                 static_cast<unsigned>(reinterpret_cast<uintptr_t>(name)));
        name = number;
    }
    list->err = rowadd(list, name);
    return !list->err;
}

errorblock *alldialogs(templaterow **table)
{
    dialoglist list = {};
    errorblock *err = rowmake(&list);
    if (err) return err;
    EnumResourceNamesA(GetModuleHandleA(nullptr), RT_DIALOG, dialogfound,
                       reinterpret_cast<LONG_PTR>(&list));
    *table = rowsof(list);
    if (list.err) rowsfree(*table);
    return list.err;
}

// A made table is told by its numbers. One without a row is always made: what
// links an empty table of its own gains nothing by it.
bool made(const templaterow *table)
{
    return table->number >= TEMPLATEUNNAMED;
}

} // namespace

errorblock *addtemplates(const char *, const char *, templaterow *table, templatelink *link)
{
    errorblock *err = table ? nullptr : alldialogs(&table);
    if (err) return err;
    err = resourcesfind(table);
    if (!err) {
        templatelinked(table, link);
    } else if (made(table)) {
        rowsfree(table);
    }
    return err;
}

errorblock *remtemplates(templatelink *link)
{
    if (templateunlinked(link) && made(link->table)) rowsfree(link->table);
    *link = {};
    return nullptr;
}

// It leaves all messages to the window procedure of the template's class. With no
// dialog procedure at all the system would leave out messages of the start.
static INT_PTR CALLBACK dialogprocedure(HWND, UINT, WPARAM, LPARAM)
{
    trace("dialog proc");
    return 0;
}

static window dialogmake(const void *resource, window parent)
{
    SetLastError(0);
    wdataparent = parent;
    HWND dialog = CreateDialogIndirectParamA(GetModuleHandleA(nullptr),
                                             static_cast<const DLGTEMPLATE *>(resource),
                                             systemwindow(parent), dialogprocedure, 0);
    wdataparent = 0; // which a window that wasn't made left there
    return windowof(dialog);
}

// The system doesn't always say why.
static errorblock *dialogerror()
{
    constexpr char call[] = "CreateDialogIndirectParam";
    errorblock *err = syserr(call);
    return err ? err : syserrcode(ERROR_INVALID_DATA, call);
}

errorblock *createwindow(int32_t number, const char *title, window *w, window parent)
{
    const void *resource = nullptr;
    errorblock *err = findtemplate(number, &resource);
    if (err) return err;
    trace("create win parent %x tempno=%x", static_cast<unsigned>(parent),
          static_cast<unsigned>(number));
    window result = dialogmake(resource, parent);
    if (!result) return dialogerror();
    if (title) err = settitle(result, title);
    if (err) {
        kepterror kept = keeperror(err);
        deletewindow(result);
        return firsterror(kept, nullptr);
    }
    *w = result;
    return nullptr;
}

errorblock *createtop(int32_t number, window *w)
{
    return createwindow(number, nullptr, w, 0);
}

errorblock *createchild(int32_t number, window *w, window parent)
{
    return createwindow(number, nullptr, w, parent);
}

static templaterow librarytable[] = {
    {TEMPLATECONFIRM, 1, nullptr, "Confirm"},
    {TEMPLATEINFO, 1, nullptr, "Info"},
    {0, 0, nullptr, nullptr},
};
static templatelink librarylink;

// Templates hold controls that are there only once their library has started.
static void controlsstart()
{
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
}

errorblock *tasktemplates()
{
    controlsstart();
    return addtemplates(nullptr, "Templates", librarytable, &librarylink);
}
