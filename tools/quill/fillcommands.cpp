#include "tools/quill/commands.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "dict/dictset.h"
#include "find/fill.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "tools/quill/console.h"
#include "tools/quill/edge.h"
#include "tools/quill/session.h"

#include <chrono>
#include <cstring>
#include <limits>

namespace
{

using timeclock = std::chrono::steady_clock;

struct {
    int64_t found, most;
    bool listed;
    timeclock::time_point end, shown;
} run;

// The grid as it was, for what is written in the end has no marks that weren't there.
uint8_t flagskept[GRIDSTRIDE][GRIDSTRIDE];

void markopen()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if ((grid.flags[x][y] & CELLKIND) == CELLOPEN) grid.flags[x][y] |= CELLMARKED;
}

errorblock *slotsready(const arguments &args)
{
    errorblock *err = sessionstart(args);
    if (!err) err = sessioncrossword(args.words[0]);
    if (!err) err = sessiondicts(args);
    if (!err) memcpy(flagskept, grid.flags, sizeof flagskept);
    if (!err) err = sessionmarks(args);
    if (err) return err;
    markrescan();
    if (grid.markleft < 0) markopen();
    err = slotsbegin();
    if (!err && solutions.slotcount == MAXSLOTS)
        err = makeerrortext(ERRORMAXSTRING, "A fill takes fewer than %d slots.",
                            static_cast<int>(MAXSLOTS));
    return err;
}

bool goon()
{
    auto now = timeclock::now();
    if (now - run.shown > std::chrono::milliseconds(100)) {
        run.shown = now;
        if (run.most)
            countshow("so far", static_cast<int32_t>(run.found));
        else
            countshow("words, at best", filling.best);
    }
    return !edgestopped() && (run.most || now < run.end);
}

bool listfill()
{
    std::string line;
    for (int32_t slot = 0; slot < filling.slots && run.listed; slot++)
        line += (slot ? "\t" : "") + std::string(wordtext(fillword(slot)));
    if (run.listed) outline(line);
    return ++run.found < run.most;
}

const char *plural(int64_t n)
{
    return n == 1 ? "" : "s";
}

void lettersplace()
{
    for (int32_t slot = 0; slot < solutions.slotcount; slot++) {
        const slotrec &at = search.slots[slot];
        for (int32_t i = 0; i < at.length; i++) {
            uint8_t *cell =
                at.direction ? &grid.letters[at.x][at.y + i] : &grid.letters[at.x + i][at.y];
            uint8_t letter = fillletter(slot, i);
            if (letter && *cell == ' ') *cell = gridcase(letter);
        }
    }
    memcpy(grid.flags, flagskept, sizeof flagskept);
}

errorblock *fillrun(const fillrules &rules, const arguments &args)
{
    fillend end;
    errorblock *err = fillmake(rules);
    if (err) return err;
    bool good = fillone(&end);
    countend();
    lettersplace();
    if (good || end == FILLSTOPPED) err = gridwrite(args.out.c_str());
    int32_t placed = filling.best, all = filling.slots;
    if (err) return err;
    if (good)
        remark("%d word%s", placed, plural(placed));
    else if (end == FILLALL)
        return makeerrortext(ERRORMAXSTRING, "There is no fill of these words.");
    else if (edgestopped())
        remark("stopped: %d of %d words are in", placed, all);
    else
        return makeerrortext(ERRORMAXSTRING, "No fill in %d s: %d of %d words are in.",
                             static_cast<int>(args.seconds), placed, all);
    return nullptr;
}

} // namespace

errorblock *commandfillall(const arguments &args)
{
    constexpr int64_t NOLIMIT = std::numeric_limits<int64_t>::max();
    errorblock *err = slotsready(args);
    if (!err) err = fillmake({args.repeat, false, -1, 0, goon});
    if (err) return err;
    run = {0, args.count && !args.maxgiven ? NOLIMIT : args.max, !args.count, {}, {}};
    bool whole = fillevery(listfill) == FILLALL;
    countend();
    if (args.count) outline(std::to_string(run.found));
    if (edgestopped())
        remark("stopped");
    else if (!whole)
        remark("ended at the limit: there may be more");
    remark("%lld fill%s of %d word%s", static_cast<long long>(run.found), plural(run.found),
           static_cast<int>(filling.slots), plural(filling.slots));
    fillfree();
    return nullptr;
}

errorblock *commandfillgrid(const arguments &args)
{
    errorblock *err = slotsready(args);
    fillrules rules = {args.repeat, true, -1, args.seed, goon};
    if (!err && !args.prefer.empty()) {
        rules.liked = dictnamefind(args.prefer.c_str());
        if (rules.liked < 0 || !dictinset(static_cast<uint32_t>(rules.liked)))
            err = makeerrortext(ERRORNOFILE, "%s is no dictionary in use.", args.prefer.c_str());
    }
    if (err) return err;
    run = {};
    run.end = timeclock::now() + std::chrono::seconds(args.seconds);
    err = fillrun(rules, args);
    fillfree();
    return err;
}
