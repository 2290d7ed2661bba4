// desktop/hourglass.h - the busy cursor, counted.
#pragma once

// hourglassinit is among the stages of stages.h.
void hourglasson();
void hourglassoff();

// The help cursor in its place while on; the old mode.
int hourglasshelp(int on);

// Sets the busy cursor if the count is above 0 and says so.
bool hourglassforce();
