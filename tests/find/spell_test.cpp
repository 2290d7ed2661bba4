#include "find/spell.h"

#include "base/flex.h"
#include "dict/dictset.h"
#include "tests/find/testdicts.h"
#include "tests/grid/gridlooks.h"

#include <algorithm>
#include <map>

namespace
{

std::vector<std::string> guesses()
{
    std::vector<std::string> words;
    for (uint32_t i = 0; i < dictcount(&spell.guessstore); i++)
        words.push_back(dictword(i, &spell.guessstore));
    return words;
}

// The near match told again, as a walk over two positions with marks for what
// has been skipped: the next letters decide greedily which skip is taken.
// Returns how far the stored word was matched.
int near(const std::string &stored, const std::string &sought, bool *agree)
{
    size_t a = 0, b = 0;
    int matched = 0;
    bool skippeda = false, skippedb = false;
    auto at = [](const std::string &text, size_t i) { return i < text.size() ? text[i] : '\0'; };
    *agree = false;
    while (lower(at(stored, a)) != lower(at(sought, b)) || a < stored.size()) {
        if (lower(at(stored, a)) == lower(at(sought, b))) {
            a++, b++, matched++;
        } else if (skippeda && skippedb) {
            return matched;
        } else if (!skippeda && a < stored.size() && at(stored, a + 1) == at(sought, b)) {
            skippeda = true, a++, matched++;
        } else if (!skippedb && b < sought.size() && at(sought, b + 1) == at(stored, a)) {
            skippedb = true, b++;
        } else if (skippeda || skippedb) {
            return matched;
        } else {
            matched++;
            if (a == stored.size() || b == sought.size()) return matched;
            skippeda = skippedb = true, a++, b++;
        }
    }
    *agree = true;
    return matched;
}

// The whole of the suggestions told again over plain lists without phrases:
// a map from folded to stored form, of which the last added stays.
struct retelling {
    std::vector<std::map<std::string, std::string>> dicts; // folded to stored, in store order
    std::vector<std::vector<std::string>> lists;
    std::map<std::string, std::string> out;

    void add(const std::string &word)
    {
        out[lower(word)] = word;
    }

    void trial(const std::string &word, bool all)
    {
        for (auto &dict : dicts) {
            auto it = dict.find(lower(word));
            if (it == dict.end()) continue;
            add(it->second);
            if (!all) return;
        }
    }

    void neighbours(const std::string &word)
    {
        for (auto &list : lists) {
            if (list.empty()) continue;
            size_t at = 0; // the word, or the last one below it, or the first
            while (at + 1 < list.size() && lower(list[at + 1]) <= lower(word))
                at++;
            if (lower(list[at][0]) == lower(word[0]))
                add(list[at]);
            else if (at + 1 < list.size() && lower(list[at + 1][0]) == lower(word[0]))
                add(list[at + 1]);
        }
    }

    void scan(const std::string &word)
    {
        std::string opening = lower(word.substr(0, 3));
        for (auto &list : lists) {
            size_t at = 0;
            while (at + 1 < list.size() && lower(list[at + 1]) <= opening)
                at++;
            int matched = 32;
            for (at++; at < list.size() && matched >= 3; at++) {
                size_t head = 0;
                while (head < list[at].size() && head < list[at - 1].size() &&
                       list[at][head] == list[at - 1][head])
                    head++;
                if (static_cast<int>(head) > matched + 1) continue;
                bool agree;
                matched = near(list[at], word, &agree);
                if (agree) add(list[at]);
            }
        }
    }

    std::vector<std::string> make(const std::string &word)
    {
        out.clear();
        size_t n = word.size(), m = n < 4 ? n : 3;
        neighbours(word);
        for (size_t i = 0; i + 1 < n; i++) {
            std::string w = word;
            std::swap(w[i], w[i + 1]);
            trial(w, false);
        }
        for (size_t i = 0; n > 1 && i < n; i++)
            trial(word.substr(0, i) + word.substr(i + 1), false);
        for (size_t p = 0; p <= m; p++)
            for (char ch = 'a'; ch <= 'z'; ch++)
                trial(word.substr(0, p) + ch + word.substr(p), true);
        for (size_t p = 1; p <= m; p++)
            for (char ch = 'a'; ch <= 'z'; ch++)
                trial(word.substr(0, p) + ch + (p < n ? word.substr(p + 1) : ""), true);
        if (n >= 4) scan(word);
        std::vector<std::string> words;
        for (auto &entry : out)
            words.push_back(entry.second);
        return words;
    }
};

std::string misspell(std::mt19937 &random, std::string word)
{
    for (uint32_t faults = 1 + below(random, 2); faults; faults--) {
        size_t at = below(random, static_cast<uint32_t>(word.size()));
        char letter = static_cast<char>('a' + below(random, 26));
        switch (below(random, 4)) {
        case 0:
            word[at] = letter;
            break;
        case 1:
            word.insert(at, 1, letter);
            break;
        case 2:
            if (word.size() > 1) word.erase(at, 1);
            break;
        default:
            if (at + 1 < word.size()) std::swap(word[at], word[at + 1]);
        }
    }
    return word.substr(0, WORDLENGTH);
}

} // namespace

TEST_CASE("suggestions agree with a plain telling on real words")
{
    std::vector<std::string> words = realwords(7);
    std::vector<std::string> more = {"Zebra", "BEE", "colouR", "queue", "x"};
    testdict("one", words);
    testdict("two", more);
    retelling told;
    for (uint32_t i = 0; i < 2; i++) {
        told.lists.push_back(testdictwords(i));
        told.dicts.emplace_back();
        for (const std::string &word : told.lists.back())
            told.dicts.back()[lower(word)] = word;
    }
    std::mt19937 random(66);
    size_t total = 0;
    for (int n = 0; n < 300; n++) {
        std::string word =
            misspell(random, words[below(random, static_cast<uint32_t>(words.size()))]);
        guessmake(word.c_str());
        std::vector<std::string> expected = told.make(word), made = guesses();
        std::sort(made.begin(), made.end());
        std::sort(expected.begin(), expected.end());
        CHECK_MESSAGE(made == expected, word);
        total += made.size();
    }
    CHECK(total > 300);
}

TEST_CASE("the capitals of the later dictionary win where both hold the word")
{
    testdict("d", {"cat", "scat"});
    testdict("e", {"CAT"});
    guessmake("cot");
    CHECK(guesses() == std::vector<std::string>{"CAT"});
    for (const std::string &word : {std::string(), std::string(31, 'z'), std::string(32, 'z')}) {
        guessmake(word.c_str());
        CHECK(guesses().empty());
    }
}

TEST_CASE("the last two letters are exchanged too")
{
    testdict("d", {"act", "asp"});
    guessmake("atc"); // which stands behind asp
    CHECK(guesses() == std::vector<std::string>{"act", "asp"});
}

TEST_CASE("the walk stops at unknown words alone")
{
    testdict("d", {"cat", "ice cream", "Toe", std::string(31, 'a')});
    gridset("CAT##xy#\n########\nicecream\n");
    checkstart();
    REQUIRE(checkwalk() == 1);
    CHECK(std::string(spell.checkword) == "xy");
    CHECK(checkwalk() == 0);
    CHECK(checkwalk() == 0);

    gridset("c.t##toe\n");
    checkstart();
    CHECK(checkwalk() == 0); // an unfinished word is passed over

    // The next walk begins at the first word again.
    gridset("qq######\n");
    for (int n = 0; n < 2; n++) {
        checkstart();
        CHECK(checkwalk() == 1);
    }

    gridset(std::string(40, 'a') + "\n");
    checkstart();
    REQUIRE(checkwalk() == 1); // longer than any word can be
    CHECK(std::string(spell.checkword) == std::string(31, 'a'));
    CHECK(guesses().empty());
}

TEST_CASE("short memory loses suggestions and nothing else")
{
    testdict("d", {"bean", "bear", "beard", "cat"});
    guessmake("beaar");
    size_t all = guesses().size();
    CHECK(all > 1);
    for (int32_t n = 0; n < 40; n++) {
        flexfailafter(n);
        guessmake("beaar");
        flexfailafter(-1);
        CHECK(guesses().size() <= all + 1);
    }
}
