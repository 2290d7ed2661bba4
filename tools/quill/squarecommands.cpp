#include "tools/quill/commands.h"

#include "base/random.h"
#include "dict/wordfeed.h"
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

// The word list of a text, by the import rule.
errorblock *listadd(const std::string &text)
{
    wordfeed feed = {};
    errorblock *err = nullptr;
    for (size_t at = 0; at <= text.size() && !err; at++) {
        int32_t byte = at < text.size() ? static_cast<uint8_t>(text[at]) : FEEDEND;
        if (wordfeedbyte(&feed, byte)) err = soladdword(-1, -1, -1, -1, feed.word);
    }
    return err;
}

// A making that was stopped keeps what is placed.
errorblock *makingend(errorblock *err, const arguments &args)
{
    if (!err) err = searchnow();
    if (!err) err = gridwrite(args.out.c_str());
    if (!err) outplaces();
    return err;
}

} // namespace

errorblock *commandmake(const arguments &args)
{
    std::string text;
    errorblock *err = textload(args.words[0], &text);
    if (err) return err;
    squarestart(args);
    err = listadd(text);
    if (!err) err = wsmake();
    return makingend(err, args);
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
