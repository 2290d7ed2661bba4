// The library's question, answered by keys and buttons.
#include "desktop/confirm.h"

#include "base/boxes.h"
#include "desktop/stages.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <functional>

namespace
{

constexpr int CANCELLED = -1, UNANSWERED = -9;
constexpr char TITLE[] = "The test's questions";

struct asker : eventwindow {
    asker() : eventwindow(EVENTPLAIN)
    {
        REQUIRE_FALSE(tasktemplates());
        settaskname("Test", TITLE);
        setconfirm(1);
    }

    // Asks, has the script act on the box, and then cancels what is still open.
    int ask(uint32_t kind, const std::function<void(window box)> &script)
    {
        int answer = UNANSWERED;
        bool cancelled = false;
        driveaside([&] { CHECK_FALSE(confirm(w, kind, &answer, "Is it %s?", "so")); },
                   [&] {
                       window box = drivewaitwindow(TITLE, "Task");
                       CHECK_FALSE(IsWindowEnabled(taskhandle(w)));
                       script(box);
                       cancelled = !drivewait([&] { return !drivefind(TITLE, "Task"); }, 200);
                       if (cancelled) drivekey(VK_ESCAPE);
                   });
        CHECK(IsWindowEnabled(taskhandle(w)));
        return cancelled ? UNANSWERED : answer;
    }
    int key(uint32_t kind, int key)
    {
        return ask(kind, [key](window) { drivekey(key); });
    }
    int press(uint32_t kind, int icon)
    {
        return ask(kind, [icon](window box) { driveiconclick(box, icon); });
    }
};

} // namespace

TEST_CASE("a question is answered by the first letter of a button")
{
    asker a;
    CHECK(a.key(CONFIRMYESNO, 'Y') == 1);
    CHECK(a.key(CONFIRMYESNO, 'N') == 0);
    CHECK(a.key(CONFIRMDISCARDCANCEL, 'D') == 1);
    CHECK(a.key(CONFIRMDISCARDCANCEL, 'C') == CANCELLED);
    CHECK(a.key(CONFIRMDISCARDCANCELSAVE, 'D') == 0);
    CHECK(a.key(CONFIRMDISCARDCANCELSAVE, 'C') == CANCELLED);
    CHECK(a.key(CONFIRMDISCARDCANCELSAVE, 'S') == 1);
    CHECK(a.key(CONFIRMYESNO, 'S') == UNANSWERED); // of another kind
    for (uint32_t kind : {CONFIRMYESNO, CONFIRMDISCARDCANCEL})
        CHECK(a.ask(kind, [](window box) { PostMessageA(taskhandle(box), WM_CHAR, 0, 1); }) ==
              UNANSWERED); // Ctrl+@
}

TEST_CASE("Return stands for Yes and Save, Escape and the close box for Cancel")
{
    asker a;
    CHECK(a.key(CONFIRMYESNO, VK_RETURN) == 1);
    CHECK(a.key(CONFIRMDISCARDCANCEL, VK_RETURN) == UNANSWERED);
    CHECK(a.key(CONFIRMDISCARDCANCELSAVE, VK_RETURN) == 1);
    for (uint32_t kind : {CONFIRMYESNO, CONFIRMDISCARDCANCEL, CONFIRMDISCARDCANCELSAVE}) {
        CHECK(a.key(kind, VK_ESCAPE) == CANCELLED);
        CHECK(a.ask(kind, [](window box) { PostMessageA(taskhandle(box), WM_CLOSE, 0, 0); }) ==
              CANCELLED);
    }
}

TEST_CASE("a question has the buttons of its kind, and each its answer")
{
    asker a;
    CHECK(a.press(CONFIRMYESNO, 0) == 0);
    CHECK(a.press(CONFIRMYESNO, 11) == 1);
    CHECK(a.press(CONFIRMDISCARDCANCEL, 3) == 1);
    CHECK(a.press(CONFIRMDISCARDCANCEL, 4) == CANCELLED);
    CHECK(a.press(CONFIRMDISCARDCANCELSAVE, 3) == 0);
    CHECK(a.press(CONFIRMDISCARDCANCELSAVE, 5) == CANCELLED);
    CHECK(a.press(CONFIRMDISCARDCANCELSAVE, 6) == 1);
    a.ask(CONFIRMYESNO, [](window box) {
        CHECK(drivetext(box, 12) == "Is it so?");
        for (int icon : {3, 4, 5, 6})
            CHECK(drivecontrol(box, icon) == 0);
        drivekey('N');
    });
}

TEST_CASE("questions can be off, and one can insist")
{
    asker a;
    int answer;
    setconfirm(0);
    CHECK_FALSE(confirm(a.w, CONFIRMYESNO, &answer, "?"));
    CHECK(answer == 1);
    CHECK_FALSE(confirm(a.w, CONFIRMDISCARDCANCELSAVE, &answer, "?"));
    CHECK(answer == 0);
    CHECK(a.key(CONFIRMYESNO | CONFIRMFORCE, 'N') == 0);
    setconfirm(1);
}
