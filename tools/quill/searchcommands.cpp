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

#include <string>
#include <vector>

namespace
{

// Words as they go out, each made once however many solutions have it: its bytes
// behind their number, found by its reference.
struct {
    std::string bytes;
    std::vector<uint32_t> places[MAXDICTS]; // 0 for none yet
} shown;

void wordout(wordref ref, std::string *block)
{
    uint32_t dictn = ref >> 24, wordn = ref & 0xFFFFFF;
    if (shown.bytes.empty()) shown.bytes = '\0';
    if (shown.places[dictn].empty())
        shown.places[dictn].resize(size_t{dictcount(&dicts[dictn].dict)} + 1);
    uint32_t *place = &shown.places[dictn][wordn];
    if (!*place) {
        std::string word = edgeout(wordtext(ref));
        *place = static_cast<uint32_t>(shown.bytes.size());
        shown.bytes += static_cast<char>(word.size());
        shown.bytes += word;
    }
    const char *word = shown.bytes.data() + *place;
    block->append(word + 1, static_cast<size_t>(*word));
}

void outsolutions()
{
    constexpr size_t BLOCK = 65536;
    std::string block;
    for (int32_t entry = 0; entry < solutions.count; entry++) {
        for (int32_t slot = 0; slot < solutions.slotcount; slot++) {
            if (slot) block += '\t';
            wordout(solref(entry, slot), &block);
        }
        block += '\n';
        if (block.size() < BLOCK) continue;
        outbytes(block);
        block.clear();
    }
    outbytes(block);
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
