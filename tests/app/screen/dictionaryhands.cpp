#include "tests/app/screen/dictionaryhands.h"

#include "base/text.h"
#include "dict/dictfile.h"
#include "dict/dictset.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <filesystem>

std::string dictionaryplace(const std::string &leaf)
{
    return std::string(dictdirectory) + "\\" + leaf;
}

void dictionariesbegin(const std::vector<testdictionary> &dictionaries)
{
    static int made;
    std::string folder = scratchfolder() + "\\set" + std::to_string(made++);
    std::filesystem::create_directories(folder);
    strcopyn(dictdirectory, folder.c_str(), sizeof dictdirectory);
    for (const testdictionary &one : dictionaries) {
        Dictionary dict;
        REQUIRE_FALSE(dictempty(&dict));
        for (const std::string &word : one.words)
            REQUIRE_FALSE(dictadd(word.c_str(), &dict));
        REQUIRE_FALSE(dictsave(dictdirectory, one.name.c_str(), &dict));
        dictfree(&dict);
    }
    REQUIRE_FALSE(dictstart());
}

bool dictionarylarge()
{
    std::string file = datafile("MainDict.dic");
    if (shaken() || file.empty() || !std::filesystem::exists(file)) {
        MESSAGE("skipped: it needs a large dictionary, and its time");
        return false;
    }
    std::filesystem::copy_file(file, dictionaryplace("MainDict.dic"));
    REQUIRE_FALSE(dictstart());
    REQUIRE_FALSE(dictuse(static_cast<uint32_t>(dictnamefind("MainDict"))));
    return true;
}
