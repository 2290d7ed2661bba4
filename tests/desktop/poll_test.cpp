#include "tests/desktop/script.h"

#include <doctest/doctest.h>

TEST_CASE("a poll calls those around it, and delivers one message or a null event")
{
    scriptcheck(
        "",
        {
            {"with a null handler it never waits",
             "+pre 1; +pre 2; +post 1; +post 2; +null 1; +null 2; wait 5000; poll; ticks",
             "pre 1, pre 2, look, post 1, post 2, null 1, null 2, ticks 600"},
            {"a message goes before it", "+null 1; post 1024; poll",
             "look, translate 1024, dispatch 1024"},
            {"without one it waits", "+pre 1; +post 1; post 1024; poll; poll",
             "pre 1, wait, post 1, translate 1024, dispatch 1024, pre 1, wait, for ever, post 1"},
            {"a fetch that fails is as none", "fetchfails; post 1024; +null 1; poll", "look"},
            {"an end is told, and its status is 0", "quit 3; +broadcast 0; poll",
             "wait, broadcast, left"},
            {"null handlers are counted once each",
             "+null 1; +null 1; -null 1; poll; -null 1; poll",
             "wait, for ever, wait, for ever, missed"},
            {"whether it waits is decided before", "+null 1; +pre 1; on pre 1: -null 1; poll",
             "pre 1, look"},
            {"an error is shown, and delivery goes on", "+null 1; +null 2; on null 1: fail; poll",
             "look, null 1, null 2, It failed"},
            {"a handler polls, and is removed inside of that",
             "+null 1; +null 2; +null 3; +null 4; on null 3: on null 1: -null 3 & poll; poll; poll",
             "look, null 1, null 2, null 3, look, null 1, null 2, null 4, null 4, "
             "look, null 1, null 2, null 4"},
            {"the depth is that of window procedures, and a wait is no part of it",
             "+pre 1; on pre 1: depth; post 7; post 8; depth; poll; depth; "
             "on dispatch 8: enter & depth & on pre 1: depth & quit & poll & leave; poll",
             "depth 0, pre 1, depth -1, wait, translate 7, dispatch 7, depth 0, pre 1, wait, "
             "translate 8, dispatch 8, depth 1, pre 1, depth 0, wait, left"},
        });
}

TEST_CASE("a message is for the nearest window of ours, whose keys navigate")
{
    scriptcheck(
        "ours 10; ours 20; parent 12 11; parent 11 10; parent 10 20; parent 31 30; ",
        {
            {"the window itself, or around it, or none",
             "target 10; target 12; target 31; target 0",
             "target 10, target 10, target 0, target 0"},
            {"with a menu there is no navigation", "navigated 258; post 258 12; poll",
             "wait, translate 258, dispatch 258"},
            {"presses of a control are not the window's", "used 65; post 256 12 65; poll",
             "wait, translate 256, dispatch 256"},
            {"the navigation takes them", "navigates 10; navigated 256; post 256 12; poll",
             "wait, navigate 256 in 10"},
            {"or leaves them", "navigates 10; post 1024 12; poll",
             "wait, navigate 1024 in 10, translate 1024, dispatch 1024"},
            {"not in a foreign window", "navigates 30; navigated 256; post 256 31; poll",
             "wait, translate 256, dispatch 256"},
            {"the window's own go to the key handlers first",
             "navigates 10; navigated 256; used 65; post 256 10 65; post 256 10 66; poll; poll",
             "wait, keys 256 in 10, wait, keys 256 in 10, navigate 256 in 10"},
            {"with Alt too, but not as characters",
             "navigates 10; used 65; post 260 10 65; post 258 10 65; poll; poll",
             "wait, keys 260 in 10, wait, navigate 258 in 10, translate 258, dispatch 258"},
            {"a press that they left isn't theirs again, which is told once",
             "post 256 10; post 258 10; on dispatch 256: haskey & haskey; on dispatch 258: haskey; "
             "poll; haskey; poll",
             "wait, keys 256 in 10, translate 256, dispatch 256, haskey 1, haskey 0, haskey 0, "
             "wait, translate 258, dispatch 258, haskey 0"},
            {"nor behind a poll on the way",
             "post 256 10; post 258 10; on dispatch 256: poll & haskey; on dispatch 258: haskey; "
             "poll",
             "wait, keys 256 in 10, translate 256, dispatch 256, "
             "wait, translate 258, dispatch 258, haskey 0, haskey 1"},
        });
}

TEST_CASE("filters go by message, then by window, then for all")
{
    // Added from the widest to the narrowest.
    scriptcheck("+filter -1 -1 1; +filter -1 10 2; +filter 5 10 3; "
                "+pollfilter -1 -1 6; +pollfilter 5 10 7; ",
                {
                    {"in the window procedure",
                     "+nofilter 5 10 4; filters 5 10; filters 6 10; filters 6 11",
                     "filter 5 3, filter 5 2, filter 5 1, stopped 0 0 0, filter 6 2, filter 6 1, "
                     "stopped 0 0 0, filter 6 1, stopped 0 0 0"},
                    {"in the poll, and one that stops keeps it from all others",
                     "post 5 10; post 5 10; poll; on pollfilter 5 7: claim; poll",
                     "wait, pollfilter 5 7, pollfilter 5 6, translate 5, dispatch 5, "
                     "wait, pollfilter 5 7, pollfilter 5 6"},
                    {"it says what comes back, the rest run all the same, and errors are shown",
                     "on filter 5 3: claim & fail; filters 5 10",
                     "filter 5 3, filter 5 2, filter 5 1, stopped 1 1 1, It failed"},
                    {"each goes as it came",
                     "-filter -1 -1 1; -filter -1 10 2; -filter 5 10 3; "
                     "-pollfilter -1 -1 6; -pollfilter 5 10 7; blocks",
                     "blocks 0"},
                });
}
