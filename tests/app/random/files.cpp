// Files that a user might have.
#include "base/errors.h"
#include "dict/dictfile.h"
#include "dict/dictset.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "tests/app/random/random.h"

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

std::string scratch, datafolder;

namespace
{

// Wine's own boxes for files fall over a path of more than 260 characters.
constexpr int LONGEST = 180;

std::vector<std::string> droppables;

std::string bytes(const fs::path &path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string filewrite(const std::string &leaf, const std::string &text)
{
    std::string path = scratchfile(leaf);
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

// Of a good file: cut short, bytes changed, nothing, more than it should be.
void damaged(const std::string &leaf, const std::string &good)
{
    if (good.empty()) return;
    for (int i = 0; i < 8; i++) {
        std::string text = good;
        auto size = static_cast<int>(text.size());
        if (i % 4 == 0) text.resize(static_cast<size_t>(roll(size)));
        if (i % 4 == 3) text += good;
        for (int n = i % 4 == 0 ? 0 : rollbetween(1, 9); n; n--)
            text[static_cast<size_t>(roll(size))] = static_cast<char>(roll(256));
        droppables.push_back(filewrite("damaged" + std::to_string(i) + leaf, text));
    }
}

void gridsfill()
{
    for (const char *leaf : {"barred12.qmg", "crossword13.qmg", "misspelt15.qmg"}) {
        std::string good = bytes(fs::path(datafolder) / leaf);
        droppables.insert(droppables.end(), 4, filewrite(leaf, good)); // among many damaged ones
        damaged(leaf, good);
    }
}

// An empty Wordsquare, which the new document is for that while.
void squarefill()
{
    griddocument before = grid;
    grid.kind = GRIDWORDSQUARE;
    grid.width = grid.height = 12;
    errorblock *err = gridwrite(scratchfile("square.qmg").c_str());
    if (err) fault("A Wordsquare for the test: %s", err->text);
    grid = before;
    droppables.insert(droppables.end(), 3, scratchfile("square.qmg"));
}

std::string wordof(int length)
{
    std::string word;
    while (length--)
        word += static_cast<char>('a' + roll(26));
    return word;
}

void textsfill()
{
    std::string few, many, tight, odd;
    for (int i = 0; i < 60; i++) // more than a small Wordsquare holds
        tight += wordof(rollbetween(5, 8)) + "\n";
    for (int i = 0; i < 12; i++)
        few += wordof(rollbetween(2, 6)) + "\r\n";
    for (int i = 0; i < 2000; i++)
        many += wordof(rollbetween(1, 34)) + (i % 7 ? "\n" : ", ");
    for (int i = 0; i < 3000; i++)
        odd += static_cast<char>(roll(256));
    const std::pair<const char *, std::string> texts[] = {
        {"few.txt", few},     {"few.txt", few},    {"few.txt", few},     {"many.txt", many},
        {"odd.txt", odd},     {"empty.txt", ""},   {"tight.txt", tight}, {"empty.qmg", ""},
        {"picture.bmp", odd}, {"noextension", few}};
    for (const auto &[leaf, text] : texts)
        droppables.push_back(filewrite(leaf, text));
}

void dictionarywrite(const char *name, int words)
{
    Dictionary dict;
    errorblock *err = dictempty(&dict);
    for (int i = 0; i < words && !err; i++)
        err = dictadd(wordof(rollbetween(2, 9)).c_str(), &dict);
    if (!err) err = dictsave(dictdirectory, name, &dict);
    dictfree(&dict);
    if (err) fault("A dictionary for the test: %s", err->text);
}

// A file that is locked can't be deleted.
void folderempty(const fs::path &folder)
{
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    for (const fs::directory_entry &entry : fs::directory_iterator(folder, ignored)) {
        fs::permissions(entry, fs::perms::all, ignored);
        fs::remove_all(entry, ignored);
    }
}

// The shipped ones among small ones; one is damaged, and one of another kind.
void dictionariesfill()
{
    folderempty(dictdirectory);
    fs::path folder = dictdirectory;
    for (const char *leaf : {"MainDict.dic", "Puzzle-UK.dic"})
        if (fs::exists(fs::path(datafolder) / leaf))
            fs::copy_file(fs::path(datafolder) / leaf, folder / leaf);
    dictionarywrite("small", 40);
    dictionarywrite("middle", 1500);
    dictionarywrite("none", 0);
    std::string good = bytes(folder / "middle.dic");
    std::ofstream(folder / "cut.dic", std::ios::binary) << good.substr(0, good.size() / 2);
    std::ofstream(folder / "text.dic", std::ios::binary) << "No dictionary at all.\n";
}

} // namespace

std::string scratchfile(const std::string &leaf)
{
    return scratch + "\\" + leaf;
}

void scratchfill()
{
    dictionariesdrop(scratchfile("dictionaries"));
    dictionariesfill();
    droppables.clear();
    gridsfill();
    squarefill();
    textsfill();
    for (const char *leaf : {"nothing.qmg", "", "dictionaries\\small.dic", "dictionaries\\cut.dic"})
        droppables.push_back(scratchfile(leaf)); // the first isn't there
}

std::string droppable()
{
    return pick(droppables);
}

std::string typedname()
{
    const std::string odd[] = {
        scratch,
        droppable(),
        droppable(),
        scratchfile("a<b>|c"),
        scratchfile("no\\such\\folder\\x"),
        scratchfile("b\xE9t\xE9"),
        scratchfile("dots.in.name"),
        scratchfile(std::string(static_cast<size_t>(rollbetween(60, LONGEST)), 'n')),
    };
    return chance(65) ? pick(odd) : scratchfile("saved" + std::to_string(roll(5)));
}
