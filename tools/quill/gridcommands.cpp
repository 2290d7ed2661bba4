#include "tools/quill/commands.h"

#include "base/errors.h"
#include "base/files.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridpicture.h"
#include "tools/quill/console.h"
#include "tools/quill/session.h"

namespace
{

// gridsave is silent about a file that can't be written; a user at the console
// is told.
errorblock *savewhole(const std::string &path)
{
    filehandle handle;
    errorblock *err = fileopen(path.c_str(), "u", &handle);
    if (!err) err = fileclose(handle, nullptr);
    if (!err) err = gridsave(path.c_str());
    return err;
}

errorblock *opengrid(const arguments &args)
{
    errorblock *err = sessionstart(args);
    if (!err) err = sessiongrid(args.words[0]);
    return err;
}

} // namespace

errorblock *commandgridbuild(const arguments &args)
{
    std::string text;
    errorblock *err = textload(args.words[1], &text);
    if (!err) err = picturetextread(text.data(), static_cast<int32_t>(text.size()));
    if (args.wordsquare) grid.kind = GRIDWORDSQUARE;
    if (!err) err = savewhole(args.words[0]);
    if (!err) remark("%d by %d cells", grid.width, grid.height);
    return err;
}

errorblock *commandgriddraw(const arguments &args)
{
    std::string text;
    errorblock *err = opengrid(args);
    if (!err) picturetextwrite(&text);
    if (!err) outtext(text);
    return err;
}

errorblock *commandgridwords(const arguments &args)
{
    char word[GRIDSTRIDE];
    errorblock *err = opengrid(args);
    for (int32_t n = 0; !err && gridword(word, n); n++)
        outline(word);
    return err;
}
