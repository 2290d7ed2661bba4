// The application's windows, by number.
#include "desktop/templates.h"
#include "app/stages.h"

static templaterow templates[] = {
    {TEMPLATECONFIRM, 1, nullptr, "Confirm"},
    {TEMPLATEINFO, 1, nullptr, "Info"},
    {256, 0, nullptr, "main"},
    {257, 0, nullptr, "solutions"},
    {258, 0, nullptr, "grid"},
    {259, 0, nullptr, "gridsize"},
    {260, 0, nullptr, "newdict"},
    {261, 0, nullptr, "edit"},
    {262, 0, nullptr, "check"},
    {263, 0, nullptr, "pane"},
    {264, 0, nullptr, "buttons"},
    {265, 0, nullptr, "custom"},
    {266, 0, nullptr, "choices"},
    {267, 0, nullptr, "buttons1"},
    {268, 0, nullptr, "buttons2"},
    {269, 0, nullptr, "customw"},
    {0, 0, nullptr, nullptr},
};

static templatelink link;

errorblock *linktemplates(const char *directory)
{
    return addtemplates(directory, "Templates", templates, &link);
}
