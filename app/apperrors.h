// app/apperrors.h - the application's own errors; their codes are in
// base/errorcodes.h.
#pragma once

struct errorblock;

// Adds the application's table. Returns 0.
errorblock *apperrors();
