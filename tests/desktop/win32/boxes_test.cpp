// Boxes as a user meets them: questions, files, help; and the busy cursor.
#include "base/boxes.h"
#include "base/errors.h"
#include "base/files.h"
#include "desktop/confirm.h"
#include "desktop/filedialogs.h"
#include "desktop/handlers.h"
#include "desktop/helpsystem.h"
#include "desktop/hourglass.h"
#include "desktop/message.h"
#include "desktop/stages.h"
#include "desktop/task.h"
#include "tests/desktop/win32/script.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

TEST_CASE("a question is answered by letters, Return, Escape, the frame's box and its buttons")
{
    constexpr int CANCELLED = -1, UNANSWERED = -9, CLOSEBOX = -1, BUTTONS = 12;
    constexpr char TITLE[] = "The test's questions";
    const struct {
        uint32_t kind;
        int by, answer; // by a button of the box, or a key
    } rows[] = {
        {CONFIRMYESNO, 'Y', 1},
        {CONFIRMYESNO, VK_RETURN, 1},
        {CONFIRMYESNO, VK_ESCAPE, CANCELLED},
        {CONFIRMYESNO, CLOSEBOX, CANCELLED},
        {CONFIRMYESNO, 'S', UNANSWERED}, // of another kind
        {CONFIRMYESNO, 0, 0},
        {CONFIRMYESNO, 11, 1},
        {CONFIRMDISCARDCANCEL, 'C', CANCELLED},
        {CONFIRMDISCARDCANCEL, VK_RETURN, UNANSWERED},
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
        int answer = UNANSWERED;
        bool cancelled = false;
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
            // What is still open is cancelled.
            cancelled = !drivewait([&] { return !drivefind(TITLE, "Task"); }, 200);
            if (cancelled) drivekey(VK_ESCAPE);
        };
        driveaside([&] { CHECK_FALSE(confirm(s.w, r.kind, &answer, "Is it %s?", "so")); }, hands);
        CHECK(IsWindowEnabled(handleof(s.w)));
        CHECK((cancelled ? UNANSWERED : answer) == r.answer);
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

bool failing;

// Notes the name and the type.
errorblock *saved(const char *path, int32_t type)
{
    said("%s %x;", strrchr(path, '\\') + 1, static_cast<unsigned>(type));
    return failing ? makeerrortext(77, "No room") : nullptr;
}

errorblock *loaded(const char *path, int32_t type, intptr_t, intptr_t)
{
    return saved(path, type);
}

} // namespace

// Formats and their rows are seen in the script of the screen.
TEST_CASE("a box for saving starts with the path, and a file that is there is loaded by its type")
{
    library started;
    filetypenode node;
    addfiletypes(TYPES, &node);
    char path[PATHSIZE];
    // What was saved, and the path then.
    auto save = [&](const char *start, const char *typed, bool ok, bool loud) {
        std::strcpy(path, (scratchfolder() + "\\" + start).c_str());
        std::string name = *typed ? scratchfolder() + "\\" + typed : "";
        errorblock *err = nullptr;
        CHECK(drivefilebox(name, 0, ok, [&] {
            err = loud ? savefileloud(path, sizeof path, TEXT, saved, 0)
                       : savefile(path, sizeof path, TEXT, saved);
        }));
        if (err) said("error %d;", static_cast<int>(err->code));
        return taken() + (strrchr(path, '\\') + 1);
    };
    failing = false;
    CHECK(save("Start here.qmg", "", true, false) == "Start here.txt fff;Start here.txt");
    CHECK(save("c", "", false, false) == "c");
    CHECK(save("c", "", false, true) == "error " + std::to_string(ERRORSAVECANCELLED) + ";c");
    failing = true;
    CHECK(save("c", "x", true, false) == "x.txt fff;error 77;x.txt");
    failing = false;

    std::string file = scratchfolder() + "\\words \xE9.txt";
    REQUIRE_FALSE(filesave(file.c_str(), 0, "a", 1));
    static const int32_t texts[] = {TEXT, -1};
    static const loadgroup groups[] = {{"Texts", 2, texts}};
    auto load = [&](bool ok, loadhandler handler) {
        CHECK(drivefilebox(file, 0, ok,
                           [&] { CHECK_FALSE(loadfile(path, 0, groups, 1, handler, 42, 0)); }));
        return taken();
    };
    CHECK(load(false, loaded) == "");
    CHECK(load(true, loaded) == "words \xE9.txt fff;"); // by the caller's handler
    CHECK(path == file);
    REQUIRE_FALSE(addloadhandler(TEXT, loaded));
    CHECK(load(true, nullptr) == ""); // by the one of its type: the request waits
    sendmessage(TASKRUN, 0, 0);
    CHECK(taken() == "words \xE9.txt fff;");
    remloadhandler(TEXT, loaded);
    filedelete(file.c_str());
    remfiletypes(&node);
}

// The system's help, which only notes what it was asked.
errorblock *helpsystemtopic(window, const char *path)
{
    said("topic %s;", path);
    return nullptr;
}

errorblock *helpsystempopup(window, const char *text, int32_t x, int32_t y, const char *font)
{
    said("%s %d %d %s;", text, x, y, font);
    return nullptr;
}

errorblock *helpsystemopen(window, const char *address)
{
    said("open %s;", address);
    return nullptr;
}

TEST_CASE("help is shown at the control with the focus, under the pointer, or pressed next")
{
    helpfunction answers = [](window, intptr_t, int32_t icon, const char **text) -> errorblock * {
        said("%d ", icon);
        *text = "Text";
        return nullptr;
    };
    script s(CONTROLS);
    RECT frame;
    GetWindowRect(taskcontrol(s.w, BUTTON), &frame);
    std::string shown =
        "11 Text " + std::to_string(frame.left) + " " + std::to_string(frame.top) + " Arial, 8, ,;";
    REQUIRE_FALSE(addhelphandler(answers, s.w, 0));
    s.play({{"focus 11; key F1", shown},
            {"key C_F1; on 11; Click", shown},
            {"add click; key S_F1; on 11; click", shown}, // it isn't pressed
            {"by 8 0; click", "click 4 11;"}});
    remhelphandler(answers, s.w, 0);
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
            {"?cursor", "arrow;", [] { CHECK(hourglasshelp(1) == 0); }},
            {"?cursor", "arrow;", on}, // the help cursor stands for the busy one
            {"?cursor", "help;", [] { CHECK(hourglasshelp(0) == 1); }},
            {"?cursor", "wait;", off},
            {"?cursor", "arrow;"}});
}
