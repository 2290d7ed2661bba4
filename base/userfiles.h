// base/userfiles.h - the files that a user has of his own, one of a kind.
//
// They are named after the user who has logged in and lie in a folder beside the
// program, which is made where it is wanted: Choices\NAME.dat,
// Default\NAME.qmg. Where they can't be written there, as in a folder for the
// programs of all users, they lie in the same way in the folder Quillmere of the
// user's application data.
#pragma once

struct errorblock;

// Where to read one, into PATHSIZE bytes: of the two places the one that was
// written last, beside the program if there is none. Errors: those of the login
// name and of the program's directory, 30 for a path that doesn't fit.
errorblock *userfilefind(const char *folder, const char *extension, char *path);

// Has write make the file beside the program or, if it can't, in the other
// place. Errors: as above; what write met first, when there is none.
using userfilewriter = errorblock *(*)(const char *path);
errorblock *userfilesave(const char *folder, const char *extension, userfilewriter write);
