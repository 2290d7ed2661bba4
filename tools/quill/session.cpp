#include "tools/quill/session.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/paths.h"
#include "dict/dictset.h"
#include "dict/wordfeed.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "tools/quill/console.h"

namespace
{

// The shipped dictionaries lie beside the program.
errorblock *shippedfolder(char *out, int32_t size)
{
    errorblock *err = platformprogramdirectory(out, size);
    if (!err) err = fs_strcat(out, size, "Dictionaries");
    return err;
}

errorblock *usedict(const std::string &name)
{
    int32_t number = dictknow(name.c_str());
    if (number < 0)
        return makeerrortext(ERRORNOFILE, "No dictionary %s in %s.", name.c_str(), dictdirectory);
    uint32_t known = static_cast<uint32_t>(number);
    return dictinset(known) ? nullptr : dictuse(known);
}

// A dictionary that doesn't load stays in use with no words, which a user of
// the window sees; here it is a failure.
errorblock *checkloaded()
{
    errorblock *err = nullptr;
    for (uint32_t i = 0; i < dictset.count && !err; i++)
        err = dictneed(dictset.numbers[i]);
    return err;
}

errorblock *markcells(const cellbox &box)
{
    if (!gridinside(box.right, box.bottom))
        return makeerrortext(ERRORMAXSTRING, "--mark %d,%d,%d,%d is not inside the grid of %dx%d.",
                             static_cast<int>(box.left), static_cast<int>(box.top),
                             static_cast<int>(box.right), static_cast<int>(box.bottom),
                             static_cast<int>(grid.width), static_cast<int>(grid.height));
    for (int32_t x = box.left; x <= box.right; x++)
        for (int32_t y = box.top; y <= box.bottom; y++)
            if ((grid.flags[x][y] & CELLKIND) != CELLBLOCK)
                grid.flags[x][y] =
                    static_cast<uint8_t>((grid.flags[x][y] & ~CELLKIND) | CELLMARKED);
    return nullptr;
}

} // namespace

errorblock *sessionstart(const arguments &args)
{
    errorblock *err;
    if (args.dictionaries.empty())
        err = shippedfolder(dictdirectory, sizeof dictdirectory);
    else
        err = pathwhole(args.dictionaries.c_str(), dictdirectory);
    if (!err) err = dictstart();
    return err;
}

errorblock *sessiongrid(const std::string &path)
{
    fileinfo info;
    errorblock *err = fileinfoget(path.c_str(), &info);
    if (!err && info.objecttype != OBJECTFILE) err = makeerrorf(ERRORNOTFOUND, path.c_str());
    if (!err) err = gridopened(path.c_str(), FILETYPEGRID);
    return err;
}

errorblock *sessioncrossword(const std::string &path)
{
    errorblock *err = sessiongrid(path);
    if (!err && grid.kind == GRIDWORDSQUARE)
        err = makeerrortext(ENOTTYPE,
                            "%s is a word square, which has no slots and no clues; find "
                            "lists its words.",
                            leafname(path.c_str()));
    return err;
}

errorblock *sessiondicts(const arguments &args)
{
    errorblock *err = nullptr;
    if (!args.dicts.empty()) dictsetclear();
    for (const std::string &name : args.dicts)
        if (!err) err = usedict(name);
    if (!err) err = dictdefault();
    if (!err) err = checkloaded();
    return err;
}

errorblock *sessionmarks(const arguments &args)
{
    errorblock *err = nullptr;
    for (const cellbox &box : args.marks)
        if (!err) err = markcells(box);
    return err;
}

errorblock *sessionwords(const std::string &path)
{
    std::string text;
    wordfeed feed = {};
    errorblock *err = textload(path, &text);
    for (size_t at = 0; at <= text.size() && !err; at++) {
        int32_t byte = at < text.size() ? static_cast<uint8_t>(text[at]) : FEEDEND;
        if (wordfeedbyte(&feed, byte)) err = soladdword(-1, -1, -1, -1, feed.word);
    }
    return err;
}

void sessionend()
{
    solreset();
    for (uint32_t i = 0; i < ndicts; i++)
        dictunload(i);
    dictstop();
}
