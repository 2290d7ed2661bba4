// Conversations between two programs, each side begun by either.
#include "desktop/dde.h"

#include "base/errors.h"
#include "base/filetypes.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/task.h"
#include "tests/desktop/win32/partner.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

#include <dde.h>

#include <cstring>

namespace
{

ddeconversation *last;
std::function<void(ddeconversation *)> onevent;

// Events: 1 begun, 2 ended, 3 a poke, 4 data.
errorblock *told(ddeconversation *conversation, intptr_t data, int32_t event, const char *text,
                 int32_t length)
{
    last = conversation;
    said("%d", event);
    if (data) said(" data %d", static_cast<int>(data));
    if (text) said(" %.90s %d", text, length);
    said(";");
    if (onevent) onevent(conversation);
    return nullptr;
}

errorblock *load(const char *name, int32_t, intptr_t, intptr_t)
{
    said("open %s;", name);
    return nullptr;
}

errorblock *print(intptr_t *record, truth *)
{
    auto word = [=](int n) { return reinterpret_cast<const char *>(record[n]); };
    said("print %s to %s;", word(11), record[12] ? word(12) : "none");
    return nullptr;
}

// What has been told since, once all has come.
std::string heard()
{
    drivepump(50);
    return taken();
}

struct service {
    library started;

    service()
    {
        onevent = nullptr;
        REQUIRE_FALSE(ddestart("Testing"));
        ddesetcallback(told);
    }
    ~service()
    {
        CHECK_FALSE(ddeend());
    }
    window answering()
    {
        window w = taskwindow(WS_POPUP);
        REQUIRE_FALSE(setflags(w, WINDOWDDE, 0));
        return w;
    }
    // One that we begin, 0 if nobody answers.
    ddeconversation *opened(const char *app, const char *topic, const char *program = nullptr,
                            intptr_t data = 0)
    {
        ddeconversation *conversation = nullptr;
        CHECK_FALSE(ddeopen(taskwindow(WS_POPUP), topic, app, program, told, data, &conversation));
        return conversation;
    }
};

struct ddestep {
    const char *asks, *answer, *told;
};

void play(partnerprogram *partner, std::initializer_list<ddestep> steps)
{
    for (const ddestep &step : steps) {
        INFO(std::string(step.asks));
        CHECK(partner->ask(step.asks) == step.answer);
        sendmessage(TASKRUN, 0, 0); // a load waits for the poll
        CHECK(heard() == step.told);
    }
}

} // namespace

TEST_CASE("questions are answered by name and topic; commands, pokes and data are told")
{
    partnerprogram partner;
    service on;
    for (const char *question : {"initiate Testing System", "initiate tESTING sYSTEM",
                                 "initiate Testing -", "initiate - -"})
        play(&partner, {{question, "1", "1;"}, {"terminate", "terminated", "2;"}});
    addloadhandler(FILETYPEDATA, load);
    addbroadcasthandler(print, BROADCASTPRINT);
    play(&partner,
         {{"initiate Other System", "0", ""},
          {"initiate Testing Other", "0", ""},
          {"initiate - System", "0", ""},
          {"initiate Other -", "0", ""},
          {"initiate Testing System", "1", "1;"},
          {"execute [open(\"a b\")][print(\"c\")]", "ack 8000", "print c to none;open a b;"},
          {"execute printto(\"d\",\"LPT1:\")", "ack 8000", "print d to LPT1:;"},
          {"execute [nonsense(\"e\")] then nothing", "ack 8000", ""},
          {"execute [open(\"f\"", "ack 8000", ""},
          {"execute ", "ack 8000", ""},
          {"unended [print(\"g\")]", "ack 8000", "print g to none;"}, // no zero in its block
          {"poke 2000 Item some words", "ack 8000", "3 some words 11;"},
          {"poke 0 Item kept by its owner", "ack 8000", "3 kept by its owner 18;"},
          {"poke 2000 Item ", "ack 8000", "3  1;"},
          {"data A000 Item with answer", "ack 8000", "4 with answer 12;"},
          {"data 2000 Item without", "none", "4 without 8;"}});
    // A word in the name of all windows goes to none.
    PostMessageA(handleof(last->server), WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(HWND_BROADCAST),
                 0);
    play(&partner, {{"terminated", "no", ""}, {"terminate", "terminated", "2;"}});
    ddesetcallback(nullptr); // nobody hears of it
    play(&partner, {{"initiate Testing System", "1", ""},
                    {"execute [print(\"h\")]", "ack 8000", "print h to none;"},
                    {"poke 2000 Item words", "ack 8000", ""},
                    {"terminate", "terminated", ""}});
    rembroadcasthandler(print, BROADCASTPRINT);
    remloadhandler(FILETYPEDATA, load);
}

TEST_CASE("blocks without a header or an end aren't read past it, and what is sent isn't taken")
{
    service on;
    window w = taskwindow(WS_POPUP);
    ddeconversation *conversation = nullptr;
    CHECK_FALSE(ddeopen(w, "System", "Testing", nullptr, told, 5, &conversation));
    REQUIRE(conversation);
    CHECK(heard() == "1;"); // a task talks to itself
    const std::string header("\0\x20\1\0", 4);
    const struct {
        std::string bytes;
        const char *told;
    } rows[] = {{"", ""},
                {header.substr(0, 3), ""},
                {header, "3  1;"},
                {header + "unended", "3 unended 8;"},
                {header + std::string("end\0more", 8), "3 end 4;"},
                {header + std::string(90, 'x') + std::string(99910, ' '), nullptr}};
    for (const auto &r : rows) {
        HGLOBAL block = r.bytes.empty() ? nullptr : GlobalAlloc(GMEM_MOVEABLE, r.bytes.size());
        if (block) {
            memcpy(GlobalLock(block), r.bytes.data(), r.bytes.size());
            GlobalUnlock(block);
        }
        LPARAM packed =
            PackDDElParam(WM_DDE_POKE, reinterpret_cast<UINT_PTR>(block), GlobalAddAtomA("Item"));
        PostMessageA(handleof(conversation->server), WM_DDE_POKE, static_cast<WPARAM>(w), packed);
        CHECK(heard() == (r.told ? r.told : "3 " + std::string(90, 'x') + " 100001;"));
    }
    // By another thread, with a block of ours as a stranger might guess it.
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 16);
    driveaside([] {},
               [&] {
                   for (UINT message : {WM_DDE_ACK, WM_DDE_DATA, WM_DDE_POKE, WM_DDE_EXECUTE})
                       SendMessageTimeoutA(handleof(conversation->server), message,
                                           static_cast<WPARAM>(w), reinterpret_cast<LPARAM>(block),
                                           SMTO_NORMAL, 3000, nullptr);
               });
    CHECK(GlobalSize(block) >= 16); // it is still there
    GlobalFree(block);
    CHECK(heard() == "");
    CHECK_FALSE(ddepoke(conversation, "hello", 6, 1, "Item"));
    CHECK(heard() == "3 hello 6;");
    CHECK_FALSE(ddedata(last, "back", 5, 1, "Item"));
    CHECK(heard() == "4 data 5 back 5;");
    CHECK_FALSE(ddeclose(conversation));
    CHECK(heard() == "2;");
}

TEST_CASE("windows with the flag answer too, and end their conversations; so does the program")
{
    partnerprogram partner;
    service on;
    window answers = on.answering();
    taskwindow(WS_POPUP); // silent
    play(&partner, {{"initiate Testing System", "2", "1;1;"},
                    {"initiate Testing System", "2", ""}}); // again: the same conversations
    CHECK_FALSE(deletewindow(answers));
    CHECK(heard() == "2;");
    CHECK(partner.ask("terminated") == "yes");
    CHECK(partner.ask("initiate Testing System") == "1");
    CHECK(broadcast(BROADCASTQUIT) == 1);
    CHECK(heard() == "2;");
    CHECK(partner.ask("initiate Testing System") == "0");
}

TEST_CASE("a conversation is ended once, and a new one at once is another; a death is noticed")
{
    partnerprogram partner, next;
    service on;
    play(&partner, {{"initiate Testing System", "1", "1;"}});
    CHECK_FALSE(ddeclose(last));
    CHECK_FALSE(ddeclose(last)); // closed already
    play(&partner, {{"terminated", "yes", ""}, {"initiate Testing System", "1", "1;"}});
    CHECK_FALSE(ddeclose(last)); // the word about it doesn't end the new one
    play(&partner, {{"initiate Testing System", "1", "1;"},
                    {"poke 2000 Item words", "ack 8000", "3 words 6;"}});
    partner.kill();
    CHECK(ddedata(last, "x", 2, 1, "Item"));
    taken();
    play(&next, {{"initiate Testing System", "1", "2;1;"}});
}

TEST_CASE("a callback may end its conversation, and its window")
{
    partnerprogram partner;
    service on;
    on.answering();
    onevent = [](ddeconversation *c) { ddeclose(c); };
    play(&partner, {{"initiate Testing System", "2", "1;1;"}});
    onevent = [](ddeconversation *c) {
        onevent = nullptr;
        deletewindow(c->server);
    };
    CHECK(partner.ask("initiate Testing System") == "2");
    std::string events = heard(); // by which of the windows is asked first
    CHECK((events == "1;1;" || events == "1;2;1;"));
    CHECK(partner.ask("terminate") != "silent");
}

TEST_CASE("a conversation that we begin: the first that answers is kept, or started if none does")
{
    partnerprogram partner, second;
    service on;
    CHECK_FALSE(on.opened("Words", "Lists")); // nobody answers
    REQUIRE(partner.ask("serve Words Lists") == "ok");
    ddeconversation *conversation = on.opened("Words", "Lists", nullptr, 17);
    REQUIRE(conversation);
    CHECK((conversation->flags & DDEOURS));
    CHECK(heard() == "");
    CHECK_FALSE(ddepoke(conversation, "words", 6, 1, "Item"));
    drivepump(50);
    CHECK(partner.ask("received") == "poke Item 00200100776f72647300");
    CHECK_FALSE(ddedata(conversation, "\1\2", 2, 8, "Other"));
    drivepump(50);
    CHECK(partner.ask("received").starts_with("data Other 002008000102"));
    CHECK(ddepoke(conversation, "", 0, 1, std::string(300, 'x').c_str()));
    CHECK(ddepoke(conversation, "", -1, 1, "Item"));
    play(&partner, {{"data A000 Item words", "ack 8000", "4 data 17 words 6;"},
                    {"terminate", "terminated", "2 data 17;"}});
    CHECK_FALSE(ddeclose(conversation)); // gone: nothing happens

    for (partnerprogram *p : {&partner, &second})
        p->ask("serve Words Lists");
    conversation = on.opened("Words", "Lists");
    REQUIRE(conversation);
    drivepump(50);
    CHECK((partner.ask("terminated") == "yes") + (second.ask("terminated") == "yes") == 1);
    CHECK_FALSE(ddeclose(conversation));
    CHECK((partner.ask("terminated") == "yes" && second.ask("terminated") == "yes"));
    CHECK(heard() == "");
    for (partnerprogram *p : {&partner, &second})
        p->ask("serve Nothing Lists");

    const errorblock *err = ddeopen(taskwindow(WS_POPUP), "Lists", "Words",
                                    "C:\\no such program.exe", told, 0, &conversation);
    REQUIRE(err);
    CHECK(std::string(err->text).find("no such program.exe") != std::string::npos);
    CHECK(conversation == nullptr);
    conversation = on.opened("Words", "Lists", partnerpath().c_str());
    REQUIRE(conversation);
    CHECK_FALSE(ddepoke(conversation, "words", 6, 1, "Item"));
    CHECK(heard() == "");
    HWND server = handleof(conversation->server);
    CHECK_FALSE(ddeclose(conversation));
    CHECK(drivewait([&] { return !IsWindow(server); }));
}
