// tools/screenshots/screens.h - pictures of windows as the screen shows them.
#pragma once

#include "desktop/events.h"

#include <string>

// Saves what the screen shows of a window, with its frame, or all of the screen.
void screensave(window w, const std::string &name);
void screensaveall(const std::string &name);

// Every template of the program that no other picture shows.
void screentemplates();

// The parts of the demonstration, its menus and boxes.
void screendemo();

// How many pictures were asked for and could not be made; each is told of.
extern int screenfaults;
void screenfault(const std::string &what);
