#include "tests/base/scratch.h"

#include "base/messages.h"
#include "tests/support/runner.h"

#include <filesystem>
#include <fstream>
#include <iterator>

scratch::scratch()
{
    static int count;
    folder = scratchfolder() + "/" + std::to_string(count++);
    std::filesystem::create_directories(folder);
}

scratch::~scratch()
{
    platformfault = {};
    ramreadclear();
    ramwriteclear();
    findclose();
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::string scratch::path(const std::string &leaf) const
{
    return folder + "\\" + leaf;
}

void scratch::write(const std::string &leaf, const std::string &bytes) const
{
    std::ofstream(folder + "/" + leaf, std::ios::binary) << bytes;
}

std::string scratch::read(const std::string &leaf) const
{
    std::ifstream file(folder + "/" + leaf, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool scratch::has(const std::string &leaf) const
{
    return std::filesystem::exists(folder + "/" + leaf);
}

std::string words(const errorblock *error)
{
    return error ? error->text : "";
}

uint32_t code(const errorblock *error)
{
    return error ? error->code : 0;
}

void catalogue(const std::string &lines)
{
    REQUIRE(addtranstext(lines.data(), static_cast<int32_t>(lines.size())) == nullptr);
}

typetable::typetable(const filetyperow *rows)
{
    addfiletypes(rows, &node);
}

typetable::~typetable()
{
    remfiletypes(&node);
}

void rows(const std::string &operation, const std::function<std::string(const std::string &)> &call,
          std::initializer_list<std::pair<std::string, std::string>> list)
{
    for (const auto &[in, out] : list) {
        CAPTURE(operation);
        CAPTURE(in);
        CHECK(call(in) == out);
    }
}
