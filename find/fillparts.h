// find/fillparts.h - what a fill works on: words, slots and cells, for the sources
// of fill.h alone.
//
// Sets of words are bits, word 0 of a list the lowest bit of the first span; sets of
// letters are bits too, by the letters' numbers.
#pragma once

#include "find/fill.h"
#include "find/solve.h"

#include <cstdint>
#include <vector>

constexpr int32_t FILLLETTERS = 64; // different letters that the words may have
constexpr uint32_t SPANBITS = 64;

// The words of a length, in the order of the dictionaries.
struct filllist {
    int32_t length;
    uint32_t count, spans; // words, and spans of a set of them
    std::vector<wordref> words;
    std::vector<uint8_t> letters; // length numbers a word
    std::vector<uint64_t> sets;   // by place and letter: see fillset
};

struct fillcell {
    int32_t x, y;
    int32_t slot[2], place[2]; // across and down: -1 for none; and which of its cells it is
    uint64_t letters;
};

struct fillslot {
    const filllist *list; // 0 where nothing is asked
    int32_t length;
    int32_t cells[WORDLENGTH];
    std::vector<uint64_t> words; // that may stand here
    uint64_t judged[WORDLENGTH]; // the letters of the cells that these were chosen by
    uint32_t count;              // of words
    uint32_t weight;             // how often it was the one to fail
    uint32_t saved;              // the level at which it was put aside last
    bool waiting;                // to be judged again
};

struct fillstate {
    fillrules rules;
    uint8_t number[256]; // of letters, FILLLETTERS for none
    uint8_t letter[FILLLETTERS];
    int32_t letters;
    std::vector<filllist> lists; // by length
    std::vector<fillslot> slots;
    std::vector<fillcell> cells;
};
extern fillstate fill;

// The words of a list that have a letter at a place.
const uint64_t *fillset(const filllist &list, int32_t place, int32_t letter);

// Slots and cells, from search.slots.
void fillslotsmake();

// The lists of the lengths that the slots have.
void filllistsmake();

// The words that the grid's letters allow; false if some slot has none.
bool fillbegin();

// Levels of trying: what changes above a level is put back when it is left.
void fillenter();
void fillleave();

// Leaves this word alone in its slot, and all that follows from it; false when some
// slot has no word then.
bool fillput(int32_t slot, uint32_t word);
