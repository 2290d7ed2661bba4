// Files that a user might have.
#include "base/errors.h"
#include "base/text.h"
#include "dict/dictfile.h"
#include "dict/dictset.h"
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
        if (i % 4 == 0) text.resize(static_cast<size_t>(roll(firstdice, size)));
        if (i % 4 == 3) text += good;
        for (int n = i % 4 == 0 ? 0 : rollbetween(firstdice, 1, 9); n; n--)
            text[static_cast<size_t>(roll(firstdice, size))] =
                static_cast<char>(roll(firstdice, 256));
        droppables.push_back(filewrite("damaged" + std::to_string(i) + leaf, text));
    }
}

void gridsfill()
{
    for (const char *leaf : {"barred12.qmg", "crossword13.qmg", "misspelt15.qmg"}) {
        std::string good = bytes(fs::path(datafolder) / leaf);
        for (int i = 0; i < 4; i++) // often enough among the damaged ones
            droppables.push_back(filewrite(leaf, good));
        damaged(leaf, good);
    }
}

// An empty Wordsquare: a header of the grid file's format, and blank cells.
void squarefill()
{
    constexpr size_t header = 264, names = 12, kindat = 240, widthat = 256, heightat = 260;
    constexpr char side = 12;
    std::string square(header + names, '\0');
    square.replace(24, 4, "1.02");
    square[kindat] = 1;
    square[widthat] = square[heightat] = side;
    square += std::string(side * side, ' ') + std::string(side * side, '\0');
    for (int i = 0; i < 3; i++)
        droppables.push_back(filewrite("square.qmg", square));
}

std::string wordof(int length)
{
    std::string word;
    while (length--)
        word += static_cast<char>('a' + roll(firstdice, 26));
    return word;
}

void textsfill()
{
    std::string few, many, tight, odd;
    for (int i = 0; i < 60; i++) // more than a small Wordsquare holds
        tight += wordof(rollbetween(firstdice, 5, 8)) + "\n";
    for (int i = 0; i < 12; i++)
        few += wordof(rollbetween(firstdice, 2, 6)) + "\r\n";
    for (int i = 0; i < 2000; i++)
        many += wordof(rollbetween(firstdice, 1, 34)) + (i % 7 ? "\n" : ", ");
    for (int i = 0; i < 3000; i++)
        odd += static_cast<char>(roll(firstdice, 256));
    for (int i = 0; i < 5; i++)
        droppables.push_back(filewrite("few.txt", few));
    droppables.push_back(filewrite("many.txt", many));
    droppables.push_back(filewrite("tight.txt", tight));
    droppables.push_back(filewrite("odd.txt", odd));
    droppables.push_back(filewrite("empty.txt", ""));
    droppables.push_back(filewrite("empty.qmg", ""));
    droppables.push_back(filewrite("picture.bmp", odd));
    droppables.push_back(filewrite("noextension", few));
    droppables.push_back(scratchfile("nothing.qmg")); // isn't there
}

void dictionarywrite(const char *name, int words)
{
    Dictionary dict;
    errorblock *err = dictempty(&dict);
    for (int i = 0; i < words && !err; i++)
        err = dictadd(wordof(rollbetween(firstdice, 2, 9)).c_str(), &dict);
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
    strcopyn(dictdirectory, scratchfile("dictionaries").c_str(), sizeof dictdirectory);
    dictionariesfill();
    droppables.clear();
    gridsfill();
    squarefill();
    textsfill();
    droppables.push_back(scratch);
    droppables.push_back(std::string(dictdirectory) + "\\small.dic");
    droppables.push_back(std::string(dictdirectory) + "\\cut.dic");
}

std::string droppable(dice &from)
{
    return pick(from, droppables);
}

std::string typedname(dice &from)
{
    switch (roll(from, 12)) {
    case 0:
        return scratchfile("a<b>|c");
    case 1:
        return scratchfile("no\\such\\folder\\x");
    case 2:
        return scratch;
    case 3:
        return scratchfile(std::string(static_cast<size_t>(rollbetween(from, 60, LONGEST)), 'n'));
    case 4:
        return scratchfile("b\xE9t\xE9");
    case 5:
        return scratchfile("dots.in.name");
    case 6:
    case 7:
        return droppable(from);
    default:
        return scratchfile("saved" + std::to_string(roll(from, 5)));
    }
}
