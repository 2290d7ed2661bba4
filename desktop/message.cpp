#include "desktop/message.h"

#include "base/boxes.h"
#include "desktop/blocks.h"

errorblock *sendmessage(intptr_t number, intptr_t first, intptr_t second)
{
    errorblock *err = nullptr;
    blockiter iter;
    block b;
    blockiter_start(&iter);
    while (!err && nextblock(&iter, EVENTMESSAGE, number, BLOCKANY, &b)) {
        auto function = reinterpret_cast<messagefunction>(b.function);
        err = function(number, b.data, first, second);
    }
    blockiter_end(&iter);
    return err;
}

bool broadcastrecord(intptr_t *record)
{
    int result = 1;
    blockiter iter;
    block b;
    blockiter_start(&iter);
    while (nextblock(&iter, EVENTBROADCAST, record[BROADCASTNUMBER], BLOCKANY, &b)) {
        if (!b.function) continue;
        bool claimed = false;
        auto function = reinterpret_cast<broadcastfunction>(b.function);
        reporterror(function(record, &claimed));
        if (claimed) result = 0;
    }
    blockiter_end(&iter);
    return result;
}

bool broadcast(intptr_t number)
{
    intptr_t record[BROADCASTWORDS] = {};
    record[BROADCASTNUMBER] = number;
    return broadcastrecord(record);
}
