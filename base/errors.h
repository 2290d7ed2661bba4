// base/errors.h - how a failure travels.
//
// An operation that can fail returns zero or a pointer to the one static
// errorblock, which is good until the next error is made. A chain runs while
// the error is zero; clean-up that must still run keeps the first error.
// Nobody below an event handler shows anything.
#pragma once

#include <cstdarg>
#include <cstdint>

struct errorblock {
    uint32_t code; // never 0
    char text[252];
};
static_assert(sizeof(errorblock) == 256);

// A row of an error table; text is a literal or a {KEY} token. A row of code 0
// ends the table.
struct errorrow {
    uint32_t code;
    const char *text;
};

// The node that chains a table in; static storage of the table's owner.
struct errornode {
    errornode *next;
    const errorrow *table;
};

// Codes of the library's own table.
constexpr uint32_t ERRORMEMORY = 2;
constexpr uint32_t ERRORREAD = 3;
constexpr uint32_t ERRORWRITE = 4;
constexpr uint32_t ERRORCORRUPTMEMORY = 5;
constexpr uint32_t ERRORINTEGER = 6;
constexpr uint32_t ERRORTEMPLATE = 7;
constexpr uint32_t ERRORNOFILE = 8;
constexpr uint32_t ERRORNOEVENT = 20;
constexpr uint32_t ERRORTEMPLATETAG = 21;
constexpr uint32_t ERRORQUIET = 23; // shown by nothing: the user knows already
constexpr uint32_t ERRORSAVECANCELLED = 24;
constexpr uint32_t ERRORLOADCANCELLED = 26;
constexpr uint32_t ERRORNOTFOUND = 28; // takes the path
constexpr uint32_t ERRORMAXSTRING = 30;

// Empties the chain of error tables.
errorblock *initerror();

// Puts the table at the head of the chain: the newest is searched first.
errorblock *adderrors(const errorrow *table, errornode *node);
errorblock *remerrors(errornode *node);

// Adds the library's own table, codes 1 to 31.
errorblock *taskerrors();

// The table's text of a code, or "{ENOE}".
const char *lookuperror(uint32_t code);

// The error of a code, its tokens expanded. Code 0 gives 0.
errorblock *makeerror(uint32_t code);

// The same with arguments for the text's format; tokens that come in through
// an argument are expanded too. Text that doesn't fit is cut.
errorblock *makeerrorf(uint32_t code, ...);

// An error whose format comes from the caller, readable with no catalogue.
[[gnu::format(printf, 2, 3)]] errorblock *makeerrortext(uint32_t code, const char *format, ...);

// Keeps an error over calls that may make others. saveerror(0) is 0, and so is
// the copy that memory is too short for. restoreerror gives the kept error, in
// a second static block, or other when there is none; it frees the copy.
errorblock *saveerror(const errorblock *error);
errorblock *restoreerror(errorblock *copy, errorblock *other);
