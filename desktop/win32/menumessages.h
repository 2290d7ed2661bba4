// desktop/win32/menumessages.h - what the window procedure hands to the menus.
//
// But for menuletter, each takes the words of one message of window w and returns whether it was
// about a menu of a table; what it returns false for has changed nothing and is
// the system's.
#pragma once

#include "desktop/events.h"

// WM_INITMENUPOPUP: prepares the menu before it opens.
bool menuopening(window w, intptr_t wparam, intptr_t lparam);

// WM_INITMENU and WM_MENUSELECT: the menu named last is the one that a command
// belongs to.
bool menustarting(window w, intptr_t wparam, intptr_t lparam);
bool menuselecting(window w, intptr_t wparam, intptr_t lparam);

// WM_MENUCHAR, of any menu: the answer to a letter that no entry underlines, which
// chooses the entry that begins with it; of several it goes on to the next. 0 if none
// does.
intptr_t menuletter(intptr_t wparam, intptr_t lparam);

// WM_COMMAND, with any words: one of a menu has no control and the notification
// code 0.
bool menucommand(window w, intptr_t wparam, intptr_t lparam);
