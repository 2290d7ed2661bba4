// desktop/win32/clipboardservice.h - the state of the clipboard service.
#pragma once

#include "desktop/clipboard.h"

#include <windows.h>

// The block that render fills, as the system wants it; the size is that asked for.
struct cliprendered {
    HGLOBAL handle;
    void *pointer;
    int32_t size;
};

struct clipboardservice {
    HWND hidden; // "oscb", which owns our offers; 0 while the service is off
    uint32_t flags;
    int32_t *offered; // the formats of our offer, 0 behind the last; 0 for none
    cliprenderfunction render;
    clipdestroyfunction destroy;
    bool renderingall;   // our own emptying of the clipboard doesn't lose the offer
    cliprendered inhand; // between render and clipboardput
};
// Changed by clipboard.cpp alone.
extern clipboardservice clipboard;

// Puts the block on the open clipboard; it is the system's, or gone. Without a
// block nothing is put.
errorblock *clipboardput(int32_t format, const cliprendered *block);
