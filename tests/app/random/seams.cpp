// What the program asks of the system is heard on the way: the linker puts these
// calls in the place of its own, which it calls __real.
#include "base/boxes.h"
#include "base/messages.h"
#include "tests/app/random/random.h"

#include <cstring>

uint32_t boxesseen, quits;

namespace
{

// Errors and questions that a user can make sense of, by their keys in the
// catalogue; two have no text there, and show their keys.
const char *const explained[] = {
    "{ERD}",    "{EWR}",   "{ECR}",        "{ENOTTYPE}", "{ENMW}",   "{ENTS}", "{EASW}",
    "{EMDC}",   "{ENUD}",  "{EMAXSTRING}", "{EDAX}",     "{ENOD}",   "{EASP}", "{EDCOLD}",
    "{EDCAPS}", "{EAMAT}", "{ENOSAVE}",    "{SPNONE}",   "{SPKEEP}", "{FS10}",
};

// Calls of the system that fail for the sake of a file or a name that the user
// gave. Any other that fails is the program's own mistake.
const char *const calls[] = {
    "CreateFile",  "ReadFile",         "WriteFile",         "DeleteFile",   "MoveFile",
    "MoveFileEx",  "Create Directory", "FindFirstFile",     "SetEndOfFile", "GetFileAttributesEx",
    "SetFileTime", "FlushFileBuffers", "CreateEnhMetaFile",
};

bool known(const char *text)
{
    // A kind of window behind a manual's name is no part of the name.
    if (std::strstr(text, "> not found")) return false;
    for (const char *key : explained) {
        char expanded[256];
        std::strcpy(expanded, key);
        expandtokens(expanded, sizeof expanded);
        if (!std::strcmp(text, expanded)) return true;
    }
    for (const char *call : calls)
        if (std::strstr(text, ("(" + std::string(call) + ") (").c_str())) return true;
    std::string said = text;
    return (said.starts_with("Fitted ") && said.find(" words, up to ") != std::string::npos) ||
           (said.starts_with("File ") && said.ends_with(" not found.")) ||
           said.starts_with("A dictionary's name ") || // what a new one can't be called
           said.ends_with(" and no name for a dictionary.") ||
           said.ends_with(" units is too large for a *.wmf file.") ||
           said.find("hhctrl.ocx") != std::string::npos;
}

} // namespace

// The linker's names, under names that read well.
int realboxshow(intptr_t parent, const char *text, const char *title,
                uint32_t flags) __asm__("__real__Z7boxshowxPKcS0_j");
int wrapboxshow(intptr_t parent, const char *text, const char *title,
                uint32_t flags) __asm__("__wrap__Z7boxshowxPKcS0_j");
void wrappostquit(int status) __asm__("__wrap__Z8postquiti");

int wrapboxshow(intptr_t parent, const char *text, const char *title, uint32_t flags)
{
    boxesseen++;
    note("    a box says: %s", text);
    if (!known(text)) fault("a box that nobody can explain: %s", text);
    int answer = realboxshow(parent, text, title, flags);
    note("    and is answered by %d", answer);
    return answer;
}

// The user wants to go, and stays.
void wrappostquit(int)
{
    quits++;
    note("    the program would end");
}
