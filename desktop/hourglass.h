// desktop/hourglass.h - the busy cursor, counted.
//
// Whoever is busy puts it on and takes it off; it shows while anyone has it on.
// The system asks for the cursor's shape at each move of the pointer, and is
// answered with the busy one by hourglassforce before anyone else is asked.
//
// hourglassinit is among the stages of stages.h.
#pragma once

void hourglasson();

// One too many only sets the arrow.
void hourglassoff();

// The help cursor in its place while on, at once if it shows; the old mode.
int hourglasshelp(bool on);

// Sets the busy cursor if the count is above 0 and says so.
bool hourglassforce();
