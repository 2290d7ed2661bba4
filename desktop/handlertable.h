// desktop/handlertable.h - what a window hears, as one table.
//
//     constexpr handlertable handlers = {
//         {.redraw = painted},
//         {.control = DIALOGOK, .press = oktake},
//         {.control = EDITWORD, .code = KEYEITHER | KEYRETURN, .keyed = wordadd},
//         {.click = elsewhere},
//         {.closed = dialogclose},
//     };
//
// A row has one function, and the function's name tells the event. The first kind
// are handlers as in events.h. The second kind are called without arguments, when
// something particular has happened:
//
//  - A press is a click of a control with the left button, and nothing else.
//  - A key is claimed before the call.
//
// The clicks of a table, and likewise its keys, are one registration. Its rows are
// asked from the top: a press that is meant, or a click row, ends it, and so does a
// key that has been claimed.
#pragma once

#include "desktop/events.h"

#include <cstdint>
#include <initializer_list>
#include <type_traits>

// What a row of the second kind calls, and whoever calls that for it when its time
// has come, as errorblock *(*)(function, data).
using rowfunction = errorblock *(*)();
using whenfunction = errorblock *(*)(errorblock *(*function)(intptr_t data), intptr_t data);

constexpr int32_t ANYCONTROL = -2;        // -1 is the window itself
constexpr int32_t KEYEITHER = 0x40000000; // the press of the key, and its character

struct handlerrow {
    int32_t control = ANYCONTROL; // of press, keyed and subclass
    int32_t code = 0;             // of keyed
    intptr_t data = 0;            // what a handler is given as its own

    redrawfunction redraw = nullptr;
    openfunction open = nullptr;
    closefunction close = nullptr;
    clickfunction click = nullptr;
    keyfunction key = nullptr;
    focusfunction focus = nullptr;
    mousefunction mouse = nullptr;
    activatefunction activate = nullptr;
    pointerfunction pointer = nullptr;
    textchangefunction textchange = nullptr;
    textfocusfunction textfocus = nullptr;
    parentfunction parentdeleted = nullptr;
    parentfunction parentclosed = nullptr;
    wheelfunction wheel = nullptr;
    appcommandfunction appcommand = nullptr;
    helpfunction help = nullptr;
    dropfunction drop = nullptr;
    droploadfunction dropload = nullptr;
    dropdonefunction dropdone = nullptr;
    subclassfunction subclass = nullptr;
    int32_t helptemplate = 0; // in the place of help: its number in the help table

    rowfunction press = nullptr;
    rowfunction keyed = nullptr;
    rowfunction closed = nullptr;
    whenfunction when = nullptr; // of these three; 0 for at once
};

// In the order in which the rows are registered.
using handlertable = std::initializer_list<handlerrow>;

// Registers all rows for the window, once. The table stays where it is until they
// are removed. After an error none of them is registered. Errors: those of
// addblock; of a subclass row those of addsubclasshandler.
errorblock *addhandlers(window owner, const handlertable &table);
errorblock *addhandlers(window owner, handlertable &&table) = delete;

// Removes them, the last first. Returns 0.
errorblock *remhandlers(window owner, const handlertable &table);

// A call with its arguments, where a table wants a function without any:
//
//     {.press = calls<gridreflect, REFLECTVERTICAL>}
template<auto function, auto... arguments> errorblock *calls()
{
    if constexpr (std::is_void_v<decltype(function(arguments...))>) {
        function(arguments...);
        return nullptr;
    } else {
        return function(arguments...);
    }
}
