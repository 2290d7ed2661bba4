#include "tests/dict/blockmodel.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <sstream>
#include <unordered_map>

namespace
{

// Runs of groups of letters, each a first code and the texts from there on.
constexpr const char *GROUPTEXTS =
    "31 ng ss ess on er ed le ion 40 te ble al es ce 46 nt us 58 tion an ate ic ty ent ies "
    "91 se able ne ation re nce 123 st ing ous ge de ly nd ity rd ck sm ry sh en ar ia in ter ul "
    "ted lity ch ility bility ard lly ence is et ve um ct ance me ine ht ay tic ad ll ian ip cal "
    "ght el and ries ication ant cy age at th ial ious id ke ire one ish ive logy ness ogical il "
    "own ties it ue";

struct modelcode {
    char code;
    std::string text;
};

// In the order in which they are tried: the groups, then the characters that
// are codes themselves.
std::vector<modelcode> makecodes()
{
    std::vector<modelcode> codes;
    std::istringstream groups(GROUPTEXTS);
    int code = 0;
    for (std::string item; groups >> item;)
        if (item[0] <= '9')
            code = std::stoi(item);
        else
            codes.push_back({static_cast<char>(code++), item});
    for (int ch = 0; ch < 256; ch++)
        if (ch == '\'' || ch == '-' || (ch < 128 && std::isalnum(ch)) || ch >= 192)
            codes.push_back({static_cast<char>(ch), std::string(1, static_cast<char>(ch))});
    return codes;
}

size_t shared(const std::string &a, const std::string &b)
{
    size_t n = 0;
    while (n < a.size() && n < b.size() && a[n] == b[n])
        n++;
    return n;
}

size_t head(const blockmodel &model, size_t n)
{
    return n ? shared(model.words[n - 1].text, model.words[n].text) : 0;
}

// The first code that stands for all of rest; or else for a part of it at its front.
const modelcode *findcode(const std::string &rest)
{
    static const std::vector<modelcode> codes = makecodes();
    const modelcode *front = nullptr;
    for (const modelcode &code : codes) {
        if (code.text == rest) return &code;
        if (!front && rest.starts_with(code.text)) front = &code;
    }
    return front;
}

// The codes of a record's letters. Most endings come again and again.
const std::string &codesof(const std::string &letters)
{
    static std::unordered_map<std::string, std::string> known;
    if (known.size() > 50000) known.clear(); // a fuzzer runs for hours
    auto [place, fresh] = known.try_emplace(letters);
    std::string &codes = place->second, rest = letters;
    while (fresh && !rest.empty()) {
        const modelcode *found = findcode(rest);
        codes += found ? found->code : 30;
        if (!found) codes += rest[0];
        rest.erase(0, found ? found->text.size() : 1);
    }
    return codes;
}

// The last entry at or before a word.
size_t entryat(const blockmodel &model, uint32_t n)
{
    auto behind = std::upper_bound(model.entries.begin(), model.entries.end(), n);
    return static_cast<size_t>(behind - model.entries.begin()) - 1;
}

uint32_t spanend(const blockmodel &model, size_t entry, uint32_t count)
{
    return entry + 1 < model.entries.size() ? model.entries[entry + 1] : count;
}

void remove(blockmodel *model, size_t entry)
{
    model->entries.erase(model->entries.begin() + static_cast<std::ptrdiff_t>(entry));
}

// Moves an entry to the first record that may carry one; false if it had to go.
bool settle(blockmodel *model, size_t entry, uint32_t count)
{
    uint32_t n = model->entries[entry], end = spanend(*model, entry, count);
    while (head(*model, n) >= 8)
        if (++n >= end) {
            remove(model, entry);
            return false;
        }
    model->entries[entry] = n;
    return true;
}

void split(blockmodel *model, size_t entry, uint32_t count)
{
    uint32_t first = model->entries[entry], end = spanend(*model, entry, count);
    if (end - first < 128) return;
    for (uint32_t n = first + (end - first) / 2; n < end; n++)
        if (head(*model, n) < 8) {
            model->entries.insert(model->entries.begin() + static_cast<std::ptrdiff_t>(entry) + 1,
                                  n);
            return;
        }
}

void merge(blockmodel *model, size_t entry)
{
    if (entry < 1) return;
    uint32_t n = model->entries[entry];
    auto count = static_cast<uint32_t>(model->words.size());
    if (n - model->entries[entry - 1] < 64 || spanend(*model, entry, count) - n < 64)
        remove(model, entry);
}

// Word n is new. While the entries settle and split, the store still counts one
// word less.
void entriesadd(blockmodel *model, uint32_t n)
{
    auto count = static_cast<uint32_t>(model->words.size()) - 1;
    if (count == 0) {
        model->entries = {0};
        return;
    }
    size_t entry = entryat(*model, n ? n - 1 : 0);
    bool shifted = n && entry + 1 < model->entries.size() && model->entries[entry + 1] == n;
    for (size_t i = entry + 1; i < model->entries.size(); i++)
        model->entries[i]++;
    if (shifted) settle(model, entry + 1, count);
    split(model, entry, count);
}

// Word n is gone from the words.
void entriesremove(blockmodel *model, uint32_t n)
{
    auto count = static_cast<uint32_t>(model->words.size());
    size_t entry = entryat(*model, n);
    bool carried = model->entries[entry] == n;
    for (size_t i = entry + 1; i < model->entries.size(); i++)
        model->entries[i]--;
    bool nextcarried = entry + 1 < model->entries.size() && model->entries[entry + 1] == n;
    if (n == count && carried) { // it was the last
        remove(model, entry);
    } else if (carried && nextcarried) {
        remove(model, entry);
        settle(model, entry, count);
    } else {
        if (nextcarried) settle(model, entry + 1, count);
        if (n == count || !carried || settle(model, entry, count)) merge(model, entry);
    }
}

std::string modelkey(std::string word)
{
    static const std::string lowers = "'- !0123456789abcde\xE9"
                                      "fghijklmnopqrstuvwxyz";
    static const std::string uppers = "'- !0123456789ABCDE\xC9"
                                      "FGHIJKLMNOPQRSTUVWXYZ";
    for (char &ch : word)
        ch = static_cast<char>('A' + std::min(lowers.find(ch), uppers.find(ch)));
    return word;
}

std::string record(const blockmodel &model, size_t n)
{
    size_t count = head(model, n);
    return static_cast<char>(count) + codesof(model.words[n].text.substr(count));
}

} // namespace

size_t blockplace(const blockmodel &model, const std::string &word, bool *there)
{
    const std::string key = modelkey(word);
    auto place = std::ranges::lower_bound(model.words, key, {}, &modelword::key);
    *there = place != model.words.end() && place->key == key;
    return static_cast<size_t>(place - model.words.begin());
}

void blockadd(blockmodel *model, const std::string &word)
{
    bool there;
    size_t n = blockplace(*model, word, &there);
    if (there && model->words[n].text == word) return;
    if (there) blockremove(model, word);
    model->words.insert(model->words.begin() + static_cast<std::ptrdiff_t>(n),
                        {word, modelkey(word)});
    entriesadd(model, static_cast<uint32_t>(n));
}

bool blockremove(blockmodel *model, const std::string &word)
{
    bool there;
    size_t n = blockplace(*model, word, &there);
    if (!there) return false;
    model->words.erase(model->words.begin() + static_cast<std::ptrdiff_t>(n));
    entriesremove(model, static_cast<uint32_t>(n));
    return true;
}

std::string modelwords(const blockmodel &model)
{
    std::string bytes;
    for (size_t n = 0; n < model.words.size(); n++)
        bytes += record(model, n);
    return bytes.empty() ? bytes : bytes + std::string(2, 0);
}

std::string modelindex(const blockmodel &model)
{
    std::string bytes;
    size_t n = 0, woff = 0;
    for (uint32_t entry : model.entries) {
        for (; n < entry; n++)
            woff += record(model, n).size();
        for (size_t number : {woff, n})
            for (int shift = 0; shift < 32; shift += 8)
                bytes += static_cast<char>(number >> shift);
        std::string letters = model.words[n].text.substr(0, 8);
        letters.resize(8);
        bytes += letters;
    }
    return bytes;
}
