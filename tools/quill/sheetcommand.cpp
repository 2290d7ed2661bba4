#include "tools/quill/commands.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/paths.h"
#include "base/saveblock.h"
#include "base/text.h"
#include "find/solutions.h"
#include "find/wssolve.h"
#include "grid/grid.h"
#include "output/paint.h"
#include "output/sheet.h"
#include "tools/quill/console.h"
#include "tools/quill/searchseam.h"
#include "tools/quill/session.h"

namespace
{

bool endsin(const std::string &path, const char *ending)
{
    const char *own = pathgetext(path.c_str());
    return own && !cstricmp(own, ending);
}

// The words that a square hides, which its file doesn't tell: those of a list, where
// they lie; or all that the dictionaries have.
errorblock *hiddenwords(const arguments &args)
{
    if (!args.wordlist.empty()) {
        errorblock *err = sessionwords(args.wordlist);
        for (int32_t entry = 0; !err && entry < solutions.count; entry++)
            if (!solplace(entry)) remark("not in the square: %s", solword(entry)->text);
        return err;
    }
    if (args.min) grid.minwordlength = args.min;
    errorblock *err = sessiondicts(args);
    if (!err) err = wssolve();
    return err ? err : searchnow();
}

} // namespace

errorblock *commandsheet(const arguments &args)
{
    std::string bytes;
    bool html = endsin(args.out, "html"), pdf = endsin(args.out, "pdf");
    if (!html && !pdf && !endsin(args.out, "svg"))
        return makeerrortext(ECR, "A sheet is a .svg, .html or .pdf file: %s.", args.out.c_str());
    errorblock *err = sessionstart(args);
    if (!err) err = sessiongrid(args.words[0]);
    if (!err && grid.kind == GRIDWORDSQUARE) err = hiddenwords(args);
    if (err) return err;

    std::vector<std::string> pages = sheetpages(args.title);
    if (pdf)
        err = paintpdf(pages, &bytes);
    else
        bytes = html ? sheethtml(args.title, pages) : sheetsvg(pages);
    if (!err)
        err = saveblock(args.out.c_str(), 0, bytes.data(), static_cast<int32_t>(bytes.size()));
    if (!err) remark("%d pages", static_cast<int>(pages.size()));
    return err;
}
