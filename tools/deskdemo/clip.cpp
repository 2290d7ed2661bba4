// Copying and pasting. What is copied is only promised: the text is made when
// somebody asks for it.
#include "base/flex.h"
#include "base/syserr.h"
#include "desktop/clipboard.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "tools/deskdemo/deskdemo.h"

#include <cstdio>
#include <cstring>

namespace
{

constexpr int32_t CLOSE = 2, COPY = 3, PASTE = 4, TEXT = 10, HOLDS = 11;
constexpr int32_t TEXTSIZE = 256;

struct {
    window self;
    char copied[TEXTSIZE]; // while it is on offer, which may outlast the window
} clip;

errorblock *render(int32_t format)
{
    size_t size = strlen(clip.copied) + 1;
    void *block;
    logline("Format %d is asked for", static_cast<int>(format));
    errorblock *err = clipboardalloc(&block, static_cast<int32_t>(size));
    if (!err) memcpy(block, clip.copied, size);
    return err;
}

errorblock *lost()
{
    logline("The offer is over");
    return nullptr;
}

errorblock *copy()
{
    static const int32_t FORMATS[] = {CLIPTEXT, 0};
    errorblock *err = copyicontext(clip.self, TEXT, clip.copied, sizeof clip.copied);
    if (!err) err = clipboardoffer(FORMATS, render, lost, 0);
    return err;
}

// A block may be larger than its text, and needn't end it.
errorblock *paste()
{
    void *data;
    int32_t size;
    char text[TEXTSIZE];
    errorblock *err = clipboardpaste(CLIPTEXT, &data, &size);
    if (err) return err;
    snprintf(text, sizeof text, "%.*s", static_cast<int>(size), static_cast<char *>(data));
    heap_free(&data);
    err = seticontext(clip.self, TEXT, text);
    return err ? err : caretatend(clip.self, TEXT);
}

errorblock *holdsshow()
{
    void *list = nullptr;
    int32_t *formats, count = 0;
    errorblock *err = clipboardformats(&formats);
    if (err) return err;
    while (formats[count])
        count++;
    bool own = formats[0] == CLIPOWN;
    list = formats;
    heap_free(&list);
    return own ? seticontext(clip.self, HOLDS, "our own offer")
               : seticontextf(clip.self, HOLDS, "%d formats", static_cast<int>(count));
}

errorblock *click(window, intptr_t, mouserecord *mouse)
{
    errorblock *err = nullptr;
    if (mouse->icon == CLOSE) {
        clipend();
        return nullptr;
    }
    if (mouse->icon == COPY) err = copy();
    if (mouse->icon == PASTE) err = paste();
    return err ? err : holdsshow();
}

errorblock *key(window, intptr_t, int32_t, int32_t *code)
{
    if (*code != KEYESCAPE) return nullptr;
    *code = KEYCLAIMED;
    clipend();
    return nullptr;
}

errorblock *closed(window, intptr_t)
{
    clipend();
    return nullptr;
}

// Another program may have copied something meanwhile.
errorblock *activated(window, intptr_t, intptr_t, int32_t how)
{
    return how ? holdsshow() : nullptr;
}

errorblock *handlersadd(window w)
{
    errorblock *err = addclickhandler(click, w, 0);
    if (!err) err = addkeyhandler(key, w, 0);
    if (!err) err = addclosehandler(closed, w, 0);
    if (!err) err = addactivatehandler(activated, w, 0);
    return err;
}

void handlersremove(window w)
{
    remactivatehandler(activated, w, 0);
    remclosehandler(closed, w, 0);
    remkeyhandler(key, w, 0);
    remclickhandler(click, w, 0);
}

} // namespace

errorblock *clipopen()
{
    if (clip.self) return raisewindow(clip.self, 0, nullptr);
    errorblock *err = createchild(TEMPLATECLIP, &clip.self, demowindow);
    if (!err) err = seticonlimit(clip.self, TEXT, TEXTSIZE - 1);
    if (!err) err = handlersadd(clip.self);
    if (!err) err = opencentred(clip.self, 6);
    if (!err) err = setcaret(clip.self, TEXT, 0, 0, 0, 0);
    if (!err) err = holdsshow();
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    clipend();
    return firsterror(kept, nullptr);
}

void clipend()
{
    if (!clip.self) return;
    handlersremove(clip.self);
    removewindow(&clip.self);
}
