#include "desktop/win32/rowpaint.h"

#include "base/flex.h"
#include "base/numbers.h"
#include "base/text.h"
#include "desktop/filters.h"
#include "desktop/validation.h"

#include <cstring>

namespace
{

constexpr int32_t BEFOREPICTURE = 4, BEHINDPICTURE = 20;
constexpr int FIELD = 512; // the most that a combo box itself shows

void drawtext(const DRAWITEMSTRUCT *item, int32_t x, const char *text)
{
    TEXTMETRICA metrics;
    GetTextMetricsA(item->hDC, &metrics);
    int32_t y = (item->rcItem.top + item->rcItem.bottom - metrics.tmHeight) / 2;
    ExtTextOutA(item->hDC, x, y, ETO_CLIPPED, &item->rcItem, text,
                static_cast<UINT>(std::strlen(text)), nullptr);
}

void drawicon(const DRAWITEMSTRUCT *item, int32_t x, const char *name)
{
    HANDLE icon = LoadImageA(GetModuleHandleA(nullptr), name, IMAGE_ICON, ROWHEIGHT, ROWHEIGHT, 0);
    if (!icon) return;
    int32_t y = (item->rcItem.top + item->rcItem.bottom - ROWHEIGHT) / 2;
    DrawIconEx(item->hDC, x, y, static_cast<HICON>(icon), ROWHEIGHT, ROWHEIGHT, 0, nullptr,
               DI_NORMAL);
    DestroyIcon(static_cast<HICON>(icon));
}

void drawtokens(const DRAWITEMSTRUCT *item, const char *string)
{
    char value[VALIDATIONSIZE], letter;
    int32_t x = item->rcItem.left;
    while ((string = nexttoken(string, &letter, value))) {
        switch (letter) {
        case 's':
            drawtext(item, x, value);
            break;
        case 'i':
            drawicon(item, x + BEFOREPICTURE, value);
            x += BEFOREPICTURE + BEHINDPICTURE;
            break;
        case 't':
            x += numberparse(value, nullptr);
            break;
        }
    }
}

// The system copies without a limit, so a text is got whole and cut here.
void rowstring(const DRAWITEMSTRUCT *item, const rowtexts &texts, char *buffer)
{
    void *whole = nullptr;
    LRESULT size = SendMessageA(item->hwndItem, texts.length, item->itemID, 0);
    if (size <= 0 || heap_alloc(&whole, static_cast<int32_t>(size) + 1)) return;
    SendMessageA(item->hwndItem, texts.text, item->itemID, reinterpret_cast<LPARAM>(whole));
    strcopyn(buffer, static_cast<const char *>(whole), VALIDATIONSIZE);
    heap_free(&whole);
}

void drawrow(const DRAWITEMSTRUCT *item, const rowtexts &texts)
{
    constexpr UINT PAINTS = ODA_DRAWENTIRE | ODA_SELECT | ODA_FOCUS;
    if (!(item->itemAction & PAINTS)) return;
    bool selected = item->itemState & ODS_SELECTED;
    int behind = selected ? COLOR_HIGHLIGHT : COLOR_WINDOW;
    int saved = SaveDC(item->hDC);
    SetBkMode(item->hDC, TRANSPARENT);
    SetTextColor(item->hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT));
    FillRect(item->hDC, &item->rcItem, GetSysColorBrush(behind));
    char string[VALIDATIONSIZE] = "";
    if (item->itemState & ODS_COMBOBOXEDIT)
        GetWindowTextA(item->hwndItem, string, FIELD);
    else
        rowstring(item, texts, string);
    drawtokens(item, string);
    RestoreDC(item->hDC, saved);
}

} // namespace

bool rowmessage(const systemmessage *message, int32_t icon, const rowtexts &texts)
{
    if (message->message == WM_DRAWITEM) {
        auto *item = reinterpret_cast<const DRAWITEMSTRUCT *>(message->lparam);
        if (static_cast<int32_t>(item->CtlID) != icon) return false;
        drawrow(item, texts);
        return true;
    }
    auto *item = reinterpret_cast<MEASUREITEMSTRUCT *>(message->lparam);
    if (message->message != WM_MEASUREITEM || static_cast<int32_t>(item->CtlID) != icon)
        return false;
    item->itemHeight = ROWHEIGHT;
    return true;
}

int32_t rowcommand(const systemmessage *message, int32_t icon)
{
    bool mine =
        message->message == WM_COMMAND && message->lparam && LOWORD(message->wparam) == icon;
    return mine ? HIWORD(message->wparam) : -1;
}

static constexpr UINT FILTERED[] = {WM_COMMAND, WM_DRAWITEM, WM_MEASUREITEM};

errorblock *rowfilters(window w, void *record, filterfunction function)
{
    errorblock *err = nullptr;
    for (UINT message : FILTERED)
        if (!err) err = addfilter(function, message, w, reinterpret_cast<intptr_t>(record));
    return err;
}

errorblock *rowunfilter(window w, void *record, filterfunction function)
{
    for (UINT message : FILTERED)
        remfilter(function, message, w, reinterpret_cast<intptr_t>(record));
    return nullptr;
}
