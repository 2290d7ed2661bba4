#include "tests/dict/storemodel.h"

#include <doctest/doctest.h>

#include <random>

namespace
{

struct walk {
    Dictionary dict;
    wordmodel model;
    std::mt19937 random;
};

size_t draw(walk *walk, size_t below)
{
    return walk->random() % below;
}

// Mostly adds while the store is filling, mostly removals while it empties.
void step(walk *walk, const std::vector<std::string> &words, bool filling)
{
    std::string word = words[draw(walk, words.size())];
    if (draw(walk, 8) == 0)
        for (char &ch : word)
            ch = static_cast<char>(std::toupper(static_cast<unsigned char>(ch)));
    if (draw(walk, 100) < (filling ? 70 : 30)) {
        REQUIRE_FALSE(dictadd(word.c_str(), &walk->dict));
        walk->model[modelkey(word)] = word;
    } else {
        size_t erased = walk->model.erase(modelkey(word));
        REQUIRE(dictremove(word.c_str(), &walk->dict) == static_cast<int>(erased));
    }
}

void randomwalk(const std::vector<std::string> &words, int steps, int turn, int sample)
{
    walk walk = {{}, {}, std::mt19937(7)};
    REQUIRE_FALSE(dictempty(&walk.dict));
    for (int n = 0; n < steps; n++) {
        step(&walk, words, n / turn % 2 == 0);
        REQUIRE(dictcount(&walk.dict) == walk.model.size());
        if (n % sample == 0) REQUIRE(modelfault(walk.dict, walk.model) == "");
    }
    REQUIRE(modelfault(walk.dict, walk.model) == "");
    dictfree(&walk.dict);
}

} // namespace

TEST_CASE("a long walk over real words agrees with the model")
{
    randomwalk(somewords(20000, 1), 120000, 30000, 500);
}
