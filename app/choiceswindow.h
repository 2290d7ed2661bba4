// app/choiceswindow.h - the dialog Choices: what belongs to the user.
#pragma once

struct errorblock;

// Opens it, or brings it to the front. The main window takes no input meanwhile.
errorblock *choicesopen();
