// app/choices.h - what belongs to the user and not to a document.
//
// The choices in force lie with those who go by them: the fonts of the lists and
// the colours in grid/appearance.h, the split in the document, the limit in
// find/solutions.h. Here they are gathered into one record, which is also the
// image of the choices file: docs/formats.md has every byte. They go into the
// user's file (base/userfiles.h) only when he says so.
#pragma once

#include "base/fontrecord.h"

#include <cstdint>

struct errorblock;

struct choicesrecord {
    fontrecord dictfont, solfont;
    uint32_t cursorcolour, selectedcolour; // 0xBBGGRR00
    uint32_t splitfraction;                // SPLITMIN..SPLITMAX
    int32_t maxsolutions;
};
static_assert(sizeof(choicesrecord) == 184);

constexpr int32_t MAXSOLUTIONSMIN = 20, MAXSOLUTIONSMAX = 1000000;

// Those in force, and putting others into force; the limit is brought into its
// range. The fonts are built in from then on: a document without an appearance of
// its own leaves them. Nothing is measured or redrawn.
void choicesget(choicesrecord *choices);
void choicesset(const choicesrecord &choices);

// Reads a choices file. Fields that it doesn't tell whole stay as they were;
// values that no command could have set are brought into range. Errors: those
// of the open, 3 for a file cut short.
errorblock *choicesread(const char *path, choicesrecord *choices);

// Writes those in force, beside the old file until it is whole. Errors: those of
// base/safesave.h.
errorblock *choiceswrite(const char *path);

// The same into the user's file. Errors: those of userfilesave.
errorblock *choicessave();

// Puts those of the user's file into force, at the start, and measures the lists by
// them. Without a file it's what is built in. Returns 0.
errorblock *choicesload();
