// bench/bench.h - what the benchmark programs share: their main, and the folder
// that they read.
#pragma once

#include <string>
#include <vector>

// Defined by each program: registers its benchmarks, once the folder is known.
void benchregister();

// The folder of dictionaries, word lists and sample grids.
const std::string &benchdata();

// The lines of a text file. Ends the process when there is none.
std::vector<std::string> benchlines(const std::string &path);

// Ends the process with a text.
[[noreturn]] void benchfail(const std::string &text);
