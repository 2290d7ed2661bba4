// tests/fuzz/fuzz.h - what the fuzz targets share.
//
// A target is one function, fuzztarget, that takes any bytes and comes back with
// every block freed. It must not fail but by a fault of the code under test: by a
// sanitizer's report, by FUZZCHECK, or by never ending.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Ends the process with the place and the condition. Unlike an assert it also
// says what it is about.
#define FUZZCHECK(condition) ((condition) ? void() : fuzzfail(__FILE__, __LINE__, #condition))
[[noreturn]] void fuzzfail(const char *file, int line, const char *condition);

// Numbers drawn from the front of an input; zeros once it is used up.
struct fuzzfeed {
    const uint8_t *data;
    size_t size;
};
uint8_t fuzzbyte(fuzzfeed *feed);
std::string fuzzrest(fuzzfeed *feed);

// Defined by each target.
void fuzztarget(fuzzfeed feed);

// Called by libFuzzer or replay.cpp: the target on one input. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

// A scratch folder of this process, which goes when the process ends, and a path
// in it.
std::string fuzzfolder();
std::string fuzzpath(const char *leaf);

// Whole files, past the code under test.
void fuzzwrite(const std::string &path, fuzzfeed feed);
std::string fuzzread(const std::string &path);
