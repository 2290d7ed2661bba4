#include "find/wordload.h"

#include "dict/wordfeed.h"
#include "dict/wordsource.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/wsmake.h"

bool wordload(const char *path)
{
    wordsource text;
    if (wordsourceopen(path, &text)) return false;
    wsdeselect();
    solclearplaces();
    solreset();
    solwordslayout();
    wordfeed feed = {};
    errorblock *err = nullptr;
    int32_t byte = 0;
    while (!err && byte != FEEDEND) {
        err = wordsourceget(&text, &byte);
        if (!err && wordfeedbyte(&feed, byte)) err = soladdword(-1, -1, -1, -1, feed.word);
    }
    wordsourceclose(&text, nullptr);
    solutionsrefresh();
    return true;
}
