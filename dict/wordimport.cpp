#include "dict/wordimport.h"

#include "base/bfile.h"
#include "dict/dictset.h"
#include "dict/wordfeed.h"

errorblock *wordimport(const char *path, uint32_t dictnumber)
{
    dictrec *record = &dicts[dictnumber];
    bfile file;
    errorblock *err = bopen(path, "r", BFILEBUFFER, &file);
    if (err) return err;
    wordfeed feed = {};
    int32_t byte = 0;
    while (!err && byte != FEEDEND) {
        err = bgetc(&file, &byte); // -1 at the end, as the feed has it
        if (err || !wordfeedbyte(&feed, byte)) continue;
        err = dictadd(feed.word, &record->dict);
        if (!err) record->changed = 1;
    }
    return bclose(&file, err);
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
