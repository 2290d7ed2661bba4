// find/wordindicts.h - is a word known?
#pragma once

// 1 if any dictionary in use holds the word. Case and spaces are ignored, so a
// phrase is known by its letters; dictfound has the stored form.
bool wordindicts(const char *word);
