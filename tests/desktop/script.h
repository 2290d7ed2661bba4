// tests/desktop/script.h - the event model in rows: these acts, and what is heard.
//
// Acts are parted by semicolons. "+null 1" adds a handler of a kind, "-null 1"
// removes it, with the numbers that the table of kinds names; the other acts do what
// a program, the system or time does. "on null 1: ACT & ACT" is what that handler
// does at its next call; "fail" and "claim" are acts of handlers alone. Every call
// of a handler is heard with what it was given, and so is what comes of an act; at
// the end stand the errors that were shown and the removals that missed.
#pragma once

#include <initializer_list>
#include <string>

struct scriptrow {
    std::string what, acts, heard;
};

// Each row by itself, behind the acts that all of them begin with.
void scriptcheck(const std::string &setup, std::initializer_list<scriptrow> rows);
