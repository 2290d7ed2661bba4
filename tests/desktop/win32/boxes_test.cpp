// Boxes as a user meets them: questions and files; and the busy cursor.
#include "base/boxes.h"
#include "base/errors.h"
#include "base/filetypes.h"
#include "desktop/confirm.h"
#include "desktop/filedialogs.h"
#include "desktop/hourglass.h"
#include "desktop/stages.h"
#include "desktop/task.h"
#include "tests/desktop/win32/script.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

TEST_CASE("a question is answered by letters, Return, Escape, the frame's box and its buttons")
{
    constexpr int CANCELLED = -1, CLOSEBOX = -1, BUTTONS = 12;
    constexpr char TITLE[] = "The test's questions";
    const struct {
        uint32_t kind;
        int by, answer; // by a button of the box, or a key
    } rows[] = {
        {CONFIRMYESNO, 'Y', 1},
        {CONFIRMYESNO, VK_RETURN, 1},
        {CONFIRMYESNO, VK_ESCAPE, CANCELLED},
        {CONFIRMYESNO, CLOSEBOX, CANCELLED},
        {CONFIRMYESNO, 0, 0},
        {CONFIRMYESNO, 11, 1},
        {CONFIRMDISCARDCANCEL, 'C', CANCELLED},
        {CONFIRMDISCARDCANCEL, 3, 1},
        {CONFIRMDISCARDCANCEL, 4, CANCELLED},
        {CONFIRMDISCARDCANCELSAVE, 'D', 0},
        {CONFIRMDISCARDCANCELSAVE, VK_RETURN, 1},
        {CONFIRMDISCARDCANCELSAVE, 3, 0},
        {CONFIRMDISCARDCANCELSAVE, 5, CANCELLED},
        {CONFIRMDISCARDCANCELSAVE, 6, 1},
        {CONFIRMYESNO | CONFIRMFORCE, 'N', 0}, // while they are off
    };
    script s(PLAIN);
    REQUIRE_FALSE(tasktemplates());
    settaskname("Test", TITLE);
    for (const auto &r : rows) {
        CAPTURE(r.kind);
        CAPTURE(r.by);
        setconfirm(!(r.kind & CONFIRMFORCE));
        int answer = 99;
        auto hands = [&] {
            window box = drivewaitwindow(TITLE, "Task");
            CHECK_FALSE(IsWindowEnabled(handleof(s.w)));
            CHECK(drivetext(box, 12) == "Is it so?");
            for (int icon : {0, 11, 3, 4, 5, 6}) { // of its kind alone
                auto ofkind = [&](const auto &o) {
                    return o.by == icon && o.kind == (r.kind & ~CONFIRMFORCE);
                };
                CHECK(std::ranges::any_of(rows, ofkind) == (drivecontrol(box, icon) != 0));
            }
            if (r.by == CLOSEBOX)
                PostMessageA(handleof(box), WM_CLOSE, 0, 0);
            else if (r.by < BUTTONS)
                driveiconclick(box, r.by);
            else
                drivekey(r.by);
        };
        driveaside([&] { CHECK_FALSE(confirm(s.w, r.kind, &answer, "Is it %s?", "so")); }, hands);
        CHECK(IsWindowEnabled(handleof(s.w)));
        CHECK(answer == r.answer);
    }
    int answer;
    CHECK((!confirm(s.w, CONFIRMYESNO, &answer, "?") && answer == 1));
    CHECK((!confirm(s.w, CONFIRMDISCARDCANCELSAVE, &answer, "?") && answer == 0));
    setconfirm(1);
}

namespace
{

constexpr int32_t TEXT = 0xFFF;

constexpr filetyperow TYPES[] = {
    {TEXT, "txt", "Text (*.txt)"},
    {FILETYPEEND, nullptr, nullptr},
};

} // namespace

// Formats and their rows, and what is loaded, are seen in the script of the screen.
TEST_CASE("a box for saving starts with the path, and tells of a failure and of Cancel if asked")
{
    static bool failing;
    savehandler saved = [](const char *path, int32_t type) -> errorblock * {
        said("%s %x;", strrchr(path, '\\') + 1, static_cast<unsigned>(type));
        return failing ? makeerrortext(77, "No room") : nullptr;
    };
    library started;
    filetypenode node;
    addfiletypes(TYPES, &node);
    const struct {
        const char *start, *typed;
        bool ok, loud, fails;
        std::string told; // what was saved, and the path then
    } rows[] = {
        {"Start here.qmg", "", true, false, false, "Start here.txt fff;Start here.txt"},
        {"c", "", false, false, false, "c"},
        {"c", "", false, true, false, "error " + std::to_string(ERRORSAVECANCELLED) + ";c"},
        {"c", "x", true, false, true, "x.txt fff;error 77;x.txt"},
    };
    for (const auto &r : rows) {
        char path[PATHSIZE];
        std::strcpy(path, (scratchfolder() + "\\" + r.start).c_str());
        std::string name = *r.typed ? scratchfolder() + "\\" + r.typed : "";
        errorblock *err = nullptr;
        failing = r.fails;
        CHECK(drivefilebox(name, 0, r.ok, [&] {
            err = r.loud ? savefileloud(path, sizeof path, TEXT, saved, 0)
                         : savefile(path, sizeof path, TEXT, saved);
        }));
        if (err) said("error %d;", static_cast<int>(err->code));
        CHECK(taken() + (strrchr(path, '\\') + 1) == r.told);
    }
    remfiletypes(&node);
}

TEST_CASE("the busy cursor shows until it is taken off as often as it was put on")
{
    auto on = [] { hourglasson(); };
    auto off = [] { hourglassoff(); };
    auto again = [] {
        SetCursor(nullptr);
        CHECK(hourglassforce());
    };
    script s(PLAIN);
    hourglassoff(); // one too many is not counted
    CHECK_FALSE(hourglassforce());
    s.play({{"?cursor", "arrow;", on},
            {"?cursor", "wait;", on},
            {"?cursor", "wait;", off},
            {"?cursor", "wait;", again}, // a request for the shape is answered while busy
            {"?cursor", "wait;", off},
            {"?cursor", "arrow;"}});
}
