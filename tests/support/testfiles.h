// tests/support/testfiles.h - files that tests write and read.
#pragma once

#include "base/platform.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

inline std::string scratch(const std::string &leaf)
{
    return scratchfolder() + "/" + leaf;
}

inline std::string getfile(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A disc takes its time to write one file over.
inline void putfile(const std::string &path, const std::string &bytes)
{
    std::filesystem::remove(path);
    std::ofstream(path, std::ios::binary) << bytes;
}

// A folder of users' files lies beside the test program, which may run twice at
// once: whoever makes the folder has it. One left behind by a run that was stopped
// is taken over after a while.
struct userfolder {
    std::filesystem::path folder;

    explicit userfolder(const char *name)
    {
        char directory[PATHSIZE];
        REQUIRE_FALSE(platformprogramdirectory(directory, sizeof directory));
        directory[std::strlen(directory) - 1] = 0; // its separator
        folder = std::filesystem::path(directory) / name;
        for (int wait = 0; wait < 200 && !std::filesystem::create_directory(folder); wait++)
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ~userfolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    std::string file(const std::string &extension) const
    {
        char login[256];
        REQUIRE_FALSE(platformloginname(login, sizeof login));
        return (folder / (login + extension)).string();
    }
};
