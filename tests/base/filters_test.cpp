#include "base/errors.h"
#include "base/filetypes.h"
#include "base/loadfilter.h"
#include "base/messages.h"
#include "base/savefilter.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>
#include <vector>

namespace
{

constexpr filetyperow rows[] = {
    {0x103, "qmg", "Grid (*.qmg)"},    {0xFFF, "txt", "Text (*.txt)"},
    {0x101, "emf", "Picture (*.emf)"}, {-2, "dat", "Data (*.dat)"},
    {FILETYPEEND, nullptr, nullptr},
};

struct types {
    filetypenode node;
    types()
    {
        addfiletypes(rows, &node);
    }
    ~types()
    {
        remfiletypes(&node);
    }
};

// The strings of a packed list.
std::vector<std::string> strings(const char *list)
{
    std::vector<std::string> out;
    for (; *list; list += strlen(list) + 1)
        out.emplace_back(list);
    return out;
}

using stringlist = std::vector<std::string>;

constexpr int32_t formats[] = {0x103, 0xFFF, 0x101};

void getformat(intptr_t context, int32_t index, int32_t *type, char *name, int32_t size)
{
    *type = formats[index];
    if (name && context)
        snprintf(name, static_cast<size_t>(size), "name%d", static_cast<int>(index));
}

constexpr savefilter table[] = {
    {"Grid", getformat, 1},
    {"{WORDS}", getformat, 1},
    {"Picture", getformat, 1},
};

std::string savedpath;
int32_t savedtype;

errorblock *handler(const char *path, int32_t type)
{
    savedpath = path;
    savedtype = type;
    return nullptr;
}

std::string done(const char *path)
{
    char out[PATHSIZE] = "";
    CHECK(savefilterdone(path, out, sizeof out) == nullptr);
    CHECK(savedpath == out);
    return out;
}

} // namespace

TEST_CASE("an armed table serves one dialog")
{
    types known;
    const char words[] = "WORDS:Text of words\n";
    CHECK(addtranstext(words, sizeof words - 1) == nullptr);
    char path[PATHSIZE] = "a.qmg";
    int32_t current = 1;
    savefilterset(3, table, &current);
    savefilterbuild(path, 0x103, handler);
    CHECK(strings(savechoice.filter) ==
          stringlist{"Grid", "*.qmg", "Text of words", "*.txt", "Picture", "*.emf"});
    CHECK(savechoice.filterindex == 2);
    CHECK(savechoice.type == 0xFFF);
    CHECK(std::string(path) == "name1");

    savefilterchange(3, path, sizeof path);
    CHECK(savechoice.type == 0x101);
    CHECK(std::string(path) == "name2");
    CHECK(current == 2); // what the next save offers
    savefilterchange(4, path, sizeof path);
    savefilterchange(0, path, sizeof path);
    CHECK(current == 2);
    CHECK(done("dir.x\\y.qmg") == "dir.x\\y.emf");
    CHECK(savedtype == 0x101);

    savefilterbuild(path, 0xFFF, handler);
    CHECK(strings(savechoice.filter) == stringlist{"Text (*.txt)", "*.txt"});
    CHECK(savechoice.filterindex == 1);
    savefilterchange(2, path, sizeof path); // a single format: nothing to change to
    CHECK(done("x.qmg") == "x.txt");
    CHECK(done("x.TXT") == "x.TXT");
    CHECK(done("x") == "x.txt");
    CHECK(savedtype == 0xFFF);
}

TEST_CASE("a row that isn't there gives way to the first")
{
    types known;
    char path[PATHSIZE] = "";
    for (int32_t wrong : {-1, 3, 99}) {
        int32_t current = wrong;
        savefilterset(3, table, &current);
        savefilterbuild(path, 0xFFF, nullptr);
        CHECK(savechoice.filterindex == 1);
        CHECK(savechoice.type == 0x103);
        CHECK(current == 0);
    }
}

TEST_CASE("a path that an extension doesn't fit is not saved to")
{
    types known;
    char path[PATHSIZE];
    savefilterbuild(path, 0xFFF, handler);
    savedpath.clear();
    errorblock *err = savefilterdone(std::string(PATHSIZE - 2, 'p').c_str(), path, sizeof path);
    REQUIRE(err);
    CHECK(err->code == ERRORMAXSTRING);
    err = savefilterdone("a.txt", path, 5); // the caller's own room
    REQUIRE(err);
    CHECK(err->code == ERRORMAXSTRING);
    CHECK(savedpath == "");
    CHECK_FALSE(savefilterdone("a.txt", path, 6));
    CHECK(savedpath == "a.txt");
}

TEST_CASE("a save filter that overruns says so and stays well formed")
{
    types known;
    headless.keeptrace = true;
    std::string description(150, 'd');
    for (int32_t i = 0; i < 3; i++)
        savefilteradd(i, 0x103, description.c_str());
    CHECK(headless.tracetext == "");
    CHECK(strings(savechoice.filter).size() == 6);
    for (int32_t i = 3; i < 8; i++)
        savefilteradd(i, 0x103, description.c_str());
    CHECK(headless.tracetext.starts_with("savefilterbuffer overrun\r\n"));
    CHECK(savechoice.filter[510] == 0);
    CHECK(savechoice.filter[511] == 0);
    for (int32_t length = 480; length < 520; length++) { // the pattern meets the end everywhere
        savefilteradd(0, 0x103, std::string(static_cast<size_t>(length), 'd').c_str());
        CHECK(strings(savechoice.filter).size() <= 2);
    }
    savefilteradd(0, 0x103, "short");
    CHECK(strings(savechoice.filter) == stringlist{"short", "*.qmg"});
}

TEST_CASE("a load filter lists the patterns of each row")
{
    types known;
    constexpr int32_t textandall[] = {0xFFF, -1}, grids[] = {0x103}, unknown[] = {9999};
    loadgroup groups[] = {{"{TEXT}", 2, textandall}, {"Grids", 1, grids}, {"Grids", 1, unknown}};
    const char text[] = "TEXT:Texts\n";
    CHECK(addtranstext(text, sizeof text - 1) == nullptr);
    CHECK(strings(loadfilterbuild(groups, 1)) == stringlist{"Texts", "*.txt;*.*;"});
    CHECK(strings(loadfilterbuild(groups, 3)) ==
          stringlist{"Texts", "*.txt;*.*;", "Grids", "*.qmg;", "Grids", "*.dat;"});
    CHECK(strings(loadfilterbuild(groups, 0)) == stringlist{});

    std::string description(100, 'd');
    loadgroup wide[] = {{description.c_str(), 1, grids},
                        {description.c_str(), 1, grids},
                        {description.c_str(), 1, grids}};
    CHECK(strings(loadfilterbuild(wide, 3)).size() == 4);
    std::vector<int32_t> many(80, 0xFFF);
    loadgroup longrow = {"Many", 80, many.data()};
    CHECK(strings(loadfilterbuild(&longrow, 1)) == stringlist{});
}
