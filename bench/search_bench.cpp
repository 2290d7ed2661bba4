// The other searches, over the largest list: anagrams of nine letters, a square
// of random letters, suggestions for misspelt words, making and filling squares.

#include "base/errors.h"
#include "base/random.h"
#include "bench/bench.h"
#include "dict/dictset.h"
#include "find/anagram.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "find/spell.h"
#include "find/wsmake.h"
#include "find/wssolve.h"
#include "grid/grid.h"
#include "tools/headless.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>

namespace
{

void must(const errorblock *err)
{
    if (err) benchfail(err->text);
}

void anagram(benchmark::State &state, const char *letters)
{
    solutions.slotcount = 1;
    for (auto _ : state) {
        char text[WORDSIZE];
        std::strcpy(text, letters);
        solreset();
        must(anagramscan(text));
    }
    state.counters["found"] = solutions.count;
    solreset();
}

void square(int32_t side)
{
    gridreset();
    grid.kind = GRIDWORDSQUARE;
    grid.width = grid.height = side;
    grid.filldirections = 255;
    randomseed(1);
}

void hidden(benchmark::State &state)
{
    square(40);
    gridfillrandom();
    grid.minwordlength = 5;
    for (auto _ : state) {
        must(wssolve());
        must(headlessrun());
    }
    state.counters["found"] = solutions.count;
    solreset();
}

// A letter of each word replaced, the words the same in every run.
std::vector<std::string> misspelt(size_t count)
{
    std::vector<std::string> words = benchlines(benchdata() + "/Puzzle-UK.txt"), wrong;
    std::mt19937 random(1);
    while (wrong.size() < count) {
        std::string word = words[random() % words.size()];
        if (word.size() < 5) continue;
        word[random() % word.size()] = static_cast<char>('a' + random() % 26);
        wrong.push_back(word);
    }
    return wrong;
}

void suggestions(benchmark::State &state)
{
    std::vector<std::string> words = misspelt(200);
    int64_t found = 0;
    for (auto _ : state) {
        found = 0;
        for (const std::string &word : words) {
            guessmake(word.c_str());
            found += dictcount(&spell.guessstore);
        }
    }
    state.counters["found"] = static_cast<double>(found);
    spellend();
}

void making(benchmark::State &state)
{
    std::vector<std::string> words = benchlines(benchdata() + "/Puzzle-UK.txt");
    std::mt19937 random(1);
    square(20);
    solreset();
    while (solutions.count < 40) {
        const std::string &word = words[random() % words.size()];
        if (word.size() <= 10 && word[0] >= 'a') must(soladdword(-1, -1, -1, -1, word.c_str()));
    }
    for (auto _ : state) {
        randomseed(1);
        must(wsmake());
        must(headlessrun());
    }
    solreset();
}

void filling(benchmark::State &state)
{
    for (auto _ : state) {
        square(20);
        must(wsnew());
        must(headlessrun());
    }
}

} // namespace

void benchregister()
{
    std::strncpy(dictdirectory, benchdata().c_str(), sizeof dictdirectory - 1);
    must(dictstart());
    int32_t number = dictnamefind("MainDict");
    if (number < 0) benchfail("There is no MainDict: build native first.");
    must(dictuse(static_cast<uint32_t>(number)));
    solutions.maxsolutions = 1000;
    benchmark::RegisterBenchmark("anagram/nine", anagram, "trainings")
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("anagram/wildcards", anagram, "tr**nin*s")
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("hidden/40by40", hidden)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("suggestions/200", suggestions)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("make/20by20/40words", making)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("fill/20by20", filling)->Unit(benchmark::kMillisecond);
}
