#include "tools/quill/commands.h"

#include "base/errors.h"
#include "base/random.h"
#include "find/solutions.h"
#include "find/wsmake.h"
#include "find/wssolve.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "tools/quill/console.h"
#include "tools/quill/edge.h"
#include "tools/quill/searchseam.h"
#include "tools/quill/session.h"

#include <cstdio>

namespace
{

// An empty Wordsquare of the size asked for.
void squarestart(const arguments &args)
{
    grid.kind = GRIDWORDSQUARE;
    grid.width = args.width;
    grid.height = args.height;
    if (args.directions) grid.filldirections = static_cast<uint32_t>(args.directions);
    gridclear();
    randomseed(args.seed);
}

void outplaces()
{
    for (int32_t i = 0; i < solutions.count; i++) {
        const wsentry *entry = solword(i);
        char place[64];
        snprintf(place, sizeof place, "\t%d\t%d\t%d\t%d", static_cast<int>(entry->x),
                 static_cast<int>(entry->y), static_cast<int>(entry->dx),
                 static_cast<int>(entry->dy));
        outline(entry->text + std::string(place));
    }
}

// A making that was stopped keeps what is placed.
errorblock *makingend(errorblock *err, const arguments &args)
{
    if (!err) err = searchnow();
    if (!err) err = gridwrite(args.out.c_str());
    if (!err) outplaces();
    if (!err && edgestopped()) remark("stopped: the words placed so far are in the file");
    return err;
}

// The file is there with the others, but isn't what was asked for.
errorblock *unplaced()
{
    std::string words;
    int count = 0;
    for (int32_t i = 0; i < solutions.count; i++) {
        if (solword(i)->x >= 0) continue;
        words += count++ ? ", " : "";
        words += solword(i)->text;
    }
    if (!count) return nullptr;
    if (words.size() > 120) words = words.substr(0, 120) + "...";
    return makeerrortext(ERRORMAXSTRING, "%d word%s not placed: %s", count, count == 1 ? "" : "s",
                         words.c_str());
}

} // namespace

errorblock *commandmake(const arguments &args)
{
    squarestart(args);
    errorblock *err = sessionwords(args.words[0]);
    if (!err) err = wsmake();
    err = makingend(err, args);
    return err || edgestopped() ? err : unplaced();
}

errorblock *commandfill(const arguments &args)
{
    errorblock *err = sessionstart(args);
    if (!err) err = sessiondicts(args);
    if (err) return err;
    squarestart(args);
    return makingend(wsnew(), args);
}

errorblock *commandfind(const arguments &args)
{
    errorblock *err = sessionstart(args);
    if (!err) err = sessiongrid(args.words[0]);
    if (!err) err = sessiondicts(args);
    if (err) return err;
    if (args.min) grid.minwordlength = args.min;
    err = wssolve();
    if (!err) err = searchnow();
    if (!err) outplaces();
    if (!err) remark("%d words%s", solutions.count, edgestopped() ? ", stopped" : "");
    return err;
}
