// Solving the slots that samples/README.md names, with the list that a user
// would take and with the largest; and beside each search the exact one over the
// same slots, which finds every fill where Solve finds a selection.

#include "base/errors.h"
#include "bench/bench.h"
#include "dict/dictset.h"
#include "find/fill.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "tools/headless.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace
{

struct slotcase {
    const char *name;
    const char *sample;
    std::vector<cellbox> marks; // left, right, top, bottom
};

const slotcase CASES[] = {
    {"crossword13/one", "crossword13", {{0, 6, 10, 10}}},
    {"crossword13/pair", "crossword13", {{7, 12, 6, 6}, {8, 8, 0, 7}}},
    {"crossword13/blank", "crossword13", {{0, 3, 4, 4}, {2, 2, 0, 4}}},
    {"barred12/one", "barred12", {{0, 4, 5, 5}}},
    {"barred12/pair", "barred12", {{1, 5, 6, 6}, {5, 5, 5, 9}}},
    {"barred12/blank", "barred12", {{0, 6, 11, 11}, {6, 6, 8, 11}}},
    {"misspelt15/all", "misspelt15", {{0, 14, 0, 14}}},
};

void must(const errorblock *err)
{
    if (err) benchfail(err->text);
}

void opengrid(const slotcase &which)
{
    std::string path = benchdata() + "/" + which.sample + ".qmg";
    gridreset();
    must(gridload(path.c_str()));
    for (const cellbox &box : which.marks)
        for (int32_t x = box.left; x <= box.right; x++)
            for (int32_t y = box.top; y <= box.bottom; y++)
                if ((grid.flags[x][y] & CELLKIND) == CELLOPEN) grid.flags[x][y] |= CELLMARKED;
}

void opendict(const char *name)
{
    dictsetclear();
    int32_t number = dictnamefind(name);
    if (number < 0) benchfail(std::string("There is no dictionary ") + name);
    must(dictsetadd(static_cast<uint32_t>(number)));
    must(dictsetload());
}

void solve(benchmark::State &state, const slotcase *which, const char *dictionary)
{
    for (auto _ : state) {
        state.PauseTiming();
        opengrid(*which);
        opendict(dictionary);
        state.ResumeTiming();
        must(solvestart());
        must(headlessrun());
    }
    state.counters["slots"] = solutions.slotcount;
    state.counters["solutions"] = solutions.count;
    solreset();
}

int32_t fillsfound;

bool another()
{
    return ++fillsfound <= solutions.maxsolutions;
}

void fill(benchmark::State &state, const slotcase *which, const char *dictionary)
{
    opengrid(*which);
    opendict(dictionary);
    markrescan();
    must(slotsbegin());
    fillrules rules = {};
    rules.liked = -1;
    rules.goon = [] { return true; };
    for (auto _ : state) {
        fillsfound = 0;
        must(fillmake(rules));
        fillevery(another);
        fillfree();
    }
    state.counters["solutions"] = fillsfound;
}

} // namespace

void benchregister()
{
    std::strncpy(dictdirectory, benchdata().c_str(), sizeof dictdirectory - 1);
    must(dictstart());
    solutions.maxsolutions = 1000; // as the console companion's
    for (const slotcase &which : CASES)
        for (const char *dictionary : {"Puzzle-UK", "MainDict"}) {
            std::string name = std::string(which.name) + "/" + dictionary;
            benchmark::RegisterBenchmark(name.c_str(), solve, &which, dictionary)
                ->Unit(benchmark::kMicrosecond);
            benchmark::RegisterBenchmark((name + "/fill").c_str(), fill, &which, dictionary)
                ->Unit(benchmark::kMicrosecond);
        }
}
