// pictures GRIDS FOLDER - makes the pictures of Quillmere that the manual shows, by
// working it as a user does: FOLDER/NAME.png.
#include "resources/identifiers.h"
#include "tools/tour/outside.h"

#include <cstdio>

namespace
{

std::string grids, folder;
int pictures;

void picture(window w, const std::string &name)
{
    shot(w, folder + "\\" + name + ".png");
    say("%s", name.c_str());
    pictures++;
}

void start(const std::string &leaf)
{
    outsidestart(folder + "\\program\\quillmere.exe", leaf.empty() ? "" : grids + "\\" + leaf);
}

// A dialog that a command opens, as it is, and then left by Cancel.
void dialogpicture(int32_t command, const std::string &title, const std::string &name)
{
    menucommand(command);
    window w = dialog(title);
    picture(w, name);
    leave(w, DIALOGCANCEL);
}

void empties()
{
    start("");
    picture(mainwindow, "empty");
    menucommand(COMMANDSIZE);
    window size = dialog("Grid Size");
    fill(size, SIZEWIDTH, "11");
    fill(size, SIZEHEIGHT, "11");
    picture(size, "gridsize");
    leave(size, DIALOGCANCEL);
    dialogpicture(COMMANDCUSTOMISE, "Customisation", "custom");
    dialogpicture(COMMANDCHOICES, "Choices", "choices");
    menucommand(COMMANDABOUT);
    picture(dialog("About Quillmere"), "about");
    drivekey(KEYESCAPE);
    outsideend();
}

void dictionaries()
{
    start("");
    menucommand(COMMANDNEWDICT);
    window create = dialog("Create New Dictionary");
    fill(create, NEWDICTNAME, "Village");
    picture(create, "newdict");
    leave(create, DIALOGCANCEL);
    menudictionary(COMMANDEDITDICT, "Puzzle-UK");
    window edit = dialog("Edit (Puzzle-UK)");
    fill(edit, EDITWORD, "quill");
    picture(edit, "edit");
    leave(edit, DIALOGCANCEL);
    outsideend();
}

// What the index shows is the liveliest: two words solved at once.
void crosswords()
{
    start("crossword13.qmg");
    cellsmeasure(13, 13);
    menucommand(COMMANDUPPERCASE);
    menudictionary(COMMANDLOADDICT, "Puzzle-UK");
    cellsdrag(0, 10, 6, 10);
    press(panebar(), BARSOLVE);
    searchwait();
    listclick(40);
    picture(mainwindow, "crossword");

    cellsdrag(0, 4, 3, 4);
    cellsdrag(2, 0, 2, 4, DRIVECTRL);
    driveclick(cell(2, 4).x, cell(2, 4).y, DRIVERIGHT);
    press(panebar(), BARSOLVE);
    searchwait();
    listclick(20);
    picture(mainwindow, "solutions");
    outsideend();
}

void others()
{
    start("barred12.qmg");
    cellsmeasure(12, 12);
    driveclick(cell(4, 5).x, cell(4, 5).y);
    picture(mainwindow, "bars");
    outsideend();

    start("misspelt15.qmg");
    menudictionary(COMMANDLOADDICT, "Puzzle-UK");
    menucommand(COMMANDSPELLCHECK);
    window check = dialog("Spell Check (Guess)");
    picture(check, "check");
    leave(check, CHECKCLOSE);
    menucommand(COMMANDNEWWORDS);
    menucommand(COMMANDSAVEAS);
    filebox(folder + "\\empty15.emf", TYPEENHANCED);
    drivesave(metafilelook(folder + "\\empty15.emf", 500), folder + "\\picture.png");
    say("picture");
    pictures++;
    outsideend();
}

void squares()
{
    start("");
    menucommand(COMMANDWORDSQUARE);
    menucommand(COMMANDSIZE);
    window size = dialog("Grid Size");
    fill(size, SIZEWIDTH, "12");
    fill(size, SIZEHEIGHT, "12");
    leave(size, DIALOGOK);
    press(panebar(), BARWORD);
    for (const char *word : {"anchor", "captain", "crew", "dinghy", "ferry", "galley", "harbour",
                             "mast", "pilot", "rudder", "sailor", "tide"}) {
        drivetype(word);
        drivekey(KEYRETURN);
    }
    press(panebar(), BARMAKE);
    searchwait();
    listclick(6);
    listclick(60, DRIVERIGHT);
    picture(mainwindow, "wordsquare");
    dialogpicture(COMMANDCUSTOMISE, "Customisation", "customw");
    outsideend();
}

} // namespace

int main(int count, char **words)
{
    if (count != 3) return 2;
    grids = words[1];
    folder = words[2];
    empties();
    dictionaries();
    crosswords();
    others();
    squares();
    std::printf("Pictures made: %d\n", pictures);
    return 0;
}
