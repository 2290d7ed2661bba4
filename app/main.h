// app/main.h - the program from its first call to its last.
#pragma once

// Starts everything, opens the main window and the file that the command line
// may name, and polls. Returns, with status 0, only when the library failed to
// start, which it has shown; else the process ends inside.
int mainroutine(int count, char **words);
