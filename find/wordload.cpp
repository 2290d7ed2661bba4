#include "find/wordload.h"

#include "base/bfile.h"
#include "dict/wordfeed.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/wsmake.h"

int wordload(const char *path)
{
    bfile file;
    if (bopen(path, "r", BFILEBUFFER, &file)) return 0;
    wsdeselect();
    solclearplaces();
    solreset();
    solwordslayout();
    wordfeed feed = {};
    errorblock *err = nullptr;
    int32_t byte = 0;
    while (!err && byte != FEEDEND) {
        err = bgetc(&file, &byte);
        if (!err && wordfeedbyte(&feed, byte)) err = soladdword(-1, -1, -1, -1, feed.word);
    }
    bclose(&file, nullptr);
    solutionsrefresh();
    return 1;
}
