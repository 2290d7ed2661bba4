// tests/base/scratch.h - what the tests of this folder share.
#pragma once

#include "base/errors.h"
#include "base/files.h"
#include "base/filetypes.h"
#include "base/platformfault.h"
#include "base/transfer.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>

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

// The rows of an operation, each a text that goes in and the one that is to come out.
void rows(const std::string &operation, const std::function<std::string(const std::string &)> &call,
          std::initializer_list<std::pair<std::string, std::string>> list);

// A text with zeros in it, by a literal's own length.
template<size_t N> std::string literal(const char (&bytes)[N])
{
    return std::string(bytes, N - 1);
}
