#include "desktop/press.h"

#include <doctest/doctest.h>

#include <sstream>
#include <string>
#include <utility>

namespace
{

constexpr window BUTTON = 100, OTHER = 200;

std::string asked, onclick; // of the window side; what the next click's handler does

void act(const std::string &word, const char *codes)
{
    bool right = word.find('r') != word.npos, over = !word.ends_with('-'); // or beside it
    int32_t button = right ? BUTTONRIGHT : BUTTONLEFT;
    if (word.starts_with("down")) pressdown(BUTTON, button, codes);
    if (word.starts_with("twice")) pressdouble(BUTTON, button, codes);
    if (word.starts_with("move")) pressmove(BUTTON, over);
    if (word.starts_with("up")) pressup(BUTTON, button, over);
    if (word.starts_with("tick")) presstick(BUTTON, over);
    if (word == "lost") presslost(BUTTON);
    if (word == "gone") pressgone(BUTTON);
    if (word == "other") pressdown(OTHER, BUTTONLEFT, "1");
}

void ask(window control, const std::string &what)
{
    asked += (control == OTHER ? " other " : " ") + what;
}

} // namespace

void presslook(window control, bool pressed)
{
    ask(control, pressed ? "down" : "up");
}

// Giving up capture tells of its loss, as the system does.
void presscapture(window control, bool on)
{
    ask(control, on ? "capture" : "free");
    if (!on) presslost(control);
}

void presstimer(window control, bool on)
{
    ask(control, on ? "timer" : "notimer");
}

void pressclick(window control, int32_t buttons)
{
    ask(control, std::to_string(buttons));
    act(std::exchange(onclick, ""), "");
}

TEST_CASE("what a control asks for at each thing that happens to it, by its codes")
{
    // A right button is "r"; "-" is beside the control.
    const struct {
        const char *codes;
        std::string acts, asked, onclick = "";
    } rows[] = {
        {"1", "down move up", " down capture 4 notimer / / free up notimer /"},
        {"13x", "downr upr", " down capture 1 notimer / free up notimer /"},
        // At the release, over itself only.
        {"R1", "down move- move up", " down capture notimer / up / down / free up 4 notimer /"},
        {"R1", "down lost up", " down capture notimer / up notimer / /"}, // cut short
        // A drag is the first movement, and with the button down.
        {"D1", "down move move up", " down capture 4 notimer / 64 / / free up notimer /"},
        {"D", "downr move- upr-", " down capture notimer / 16 up / free up notimer /"},
        {"D", "down move move", " down capture notimer / 64 up notimer / /", "lost"},
        // Double clicks.
        {"12", "down up twice up",
         " down capture 4 notimer / free up notimer / down capture 1024 notimer / "
         "free up notimer /"},
        {"R12", "downr upr twicer upr",
         " down capture notimer / free up 1 notimer / down capture notimer / "
         "free up 256 notimer /"},
        // A held button repeats after a pause, and again after a double click.
        {"A", "down tick tick tick tick tick tick tick- tick up",
         " down capture notimer timer 4 / / / / / / 4 / / 4 / free up notimer /"},
        {"A", "down up twice tick lost",
         " down capture notimer timer 4 / free up notimer / down capture notimer timer 4 / / "
         "up notimer /"},
        // Handlers that delete the control, let it go, or press another.
        {"1A", "down tick up", " down capture 4 / / /", "gone"},
        {"1A", "down", " down capture 4 free up notimer notimer /", "up"},
        {"R1", "down other move- up lost",
         " down capture notimer / up notimer other down other capture other 4 other notimer / / / "
         "/"},
    };
    for (const auto &row : rows) {
        pressgone(press.control);
        asked.clear();
        onclick = row.onclick;
        std::istringstream acts(row.acts);
        for (std::string word; acts >> word; asked += " /")
            act(word, row.codes);
        CAPTURE(row.codes);
        CHECK(asked == row.asked);
    }
}
