// The searches beside their plain tellings, on random grids and dictionaries.

#include "base/random.h"
#include "dict/wordtables.h"
#include "find/anagram.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "find/spell.h"
#include "find/wsmake.h"
#include "find/wssolve.h"
#include "tests/find/plainsearch.h"
#include "tests/grid/gridlooks.h"

#include <algorithm>
#include <cstring>

namespace
{

// Few letters, so that words cross often; phrases, and a character that is no letter.
void shortdicts(std::mt19937 &random)
{
    for (uint32_t n = 1 + below(random, 3); n; n--) {
        wordlist words(below(random, 60));
        for (std::string &word : words)
            for (uint32_t more = 1 + below(random, 6); more; more--)
                word += "abcabcABe !"[below(random, 11)];
        testdict(words);
    }
}

// Blocks, bars, marks of any shape, some letters.
void randomgrid(std::mt19937 &random)
{
    gridclear();
    grid.width = static_cast<int32_t>(2 + below(random, 5));
    grid.height = static_cast<int32_t>(1 + below(random, 5));
    grid.casemode = static_cast<int32_t>(below(random, 3));
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++) {
            uint32_t n = below(random, 20);
            grid.flags[x][y] = n == 0 ? CELLBLOCK : n < 12 ? CELLMARKED : CELLOPEN;
            if (below(random, 9) == 0) grid.flags[x][y] |= BARLEFT;
            if (below(random, 9) == 0) grid.flags[x][y] |= BARTOP;
            grid.letters[x][y] = static_cast<uint8_t>("       abcA!"[below(random, 12)]);
        }
}

// Solutions, their order and what the search leaves in its own letters, while the
// grid's stay; from tables, and from the records with as many polls. How many there
// were.
int32_t solvesagree(int32_t limit, int polls = -1)
{
    solutions.maxsolutions = limit;
    errorblock *err = solvestart();
    CHECK((err != nullptr) == (plainslots() == 0));
    if (err) return 0;
    CHECK(solutions.slotcount == plainslots());
    plainsolution told = plainsolve(limit);
    std::vector<std::vector<wordref>> found;
    griddocument before = grid;
    headless.polls = 0;
    searchrun(nullptr);
    CHECK((polls < 0 || headless.polls == polls));
    for (int32_t i = 0; i < solutions.count; i++) {
        found.emplace_back();
        for (int32_t slot = 0; slot < solutions.slotcount; slot++)
            found.back().push_back(solref(i, slot));
    }
    CHECK((found == told.found));
    CHECK(memcmp(search.letters, told.letters.data(), sizeof search.letters) == 0);
    CHECK(memcmp(grid.letters, before.letters, sizeof grid.letters) == 0);
    solreset();
    tablesoff = polls < 0;
    if (tablesoff) solvesagree(limit, headless.polls);
    tablesoff = false;
    return static_cast<int32_t>(told.found.size());
}

// Some letters exchanged, left out or put in.
std::string misspelt(std::mt19937 &random, std::string word)
{
    size_t at = below(random, word.size() - 1);
    if (below(random, 4) == 0) std::swap(word[at], word[at + 1]);
    std::string letters = std::string("etaonrisu").substr(below(random, 7), below(random, 3));
    return word.replace(below(random, word.size()), below(random, 3), letters);
}

void emptysquare(std::mt19937 &random)
{
    solreset();
    grid.kind = GRIDWORDSQUARE;
    grid.width = static_cast<int32_t>(1 + below(random, 7));
    grid.height = static_cast<int32_t>(1 + below(random, 7));
    grid.filldirections = below(random, 4) ? below(random, 256) : 256;
}

std::vector<plainword> squarelist()
{
    std::vector<plainword> list;
    for (int32_t i = 0; i < solutions.count; i++) {
        const wsentry *word = solword(i);
        list.push_back({word->text, word->x, word->y, word->dx, word->dy});
    }
    return list;
}

} // namespace

TEST_CASE("solving agrees on short words, phrases and bars")
{
    std::mt19937 random(77);
    int64_t found = 0, limited = 0;
    for (int n = 0; n < 2000; n++) {
        shortdicts(random);
        randomgrid(random);
        markrescan();
        int32_t limit = n % 3 ? 3000 : 20;
        int32_t solved = plainslots() > 6 ? 0 : solvesagree(limit);
        found += solved;
        limited += solved > limit;
        testdictsfree();
    }
    CHECK(found > 5000);
    CHECK(limited > 20);
}

TEST_CASE("solving agrees on dictionaries with an index")
{
    std::mt19937 random(78);
    wordlist words = madewords(random, 3000);
    testdict(words);
    testdict({"ice cream", "New York", "Zeus", "at last", "x ray", "queue", "aa"});
    int64_t found = 0;
    for (int n = 0; n < 300; n++) {
        std::string picture = oneof(random, words);
        for (char &ch : picture)
            if (below(random, 3)) ch = '.';
        picture += '\n';
        if (n % 10 == 0)
            for (int y = 0; y < 3; y++)
                picture += '.' + std::string(picture.find('\n') - 1, '#') + '\n';
        gridmarked(picture);
        found += solvesagree(200);
    }
    CHECK(found > 1000);
}

TEST_CASE("anagrams agree with counting letters")
{
    std::mt19937 random(20261);
    wordlist words = madewords(random, 5000);
    testdict(words);
    testdict({"ice cream", "Reims", "miser", "can't", "x-ray", std::string(31, 'a')});
    size_t all = 0;
    for (int n = 0; n < 400; n++) {
        tablesoff = n % 8 == 0;
        std::string text = oneof(random, words);
        std::shuffle(text.begin(), text.end(), random);
        for (uint32_t stars = below(random, 4); stars; stars--)
            text[below(random, text.size())] = '*';
        if (n % 5 == 0) text[0] = static_cast<char>(text[0] & ~32);
        solreset();
        solutions.slotcount = 1;
        solutions.maxsolutions = n % 3 ? 1000000 : 5;
        std::vector<wordref> told = plainanagram(text, solutions.maxsolutions), found;
        CHECK_FALSE(anagramscan(text.data()));
        for (int32_t i = 0; i < solutions.count; i++)
            found.push_back(solref(i, 0));
        CHECK((found == told));
        all += found.size();
    }
    CHECK(all > 400);
    tablesoff = false;
}

TEST_CASE("tables are those of the words now, and few bytes each")
{
    std::mt19937 random(3);
    testdict(madewords(random, 20000));
    Dictionary *dict = &dicts[0].dict;
    auto found = [] {
        char text[] = "oqzaq";
        solreset();
        CHECK_FALSE(anagramscan(text));
        return solutions.count;
    };
    solutions.slotcount = 1;
    CHECK((tablesbytes(dict) == 0 && found() == 0));
    CHECK((dictadd("zaqoq", dict) == nullptr && dictadd("Qoqaz", dict) == nullptr && found() == 2));
    CHECK((dictremove("zaqoq", dict) == 1 && found() == 1));
    for (int32_t length = 1; length <= WORDLENGTH; length++)
        CHECK(lengthwords(dict, length, 20000) != nullptr);
    CHECK(hashwords(dict, 20000) != nullptr);
    CHECK(tablesbytes(dict) < int64_t{48} * dictcount(dict));
    std::swap(static_cast<dictindex *>(dict->index)[1].word[0], // out of step: the plain road
              static_cast<dictindex *>(dict->index)[2].word[7]);
    dictchanged(dict);
    CHECK((lengthwords(dict, 5, 20000) == nullptr && found() == 1));
    CHECK(hashwords(dict, 20000) == nullptr);
}

TEST_CASE("suggestions agree, those with capitals and of the later dictionary too")
{
    std::mt19937 random(66);
    wordlist words = madewords(random, 3000), capitals = {"Zebra", "BEE", "colouR", "xs", "CAT"};
    for (size_t n = 0; n < words.size(); n += 20) {
        capitals.push_back(words[n]);
        capitals.back()[0] = static_cast<char>(words[n][0] & ~32);
    }
    testdict(words);
    testdict(capitals);
    testdict({});
    size_t all = 0;
    for (int n = 0; n < 400; n++) {
        std::string word = misspelt(random, lower(oneof(random, n % 3 ? words : capitals)));
        guessmake(word.c_str());
        wordlist made, told = plainguess(word);
        for (uint32_t i = 0; i < dictcount(&spell.guessstore); i++)
            made.push_back(dictword(i, &spell.guessstore));
        CHECK_MESSAGE(made == told, word);
        all += made.size();
    }
    CHECK(all > 400);
}

TEST_CASE("hidden words agree with looking every line up")
{
    std::mt19937 random(55);
    wordlist words = madewords(random, 3000);
    testdict(words);
    testdict({"Aa", "\xE9lan", "xyz", "b", "at on", std::string(31, 's')});
    size_t all = 0;
    for (int n = 0; n < 80; n++) {
        randomgrid(random);
        grid.kind = GRIDWORDSQUARE;
        grid.width = static_cast<int32_t>(1 + below(random, 12));
        grid.height = static_cast<int32_t>(1 + below(random, n % 10 ? 12 : 40));
        grid.minwordlength = static_cast<int32_t>(below(random, 7));
        std::string letters = n % 10 ? "" : std::string(20, 's');
        for (int32_t cell = 0; cell < grid.width * grid.height; cell++) {
            if (letters.empty())
                letters = oneof(random, words) + (below(random, 4) ? "" : "\xE9*Z ");
            grid.letters[cell / grid.height][cell % grid.height] = static_cast<uint8_t>(letters[0]);
            letters.erase(0, 1);
        }
        std::vector<plainword> told = plainfind();
        searchrun(wssolve());
        std::vector<plainword> found = squarelist();
        CHECK(std::is_sorted(found.begin(), found.end(),
                             [](const auto &a, const auto &b) { return a.text < b.text; }));
        std::sort(found.begin(), found.end()); // the order of doubles is open
        CHECK((found == told));
        all += found.size();
    }
    CHECK(all > 500);
}

TEST_CASE("a square is made as plain recursion makes it, and New as drawing words one by one does")
{
    std::mt19937 random(44);
    wordlist words = madewords(random, 2000);
    testdict(wordlist(words.begin(), words.begin() + 500));
    testdict({"Capitals", "ice cream", "o"});
    testdict({});
    int failed = 0;
    for (uint32_t n = 0; n < 500; n++) {
        emptysquare(random);
        wordlist chosen(below(random, 5));
        auto longest = static_cast<size_t>(std::max(grid.width, grid.height));
        for (std::string &word : chosen) {
            word = oneof(random, words).substr(0, 1 + below(random, longest));
            if (below(random, 5) == 0) word[0] = static_cast<char>(word[0] & ~32);
            REQUIRE_FALSE(soladdword(0, 0, 1, 0, word.c_str()));
        }
        randomseed(n);
        plainsquare told = plainmake(chosen);
        randomseed(n);
        searchrun(wsmake());
        CHECK(gridtext() == told.picture);
        CHECK((squarelist() == told.placed));
        failed += !told.placed.empty() && told.placed[0].x < 0;
        if (n % 10) continue;
        solutions.slotcount = 3; // as a Crossword left it
        randomseed(n);
        told = plainnew();
        randomseed(n);
        searchrun(wsnew());
        CHECK(gridtext() == told.picture);
        CHECK((solutions.count == 0 && solutions.slotcount == 1)); // they are for the solver
    }
    CHECK((failed > 20 && failed < 300));
}
