#include "desktop/dialogs.h"

#include "base/errors.h"
#include "desktop/blocks.h"
#include "desktop/icons.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

namespace
{

window self, locked;
const char *failing; // the step that fails

errorblock *step(const char *name)
{
    said("%s %d;", name, IsWindowVisible(handleof(self)) != 0);
    return name == failing ? makeerrortext(77, "It failed") : nullptr;
}

constexpr char FILL[] = "fill", SHOWN[] = "shown";

errorblock *ended();

constexpr dialogrecord dialog = {
    .self = &self,
    .locked = &locked,
    .number = CONTROLS,
    .handlers = {{.control = BUTTON, .press = ended}, {.closed = ended}},
    .fill = [] { return step(FILL); },
    .shown = [] { return step(SHOWN); },
    .ending = [] { step("ending"); },
    .focus = FIELD2,
};

errorblock *ended()
{
    return dialogend(dialog);
}

bool enabled(window w)
{
    return IsWindowEnabled(handleof(w));
}

} // namespace

// The rest is seen wherever the script of the screen opens a dialog.
TEST_CASE("a dialog opens step by step, locks its owner, and ends whole from any step")
{
    script owner(PLAIN);
    int32_t blocks = blockcount();
    for (const char *step : {FILL, SHOWN, ""}) {
        failing = step;
        CHECK((dialogopen(dialog, owner.w) == nullptr) == !*step);
        if (!*step) {
            CHECK((taken() == "fill 0;shown 1;" && blockcount() == blocks + 2));
            CHECK((!enabled(owner.w) && GetFocus() == taskcontrol(self, FIELD2)));
            REQUIRE_FALSE(dialogopen(dialog, owner.w)); // it is there
            driveiconclick(self, BUTTON);
        }
        CHECK(taken() == (step == FILL    ? "fill 0;ending 0;"
                          : step == SHOWN ? "fill 0;shown 1;ending 1;"
                                          : "ending 1;"));
        CHECK((self == 0 && enabled(owner.w) && blockcount() == blocks));
    }
    CHECK_FALSE(dialogend(dialog));
    CHECK(taken() == "");
}
