// tour GRIDS FOLDER [GRID.qmg] - plays a tour of Quillmere with mouse and keys, as
// its user would, saying what it does; with a grid it opens and pictures that one.
// FOLDER/program has the program; FOLDER gets what is saved on the way, and a
// picture of the window at each stop.
#include "resources/identifiers.h"
#include "tools/tour/outside.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace
{

std::string grids, folder;
int pictures;

std::string place(const std::string &leaf)
{
    return folder + "\\" + leaf;
}

void stop(const std::string &name)
{
    std::string leaf = std::to_string(++pictures) + "-" + name + ".png";
    shot(mainwindow, place(leaf));
    say("  (picture: %s)", leaf.c_str());
}

void demand(bool holds, const std::string &what)
{
    if (!holds) outsidefault(what);
}

void saved(const std::string &leaf)
{
    std::error_code none;
    demand(std::filesystem::file_size(place(leaf), none) > 0 && !none, leaf + " isn't there");
}

void solve(int32_t marked)
{
    demand(drivetext(panebar(), BARMARKLENGTH) == std::to_string(marked),
           "the bar says " + drivetext(panebar(), BARMARKLENGTH) + " cells marked");
    press(panebar(), BARSOLVE);
    searchwait();
    demand(listshows(), "nothing was found");
}

// A solution that is clicked on stands in the grid.
void choose(int32_t y)
{
    drivepicture before = drivelook(panegrid());
    listclick(y);
    drivemove(2, 2);
    demand(drivelook(panegrid()).pixels != before.pixels,
           "the solution doesn't come into the grid");
}

void crosswordopen()
{
    say("Quillmere opens with a crossword that is not quite finished.");
    outsidestart(place("program\\quillmere.exe"), grids + "\\crossword13.qmg");
    demand(drivetext(mainwindow) == "Quillmere - crossword13.qmg", "the crossword isn't opened");
    cellsmeasure(13, 13);
    stop("opened");

    say("Grid, Upper Case: letters are to be capitals, as they are in the grid already.");
    menucommand(COMMANDUPPERCASE);
    say("Words, Load, Puzzle-UK: solve with familiar words.");
    menudictionary(COMMANDLOADDICT, "Puzzle-UK");
}

void crosswordsolve()
{
    say("Draw over C.U.T.R, and press Solve.");
    cellsdrag(0, 10, 6, 10);
    solve(7);
    stop("solutions");
    say("Click on the first solution: it goes into the grid.");
    choose(6);

    say("Draw over a slot, with Ctrl over another that crosses it, and click with the right");
    say("button on the cell of both, which the second one took out. Solve.");
    cellsdrag(7, 6, 12, 6);
    cellsdrag(8, 0, 8, 7, DRIVECTRL);
    driveclick(cell(8, 6).x, cell(8, 6).y, DRIVERIGHT);
    solve(6); // the bar counts across
    say("Click on one of the solutions, which are small pictures now.");
    choose(20);
    stop("crossing");

    say("The last two in the same way.");
    cellsdrag(0, 4, 3, 4);
    cellsdrag(2, 0, 2, 4, DRIVECTRL);
    driveclick(cell(2, 4).x, cell(2, 4).y, DRIVERIGHT);
    solve(4);
    choose(20);
}

void anagrams()
{
    say("Draw over TSAR, type TSA* into the field, and Return: its anagrams, * being any letter.");
    cellsdrag(9, 8, 12, 8);
    fill(panebar(), BARLETTERS, "tsa*");
    drivekey(KEYRETURN);
    searchwait();
    demand(listshows(), "there are no anagrams");
    stop("anagrams");
}

void crosswordsave()
{
    say("File, Save Grid As: crossword.qmg, and once more as a picture, crossword.emf.");
    menucommand(COMMANDSAVEAS);
    filebox(place("crossword.qmg"), TYPEGRID);
    saved("crossword.qmg");
    demand(drivetext(mainwindow) == "Quillmere - crossword.qmg", "the title has another name");
    menucommand(COMMANDSAVEAS);
    filebox(place("crossword.emf"), TYPEENHANCED);
    saved("crossword.emf");
    say("File, Save Clues As: clues.txt.");
    menucommand(COMMANDSAVECLUES);
    filebox(place("clues.txt"));
    saved("clues.txt");
}

void squarebegin()
{
    say("Grid, Grid Type, Wordsquare; Lower Case, as a square is made of small letters; and");
    say("Size: 12 by 12.");
    menucommand(COMMANDWORDSQUARE);
    menucommand(COMMANDLOWERCASE);
    menucommand(COMMANDSIZE);
    window size = dialog("Grid Size");
    fill(size, SIZEWIDTH, "12");
    fill(size, SIZEHEIGHT, "12");
    leave(size, DIALOGOK);
}

void squaremake()
{
    const char *words[] = {"anchor",  "captain", "crew",  "dinghy", "ferry",  "galley",
                           "harbour", "mast",    "pilot", "rudder", "sailor", "tide"};
    say("Type twelve words into the field, Return after each.");
    press(panebar(), BARWORD);
    for (const char *word : words) {
        drivetype(word);
        drivekey(KEYRETURN);
    }
    demand(listshows(), "the words don't come into the list");
    say("Make: each is hidden among random letters.");
    press(panebar(), BARMAKE);
    searchwait();
    say("Click on a word, and with the right button on another: that is where they are.");
    listclick(6);
    listclick(60, DRIVERIGHT);
    stop("wordsquare");
}

void squaresave()
{
    say("Save it as square.qmg, and the list of its words as words.txt.");
    menucommand(COMMANDSAVEAS);
    filebox(place("square.qmg"), TYPEGRID);
    saved("square.qmg");
    menucommand(COMMANDSAVECLUES);
    filebox(place("words.txt"));
    saved("words.txt");
    say("File, Exit.");
    outsideend();
}

} // namespace

int main(int count, char **words)
{
    if (count < 3 || count > 4) return 2;
    grids = words[1];
    folder = words[2];
    if (count == 4) {
        outsidestart(place("program\\quillmere.exe"), words[3]);
        say("%s", drivetext(mainwindow).c_str());
        stop("opened");
        outsideend();
    } else {
        crosswordopen();
        crosswordsolve();
        anagrams();
        crosswordsave();
        squarebegin();
        squaremake();
        squaresave();
    }
    std::printf("Tour ended, %d pictures\n", pictures);
    return 0;
}
