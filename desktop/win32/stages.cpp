// The stages of the start-up that have nothing to start yet, and the questions
// about windows of the library, of which there are none yet. Each goes to the
// module that it is about when that is built.

#include "desktop/stages.h"

#include "desktop/eventsource.h"
#include "desktop/mouse.h"
#include "desktop/poll.h"

bool sourceisours(window)
{
    return false;
}

bool sourcenavigates(window)
{
    return false;
}

// There are no presses and no drags.
void mouseend(window) {}

void keydeliver(const systemmessage *, bool *claimed)
{
    *claimed = false;
}
