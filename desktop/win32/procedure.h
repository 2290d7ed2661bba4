// desktop/win32/procedure.h - the window procedure of the class "Task", and its
// rows.
//
// A row answers one message. The reply's kind tells what its result means: of
// kind 0 the system's default follows if the result is not zero, of kind 1 if
// it is zero; otherwise the result is the message's.
#pragma once

#include "desktop/events.h"

#include <windows.h>

struct taskmessage {
    HWND handle;
    window self; // the same
    UINT number;
    WPARAM wparam;
    LPARAM lparam;
};

struct reply {
    intptr_t result;
    int kind;
};

constexpr reply REPLYDONE = {0, 0};    // with a result of 0
constexpr reply REPLYDEFAULT = {1, 0}; // the system's turn

constexpr reply replyvalue(intptr_t value)
{
    return {value, value ? 1 : 0};
}

LRESULT CALLBACK taskprocedure(HWND handle, UINT number, WPARAM wparam, LPARAM lparam);

// The system's own answer, which follows the window's kind of characters.
LRESULT systemreply(const taskmessage &m);

systemmessage systemmessageof(const taskmessage &m);

// Rows, by what they are about.
reply windowmade(const taskmessage &m);
reply windowended(const taskmessage &m);
reply windowmoved(const taskmessage &m);
reply windowclosing(const taskmessage &m);
reply windowpaints(const taskmessage &m);
reply windowerases(const taskmessage &m);
reply windowlimits(const taskmessage &m);
reply windowscrolled(const taskmessage &m);
reply windowactivated(const taskmessage &m);
reply windowframeactive(const taskmessage &m);
reply windowfocus(const taskmessage &m);
reply windowdefault(const taskmessage &m);
reply windowsetfont(const taskmessage &m);
reply windowgetfont(const taskmessage &m);
reply windowcommand(const taskmessage &m);

reply mousemessage(const taskmessage &m);
reply mousecapture(const taskmessage &m);
reply mousecursor(const taskmessage &m);
reply wheelmessage(const taskmessage &m);
reply dropmessage(const taskmessage &m);
reply keymessage(const taskmessage &m);
reply appcommandmessage(const taskmessage &m);
