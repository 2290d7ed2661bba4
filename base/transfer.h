// base/transfer.h - loads and saves that move through memory.
//
// Between programs and through the clipboard, data goes from one task's memory
// to another's by the same calls that read and write files. Who begins such a
// load or save sets the range or the place of delivery; the streams of bfile.h
// and the blocks of saveblock.h then move through it; who began it clears it.
#pragma once

#include <cstdint>

struct errorblock;

// The range to read, which must stand until ramreadclear.
void ramreadset(const void *address, int32_t size);
bool ramreadactive();
void ramreadsize(int32_t *size);                             // bytes not yet read
void ramread(void *address, int32_t length, int32_t *count); // fewer at the end
void ramreadseek(int32_t position);
errorblock *ramreadrewind(errorblock *error); // back to the start; returns error
void ramreadclear();

// Where the written bytes and their count are delivered. They stay the
// transfer's own, to be read until ramwriteclear or the next write.
void ramwriteset(void **anchoraddress, int32_t *sizeaddress);
bool ramwriteactive();
void ramwrite(const void *address, int32_t length, int32_t *count); // 0 when memory is short
errorblock *ramwriteend(errorblock *error);                         // delivers; returns error
void ramwriteclear();
