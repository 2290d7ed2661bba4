// grid/gridwindow.h - what the document asks of the window side.
//
// The desktop program defines these where the comments below say; a program
// without windows links tools/headlessgrid.cpp.
#pragma once

#include <cstdint>

// In grid/gridview.cpp, but gridcellsredraw in grid/gridpaint.cpp.
void gridredraw();
void gridcellsredraw(int32_t left, int32_t top, int32_t right, int32_t bottom);
void gridextent();                       // the size of the work area follows the grid's
void gridcellshow(int32_t x, int32_t y); // scrolls as little as shows the cell
void gridbeep();                         // the user asked for what can't be done

// The title follows the document's name and its changed mark. In app/title.cpp.
void settitlefromgrid();

// The length field of the button pane; a negative length empties it. In
// app/buttons.cpp.
void marklengthfield(int32_t length);

// The results of the document before, if there are any, are gone. In app/commands.cpp.
void resultsdrop();

// The kind of document that the file names takes over, with its button pane.
// In app/buttons.cpp.
void gridkindapply(int32_t kind);

// The main window's size in os units; 0, 0 without one. In
// app/mainwindow.cpp.
void mainwindowsize(int32_t *width, int32_t *height);
void mainwindowresize(int32_t width, int32_t height);

// A search is under way: it writes into the cells, and nobody else may. The
// second asks it to come to its end. In app/longwork.cpp and app/buttons.cpp.
bool searchunderway();
void stoprequest();

// A text file of words becomes the Wordsquare's word list, which lies above. In
// app/filecommands.cpp.
void wordlistload(const char *path);
