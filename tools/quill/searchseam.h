// tools/quill/searchseam.h - searches run here and now, with a count on the
// terminal and Ctrl+C in the place of Stop.
#pragma once

struct errorblock;

// Runs what the start of a search left for later.
errorblock *searchnow();
