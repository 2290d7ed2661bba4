// Both ends of a conversation between programs. As a server the demonstration
// answers every text with the same text turned round; as a client it talks to
// any program by its name, at first to itself.
#include "base/syserr.h"
#include "desktop/clipboard.h"
#include "desktop/dde.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "tools/deskdemo/deskdemo.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace
{

constexpr int32_t CLOSE = 2, CONNECT = 3, SEND = 4, END = 5, PROGRAM = 10, TEXT = 11, HEARD = 12;
constexpr int32_t TEXTSIZE = 128;
constexpr char TOPIC[] = "system", ITEM[] = "text";

struct {
    window self;
    ddeconversation *conversation; // of the client; 0 for none
} talk;

// The server's side. It has no window: it answers while the program runs.
errorblock *answer(ddeconversation *with, intptr_t, int32_t event, const char *text, int32_t)
{
    char turned[TEXTSIZE];
    if (event != DDEPOKED) return nullptr;
    snprintf(turned, sizeof turned, "%s", text);
    std::reverse(turned, turned + strlen(turned));
    return ddedata(with, turned, static_cast<int32_t>(strlen(turned)) + 1, CLIPTEXT, ITEM);
}

errorblock *buttonsshade()
{
    bool on = talk.conversation;
    errorblock *err = seticonshaded(talk.self, CONNECT, on);
    if (!err) err = seticonshaded(talk.self, SEND, !on);
    if (!err) err = seticonshaded(talk.self, END, !on);
    return err;
}

// The client's side.
errorblock *heard(ddeconversation *, intptr_t, int32_t event, const char *text, int32_t)
{
    if (event == DDEARRIVED) return seticontext(talk.self, HEARD, text);
    if (event != DDEENDED) return nullptr;
    logline("The other program has ended the conversation");
    talk.conversation = nullptr;
    return buttonsshade();
}

errorblock *connect()
{
    char program[TEXTSIZE];
    errorblock *err = copyicontext(talk.self, PROGRAM, program, sizeof program);
    if (!err) err = ddeopen(talk.self, TOPIC, program, nullptr, heard, 0, &talk.conversation);
    if (!err && !talk.conversation) logline("{DEMONOTALK}");
    return err ? err : buttonsshade();
}

errorblock *send()
{
    char text[TEXTSIZE];
    errorblock *err = copyicontext(talk.self, TEXT, text, sizeof text);
    return err ? err
               : ddepoke(talk.conversation, text, static_cast<int32_t>(strlen(text)) + 1, CLIPTEXT,
                         ITEM);
}

errorblock *disconnect()
{
    errorblock *err = talk.conversation ? ddeclose(talk.conversation) : nullptr;
    talk.conversation = nullptr;
    return err;
}

errorblock *click(window, intptr_t, mouserecord *mouse)
{
    if (mouse->icon == CONNECT) return connect();
    if (mouse->icon == SEND) return send();
    if (mouse->icon == CLOSE) talkend();
    if (mouse->icon != END) return nullptr;
    errorblock *err = disconnect();
    return err ? err : buttonsshade();
}

errorblock *key(window, intptr_t, int32_t, int32_t *code)
{
    if (*code != KEYESCAPE) return nullptr;
    *code = KEYCLAIMED;
    talkend();
    return nullptr;
}

errorblock *closed(window, intptr_t)
{
    talkend();
    return nullptr;
}

errorblock *handlersadd(window w)
{
    errorblock *err = addclickhandler(click, w, 0);
    if (!err) err = addkeyhandler(key, w, 0);
    if (!err) err = addclosehandler(closed, w, 0);
    return err;
}

void handlersremove(window w)
{
    remclosehandler(closed, w, 0);
    remkeyhandler(key, w, 0);
    remclickhandler(click, w, 0);
}

} // namespace

errorblock *talkopen()
{
    if (talk.self) return raisewindow(talk.self, 0, nullptr);
    ddesetcallback(answer);
    errorblock *err = createchild(TEMPLATETALK, &talk.self, demowindow);
    if (!err) err = handlersadd(talk.self);
    if (!err) err = seticontext(talk.self, PROGRAM, "DeskDemo");
    if (!err) err = seticontext(talk.self, TEXT, "drawer");
    if (!err) err = buttonsshade();
    if (!err) err = opencentred(talk.self, 7);
    if (!err) err = caretatend(talk.self, TEXT);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    talkend();
    return firsterror(kept, nullptr);
}

void talkend()
{
    if (!talk.self) return;
    disconnect();
    handlersremove(talk.self);
    removewindow(&talk.self);
}
