// tests/app/screen/gridhands.h - documents, and what the screen shows of them.
#pragma once

#include "tests/support/driver.h"

#include <cstdint>
#include <string>

// A document from a text picture, unchanged so far, in the program as it is.
void documentread(const std::string &picture);

// The same in a fresh program, the grid scrolled home.
void documentbegin(const std::string &picture);

// The picture of the document as it is.
std::string documentpicture();

// The middle of a cell, where the grid is scrolled home.
driveplace cellplace(int32_t x, int32_t y);

// A click there.
void cellclick(int32_t x, int32_t y);

// Pixels that differ; pictures of other sizes differ throughout.
int differences(const drivepicture &a, const drivepicture &b);

// Pixels of the main window that would look otherwise had all been drawn anew.
int undrawn();
