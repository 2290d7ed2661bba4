#include "desktop/timed.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"
#include "tests/desktop/fake/fakesource.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <functional>
#include <map>
#include <random>
#include <utility>

namespace
{

std::string calls; // made since they were taken
std::function<void(intptr_t)> oncall;

errorblock *called(intptr_t data)
{
    calls += " " + std::to_string(data);
    if (oncall) oncall(data);
    return nullptr;
}

errorblock *failing(intptr_t)
{
    return fakeerror();
}

errorblock *nothing(intptr_t)
{
    return nullptr;
}

void begin()
{
    calls.clear();
    oncall = nullptr;
    REQUIRE(blockstart() == nullptr);
}

// Polls until calls are made: which, and after how many milliseconds.
std::string next()
{
    uint32_t start = fake.milliseconds;
    while (calls.empty() && fake.timer)
        pollonce();
    return std::to_string(fake.milliseconds - start) + ":" + std::exchange(calls, "");
}

} // namespace

TEST_CASE("a timed call is made once, after its delay")
{
    begin();
    CHECK(addtimedcall(called, 7, 10) == nullptr);
    CHECK(timedcount() == 1);
    CHECK(fake.interval == 100);
    timedrun(true);
    CHECK(calls.empty());
    CHECK(next() == "100: 7");
    CHECK(timedcount() == 0);
    CHECK(fake.timer == 0);
    CHECK(blockcount() == 0);
}

TEST_CASE("asking again moves the one call")
{
    begin();
    addtimedcall(called, 7, 10);
    fakewait(50);
    addtimedcall(called, 7, 20);
    CHECK(timedcount() == 1);
    CHECK(next() == "200: 7");
    CHECK(timedcount() == 0);

    // Other data or another function is another call.
    addtimedcall(called, 1, 10);
    addtimedcall(called, 2, 5);
    addtimedcall(failing, 1, 15);
    addtimedcall(called, 3, 16);
    CHECK(timedcount() == 4);
    CHECK(next() == "50: 2");
    remtimedcall(called, 1);
    CHECK(fake.interval == 100);
    CHECK(next() == "110: 3");
    CHECK(headless.boxes == 1); // the other's error was shown
}

TEST_CASE("a call that is due when it is asked for waits for the timer")
{
    begin();
    for (int32_t delay : {0, -100}) {
        addtimedcall(called, delay, delay);
        CHECK(fake.interval == 1);
    }
    CHECK(calls.empty());
    CHECK(next() == "1: 0 -100"); // in the order they were asked for
}

TEST_CASE("taking back a call that isn't there")
{
    begin();
    headless.keeptrace = true;
    addtimedcall(called, 1, 10);
    remtimedcall(called, 1);
    CHECK(headless.tracetext.empty());
    remtimedcall(called, 1);
    CHECK(timedcount() == 0);
    CHECK(headless.tracetext == "remblock missed type -15 message 0\r\n");
}

TEST_CASE("a call takes long itself")
{
    begin();
    SUBCASE("works for longer than another has to wait")
    {
        addtimedcall(called, 1, 10);
        addtimedcall(called, 2, 500);
        oncall = [](intptr_t data) {
            if (data == 1) fakewait(4800);
        };
        CHECK(next() == "4900: 1");
        CHECK(next() == "100: 2");
    }
    SUBCASE("polls, and others are made meanwhile")
    {
        addtimedcall(called, 1, 10);
        addtimedcall(called, 2, 50);
        addtimedcall(called, 3, 80);
        oncall = [](intptr_t data) {
            if (data != 1) return;
            addnullhandler(nothing, 0);
            for (int i = 0; i < 60; i++) {
                fakewait(10);
                pollonce();
            }
            remnullhandler(nothing, 0);
            CHECK(calls == " 1 2");
        };
        CHECK(next() == "700: 1 2");
        CHECK(next() == "100: 3");
        CHECK(fake.timer == 0);
    }
}

TEST_CASE("the clock wraps")
{
    begin();
    SUBCASE("the system's milliseconds")
    {
        fake.milliseconds = 0xFFFFFFFF - 500;
        uint32_t before = tickcount();
        addtimedcall(called, 1, 100);
        fakewait(600);
        CHECK(tickdiff(tickcount(), before) == 60);
        CHECK(ticklast() == before + 60);
        CHECK(next() == "400: 1");
    }
    SUBCASE("the centiseconds")
    {
        // Ten turns of the milliseconds, each of them seen.
        for (int i = 0; i < 20; i++) {
            fakewait(0x7FFFFFFF);
            tickcount();
        }
        while (ticklast() < 0xFFFFFF00) {
            fakewait(1000);
            tickcount();
        }
        addtimedcall(called, 1, 1000);
        CHECK(next() == "10000: 1");
        CHECK(ticklast() < 1000);
    }
    CHECK(tickdiff(5, 0xFFFFFFFB) == 10);
    CHECK(tickdiff(0xFFFFFFFB, 5) == -10);
}

TEST_CASE("the longest delay fits the timer")
{
    begin();
    addtimedcall(called, 1, INT32_MAX);
    CHECK(fake.interval <= 0x7FFFFFFF);
    CHECK(fake.interval > 2000000000);
}

TEST_CASE("timed calls without memory or a timer")
{
    begin();
    fakefillblocks();
    flexfailafter(0);
    CHECK(fakecode(addtimedcall(called, 1, 10)) == ERRORMEMORY);
    CHECK(timedcount() == 0);
    CHECK(fake.timer == 0);

    fake.notimer = true;
    CHECK(addtimedcall(called, 1, 10) == nullptr);
    fake.notimer = false;
    addtimedcall(called, 2, 20); // sets the timer for both
    CHECK(next() == "100: 1");
}

TEST_CASE("any order of asking and taking back agrees with a list of due times")
{
    begin();
    std::mt19937 random(161803);
    std::map<intptr_t, uint32_t> due; // milliseconds, of centiseconds
    int total = 0;
    bool late = false;

    // Times are kept on whole centiseconds, so that both count alike.
    auto ask = [&](intptr_t data) {
        auto delay = static_cast<int32_t>(random() % 60) + 1;
        due[data] = fake.milliseconds / 10 * 10 + static_cast<uint32_t>(delay) * 10;
        addtimedcall(called, data, delay);
    };
    auto takeback = [&](intptr_t data) {
        if (due.erase(data)) remtimedcall(called, data);
    };
    oncall = [&](intptr_t data) {
        total++;
        if (!due.count(data) || fake.milliseconds < due[data]) late = true;
        due.erase(data);
        if (random() % 3 == 0) ask(static_cast<intptr_t>(random() % 12));
        if (random() % 4 == 0) takeback(static_cast<intptr_t>(random() % 12));
    };

    for (int i = 0; i < 20000; i++) {
        auto data = static_cast<intptr_t>(random() % 12);
        if (random() % 2)
            ask(data);
        else if (random() % 2)
            takeback(data);
        else if (fake.timer)
            pollonce();
        REQUIRE_FALSE(late);
        REQUIRE(timedcount() == static_cast<int32_t>(due.size()));
        REQUIRE((fake.timer != 0) == !due.empty());
        for (auto &[waiting, time] : due)
            REQUIRE(static_cast<int32_t>(time - fake.timerdue) >= -10);
    }
    CHECK(total > 1000);
}
