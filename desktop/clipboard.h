// desktop/clipboard.h - data by way of the clipboard.
//
// What is offered is made only when somebody asks for it: the program offers a
// list of formats, and its render callback is called for one of them. When the
// service ends, with the program at the latest, every format is rendered, so that
// what was copied outlives the program.
//
// A load or save of base/transfer.h moves through the blocks that this gives and
// takes.
#pragma once

#include <cstdint>

struct errorblock;

// The system's formats that are more than plain blocks. The data of both is that
// of a file of that kind, which for the old metafile may have the header of a
// placeable one.
constexpr int32_t CLIPTEXT = 1, CLIPMETAFILE = 3, CLIPENHMETAFILE = 14;

// In a list of formats: the offer is this program's own.
constexpr int32_t CLIPOWN = -2;

// Gets a block from clipboardalloc and fills it.
using cliprenderfunction = errorblock *(*)(int32_t format);
// The offer is lost: what was kept for it can go.
using clipdestroyfunction = errorblock *(*)();

// Formats are listed and pasted through the system's newer interface, which knows
// more of them.
constexpr uint32_t CLIPOLE = 1;
errorblock *clipboardstart(uint32_t flags);

// Renders all that is on offer; the destroy callback comes last. The broadcast of
// the program's end does the same.
errorblock *clipboardend();

// Takes the clipboard for a list of formats, which 0 ends; it is copied. An offer
// before it is told of its loss. render may be 0 where nothing can be made. After
// an error there is nothing on offer, and nobody is told.
constexpr uint32_t CLIPNOW = 1; // renders each at once
errorblock *clipboardoffer(const int32_t *formats, cliprenderfunction render,
                           clipdestroyfunction destroy, uint32_t flags);

// For render alone: the block to fill. A second one replaces the first.
errorblock *clipboardalloc(void **pointer, int32_t size);

bool clipboardowned();

// A plain allocation with the formats there are, 0 behind the last.
errorblock *clipboardformats(int32_t **formats);

// A plain allocation with the data of a format, and its size, which the system may
// have rounded up; 0 when there is none.
errorblock *clipboardpaste(int32_t format, void **data, int32_t *size);

// The number of a format that programs have agreed on by name.
errorblock *clipboardformatnumber(const char *name, int32_t *number);
