#include "find/anagram.h"

#include "base/errorcodes.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "tests/find/testdicts.h"
#include "tests/grid/gridlooks.h"

#include <algorithm>
#include <cstring>

namespace
{

// Told again: the letters of the word that the text hasn't got must be no more
// than its wildcards; lengths agree.
bool told(std::string word, const std::string &text)
{
    if (word.size() != text.size()) return false;
    std::string rest = lower(text);
    size_t missing = 0;
    for (char ch : lower(word)) {
        size_t at = ch == '*' ? std::string::npos : rest.find(ch);
        if (at == std::string::npos)
            missing++;
        else
            rest.erase(at, 1);
    }
    return missing == static_cast<size_t>(std::count(rest.begin(), rest.end(), '*'));
}

std::vector<std::string> scanned(const std::string &text)
{
    char buffer[WORDSIZE];
    strcpy(buffer, text.c_str());
    solreset();
    solutions.slotcount = 1;
    CHECK(anagramscan(buffer) == nullptr);
    std::vector<std::string> words;
    for (int32_t i = 0; i < solutions.count; i++)
        words.push_back(wordtext(solref(i, 0)));
    return words;
}

std::vector<std::string> expected(const std::vector<std::string> &all, const std::string &text)
{
    std::vector<std::string> words;
    for (const std::string &word : all)
        if (told(word, text)) words.push_back(word);
    return words;
}

void markrow(const std::string &letters)
{
    gridset(letters + "\n");
    for (int32_t x = 0; x < grid.width; x++)
        grid.flags[x][0] = CELLMARKED;
}

} // namespace

TEST_CASE("anagrams agree with counting letters")
{
    std::vector<std::string> words = realwords(9);
    testdict("one", words);
    testdict("two", {"ice cream", "Reims", "miser", "can't", "x-ray", std::string(31, 'a')});
    std::vector<std::string> all = testdictwords(0), second = testdictwords(1);
    all.insert(all.end(), second.begin(), second.end());
    solutions.maxsolutions = 1000000;
    std::mt19937 random(20261);
    size_t found = 0;
    for (int n = 0; n < 400; n++) {
        std::string text = words[below(random, static_cast<uint32_t>(words.size()))];
        std::shuffle(text.begin(), text.end(), random);
        for (uint32_t stars = below(random, 4); stars && !text.empty(); stars--)
            text[below(random, static_cast<uint32_t>(text.size()))] = '*';
        if (n % 5 == 0 && !text.empty() && text[0] >= 'a')
            text[0] = static_cast<char>(text[0] - 32);
        std::vector<std::string> result = scanned(text);
        CHECK(result == expected(all, text));
        found += result.size();
    }
    CHECK(found > 400);
}

TEST_CASE("the list stops above the limit")
{
    testdict("d", {"act", "Cat", "cot", "dog", "ab cd"});
    testdict("e", {"cat"});
    CHECK(scanned("c*t") == std::vector<std::string>{"act", "Cat", "cot", "cat"});
    CHECK(scanned(" dcba") == std::vector<std::string>{"ab cd"});
    solutions.maxsolutions = 1;
    CHECK(scanned("c*t").size() == 2);
}

TEST_CASE("the start checks the mark, the slot and the text")
{
    CHECK(code(anagramstart("")) == ENOD);
    testdict("d", {"cat", "act"});
    CHECK(code(anagramstart("cat")) == ENMW);
    markrow("ca.");
    grid.height = 3;
    grid.flags[0][1] = grid.flags[0][2] = CELLMARKED;
    CHECK(code(anagramstart("cat")) == EASW);
    grid.height = 1;
    CHECK(code(anagramstart("")) == EASP);
    CHECK(code(anagramstart("cats")) == EAMAT);
    CHECK(code(anagramstart(std::string(60, 'x').c_str())) == EAMAT);
    grid.letters[1][0] = 0; // as a search may leave it
    CHECK(code(anagramstart("")) == EASP);
    CHECK((headless.worker == nullptr));

    searchrun(anagramstart("tca"));
    CHECK(solutions.count == 2);
    markrow("cat");
    searchrun(anagramstart(""));
    CHECK(solutions.count == 2);
    CHECK(headless.begins == headless.ends);
    CHECK(headless.busy == 0);
}
