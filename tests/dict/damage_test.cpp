// Stores that pass the check of a load and are wrong all the same.

#include "dict/storecheck.h"
#include "tests/dict/exercise.h"
#include "tests/dict/teststore.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

namespace
{

uint8_t *bytes(const Dictionary &dict)
{
    return static_cast<uint8_t *>(dict.words);
}

dictindex *entries(const Dictionary &dict)
{
    return static_cast<dictindex *>(dict.index);
}

// Bytes as they come in a word block: heads, escape codes, letters.
uint8_t somebyte(std::mt19937 *random)
{
    switch ((*random)() % 4) {
    case 0:
        return static_cast<uint8_t>((*random)() % 31);
    case 1:
        return 30;
    default:
        return static_cast<uint8_t>((*random)());
    }
}

void madeblocks(Dictionary *dict, int32_t wordbytes, int32_t noindex)
{
    REQUIRE_FALSE(dictempty(dict));
    REQUIRE_FALSE(flex_extend(&dict->words, wordbytes + 2));
    REQUIRE_FALSE(flex_extend(&dict->index, noindex * static_cast<int32_t>(sizeof(dictindex))));
    memset(dict->words, 0, static_cast<size_t>(wordbytes) + 2);
    memset(dict->index, 0, static_cast<size_t>(noindex) * sizeof(dictindex));
    dict->noindex = static_cast<uint32_t>(noindex);
}

struct madeentry {
    uint32_t woff, wordn;
    const char *letters;
};

// A store that passes the check, of records and entries put together by hand.
void madestore(Dictionary *dict, const std::string &records, uint32_t nwords,
               const std::vector<madeentry> &made)
{
    madeblocks(dict, static_cast<int32_t>(records.size()), static_cast<int32_t>(made.size()));
    memcpy(dict->words, records.data(), records.size());
    dict->nwords = nwords;
    for (size_t n = 0; n < made.size(); n++) {
        entries(*dict)[n] = {made[n].woff, made[n].wordn, {}};
        memcpy(entries(*dict)[n].word, made[n].letters, strlen(made[n].letters));
    }
    REQUIRE_FALSE(storecheck(dict));
}

// Entries anywhere in the block, as many as the rules let stand.
void anyindex(Dictionary *dict, uint32_t recordsend, std::mt19937 *random)
{
    uint32_t woff = 0, wordn = 0, n = 0;
    while (n < dict->noindex && woff < recordsend && wordn < dict->nwords) {
        if (bytes(*dict)[woff] < INDEXLETTERS) {
            entries(*dict)[n] = {woff, wordn, {}};
            for (char &letter : entries(*dict)[n].word)
                letter = static_cast<char>((*random)() % 3 ? 'a' + (*random)() % 26 : 0);
            n++;
            wordn += 1 + (*random)() % 40;
        }
        woff += 1 + (*random)() % 30;
    }
    dict->noindex = n;
}

// What dictverify says of records, an end mark behind them and an entry at the
// first.
std::string verified(const std::vector<uint8_t> &records, uint32_t nwords, int32_t noindex = 1)
{
    Dictionary dict;
    madeblocks(&dict, static_cast<int32_t>(records.size()), noindex);
    if (records.empty()) REQUIRE_FALSE(flex_extend(&dict.words, 0));
    std::copy(records.begin(), records.end(), bytes(dict));
    dict.nwords = nwords;
    for (size_t n = 1; noindex && n < records.size() && n <= 8 && records[n] >= 30; n++)
        entries(dict)[0].word[n - 1] = static_cast<char>(records[n]);
    std::string fault = storefault(dict);
    dictfree(&dict);
    return fault;
}

void exerciseboth(Dictionary *dict, std::mt19937 *random)
{
    REQUIRE_FALSE(storecheck(dict));
    exercisereaders(*dict);
    exerciseedits(dict, random, 30);
    exercisereaders(*dict);
    dictfree(dict);
}

} // namespace

TEST_CASE("any bytes that pass the check are read and edited without harm")
{
    std::mt19937 random(21);
    for (int n = 0; n < 1500; n++) {
        Dictionary dict;
        auto size = static_cast<int32_t>(1 + random() % 600);
        madeblocks(&dict, size, static_cast<int32_t>(1 + random() % 12));
        for (int32_t at = 1; at < size; at++)
            bytes(dict)[at] = somebyte(&random);
        dict.nwords = 1 + random() % (random() % 8 ? 300 : 0xFFFFFFFF);
        anyindex(&dict, static_cast<uint32_t>(size), &random);
        exerciseboth(&dict, &random);
    }
}

// A foreign writer may share fewer letters than there are; an edit shares all.
TEST_CASE("an entry is moved from a record that comes to share 8 letters")
{
    Dictionary dict;
    std::string records;
    for (char last : {'b', 'c', 'd', 'e'})
        records += std::string(1, 0) + "sssssssss" + last;
    madestore(&dict, records, 4, {{0, 0, "ssssssss"}, {22, 2, "ssssssss"}});
    REQUIRE(dictremove("sssssssssc", &dict) == 1);
    CHECK_FALSE(storecheck(&dict));
    CHECK(storewords(dict) == wordlist{"sssssssssb", "sssssssssd", "ssssssssse"});
    dictfree(&dict);
}

// The entry stands at an escaped character, which a walk never meets: no other
// entry may be opened behind it from before it.
TEST_CASE("a span is not split beyond the place of the next entry")
{
    Dictionary dict;
    std::string records;
    uint32_t inside = 0;
    for (int n = 0; n < 200; n++) {
        records += {0, static_cast<char>('b' + n / 20), static_cast<char>('b' + n % 20)};
        if (n != 50) continue;
        records += {30, 3};
        inside = static_cast<uint32_t>(records.size()) - 1;
    }
    madestore(&dict, records, 200, {{0, 0, "bb"}, {inside, 190, "z"}});
    REQUIRE_FALSE(dictadd("bbb", &dict));
    CHECK_FALSE(storecheck(&dict));
    CHECK(dictcount(&dict) == 201);
    dictfree(&dict);
}

// The head of the second is taken for an escape code, and what is behind for
// something else again.
TEST_CASE("neighbours that share 30 letters are misread, and stay loadable")
{
    std::mt19937 random(23);
    for (const char *tail : {"b", "\x1E"}) {
        std::string front(30, 'q');
        front += "a";
        Dictionary dict = {};
        addwords(&dict, {"before", front, "zebra", front.substr(0, 30) + tail});
        CHECK(dictcount(&dict) == 4);
        CHECK(dictword(2, &dict) == std::string("zebra"));
        CHECK(dictword(3, &dict) == std::string());
        CHECK(storefault(dict) != "");
        for (int n = 0; n < 100; n++)
            addwords(&dict, {front.substr(0, random() % 31) + "ab\x1E"[random() % 3]});
        exerciseedits(&dict, &random, 200);
        exerciseboth(&dict, &random);
    }
}

TEST_CASE("the check refuses what would lead out of the blocks, and no more")
{
    teststore s(somewords(676, 18));
    Dictionary &dict = s.dict;
    REQUIRE(dict.noindex > 3);
    auto size = static_cast<uint32_t>(blockbytes(dict.words).size());
    auto refused = [&dict] { return storecheck(&dict) != nullptr; };
    REQUIRE_FALSE(refused());
    for (uint32_t at : {size - 2, size - 1}) {
        bytes(dict)[at] = 'a';
        CHECK(refused());
        bytes(dict)[at] = 0;
    }
    dictindex &last = entries(dict)[dict.noindex - 1], before = (&last)[-1], kept = last;
    for (uint32_t woff : {size - 2, size, 0xFFFFFFFFu, before.woff}) {
        last.woff = woff;
        CHECK(refused());
    }
    last = kept;
    for (uint32_t wordn : {dict.nwords, 0xFFFFFFFFu, before.wordn}) {
        last.wordn = wordn;
        CHECK(refused());
    }
    last = kept;
    uint8_t head = bytes(dict)[kept.woff];
    bytes(dict)[kept.woff] = 8;
    CHECK(refused());
    bytes(dict)[kept.woff] = 7;
    CHECK_FALSE(refused());
    bytes(dict)[kept.woff] = head;
    uint32_t nwords = dict.nwords;
    dict.nwords = 0;
    CHECK(refused());
    dict.nwords = nwords + 1; // as after an insert that ran out of memory
    CHECK_FALSE(refused());
    dict.noindex++;
    CHECK(refused());
    dict.noindex--;
    entries(dict)[0].woff = 1;
    CHECK(refused());
    dict.noindex = 0;
    CHECK_FALSE(refused());
}

TEST_CASE("the check refuses an index without words")
{
    for (int32_t size = 0; size <= 2; size++) {
        Dictionary dict;
        madeblocks(&dict, 0, 1);
        REQUIRE_FALSE(flex_extend(&dict.words, size));
        dict.nwords = 1;
        CHECK(storecheck(&dict));
        dictfree(&dict);
    }
}

TEST_CASE("dictverify tells what is wrong")
{
    CHECK(verified({0, 'a', 1, 'b'}, 2) == "");
    CHECK(verified({0, 'a', 1, 'b'}, 3) == "2 words, the count says 3");
    CHECK(verified({0, 'a', 1, 'b'}, 1) == "2 words, the count says 1");
    CHECK(verified({0, 'b', 0, 'a'}, 2) == "word 1 (a) at 2: not above the one before (b)");
    CHECK(verified({0, 'a', 0, 'A'}, 2) == "word 1 (A) at 2: not above the one before (a)");
    CHECK(verified({0, 'a', 'b', 0, 'a', 'c'}, 2) == "word 1 (ac) at 3: prefix count 0, shares 1");
    CHECK(verified({0, 'a', 2, 'c'}, 2) == "word 1 (a) at 2: prefix count 2, shares 1");
    CHECK(verified({0, 'a', 1, 1, 'b'}, 3) == "word 1: no record at 2");
    CHECK(verified({1, 'a'}, 1) == "word 0 () at 0: prefix count 1, shares 0");
    std::vector<uint8_t> record(33, 'x');
    record[0] = 0;
    CHECK(verified(record, 1) == "word 0 at 0: too long");
    CHECK(verified({}, 0, 0) == "");
    CHECK(verified({}, 1, 0) == "1 words without an index");
    CHECK(verified({0, 'a'}, 1, 0) == "1 words without an index");
}

// The index can't be wrong anywhere without being found out.
TEST_CASE("any change of a byte of the index is told")
{
    teststore s(somewords(600, 4));
    Dictionary &dict = s.dict;
    REQUIRE(dict.noindex > 2);
    CHECK(storefault(dict) == "");
    CHECK(dictcheck(&dict) == static_cast<int32_t>(dict.noindex));
    for (size_t at = 0; at < dict.noindex * sizeof(dictindex); at++) {
        uint8_t *byte = static_cast<uint8_t *>(dict.index) + at;
        *byte ^= 4;
        CHECK((storecheck(&dict) || storefault(dict) != ""));
        *byte ^= 4;
    }
}
