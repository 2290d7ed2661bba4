#include "tools/quill/commands.h"

#include "find/spell.h"
#include "tools/quill/console.h"
#include "tools/quill/edge.h"
#include "tools/quill/session.h"

namespace
{

// The suggestions in the order of their store, each with an end behind it but
// the last.
std::string suggestions(const char *between)
{
    std::string text;
    dictcursor cursor;
    if (!dictseek(0, &spell.guessstore, &cursor)) return text;
    text = cursor.word;
    while (dictnext(&spell.guessstore, &cursor)) {
        text += between;
        text += cursor.word;
    }
    return text;
}

} // namespace

errorblock *commandguess(const arguments &args)
{
    errorblock *err = sessionstart(args);
    if (!err) err = sessiondicts(args);
    if (err) return err;
    guessmake(args.words[0].c_str());
    std::string lines = suggestions("\n");
    if (!lines.empty()) outline(lines);
    remark("%u suggestions", dictcount(&spell.guessstore));
    spellend();
    return nullptr;
}

errorblock *commandspell(const arguments &args)
{
    int32_t unknown = 0;
    errorblock *err = sessionstart(args);
    if (!err) err = sessiongrid(args.words[0]);
    if (!err) err = sessiondicts(args);
    if (err) return err;
    checkstart();
    while (!edgestopped() && checkwalk()) {
        outline(std::string(spell.checkword) + "\t" + suggestions(","));
        countshow("unknown words", ++unknown);
    }
    remark("%d unknown words", static_cast<int>(unknown));
    spellend();
    return nullptr;
}
