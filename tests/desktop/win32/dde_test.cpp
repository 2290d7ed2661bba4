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

TEST_CASE("windows with the flag answer too, and no others")
{
    service on;
    partnerprogram partner;
    hiddenwindow answers(WINDOWDDE), silent;
    CHECK(partner.ask("initiate Testing System") == "2");
    CHECK(taken() == "1;1;");
    CHECK(partner.ask("initiate Testing System") == "2"); // again: the same conversations
    CHECK(taken().empty());
}

TEST_CASE("nothing is answered while the service is off")
{
    partnerprogram partner;
    REQUIRE(blockstart() == nullptr);
    {
        hiddenwindow w(WINDOWDDE);
        CHECK(partner.ask("initiate - -") == "0");
        ddeconversation *conversation = nullptr;
        CHECK(ddeopen(w.w, "t", "a", nullptr, told, 0, &conversation) == nullptr);
        CHECK(conversation == nullptr);
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
    CHECK(partner.ask("execute [open(\"a b\")][print(\"c\")]") == "ack 8000");
    sendmessage(TASKRUN, 0, 0); // a load waits for the poll
    CHECK(taken() == "print c;open a b;");
    CHECK(partner.ask("execute printto(\"d\",\"LPT1:\")") == "ack 8000");
    CHECK(taken() == "print d to LPT1:;");
    CHECK(partner.ask("execute [nonsense(\"e\")] then nothing") == "ack 8000");
    CHECK(partner.ask("execute [open(\"f\"") == "ack 8000");
    CHECK(partner.ask("execute ") == "ack 8000");
    CHECK(taken().empty());
    CHECK(partner.ask("unended [print(\"g\")]") == "ack 8000"); // no zero in its block
    CHECK(taken() == "print g;");
    CHECK(partner.ask("terminate") == "terminated");
    CHECK(taken().empty());
}

TEST_CASE("pokes are told and always answered")
{
    service on;
    partnerprogram partner;
    REQUIRE(partner.ask("initiate Testing System") == "1");
    taken();
    CHECK(partner.ask("poke 2000 Item some words") == "ack 8000");
    CHECK(taken() == "3 some words 11;");
    CHECK(partner.ask("poke 0 Item kept by its owner") == "ack 8000");
    CHECK(taken() == "3 kept by its owner 18;");
    CHECK(partner.ask("poke 2000 Item ") == "ack 8000");
    CHECK(taken() == "3  1;");
    // Some systems already refuse to post what makes no sense.
    for (const char *block : {"short", "null"}) {
        std::string answer = partner.ask("poke 2000 Item " + std::string(block));
        CHECK_MESSAGE((answer == "ack 0" || answer == "unposted"), answer);
    }
    CHECK(taken().empty());
}

TEST_CASE("a block without a header, or without an end, is not read past its end")
{
    service on;
    hiddenwindow w;
    ddeconversation *conversation = nullptr;
    REQUIRE(ddeopen(w.w, "System", "Testing", nullptr, nullptr, 0, &conversation) == nullptr);
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

TEST_CASE("data is told, and answered where that is asked for")
{
    service on;
    partnerprogram partner;
    REQUIRE(partner.ask("initiate Testing System") == "1");
    taken();
    CHECK(partner.ask("data A000 Item with answer") == "ack 8000");
    CHECK(taken() == "4 with answer 12;");
    CHECK(partner.ask("data 2000 Item without") == "none");
    CHECK(taken() == "4 without 8;");
}

TEST_CASE("data of a stranger is answered, and told to nobody")
{
    service on;
    partnerprogram partner, stranger;
    REQUIRE(partner.ask("initiate Testing System") == "1");
    taken();
    ddesetcallback(nullptr);
    REQUIRE(stranger.ask("initiate Testing System") == "1");
    CHECK(stranger.ask("poke 2000 Item words") == "ack 8000");
    CHECK(stranger.ask("terminate") == "terminated");
    CHECK(taken().empty());
}

TEST_CASE("messages that should have been posted are not taken when sent")
{
    service on;
    partnerprogram partner;
    REQUIRE(partner.ask("initiate Testing System") == "1");
    taken();
    // A block of ours, as a stranger might guess it.
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 16);
    char word[32];
    snprintf(word, sizeof word, "%zx", reinterpret_cast<size_t>(block));
    for (const char *message : {"3E4", "3E5", "3E7", "3E8"}) // acknowledge, data, poke, execute
        CHECK(partner.ask("send " + std::string(message) + " " + word) == "ok");
    CHECK(GlobalSize(block) >= 16); // it is still there
    GlobalFree(block);
    CHECK(taken().empty());
    CHECK(partner.ask("poke 2000 Item still here") == "ack 8000");
    CHECK(taken() == "3 still here 11;");
}

TEST_CASE("a word in the name of all windows goes to none")
{
    service on;
    partnerprogram partner;
    REQUIRE(partner.ask("initiate Testing System") == "1");
    taken();
    PostMessageA(reinterpret_cast<HWND>(last->server), WM_DDE_TERMINATE,
                 reinterpret_cast<WPARAM>(HWND_BROADCAST), 0);
    drivepump(50);
    CHECK(partner.ask("terminated") == "no");
    CHECK(taken().empty());
}

TEST_CASE("either side ends a conversation, once")
{
    service on;
    partnerprogram partner;
    REQUIRE(partner.ask("initiate Testing System") == "1");
    taken();
    ddeconversation *conversation = last;
    CHECK(ddeclose(conversation) == nullptr);
    CHECK(ddeclose(conversation) == nullptr); // closed already
    CHECK(partner.ask("terminated") == "yes");
    CHECK(taken().empty());

    // At once a new one, which the word about the old one doesn't end.
    REQUIRE(partner.ask("initiate Testing System") == "1");
    CHECK(taken() == "1;");
    CHECK(ddeclose(last) == nullptr);
    REQUIRE(partner.ask("initiate Testing System") == "1");
    CHECK(taken() == "1;");
    CHECK(partner.ask("poke 2000 Item words") == "ack 8000");
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

TEST_CASE("a window that goes ends its conversations")
{
    service on;
    partnerprogram partner;
    {
        hiddenwindow w(WINDOWDDE);
        ddeend();
        REQUIRE(ddestart("Testing") == nullptr);
        ddesetcallback(told);
        setflags(w.w, WINDOWDDE, 0);
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
    service on;
    partnerprogram next;
    {
        partnerprogram partner;
        REQUIRE(partner.ask("initiate Testing System") == "1");
        CHECK(taken() == "1;");
        partner.kill();
    }
    errorblock *err = ddedata(last, "x", 2, 1, "Item");
    CHECK(err != nullptr);
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
    ddeconversation *conversation = nullptr;
    REQUIRE(ddeopen(w.w, "Lists", "Words", nullptr, told, 17, &conversation) == nullptr);
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
    ddeconversation *conversation = nullptr;
    REQUIRE(ddeopen(w.w, "Lists", "Words", nullptr, told, 0, &conversation) == nullptr);
    REQUIRE(conversation != nullptr);
    drivepump(50);
    int left = (first.ask("terminated") == "yes") + (second.ask("terminated") == "yes");
    CHECK(left == 1);
    CHECK(ddeclose(conversation) == nullptr);
    CHECK(first.ask("terminated") == "yes");
    CHECK(second.ask("terminated") == "yes");
    CHECK(taken().empty());
}

TEST_CASE("nobody answers, nor a program that can't be started")
{
    service on;
    hiddenwindow w;
    ddeconversation *conversation = nullptr;
    CHECK(ddeopen(w.w, "Lists", "Words", nullptr, told, 0, &conversation) == nullptr);
    CHECK(conversation == nullptr);
    errorblock *err =
        ddeopen(w.w, "Lists", "Words", "C:\\no such program.exe", told, 0, &conversation);
    REQUIRE(err != nullptr);
    CHECK(std::string(err->text).find("no such program.exe") != std::string::npos);
    CHECK(conversation == nullptr);
}

TEST_CASE("a program that isn't there is started, and asked again")
{
    service on;
    hiddenwindow w;
    ddeconversation *conversation = nullptr;
    REQUIRE(ddeopen(w.w, "Lists", "Words", partnerpath().c_str(), told, 0, &conversation) ==
            nullptr);
    REQUIRE(conversation != nullptr);
    CHECK(ddepoke(conversation, "words", 6, 1, "Item") == nullptr);
    drivepump(50);
    CHECK(taken().empty());
    window server = conversation->server;
    CHECK(ddeclose(conversation) == nullptr);
    CHECK(drivewait([&] { return !IsWindow(reinterpret_cast<HWND>(server)); }));
}

TEST_CASE("a task talks to itself")
{
    service on;
    hiddenwindow w;
    ddeconversation *conversation = nullptr;
    REQUIRE(ddeopen(w.w, "System", "Testing", nullptr, told, 5, &conversation) == nullptr);
    REQUIRE(conversation != nullptr);
    CHECK(taken() == "1;");
    CHECK(ddepoke(conversation, "hello", 6, 1, "Item") == nullptr);
    CHECK(taken() == "3 hello 6;");
    CHECK(ddedata(last, "back", 5, 1, "Item") == nullptr);
    CHECK(taken() == "4 data 5 back 5;");
    CHECK(ddeclose(conversation) == nullptr);
    CHECK(taken() == "2;");
}
