#include "app/commands.h"

#include "app/choiceswindow.h"
#include "app/customise.h"
#include "app/filecommands.h"
#include "app/longwork.h"
#include "app/mainwindow.h"
#include "app/menus.h"
#include "app/startup.h"
#include "base/boxes.h"
#include "desktop/handlertable.h"
#include "desktop/help.h"
#include "desktop/menus.h"
#include "desktop/poll.h"
#include "dict/dicteditwindow.h"
#include "dict/dictmenu.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"
#include "dict/wordview.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/spellwindow.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridkeys.h"
#include "grid/gridreflect.h"
#include "grid/gridshape.h"
#include "grid/gridsizewindow.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"

namespace
{

constexpr const char *HELPFILE =
    "<HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\"
    "Quillmere.exe\\Path>\\Quillmere.chm>";
constexpr int32_t ABOUTVERSION = VERSIONMAJOR * 100 + VERSIONMINOR;
constexpr const char *ABOUTDATE = "(26-June-2012)";

errorblock *programexit()
{
    if (!quitquery()) postquit(0);
    return nullptr;
}

errorblock *manual(window owner)
{
    return helpcontents(owner, HELPFILE);
}

errorblock *about(window owner)
{
    return showabout(owner, ABOUTVERSION, ABOUTDATE, nullptr);
}

bool named()
{
    return grid.filename[0];
}

bool crossword()
{
    return grid.kind == GRIDCROSSWORD;
}

bool wordsquare()
{
    return grid.kind == GRIDWORDSQUARE;
}

bool spellable()
{
    return crossword() && dictdirectoryexists();
}

bool upper()
{
    return grid.casemode & CASEUPPER;
}

bool lower()
{
    return grid.casemode & CASELOWER;
}

// Opens a dialog over the main window.
template<auto function> errorblock *over()
{
    return function(mainwindow);
}

// Whether a search that is under way comes to its end first.
enum searchrule { GOESON, STOPS };

constexpr bool (*ALWAYS)() = nullptr;

struct commandrow {
    int32_t id;
    searchrule search;
    errorblock *(*function)();
    bool (*enabled)() = ALWAYS;
    bool (*ticked)() = nullptr; // 0 for never
};

constexpr commandrow commands[] = {
    {COMMANDNEWGRID, STOPS, calls<gridnew>},
    {COMMANDNEWWORDS, STOPS, calls<gridnewwords>},
    {COMMANDOPEN, STOPS, fileopen},
    {COMMANDSAVE, STOPS, gridsavecommand, named},
    {COMMANDSAVEAS, STOPS, filesaveas},
    {COMMANDSAVECLUES, STOPS, filesaveclues},
    {COMMANDSAVEDEFAULT, STOPS, gridsavedefault},
    {COMMANDEXIT, GOESON, programexit},

    {COMMANDSPELLCHECK, STOPS, over<spellcheck>, spellable},
    {COMMANDNEWDICT, STOPS, over<newdictopen>, dictdirectoryexists},

    {COMMANDCROSSWORD, STOPS, calls<gridsetkind, GRIDCROSSWORD>, ALWAYS, crossword},
    {COMMANDWORDSQUARE, STOPS, calls<gridsetkind, GRIDWORDSQUARE>, ALWAYS, wordsquare},
    {COMMANDSIZE, STOPS, over<gridsizeopen>},
    {COMMANDREFLECTVERTICAL, STOPS, calls<gridreflect, REFLECTVERTICAL>, crossword},
    {COMMANDREFLECTHORIZONTAL, STOPS, calls<gridreflect, REFLECTHORIZONTAL>, crossword},
    {COMMANDREFLECTRISING, STOPS, calls<gridreflect, REFLECTRISING>, crossword},
    {COMMANDREFLECTFALLING, STOPS, calls<gridreflect, REFLECTFALLING>, crossword},
    {COMMANDUPPERCASE, STOPS, calls<gridcaseswitch, CASEUPPER>, ALWAYS, upper},
    {COMMANDLOWERCASE, STOPS, calls<gridcaseswitch, CASELOWER>, ALWAYS, lower},
    {COMMANDCUSTOMISE, STOPS, customiseopen},

    {COMMANDCHOICES, STOPS, choicesopen},
    {COMMANDHELP, GOESON, over<manual>},
    {COMMANDABOUT, GOESON, over<about>},
};

errorblock *commandnow(intptr_t row)
{
    return commands[row].function();
}

// Solutions are references into dictionaries: those of one that is gone, or
// whose number has moved, mean nothing.
void solutionsforget(uint32_t known, bool loaded, uint32_t number)
{
    bool gone = ndicts != known || (loaded && !dicts[number].loaded);
    if (gone) dictrefsgone();
}

errorblock *dictionarynow(intptr_t choice)
{
    int32_t position = static_cast<int32_t>(choice >> 16), id = choice & 0xFFFF;
    auto number = static_cast<uint32_t>(id - DICTMENUFIRST);
    uint32_t known = ndicts;
    bool loaded = number < ndicts && dicts[number].loaded;
    errorblock *err = dictmenuselect(position, id);
    solutionsforget(known, loaded, number);
    return err;
}

} // namespace

errorblock *commandrun(int32_t id)
{
    for (const commandrow &row : commands) {
        if (row.id != id) continue;
        if (row.search == GOESON) return row.function();
        return aftersearch(commandnow, &row - commands);
    }
    return nullptr;
}

errorblock *commanddictionary(int32_t position, int32_t id)
{
    return aftersearch(dictionarynow, intptr_t{position} << 16 | id);
}

void commandsprepare()
{
    for (const commandrow &row : commands) {
        shademenu(MENUMAIN, row.id, !row.enabled || row.enabled());
        if (row.ticked) tickmenu(MENUMAIN, row.id, row.ticked());
    }
}

errorblock *gridsaveasked()
{
    return commandrun(COMMANDSAVE);
}

void dictsetchanged()
{
    gridchange();
    reporterror(wordviewschanged());
}

errorblock *dicteditopen(uint32_t number, Dictionary *dict, const char *name)
{
    return editopen(mainwindow, number, dict, name);
}

errorblock *dictwhenidle(afterfunction function, intptr_t data)
{
    return aftersearch(function, data);
}

// A Wordsquare's list holds its words itself.
void dictrefsgone()
{
    if (crossword()) resultsdrop();
}

void resultsdrop()
{
    if (!solutions.count) return;
    solreset();
    gridclearcounts();
    solutionsrefresh();
}
