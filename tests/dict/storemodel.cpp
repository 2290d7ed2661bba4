#include "tests/dict/storemodel.h"

#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>

namespace
{

// Runs of codes, each a first code and the texts from there on.
constexpr const char *GROUPTEXTS =
    "31 ng ss ess on er ed le ion 40 te ble al es ce 46 nt us 58 tion an ate ic ty ent ies "
    "91 se able ne ation re nce 123 st ing ous ge de ly nd ity rd ck sm ry sh en ar ia in ter ul "
    "ted lity ch ility bility ard lly ence is et ve um ct ance me ine ht ay tic ad ll ian ip cal "
    "ght el and ries ication ant cy age at th ial ious id ke ire one ish ive logy ness ogical il "
    "own ties it ue";

std::vector<std::string> maketexts()
{
    std::vector<std::string> texts(256);
    for (const char *range : {"''", "--", "09", "AZ", "az", "\xC0\xFF"})
        for (int ch = static_cast<uint8_t>(range[0]); ch <= static_cast<uint8_t>(range[1]); ch++)
            texts[static_cast<size_t>(ch)] = std::string(1, static_cast<char>(ch));
    std::istringstream groups(GROUPTEXTS);
    std::string item;
    size_t code = 0;
    while (groups >> item) {
        if (std::isdigit(static_cast<unsigned char>(item[0])))
            code = std::stoul(item);
        else
            texts[code++] = item;
    }
    return texts;
}

std::string indexfault(const Dictionary &dict, const std::vector<storedword> &words)
{
    if (dict.noindex * sizeof(dictindex) != blockbytes(dict.index).size())
        return "the index block has another size than its entries";
    if (dict.noindex == 0) return words.empty() ? "" : "words without an index";
    const auto *entries = static_cast<const dictindex *>(dict.index);
    if (entries[0].wordn || entries[0].woff) return "entry 0 is not the first word's";
    for (uint32_t i = 0; i < dict.noindex; i++) {
        std::string entry = "entry " + std::to_string(i);
        if (i && entries[i].wordn <= entries[i - 1].wordn) return entry + " out of order";
        if (entries[i].wordn >= words.size()) return entry + " beyond the words";
        const storedword &word = words[entries[i].wordn];
        if (entries[i].woff != word.woff) return entry + " off its record";
        if (word.head >= 8) return entry + " at a head of 8 or more";
        std::string letters = word.text.substr(0, 8);
        letters.resize(8);
        if (letters != std::string(entries[i].word, 8)) return entry + " with other letters";
    }
    return "";
}

std::vector<std::string> syllablewords()
{
    MESSAGE("no data folder: words made of syllables stand in for a real list");
    const char *syllables[] = {"ba",  "ter", "ing", "co", "re",  "sta", "le",  "nt", "o",
                               "ski", "Mac", "e",   "un", "ous", "th",  "ati", "on", "s"};
    std::vector<std::string> words;
    for (const char *a : syllables)
        for (const char *b : syllables)
            for (const char *c : syllables)
                for (const char *d : syllables)
                    words.push_back(std::string(a) + b + c + d);
    return words;
}

} // namespace

std::string modelkey(const std::string &word)
{
    static const std::string lower = "'- 0123456789abcde\xE9"
                                     "fghijklmnopqrstuvwxyz";
    static const std::string upper = "'- 0123456789ABCDE\xC9"
                                     "FGHIJKLMNOPQRSTUVWXYZ";
    std::string key;
    for (char ch : word) {
        size_t place = std::min(lower.find(ch), upper.find(ch));
        key += static_cast<char>('A' + place);
    }
    return key;
}

const std::vector<std::string> &codetexts()
{
    static const std::vector<std::string> texts = maketexts();
    return texts;
}

std::vector<storedword> decodestore(const Dictionary &dict)
{
    const std::vector<std::string> &texts = codetexts();
    std::vector<storedword> words;
    std::string bytes = blockbytes(dict.words), text;
    auto byte = [&bytes](size_t at) { return static_cast<uint8_t>(bytes.at(at)); };
    size_t at = 0;
    while (at + 2 < bytes.size()) {
        storedword word = {"", static_cast<uint32_t>(at), byte(at)};
        text.resize(std::min<size_t>(text.size(), word.head));
        for (at++; byte(at) >= 30; at++)
            text += byte(at) == 30 ? std::string(1, bytes.at(++at)) : texts[byte(at)];
        word.text = text;
        words.push_back(word);
    }
    return words;
}

std::string storefault(const Dictionary &dict)
{
    std::string bytes = blockbytes(dict.words);
    std::vector<storedword> words = decodestore(dict);
    if (words.empty()) return bytes.empty() ? indexfault(dict, words) : "bytes without words";
    if (bytes.substr(bytes.size() - 2) != std::string(2, 0)) return "no end mark";
    if (words.back().woff + 2 >= bytes.size()) return "a record in the end mark";
    if (words.size() != dict.nwords) return "another count than words";
    for (size_t n = 0; n < words.size(); n++) {
        const std::string &text = words[n].text;
        std::string before = n ? words[n - 1].text : "";
        auto split = std::mismatch(text.begin(), text.end(), before.begin(), before.end());
        if (static_cast<size_t>(split.first - text.begin()) != words[n].head)
            return "word " + std::to_string(n) + " with another head than letters shared";
        if (text.empty() || text.size() > 31) return "a word of no length for one";
        if (n && modelkey(before) >= modelkey(text)) return "word " + text + " out of order";
    }
    return indexfault(dict, words);
}

std::string blockbytes(const flexptr &anchor)
{
    int32_t size = 0;
    if (anchor) flex_size(&anchor, &size);
    return std::string(static_cast<const char *>(anchor), static_cast<size_t>(size));
}

std::vector<std::string> somewords(size_t most, uint32_t seed)
{
    std::vector<std::string> words;
    std::ifstream file(datafile("Puzzle-UK.txt"));
    for (std::string line; std::getline(file, line);) {
        while (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
            line.pop_back();
        if (!line.empty() && line.size() < 31) words.push_back(line);
    }
    if (words.empty()) words = syllablewords();
    std::shuffle(words.begin(), words.end(), std::mt19937(seed));
    if (words.size() > most) words.resize(most);
    return words;
}
