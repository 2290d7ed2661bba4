#include "tools/quill/commands.h"

#include "base/errors.h"
#include "base/text.h"
#include "find/anagram.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "tools/quill/console.h"
#include "tools/quill/edge.h"
#include "tools/quill/searchseam.h"
#include "tools/quill/session.h"

namespace
{

void outsolutions()
{
    for (int32_t entry = 0; entry < solutions.count; entry++) {
        std::string line;
        for (int32_t slot = 0; slot < solutions.slotcount; slot++) {
            if (slot) line += '\t';
            line += wordtext(solref(entry, slot));
        }
        outline(line);
    }
}

} // namespace

errorblock *commandsolve(const arguments &args)
{
    errorblock *err = sessionstart(args);
    if (!err) err = sessioncrossword(args.words[0]);
    if (!err) err = sessiondicts(args);
    if (!err) err = sessionmarks(args);
    solutions.maxsolutions = args.max;
    if (!err) err = solvestart();
    if (!err) err = searchnow();
    if (err) return err;

    outsolutions();
    if (edgestopped()) remark("stopped");
    if (solutions.count > solutions.maxsolutions) remark("ended at the limit: there may be more");
    remark("%d solution%s of %d word%s", solutions.count, solutions.count == 1 ? "" : "s",
           solutions.slotcount, solutions.slotcount == 1 ? "" : "s");
    return nullptr;
}

errorblock *commandanagram(const arguments &args)
{
    char text[WORDSIZE];
    errorblock *err = sessionstart(args);
    if (!err) err = sessiondicts(args);
    if (!err && args.words[0].size() > static_cast<size_t>(WORDLENGTH))
        err = makeerrortext(ERRORMAXSTRING, "An anagram has at most %d letters.", WORDLENGTH);
    if (err) return err;

    strcopyn(text, args.words[0].c_str(), WORDSIZE);
    solutions.maxsolutions = args.max;
    solutions.slotcount = 1;
    err = anagramscan(text);
    if (!err) outsolutions();
    if (!err) remark("%d words", solutions.count);
    return err;
}
