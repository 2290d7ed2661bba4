#include "dict/wordfeed.h"

#include "base/chars.h"

namespace
{

bool wordends(wordfeed *feed)
{
    feed->word[feed->length] = 0;
    feed->length = 0;
    return true;
}

} // namespace

bool wordfeedbyte(wordfeed *feed, int32_t byte)
{
    if (!feed->length) {
        if (byte > 32) feed->word[feed->length++] = static_cast<char>(byte);
        return false;
    }
    if (byte < 32) return wordends(feed);
    uint8_t ch = static_cast<uint8_t>(byte);
    if (!asciiletter(ch)) return false;
    if (feed->length == WORDLENGTH)
        feed->length = 0; // the 32nd letter
    else
        feed->word[feed->length++] = static_cast<char>(asciilower(ch));
    return false;
}
