#include "tests/app/screen/companion.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <filesystem>

std::vector<std::string> companion(const std::string &words)
{
    char self[MAX_PATH];
    GetModuleFileNameA(nullptr, self, sizeof self);
    std::string exe = (std::filesystem::path(self).parent_path() / "quill.exe").string();
    std::vector<std::string> lines;
    FILE *pipe = _popen(("\"\"" + exe + "\" " + words + "\"").c_str(), "r");
    REQUIRE(pipe);
    char text[256];
    while (fgets(text, sizeof text, pipe))
        lines.push_back(std::string(text).substr(0, strcspn(text, "\r\n")));
    CHECK(_pclose(pipe) == 0);
    return lines;
}
