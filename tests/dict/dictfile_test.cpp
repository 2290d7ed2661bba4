#include "dict/dictfile.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/platformfault.h"
#include "tests/dict/exercise.h"
#include "tests/dict/teststore.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

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

std::string filebytes(const char *name)
{
    return fileget(scratch(name) + ".dic");
}

// The bytes of a file that a save writes.
std::string savedbytes(const wordlist &words)
{
    teststore s(words);
    REQUIRE_FALSE(save("saved", s.dict));
    return filebytes("saved");
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

bool nowords(const Dictionary &dict)
{
    return dictcount(&dict) == 0 && dict.noindex == 0;
}

// The code of the error that loading some bytes gives, or 0. After an error
// both counts are 0, and nothing is left behind.
uint32_t loadcode(const std::string &bytes)
{
    Dictionary dict = {};
    fileput(scratch("bytes.dic"), bytes);
    errorblock *err = load("bytes", &dict);
    uint32_t code = err ? err->code : 0;
    if (err) CHECK(nowords(dict));
    dictfree(&dict);
    return code;
}

std::string workedfile()
{
    return madefile(3, std::string("\0n\x5E\6*\6s\0\0", 9), 1,
                    number(0) + number(0) + padded("nation", 8));
}

} // namespace

TEST_CASE("files are what the format says, byte for byte")
{
    CHECK(savedbytes({}) == madefile(0, "", 0, ""));
    CHECK(savedbytes({"nation", "national", "nations"}) == workedfile());
}

TEST_CASE("a dictionary comes back as it was saved")
{
    teststore s(somewords(3000, 3)), nothing;
    Dictionary again = {};
    REQUIRE_FALSE(save("saved", s.dict));
    for (int n = 0; n < 2; n++) { // the second time over the first
        REQUIRE_FALSE(load("saved", &again));
        CHECK(again.nwords == s.dict.nwords);
        CHECK(blockbytes(again.words) == blockbytes(s.dict.words));
        CHECK(blockbytes(again.index) == blockbytes(s.dict.index));
    }
    REQUIRE_FALSE(save("empty", nothing.dict));
    REQUIRE_FALSE(load("empty", &again));
    CHECK(dictcount(&again) == 0);
    CHECK(blockbytes(again.words).empty());
    addwords(&again, {"first"});
    CHECK(storefault(again) == "");
    dictfree(&again);
}

TEST_CASE("the header: an old version and unknown features are refused, the rest is not looked at")
{
    std::string good = workedfile();
    CHECK(loadcode(good) == 0);
    auto with = [&good](size_t at, const std::string &bytes) {
        return std::string(good).replace(at, bytes.size(), bytes);
    };
    CHECK(loadcode(with(24, "0.99")) == EDCOLD);
    CHECK(loadcode(with(24, std::string(8, 0))) == EDCOLD);
    CHECK(loadcode(with(24, "1.10")) == 0);
    CHECK(loadcode(with(24, "1.00beta")) == 0);
    CHECK(loadcode(with(24, "\xFF")) == 0);
    for (size_t at = 96; at < 100; at++)
        CHECK(loadcode(with(at, "\x80")) == EDCAPS);
    CHECK(loadcode(std::string(with(24, "0.99")).replace(96, 1, "\1")) == EDCAPS);
    CHECK(loadcode(with(0, "Somebody else's words..")) == 0);
    CHECK(loadcode(with(32, std::string(64, 'x'))) == 0);
    CHECK(loadcode(with(100, std::string(156, 'x'))) == 0);
    for (size_t at : {264, 272, 276, 280, 293, 301, 305, 309})
        CHECK(loadcode(with(at, "\x55")) == 0);
    CHECK(loadcode(good + "more") == 0);
}

TEST_CASE("a file cut short anywhere is a read error")
{
    std::string good = savedbytes(somewords(150, 9));
    for (size_t size = 0; size < good.size(); size++)
        REQUIRE(loadcode(good.substr(0, size)) == ERRORREAD);
}

TEST_CASE("sizes beyond the file are a read error, before memory is asked for")
{
    std::string good = workedfile();
    for (size_t at : {268u, 297u})
        for (uint32_t size : {0u, 19u, 60u, 0x7FFFFFFFu, 0x80000013u, 0x80000014u, 0xFFFFFFFFu})
            CHECK(loadcode(std::string(good).replace(at, 4, number(size))) == ERRORREAD);
}

TEST_CASE("a file with any byte altered is refused, or does no harm")
{
    Dictionary dict = {};
    std::mt19937 random(17);
    std::string good = savedbytes(somewords(200, 10));
    int refused = 0;
    for (size_t at = 256; at < good.size(); at++) {
        std::string bytes = good;
        bytes[at] = static_cast<char>(random() % 2 ? random() % 31 : random() % 256);
        fileput(scratch("altered.dic"), bytes);
        errorblock *err = load("altered", &dict);
        if (err) {
            REQUIRE((err->code == ECR || err->code == ERRORREAD));
            REQUIRE(nowords(dict));
            refused++;
        }
        exercisereaders(dict);
        exerciseedits(&dict, &random, 10);
    }
    CHECK(refused > 10); // most of those in the index are mended
    CHECK(loadcode(good.replace(264 + 8 + 12, 1, "\x08")) == ECR);
    dictfree(&dict);
}

TEST_CASE("what can't be opened leaves the dictionary as it was")
{
    teststore s({"word"});
    const std::string toolong(300, 'n');
    CHECK(load("nosuchfile", &s.dict) != nullptr);
    errorblock *err = load(toolong.c_str(), &s.dict);
    REQUIRE(err);
    CHECK(err->code == ERRORMAXSTRING);
    CHECK(dictcount(&s.dict) == 1);
    CHECK(dictsave(scratch("nosuchfolder").c_str(), "x", &s.dict) != nullptr);
    CHECK(save(toolong.c_str(), s.dict) != nullptr);
}

TEST_CASE("a load without memory leaves no words, at every allocation")
{
    Dictionary dict = {};
    fileput(scratch("sweep.dic"), workedfile());
    for (int32_t n = 0;; n++) {
        flexfailafter(n);
        errorblock *err = load("sweep", &dict);
        flexfailafter(-1);
        if (!err) break;
        CHECK(err->code == ERRORMEMORY);
        CHECK(nowords(dict));
        CHECK(n < 20);
        exercisereaders(dict);
    }
    CHECK(dictcount(&dict) == 3);
    dictfree(&dict);
}

TEST_CASE("a load that meets read errors leaves no words")
{
    teststore s(somewords(12000, 14)); // more than a buffer
    REQUIRE_FALSE(save("reads", s.dict));
    for (int32_t n = 0;; n++) {
        platformfault.reads = n;
        errorblock *err = load("reads", &s.dict);
        platformfault = {};
        if (!err) break;
        CHECK(nowords(s.dict));
        CHECK(n < 50);
    }
    platformfault.readlimit = 1000;
    CHECK_FALSE(load("reads", &s.dict));
    platformfault = {};
    CHECK(storefault(s.dict) == "");
}

TEST_CASE("a save that fails is told, and keeps the file of before")
{
    teststore s({"old"});
    REQUIRE_FALSE(save("kept", s.dict));
    std::string old = filebytes("kept");
    addwords(&s.dict, somewords(14000, 15));
    auto fails = [&s, &old] {
        errorblock *err = save("kept", s.dict);
        platformfault = {};
        if (err) CHECK(filebytes("kept") == old);
        return err != nullptr;
    };
    for (int32_t space : {0, 1, 255, 300, 40000}) {
        platformfault.space = space;
        CHECK(fails());
    }
    CHECK_FALSE(fails());
    CHECK(filebytes("kept") != old);
}
