#include "tests/desktop/win32/script.h"

#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keynames.h"
#include "desktop/mouse.h"
#include "desktop/stages.h"
#include "desktop/templates.h"
#include "desktop/timed.h"
#include "desktop/wdata.h"
#include "desktop/windowplace.h"
#include "graphics/modeinfo.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <utility>
#include <vector>

std::function<errorblock *(mouserecord *)> onclick;
std::function<void(const std::string &)> onheard;

namespace
{

std::string heard;

templaterow templates[] = {
    {CONTROLS, 0, nullptr, "EventControls"},
    {PLAIN, 0, nullptr, "EventPlain"},
    {SCROLLS, 0, nullptr, "EventScrolls"},
    {ICONS, 0, nullptr, "EventIcons"},
    {0, 0, nullptr, nullptr},
};
templatelink link;

intptr_t letting; // the data of handlers that claim or stop what they hear of
std::vector<std::string> added;

std::string list(std::initializer_list<intptr_t> numbers)
{
    std::string text;
    for (intptr_t n : numbers)
        text += " " + std::to_string(n);
    return text;
}

// Under the name that a handler was added by.
errorblock *say(const char *name, intptr_t data, std::initializer_list<intptr_t> numbers,
                const std::string &text = "")
{
    std::string what = name + (data ? std::to_string(data) : "") + text + list(numbers) + ";";
    heard += what;
    if (onheard) onheard(what);
    return nullptr;
}

errorblock *tellkey(window, intptr_t data, int32_t icon, int32_t *code)
{
    char hex[16];
    snprintf(hex, sizeof hex, " %x", static_cast<unsigned>(*code));
    if (data == 2 && (*code & 0xFF) == letting) *code = KEYCLAIMED;
    return say("key", data, {icon}, hex);
}

errorblock *tellpointer(window, intptr_t data, mouserecord *mouse, bool *handled)
{
    *handled = data == letting;
    say("pointer", data, {mouse->icon});
    return *handled ? setpointer(POINTERCROSS, 0, nullptr) : nullptr;
}

using changer = errorblock *(*)(window w, intptr_t data);

struct handlerrow {
    const char *name;
    changer add, rem;
};

template<auto ADD, auto REM, auto FUNCTION> handlerrow on(const char *name)
{
    return {name, [](window w, intptr_t data) { return ADD(FUNCTION, w, data); },
            [](window w, intptr_t data) { return REM(FUNCTION, w, data); }};
}

const handlerrow HANDLERS[] = {
    on<addclickhandler, remclickhandler,
       +[](window, intptr_t data, mouserecord *mouse) {
           return say("click", data, {mouse->buttons, mouse->icon});
       }>("click"),
    on<addclickhandler, remclickhandler,
       +[](window, intptr_t, mouserecord *mouse) { return onclick(mouse); }>("calls"),
    on<addpointerhandler, rempointerhandler, tellpointer>("pointer"),
    on<addkeyhandler, remkeyhandler, tellkey>("key"),
    on<addopenhandler, remopenhandler,
       +[](window, intptr_t data, openrecord *open) {
           return say("open", data, {open->message, open->state.yscroll});
       }>("open"),
    on<addclosehandler, remclosehandler,
       +[](window, intptr_t data) { return say("close", data, {}); }>("close"),
    on<addredrawhandler, remredrawhandler,
       +[](window self, intptr_t data) {
           ValidateRect(handleof(self), nullptr); // or it is asked again at once
           return say("redraw", data, {});
       }>("redraw"),
    on<addfocushandler, remfocushandler,
       +[](window, intptr_t data, bool gained) { return say("focus", data, {gained}); }>("focus"),
    on<addtextchangehandler, remtextchangehandler,
       +[](window, int32_t icon, intptr_t data) { return say("text", data, {icon}); }>("text"),
    on<addwheelhandler, remwheelhandler,
       +[](window, intptr_t data, int32_t delta, int32_t, bool horizontal, bool *claimed) {
           *claimed = data == letting;
           return say("wheel", data, {delta, horizontal});
       }>("wheel"),
};

// Adds or takes away a handler by its name.
void change(window w, const std::string &name, bool adds)
{
    size_t digits = name.find_first_of("0123456789");
    intptr_t data = digits == std::string::npos ? 0 : std::stoi(name.substr(digits));
    for (const auto &h : HANDLERS) {
        if (name.substr(0, digits) != h.name) continue;
        if (adds) added.push_back(name);
        if (!adds) std::erase(added, name);
        CHECK_FALSE((adds ? h.add : h.rem)(w, data));
        return;
    }
    FAIL("no handler called ", name);
}

} // namespace

void said(const char *format, ...)
{
    char text[256];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    heard += text;
}

std::string taken()
{
    return std::exchange(heard, "");
}

library::library()
{
    REQUIRE_FALSE(inittemp());
    REQUIRE_FALSE(blockstart());
    REQUIRE_FALSE(addtemplates(nullptr, "", templates, &link));
    setdragfunctions(0, 0, nullptr);
    letting = -1;
    onclick = nullptr;
    onheard = nullptr;
    heard.clear();
    added.clear();
}

library::~library()
{
    drivepump();
    while (wdatas) {
        HWND last = handleof(wdatas->handle);
        wdatafree(wdatas);
        DestroyWindow(last);
    }
    CHECK(blockcount() == 0);
    CHECK(timedcount() == 0);
    CHECK(nullcount() == 0);
    CHECK(mousestate() == MOUSEIDLE);
    CHECK(GetCapture() == nullptr);
    remtemplates(&link);
    blockend();
}

window taskwindow(DWORD style, window parent)
{
    REQUIRE_FALSE(inittemp());
    wdataparent = parent;
    HWND made = CreateWindowExA(0, "Task", "A window", style, 50, 60, 300, 200, handleof(parent),
                                nullptr, GetModuleHandleA(nullptr), nullptr);
    REQUIRE(made);
    return reinterpret_cast<window>(made);
}

windowstaterecord taskstate(window w)
{
    windowstaterecord state;
    REQUIRE_FALSE(windowstate(w, &state));
    return state;
}

void taskopen(window w, int32_t left, int32_t top, int32_t width, int32_t height, intptr_t behind)
{
    windowstaterecord state = taskstate(w);
    placestate({left, top, left + width, top + height}, &state);
    state.behind = behind;
    REQUIRE_FALSE(openwindow(&state));
}

window templatewindow(int32_t number, int left, window parent)
{
    window w = 0;
    REQUIRE_FALSE(createchild(number, &w, parent));
    taskopen(w, left, 150, 300, 200, BEHINDTOP);
    SetForegroundWindow(handleof(w));
    drivepump();
    return w;
}

RECT taskclient(window w)
{
    RECT client;
    GetClientRect(handleof(w), &client);
    MapWindowPoints(handleof(w), nullptr, reinterpret_cast<POINT *>(&client), 2);
    return client;
}

HWND taskcontrol(window w, int32_t icon)
{
    return GetDlgItem(handleof(w), icon);
}

static void screen(int32_t dpi)
{
    modefacts facts = {};
    facts.xdpi = facts.ydpi = dpi;
    facts.widthpx = GetSystemMetrics(SM_CXSCREEN);
    facts.heightpx = GetSystemMetrics(SM_CYSCREEN);
    facts.bitspixel = 32;
    modeinfoset(facts);
}

bothscreens::bothscreens()
{
    screen(96);
    SUBCASE("96 dpi") {}
    SUBCASE("144 dpi")
    {
        screen(144);
    }
}

bothscreens::~bothscreens()
{
    modeinfoinit();
}

namespace
{

// The words behind a verb: numbers, as far as they are some, and all in one.
struct arguments {
    UINT message;
    int n[2];
    std::string rest;

    std::string behind() const // the first word
    {
        size_t space = rest.find(' ');
        return space == std::string::npos ? "" : rest.substr(space + 1);
    }
};

std::vector<std::string> split(const std::string &text, char mark)
{
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, mark);) {
        part.erase(0, part.find_first_not_of(' '));
        if (!part.empty()) parts.push_back(part);
    }
    return parts;
}

// A message by its name, which may stand before the numbers.
const struct {
    const char *name;
    UINT number;
} MESSAGES[] = {{"vscroll", WM_VSCROLL}, {"hscroll", WM_HSCROLL}};

arguments argumentsof(const std::string &rest)
{
    arguments a = {0, {}, rest};
    for (const auto &m : MESSAGES)
        if (rest.substr(0, rest.find(' ')) == m.name) a.message = m.number;
    std::string numbers = a.message ? a.behind() : rest;
    const char *at = numbers.c_str();
    for (int &n : a.n) {
        char *end;
        n = static_cast<int>(strtoll(at, &end, 0));
        at = end;
    }
    return a;
}

void pointto(script &s, driveplace place)
{
    s.place = place;
    drivemove(place.x, place.y);
}

void place(window w, const int *n, UINT flags)
{
    SetWindowPos(handleof(w), nullptr, n[0], n[1], n[0], n[1], flags | SWP_NOZORDER);
}

void keypress(const std::string &name)
{
    int32_t code = keycodefromname(name.c_str());
    REQUIRE_MESSAGE(code != -1, name);
    drivekey(code & 0xFF, (code & KEYSHIFT ? DRIVESHIFT : 0) | (code & KEYCTRL ? DRIVECTRL : 0) |
                              (code & KEYALT ? DRIVEALT : 0));
}

void tofront(window w)
{
    SetForegroundWindow(handleof(w));
    drivepump();
}

void showcaret()
{
    caretrecord caret;
    window w;
    int32_t icon;
    CHECK_FALSE(getcaret(&caret));
    CHECK_FALSE(getcaretpair(&w, &icon));
    CHECK((w == caret.self && icon == caret.icon));
    said("%d %d %d;", caret.icon, caret.start, caret.end);
}

const char *cursorname()
{
    static const struct {
        const char *name;
        LPCSTR number;
    } names[] = {{"arrow", IDC_ARROW},      {"wait", IDC_WAIT}, {"cross", IDC_CROSS},
                 {"busy", IDC_APPSTARTING}, {"help", IDC_HELP}, {"text", IDC_IBEAM},
                 {"icon", IDC_ICON},        {"no", IDC_NO},     {"all", IDC_SIZEALL}};
    HCURSOR now = GetCursor();
    for (const auto &n : names)
        if (now == LoadCursorA(nullptr, n.number)) return n.name;
    for (const char *name : {"hand", "splith"})
        if (now == LoadCursorA(GetModuleHandleA(nullptr), name)) return name;
    return now ? "another" : "none";
}

std::string view(window w)
{
    windowstaterecord state = taskstate(w);
    return std::to_string(state.xscroll) + " " + std::to_string(state.yscroll);
}

const struct {
    const char *verb;
    void (*run)(script &s, const arguments &a);
} VERBS[] = {
    // The pointer: to a place of the window, to a control, by some pixels.
    {"at", [](auto &s, auto &a) { pointto(s, driveclient(s.w, a.n[0], a.n[1])); }},
    {"on", [](auto &s, auto &a) { pointto(s, driveicon(s.w, a.n[0])); }},
    {"by",
     [](auto &s, auto &a) {
         pointto(s, {s.place.x + a.n[0], s.place.y + a.n[1]});
     }},
    {"press", [](auto &, auto &) { drivepress(); }},
    {"release", [](auto &, auto &) { driverelease(); }},
    {"Press", [](auto &, auto &) { drivepress(DRIVERIGHT); }},
    {"Release", [](auto &, auto &) { driverelease(DRIVERIGHT); }},
    {"click", [](auto &, auto &) { drivepress(), driverelease(); }},
    {"double", [](auto &s, auto &) { drivedouble(s.place.x, s.place.y); }},
    {"Double", [](auto &s, auto &) { drivedouble(s.place.x, s.place.y, DRIVERIGHT); }},
    {"wheel", [](auto &, auto &a) { drivewheel(a.n[0]); }},
    {"hwheel", [](auto &, auto &a) { drivewheel(a.n[0], true); }},
    {"capture", [](auto &s, auto &a) { SetCapture(taskcontrol(s.w, a.n[0])); }},
    {"uncapture", [](auto &, auto &) { ReleaseCapture(); }},
    // The keyboard.
    {"key", [](auto &, auto &a) { keypress(a.rest); }},
    {"type", [](auto &, auto &a) { drivetype(a.rest); }},
    // The window, and another.
    {"front", [](auto &s, auto &) { tofront(s.w); }},
    {"another", [](auto &s, auto &) { s.other = templatewindow(PLAIN, 600); }},
    {"frontother", [](auto &s, auto &) { tofront(s.other); }},
    {"endother", [](auto &s, auto &) { removewindow(&s.other); }},
    {"move", [](auto &s, auto &a) { place(s.w, a.n, SWP_NOSIZE); }},
    {"size", [](auto &s, auto &a) { place(s.w, a.n, SWP_NOMOVE); }},
    {"hide", [](auto &s, auto &) { ShowWindow(handleof(s.w), SW_HIDE); }},
    {"erase", [](auto &s, auto &) { InvalidateRect(handleof(s.w), nullptr, TRUE); }},
    {"closebox", [](auto &s, auto &) { SendMessageA(handleof(s.w), WM_CLOSE, 0, 0); }},
    {"close", [](auto &s, auto &) { CHECK_FALSE(closewindow(s.w)); }},
    {"flags", [](auto &s, auto &a) { setflags(s.w, a.n[0], a.n[1]); }},
    {"wait", [](auto &, auto &a) { drivewait([] { return false; }, a.n[0]); }},
    // A message by its name, and numbers.
    {"send", [](auto &s, auto &a) { SendMessageA(handleof(s.w), a.message, a.n[0], a.n[1]); }},
    // Handlers, and the data of those that claim what they hear from now on.
    {"add", [](auto &s, auto &a) { change(s.w, a.rest, true); }},
    {"rem", [](auto &s, auto &a) { change(s.shown, a.rest, false); }},
    {"let", [](auto &, auto &a) { letting = a.n[0]; }},
    // Controls by number, -1 for the window itself.
    {"focus", [](auto &s, auto &a) { CHECK_FALSE(setcaret(s.w, a.n[0], 0, 0, 0, a.n[1])); }},
    {"nofocus", [](auto &, auto &) { SetFocus(nullptr); }},
    {"next", [](auto &s, auto &a) { focusnext(s.w, drivecontrol(s.w, a.n[0]), a.n[1]); }},
    {"end", [](auto &s, auto &a) { CHECK_FALSE(caretatend(s.w, a.n[0])); }},
    {"text", [](auto &s, auto &a) { seticontext(s.w, a.n[0], a.behind().c_str()); }},
    {"shade", [](auto &s, auto &a) { CHECK_FALSE(seticonshaded(s.w, a.n[0], a.n[1])); }},
    {"select", [](auto &s, auto &a) { CHECK_FALSE(seticonselected(s.w, a.n[0], a.n[1])); }},
    {"limit", [](auto &s, auto &a) { CHECK_FALSE(seticonlimit(s.w, a.n[0], a.n[1])); }},
    {"default", [](auto &s, auto &a) { CHECK_FALSE(seticondefault(s.w, a.n[0])); }},
    {"delete", [](auto &s, auto &a) { CHECK_FALSE(deleteicon(s.w, a.n[0])); }},
    // What is to be seen: they write it down.
    {"?text", [](auto &s, auto &a) { said("%s;", drivetext(s.w, a.n[0]).c_str()); }},
    {"?caret", [](auto &, auto &) { showcaret(); }},
    {"?cursor", [](auto &, auto &) { said("%s;", cursorname()); }},
    {"?view", [](auto &s, auto &) { said("%s;", view(s.w).c_str()); }},
    {"?mouse", [](auto &, auto &) { said("%d;", mousestate()); }},
    {"?shown", [](auto &s, auto &) { said("%d;", IsWindowVisible(handleof(s.w))); }},
    {"?front", [](auto &s, auto &) { said("%d;", GetFocus() == handleof(s.w)); }},
};

void perform(script &s, const std::string &line)
{
    size_t end = std::min(line.find(' '), line.size());
    std::string verb = line.substr(0, end);
    arguments a = argumentsof(line.substr(std::min(end + 1, line.size())));
    for (const auto &v : VERBS)
        if (verb == v.verb) {
            v.run(s, a);
            drivepump(5); // the hands have waited themselves
            return;
        }
    FAIL("no verb ", verb);
}

} // namespace

script::script(int32_t number, const char *handlers) : w(templatewindow(number, 200)), shown(w)
{
    focuswindow(w);
    for (const std::string &name : split(handlers, ' '))
        change(w, name, true);
    drivepump();
    taken();
}

script::~script()
{
    drivepump();
    while (!added.empty())
        change(shown, std::string(added.back()), false);
    if (w) CHECK_FALSE(removewindow(&w));
}

std::string script::act(const std::string &acts)
{
    for (const std::string &line : split(acts, ';'))
        perform(*this, line);
    return taken();
}

void script::play(std::initializer_list<scriptrow> rows)
{
    for (const scriptrow &r : rows) {
        INFO(std::string(r.acts));
        std::string told = act(r.acts);
        if (r.call) r.call();
        told += taken();
        if (r.heard.ends_with("*")) told = told.substr(0, r.heard.size() - 1) + "*";
        CHECK(told == r.heard);
    }
}
