// desktop/ddecommand.h - the commands that a shell sends.
//
// A text holds commands one behind the other:
//
//     [open("C:\words\one.txt")] print("two.txt") [printto("three.txt", "Printer")]
//
// Blanks may stand between all parts, the brackets go together, and a verb is
// letters in any case. The text comes from another program: it is read as far as
// it fits.
#pragma once

#include "base/platform.h"

enum ddeverbs { DDENOVERB, DDEOPEN, DDEPRINT, DDEPRINTTO };

struct ddecommandrecord {
    ddeverbs verb; // DDENOVERB for one that we don't know
    char name[PATHSIZE];
    char printer[PATHSIZE]; // "" where the verb takes none
};

// Reads the command at *text and steps behind it. False where none fits, and at
// the end. A name is 1 to PATHSIZE - 1 characters; an unknown verb has a name
// alone.
bool ddecommandread(const char **text, ddecommandrecord *command);

// Reads and does the commands up to the first that doesn't fit: a file to open is
// a load request, whose error is reported; one to print is the broadcast of
// BROADCASTPRINT. Handlers may poll. Always 1, which is what a sender is told.
int ddecommand(const char *text);
