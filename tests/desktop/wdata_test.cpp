#include "desktop/wdata.h"

#include "tests/desktop/script.h"
#include "tools/headless.h"

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

TEST_CASE("sixteen walks inside one another are all protected")
{
    // Each closes the next, and the last frees what all of them come to then.
    std::string acts, heard, freed;
    for (int n = 1; n <= WDATAWALKS; n++) {
        std::string w = std::to_string(n), below = std::to_string(n - 1);
        acts += "window " + std::to_string(99 + n) + " " + below + "; window " + w + " " + below +
                "; +closed " + w + " 0; ";
        freed += "gone " + std::to_string(99 + n) + " & ";
        if (n < WDATAWALKS) acts += "on closed " + w + ": closing " + w + "; ";
        heard += "end " + w + ", closed " + w + " 0, ";
    }
    acts += "on closed 16: " + freed + "windows; closing 0";
    heard += "windows 16 15 14 13 12 11 10 9 8 7 6 5 4 3 2 1";
    scriptcheck(acts, {{"", "", heard}});
}

TEST_CASE("a handle that is nobody's leaves two lines in the trace")
{
    headless.keeptrace = true;
    checkhandle(0xABC, "open");
    CHECK(headless.tracetext.find("illegal window handle abc at open") != std::string::npos);
    CHECK(headless.tracetext.find("wimp check open wdata's 0") != std::string::npos);
}
