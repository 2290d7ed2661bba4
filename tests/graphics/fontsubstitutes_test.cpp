#include "base/errors.h"
#include "base/flex.h"
#include "base/registry.h"
#include "graphics/fontsubstitutes.h"

#include <doctest/doctest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{

using pairs = std::vector<std::pair<std::string, std::string>>;

// The rows whose names begin with the tests' own letter, in their order.
pairs added()
{
    fontsubstitute *table;
    int32_t count;
    REQUIRE(fontsubstitutes(&table, &count) == nullptr);
    CHECK((count > 0) == (table != nullptr));
    pairs found;
    for (int32_t i = 0; i < count; i++)
        if (table[i].name[0] == '\xFE') found.emplace_back(table[i].name, table[i].substitute);
    void *memory = table;
    heap_free(&memory);
    return found;
}

// Values beside those of the system, for one test.
struct addedvalues {
    const std::string key =
        "HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\FontSubstitutes\\\xFE";
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
        CHECK(added().empty());
    }
};

} // namespace

TEST_CASE("font substitutes are sorted, and cut at their commas")
{
    addedvalues values;
    const std::string longest(127, 'm'), text(128, 's');
    values.add("Tms Rmn", "MS Serif");
    values.add("helv", "MS Sans Serif");
    values.add("Arial CYR,204", "Arial,204");
    values.add("Zero", ",0");
    values.add(longest, text);
    values.add(longest + "m", "too long a name");
    values.add("M", text + "s");
    CHECK(added() == pairs{{"\xFE" + std::string("Arial CYR"), "Arial"},
                           {"\xFEhelv", "MS Sans Serif"},
                           {"\xFE" + longest, text},
                           {"\xFETms Rmn", "MS Serif"},
                           {"\xFEZero", ""}});
}
