#include "dict/dictset.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/syserr.h"
#include "base/text.h"
#include "dict/dictfile.h"
#include "dict/dictwindow.h"

#include <cstring>

dictrec dicts[MAXDICTS];
uint32_t ndicts;
dictsetlist dictset;
char dictdirectory[PATHSIZE] = "<HKEY_LOCAL_MACHINE\\Software\\Orchardlight\\Dictionaries\\>";

namespace
{

// The place of a number in the set, or where it would stand.
uint32_t setplace(uint32_t number)
{
    uint32_t i = 0;
    while (i < dictset.count && dictset.numbers[i] < number)
        i++;
    return i;
}

} // namespace

errorblock *dictstart()
{
    dictscan();
    dictmenubuild();
    return nullptr;
}

void dictstop()
{
    dictmenudelete();
}

int32_t dictnamefind(const char *name)
{
    for (uint32_t i = 0; i < ndicts; i++)
        if (!cstricmp(dicts[i].name, name)) return static_cast<int32_t>(i);
    return -1;
}

bool dictinset(uint32_t number)
{
    uint32_t i = setplace(number);
    return i < dictset.count && dictset.numbers[i] == number;
}

errorblock *dictsetadd(uint32_t number)
{
    if (dictset.count == MAXDICTS) return makeerror(EMDC);
    uint32_t i = setplace(number);
    memmove(dictset.numbers + i + 1, dictset.numbers + i, dictset.count - i);
    dictset.numbers[i] = static_cast<uint8_t>(number);
    dictset.count++;
    dicts[number].usecount++;
    return nullptr;
}

errorblock *dictuse(uint32_t number)
{
    dictsetadd(number);
    dictneed(number);
    return nullptr;
}

errorblock *dictunuse(uint32_t number)
{
    if (!dictinset(number)) return nullptr;
    uint32_t i = setplace(number);
    dictset.count--;
    memmove(dictset.numbers + i, dictset.numbers + i + 1, dictset.count - i);
    dicts[number].usecount--;
    dictdrop(number);
    return nullptr;
}

errorblock *dicttoggle(uint32_t number)
{
    errorblock *err = dictinset(number) ? dictunuse(number) : dictuse(number);
    dictsetchanged();
    return err;
}

errorblock *dictreload(uint32_t number)
{
    dictrec *record = &dicts[number];
    errorblock *err = dictload(dictdirectory, record->name, &record->dict);
    record->loaded = !err;
    return err;
}

errorblock *dictneed(uint32_t number)
{
    return dicts[number].loaded ? nullptr : dictreload(number);
}

void dictunload(uint32_t number)
{
    dictfree(&dicts[number].dict);
    dicts[number].loaded = 0;
}

void dictdrop(uint32_t number)
{
    const dictrec &record = dicts[number];
    if (record.usecount || !record.loaded || record.changed || dictediting(number)) return;
    dictunload(number);
}

errorblock *dictedit(uint32_t number)
{
    dictrec *record = &dicts[number];
    errorblock *err = dictneed(number);
    if (!err) err = dicteditopen(number, &record->dict, record->name);
    return err;
}

errorblock *dictdefault()
{
    static const char *const names[] = {"MainDict", "MainDict-UK", "MainDict-US", "Puzzle-UK",
                                        "Puzzle-US"};
    for (const char *name : names) {
        if (dictset.count) break;
        int32_t number = dictnamefind(name);
        if (number >= 0) dictuse(static_cast<uint32_t>(number));
    }
    return dictset.count ? nullptr : makeerror(ENOD);
}

void dictsetclear()
{
    for (uint32_t i = 0; i < dictset.count; i++)
        dicts[dictset.numbers[i]].usecount--;
    dictset.count = 0;
}

errorblock *dictsetload()
{
    for (uint32_t i = 0; i < dictset.count; i++)
        dictneed(dictset.numbers[i]);
    return nullptr;
}

errorblock *dictsavechanges()
{
    kepterror kept = keeperror(nullptr);
    for (uint32_t i = 0; i < ndicts; i++) {
        if (!dicts[i].changed) continue;
        errorblock *err = dictsave(dictdirectory, dicts[i].name, &dicts[i].dict);
        if (err && !kept.place) kept = keeperror(err);
        if (!err) dicts[i].changed = 0;
    }
    return firsterror(kept, nullptr);
}

errorblock *dictdiscardchanges()
{
    kepterror kept = keeperror(nullptr);
    for (uint32_t i = 0; i < ndicts; i++) {
        if (!dicts[i].changed) continue;
        dictunload(i);
        errorblock *err = dictreload(i);
        if (err && !kept.place) kept = keeperror(err);
        dicts[i].changed = 0;
    }
    return firsterror(kept, nullptr);
}

bool dictanychanges()
{
    for (uint32_t i = 0; i < ndicts; i++)
        if (dicts[i].changed) return true;
    return false;
}

const char *wordtext(wordref ref)
{
    static const Dictionary nothing = {};
    uint32_t number = ref >> 24;
    return dictword(ref & 0xFFFFFF, number < ndicts ? &dicts[number].dict : &nothing);
}
