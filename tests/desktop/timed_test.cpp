#include "tests/desktop/script.h"

#include <doctest/doctest.h>

TEST_CASE("timed calls are made once, after their delay in centiseconds")
{
    scriptcheck(
        "",
        {
            {"one", "+timed 7 10; waiting; interval; called; waiting; blocks; poll",
             "waiting 1, interval 100, 100ms, timed 7, waiting 0, blocks 0, wait, for ever"},
            {"asked for again, it moves", "+timed 7 10; wait 50; +timed 7 20; waiting; called",
             "waiting 1, 200ms, timed 7"},
            {"others", "+timed 1 10; +timed 2 5; +timed 3 16; called; -timed 1; interval; called",
             "50ms, timed 2, interval 110, 110ms, timed 3"},
            {"due at once, in the order of asking", "+timed 1 0; +timed 2 -100; interval; called",
             "interval 1, 1ms, timed 1, timed 2"},
            {"taken back twice", "+timed 1 10; -timed 1; waiting; -timed 1; waiting",
             "waiting 0, waiting 0, missed"},
            {"an error is shown", "+timed 1 10; on timed 1: fail; called",
             "100ms, timed 1, It failed"},
            {"one takes longer than another has to wait",
             "+timed 1 10; +timed 2 500; on timed 1: wait 4800; called; called",
             "4900ms, timed 1, 100ms, timed 2"},
            {"one polls, and others are called meanwhile",
             "+timed 1 10; +timed 2 50; on timed 1: wait 450 & poll; called",
             "550ms, timed 1, timed 2"},
            {"the system's clock wraps", "wait -1100; +timed 1 100; wait 600; called; ticks",
             "400ms, timed 1, ticks 429496819"},
            {"the longest delay fits the timer", "+timed 1 2147483647; interval",
             "interval 2147483640"},
            {"short of memory, or of timers",
             "short; +timed 1 10; waiting; notimer 1; +timed 2 10; notimer; +timed 3 20; called",
             "error 2, waiting 0, 100ms, timed 2"},
        });
}
