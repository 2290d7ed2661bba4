// Dictionary files, what a load refuses, and stores that pass and are wrong all
// the same.

#include "dict/dictfile.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/platformfault.h"
#include "dict/dictverify.h"
#include "dict/storecheck.h"
#include "tests/dict/teststore.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace std::string_literals;

namespace
{

errorblock *load(const char *name, Dictionary *dict)
{
    return dictload(scratchfolder().c_str(), name, dict);
}

errorblock *save(const char *name, const Dictionary &dict)
{
    return dictsave(scratchfolder().c_str(), name, &dict);
}

// The bytes of a file that a save writes.
std::string saved(const Dictionary &dict)
{
    REQUIRE_FALSE(save("saved", dict));
    return getfile(scratch("saved.dic"));
}

std::string number(size_t n)
{
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(n >> shift);
    return bytes;
}

std::string padded(const std::string &text, size_t size)
{
    return text + std::string(size - text.size(), 0);
}

std::string framed(const std::string &block)
{
    std::string whole = number(block.size() + 20);
    return number(0) + whole + whole + number(0) + whole + block;
}

std::string madefile(size_t nwords, const std::string &words, size_t noindex,
                     const std::string &index)
{
    return padded("Quillmere Dictionary", 24) + padded("1.00", 8) + padded("(16-Mar-2002)", 64) +
           std::string(160, 0) + number(nwords) + number(noindex) + framed(words) + framed(index);
}

// Of nation, national and nations.
std::string workedfile()
{
    return madefile(3, std::string("\0n\x5E\6*\6s\0\0", 9), 1,
                    number(0) + number(0) + "nation\0\0"s);
}

// The code of the error that loading some bytes gives, or 0. After an error
// both counts are 0.
uint32_t loadcode(const std::string &bytes, Dictionary *dict)
{
    putfile(scratch("bytes.dic"), bytes);
    errorblock *err = load("bytes", dict);
    if (err) CHECK((dictcount(dict) == 0 && dict->noindex == 0));
    return err ? err->code : 0;
}

uint32_t loadcode(const std::string &bytes)
{
    Dictionary dict = {};
    uint32_t code = loadcode(bytes, &dict);
    dictfree(&dict);
    return code;
}

} // namespace

TEST_CASE("files are what the format says, byte for byte, and come back")
{
    teststore nothing, worked({"nation", "national", "nations"}), s(somewords(3000, 3));
    CHECK(saved(nothing.dict) == madefile(0, "", 0, ""));
    CHECK(saved(worked.dict) == workedfile());
    Dictionary again = {};
    for (const Dictionary *dict : {&s.dict, &s.dict, &nothing.dict}) { // one over the other
        CHECK(loadcode(saved(*dict), &again) == 0);
        CHECK((again.nwords == dict->nwords && saved(again) == saved(*dict)));
    }
    addwords(&again, {"first"});
    CHECK(storefault(again) == "");

    // A count that went up without words, for want of memory, is not for the file.
    uint32_t room = (static_cast<uint32_t>(blockbytes(again.words).size()) - 2) / 2;
    again.nwords = room + 7;
    CHECK(saved(again).substr(256, 4) == number(room));
    CHECK(loadcode(saved(again).replace(256, 4, number(room + 1))) == ECR);
    dictfree(&again);
}

TEST_CASE("the header: an old version and unknown features are refused, the rest is not looked at")
{
    const struct {
        size_t at;
        std::string bytes;
        uint32_t code;
    } rows[] = {
        {24, "0.99", EDCOLD},          {24, "1.10", 0},
        {96, "\x80", EDCAPS},          {24, "0.99" + std::string(68, 0) + "\1", EDCAPS},
        {32, std::string(64, 'x'), 0}, {264, "xxxx", 0}, // nor at a frame but for its size
        {268, number(0), ERRORREAD}, // sizes beyond the file, before memory is asked for
        {268, number(19), ERRORREAD},  {297, number(0x80000014), ERRORREAD},
    };
    std::string good = workedfile();
    CHECK((loadcode(good) == 0 && loadcode(good + "more") == 0));
    for (const auto &[at, bytes, code] : rows)
        CHECK_MESSAGE(loadcode(std::string(good).replace(at, bytes.size(), bytes)) == code, at);
}

// Whatever else may be in a file is for the fuzz target.
TEST_CASE("a file that is cut short or altered anywhere is refused, or its store is sound")
{
    teststore s(somewords(200, 10));
    std::string good = saved(s.dict);
    Dictionary dict = {};
    std::mt19937 random(17);
    int refused = 0;
    for (size_t at = 0; at < good.size(); at++) {
        REQUIRE(loadcode(good.substr(0, at)) == ERRORREAD);
        if (at < 256) continue;
        std::string bytes = good;
        bytes[at] = static_cast<char>(random() % 2 ? random() % 31 : random() % 256);
        uint32_t code = loadcode(bytes, &dict);
        REQUIRE((code == 0 || code == ECR || code == ERRORREAD));
        refused += code != 0;
        REQUIRE_FALSE(dictadd("nation", &dict));
        REQUIRE_FALSE(storecheck(&dict));
    }
    CHECK(refused > 10); // what is wrong in the index alone is mended
    dictfree(&dict);
}

TEST_CASE("dictverify tells what is wrong")
{
    const struct {
        std::string records;
        const char *letters; // of the entry
        uint32_t nwords;
        const char *fault;
    } rows[] = {
        {"\0a\1b"s, "a", 2, ""},
        {"\0a\1b"s, "a", 3, "2 words, the count says 3"},
        {"\0b\0a"s, "b", 2, "word 1 (a) at 2: not above the one before (b)"},
        {"\0ab\0ac"s, "ab", 2, "word 1 (ac) at 3: prefix count 0, shares 1"},
        {"\0a\2c"s, "a", 2, "word 1 (a) at 2: prefix count 2, shares 1"},
        {"\0a\1\1b"s, "a", 3, "word 1: no record at 2"},
        {"\1a"s, "", 1, "word 0 () at 0: prefix count 1, shares 0"},
        {'\0' + std::string(32, 'x'), "xxxxxxxx", 1, "word 0 at 0: too long"},
    };
    for (const auto &[records, letters, nwords, fault] : rows) {
        std::string words = records + "\0\0"s, index = number(0) + number(0) + padded(letters, 8);
        Dictionary dict = {.nwords = nwords, .noindex = 1, .index = nullptr, .words = nullptr};
        REQUIRE_FALSE(flex_alloc(&dict.words, static_cast<int32_t>(words.size())));
        REQUIRE_FALSE(flex_alloc(&dict.index, static_cast<int32_t>(index.size())));
        memcpy(dict.words, words.data(), words.size());
        memcpy(dict.index, index.data(), index.size());
        CHECK(storefault(dict) == fault);
        dictfree(&dict);
    }
    teststore s(somewords(600, 4));
    CHECK((dictcheck(&s.dict) == static_cast<int32_t>(s.dict.noindex) && s.dict.noindex > 2));
    for (size_t at = 0; at < s.dict.noindex * sizeof(dictindex); at++) { // no byte is free
        uint8_t *byte = static_cast<uint8_t *>(s.dict.index) + at;
        *byte ^= 4;
        CHECK((storecheck(&s.dict) || storefault(s.dict) != ""));
        *byte ^= 4;
    }
}

TEST_CASE("a load without memory or with read errors leaves no words, a failed save the old file")
{
    Dictionary dict = {};
    uint32_t failed = ERRORMEMORY;
    for (int32_t n = 0; failed == ERRORMEMORY; n++) {
        flexfailafter(n);
        failed = loadcode(workedfile(), &dict);
        flexfailafter(-1);
    }
    CHECK(failed == 0);
    teststore s(somewords(25000, 14)); // some buffers
    std::string old = saved(teststore({"old"}).dict), large = saved(s.dict);
    errorblock *err = nullptr;
    int32_t n = 0;
    do {
        platformfault.reads = n++;
        err = load("saved", &dict);
        platformfault = {};
        CHECK(dictcount(&dict) == (err ? 0 : dictcount(&s.dict)));
    } while (err);
    CHECK((n > 2 && storefault(dict) == ""));
    dictfree(&dict);
    putfile(scratch("saved.dic"), old);
    platformfault.space = 40000;
    CHECK(save("saved", s.dict) != nullptr);
    platformfault = {};
    CHECK(getfile(scratch("saved.dic")) == old);
    const std::string toolong(300, 'n');
    CHECK((save(toolong.c_str(), s.dict) && load(toolong.c_str(), &s.dict)));
    CHECK((load("nosuchfile", &s.dict) && saved(s.dict) == large)); // as it was
}
