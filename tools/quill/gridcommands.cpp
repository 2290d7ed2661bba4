#include "tools/quill/commands.h"

#include "base/bfile.h"
#include "base/errors.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridpicture.h"
#include "output/cluelist.h"
#include "tools/quill/console.h"
#include "tools/quill/session.h"

namespace
{

errorblock *opengrid(const arguments &args)
{
    errorblock *err = sessionstart(args);
    if (!err) err = sessiongrid(args.words[0]);
    return err;
}

// What a list writes into a stream of memory, and out as it is.
errorblock *outmemory(bfile *file)
{
    int32_t size = 0;
    errorblock *err = bsize(file, &size);
    std::string bytes(static_cast<size_t>(size), 0);
    if (!err) err = bseek(file, 0);
    if (!err) err = breadall(file, bytes.data(), size);
    if (!err) outbytes(bytes);
    return err;
}

} // namespace

errorblock *commandgridbuild(const arguments &args)
{
    std::string text;
    errorblock *err = textload(args.words[1], &text);
    if (!err) err = picturetextread(text.data(), static_cast<int32_t>(text.size()));
    if (args.wordsquare) grid.kind = GRIDWORDSQUARE;
    if (!err) err = gridwrite(args.words[0].c_str());
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

errorblock *commandclues(const arguments &args)
{
    bfile file;
    errorblock *err = opengrid(args);
    if (!err) err = bopen(nullptr, "w", BFILEBUFFER, &file);
    if (err) return err;
    cluelistwrite(&file);
    return bclose(&file, outmemory(&file));
}
