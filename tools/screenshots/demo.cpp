// The demonstration at work: each part, what drops down and pops up, and boxes,
// which run loops of their own.
#include "base/boxes.h"
#include "base/errors.h"
#include "tests/support/driver.h"
#include "tools/deskdemo/deskdemo.h"
#include "tools/screenshots/screens.h"

namespace
{

constexpr int ESCAPE = 27, DOWN = 40, RIGHT = 39;

struct partrow {
    const char *name, *title;
    errorblock *(*open)();
    void (*end)();
    void (*pose)(window w); // 0 for just as it opens
};

// A button held down, and what a click has set.
void drawnpose(window w)
{
    constexpr int SELECTS = 120, PRESSED = 111, COLOURED = 134;
    for (int icon : {SELECTS, COLOURED})
        driveclick(driveicon(w, icon).x, driveicon(w, icon).y);
    drivemove(driveicon(w, PRESSED).x, driveicon(w, PRESSED).y);
    drivepress();
}

void fieldspose(window w)
{
    constexpr int ADD = 1, SHAPE = 13;
    for (const char *word : {"anagram", "palindrome", "rebus"}) {
        drivetype(word);
        driveclick(driveicon(w, ADD).x, driveicon(w, ADD).y);
    }
    driveclick(driveicon(w, SHAPE).x, driveicon(w, SHAPE).y);
}

void sheetpose(window w)
{
    driveplace middle = drivemiddle(w);
    driveclick(middle.x, middle.y);
    for (int n = 0; n < 3; n++)
        drivekey(DOWN);
    driveclick(middle.x + 40, middle.y + 20);
}

// In the middle of a drag, so that its box is there.
void dragspose(window w)
{
    constexpr int BOX = 5;
    driveplace from = driveicon(w, BOX);
    drivemove(from.x, from.y);
    drivepress();
    drivemove(from.x + 3, from.y + 3);
    drivemove(from.x + 20, from.y + 60);
}

void keyspose(window)
{
    constexpr int PAGEUP = 0x21;
    drivekey(PAGEUP, DRIVECTRL | DRIVESHIFT);
}

void clippose(window w)
{
    constexpr int COPY = 3;
    drivetype("to be copied");
    driveclick(driveicon(w, COPY).x, driveicon(w, COPY).y);
}

void talkpose(window w)
{
    constexpr int CONNECT = 3, SEND = 4;
    for (int icon : {CONNECT, SEND}) {
        driveclick(driveicon(w, icon).x, driveicon(w, icon).y);
        drivepump(100);
    }
}

// While it runs, and stopped.
void workpose(window w)
{
    constexpr int START = 3, STOP = 4;
    driveaside([] {},
               [w] {
                   driveclick(driveicon(w, START).x, driveicon(w, START).y);
                   drivewait([] { return false; }, 400);
                   screensave(w, "demo-work-running");
                   driveclick(driveicon(w, STOP).x, driveicon(w, STOP).y);
               });
}

constexpr partrow PARTS[] = {
    {"demo-drawn", "Drawn Controls", drawnopen, drawnend, drawnpose},
    {"demo-fields", "Fields", fieldsopen, fieldsend, fieldspose},
    {"demo-sheet", "Scrolling Pane", sheetopen, sheetend, sheetpose},
    {"demo-drags", "Drags", dragsopen, dragsend, dragspose},
    {"demo-keys", "Keys", keysopen, keysend, keyspose},
    {"demo-clipboard", "Clipboard", clipopen, clipend, clippose},
    {"demo-conversation", "Conversation", talkopen, talkend, talkpose},
    {"demo-work", "Long Work", workopen, workend, workpose},
};

// Buttons that a pose holds down are let go afterwards.
void part(const partrow &row)
{
    if (errorblock *err = row.open()) return screenfault(err->text);
    drivepump(100);
    window w = drivefind(row.title, "Task");
    screensave(w, row.name);
    if (!w) return;
    row.pose(w);
    drivepump(100);
    screensave(w, std::string(row.name) + "-used");
    driverelease();
    drivekey(ESCAPE); // of a list that has dropped down
    row.end();
    drivepump();
}

// Entry by entry, from the key of the menu on.
void menu(const char *name, int letter, int entriesdown, bool deeper)
{
    driveaside([] {},
               [=] {
                   drivemove(0, 0); // or the entry under the pointer would be chosen
                   drivekey(letter, DRIVEALT);
                   for (int n = 0; n < entriesdown; n++)
                       drivekey(DOWN);
                   if (deeper) drivekey(RIGHT);
                   drivewait([] { return false; }, 100);
                   screensave(demowindow, name);
                   for (int n = 0; n < 3; n++)
                       drivekey(ESCAPE);
               });
}

void box(const char *name, int32_t command, const char *classname)
{
    driveaside([=] { reporterror(democommand(command)); },
               [=] {
                   window w = drivewaitwindow("DeskDemo", classname);
                   drivewait([] { return false; }, 200);
                   screensave(w, name);
                   drivekey(ESCAPE);
               });
}

void about()
{
    constexpr int32_t ABOUT = 40;
    reporterror(democommand(ABOUT));
    drivepump(100);
    screensave(drivefind("About Quillmere", "Task"), "demo-about");
    drivekey(ESCAPE);
}

} // namespace

void screendemo()
{
    screensave(demowindow, "demo");
    about();
    for (const partrow &row : PARTS)
        part(row);
    menu("demo-menu-windows", 'W', 0, false);
    constexpr int32_t TICKED = 20;
    reporterror(democommand(TICKED));
    menu("demo-menu-ticks", 'M', 2, true);
    menu("demo-menu-made", 'M', 4, true);
    box("demo-confirm-yesno", 35, "Task");
    box("demo-confirm-discard", 36, "Task");
    box("demo-confirm-save", 37, "Task");
    box("demo-box-error", 30, "#32770");
    box("demo-box-warning", 31, "#32770");
    box("demo-box-okcancel", 32, "#32770");
}
