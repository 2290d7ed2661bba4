#include "base/errors.h"
#include "base/flex.h"
#include "base/registry.h"
#include "base/text.h"
#include "graphics/fontsubstitutes.h"

#include <doctest/doctest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{

using pairs = std::vector<std::pair<std::string, std::string>>;

// The system's table as it stands; a new system has no key for it.
pairs tableof()
{
    fontsubstitute *table;
    int32_t count;
    REQUIRE(fontsubstitutes(&table, &count) == nullptr);
    CHECK((count > 0) == (table != nullptr));
    pairs all;
    for (int32_t i = 0; i < count; i++) {
        all.emplace_back(table[i].name, table[i].substitute);
        if (i) CHECK(cstricmp(table[i - 1].name, table[i].name) <= 0);
    }
    void *memory = table;
    heap_free(&memory);
    return all;
}

// Values beside those of the system, for one test.
struct addedvalues {
    const std::string key =
        "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\FontSubstitutes\\";
    const size_t before = tableof().size();
    std::vector<std::string> names;

    void add(const std::string &name, const std::string &substitute)
    {
        REQUIRE(regwrite((key + name).c_str(), substitute.c_str()) == nullptr);
        names.push_back(name);
    }
    ~addedvalues()
    {
        for (const std::string &name : names)
            regdelete((key + name).c_str());
        CHECK(tableof().size() == before);
    }
};

// Those whose names begin with the tests' own letter.
pairs added(const pairs &all)
{
    pairs found;
    for (const auto &row : all)
        if (static_cast<uint8_t>(row.first[0]) == 0xFE) found.push_back(row);
    return found;
}

} // namespace

TEST_CASE("font substitutes are sorted, and cut at their commas")
{
    addedvalues values;
    std::string longest = std::string("\xFE") + std::string(127, 'm');
    values.add("\xFETms Rmn", "MS Serif");
    values.add("\xFEhelv", "MS Sans Serif");
    values.add("\xFE"
               "Arial CYR,204",
               "Arial,204");
    values.add("\xFEZero", ",0");
    values.add(longest, std::string(128, 's'));
    values.add(longest + "m", "too long a name");
    values.add("\xFEM", std::string(129, 's'));
    pairs all = tableof();
    CHECK(all.size() == values.before + 5);
    CHECK(added(all) == pairs{{"\xFE"
                               "Arial CYR",
                               "Arial"},
                              {"\xFEhelv", "MS Sans Serif"},
                              {longest, std::string(128, 's')},
                              {"\xFETms Rmn", "MS Serif"},
                              {"\xFEZero", ""}});
}

TEST_CASE("font substitutes and short memory")
{
    addedvalues values;
    for (int i = 0; i < 100; i++)
        values.add(std::string(static_cast<size_t>(1 + i), '\xFE'), std::string(100, 'x'));
    int failures = 0;
    for (int n = 0; n < 50; n++) {
        fontsubstitute *table;
        int32_t count = -1;
        flexfailafter(n);
        errorblock *err = fontsubstitutes(&table, &count);
        flexfailafter(-1);
        if (!err) {
            void *memory = table;
            heap_free(&memory);
            break;
        }
        CHECK(err->code == ERRORMEMORY);
        CHECK(table == nullptr);
        CHECK(count == 0);
        failures++;
    }
    CHECK(failures >= 4); // the name, the texts as they grow, the table
    CHECK(added(tableof()).size() == 100);
}
