// The word store at its full size: the largest shipped list, about 280,000
// words.

#include "base/errors.h"
#include "bench/bench.h"
#include "dict/dictfile.h"
#include "dict/dictionary.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <random>

namespace
{

constexpr char NAME[] = "MainDict-UK";
constexpr size_t LOOKUPS = 4096; // words of a round of look-ups

Dictionary dict;
std::vector<std::string> shuffled; // its words, in no order
std::vector<std::string> absent;   // words as likely, that it hasn't got

void must(const errorblock *err)
{
    if (err) benchfail(err->text);
}

// A letter changed in the middle: a miss that is found out late.
std::string misspelt(std::string word)
{
    char &letter = word[word.size() / 2];
    letter = letter == 'q' ? 'x' : 'q';
    return word;
}

void wordsload()
{
    shuffled = benchlines(benchdata() + "/" + NAME + ".txt");
    std::shuffle(shuffled.begin(), shuffled.end(), std::minstd_rand(1));
    must(dictload(benchdata().c_str(), NAME, &dict));
    for (size_t n = 0; absent.size() < LOOKUPS && n < shuffled.size(); n++) {
        dictcursor cursor;
        uint32_t flags = 0;
        std::string word = misspelt(shuffled[n]);
        if (!dictfind(word.c_str(), &dict, &cursor, &flags)) absent.push_back(word);
    }
}

void import(benchmark::State &state)
{
    size_t bytes = 0;
    for (auto _ : state) {
        Dictionary fresh = {};
        must(dictempty(&fresh));
        for (const std::string &word : shuffled)
            must(dictadd(word.c_str(), &fresh));
        int32_t size;
        flex_size(&fresh.words, &size);
        bytes = static_cast<size_t>(size);
        if (dictcount(&fresh) != dictcount(&dict)) state.SkipWithError("words are missing");
        dictfree(&fresh);
    }
    state.counters["words"] = dictcount(&dict);
    state.counters["bytesperword"] = static_cast<double>(bytes) / dictcount(&dict);
}

void load(benchmark::State &state)
{
    Dictionary other = {};
    for (auto _ : state)
        must(dictload(benchdata().c_str(), NAME, &other));
    dictfree(&other);
}

// The flush to the disc is part of it: a save is whole when it is told.
void save(benchmark::State &state)
{
    std::error_code failed;
    auto folder = std::filesystem::temp_directory_path() /
                  ("quillbench" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(folder, failed);
    for (auto _ : state)
        must(dictsave(folder.string().c_str(), "saved", &dict));
    std::filesystem::remove_all(folder, failed);
}

void walk(benchmark::State &state)
{
    uint32_t walked = 0;
    for (auto _ : state) {
        dictcursor cursor;
        walked = 0;
        dictseek(0, &dict, &cursor);
        do {
            benchmark::DoNotOptimize(cursor.word[0]);
            walked++;
        } while (dictnext(&dict, &cursor));
    }
    if (walked != dictcount(&dict)) state.SkipWithError("words are missing");
    state.counters["words"] =
        benchmark::Counter(walked, benchmark::Counter::kIsIterationInvariantRate);
}

// One look-up an iteration, each of another word.
void lookup(benchmark::State &state, const std::vector<std::string> *words, uint32_t option,
            int expected)
{
    size_t n = 0;
    int right = 0, all = 0;
    for (auto _ : state) {
        dictcursor cursor;
        uint32_t flags = option;
        right += dictfind((*words)[n].c_str(), &dict, &cursor, &flags) == expected;
        all++;
        if (++n == LOOKUPS) n = 0;
    }
    if (right != all) state.SkipWithError("a look-up was wrong");
}

} // namespace

void benchregister()
{
    using benchmark::RegisterBenchmark;
    wordsload();
    RegisterBenchmark("import", import)->Unit(benchmark::kMillisecond)->Iterations(2);
    RegisterBenchmark("load", load)->Unit(benchmark::kMillisecond);
    RegisterBenchmark("save", save)->Unit(benchmark::kMillisecond);
    RegisterBenchmark("walk", walk)->Unit(benchmark::kMillisecond);
    RegisterBenchmark("find/hit", lookup, &shuffled, 0u, 1);
    RegisterBenchmark("find/miss", lookup, &absent, 0u, 0);
    RegisterBenchmark("fastfind/hit", lookup, &shuffled, fastfind, 1);
    RegisterBenchmark("fastfind/miss", lookup, &absent, fastfind, 0);
}
