#include "dict/wordimport.h"

#include "base/bfile.h"
#include "base/syserr.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"
#include "dict/wordfeed.h"
#include "dict/wordpile.h"
#include "dict/wordsource.h"

namespace
{

// Every word up to the end, or until an error or the user ends it.
errorblock *wordsread(wordsource *text, wordpile *pile)
{
    wordfeed feed = {};
    errorblock *err = nullptr;
    int32_t byte = 0;
    while (!err && byte != FEEDEND) {
        err = wordsourceget(text, &byte); // -1 at the end, as the feed has it
        if (err || !wordfeedbyte(&feed, byte)) continue;
        err = pileadd(pile, feed.word);
        if (pile->count % IMPORTPOLL == 0 && importpoll(pile->count)) break;
    }
    return err;
}

} // namespace

errorblock *wordimport(const char *path, uint32_t dictnumber)
{
    dictrec *record = &dicts[dictnumber];
    wordsource text;
    errorblock *err = wordsourceopen(path, &text);
    if (err) return err;
    wordpile pile;
    err = pilestart(&pile);
    if (err) return wordsourceclose(&text, err);
    err = wordsread(&text, &pile);
    if (pile.count) record->changed = 1;
    kepterror kept = keeperror(err);
    err = firsterror(kept, pilemerge(&pile, &record->dict));
    pilefree(&pile);
    return wordsourceclose(&text, err);
}

errorblock *wordexport(const char *path, const Dictionary *dict)
{
    dictcursor cursor;
    if (!dictseek(0, dict, &cursor)) return nullptr;
    bfile file;
    errorblock *err = bopen(path, "w", BFILEBUFFER, &file);
    if (err) return err;
    do
        bprintline(&file, "%s", cursor.word);
    while (dictnext(dict, &cursor));
    return bclose(&file, nullptr);
}
