#include "tests/desktop/script.h"

#include "base/errors.h"
#include "base/filetypes.h"
#include "base/flex.h"
#include "desktop/blocks.h"
#include "desktop/ddecommand.h"
#include "desktop/drop.h"
#include "desktop/eventsource.h"
#include "desktop/filters.h"
#include "desktop/handlers.h"
#include "desktop/loadrequest.h"
#include "desktop/message.h"
#include "desktop/poll.h"
#include "desktop/subclass.h"
#include "desktop/timed.h"
#include "desktop/wdata.h"
#include "tests/desktop/fake/fakesource.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <sstream>
#include <utility>

namespace
{

using numbers = const int32_t *;

std::map<std::string, std::string> reactions; // acts by a handler's call, done once
bool claims, fails;                           // what the reaction that runs has asked for

void note(std::string entry, std::initializer_list<int64_t> given = {})
{
    for (int64_t number : given)
        entry += " " + std::to_string(number);
    fake.log.push_back(entry);
}

void noteerror(const errorblock *err)
{
    if (err) note("error", {err->code});
}

void act(const std::string &line);

void actall(const std::string &acts, char between)
{
    std::istringstream lines(acts);
    for (std::string line; std::getline(lines, line, between);)
        act(line);
}

void react(const std::string &entry)
{
    for (auto &[call, acts] : reactions)
        if ((entry + " ").starts_with(call + " "))
            return actall(reactions.extract(call).mapped(), '&');
}

// What a handler was given: numbers and texts are heard, the rest can be claimed.
template<typename type> void take(type given, std::string *entry, std::function<void()> *claim)
{
    if constexpr (std::is_integral_v<type>)
        *entry += " " + std::to_string(given);
    else if constexpr (std::is_same_v<type, const char *>)
        *entry += std::string(" ") + given;
    else if constexpr (std::is_same_v<type, const systemmessage *>)
        take(given->message, entry, claim);
    else if constexpr (std::is_same_v<type, mouserecord *>)
        take(given->x, entry, claim);
    else
        *claim = [given, before = *claim] {
            if (before) before();
            *given = 1;
        };
}

template<size_t size> struct literal {
    char text[size];
    constexpr literal(const char (&from)[size])
    {
        std::copy_n(from, size, text);
    }
};

// Every handler.
template<literal kind, typename... types> errorblock *hears(types... given)
{
    std::string entry = kind.text;
    std::function<void()> claim;
    (take(given, &entry, &claim), ...);
    note(entry);
    react(entry);
    if (std::exchange(claims, false)) claim();
    return std::exchange(fails, false) ? fakeerror() : nullptr;
}

// Of a file to print, its name and the printer's.
errorblock *printed(intptr_t *record, bool *)
{
    auto *name = reinterpret_cast<const char *>(record[11]);
    auto *printer = reinterpret_cast<const char *>(record[12]);
    note(std::string("print ") + name + (printer ? " to " : "") + (printer ? printer : ""),
         {record[10]});
    return nullptr;
}

#define KIND(name, calls, ...)                                                                     \
    {                                                                                              \
#name, [](bool on, numbers n) { return (on ? add##calls : rem##calls)(__VA_ARGS__); }      \
    }

const std::map<std::string, errorblock *(*)(bool on, numbers n)> kinds = {
    KIND(null, nullhandler, hears<"null">, n[0]),
    KIND(pre, prepollhandler, hears<"pre">, n[0]),
    KIND(post, postpollhandler, hears<"post">, n[0]),
    KIND(message, messagehandler, n[0], hears<"message">, n[1]),
    KIND(broadcast, broadcasthandler, hears<"broadcast">, n[0]),
    KIND(other, broadcasthandler, hears<"other">, n[0]),
    KIND(nobody, broadcasthandler, nullptr, n[0]),
    KIND(print, broadcasthandler, printed, n[0]),
    KIND(filter, filter, hears<"filter">, n[0], n[1], n[2]), // message, window
    KIND(nofilter, filter, nullptr, n[0], n[1], n[2]),
    KIND(pollfilter, pollfilter, hears<"pollfilter">, n[0], n[1], n[2]),
    KIND(subclass, subclasshandler, n[0], n[1], n[2], hears<"subclass">), // window, control
    KIND(load, loadhandler, n[0], hears<"load">),
    KIND(loaded, loadedhandler, n[0], hears<"loaded">),
    KIND(drop, drophandler, n[0], n[1], hears<"drop">),
    KIND(dropload, droploadhandler, n[0], n[1], hears<"dropload">),
    KIND(dropdone, dropdonehandler, n[0], n[1], hears<"dropdone">),
    KIND(closed, parentclosedhandler, hears<"closed">, n[0], n[1]),
    KIND(deleted, parentdeletedhandler, hears<"deleted">, n[0], n[1]),
    {"timed", // data, delay
     [](bool on, numbers n) {
         return on ? addtimedcall(hears<"timed">, n[0], n[1]) : remtimedcall(hears<"timed">, n[0]);
     }},
};

// Polls until a timed call is made, and tells after how long.
void polluntilcalled()
{
    std::vector<std::string> before = std::exchange(fake.log, {});
    uint32_t start = fake.milliseconds;
    while (fake.timer &&
           std::count(fake.log.begin(), fake.log.end(), "wait") == std::ssize(fake.log))
        pollonce();
    std::erase(fake.log, "wait");
    before.push_back(std::to_string(fake.milliseconds - start) + "ms");
    fake.log.insert(fake.log.begin(), before.begin(), before.end());
}

void windowadd(window w, window parent)
{
    wdata *record = nullptr;
    noteerror(wdatanew(w, &record));
    if (record) record->parent = parent;
}

void windowslist()
{
    note("windows");
    for (const wdata *record = wdatas; record; record = record->next) {
        fake.log.back() += " " + std::to_string(record->handle);
        CHECK((!record->next || record->next->previous == record));
    }
}

void fileload(const std::string &name, intptr_t flag)
{
    bool handled = false;
    noteerror(loadfile(name.c_str(), flag, &handled));
    if (!handled) note("nobody");
}

void subclassrun(const systemmessage &message)
{
    intptr_t result = 0, procedure;
    bool stopped = subclassdeliver(&message, &result, &procedure);
    note(stopped ? "stopped" : "to", {stopped ? result : procedure});
}

void keysforward(const systemmessage &message)
{
    bool stop = false;
    intptr_t result;
    subclasskeys(&message, 0, &stop, &result);
    note("stop", {stop});
}

void filtersrun(const systemmessage &message)
{
    intptr_t result = 0;
    int kind = 0;
    bool stopped = runfilters(FILTERWINDOW, &message, &result, &kind);
    note("stopped", {stopped, result, kind});
}

void filedropped(const std::string &name, window w, bool folder)
{
    mouserecord mouse = {};
    mouse.x = 55;
    filedrop(w, name.c_str(), folder, &mouse);
}

void dependants(window parent, int32_t type)
{
    wdatadependants(
        parent, type, [](window w) { note("end", {w}); }, type == EVENTPARENTDELETED);
}

#define ACT(verb, ...)                                                                             \
    {                                                                                              \
#verb, []([[maybe_unused]] const std::string &name,                                        \
                  [[maybe_unused]] numbers n) { __VA_ARGS__; }                                     \
    }

// An act may have a word, and numbers behind it.
const std::map<std::string, void (*)(const std::string &name, numbers n)> acts = {
    // Of a handler.
    ACT(fail, fails = true),
    ACT(claim, claims = true),
    // Of the system: what comes in, and how it is.
    ACT(post, fake.queue.push_back({n[1], n[0], n[2], 0})), // message, window, key
    ACT(quit, postquit(n[0])),
    ACT(wait, fake.milliseconds += static_cast<uint32_t>(n[0])),
    ACT(fetchfails, fake.fail = true),
    ACT(notimer, fake.notimer = n[0]),
    ACT(short, fakefillblocks(); flexfailafter(n[0])), // of memory
    ACT(ours, fake.ours.insert(n[0])),
    ACT(parent, fake.parents[n[0]] = n[1]),
    ACT(navigates, fake.navigates.insert(n[0])),
    ACT(navigated, fake.navigated.insert(n[0])),
    ACT(used, fake.claimed.insert(n[0])),
    // Of the program.
    ACT(poll, if (fakeended(pollonce) == 0) note("left")),
    ACT(called, polluntilcalled()),
    ACT(enter, pollenter()),
    ACT(leave, pollleave()),
    ACT(send, noteerror(sendmessage(n[0], n[1], n[2]))),
    ACT(broadcasts, note("unclaimed", {broadcast(n[0])})),
    ACT(filters, filtersrun({n[1], n[0], 0, 0})), // message, window
    ACT(open, fileload(name, n[0])),
    ACT(dropped, filedropped(name, n[0], n[1])), // window, whether a folder
    ACT(subclassed, subclassrun({n[0], n[1], 0, 0})),
    ACT(forward, keysforward({1002, n[0], n[1], 0})),
    ACT(window, windowadd(n[0], n[1])),
    ACT(gone, if (wdata *record = wdatafind(n[0])) wdatafree(record)),
    ACT(closing, dependants(n[0], EVENTPARENTCLOSED)),
    ACT(deleting, dependants(n[0], EVENTPARENTDELETED)),
    // What is there then.
    ACT(windows, windowslist()),
    ACT(blocks, note("blocks", {blockcount()})),
    ACT(replaced, note("replaced", {std::ssize(fake.replaced)})),
    ACT(depth, note("depth", {pollnesting()})),
    ACT(waiting, note("waiting", {timedcount()})),
    ACT(haskey, note("haskey", {pollhaskey()})),
    ACT(target, note("target", {polltarget(n[0])})),
    ACT(ticks, note("ticks", {ticklast()})),
    ACT(interval, note("interval", {fake.interval})),
};

// "on CALL: ACTS" leaves the acts for the call, "shell TEXT" is a command from there.
void act(const std::string &line)
{
    std::istringstream words(line);
    std::string verb, name;
    int32_t n[4] = {};
    words >> verb;
    words >> std::ws;
    if (verb == "on") {
        std::getline(words, name, ':');
        std::getline(words, reactions[name]);
        return;
    }
    if (verb == "shell") {
        std::getline(words, name);
        CHECK(ddecommand(name.c_str()) == 1);
        return;
    }
    if (std::isalpha(words.peek())) words >> name;
    for (int32_t &number : n)
        words >> number;
    if (verb[0] == '+' || verb[0] == '-')
        noteerror(kinds.at(verb.substr(1))(verb[0] == '+', n));
    else
        acts.at(verb)(name, n);
}

std::string result(const std::string &script)
{
    static const filetyperow types[] = {{259, "qmg", ""}, {FILETYPEEND, nullptr, nullptr}};
    filetypenode node;
    modulesreset();
    REQUIRE_FALSE(blockstart());
    addfiletypes(types, &node);
    headless.keeptrace = true;
    fake.ondispatch = [](const systemmessage &m) {
        react("dispatch " + std::to_string(m.message));
    };
    reactions.clear();
    actall(script, ';');
    for (; headless.boxes; headless.boxes--)
        note(headless.boxtext);
    if (headless.tracetext.find("missed") != std::string::npos) note("missed");
    while (wdatas)
        wdatafree(wdatas);
    remfiletypes(&node);
    return fakelog();
}

} // namespace

void scriptcheck(const std::string &setup, std::initializer_list<scriptrow> rows)
{
    for (const scriptrow &row : rows) {
        CAPTURE(row.what);
        CHECK(result(setup + row.acts) == row.heard);
    }
}
