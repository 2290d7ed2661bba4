// app/customise.h - the dialog Customisation: what belongs to the document.
#pragma once

struct errorblock;

// Opens it, or brings it to the front. The main window takes no input meanwhile.
errorblock *customiseopen();
