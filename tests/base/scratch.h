// tests/base/scratch.h - a folder of files for one test.
#pragma once

#include "base/files.h"
#include "base/filetypes.h"
#include "base/platformfault.h"
#include "base/transfer.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <string>

// An empty folder, and at the end no fault left set.
struct scratch {
    std::string folder;
    scratch();
    ~scratch();

    std::string path(const std::string &leaf) const;
    void write(const std::string &leaf, const std::string &bytes) const;
    std::string read(const std::string &leaf) const;
    bool has(const std::string &leaf) const;

    scratch(const scratch &) = delete;
    scratch &operator=(const scratch &) = delete;
};

// What an error says, "" for none, and its code, 0 for none.
std::string words(const errorblock *error);
uint32_t code(const errorblock *error);

// Adds the lines of a catalogue.
void catalogue(const std::string &lines);

// A table of file types, for as long as a test runs.
struct typetable {
    filetypenode node;
    explicit typetable(const filetyperow *rows);
    ~typetable();
};
