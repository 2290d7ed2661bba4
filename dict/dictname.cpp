#include "dict/dictname.h"

#include "base/chars.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/text.h"
#include "dict/dictset.h"

#include <cstring>

namespace
{

constexpr auto LONGEST = static_cast<int>(sizeof dicts->name - 1);

bool forbidden(uint8_t ch)
{
    return ch < ' ' || strchr("\\/:*?\"<>|", ch);
}

// The system takes these for devices, whatever follows a point.
bool isdevice(const char *name)
{
    static const char *const devices[] = {"CON", "PRN", "AUX", "NUL", "COM", "LPT"};
    constexpr size_t numbered = 4; // the first that bears a number
    size_t length = strcspn(name, ".");
    for (size_t i = 0; i < 6; i++) {
        bool number = length == 4 && name[3] >= '1' && name[3] <= '9';
        if (!cstrnicmp(name, devices[i], 3) && (i < numbered ? length == 3 : number)) return true;
    }
    return false;
}

} // namespace

errorblock *dictnamecheck(const char *name)
{
    size_t length = strlen(name);
    if (!length) return nullptr;
    for (const char *at = name; *at; at++)
        if (forbidden(static_cast<uint8_t>(*at)))
            return makeerrortext(EDNAME,
                                 "A dictionary's name can't hold any of \\ / : * ? \" < > |");
    if (name[length - 1] == '.' || name[length - 1] == ' ')
        return makeerrortext(EDNAME, "A dictionary's name can't end in a point or a space.");
    if (isdevice(name))
        return makeerrortext(EDNAME,
                             "%s is a device of the system's, and no name for a dictionary.", name);
    if (length > LONGEST)
        return makeerrortext(EDNAME, "A dictionary's name has at most %d characters.", LONGEST);
    return nullptr;
}
