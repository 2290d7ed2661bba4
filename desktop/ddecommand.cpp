#include "desktop/ddecommand.h"

#include "base/boxes.h"
#include "base/filetypes.h"
#include "desktop/loadrequest.h"
#include "desktop/message.h"

static void print(const char *name, const char *printer)
{
    intptr_t record[BROADCASTWORDS] = {};
    record[BROADCASTNUMBER] = BROADCASTPRINT;
    record[10] = filetypeof(name);
    record[11] = reinterpret_cast<intptr_t>(name);
    record[12] = reinterpret_cast<intptr_t>(printer);
    broadcastrecord(record);
}

static void perform(const ddecommandrecord &command)
{
    bool handled = false;
    switch (command.verb) {
    case DDEOPEN:
        reporterror(loadfile(command.name, 0, &handled));
        break;
    case DDEPRINT:
        print(command.name, nullptr);
        break;
    case DDEPRINTTO:
        print(command.name, command.printer);
        break;
    case DDENOVERB:
        break;
    }
}

int ddecommand(const char *text)
{
    ddecommandrecord command;
    while (ddecommandread(&text, &command))
        perform(command);
    return 1;
}
