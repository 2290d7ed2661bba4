// A program of logic alone: what it links is the proof, see
// tests/CMakeLists.txt. It runs a word's road through the folders all the same.

#include "base/flex.h"
#include "dict/dictionary.h"
#include "find/solutions.h"
#include "grid/grid.h"

#include <cstdio>

int main()
{
    flex_init2();
    gridreset();
    Dictionary dict = {};
    errorblock *err = dictempty(&dict);
    if (!err) err = dictadd("word", &dict);
    if (!err) err = soladdref(makewordref(0, 0), 0);
    bool done = !err && dictcount(&dict) == 1;
    dictfree(&dict);
    solreset();
    if (flexblocks() != 0) done = false;
    std::puts(done ? "The logic stands alone" : "The logic fell over");
    return done ? 0 : 1;
}
