// Conversations between two programs, each side begun by either.
#include "desktop/dde.h"

#include "base/errors.h"
#include "base/filetypes.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/stages.h"
#include "desktop/task.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/partner.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <dde.h>

#include <cstring>
#include <functional>
#include <string>

namespace
{

std::string seen;
ddeconversation *last;
std::function<void(ddeconversation *)> onevent;

errorblock *told(ddeconversation *conversation, intptr_t data, int32_t event, const char *text,
                 int32_t length)
{
    last = conversation;
    seen += std::to_string(event);
    if (data) seen += " data " + std::to_string(data);
    if (text) seen += " " + std::string(text) + " " + std::to_string(length);
    seen += ";";
    if (onevent) onevent(conversation);
    return nullptr;
}

errorblock *load(const char *name, int32_t, intptr_t, intptr_t)
{
    seen += "open " + std::string(name) + ";";
    return nullptr;
}

errorblock *print(intptr_t *record, int *)
{
    auto *printer = reinterpret_cast<const char *>(record[12]);
    seen += "print " + std::string(reinterpret_cast<const char *>(record[11])) +
            (printer ? " to " + std::string(printer) : "") + ";";
    return nullptr;
}

std::string taken()
{
    drivepump(50);
    std::string text;
    text.swap(seen);
    return text;
}

struct service {
    service()
    {
        seen.clear();
        onevent = nullptr;
        REQUIRE(inittemp() == nullptr);
        REQUIRE(blockstart() == nullptr);
        REQUIRE(ddestart("Testing") == nullptr);
        ddesetcallback(told);
    }
    ~service()
    {
        CHECK(ddeend() == nullptr);
        blockend();
    }
};

// A conversation with us that another program has begun.
struct begun : service {
    partnerprogram partner;
    begun()
    {
        REQUIRE(partner.ask("initiate Testing System") == "1");
        CHECK(taken() == "1;");
    }
};

// One that we begin, 0 if nobody answers.
ddeconversation *opened(const hiddenwindow &w, const char *app, const char *topic,
                        const char *program = nullptr, intptr_t data = 0)
{
    ddeconversation *conversation = nullptr;
    REQUIRE(ddeopen(w.w, topic, app, program, told, data, &conversation) == nullptr);
    return conversation;
}

} // namespace

TEST_CASE("a question is answered by name and topic, whatever their case")
{
    service on;
    partnerprogram partner;
    for (const char *question : {"Testing System", "tESTING sYSTEM", "Testing -", "- -"}) {
        CHECK_MESSAGE(partner.ask("initiate " + std::string(question)) == "1", question);
        CHECK(taken() == "1;");
        CHECK(partner.ask("terminate") == "terminated");
        CHECK(taken() == "2;");
    }
    for (const char *question : {"Other System", "Testing Other", "- System", "Other -"})
        CHECK_MESSAGE(partner.ask("initiate " + std::string(question)) == "0", question);
    CHECK(taken().empty());
}

TEST_CASE("windows with the flag answer too, no others, and none while the service is off")
{
    partnerprogram partner;
    {
        service on;
        hiddenwindow answers(WINDOWDDE), silent;
        CHECK(partner.ask("initiate Testing System") == "2");
        CHECK(taken() == "1;1;");
        CHECK(partner.ask("initiate Testing System") == "2"); // again: the same conversations
        CHECK(taken().empty());
    }
    REQUIRE(blockstart() == nullptr);
    {
        hiddenwindow w(WINDOWDDE);
        CHECK(partner.ask("initiate - -") == "0");
        CHECK(opened(w, "a", "t") == nullptr);
    }
    blockend();
}

TEST_CASE("commands are carried out and acknowledged, whatever they are")
{
    service on;
    partnerprogram partner;
    addloadhandler(FILETYPEDATA, load);
    addbroadcasthandler(print, BROADCASTPRINT);
    ddesetcallback(nullptr); // commands need none
    REQUIRE(partner.ask("initiate Testing System") == "1");
    struct {
        const char *line, *done;
    } commands[] = {
        {"execute [open(\"a b\")][print(\"c\")]", "print c;open a b;"},
        {"execute printto(\"d\",\"LPT1:\")", "print d to LPT1:;"},
        {"execute [nonsense(\"e\")] then nothing", ""},
        {"execute [open(\"f\"", ""},
        {"execute ", ""},
        {"unended [print(\"g\")]", "print g;"}, // no zero in its block
    };
    for (const auto &command : commands) {
        INFO(std::string(command.line));
        CHECK(partner.ask(command.line) == "ack 8000");
        sendmessage(TASKRUN, 0, 0); // a load waits for the poll
        CHECK(taken() == command.done);
    }
    CHECK(partner.ask("terminate") == "terminated");
    CHECK(taken().empty());
}

TEST_CASE("pokes and data are told, and answered where that is asked for")
{
    begun b;
    struct {
        const char *line, *answer, *told;
    } rows[] = {
        {"poke 2000 Item some words", "ack 8000", "3 some words 11;"},
        {"poke 0 Item kept by its owner", "ack 8000", "3 kept by its owner 18;"},
        {"poke 2000 Item ", "ack 8000", "3  1;"},
        {"data A000 Item with answer", "ack 8000", "4 with answer 12;"},
        {"data 2000 Item without", "none", "4 without 8;"},
    };
    for (const auto &row : rows) {
        INFO(std::string(row.line));
        CHECK(b.partner.ask(row.line) == row.answer);
        CHECK(taken() == row.told);
    }
    // Some systems already refuse to post what makes no sense.
    for (const char *block : {"short", "null"}) {
        std::string answer = b.partner.ask("poke 2000 Item " + std::string(block));
        CHECK_MESSAGE((answer == "ack 0" || answer == "unposted"), answer);
    }
    CHECK(taken().empty());

    // Where nobody hears of it.
    partnerprogram unheard;
    ddesetcallback(nullptr);
    REQUIRE(unheard.ask("initiate Testing System") == "1");
    CHECK(unheard.ask("poke 2000 Item words") == "ack 8000");
    CHECK(unheard.ask("terminate") == "terminated");
    CHECK(taken().empty());
}

TEST_CASE("a block without a header, or without an end, is not read past its end")
{
    service on;
    hiddenwindow w;
    ddeconversation *conversation = opened(w, "Testing", "System");
    REQUIRE(conversation != nullptr);
    taken();
    auto poke = [&](const std::string &bytes, const char *expected) {
        HGLOBAL block = nullptr;
        if (!bytes.empty()) {
            block = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
            memcpy(GlobalLock(block), bytes.data(), bytes.size());
            GlobalUnlock(block);
        }
        PostMessageA(
            reinterpret_cast<HWND>(conversation->server), WM_DDE_POKE, static_cast<WPARAM>(w.w),
            PackDDElParam(WM_DDE_POKE, reinterpret_cast<UINT_PTR>(block), GlobalAddAtomA("Item")));
        CHECK(taken() == expected);
    };
    const std::string header("\0\x20\1\0", 4);
    poke("", "");
    poke(header.substr(0, 3), "");
    poke(header, "3  1;");
    poke(header + "unended", "3 unended 8;");
    poke(header + std::string("end\0more", 8), "3 end 4;");
    poke(header + std::string(100000, 'x'), ("3 " + std::string(100000, 'x') + " 100001;").c_str());
}

TEST_CASE("messages that should have been posted are not taken when sent")
{
    begun b;
    // A block of ours, as a stranger might guess it.
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 16);
    char word[32];
    snprintf(word, sizeof word, "%zx", reinterpret_cast<size_t>(block));
    for (const char *message : {"3E4", "3E5", "3E7", "3E8"}) // acknowledge, data, poke, execute
        CHECK(b.partner.ask("send " + std::string(message) + " " + word) == "ok");
    CHECK(GlobalSize(block) >= 16); // it is still there
    GlobalFree(block);
    CHECK(taken().empty());
    CHECK(b.partner.ask("poke 2000 Item still here") == "ack 8000");
    CHECK(taken() == "3 still here 11;");
}

TEST_CASE("a word in the name of all windows goes to none")
{
    begun b;
    PostMessageA(reinterpret_cast<HWND>(last->server), WM_DDE_TERMINATE,
                 reinterpret_cast<WPARAM>(HWND_BROADCAST), 0);
    CHECK(taken().empty());
    CHECK(b.partner.ask("terminated") == "no");
}

TEST_CASE("a conversation is ended once, and a new one at once is another")
{
    begun b;
    ddeconversation *conversation = last;
    CHECK(ddeclose(conversation) == nullptr);
    CHECK(ddeclose(conversation) == nullptr); // closed already
    CHECK(b.partner.ask("terminated") == "yes");
    CHECK(taken().empty());

    // The word about the old one doesn't end the new one.
    REQUIRE(b.partner.ask("initiate Testing System") == "1");
    CHECK(taken() == "1;");
    CHECK(ddeclose(last) == nullptr);
    REQUIRE(b.partner.ask("initiate Testing System") == "1");
    CHECK(taken() == "1;");
    CHECK(b.partner.ask("poke 2000 Item words") == "ack 8000");
    CHECK(taken() == "3 words 6;");
}

TEST_CASE("a callback may end its conversation, and its window")
{
    service on;
    partnerprogram partner;
    hiddenwindow other(WINDOWDDE);
    onevent = [](ddeconversation *c) { ddeclose(c); };
    REQUIRE(partner.ask("initiate Testing System") == "2");
    CHECK(taken() == "1;1;");
    REQUIRE(partner.ask("initiate Testing System") == "2");
    onevent = [](ddeconversation *c) {
        onevent = nullptr;
        deletewindow(c->server);
    };
    CHECK(taken() == "1;1;");
    REQUIRE(partner.ask("terminate") != "silent");
    taken();
}

TEST_CASE("a window that goes ends its conversations, and so does the program")
{
    service on;
    partnerprogram partner;
    {
        hiddenwindow w(WINDOWDDE);
        REQUIRE(partner.ask("initiate Testing System") == "2");
        CHECK(taken() == "1;1;");
    }
    CHECK(taken() == "2;");
    CHECK(partner.ask("terminated") == "yes");
    REQUIRE(partner.ask("initiate Testing System") == "1");
    CHECK(broadcast(BROADCASTQUIT) == 1);
    CHECK(taken() == "2;");
    CHECK(partner.ask("initiate Testing System") == "0");
}

TEST_CASE("a partner that dies is noticed when the next conversation begins")
{
    partnerprogram next;
    begun b;
    b.partner.kill();
    CHECK(ddedata(last, "x", 2, 1, "Item") != nullptr);
    taken();
    REQUIRE(next.ask("initiate Testing System") == "1");
    CHECK(taken() == "2;1;");
}

TEST_CASE("a conversation that we begin")
{
    service on;
    partnerprogram partner;
    hiddenwindow w;
    REQUIRE(partner.ask("serve Words Lists") == "ok");
    ddeconversation *conversation = opened(w, "Words", "Lists", nullptr, 17);
    REQUIRE(conversation != nullptr);
    CHECK(conversation->client == w.w);
    CHECK((conversation->flags & DDEOURS) != 0);
    CHECK(taken().empty());

    CHECK(ddepoke(conversation, "words", 6, 1, "Item") == nullptr);
    drivepump(50);
    CHECK(partner.ask("received") == "poke Item 00200100776f72647300");
    CHECK(ddedata(conversation, "\1\2", 2, 8, "Other") == nullptr);
    drivepump(50);
    CHECK(partner.ask("received").find("data Other 002008000102") == 0);
    CHECK(ddepoke(conversation, "", 0, 1, std::string(300, 'x').c_str()) != nullptr);
    CHECK(ddepoke(conversation, "", -1, 1, "Item") != nullptr);

    CHECK(partner.ask("data A000 Item words") == "ack 8000");
    CHECK(taken() == "4 data 17 words 6;");
    CHECK(partner.ask("terminate") == "terminated");
    CHECK(taken() == "2 data 17;");
    CHECK(ddeclose(conversation) == nullptr); // gone: nothing happens
}

TEST_CASE("the first that answers is kept, and the others are let go")
{
    service on;
    partnerprogram first, second;
    hiddenwindow w;
    first.ask("serve Words Lists");
    second.ask("serve Words Lists");
    ddeconversation *conversation = opened(w, "Words", "Lists");
    REQUIRE(conversation != nullptr);
    drivepump(50);
    int left = (first.ask("terminated") == "yes") + (second.ask("terminated") == "yes");
    CHECK(left == 1);
    CHECK(ddeclose(conversation) == nullptr);
    CHECK(first.ask("terminated") == "yes");
    CHECK(second.ask("terminated") == "yes");
    CHECK(taken().empty());
}

TEST_CASE("a program that isn't there is started, and asked again")
{
    service on;
    hiddenwindow w;
    CHECK(opened(w, "Words", "Lists") == nullptr); // nobody answers
    ddeconversation *conversation = nullptr;
    errorblock *err =
        ddeopen(w.w, "Lists", "Words", "C:\\no such program.exe", told, 0, &conversation);
    REQUIRE(err != nullptr);
    CHECK(std::string(err->text).find("no such program.exe") != std::string::npos);
    CHECK(conversation == nullptr);

    conversation = opened(w, "Words", "Lists", partnerpath().c_str());
    REQUIRE(conversation != nullptr);
    CHECK(ddepoke(conversation, "words", 6, 1, "Item") == nullptr);
    CHECK(taken().empty());
    window server = conversation->server;
    CHECK(ddeclose(conversation) == nullptr);
    CHECK(drivewait([&] { return !IsWindow(reinterpret_cast<HWND>(server)); }));
}

TEST_CASE("a task talks to itself")
{
    service on;
    hiddenwindow w;
    ddeconversation *conversation = opened(w, "Testing", "System", nullptr, 5);
    REQUIRE(conversation != nullptr);
    CHECK(taken() == "1;");
    CHECK(ddepoke(conversation, "hello", 6, 1, "Item") == nullptr);
    CHECK(taken() == "3 hello 6;");
    CHECK(ddedata(last, "back", 5, 1, "Item") == nullptr);
    CHECK(taken() == "4 data 5 back 5;");
    CHECK(ddeclose(conversation) == nullptr);
    CHECK(taken() == "2;");
}
