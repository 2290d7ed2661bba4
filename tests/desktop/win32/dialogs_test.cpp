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
const char *failing; // the step that fails, 0 for none

errorblock *step(const char *name)
{
    said("%s %d;", name, IsWindowVisible(reinterpret_cast<HWND>(self)) != 0);
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
    return IsWindowEnabled(reinterpret_cast<HWND>(w));
}

} // namespace

TEST_CASE("a dialog opens step by step, locks its owner, and ends whole from any step")
{
    script owner(PLAIN);
    int32_t blocks = blockcount();
    for (const char *step : {FILL, SHOWN}) {
        failing = step;
        errorblock *err = dialogopen(dialog, owner.w);
        REQUIRE(err);
        CHECK(err->code == 77);
        CHECK(taken() == (step == FILL ? "fill 0;ending 0;" : "fill 0;shown 1;ending 1;"));
        CHECK(self == 0);
        CHECK(enabled(owner.w));
        CHECK(blockcount() == blocks);
    }
    failing = nullptr;
    for (bool box : {false, true}) {
        REQUIRE_FALSE(dialogopen(dialog, owner.w));
        CHECK(taken() == "fill 0;shown 1;");
        CHECK_FALSE(enabled(owner.w));
        CHECK(blockcount() == blocks + 2);
        window w;
        int32_t icon;
        REQUIRE_FALSE(getcaretpair(&w, &icon));
        CHECK(icon == FIELD2);
        REQUIRE_FALSE(dialogopen(dialog, owner.w)); // it is there
        CHECK(taken() == "");
        if (box)
            SendMessageA(reinterpret_cast<HWND>(self), WM_CLOSE, 0, 0);
        else
            driveiconclick(self, BUTTON);
        CHECK(taken() == "ending 1;");
        CHECK(self == 0);
        CHECK(enabled(owner.w));
        CHECK(blockcount() == blocks);
    }
    CHECK_FALSE(dialogend(dialog));
    CHECK(taken() == "");
}
