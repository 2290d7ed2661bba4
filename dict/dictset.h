// dict/dictset.h - the dictionaries known, and those in use.
//
// dicts holds one record for each dictionary file of one directory; a record's
// position is the dictionary number, which moves when one is created or
// deleted. dictset lists the numbers that the document uses, ascending;
// searches walk only those. A dictionary is read when it is first used and
// dropped when no use remains.
#pragma once

#include "base/platform.h"
#include "dict/dictionary.h"

struct bfile;

constexpr uint32_t MAXDICTS = 32;

struct dictrec {
    char name[32]; // without directory and extension
    Dictionary dict;
    uint8_t usecount;
    uint8_t loaded;
    uint8_t changed; // words came or went since the last save or load
};

struct dictsetlist {
    uint32_t count;
    uint8_t numbers[MAXDICTS];
};

// Changed by this module alone, but for a record's changed mark, which whoever
// edits its words sets.
extern dictrec dicts[MAXDICTS];
extern uint32_t ndicts;
extern dictsetlist dictset;

// A word of a loaded dictionary: its number in the top 8 bits, the word's in
// the low 24.
using wordref = uint32_t;
constexpr wordref makewordref(uint32_t dictn, uint32_t wordn)
{
    return (dictn << 24) + wordn;
}

// The word's text, in dictword's static buffer; empty for a reference to
// nothing.
const char *wordtext(wordref ref);

// Where the dictionaries lie: a path macro at start. A console command may
// name another directory before dictstart.
extern char dictdirectory[PATHSIZE];

errorblock *dictstart();
void dictstop();
errorblock *dictscan();
int32_t dictnamefind(const char *name); // -1 if there is none
int dictinset(uint32_t number);
errorblock *dictsetadd(uint32_t number); // error 519 when the list is full
errorblock *dictuse(uint32_t number);    // always 0
errorblock *dictunuse(uint32_t number);  // always 0
errorblock *dicttoggle(uint32_t number);
errorblock *dictreload(uint32_t number);
void dictunload(uint32_t number);
errorblock *dictedit(uint32_t number);

// Errors: 520 when 32 are known, 521 for a name that is taken, the save's.
errorblock *dictcreate(const char *name);
errorblock *dictremovefile(uint32_t number);

// Makes sure that a dictionary is in use. Error 528 when none can be had.
errorblock *dictdefault();

void dictsetclear();
int dictsetread(bfile *file); // 1 when the stream ended early
uint32_t dictsetwrite(bfile *file);
errorblock *dictsetload();
errorblock *dictsavechanges();
errorblock *dictdiscardchanges();
int dictanychanges();
