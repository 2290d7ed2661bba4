// tests/desktop/win32/partner.h - another program to talk to
// (tests/desktop/win32/partner).
#pragma once

#include "desktop/events.h"

#include <string>

// It lies beside this program.
std::string partnerpath();

// Started with the object, and gone with it.
struct partnerprogram {
    intptr_t process, in, out; // handles of the system

    partnerprogram();
    ~partnerprogram();

    // Has it do what a line says and runs the poll until its answer comes, "silent"
    // if none does.
    std::string ask(const std::string &line);
    // The end that it doesn't see coming.
    void kill();
};
