#include "find/wsmake.h"

#include "base/boxes.h"
#include "base/chars.h"
#include "base/flex.h"
#include "base/random.h"
#include "base/text.h"
#include "dict/dictset.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "find/wsfits.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"

#include <cstring>

namespace
{

// How far the attempt at one word has got. Attempts are kept in a block of
// their own and not on the stack: a list may be as long as a text file.
struct wsattempt {
    int32_t startx, starty, startdirection;
    int32_t x, y;
    int32_t turn; // directions tried at this cell
};

bool fits(const char *word, int32_t length, int32_t x, int32_t y, wsstep step)
{
    if (!gridinside(x + (length - 1) * step.dx, y + (length - 1) * step.dy)) return false;
    for (int32_t i = 0; i < length; i++, x += step.dx, y += step.dy) {
        uint8_t letter = grid.letters[x][y];
        if (letter != ' ' && letter != static_cast<uint8_t>(word[i])) return false;
    }
    return true;
}

void lay(const char *word, int32_t length, int32_t x, int32_t y, wsstep step)
{
    for (int32_t i = 0; i < length; i++, x += step.dx, y += step.dy) {
        grid.letters[x][y] = charlower(static_cast<uint8_t>(word[i]));
        grid.counts[x][y]++;
    }
}

// A letter goes when no other word runs through it.
void lift(int32_t length, int32_t x, int32_t y, wsstep step)
{
    for (int32_t i = 0; i < length; i++, x += step.dx, y += step.dy)
        if (--grid.counts[x][y] == 0) grid.letters[x][y] = ' ';
}

// How far a making came, which is no fault of the program's.
void fittedsay(int32_t entry)
{
    reportf(3, "Fitted %d words, up to %s", static_cast<int>(entry), solword(entry)->text);
}

uint32_t directionmask()
{
    return grid.filldirections & 255 ? grid.filldirections : 15;
}

// Whether an empty grid takes a word of this length in any allowed direction.
bool lengthfits(int32_t length)
{
    for (uint32_t direction = 0; direction < WSDIRECTIONS; direction++) {
        wsstep step = wssteps[direction];
        if ((directionmask() >> direction & 1) && (!step.dx || length <= grid.width) &&
            (!step.dy || length <= grid.height))
            return true;
    }
    return false;
}

// The first word that no place can take, however the others lie; the end of the
// list if there is none.
int32_t firstunfit()
{
    int32_t entry = 0;
    while (entry < solutions.count &&
           lengthfits(static_cast<int32_t>(strlen(solword(entry)->text))))
        entry++;
    return entry;
}

wsattempt attemptstart()
{
    wsattempt attempt = {};
    attempt.startx = attempt.x = randomdraw() % grid.width;
    attempt.starty = attempt.y = randomdraw() % grid.height;
    attempt.startdirection = randomdraw() & 7;
    return attempt;
}

wsstep attemptstep(const wsattempt &attempt)
{
    return wssteps[(attempt.startdirection + attempt.turn) % WSDIRECTIONS];
}

// Moves to the next cell, row by row; false when the first comes round again.
bool attemptcell(wsattempt *attempt)
{
    attempt->turn = 0;
    if (++attempt->x == grid.width) {
        attempt->x = 0;
        if (++attempt->y == grid.height) attempt->y = 0;
    }
    return attempt->x != attempt->startx || attempt->y != attempt->starty;
}

// Goes on from where the attempt stands to the next place that takes the word. The
// first words lie nearly anywhere: some cells are looked at before all are.
bool attemptfind(wsattempt *attempt, int32_t level, const char *word, int32_t length)
{
    uint32_t mask = directionmask();
    const fitmap *known = wsfitskept(level);
    int32_t singly = 8;
    do {
        if (!known && !singly--) known = wsfits(level, level, word, length);
        if (known && !known->any) return false;
        uint32_t here = known ? known->at[attempt->x][attempt->y] & mask : mask;
        for (; here && attempt->turn < WSDIRECTIONS; attempt->turn++) {
            uint32_t direction =
                static_cast<uint32_t>(attempt->startdirection + attempt->turn) % WSDIRECTIONS;
            if ((here >> direction & 1) &&
                ((known && known->under == level) ||
                 fits(word, length, attempt->x, attempt->y, wssteps[direction])))
                return true;
        }
    } while (attemptcell(attempt));
    return false;
}

// The list may move at any poll: text is copied out, attempts are re-reached.
wsattempt *attemptat(flexptr attempts, int32_t level)
{
    return static_cast<wsattempt *>(attempts) + level;
}

int32_t entrytext(int32_t entry, char *text)
{
    strcopyn(text, solword(entry)->text, sizeof wsentry::text);
    return static_cast<int32_t>(strlen(text));
}

// Every word that lies in the grid learns its place.
void placesstore(flexptr attempts, int32_t first, int32_t end)
{
    for (int32_t entry = first; entry < end && entry < solutions.count; entry++) {
        const wsattempt *attempt = attemptat(attempts, entry - first);
        wsentry *word = solword(entry);
        word->x = attempt->x;
        word->y = attempt->y;
        word->dx = attemptstep(*attempt).dx;
        word->dy = attemptstep(*attempt).dy;
    }
}

// Takes the word before this one up again; it goes on behind its last place. While it
// is lifted, the one behind it, which will be tried at each of its places, is looked at.
void stepback(flexptr attempts, int32_t first, int32_t entry)
{
    char text[sizeof wsentry::text];
    wsattempt *attempt = attemptat(attempts, entry - first);
    lift(entrytext(entry, text), attempt->x, attempt->y, attemptstep(*attempt));
    attempt->turn++;
    wsfitsmove(entry);
    if (wsfitskept(entry + 1)) return;
    int32_t length = entrytext(entry + 1, text);
    wsfits(entry + 1, entry, text, length);
}

// Starts the attempt at an entry. False when the user stopped it.
bool stepforward(flexptr *attempts, int32_t first, int32_t entry, errorblock **err)
{
    solprogress(entry);
    wsattempt attempt = attemptstart();
    if (search.stopflag) {
        fittedsay(entry);
        return false;
    }
    searchpoll();
    int32_t bytes =
        static_cast<int32_t>((entry - first + 1) * static_cast<int32_t>(sizeof attempt));
    *err = flex_chunk(attempts, bytes, 2048);
    if (!*err) *attemptat(*attempts, entry - first) = attempt;
    return !*err;
}

uint32_t randomposition;

} // namespace

// Short memory ends it as the user's Stop does: what is placed stays.
bool wsplace(int32_t i)
{
    flexptr attempts = nullptr;
    errorblock *err = nullptr;
    int32_t entry = i;
    wsfitsmove(-1);
    bool forward = true; // towards the next word, or back to the one before
    while (entry >= i && entry < solutions.count) {
        if (forward && !stepforward(&attempts, i, entry, &err)) break;
        char text[sizeof wsentry::text];
        int32_t length = entrytext(entry, text);
        wsattempt *attempt = attemptat(attempts, entry - i);
        forward = attemptfind(attempt, entry, text, length);
        if (forward) {
            lay(text, length, attempt->x, attempt->y, attemptstep(*attempt));
            entry++;
        } else if (--entry >= i) {
            stepback(attempts, i, entry);
        }
    }
    if (entry >= i) placesstore(attempts, i, entry);
    flex_free(&attempts);
    return entry >= i;
}

void wsdeselect()
{
    if (!solselected()) return;
    dirtyreset();
    for (int32_t i = 0; i < solutions.count; i++) {
        wsentry *entry = solword(i);
        if (!entry->selected) continue;
        dirtyadd(entry);
        solunmark(entry);
        entry->selected = 0;
    }
    markrescan();
    dirtyredraw();
    solutionsrefresh();
}

errorblock *wsmake()
{
    wsdeselect();
    gridclearfill();
    markrescan();
    solclearplaces();
    errorblock *err = searchlater(wsmakerun);
    gridredraw();
    gridchange();
    return err;
}

errorblock *wsmakerun(intptr_t)
{
    searchbegin();
    searchbusy(true);
    int32_t unfit = firstunfit();
    if (unfit < solutions.count)
        fittedsay(unfit);
    else
        wsplace(0);
    searchbusy(false);
    searchend();
    gridfillrandom();
    solrecount();
    gridredraw();
    return nullptr;
}

errorblock *wsnew()
{
    errorblock *err = dictdefault();
    if (err) return err;
    gridclearfill();
    markrescan();
    solreset();
    solwordslayout(); // a Crossword's may be left
    err = searchlater(wsnewrun);
    solutionsrefresh();
    gridredraw();
    gridchange();
    return err;
}

// The list is emptied at the end: the words are for the solver to find. A
// dictionary without words gives empty ones, which count as misses: they would
// fit for ever.
errorblock *wsnewrun(intptr_t)
{
    char word[WORDSIZE];
    searchbegin();
    searchbusy(true);
    int misses = 3;
    dictrandomreset();
    do {
        dictrandomword(word);
        if (soladdword(-1, -1, -1, -1, word)) break;
        if ((!word[0] || !wsplace(solutions.count - 1)) && !misses--) break;
    } while (!search.stopflag);
    searchbusy(false);
    searchend();
    gridfillrandom();
    solreset();
    solutionsrefresh();
    gridredraw();
    return nullptr;
}

void dictrandomreset()
{
    randomposition = 0;
}

void dictrandomword(char *buffer)
{
    buffer[0] = 0;
    if (!dictset.count) return;
    if (++randomposition >= dictset.count) randomposition = 0;
    const Dictionary *dict = &dicts[dictset.numbers[randomposition]].dict;
    uint32_t low = static_cast<uint32_t>(randomdraw());
    uint32_t r = low + 32768 * static_cast<uint32_t>(randomdraw());
    uint32_t words = dictcount(dict);
    strcopyn(buffer, dictword(words ? (r & 0xFFFFFF) % words : 0, dict), WORDSIZE);
}
