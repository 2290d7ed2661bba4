#include "desktop/message.h"

#include "base/errors.h"
#include "base/filetypes.h"
#include "base/flex.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/loadrequest.h"
#include "desktop/subclass.h"
#include "desktop/task.h"
#include "tests/desktop/fake/fakesource.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

namespace
{

void note(std::initializer_list<intptr_t> words)
{
    std::string entry;
    for (intptr_t word : words)
        entry += (entry.empty() ? "" : " ") + std::to_string(word);
    fake.log.push_back(entry);
}

errorblock *message(intptr_t number, intptr_t data, intptr_t first, intptr_t second)
{
    note({number, data, first, second});
    return data == 9 ? fakeerror() : nullptr;
}

errorblock *told(intptr_t *record, int *claimed)
{
    note({record[BROADCASTNUMBER], *claimed});
    return nullptr;
}

errorblock *claiming(intptr_t *record, int *claimed)
{
    note({-record[BROADCASTNUMBER], *claimed});
    *claimed = 1;
    return fakeerror();
}

errorblock *hooked(window self, intptr_t data, window where, intptr_t parameter, intptr_t number,
                   int *claimed)
{
    note({self, data, where, parameter, number});
    if (data == 2) *claimed = 1;
    return nullptr;
}

errorblock *subclassed(const systemmessage *m, intptr_t data, int *stop, intptr_t *result)
{
    note({m->window, data});
    if (m->message == data) *stop = 1;
    *result = data;
    return fakeerror();
}

errorblock *load(const char *name, int32_t filetype, intptr_t zero, intptr_t flag)
{
    fake.log.push_back(std::string("load ") + name);
    note({filetype, zero, flag});
    return name[0] == 'x' ? fakeerror() : nullptr;
}

errorblock *loaded(intptr_t zero)
{
    fake.log.push_back("loaded");
    CHECK(zero == 0);
    return nullptr;
}

const filetyperow types[] = {{0x103, "qmg", "Grid"}, {FILETYPEEND, nullptr, nullptr}};

} // namespace

TEST_CASE("a message stops at the first error")
{
    REQUIRE(blockstart() == nullptr);
    addmessagehandler(3, message, 1);
    addmessagehandler(4, message, 2);
    addmessagehandler(3, message, 9);
    addmessagehandler(3, message, 5);
    CHECK(fakecode(sendmessage(3, 11, 12)) == 99);
    CHECK(fakelog() == "3 1 11 12, 3 9 11 12");
    CHECK(headless.boxes == 0); // the sender has it
    remmessagehandler(3, message, 9);
    CHECK(sendmessage(3, 0, 0) == nullptr);
    CHECK(fakelog() == "3 1 0 0, 3 5 0 0");
    CHECK(sendmessage(8, 0, 0) == nullptr);
}

TEST_CASE("a broadcast tells everyone, claimed or not")
{
    REQUIRE(blockstart() == nullptr);
    addbroadcasthandler(told, BROADCASTSCREEN);
    CHECK(broadcast(BROADCASTSCREEN) == 1);
    addbroadcasthandler(claiming, BROADCASTSCREEN);
    addbroadcasthandler(nullptr, BROADCASTSCREEN);
    addbroadcasthandler(claiming, BROADCASTFONTS);
    fakelog();
    CHECK(broadcast(BROADCASTSCREEN) == 0);
    CHECK(fakelog() == "9 0, -9 0");
    CHECK(headless.boxes == 1);
    addbroadcasthandler(told, BROADCASTFONTS);
    CHECK(broadcast(BROADCASTFONTS) == 0); // the last to hear leaves the claim

    rembroadcasthandler(claiming, BROADCASTSCREEN);
    addbroadcasthandler(claiming, BROADCASTPRINT);
    intptr_t record[BROADCASTWORDS] = {};
    record[BROADCASTNUMBER] = BROADCASTPRINT;
    CHECK(broadcastrecord(record) == 0);
    CHECK(broadcast(12345) == 1);
}

TEST_CASE("the mouse hook goes in with the first handler and out with the last")
{
    REQUIRE(blockstart() == nullptr);
    fake.nohook = true;
    CHECK(addhookhandler(hooked, 10, 1) != nullptr);
    CHECK(blockcount() == 0);
    fake.nohook = false;
    CHECK(addhookhandler(hooked, 10, 1) == nullptr);
    CHECK(addhookhandler(hooked, 10, 1) == nullptr);
    CHECK(addhookhandler(hooked, 11, 3) == nullptr);
    CHECK(fake.hooks == 1);
    CHECK_FALSE(hookdeliver(50, 60, 70));
    CHECK(fakelog() == "10 1 50 60 70, 11 3 50 60 70");
    remhookhandler(hooked, 10, 1);
    CHECK(fake.hooks == 1);
    remhookhandler(hooked, 11, 3);
    CHECK(fake.hooks == 0);

    addhookhandler(hooked, 10, 2); // claims, and the next is called all the same
    addhookhandler(hooked, 11, 3);
    CHECK(fake.hooks == 1);
    CHECK(hookdeliver(50, 60, 70));
    CHECK(fakelog() == "10 2 50 60 70, 11 3 50 60 70");
    remhookhandler(hooked, 10, 2);
    remhookhandler(hooked, 11, 3);
}

TEST_CASE("subclassed controls")
{
    REQUIRE(blockstart() == nullptr);
    systemmessage m = {1002, 5, 0, 0};
    intptr_t result, procedure;
    CHECK_FALSE(subclassdeliver(&m, &result, &procedure));
    CHECK(procedure == 0);

    for (intptr_t data : {4, 5, 6})
        addsubclasshandler(10, 2, data, subclassed);
    CHECK(fake.replaced.size() == 1);
    CHECK(subclassdeliver(&m, &result, &procedure));
    CHECK(fakelog() == "1002 4, 1002 5"); // the third isn't asked
    CHECK(result == 5);
    CHECK(headless.boxes == 0);
    m.message = 7;
    CHECK_FALSE(subclassdeliver(&m, &result, &procedure));
    CHECK(procedure == 10020);

    remsubclasshandler(10, 2, 4, subclassed);
    remsubclasshandler(10, 2, 5, subclassed);
    CHECK(fake.replaced.size() == 1);
    for (int i = 0; i < 2; i++) { // once too often
        remsubclasshandler(10, 2, 6, subclassed);
        CHECK(fake.replaced.empty());
    }

    // Without memory the control is as it was.
    fakefillblocks();
    flexfailafter(0);
    CHECK(addsubclasshandler(10, 2, 4, subclassed) != nullptr);
    CHECK(fake.replaced.empty());
}

TEST_CASE("keys of a subclassed control go to the window around it")
{
    fake.ours = {10};
    fake.parents = {{1002, 10}};
    fake.claimed = {65};
    const struct {
        intptr_t message, key;
        bool stops;
    } rows[] = {{0x100, 65, true}, {0x100, 66, false}, {0x200, 66, false}, {0x102, 65, true}};
    for (const auto &row : rows) {
        int stop = 0;
        intptr_t result;
        systemmessage m = {1002, row.message, row.key, 0};
        fakelog();
        subclasskeys(&m, 0, &stop, &result);
        CHECK(stop == row.stops);
    }
    CHECK(fakelog() == "keys 258 of 10");
}

TEST_CASE("a load request while the poll runs")
{
    REQUIRE(blockstart() == nullptr);
    faketypes added(types);
    int handled = 0;
    CHECK(loadfile("a.qmg", 1, &handled) == nullptr); // nobody loads such files
    CHECK(handled == 0);

    addloadhandler(0x103, load);
    addloadedhandler(0x103, loaded);
    addloadhandler(FILETYPEDATA, load);
    CHECK(loadfile("a.qmg", 1, &handled) == nullptr);
    CHECK(handled == 1);
    CHECK(fakelog() == "load a.qmg, 259 0 1, loaded");

    handled = 0;
    CHECK(loadfile("x.qmg", 1, &handled) != nullptr);
    CHECK(handled == 1);
    CHECK(fakelog() == "load x.qmg, 259 0 1");
    CHECK(loadfile("b.unknown", 1, &handled) == nullptr); // loaded, and nobody asks
    CHECK(fakelog() == "load b.unknown, 4093 0 1");
    CHECK(headless.boxes == 0);
}

TEST_CASE("a load request before the poll runs waits for it")
{
    REQUIRE(blockstart() == nullptr);
    faketypes added(types);
    addloadhandler(0x103, load);
    addloadedhandler(0x103, loaded);
    int handled = 0;
    CHECK(loadfile("x.qmg", 0, &handled) == nullptr);
    CHECK(handled == 1);
    CHECK(loadfile("b.qmg", 0, &handled) == nullptr);
    CHECK(fakelog().empty());

    // The first fails, which is shown, and the second has its turn.
    CHECK(sendmessage(TASKRUN, 0, 0) == nullptr);
    CHECK(fakelog() == "load x.qmg, 259 0 0, load b.qmg, 259 0 0, loaded");
    CHECK(headless.boxes == 1);
    CHECK(blockcount() == 2);
    sendmessage(TASKRUN, 0, 0);
    CHECK(fakelog().empty());

    for (int n = 0; n < 2; n++) {
        fakefillblocks();
        int32_t blocks = flexblocks();
        flexfailafter(n);
        CHECK(fakecode(loadfile("a.qmg", 0, &handled)) == ERRORMEMORY);
        CHECK(flexblocks() == blocks);
    }
}
