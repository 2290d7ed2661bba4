#include "tools/quill/commands.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "dict/dictfile.h"
#include "dict/dictverify.h"
#include "dict/wordfeed.h"
#include "dict/wordpile.h"
#include "dict/wordscores.h"
#include "tools/quill/console.h"
#include "tools/quill/edge.h"

#include <cstring>

namespace
{

// A dictionary by its path, in the two halves that the file calls take.
struct dictplace {
    char directory[PATHSIZE];
    char name[PATHSIZE];
    char path[PATHSIZE];
};

errorblock *placesplit(const std::string &path, dictplace *place)
{
    errorblock *err = pathwhole(path.c_str(), place->path);
    if (err) return err;
    const char *leaf = leafname(place->path);
    if (pathhasext(leaf, "dic"))
        return makeerrortext(ERRORNOFILE, "The name of a dictionary ends in .dic: %s.",
                             place->path);
    strcopyn(place->name, leaf, static_cast<int32_t>(strlen(leaf)) - 3);
    dirname(place->path, place->directory, PATHSIZE);
    // A root loses its separator in the split; elsewhere nothing means here.
    if (!place->directory[0]) strcpy(place->directory, leaf == place->path ? "." : "");
    return nullptr;
}

errorblock *placeload(const dictplace &place, Dictionary *dict)
{
    int32_t type;
    errorblock *err = fileobject(place.path, &type);
    if (!err && type != OBJECTFILE) err = makeerrorf(ERRORNOTFOUND, place.path);
    if (!err) err = dictload(place.directory, place.name, dict);
    return err;
}

void saysize(const Dictionary &dict, const dictplace &place)
{
    fileinfo info = {};
    fileinfoget(place.path, &info);
    remark("%u words, %u bytes", dictcount(&dict), info.length);
}

// The import of one text; stops where the user says so.
errorblock *importtext(const std::string &text, Dictionary *dict)
{
    wordfeed feed = {};
    wordpile pile;
    errorblock *err = pilestart(&pile);
    for (size_t at = 0; at <= text.size() && !err; at++) {
        int32_t byte = at < text.size() ? static_cast<uint8_t>(text[at]) : FEEDEND;
        if (!wordfeedbyte(&feed, byte)) continue;
        err = pileadd(&pile, feed.word);
        if (pile.count % 1024 == 0) countshow("words", pile.count);
        if (edgestopped()) break;
    }
    if (!err) err = pilemerge(&pile, dict);
    pilefree(&pile);
    return err;
}

// What add and remove share: a dictionary, an edit for each word, a save.
using wordedit = errorblock *(*)(const std::string &word, Dictionary *dict);

errorblock *editlines(const std::string &text, wordedit edit, Dictionary *dict)
{
    errorblock *err = nullptr;
    for (size_t at = 0; at < text.size() && !err;) {
        size_t end = text.find('\n', at);
        if (end == std::string::npos) end = text.size();
        size_t stop = end > at && text[end - 1] == '\r' ? end - 1 : end;
        if (stop > at) err = edit(text.substr(at, stop - at), dict);
        at = end + 1;
    }
    return err;
}

errorblock *editwords(const arguments &args, wordedit edit)
{
    dictplace place;
    Dictionary dict = {};
    errorblock *err = placesplit(args.words[0], &place);
    if (!err) err = placeload(place, &dict);
    for (size_t i = 1; i < args.words.size() && !err; i++) {
        std::string text;
        if (args.words[i] != "-") {
            err = edit(args.words[i], &dict);
            continue;
        }
        err = inputload(&text);
        if (!err) err = editlines(text, edit, &dict);
    }
    if (!err) err = dictsave(place.directory, place.name, &dict);
    if (!err) saysize(dict, place);
    dictfree(&dict);
    return err;
}

// dictadd drops a word that can't be stored in silence; a user at the console
// is told.
errorblock *editadd(const std::string &word, Dictionary *dict)
{
    errorblock *err = dictadd(word.c_str(), dict);
    uint32_t flags = 0;
    dictcursor cursor;
    if (!err && (word.size() > static_cast<size_t>(WORDLENGTH) ||
                 !dictfind(word.c_str(), dict, &cursor, &flags)))
        remark("not stored: %s", word.c_str());
    return err;
}

errorblock *editremove(const std::string &word, Dictionary *dict)
{
    if (dictremove(word.c_str(), dict)) return nullptr;
    dictcursor cursor;
    uint32_t flags = 0;
    remark(dictfind(word.c_str(), dict, &cursor, &flags) ? "had to stay: %s" : "absent: %s",
           word.c_str());
    return nullptr;
}

} // namespace

errorblock *commanddictbuild(const arguments &args)
{
    dictplace place;
    Dictionary dict = {};
    errorblock *err = placesplit(args.words[0], &place);
    if (!err) err = dictempty(&dict);
    for (size_t i = 1; i < args.words.size() && !err && !edgestopped(); i++) {
        std::string text;
        err = textload(args.words[i], &text);
        int32_t without = 0;
        if (!err && args.minscore != NOSCORE) without = scoredwords(&text, args.minscore);
        if (without) remark("%s: %d without a score", args.words[i].c_str(), without);
        if (!err) err = importtext(text, &dict);
    }
    countend();
    if (!err && edgestopped()) remark("stopped: the words read so far are kept");
    if (!err) err = dictsave(place.directory, place.name, &dict);
    if (!err) saysize(dict, place);
    dictfree(&dict);
    return err;
}

errorblock *commanddictwords(const arguments &args)
{
    dictplace place;
    Dictionary dict = {};
    dictcursor cursor;
    errorblock *err = placesplit(args.words[0], &place);
    if (!err) err = placeload(place, &dict);
    if (!err && dictseek(0, &dict, &cursor)) {
        do
            outline(cursor.word);
        while (!edgestopped() && dictnext(&dict, &cursor));
    }
    dictfree(&dict);
    return err;
}

errorblock *commanddictfind(const arguments &args)
{
    dictplace place;
    Dictionary dict = {};
    errorblock *err = placesplit(args.words[0], &place);
    if (!err) err = placeload(place, &dict);
    for (size_t i = 1; i < args.words.size() && !err; i++) {
        dictcursor cursor;
        uint32_t flags = 0;
        int found = dictfind(args.words[i].c_str(), &dict, &cursor, &flags);
        outline(args.words[i] + (found ? "\tfound\t" : "\tabsent\t") +
                std::to_string(cursor.wordn) + "\t" + cursor.word);
    }
    dictfree(&dict);
    return err;
}

errorblock *commanddictadd(const arguments &args)
{
    return editwords(args, editadd);
}

errorblock *commanddictremove(const arguments &args)
{
    return editwords(args, editremove);
}

errorblock *commanddictcheck(const arguments &args)
{
    dictplace place;
    Dictionary dict = {};
    char fault[128];
    errorblock *err = placesplit(args.words[0], &place);
    if (!err) err = placeload(place, &dict);
    if (!err && dictverify(&dict, fault, sizeof fault)) err = makeerrortext(ECR, "%s", fault);
    if (!err)
        outline("ok: " + std::to_string(dict.nwords) + " words, " + std::to_string(dict.noindex) +
                " entries");
    dictfree(&dict);
    return err;
}
