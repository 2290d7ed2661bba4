#include "app/commands.h"

#include "app/choiceswindow.h"
#include "app/customise.h"
#include "app/filecommands.h"
#include "app/longwork.h"
#include "app/mainwindow.h"
#include "app/menus.h"
#include "app/startup.h"
#include "base/boxes.h"
#include "desktop/help.h"
#include "desktop/keys.h"
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
constexpr int32_t ABOUTVERSION = 220;
constexpr const char *ABOUTDATE = "(26-June-2012)";

errorblock *newgrid()
{
    gridnew();
    return nullptr;
}

errorblock *newwords()
{
    gridnewwords();
    return nullptr;
}

errorblock *crosswordbegin()
{
    gridsetkind(GRIDCROSSWORD);
    return nullptr;
}

errorblock *wordsquarebegin()
{
    gridsetkind(GRIDWORDSQUARE);
    return nullptr;
}

errorblock *sizeask()
{
    return gridsizeopen(mainwindow);
}

errorblock *reflectvertical()
{
    gridreflect(REFLECTVERTICAL);
    return nullptr;
}

errorblock *reflecthorizontal()
{
    gridreflect(REFLECTHORIZONTAL);
    return nullptr;
}

errorblock *reflectrising()
{
    gridreflect(REFLECTRISING);
    return nullptr;
}

errorblock *reflectfalling()
{
    gridreflect(REFLECTFALLING);
    return nullptr;
}

errorblock *upperswitch()
{
    gridcaseswitch(CASEUPPER);
    return nullptr;
}

errorblock *lowerswitch()
{
    gridcaseswitch(CASELOWER);
    return nullptr;
}

errorblock *programexit()
{
    if (!quitquery()) postquit(0);
    return nullptr;
}

errorblock *manual()
{
    return helpcontents(mainwindow, HELPFILE);
}

errorblock *about()
{
    return showabout(mainwindow, ABOUTVERSION, ABOUTDATE, nullptr);
}

errorblock *newdictionary()
{
    return newdictopen(mainwindow);
}

errorblock *checkspelling()
{
    return spellcheck(mainwindow);
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

struct commandrow {
    int32_t id;
    errorblock *(*function)();
    bool stops;        // a search that is under way comes to its end first
    bool (*enabled)(); // 0 for always
    bool (*ticked)();  // 0 for never
};

const commandrow commands[] = {
    {COMMANDNEWGRID, newgrid, true, nullptr, nullptr},
    {COMMANDNEWWORDS, newwords, true, nullptr, nullptr},
    {COMMANDOPEN, fileopen, true, nullptr, nullptr},
    {COMMANDSAVE, gridsavecommand, false, named, nullptr},
    {COMMANDSAVEAS, filesaveas, false, nullptr, nullptr},
    {COMMANDSAVECLUES, filesaveclues, false, nullptr, nullptr},
    {COMMANDSAVEDEFAULT, gridsavedefault, false, nullptr, nullptr},
    {COMMANDEXIT, programexit, false, nullptr, nullptr},
    {COMMANDSPELLCHECK, checkspelling, true, spellable, nullptr},
    {COMMANDNEWDICT, newdictionary, true, dictdirectoryexists, nullptr},
    {COMMANDCROSSWORD, crosswordbegin, true, nullptr, crossword},
    {COMMANDWORDSQUARE, wordsquarebegin, true, nullptr, wordsquare},
    {COMMANDSIZE, sizeask, true, nullptr, nullptr},
    {COMMANDREFLECTVERTICAL, reflectvertical, true, crossword, nullptr},
    {COMMANDREFLECTHORIZONTAL, reflecthorizontal, true, crossword, nullptr},
    {COMMANDREFLECTRISING, reflectrising, true, crossword, nullptr},
    {COMMANDREFLECTFALLING, reflectfalling, true, crossword, nullptr},
    {COMMANDUPPERCASE, upperswitch, true, nullptr, upper},
    {COMMANDLOWERCASE, lowerswitch, true, nullptr, lower},
    {COMMANDCUSTOMISE, customiseopen, true, nullptr, nullptr},
    {COMMANDCHOICES, choicesopen, true, nullptr, nullptr},
    {COMMANDHELP, manual, false, nullptr, nullptr},
    {COMMANDABOUT, about, false, nullptr, nullptr},
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
        return row.stops ? aftersearch(commandnow, &row - commands) : row.function();
    }
    return nullptr;
}

errorblock *commandkey(window, intptr_t, int32_t, int32_t *code)
{
    if (*code != (KEYPRESS | KEYF1)) return nullptr;
    *code = KEYCLAIMED;
    return manual();
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
