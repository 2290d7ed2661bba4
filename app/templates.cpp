// The application's windows, by number.
#include "desktop/templates.h"
#include "app/stages.h"
#include "resources/identifiers.h"

static templaterow templates[] = {
    {TEMPLATECONFIRM, 1, nullptr, "Confirm"},
    {TEMPLATEINFO, 1, nullptr, "Info"},
    {TEMPLATEMAIN, 0, nullptr, "main"},
    {TEMPLATESOLUTIONS, 0, nullptr, "solutions"},
    {TEMPLATEGRID, 0, nullptr, "grid"},
    {TEMPLATEGRIDSIZE, 0, nullptr, "gridsize"},
    {TEMPLATENEWDICT, 0, nullptr, "newdict"},
    {TEMPLATEEDIT, 0, nullptr, "edit"},
    {TEMPLATECHECK, 0, nullptr, "check"},
    {TEMPLATEPANE, 0, nullptr, "pane"},
    {TEMPLATEBAR, 0, nullptr, "buttons"},
    {TEMPLATECUSTOM, 0, nullptr, "custom"},
    {TEMPLATECHOICES, 0, nullptr, "choices"},
    {TEMPLATEBARSTOP, 0, nullptr, "buttons1"},
    {TEMPLATEBARSQUARE, 0, nullptr, "buttons2"},
    {TEMPLATECUSTOMSQUARE, 0, nullptr, "customw"},
    {0, 0, nullptr, nullptr},
};

static templatelink link;

errorblock *linktemplates(const char *directory)
{
    return addtemplates(directory, "Templates", templates, &link);
}
