#include "base/errors.h"
#include "base/loadfilter.h"
#include "base/savefilter.h"
#include "tests/base/scratch.h"
#include "tools/headless.h"

#include <cstring>
#include <vector>

namespace
{

constexpr filetyperow rows[] = {
    {0x103, "qmg", "Grid (*.qmg)"},    {0xFFF, "txt", "Text (*.txt)"},
    {0x101, "emf", "Picture (*.emf)"}, {-2, "dat", "Data (*.dat)"},
    {FILETYPEEND, nullptr, nullptr},
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

std::string saved; // the path and the type that the handler was given

errorblock *handler(const char *path, int32_t type)
{
    saved = path + std::string(type == 0xFFF ? " as text" : type == 0x101 ? " as picture" : " ?");
    return nullptr;
}

std::string done(const char *path)
{
    char out[PATHSIZE] = "";
    CHECK(savefilterdone(path, out, sizeof out) == nullptr);
    CHECK(saved.starts_with(std::string(out) + " as"));
    return saved;
}

} // namespace

TEST_CASE("an armed table serves one dialog")
{
    typetable known(rows);
    catalogue("WORDS:Text of words\n");
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
    CHECK(done("dir.x\\y.qmg") == "dir.x\\y.emf as picture");

    savefilterbuild(path, 0xFFF, handler);
    CHECK(strings(savechoice.filter) == stringlist{"Text (*.txt)", "*.txt"});
    CHECK(savechoice.filterindex == 1);
    savefilterchange(2, path, sizeof path); // a single format: nothing to change to
    CHECK(done("x.qmg") == "x.txt as text");
    CHECK(done("x.TXT") == "x.TXT as text");
    CHECK(done("x") == "x.txt as text");
}

TEST_CASE("a row that isn't there gives way to the first")
{
    typetable known(rows);
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
    typetable known(rows);
    char path[PATHSIZE];
    savefilterbuild(path, 0xFFF, handler);
    saved.clear();
    std::string full(PATHSIZE - 2, 'p');
    CHECK(code(savefilterdone(full.c_str(), path, sizeof path)) == ERRORMAXSTRING);
    CHECK(code(savefilterdone("a.txt", path, 5)) == ERRORMAXSTRING); // the caller's own room
    CHECK(saved == "");
    CHECK_FALSE(savefilterdone("a.txt", path, 6));
    CHECK(saved == "a.txt as text");
}

TEST_CASE("a save filter that overruns says so and stays well formed")
{
    typetable known(rows);
    headless.keeptrace = true;
    std::string description(150, 'd');
    for (int32_t i = 0; i < 8; i++) {
        savefilteradd(i, 0x103, description.c_str());
        CHECK(headless.tracetext.starts_with("savefilterbuffer overrun\r\n") == (i > 2));
        if (i == 2) CHECK(strings(savechoice.filter).size() == 6);
    }
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
    typetable known(rows);
    constexpr int32_t textandall[] = {0xFFF, -1}, grids[] = {0x103}, unknown[] = {9999};
    loadgroup groups[] = {{"{TEXT}", 2, textandall}, {"Grids", 1, grids}, {"Grids", 1, unknown}};
    catalogue("TEXT:Texts\n");
    CHECK(strings(loadfilterbuild(groups, 1)) == stringlist{"Texts", "*.txt;*.*;"});
    CHECK(strings(loadfilterbuild(groups, 3)) ==
          stringlist{"Texts", "*.txt;*.*;", "Grids", "*.qmg;", "Grids", "*.dat;"});
    CHECK(strings(loadfilterbuild(groups, 0)) == stringlist{});

    std::string description(100, 'd');
    const loadgroup wide = {description.c_str(), 1, grids};
    loadgroup three[] = {wide, wide, wide};
    CHECK(strings(loadfilterbuild(three, 3)).size() == 4);
    std::vector<int32_t> many(80, 0xFFF);
    loadgroup longrow = {"Many", 80, many.data()};
    CHECK(strings(loadfilterbuild(&longrow, 1)) == stringlist{});
}
