#include "grid/grid.h"

#include "tests/grid/gridlooks.h"

#include <utility>
#include <vector>

using wordlist = std::vector<std::string>;

static wordlist allwords()
{
    wordlist words;
    char word[GRIDSTRIDE];
    for (int32_t n = 0; gridword(word, n); n++)
        words.push_back(word);
    return words;
}

TEST_CASE("words are pieces of two cells and more, by their first cells, across first")
{
    const std::pair<std::string, wordlist> rows[] = {
        {std::string(GRIDMAX, 'x'), {std::string(GRIDMAX, 'x')}},
        {"abc\ndef\n", {"abc", "ad", "be", "cf", "def"}},
        {"ab#\n#cd\nef.\n", {"ab", "bcf", "cd", "d ", "ef "}},
        {"abcd\nefgh\nijkl\n\nleft 2,0 1,1 0,2\ntop 0,0 1,1 2,2\n", // a first cell's is no end
         {"ab", "aei", "cd", "cg", "dhl", "fgh", "fj", "ijkl"}},
        {"a#c\n#b#\n", {}}};
    for (const auto &[picture, words] : rows) {
        gridset(picture);
        CHECK(allwords() == words);
        CHECK(allwords() == words);
    }
    gridset("abc\n");
    grid.letters[1][0] = 0; // as a search may leave it
    CHECK(allwords() == wordlist{"a c"});
}
