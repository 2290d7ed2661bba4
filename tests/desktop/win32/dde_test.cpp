// Conversations with another program, each side begun by either.
#include "desktop/dde.h"

#include "base/errors.h"
#include "base/filetypes.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/task.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

#include <dde.h>

#include <cstring>

namespace
{

const std::string RELEASED("\0\x20\1\0", 4), KEPT("\0\0\1\0", 4), ANSWERED("\0\xA0\1\0", 4);

// The other program: a window by plain calls of the system, which writes down what it
// hears, behind a '<'.
struct stranger {
    HWND self =
        CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    HWND server = nullptr; // who answered its question last
    int refuses = 99;      // so many questions, before it answers one
    bool asking = false;

    stranger();
    ~stranger()
    {
        if (self) DestroyWindow(self);
    }
    std::string heard()
    {
        drivepump();
        sendmessage(TASKRUN, 0, 0); // a load waits for the poll
        return taken();
    }
    std::string asks(const char *app, const char *topic)
    {
        ATOM appatom = *app ? GlobalAddAtomA(app) : 0, atom = *topic ? GlobalAddAtomA(topic) : 0;
        asking = true;
        SendMessageTimeoutA(HWND_BROADCAST, WM_DDE_INITIATE, reinterpret_cast<WPARAM>(self),
                            MAKELPARAM(appatom, atom), SMTO_NORMAL, 3000, nullptr);
        asking = false;
        return heard();
    }
    std::string ends()
    {
        PostMessageA(server, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(self), 0);
        return heard();
    }
    // A block of just these bytes.
    std::string sends(UINT message, const std::string &bytes)
    {
        HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
        memcpy(GlobalLock(block), bytes.data(), bytes.size());
        GlobalUnlock(block);
        auto word = reinterpret_cast<UINT_PTR>(block);
        bool command = message == WM_DDE_EXECUTE;
        LPARAM packed =
            PackDDElParam(message, command ? 0 : word, command ? word : GlobalAddAtomA("Item"));
        PostMessageA(server, message, reinterpret_cast<WPARAM>(self), packed);
        return heard();
    }
};

LRESULT CALLBACK strangerhears(HWND self, UINT message, WPARAM wparam, LPARAM lparam)
{
    auto *s = reinterpret_cast<stranger *>(GetWindowLongPtrA(self, GWLP_USERDATA));
    auto other = reinterpret_cast<HWND>(wparam);
    UINT_PTR status = 0, item = 0; // or a block
    const char *bytes;
    char name[64] = "";
    switch (message) {
    case WM_DDE_INITIATE:
        if (other == self || s->refuses-- > 0) return 0;
        s->server = other;
        SendMessageA(other, WM_DDE_ACK, reinterpret_cast<WPARAM>(self),
                     MAKELPARAM(GlobalAddAtomA("Words"), GlobalAddAtomA("Lists")));
        return 0;
    case WM_DDE_ACK:
        if (s->asking) {
            s->server = other;
            said("<yes;");
            return 0;
        }
        UnpackDDElParam(message, lparam, &status, &item);
        FreeDDElParam(message, lparam);
        said("<ack %x;", static_cast<unsigned>(status));
        return 0;
    case WM_DDE_POKE:
    case WM_DDE_DATA:
        UnpackDDElParam(message, lparam, &status, &item);
        FreeDDElParam(message, lparam);
        bytes = static_cast<const char *>(GlobalLock(reinterpret_cast<HGLOBAL>(status)));
        GlobalGetAtomNameA(static_cast<ATOM>(item), name, sizeof name);
        said("<%x %02x%02x %s %s;", message, bytes[1], bytes[2], name, bytes + 4);
        GlobalFree(reinterpret_cast<HGLOBAL>(status));
        return 0;
    case WM_DDE_TERMINATE:
        said("<end;");
        return 0;
    }
    return DefWindowProcA(self, message, wparam, lparam);
}

stranger::stranger()
{
    SetWindowLongPtrA(self, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrA(self, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(strangerhears));
}

ddeconversation *last;

// Events: 1 begun, 2 ended, 3 a poke, 4 data.
errorblock *told(ddeconversation *conversation, intptr_t data, int32_t event, const char *text,
                 int32_t length)
{
    last = conversation;
    said("%d", event);
    if (data) said(" data %d", static_cast<int>(data));
    if (text) said(" %.90s %d", text, length);
    said(";");
    return nullptr;
}

errorblock *load(const char *name, int32_t, intptr_t, intptr_t)
{
    said("open %s;", name);
    return nullptr;
}

struct service {
    library started;
    stranger other;

    service()
    {
        REQUIRE_FALSE(ddestart("Testing"));
        ddesetcallback(told);
    }
    ~service()
    {
        CHECK_FALSE(ddeend());
    }
    // One that we begin, 0 if nobody answers.
    ddeconversation *opened()
    {
        ddeconversation *conversation = nullptr;
        CHECK_FALSE(
            ddeopen(taskwindow(WS_POPUP), "Lists", "Words", nullptr, told, 17, &conversation));
        return conversation;
    }
};

} // namespace

TEST_CASE("questions are answered by name and topic; commands, pokes and data are told")
{
    service on;
    stranger &s = on.other;
    const char *names[][3] = {{"tESTING", "sYSTEM", "<yes;1;"},
                              {"Testing", "", "<yes;1;"},
                              {"", "", "<yes;1;"},
                              {"Other", "System", ""},
                              {"Testing", "Other", ""},
                              {"", "System", ""},
                              {"Other", "", ""}};
    for (const auto &[app, topic, answer] : names) {
        CHECK(s.asks(app, topic) == answer);
        if (*answer) CHECK(s.ends() == "2;<end;");
    }
    addloadhandler(FILETYPEDATA, load);
    CHECK(s.asks("Testing", "System") == "<yes;1;");
    CHECK(s.asks("Testing", "System") == "<yes;"); // the same conversation
    const struct {
        UINT message;
        std::string bytes, told;
    } rows[] = {{WM_DDE_EXECUTE, std::string("[open(\"a b\")]\0more", 18), "<ack 8000;open a b;"},
                {WM_DDE_EXECUTE, "[open(\"g\")]", "<ack 8000;open g;"}, // no zero in its block
                {WM_DDE_POKE, RELEASED + "unended", "3 unended 8;<ack 8000;"},
                {WM_DDE_POKE, KEPT + std::string("end\0more", 8), "3 end 4;<ack 8000;"},
                {WM_DDE_DATA, ANSWERED + "words", "4 words 6;<ack 8000;"},
                {WM_DDE_DATA, RELEASED + "words", "4 words 6;"}};
    for (const auto &r : rows)
        CHECK(s.sends(r.message, r.bytes) == r.told);
    // A word in the name of all windows goes to none.
    PostMessageA(s.server, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(HWND_BROADCAST), 0);
    CHECK(s.heard() == "");
    CHECK(s.ends() == "2;<end;");
    remloadhandler(FILETYPEDATA, load);
}

TEST_CASE("windows with the flag answer too; a conversation ends once, by either, or by a death")
{
    service on;
    stranger &s = on.other, other;
    window answers = taskwindow(WS_POPUP);
    REQUIRE_FALSE(setflags(answers, WINDOWDDE, 0));
    taskwindow(WS_POPUP); // silent
    CHECK(s.asks("Testing", "System") == "<yes;1;<yes;1;");
    CHECK_FALSE(deletewindow(answers));
    CHECK(s.heard() == "2;<end;");
    CHECK_FALSE(ddeclose(last)); // gone with its window
    DestroyWindow(s.self);
    s.self = nullptr;
    CHECK(other.asks("Testing", "System") == "2;<yes;1;");
    CHECK_FALSE(ddeclose(last));
    CHECK(other.heard() == "<end;");
}

TEST_CASE("a conversation that we begin, with a program that is there or not")
{
    service on;
    stranger &s = on.other;
    CHECK_FALSE(on.opened()); // nobody answers
    s.refuses = 0;
    ddeconversation *conversation = on.opened();
    REQUIRE(conversation);
    CHECK((conversation->flags & DDEOURS));
    CHECK(s.heard() == "");
    CHECK_FALSE(ddepoke(conversation, "words", 6, 0x31, "Item"));
    CHECK_FALSE(ddedata(conversation, "back", 5, 0x32, "Other"));
    CHECK(s.heard() == "<3e7 2031 Item words;<3e5 2032 Other back;");
    CHECK(s.sends(WM_DDE_DATA, ANSWERED + "words") == "4 data 17 words 6;<ack 8000;");
    CHECK(s.ends() == "2 data 17;<end;");
    CHECK_FALSE(ddeclose(conversation)); // gone: nothing happens

    s.refuses = 99;
    const errorblock *err = ddeopen(taskwindow(WS_POPUP), "Lists", "Words",
                                    "C:\\no such program.exe", told, 0, &conversation);
    CHECK((err && std::string(err->text).find("no such program.exe") != std::string::npos));
    CHECK(conversation == nullptr);
}
