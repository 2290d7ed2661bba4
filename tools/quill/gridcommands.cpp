#include "tools/quill/commands.h"

#include "base/bfile.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/paths.h"
#include "base/saveblock.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridpicture.h"
#include "output/cluelist.h"
#include "output/exchange.h"
#include "output/gridstats.h"
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

// By --as, or else by the ending of the name.
errorblock *formatfind(const arguments &args, const std::string &path,
                       const exchangeformat **format)
{
    const char *ending = pathgetext(path.c_str());
    *format = exchangefind(!args.format.empty() ? args.format : ending ? ending : "");
    if (*format) return nullptr;
    return makeerrortext(ECR, "No known format ends in .%s: %s. --as names one.",
                         ending ? ending : "", path.c_str());
}

std::string percent(int32_t part, int32_t all)
{
    return all ? " (" + std::to_string((part * 100 + all / 2) / all) + " %)" : "";
}

// The counts that aren't zero, each behind its name.
void outcounts(const std::string &title, const int32_t *counts, int32_t n,
               std::string (*name)(int32_t))
{
    std::string line;
    for (int32_t i = 0; i < n; i++)
        if (counts[i])
            line += (line.empty() ? "" : ", ") + name(i) + " " + std::to_string(counts[i]);
    if (!line.empty()) outline(title + line);
}

std::string symmetriestext(uint32_t symmetries)
{
    std::string text;
    for (uint32_t i = 0; i < std::size(symmetrynames); i++)
        if (symmetries & 1u << i)
            text += (text.empty() ? "" : ", ") + std::string(symmetrynames[i]);
    return text.empty() ? "none" : text;
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

errorblock *commandgridimport(const arguments &args)
{
    const exchangeformat *format = nullptr;
    std::string bytes, left;
    errorblock *err = formatfind(args, args.words[0], &format);
    if (!err && !format->read)
        err = makeerrortext(ECR, "%s files can be written, but not read.", format->name);
    if (!err) err = bytesload(args.words[0], &bytes);
    if (!err) err = format->read(bytes, &left);
    if (err) return err;
    if (args.wordsquare) grid.kind = GRIDWORDSQUARE;
    if (!left.empty()) remark("left out: %s", left.c_str());
    remark("%d by %d cells", grid.width, grid.height);
    return gridwrite(args.out.c_str());
}

errorblock *commandgridexport(const arguments &args)
{
    const exchangeformat *format = nullptr;
    std::string bytes, left;
    errorblock *err = formatfind(args, args.out, &format);
    if (!err) err = opengrid(args);
    if (err) return err;
    format->write(&bytes, &left);
    if (format->paint) err = format->paint({bytes}, &bytes);
    if (err) return err;
    if (!left.empty() && !args.lossy)
        return makeerrortext(ECR, "A %s file can't hold %s. With --lossy it is written without.",
                             format->name, left.c_str());
    if (!left.empty()) remark("left out: %s", left.c_str());
    return saveblock(args.out.c_str(), 0, bytes.data(), static_cast<int32_t>(bytes.size()));
}

errorblock *commandgridwords(const arguments &args)
{
    char word[GRIDSTRIDE];
    errorblock *err = opengrid(args);
    for (int32_t n = 0; !err && gridword(word, n); n++)
        outline(word);
    return err;
}

errorblock *commandstats(const arguments &args)
{
    errorblock *err = opengrid(args);
    if (err) return err;
    auto text = [](int32_t n) { return std::to_string(n); };
    gridstats s;
    gridstatsread(&s);
    outline("size\t" + text(grid.width) + " by " + text(grid.height));
    outline("cells\t" + text(s.open) + " open, " + text(s.blocks) + " blocks, " + text(s.bars) +
            " bars");
    outline("filled\t" + text(s.filled) + percent(s.filled, s.open));
    outcounts("letters\t", s.letters, 256,
              [](int32_t n) { return std::string(1, static_cast<char>(n)); });
    outline("words\t" + text(s.across) + " across, " + text(s.down) + " down");
    outcounts("lengths\t", s.lengths, GRIDSTRIDE,
              [](int32_t n) { return std::to_string(n) + ":"; });
    if (int32_t words = s.across + s.down; words) {
        int32_t tenths = (10 * (2 * s.checked + s.unchecked) + words / 2) / words;
        outline("average\t" + text(tenths / 10) + "." + text(tenths % 10));
    }
    outline("checked\t" + text(s.checked) + percent(s.checked, s.open));
    outline("unchecked\t" + text(s.unchecked) + percent(s.unchecked, s.open));
    outline("pieces\t" + text(s.pieces));
    outline("symmetry\t" + symmetriestext(s.symmetries));
    for (const std::string &word : s.same)
        outline("repeated\t" + word);
    return nullptr;
}

errorblock *commandclues(const arguments &args)
{
    bfile file;
    errorblock *err = sessionstart(args);
    if (!err) err = sessioncrossword(args.words[0]);
    if (!err) err = bopen(nullptr, "w", BFILEBUFFER, &file);
    if (err) return err;
    cluelistwrite(&file);
    return bclose(&file, outmemory(&file));
}
