// tests/app/screen/menuhands.h - the main window's menus, opened and chosen from
// by the mouse.
//
// A path is a list of positions from the bar downward, separators counted.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

using menupath = std::vector<int>;

struct menuentry {
    std::string text; // empty for a separator
    int32_t id;       // -1 for what opens a menu
    bool grey, ticked;
};

// What the menu at the path shows while it is open.
std::vector<menuentry> menulook(const menupath &path);

// Presses the entry at the path. then runs beside the command, on a thread of its
// own, and ends what the command waits for.
void menuchoose(const menupath &path, const std::function<void()> &then = nullptr);

// For scripts that run beside other work.
bool menupress(const menupath &path);

// The path of a command, wherever it stands.
menupath menufindpath(int32_t id);
