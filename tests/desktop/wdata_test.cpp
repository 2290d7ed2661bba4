#include "tests/desktop/script.h"

#include <doctest/doctest.h>

TEST_CASE("dependants hear of their parent's close, and of its end")
{
    scriptcheck(
        "window 1; window 11 1; window 12 1; window 13 1; window 14 1; ",
        {
            {"the newest first, until it goes",
             "gone 14; gone 12; gone 1; windows; short; window 15", "windows 13 11, error 2"},
            {"a close, which leaves them; only the first handler is asked",
             "window 21 12; +closed 11 0; +closed 13 0; +closed 13 1; +closed 21 0; +deleted 12 0; "
             "on closed 13 0: fail; closing 1; windows",
             "end 14, end 13, closed 13 0, end 12, end 11, closed 11 0, "
             "windows 21 14 13 12 11 1, It failed"},
            {"an end, which frees what handlers left",
             "+deleted 13 0; +deleted 12 0; on deleted 12: gone 12; deleting 1; windows",
             "end 14, end 13, deleted 13 0, end 12, deleted 12 0, end 11, windows 1"},
            {"a handler frees itself", "+closed 13 0; on closed 13: gone 13; closing 1",
             "end 14, end 13, closed 13 0, end 12, end 11"},
            {"or the next", "+closed 13 0; on closed 13: gone 12 & gone 11; closing 1",
             "end 14, end 13, closed 13 0"},
            {"or one to be freed, at whose handle another window is made",
             "+deleted 14 0; on deleted 14: gone 14 & window 14 5; deleting 1; windows",
             "end 14, deleted 14 0, end 13, end 12, end 11, windows 14 1"},
        });
}
