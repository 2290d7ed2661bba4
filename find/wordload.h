// find/wordload.h - a text file as the Wordsquare's word list.
#pragma once

// Empties the list and fills it with the file's words, unplaced, by the rule
// of dict/wordfeed.h; doubles stay. 1, or 0 if the file would not open, with
// the list as it was. No error is told of.
bool wordload(const char *path);
