#include "dict/wordimport.h"

#include "base/errors.h"
#include "base/platformfault.h"
#include "dict/dictset.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace
{

std::string filewith(const std::string &text)
{
    std::string path = scratchfolder() + "/words.txt";
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

void freshdict()
{
    ndicts = 1;
    dicts[0] = {};
    REQUIRE(dictempty(&dicts[0].dict) == nullptr);
}

std::string allwords()
{
    std::string text;
    dictcursor cursor;
    for (int more = dictseek(0, &dicts[0].dict, &cursor); more;
         more = dictnext(&dicts[0].dict, &cursor))
        text += std::string(cursor.word) + " ";
    return text;
}

// What an import of a text leaves in an empty dictionary.
std::string imported(const std::string &text)
{
    freshdict();
    CHECK(wordimport(filewith(text).c_str(), 0) == nullptr);
    std::string words = allwords();
    dictfree(&dicts[0].dict);
    return words;
}

} // namespace

TEST_CASE("words come in from the texts that users have")
{
    CHECK(imported("") == "");
    CHECK(imported("\r\n\r\n \t\n") == "");
    CHECK(imported("zebra\nant\nbee\n") == "ant bee zebra ");
    CHECK(imported("zebra\r\nant\r\n\r\nbee") == "ant bee zebra ");
    CHECK(imported("one\ttwo\x01three") == "one three two ");
    CHECK(imported("New York\nDon't\n8\n") == "8 Dont Newyork ");
    CHECK(imported("caf\xE9\n\xE9tude\n") == "caf \xE9tude ");
    CHECK(imported("word\nWORD\nWord\n") == "Word ");
    CHECK(imported(std::string(40, 'q') + "\n" + std::string(31, 'r')) ==
          "qqqqqqqq " + std::string(31, 'r') + " ");
}

TEST_CASE("the changed mark tells whether words came in")
{
    freshdict();
    CHECK(wordimport(filewith("\n\n").c_str(), 0) == nullptr);
    CHECK(dicts[0].changed == 0);
    CHECK(wordimport(filewith(std::string(32, 'x')).c_str(), 0) == nullptr);
    CHECK(dicts[0].changed == 0);
    CHECK(wordimport(filewith("a\n").c_str(), 0) == nullptr);
    CHECK(dicts[0].changed != 0);
    dictfree(&dicts[0].dict);
}

TEST_CASE("a failing import keeps the words before the failure")
{
    freshdict();
    errorblock *err = wordimport((scratchfolder() + "/none.txt").c_str(), 0);
    CHECK(err != nullptr);
    CHECK(dicts[0].changed == 0);

    // A file of some buffers, of which the second can't be read.
    std::string text;
    for (int i = 0; text.size() < 100000; i++)
        text += std::string("w") + static_cast<char>('a' + i / 26 % 26) +
                static_cast<char>('a' + i % 26) + "\n";
    platformfault.reads = 1;
    err = wordimport(filewith(text).c_str(), 0);
    platformfault = {};
    REQUIRE(err);
    CHECK(dictcount(&dicts[0].dict) == 26 * 26);
    CHECK(dicts[0].changed != 0);
    dictfree(&dicts[0].dict);
}

TEST_CASE("words go out as they are stored")
{
    freshdict();
    std::string path = scratchfolder() + "/out.txt";
    std::remove(path.c_str());
    CHECK(wordexport(path.c_str(), &dicts[0].dict) == nullptr);
    CHECK_FALSE(std::ifstream(path).good()); // no words, no file
    for (const char *word : {"nation", "Zo\xEB", "co-op", "ice cream", "can't"})
        REQUIRE(dictadd(word, &dicts[0].dict) == nullptr);
    CHECK(wordexport(path.c_str(), &dicts[0].dict) == nullptr);
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    CHECK(text == "can't\r\nco-op\r\nice cream\r\nnation\r\nZo\xEB\r\n");
    CHECK(wordexport((scratchfolder() + "/no/out.txt").c_str(), &dicts[0].dict) != nullptr);
    dictfree(&dicts[0].dict);
}
