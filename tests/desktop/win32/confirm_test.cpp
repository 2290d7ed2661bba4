// The library's question, answered by keys and buttons.
#include "desktop/confirm.h"

#include "base/boxes.h"
#include "desktop/stages.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <algorithm>
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
};

} // namespace

TEST_CASE("a question is answered by letters, Return, Escape and the close box")
{
    constexpr int CLOSEBOX = -1;
    struct {
        uint32_t kind;
        int key, answer;
    } rows[] = {
        {CONFIRMYESNO, 'Y', 1},
        {CONFIRMYESNO, 'N', 0},
        {CONFIRMYESNO, VK_RETURN, 1},
        {CONFIRMYESNO, VK_ESCAPE, CANCELLED},
        {CONFIRMYESNO, CLOSEBOX, CANCELLED},
        {CONFIRMYESNO, 'S', UNANSWERED}, // of another kind
        {CONFIRMDISCARDCANCEL, 'D', 1},
        {CONFIRMDISCARDCANCEL, 'C', CANCELLED},
        {CONFIRMDISCARDCANCEL, VK_RETURN, UNANSWERED},
        {CONFIRMDISCARDCANCELSAVE, 'D', 0},
        {CONFIRMDISCARDCANCELSAVE, 'C', CANCELLED},
        {CONFIRMDISCARDCANCELSAVE, 'S', 1},
        {CONFIRMDISCARDCANCELSAVE, VK_RETURN, 1},
    };
    asker a;
    for (const auto &row : rows) {
        CAPTURE(row.kind);
        CAPTURE(row.key);
        CHECK(a.ask(row.kind, [&](window box) {
            if (row.key == CLOSEBOX)
                PostMessageA(taskhandle(box), WM_CLOSE, 0, 0);
            else
                drivekey(row.key);
        }) == row.answer);
    }
    for (uint32_t kind : {CONFIRMYESNO, CONFIRMDISCARDCANCEL})
        CHECK(a.ask(kind, [](window box) { PostMessageA(taskhandle(box), WM_CHAR, 0, 1); }) ==
              UNANSWERED); // Ctrl+@
}

TEST_CASE("a question has the buttons of its kind, and each its answer")
{
    struct {
        uint32_t kind;
        int icon, answer;
    } rows[] = {
        {CONFIRMYESNO, 0, 0},
        {CONFIRMYESNO, 11, 1},
        {CONFIRMDISCARDCANCEL, 3, 1},
        {CONFIRMDISCARDCANCEL, 4, CANCELLED},
        {CONFIRMDISCARDCANCELSAVE, 3, 0},
        {CONFIRMDISCARDCANCELSAVE, 5, CANCELLED},
        {CONFIRMDISCARDCANCELSAVE, 6, 1},
    };
    asker a;
    for (const auto &row : rows) {
        CAPTURE(row.kind);
        CAPTURE(row.icon);
        CHECK(a.ask(row.kind, [&](window box) {
            CHECK(drivetext(box, 12) == "Is it so?");
            for (int icon : {0, 11, 3, 4, 5, 6}) {
                auto of = [&](const auto &r) { return r.kind == row.kind && r.icon == icon; };
                CHECK((drivecontrol(box, icon) != 0) == std::ranges::any_of(rows, of));
            }
            driveiconclick(box, row.icon);
        }) == row.answer);
    }
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
    CHECK(a.ask(CONFIRMYESNO | CONFIRMFORCE, [](window) { drivekey('N'); }) == 0);
    setconfirm(1);
}
