// bench/bench.h - what the benchmark programs share: their main, and the folders
// that they read.
#pragma once

#include <string>
#include <vector>

// Defined by each program: registers its benchmarks, once the folders are known.
void benchregister();

// The folder of dictionaries and word lists, and that of grids.
const std::string &benchdata();
const std::string &benchsamples();

// The lines of a text file. Ends the process when there is none.
std::vector<std::string> benchlines(const std::string &path);

// Ends the process with a text.
[[noreturn]] void benchfail(const std::string &text);
