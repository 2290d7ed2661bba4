// Telling the user, and asking. An error that a handler returns is shown by
// whoever called it: a box of its own is for what is no failure.
#include "base/boxes.h"
#include "base/errors.h"
#include "desktop/confirm.h"
#include "tools/deskdemo/deskdemo.h"

namespace
{

errorblock *errorshow(uint32_t)
{
    return makeerrortext(ERRORNOFILE, "{DEMOERR} %d.", static_cast<int>(ERRORNOFILE));
}

errorblock *warningshow(uint32_t)
{
    reporttext("{DEMOWARN}", REPORTWARNING);
    return nullptr;
}

// By the system's box, with a question mark and the buttons given.
errorblock *ask(uint32_t buttons)
{
    constexpr uint32_t QUESTIONMARK = 3 << 16;
    static const char *const ANSWERS[] = {"none", "Cancel", "OK", "Yes", "No"};
    int answer;
    errorblock *err = askbox(demowindow, QUESTIONMARK | buttons, &answer, "{DEMOASK}");
    if (!err) logline("The answer is %s", ANSWERS[answer]);
    return err;
}

// By the library's own, which runs the poll: a part may be closed meanwhile.
errorblock *confirmask(uint32_t kind)
{
    static const char *const TEXTS[] = {"{DEMOYESNO}", "{DEMODISCARD}", "{DEMOSAVE}"};
    int answer;
    errorblock *err = confirm(demowindow, kind | CONFIRMFORCE, &answer, "%s", TEXTS[kind]);
    if (!err) logline("The answer is %d", answer);
    return err;
}

struct boxrow {
    int32_t id;
    errorblock *(*function)(uint32_t argument);
    uint32_t argument;
};

constexpr uint32_t ASKOKCANCEL = 1, ASKYESNO = 2, ASKYESNOCANCEL = 3;

constexpr boxrow BOXES[] = {
    {30, errorshow, 0},
    {31, warningshow, 0},
    {32, ask, ASKOKCANCEL},
    {33, ask, ASKYESNO},
    {34, ask, ASKYESNOCANCEL},
    {35, confirmask, CONFIRMYESNO},
    {36, confirmask, CONFIRMDISCARDCANCEL},
    {37, confirmask, CONFIRMDISCARDCANCELSAVE},
};

} // namespace

bool boxcommand(int32_t id, errorblock **err)
{
    for (const boxrow &row : BOXES) {
        if (row.id != id) continue;
        *err = row.function(row.argument);
        return true;
    }
    return false;
}
