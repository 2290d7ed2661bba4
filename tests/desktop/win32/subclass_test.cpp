// Handlers of the system's own controls, inside a window of the library.
#include "desktop/subclass.h"

#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

namespace
{

HWND field(const eventwindow &e)
{
    return taskcontrol(e.w, EVENTFIELD);
}

LRESULT test(HWND control)
{
    return SendMessageA(control, WM_APP, 0, 0);
}

// Handlers hear of WM_APP alone, and the one of that number stops it.
intptr_t stops;

errorblock *tells(const systemmessage *message, intptr_t data, int *stop, intptr_t *result)
{
    if (message->message != WM_APP) return nullptr;
    said("%d;", static_cast<int>(data));
    if (data != stops) return nullptr;
    *stop = 1;
    *result = 100 + data;
    return nullptr;
}

errorblock *removes(const systemmessage *message, intptr_t data, int *, intptr_t *)
{
    if (message->message != WM_APP) return nullptr;
    said("%d goes;", static_cast<int>(data));
    auto around = reinterpret_cast<window>(GetParent(reinterpret_cast<HWND>(message->window)));
    return remsubclasshandler(around, EVENTFIELD, data, removes);
}

} // namespace

TEST_CASE("handlers of a control are asked in their order, until one stops the message")
{
    eventwindow e(EVENTCONTROLS);
    LONG_PTR own = GetWindowLongPtrA(field(e), GWLP_WNDPROC);
    for (intptr_t data : {1, 2, 3})
        REQUIRE_FALSE(addsubclasshandler(e.w, EVENTFIELD, data, tells));
    stops = 0;
    CHECK(test(field(e)) == 0); // by the control itself
    CHECK(taken() == "1;2;3;");
    stops = 2;
    CHECK(test(field(e)) == 102);
    CHECK(taken() == "1;2;");
    test(taskcontrol(e.w, EVENTFIELD2));
    CHECK(taken() == ""); // of another
    CHECK_FALSE(seticontext(e.w, EVENTFIELD, "as ever"));
    CHECK(drivetext(e.w, EVENTFIELD) == "as ever");

    // In any order; the last gives the control back.
    for (intptr_t data : {1, 3, 2}) {
        CHECK(GetWindowLongPtrA(field(e), GWLP_WNDPROC) != own);
        CHECK_FALSE(remsubclasshandler(e.w, EVENTFIELD, data, tells));
    }
    CHECK(GetWindowLongPtrA(field(e), GWLP_WNDPROC) == own);
    CHECK(test(field(e)) == 0);
    CHECK(taken() == "");
}

TEST_CASE("a handler of a control may take itself away")
{
    eventwindow e(EVENTCONTROLS);
    LONG_PTR own = GetWindowLongPtrA(field(e), GWLP_WNDPROC);
    REQUIRE_FALSE(addsubclasshandler(e.w, EVENTFIELD, 1, removes));
    REQUIRE_FALSE(addsubclasshandler(e.w, EVENTFIELD, 2, removes));
    test(field(e));
    CHECK(taken() == "1 goes;2 goes;");
    CHECK(GetWindowLongPtrA(field(e), GWLP_WNDPROC) == own);
    test(field(e));
    CHECK(taken() == "");
}

TEST_CASE("keys of a field are offered to its window, which can keep them")
{
    keyfunction keepsdigits = [](window, intptr_t, int32_t, int32_t *code) -> errorblock * {
        if (*code >= '0' && *code <= '9') *code = KEYCLAIMED;
        return nullptr;
    };
    eventwindow e(EVENTCONTROLS);
    REQUIRE_FALSE(addkeyhandler(tellkey, e.w, 0));
    REQUIRE_FALSE(addkeyhandler(keepsdigits, e.w, 0));
    CHECK_FALSE(focusicon(e.w, EVENTFIELD));
    drivetype("a1");
    CHECK(taken() == ""); // a field's keys are its own
    CHECK(drivetext(e.w, EVENTFIELD) == "a1");

    REQUIRE_FALSE(addsubclasshandler(e.w, EVENTFIELD, 0, subclasskeys));
    drivetype("b2c");
    CHECK(taken() == "4000042 in 10;62 in 10;4000032 in 10;32 in 10;4000043 in 10;63 in 10;");
    CHECK(drivetext(e.w, EVENTFIELD) == "a1bc");
    CHECK_FALSE(remsubclasshandler(e.w, EVENTFIELD, 0, subclasskeys));
    drivetype("3");
    CHECK(taken() == "");
}
