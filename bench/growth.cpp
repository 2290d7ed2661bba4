// How the cost of each search grows with the dictionary: lists of 10,000 words to
// 3,000,000, made of three letters after another as the shipped words have them. Each
// work is done by the records alone and by the tables beside the store, in one run, and
// both times, their ratio and the bytes of the tables are told.
//
// usage: growth DATA [WORDS]...

#include "base/errors.h"
#include "base/random.h"
#include "dict/dictfile.h"
#include "dict/dictset.h"
#include "dict/wordimport.h"
#include "dict/wordtables.h"
#include "find/anagram.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "find/spell.h"
#include "find/wsmake.h"
#include "find/wssolve.h"
#include "grid/grid.h"
#include "tools/headless.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <set>

namespace
{

namespace files = std::filesystem;

files::path folder;
std::vector<std::string> words;
Dictionary *const dict = &dicts[0].dict;

void must(const errorblock *err)
{
    if (!err) return;
    std::fprintf(stderr, "growth: %s\n", err->text);
    std::exit(1);
}

// Words of letters that follow each other in the list's words, as often as there.
std::vector<std::string> wordsmake(const std::string &list, size_t count)
{
    std::ifstream file(list);
    std::map<std::string, std::string> followers; // of two letters; a blank is the end
    for (std::string word; std::getline(file, word);) {
        for (char &letter : word)
            letter = static_cast<char>(std::tolower(letter));
        std::string padded = "  " + word + " ";
        for (size_t i = 2; i < padded.size(); i++)
            followers[padded.substr(i - 2, 2)] += padded[i];
    }
    if (followers.empty()) must(makeerrortext(1, "There are no words in %s.", list.c_str()));
    std::minstd_rand random(1);
    std::set<std::string> made;
    while (made.size() < count) {
        std::string word = "  ";
        while (word.size() < 18) {
            const std::string &next = followers[word.substr(word.size() - 2)];
            char letter = next[random() % next.size()];
            if (letter == ' ') break;
            word += letter;
        }
        if (word.size() >= 5) made.insert(word.substr(2));
    }
    std::vector<std::string> all(made.begin(), made.end());
    std::shuffle(all.begin(), all.end(), random);
    return all;
}

void import()
{
    std::string path = (folder / "words.txt").string();
    std::ofstream file(path);
    for (const std::string &word : words)
        file << word << '\n';
    file.close();
    dictfree(dict);
    must(dictempty(dict));
    must(wordimport(path.c_str(), 0));
}

void load()
{
    must(dictload(folder.string().c_str(), "growth", dict));
}

void walk()
{
    dictcursor cursor;
    bool more = dictseek(0, dict, &cursor);
    while (more)
        more = dictnext(dict, &cursor);
}

void lookups(uint32_t option)
{
    for (size_t n = 0; n < 4096; n++) {
        dictcursor cursor;
        uint32_t flags = option;
        dictfind(words[n % words.size()].c_str(), dict, &cursor, &flags);
    }
}

// Marks a row of seven cells, of which two have letters, or a column beside it too.
void solve(bool crossing)
{
    gridreset();
    grid.width = grid.height = 7;
    for (int32_t i = 0; i < 7; i++) {
        grid.flags[i][0] = CELLMARKED;
        if (crossing) grid.flags[0][i] = CELLMARKED;
    }
    if (!crossing) grid.letters[2][0] = 'a';
    if (!crossing) grid.letters[6][0] = 'e';
    must(solvestart());
    must(headlessrun());
}

void anagram(const char *letters)
{
    char text[WORDSIZE];
    std::strcpy(text, letters);
    solreset();
    solutions.slotcount = 1;
    must(anagramscan(text));
}

void hidden()
{
    gridreset();
    grid.kind = GRIDWORDSQUARE;
    grid.width = grid.height = 40;
    grid.filldirections = 255;
    grid.minwordlength = 5;
    randomseed(1);
    gridfillrandom();
    must(wssolve());
    must(headlessrun());
}

void suggestions()
{
    for (size_t n = 0; n < 50; n++) {
        std::string word = words[n];
        word[word.size() / 2] = 'q';
        guessmake(word.c_str());
    }
    spellend();
}

// Milliseconds of a work, the least of some runs.
double timed(const std::function<void()> &work)
{
    using timeclock = std::chrono::steady_clock;
    double best = 0, spent = 0;
    for (int n = 0; n < 50 && spent < 200; n++) {
        auto start = timeclock::now();
        work();
        double took = std::chrono::duration<double, std::milli>(timeclock::now() - start).count();
        best = n ? std::min(best, took) : took;
        spent += took;
    }
    return best;
}

struct work {
    const char *name;
    void (*run)();
    bool tables; // whether it goes by them
};

const work WORKS[] = {
    {"import, shuffled", import, false},
    {"load", load, false},
    {"walk", walk, false},
    {"dictfind, 4096 hits", [] { lookups(0); }, true},
    {"fast search, 4096 hits", [] { lookups(fastfind); }, true},
    {"one slot, ..a...e", [] { solve(false); }, true},
    {"two crossing slots of 7", [] { solve(true); }, true},
    {"anagram of nine", [] { anagram("trainings"); }, true},
    {"anagram with a star", [] { anagram("tr*inings"); }, true},
    {"hidden, 40 by 40", hidden, true},
    {"50 misspellings", suggestions, true},
};

void measure(const work &which)
{
    tablesoff = true;
    double plain = timed(which.run), ours = plain;
    tablesoff = false;
    tablesfree(dict);
    if (which.tables) {
        // The tables are made once the searches before would have been worth it.
        for (size_t n = 0; n < 3 + words.size() / 100000; n++)
            which.run();
        ours = timed(which.run);
    }
    std::printf("%8zu  %-24s %10.3f", words.size(), which.name, plain);
    if (which.tables)
        std::printf(" %10.4f %8.4f %8.1f", ours, ours / plain,
                    static_cast<double>(tablesbytes(dict)) / dictcount(dict));
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2) return 2;
    std::vector<size_t> sizes = {10000, 100000, 1000000, 3000000};
    if (argc > 2) sizes.clear();
    for (int n = 2; n < argc; n++)
        sizes.push_back(std::strtoul(argv[n], nullptr, 10));
    folder =
        files::temp_directory_path() / ("quillgrowth" + std::to_string(std::random_device{}()));
    files::create_directories(folder);
    ndicts = 1;
    dictset.count = 1;
    dicts[0].loaded = dicts[0].usecount = 1;
    solutions.maxsolutions = 1000;
    std::printf("%8s  %-24s %10s %10s %8s %8s\n", "words", "milliseconds", "records", "tables",
                "ratio", "bytes");
    for (size_t size : sizes) {
        words = wordsmake(std::string(argv[1]) + "/MainDict.txt", size);
        import();
        must(dictsave(folder.string().c_str(), "growth", dict));
        for (const work &which : WORKS)
            measure(which);
    }
    std::error_code failed;
    files::remove_all(folder, failed);
}
