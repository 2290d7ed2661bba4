#include "dict/dictfile.h"

#include "base/bfile.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/platformfault.h"
#include "dict/dictverify.h"
#include "tests/dict/exercise.h"
#include "tests/dict/storemodel.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <cstring>
#include <fstream>
#include <iterator>

namespace
{

std::string filepath(const char *name)
{
    return scratchfolder() + "/" + name + ".dic";
}

std::string fileread(const char *name)
{
    std::ifstream file(filepath(name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void filewrite(const char *name, const std::string &bytes)
{
    std::ofstream(filepath(name), std::ios::binary) << bytes;
}

errorblock *load(const char *name, Dictionary *dict)
{
    return dictload(scratchfolder().c_str(), name, dict);
}

errorblock *save(const char *name, const Dictionary &dict)
{
    return dictsave(scratchfolder().c_str(), name, &dict);
}

void fill(Dictionary *dict, const std::vector<std::string> &words)
{
    REQUIRE_FALSE(dictempty(dict));
    for (const std::string &word : words)
        REQUIRE_FALSE(dictadd(word.c_str(), dict));
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

std::string filebytes(size_t nwords, const std::string &words, size_t noindex,
                      const std::string &index)
{
    return padded("Quillmere Dictionary", 24) + padded("1.00", 8) + padded("(16-Mar-2002)", 64) +
           std::string(160, 0) + number(nwords) + number(noindex) + framed(words) + framed(index);
}

// The code of the error that loading some bytes gives, or 0. After an error
// both counts are 0, and nothing is left behind.
uint32_t loadcode(const std::string &bytes)
{
    Dictionary dict = {};
    filewrite("bytes", bytes);
    errorblock *err = load("bytes", &dict);
    uint32_t code = err ? err->code : 0;
    if (err) CHECK((dictcount(&dict) == 0 && dict.noindex == 0));
    dictfree(&dict);
    return code;
}

std::string workedfile()
{
    return filebytes(3, std::string("\0n\x5E\6*\6s\0\0", 9), 1,
                     number(0) + number(0) + "nation" + std::string(2, 0));
}

} // namespace

TEST_CASE("files are what the format says, byte for byte")
{
    Dictionary dict;
    fill(&dict, {});
    REQUIRE_FALSE(save("empty", dict));
    CHECK(fileread("empty").size() == 304);
    CHECK(fileread("empty") == filebytes(0, "", 0, ""));
    for (const char *word : {"nation", "national", "nations"})
        REQUIRE_FALSE(dictadd(word, &dict));
    REQUIRE_FALSE(save("worked", dict));
    CHECK(fileread("worked") == workedfile());
    dictfree(&dict);
}

TEST_CASE("a dictionary comes back as it was saved")
{
    Dictionary dict, again = {};
    fill(&dict, somewords(3000, 3));
    REQUIRE_FALSE(save("saved", dict));
    for (int n = 0; n < 2; n++) { // the second time over the first
        REQUIRE_FALSE(load("saved", &again));
        CHECK(again.nwords == dict.nwords);
        CHECK(blockbytes(again.words) == blockbytes(dict.words));
        CHECK(blockbytes(again.index) == blockbytes(dict.index));
    }
    char fault[200];
    CHECK(dictverify(&again, fault, sizeof fault) == nullptr);
    REQUIRE_FALSE(load("empty", &again));
    CHECK(dictcount(&again) == 0);
    CHECK(blockbytes(again.words).empty());
    REQUIRE_FALSE(dictadd("first", &again));
    CHECK(storefault(again) == "");
    dictfree(&again);
    dictfree(&dict);
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
    Dictionary dict;
    fill(&dict, somewords(150, 9));
    REQUIRE_FALSE(save("long", dict));
    dictfree(&dict);
    std::string good = fileread("long");
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
    fill(&dict, somewords(200, 10));
    REQUIRE_FALSE(save("whole", dict));
    std::string good = fileread("whole");
    int refused = 0;
    for (size_t at = 256; at < good.size(); at++) {
        std::string bytes = good;
        bytes[at] = static_cast<char>(random() % 2 ? random() % 31 : random() % 256);
        filewrite("altered", bytes);
        errorblock *err = load("altered", &dict);
        if (err) {
            REQUIRE((err->code == ECR || err->code == ERRORREAD));
            REQUIRE((dictcount(&dict) == 0 && dict.noindex == 0));
            refused++;
        }
        exercisereaders(dict);
        exerciseedits(&dict, &random, 10);
    }
    CHECK(refused > 20);
    CHECK(loadcode(std::string(good).replace(264 + 8 + 12, 1, "\x08")) == ECR);
    dictfree(&dict);
}

TEST_CASE("what can't be opened leaves the dictionary as it was")
{
    Dictionary dict;
    fill(&dict, {"word"});
    CHECK(load("nosuchfile", &dict) != nullptr);
    CHECK(dictcount(&dict) == 1);
    errorblock *err = load(std::string(300, 'n').c_str(), &dict);
    REQUIRE(err);
    CHECK(err->code == ERRORMAXSTRING);
    CHECK(dictcount(&dict) == 1);
    CHECK(dictsave((scratchfolder() + "/nosuchfolder").c_str(), "x", &dict) != nullptr);
    CHECK(save(std::string(300, 'n').c_str(), dict) != nullptr);
    dictfree(&dict);
}

TEST_CASE("a load without memory leaves no words, at every allocation")
{
    Dictionary dict = {};
    filewrite("sweep", workedfile());
    for (int32_t n = 0;; n++) {
        flexfailafter(n);
        errorblock *err = load("sweep", &dict);
        flexfailafter(-1);
        if (!err) break;
        CHECK(err->code == ERRORMEMORY);
        CHECK((dictcount(&dict) == 0 && dict.noindex == 0));
        CHECK(n < 20);
        exercisereaders(dict);
    }
    CHECK(dictcount(&dict) == 3);
    dictfree(&dict);
}

TEST_CASE("a load that meets read errors leaves no words")
{
    Dictionary dict = {};
    fill(&dict, somewords(12000, 14)); // more than a buffer
    REQUIRE_FALSE(save("reads", dict));
    for (int32_t n = 0;; n++) {
        platformfault.reads = n;
        errorblock *err = load("reads", &dict);
        platformfault = {};
        if (!err) break;
        CHECK((dictcount(&dict) == 0 && dict.noindex == 0));
        CHECK(n < 50);
    }
    platformfault.readlimit = 1000;
    CHECK_FALSE(load("reads", &dict));
    platformfault = {};
    CHECK(storefault(dict) == "");
    dictfree(&dict);
}

TEST_CASE("a save that fails is told, and keeps the file of before")
{
    Dictionary dict;
    fill(&dict, {"old"});
    REQUIRE_FALSE(save("kept", dict));
    std::string old = fileread("kept");
    for (const std::string &word : somewords(14000, 15))
        REQUIRE_FALSE(dictadd(word.c_str(), &dict));
    auto fails = [&dict, &old] {
        errorblock *err = save("kept", dict);
        platformfault = {};
        flexfailafter(-1);
        if (err) CHECK(fileread("kept") == old);
        return err != nullptr;
    };
    using fault = int32_t platformfaultrecord::*;
    for (fault count :
         {&platformfaultrecord::opens, &platformfaultrecord::writes, &platformfaultrecord::syncs,
          &platformfaultrecord::closes, &platformfaultrecord::replaces}) {
        platformfault.*count = 0;
        CHECK(fails());
    }
    for (int32_t space : {0, 1, 255, 300, 40000}) {
        platformfault.space = space;
        CHECK(fails());
    }
    platformfault.writes = 1;
    CHECK(fails());
    CHECK_FALSE(fails());
    CHECK(fileread("kept") != old);
    dictfree(&dict);
}

TEST_CASE("blocks alone pass through a stream")
{
    bfile file;
    flexptr block, again = nullptr, empty;
    REQUIRE_FALSE(flex_alloc(&block, 5));
    REQUIRE_FALSE(flex_alloc(&empty, 0));
    memcpy(block, "bytes", 5);
    REQUIRE_FALSE(bopen(nullptr, "w", BFILEBUFFER, &file)); // a growing buffer
    REQUIRE_FALSE(blocksave(&block, &file));
    REQUIRE_FALSE(blocksave(&empty, &file));
    int32_t size;
    bsize(&file, &size);
    CHECK(std::string(static_cast<const char *>(file.buffer), static_cast<size_t>(size)) ==
          framed("bytes") + framed(""));
    REQUIRE_FALSE(bseek(&file, 0));
    REQUIRE_FALSE(blockload(&again, &file));
    CHECK(blockbytes(again) == "bytes");
    flex_free(&again);
    REQUIRE_FALSE(blockload(&again, &file));
    CHECK(blockbytes(again).empty());
    flex_free(&again);
    CHECK(blockload(&again, &file) != nullptr);
    CHECK(again == nullptr);
    REQUIRE_FALSE(bclose(&file, nullptr));
    flex_free(&block);
    flex_free(&empty);
}
