// dict/dictset.h - the dictionaries known, and those in use.
//
// dicts holds one record for each dictionary file of one directory; a record's
// position is the dictionary number, which moves when one is created or
// deleted. dictset lists the numbers that the document uses, ascending;
// searches walk only those. A dictionary is read when it is first used or
// edited, and dropped when no use remains.
//
// Loaded and used are two things: an edited or new dictionary is loaded and
// not in use, and stays in memory until the next document is read, or longer if
// its words are being worked on; one that failed to load is in use all the same,
// with no words, and may be tried again.
//
// A dictionary has a name: in a document's list an empty one is the end.
//
// Numbers that are passed in are those of known dictionaries.
#pragma once

#include "base/platform.h"
#include "dict/dictionary.h"

struct bfile;

constexpr uint32_t MAXDICTS = 32;

struct dictrec {
    char name[32]; // without directory and extension
    Dictionary dict;
    uint8_t usecount; // times that dictset names it
    uint8_t loaded;   // dict holds the file's contents
    uint8_t changed;  // words came or went since the last save or load
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

// Forgets what was known, looks at the directory and makes the menu. Always 0:
// without a directory there are no dictionaries.
errorblock *dictstart();
void dictstop();

// Knows the directory's files, the first 32 of them. One whose name is empty or
// over 31 letters is passed over. Errors: the search's, with those known so far.
errorblock *dictscan();

int32_t dictnamefind(const char *name); // ignoring case; -1 if there is none

// The same, and looks for the file where more than 32 left it out: the last dictionary
// that isn't loaded is forgotten for it, and numbers move.
int32_t dictknow(const char *name);

bool dictinset(uint32_t number);

// Puts a number into dictset, once more if it is there. Error 519 when the
// list is full.
errorblock *dictsetadd(uint32_t number);

// Into the set, and loaded; out of it, and dropped with the last use. Always 0:
// a dictionary that can't be had shows by having no words.
errorblock *dictuse(uint32_t number);
errorblock *dictunuse(uint32_t number);

// One or the other, at the user's wish: the document is changed.
errorblock *dicttoggle(uint32_t number);

errorblock *dictreload(uint32_t number); // errors: dictload's

// The same unless it is loaded. Words go into no dictionary that could not be read:
// the next save would write it without those of its file.
errorblock *dictneed(uint32_t number);
void dictunload(uint32_t number);

// Drops what is loaded and not in use, unless the user works on its words: those
// that were changed are in memory alone, and an empty store in place of one that
// is open would be saved over its file.
void dictdrop(uint32_t number);

// Opens the editor, with the dictionary loaded. Errors: dictload's, the
// window's.
errorblock *dictedit(uint32_t number);

// A new dictionary, among the others by name, and its file. It is loaded and
// not in use. Errors: 520 when 32 are known, 521 for a name that is taken, here
// or on disc, 30 for one that is too long, 23 for none, the save's; then nothing
// has changed.
errorblock *dictcreate(const char *name);

// Deletes the file, and forgets the dictionary. Errors: the deletion's; then
// nothing has changed.
errorblock *dictremovefile(uint32_t number);

// Makes sure that a dictionary is in use: when none is, the first found of the
// default names. Error 528 when none can be had.
errorblock *dictdefault();

// The set, as the document's file holds it: names of up to 11 letters, which
// end with an empty one. Loading is dictsetclear, dictsetread, dictsetload.
void dictsetclear();                // nothing is unloaded yet
bool dictsetread(bfile *file);      // true when the stream ended early
uint32_t dictsetwrite(bfile *file); // 1 when it could not be written
errorblock *dictsetload();          // always 0

// What the user wanted with changed dictionaries: saved, or read again from their
// files. All are tried. Errors: the first save's, and those that could not be saved
// stay changed; the first load's.
errorblock *dictsavechanges();
errorblock *dictdiscardchanges();
bool dictanychanges();
