// base/syserr.h - how a failed call of the system is reported.
//
// A second static errorblock holds the system's message for the code and the
// suffix "(call) (code)" or "(call) (code) (details)". The name of the call is
// the Win32 one on every platform.
//
// The suffix has a limit of 252 bytes of its own, so that a long message never
// hides which call failed. The text may thus be longer than an errorblock's:
// copy it with a limit, and don't assign the record.
#pragma once

#include "base/errors.h"

// For calls that leave their code behind. Returns 0 when the code is 0: the
// call then counts as a success.
errorblock *syserr(const char *call);
[[gnu::format(printf, 2, 3)]] errorblock *syserr(const char *call, const char *format, ...);

// For calls that return their code.
errorblock *syserrcode(uint32_t code, const char *call);
[[gnu::format(printf, 3, 4)]] errorblock *syserrcode(uint32_t code, const char *call,
                                                     const char *format, ...);

// For calls whose argument is a text or, below 65536, a number.
errorblock *syserrname(const char *call, const char *name);

// For calls that leave no code behind on old systems, where status served. All
// systems that we run on do leave one.
errorblock *syserrversioned(uint32_t status, const char *call);

// For failures that the system has no message for: the suffix alone.
errorblock *syserrnew(uint32_t code, const char *call);

// Clean-up that must still run under an error may make others, perhaps in the
// same static block. keeperror notes what error says; firsterror puts that
// back and returns it or, when there was none, other.
struct kepterror {
    errorblock *place;
    errorblock copy;
};
kepterror keeperror(errorblock *error);
errorblock *firsterror(const kepterror &kept, errorblock *other);
