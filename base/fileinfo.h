// base/fileinfo.h - the information record, filled from what the system knows.
// For the calls of files.h only.
#pragma once

#include "base/files.h"

// name gives the type; info's own name is left empty.
void infofill(const platforminfo &known, const char *name, fileinfo *info);
