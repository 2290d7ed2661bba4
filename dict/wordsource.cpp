#include "dict/wordsource.h"

namespace
{

// What can't be read now fails again where the words are read.
errorblock *kindfind(const char *path, bool *utf8)
{
    bfile file;
    textkindfinder finder = {};
    errorblock *err = bopen(path, "r", BFILEBUFFER, &file);
    if (err) return err;
    int32_t byte = 0;
    while (!bgetc(&file, &byte) && byte >= 0)
        textkindbyte(&finder, static_cast<uint8_t>(byte));
    *utf8 = textkindutf8(finder);
    return bclose(&file, nullptr);
}

} // namespace

errorblock *wordsourceopen(const char *path, wordsource *text)
{
    *text = {};
    errorblock *err = kindfind(path, &text->utf8);
    return err ? err : bopen(path, "r", BFILEBUFFER, &text->file);
}

// Bytes that are no UTF-8, behind a mark that said they were, are passed over too.
errorblock *wordsourceget(wordsource *text, int32_t *character)
{
    for (;;) {
        errorblock *err = bgetc(&text->file, character);
        if (err || *character < 0 || !text->utf8) return err;
        uint32_t unicode = utf8byte(&text->decoder, static_cast<uint8_t>(*character));
        if (unicode >= UTF8MORE) continue;
        *character = unicodeto1252(unicode);
        if (*character >= 0) return nullptr;
    }
}

errorblock *wordsourceclose(wordsource *text, errorblock *err)
{
    return bclose(&text->file, err);
}
