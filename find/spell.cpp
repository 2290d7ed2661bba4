#include "find/spell.h"

#include "base/text.h"
#include "find/wordindicts.h"

#include <cstring>

spellstate spell;

namespace
{

// A word longer than the buffers hold is known to nobody.
bool unknown(const char *word)
{
    return strlen(word) > static_cast<size_t>(WORDLENGTH) || !wordindicts(word);
}

} // namespace

void checkstart()
{
    spell.wordcounter = 0;
}

bool checkwalk()
{
    char word[GRIDSTRIDE];
    while (gridword(word, spell.wordcounter++)) {
        if (strchr(word, ' ') || !unknown(word)) continue;
        strcopyn(spell.checkword, word, WORDSIZE);
        guessmake(word);
        return true;
    }
    return false;
}

void spellend()
{
    dictfree(&spell.guessstore);
}
