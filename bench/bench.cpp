// The main program of a benchmark: --data=FOLDER says what it reads, all else is
// Google Benchmark's.

#include "bench/bench.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

namespace
{

std::string datafolder = "build/data";

} // namespace

const std::string &benchdata()
{
    return datafolder;
}

void benchfail(const std::string &text)
{
    std::fprintf(stderr, "%s\n", text.c_str());
    std::exit(1);
}

std::vector<std::string> benchlines(const std::string &path)
{
    std::ifstream file(path);
    if (!file) benchfail("There is no " + path + ": build native first.");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

int main(int count, char **words)
{
    int kept = 1;
    for (int i = 1; i < count; i++) {
        if (!std::strncmp(words[i], "--data=", 7))
            datafolder = words[i] + 7;
        else
            words[kept++] = words[i];
    }
    benchmark::Initialize(&kept, words);
    if (benchmark::ReportUnrecognizedArguments(kept, words)) return 1;
    benchregister();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
