#include "find/spell.h"

#include "base/text.h"
#include "find/wordindicts.h"

#include <cstring>

spellstate spell;

namespace
{

// A word longer than the buffers hold is known to nobody.
int unknown(const char *word)
{
    return strlen(word) > static_cast<size_t>(WORDLENGTH) || !wordindicts(word);
}

} // namespace

void checkstart()
{
    spell.wordcounter = 0;
}

int checkwalk()
{
    char word[GRIDSTRIDE];
    while (gridword(word, spell.wordcounter++)) {
        if (strchr(word, ' ') || !unknown(word)) continue;
        strcopyn(spell.checkword, word, WORDSIZE);
        guessmake(word);
        return 1;
    }
    return 0;
}

void spellend()
{
    dictfree(&spell.guessstore);
}
