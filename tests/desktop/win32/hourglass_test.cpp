#include "desktop/hourglass.h"

#include "desktop/stages.h"

#include <doctest/doctest.h>
#include <windows.h>

namespace
{

bool shows(const char *cursor)
{
    return GetCursor() == LoadCursorA(nullptr, cursor);
}

} // namespace

TEST_CASE("the busy cursor shows until it is taken off as often as it was put on")
{
    hourglassinit();
    SetCursor(nullptr);
    hourglassoff(); // one too many is not counted
    CHECK(shows(IDC_ARROW));
    CHECK_FALSE(hourglassforce());
    hourglasson();
    CHECK(shows(IDC_WAIT));
    hourglasson();
    hourglassoff();
    CHECK(shows(IDC_WAIT));

    // A request for the cursor's shape is answered while busy.
    SetCursor(nullptr);
    CHECK(hourglassforce());
    CHECK(shows(IDC_WAIT));
    hourglassoff();
    CHECK(shows(IDC_ARROW));
    CHECK_FALSE(hourglassforce());
    CHECK(shows(IDC_ARROW));
}

TEST_CASE("the help cursor stands for the busy one")
{
    hourglassinit();
    hourglassoff();
    CHECK(hourglasshelp(1) == 0);
    CHECK(shows(IDC_ARROW)); // not yet
    hourglasson();
    CHECK(shows(IDC_HELP));
    CHECK(hourglasshelp(0) == 1);
    CHECK(shows(IDC_WAIT)); // at once
    hourglassoff();
    CHECK(hourglasshelp(0) == 0);
}
