#include "base/userfiles.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/syserr.h"
#include "base/text.h"

namespace
{

constexpr const char *APPLICATIONDATA = "%APPDATA%"; // what stays as it is has no value
constexpr const char *PROGRAM = "Quillmere";

// A folder to be made, and the file in it.
struct userplace {
    char folder[PATHSIZE];
    char path[PATHSIZE];
};

errorblock *placein(const char *directory, const char *folder, const char *extension,
                    userplace *place)
{
    char login[256], leaf[PATHSIZE];
    errorblock *err = platformloginname(login, sizeof login);
    if (!err) err = xzsnprintf(PATHSIZE, nullptr, leaf, "%s.%s", login, extension);
    if (!err) err = fs_strcpycat(place->folder, PATHSIZE, directory, folder);
    if (!err) err = fs_strcpycat(place->path, PATHSIZE, place->folder, leaf);
    return err;
}

errorblock *placebeside(const char *folder, const char *extension, userplace *place)
{
    char directory[PATHSIZE];
    errorblock *err = platformprogramdirectory(directory, sizeof directory);
    return err ? err : placein(directory, folder, extension, place);
}

// The folder of the program in the user's application data; false if he has none.
bool datafolder(char *path)
{
    platformenvironment(APPLICATIONDATA, path, PATHSIZE);
    return path[0] && path[0] != APPLICATIONDATA[0] && !fs_strcat(path, PATHSIZE, PROGRAM);
}

bool placeelsewhere(const char *folder, const char *extension, userplace *place)
{
    char directory[PATHSIZE];
    return datafolder(directory) && !placein(directory, folder, extension, place);
}

// Whether a is there, and b isn't or is older.
bool newer(const char *a, const char *b)
{
    fileinfo ofa, ofb;
    if (fileinfoexpanded(a, &ofa) || ofa.objecttype != OBJECTFILE) return false;
    if (fileinfoexpanded(b, &ofb) || ofb.objecttype != OBJECTFILE) return true;
    return filetimecompare(&ofa, &ofb, 0) > 0;
}

// The error of a folder that can't be made is that of the file, too.
errorblock *placewrite(const userplace &place, userfilewriter write)
{
    mkdir(place.folder);
    return write(place.path);
}

errorblock *elsewherewrite(const char *folder, const char *extension, userfilewriter write)
{
    userplace place;
    char directory[PATHSIZE];
    if (!placeelsewhere(folder, extension, &place)) return makeerror(ERRORWRITE);
    datafolder(directory);
    mkdir(directory);
    return placewrite(place, write);
}

} // namespace

errorblock *userfilefind(const char *folder, const char *extension, char *path)
{
    userplace beside, elsewhere;
    errorblock *err = placebeside(folder, extension, &beside);
    if (err) return err;
    bool other = placeelsewhere(folder, extension, &elsewhere);
    const char *found = other && newer(elsewhere.path, beside.path) ? elsewhere.path : beside.path;
    return xzstrncpy(path, found, PATHSIZE);
}

errorblock *userfilesave(const char *folder, const char *extension, userfilewriter write)
{
    userplace beside;
    errorblock *err = placebeside(folder, extension, &beside);
    if (err) return err;
    err = placewrite(beside, write);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    if (!elsewherewrite(folder, extension, write)) return nullptr;
    return firsterror(kept, nullptr);
}
