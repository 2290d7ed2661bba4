// Which dictionaries there are: found in the directory, created, deleted.

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/syserr.h"
#include "base/text.h"
#include "base/trace.h"
#include "dict/dictfile.h"
#include "dict/dictname.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"

#include <cstring>

namespace
{

constexpr char EXTENSION[] = "dic";

void forgetall()
{
    for (dictrec &record : dicts) {
        dictfree(&record.dict);
        record = {};
    }
    ndicts = 0;
    dictset = {};
}

// A search may give more than it was asked for: a disc that keeps short names
// beside the long ones finds "x.dict" by "*.dic".
void known(const fileinfo *info)
{
    const char *ext = pathgetext(info->name);
    if (info->objecttype != OBJECTFILE || !ext || cstricmp(ext, EXTENSION)) return;
    auto length = static_cast<size_t>(ext - info->name - 1);
    dictrec *record = &dicts[ndicts];
    if (!length || length >= sizeof record->name) return;
    memcpy(record->name, info->name, length);
    ndicts++;
}

// Keeps the set pointing at the same dictionaries.
void renumber(uint32_t from, int32_t by)
{
    for (uint32_t i = 0; i < dictset.count; i++)
        if (dictset.numbers[i] >= from)
            dictset.numbers[i] = static_cast<uint8_t>(dictset.numbers[i] + by);
}

// Where a new name goes. The comparison minds case, the search's order need
// not: a new dictionary may stand elsewhere after the next start.
uint32_t placefor(const char *name)
{
    uint32_t i = 0;
    while (i < ndicts && strcmp(dicts[i].name, name) <= 0)
        i++;
    return i;
}

void insertrecord(uint32_t number, const char *name)
{
    memmove(dicts + number + 1, dicts + number, (ndicts - number) * sizeof(dictrec));
    ndicts++;
    dicts[number] = {};
    strcopyn(dicts[number].name, name, sizeof dicts[number].name);
    renumber(number, 1);
}

void removerecord(uint32_t number)
{
    while (dictinset(number))
        dictunuse(number);
    dictunload(number);
    renumber(number + 1, -1);
    ndicts--;
    memmove(dicts + number, dicts + number + 1, (ndicts - number) * sizeof(dictrec));
    dicts[ndicts] = {};
}

// A file may be there that isn't known: it came after the scan, or the name
// leads to another's file.
errorblock *createcheck(const char *name)
{
    char leaf[sizeof dicts->name + sizeof EXTENSION];
    if (!*name) return makeerror(ERRORQUIET);
    errorblock *err = xzsnprintf(sizeof leaf, nullptr, leaf, "%s.%s", name, EXTENSION);
    bool taken = !err && fileexists(dictdirectory, leaf);
    if (!err && ndicts == MAXDICTS) err = makeerror(ENUD);
    if (taken || dictnamefind(name) >= 0) err = makeerror(EDAX);
    return err;
}

} // namespace

errorblock *dictscan()
{
    fileinfo info;
    bool done;
    trace("dic dir %s", dictdirectory);
    forgetall();
    findreset();
    errorblock *err = findnext(dictdirectory, &info, "*.dic", &done);
    while (!err && !done && ndicts < MAXDICTS) {
        trace("name %s", info.name);
        known(&info);
        if (ndicts < MAXDICTS) err = findnext(dictdirectory, &info, "*.dic", &done);
    }
    findclose();
    return err;
}

int32_t dictknow(const char *name)
{
    char leaf[sizeof dicts->name + sizeof EXTENSION];
    int32_t known = dictnamefind(name);
    if (known >= 0) return known;
    bool named = *name && !dictnamecheck(name) &&
                 !xzsnprintf(sizeof leaf, nullptr, leaf, "%s.%s", name, EXTENSION);
    if (!named || !fileexists(dictdirectory, leaf)) return -1;
    if (ndicts == MAXDICTS) {
        uint32_t last = ndicts;
        while (last && (dicts[last - 1].usecount || dicts[last - 1].loaded))
            last--;
        if (!last) return -1;
        removerecord(last - 1);
    }
    uint32_t number = placefor(name);
    insertrecord(number, name);
    return static_cast<int32_t>(number);
}

errorblock *dictcreate(const char *name)
{
    errorblock *err = createcheck(name);
    if (!err) {
        uint32_t number = placefor(name);
        insertrecord(number, name);
        dicts[number].loaded = 1;
        err = dictempty(&dicts[number].dict);
        if (!err) err = dictsave(dictdirectory, name, &dicts[number].dict);
        if (err) removerecord(number);
    }
    dictmenubuild();
    return err;
}

errorblock *dictremovefile(uint32_t number)
{
    char path[PATHSIZE];
    errorblock *err =
        xzsnprintf(sizeof path, nullptr, path, "%s\\%s.dic", dictdirectory, dicts[number].name);
    if (!err) err = filedelete(path);
    if (!err) removerecord(number);
    return err;
}
