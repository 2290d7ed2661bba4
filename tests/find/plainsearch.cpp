#include "tests/find/plainsearch.h"

#include <algorithm>
#include <map>

namespace
{

// The letters of the word that the text hasn't got must be no more than its
// wildcards.
bool anagram(const std::string &word, const std::string &text)
{
    std::string rest = lower(text);
    auto missing = 0;
    for (char ch : lower(word)) {
        size_t at = ch == '*' ? std::string::npos : rest.find(ch);
        if (at == std::string::npos)
            missing++;
        else
            rest.erase(at, 1);
    }
    return word.size() == text.size() && missing == std::count(rest.begin(), rest.end(), '*');
}

// How far the stored word was matched. The next letters decide greedily whether
// a letter of one of them is skipped, once each, or one is replaced.
int near(const std::string &stored, const std::string &sought, bool *agree)
{
    size_t a = 0, b = 0;
    int matched = 0;
    bool skippeda = false, skippedb = false;
    for (;;) {
        *agree = a == stored.size() && b == sought.size();
        if (*agree) return matched;
        if (lower(stored[a]) == lower(sought[b])) {
            a++, b++, matched++;
        } else if (!skippeda && a < stored.size() && stored[a + 1] == sought[b]) {
            skippeda = true, a++, matched++;
        } else if (!skippedb && b < sought.size() && sought[b + 1] == stored[a]) {
            skippedb = true, b++;
        } else if (skippeda || skippedb) {
            return matched;
        } else {
            matched++;
            if (a == stored.size() || b == sought.size()) return matched;
            skippeda = skippedb = true, a++, b++;
        }
    }
}

// By their lower-case form, of which the last one added stays.
using suggestions = std::map<std::string, std::string>;

// The place of a word, or of the last one below it, or of the first.
size_t placeof(const plaindict &dict, const std::string &word)
{
    auto above = std::upper_bound(dict.lowers.begin(), dict.lowers.end(), word);
    return static_cast<size_t>(std::max<std::ptrdiff_t>(above - dict.lowers.begin() - 1, 0));
}

void trial(const std::string &word, bool all, suggestions *out)
{
    for (const plaindict &dict : plaindicts) {
        if (dict.words.empty()) continue;
        size_t at = placeof(dict, word);
        if (dict.lowers[at] != word) continue;
        (*out)[word] = dict.words[at];
        if (!all) return;
    }
}

void neighbours(const std::string &word, suggestions *out)
{
    for (const plaindict &dict : plaindicts)
        for (size_t at = placeof(dict, word), end = at + 2; at < end && at < dict.words.size();
             at++)
            if (dict.lowers[at][0] == word[0]) {
                (*out)[dict.lowers[at]] = dict.words[at];
                break;
            }
}

// From the opening on. A word that shares more with a rejected one than that had
// in common with the sought one is passed over.
void nearmatches(const std::string &word, suggestions *out)
{
    for (const plaindict &dict : plaindicts) {
        int matched = 32;
        for (size_t at = placeof(dict, word.substr(0, 3)) + 1;
             at < dict.words.size() && matched >= 3; at++) {
            const std::string &stored = dict.words[at], &before = dict.words[at - 1];
            auto end = std::mismatch(stored.begin(), stored.end(), before.begin(), before.end());
            if (end.first - stored.begin() > matched + 1) continue;
            bool agree;
            matched = near(stored, word, &agree);
            if (agree) (*out)[dict.lowers[at]] = stored;
        }
    }
}

} // namespace

std::vector<wordref> plainanagram(const std::string &text, int32_t limit)
{
    std::vector<wordref> found;
    for (const plaindict &dict : plaindicts)
        for (uint32_t n = 0; n < dict.words.size(); n++)
            if (static_cast<int32_t>(found.size()) <= limit && anagram(dict.words[n], text))
                found.push_back(makewordref(dict.number, n));
    return found;
}

wordlist plainguess(const std::string &word)
{
    suggestions out;
    size_t n = word.size(), last = n < 4 ? n : 3;
    neighbours(word, &out);
    for (size_t i = 0; i + 1 < n; i++)
        trial(word.substr(0, i) + word[i + 1] + word[i] + word.substr(i + 2), false, &out);
    for (size_t i = 0; n > 1 && i < n; i++)
        trial(word.substr(0, i) + word.substr(i + 1), false, &out);
    for (size_t at = 0; at <= last; at++)
        for (char ch = 'a'; ch <= 'z'; ch++)
            trial(word.substr(0, at) + ch + word.substr(at), true, &out);
    for (size_t at = 1; at <= last; at++)
        for (char ch = 'a'; ch <= 'z'; ch++)
            trial(word.substr(0, at) + ch + (at < n ? word.substr(at + 1) : ""), true, &out);
    if (n >= 4) nearmatches(word, &out);
    wordlist words;
    for (const auto &[folded, stored] : out)
        words.push_back(stored);
    return words;
}
