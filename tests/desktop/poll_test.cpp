#include "desktop/poll.h"

#include "desktop/blocks.h"
#include "desktop/eventsource.h"
#include "desktop/filters.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/timed.h"
#include "tests/desktop/fake/fakesource.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

namespace
{

std::function<void(intptr_t)> oncall;

errorblock *note(const char *what, intptr_t data)
{
    fake.log.push_back(std::string(what) + std::to_string(data));
    if (oncall) oncall(data);
    return nullptr;
}

errorblock *pre(intptr_t data)
{
    return note("pre", data);
}

errorblock *post(intptr_t data)
{
    return note("post", data);
}

errorblock *idle(intptr_t data)
{
    return note("null", data);
}

errorblock *idlefailing(intptr_t)
{
    return fakeerror();
}

errorblock *quitting(intptr_t *record, int *)
{
    return note("quit", record[BROADCASTNUMBER]);
}

errorblock *stopping(const systemmessage *message, intptr_t, int *stop, intptr_t *, int *)
{
    note("filter", message->message);
    *stop = 1;
    return nullptr;
}

void begin()
{
    oncall = nullptr;
    REQUIRE(blockstart() == nullptr);
}

// What a poll did.
std::string polled()
{
    pollonce();
    return fakelog();
}

void addaround()
{
    addprepollhandler(pre, 1);
    addprepollhandler(pre, 2);
    addpostpollhandler(post, 1);
    addpostpollhandler(post, 2);
}

} // namespace

TEST_CASE("one poll with a null handler never waits")
{
    begin();
    addaround();
    addnullhandler(idle, 1);
    addnullhandler(idle, 2);
    fakewait(5000);
    CHECK(polled() == "pre1, pre2, look, post1, post2, null1, null2");
    CHECK(ticklast() == fake.milliseconds / 10); // null handlers may look at it

    fakepost(FAKEPLAIN);
    CHECK(polled() == "pre1, pre2, look, post1, post2, translate 1024, dispatch 1024");

    sourcequit(0);
    addbroadcasthandler(quitting, BROADCASTQUIT);
    CHECK(fakeended(pollonce) == 0);
    CHECK(fakelog() == "pre1, pre2, look, post1, post2, quit0");
}

TEST_CASE("one poll without a null handler waits")
{
    begin();
    addaround();
    fakepost(FAKEPLAIN);
    CHECK(polled() == "pre1, pre2, wait, post1, post2, translate 1024, dispatch 1024");

    fake.fail = true;
    fakepost(FAKEPLAIN);
    CHECK(polled() == "pre1, pre2, wait, post1, post2");
    CHECK(headless.boxes == 0);
    fake.queue.clear();

    pollonce(); // with nothing to come it would wait for ever
    CHECK(fake.starved);
    fakelog();

    postquit(3); // the process ends with 0 all the same
    addbroadcasthandler(quitting, BROADCASTQUIT);
    CHECK(fakeended(pollonce) == 0);
    CHECK(fakelog() == "pre1, pre2, wait, post1, post2, quit0");
}

TEST_CASE("null handlers are counted once each")
{
    begin();
    headless.keeptrace = true;
    addnullhandler(idle, 1);
    addnullhandler(idle, 1);
    CHECK(nullcount() == 1);
    remnullhandler(idle, 1);
    remnullhandler(idle, 1);
    CHECK(nullcount() == 0);
    CHECK(headless.tracetext == "remblock missed type 0 message 0\r\n");

    // The poll has decided before the handlers around it run.
    addnullhandler(idle, 1);
    addprepollhandler(pre, 1);
    oncall = [](intptr_t) { remnullhandler(idle, 1); };
    CHECK(polled() == "pre1, look");
}

TEST_CASE("an error of a handler is shown and delivery goes on")
{
    begin();
    addnullhandler(idlefailing, 0);
    addnullhandler(idle, 1);
    pollonce();
    CHECK(headless.boxes == 1);
    CHECK(headless.boxtext == "It failed");
    CHECK(fakelog() == "look, null1");
}

TEST_CASE("a handler polls, and the inner poll removes it")
{
    begin();
    for (int i = 1; i <= 4; i++)
        addnullhandler(idle, i);
    oncall = [](intptr_t data) {
        if (data != 3) return;
        oncall = [](intptr_t inner) {
            if (inner == 1) remnullhandler(idle, 3);
        };
        pollonce();
    };
    CHECK(polled() == "look, null1, null2, null3, look, null1, null2, null4, null4");
    CHECK(polled() == "look, null1, null2, null4");
}

TEST_CASE("the nesting count")
{
    begin();
    int32_t before = pollnesting(), inside = 99, deeper = 99;
    fake.ondispatch = [&](const systemmessage &) {
        pollenter();
        inside = pollnesting();
        fake.ondispatch = [&](const systemmessage &) { deeper = pollnesting(); };
        fakepost(FAKEPLAIN);
        pollonce();
        pollleave();
    };
    fakepost(FAKEPLAIN);
    pollonce();
    CHECK(inside == before + 1);
    CHECK(deeper == inside);
    CHECK(pollnesting() == before);
}

TEST_CASE("the window that a message is for")
{
    begin();
    fake.ours = {10, 20};
    fake.parents = {{12, 11}, {11, 10}, {10, 20}, {31, 30}};
    CHECK(polltarget(10) == 10);
    CHECK(polltarget(12) == 10);
    CHECK(polltarget(31) == 0);
    CHECK(polltarget(0) == 0);
}

TEST_CASE("delivery of a message that is no key press")
{
    begin();
    fake.ours = {10};
    fake.parents = {{11, 10}, {31, 30}};
    fake.navigated = {SYSTEMKEYDOWN};
    const struct {
        const char *what;
        bool navigates;
        intptr_t message;
        window w;
        const char *done;
    } rows[] = {
        {"in a window with a menu there is no navigation", false, SYSTEMCHAR, 11,
         "wait, translate 258, dispatch 258"},
        {"nor are presses of a control the window's", false, SYSTEMKEYDOWN, 11,
         "wait, translate 256, dispatch 256"},
        {"the navigation takes it", true, SYSTEMKEYDOWN, 11, "wait, navigate 256 in 10"},
        {"the navigation leaves it", true, FAKEPLAIN, 11,
         "wait, navigate 1024 in 10, translate 1024, dispatch 1024"},
        {"a foreign window has no target", true, SYSTEMKEYDOWN, 31,
         "wait, translate 256, dispatch 256"},
    };
    for (const auto &row : rows) {
        CAPTURE(row.what);
        if (row.navigates) fake.navigates = {10, 30};
        fakepost(row.message, row.w);
        CHECK(polled() == row.done);
    }

    // A filter that stops it keeps it from all others.
    addpollfilter(stopping, SYSTEMKEYDOWN, 10, 0);
    fakepost(SYSTEMKEYDOWN, 10);
    CHECK(polled() == "wait, filter256");
    rempollfilter(stopping, SYSTEMKEYDOWN, 10, 0);
    CHECK(blockcount() == 0);
}

TEST_CASE("delivery of a key press to a window itself")
{
    begin();
    fake.ours = {10};
    fake.navigates = {10};
    intptr_t number = SYSTEMKEYDOWN; // an ordinary key
    SUBCASE("with Alt")
    {
        number = SYSTEMSYSKEYDOWN;
    }
    std::string n = std::to_string(number);

    fake.claimed = {65};
    fakepost(number, 10, 65);
    CHECK(polled() == "wait, keys " + n + " of 10");

    fake.navigated = {number};
    fakepost(number, 10, 9);
    CHECK(polled() == "wait, keys " + n + " of 10, navigate " + n + " in 10");

    // Dispatched, it isn't to go to the key handlers again, which is told once.
    fake.navigated = {};
    std::vector<bool> told;
    fake.ondispatch = [&](const systemmessage &) {
        told.push_back(pollhaskey());
        told.push_back(pollhaskey());
    };
    fakepost(number, 10, 66);
    fakepost(SYSTEMCHAR, 10, 66);
    pollonce();
    pollonce();
    CHECK(told == std::vector<bool>{true, false, false, false});
    CHECK_FALSE(pollhaskey());

    // A filter of the window procedure may poll before the question is asked.
    told.clear();
    fake.ondispatch = [&](const systemmessage &outer) {
        if (outer.wparam == 67) {
            fakepost(SYSTEMCHAR, 10, 1);
            pollonce();
        }
        told.push_back(pollhaskey());
    };
    fakepost(number, 10, 67);
    pollonce();
    CHECK(told == std::vector<bool>{false, true});
}
