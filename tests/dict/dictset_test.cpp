#include "dict/dictset.h"

#include "base/bfile.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/platformfault.h"
#include "base/text.h"
#include "dict/dictfile.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace
{

using list = std::vector<std::string>;

// A fresh directory with files of one word each, their names; nothing is known
// of it yet.
void directorymake(const list &names)
{
    static int made;
    std::string folder = scratchfolder() + "/set" + std::to_string(made++);
    std::filesystem::create_directories(folder);
    strcopyn(dictdirectory, folder.c_str(), sizeof dictdirectory);
    for (const std::string &name : names) {
        Dictionary dict;
        REQUIRE_FALSE(dictempty(&dict));
        REQUIRE_FALSE(dictadd(("word" + name).c_str(), &dict));
        REQUIRE_FALSE(dictsave(dictdirectory, name.c_str(), &dict));
        dictfree(&dict);
    }
}

void start(const list &names)
{
    directorymake(names);
    REQUIRE_FALSE(dictstart());
}

bool filethere(const std::string &leaf)
{
    return std::filesystem::exists(std::string(dictdirectory) + "/" + leaf);
}

list known()
{
    list names;
    for (uint32_t i = 0; i < ndicts; i++)
        names.push_back(dicts[i].name);
    return names;
}

list used()
{
    list names;
    for (uint32_t i = 0; i < dictset.count; i++)
        names.push_back(dicts[dictset.numbers[i]].name);
    return names;
}

std::string padded(const std::string &text, size_t size = 12)
{
    return text + std::string(size - text.size(), 0);
}

// The set as it is written.
std::string written()
{
    bfile file;
    int32_t size;
    REQUIRE_FALSE(bopen(nullptr, "w", BFILEBUFFER, &file));
    CHECK(dictsetwrite(&file) == 0);
    bsize(&file, &size);
    std::string bytes(static_cast<const char *>(file.buffer), static_cast<size_t>(size));
    bclose(&file, nullptr);
    return bytes;
}

int setread(const std::string &bytes)
{
    bfile file;
    REQUIRE_FALSE(bopen(nullptr, "w", BFILEBUFFER, &file));
    REQUIRE_FALSE(bwriteall(&file, bytes.data(), static_cast<int32_t>(bytes.size())));
    REQUIRE_FALSE(bseek(&file, 0));
    int result = dictsetread(&file);
    bclose(&file, nullptr);
    return result;
}

} // namespace

TEST_CASE("the directory is the system's own, by a macro")
{
    CHECK(dictdirectory ==
          std::string("<HKEY_LOCAL_MACHINE\\Software\\Orchardlight\\Dictionaries\\>"));
}

TEST_CASE("a scan knows the files by name and reads none of them")
{
    directorymake({"Beta", "alpha", "Gamma"});
    std::string folder = dictdirectory;
    std::ofstream(folder + "/broken.dic") << "no dictionary";
    std::ofstream(folder + "/notes.txt") << "text";
    std::ofstream(folder + "/odd.dict") << "text";
    std::ofstream(folder + "/.dic") << "text";
    std::ofstream(folder + "/" + std::string(32, 'n') + ".dic") << "text";
    std::ofstream(folder + "/" + std::string(31, 'm') + ".dic") << "text";
    std::filesystem::create_directories(folder + "/folder.dic");
    headless.keeptrace = true;
    REQUIRE_FALSE(dictstart());
    headless.keeptrace = false;
    CHECK(known() == list{"alpha", "Beta", "broken", "Gamma", std::string(31, 'm')});
    CHECK(headless.menubuilds == 1);
    CHECK(headless.tracetext.find("dic dir " + folder + "\r\n") != std::string::npos);
    CHECK(headless.tracetext.find("name Beta.dic\r\n") != std::string::npos);
    for (uint32_t i = 0; i < ndicts; i++)
        CHECK((!dicts[i].loaded && !dicts[i].usecount && !dicts[i].changed));
    CHECK(dictnamefind("BETA") == 1);
    CHECK(dictnamefind("delta") == -1);
    dictstop();
    CHECK(headless.menudeletes == 1);
}

TEST_CASE("without a directory there are no dictionaries")
{
    directorymake({"old"});
    REQUIRE_FALSE(dictstart());
    REQUIRE_FALSE(dictuse(0));
    strcopyn(dictdirectory, (scratchfolder() + "/nosuch").c_str(), sizeof dictdirectory);
    CHECK(dictstart() == nullptr);
    CHECK(ndicts == 0);
    CHECK(dictset.count == 0);
    errorblock *err = dictdefault();
    REQUIRE(err);
    CHECK(err->code == ENOD);
    CHECK(dictcreate("new") != nullptr);
    CHECK(ndicts == 0);
}

TEST_CASE("of 33 files the last is unknown, and none can be created")
{
    list names;
    for (int n = 0; n < 33; n++)
        names.push_back("d" + std::to_string(10 + n));
    start(names);
    CHECK(ndicts == MAXDICTS);
    CHECK(dictnamefind("d41") == 31);
    CHECK(dictnamefind("d42") == -1);
    CHECK(dictcreate("new")->code == ENUD);
    CHECK(dictcreate("D20")->code == EDAX);
    CHECK_FALSE(filethere("new.dic"));
    // All in use, and one more.
    for (uint32_t i = 0; i < MAXDICTS; i++)
        CHECK(dictsetadd(MAXDICTS - 1 - i) == nullptr);
    for (uint32_t i = 0; i < MAXDICTS; i++)
        CHECK(dictset.numbers[i] == i);
    CHECK(dictsetadd(3)->code == EMDC);
    CHECK(dictuse(3) == nullptr);
    CHECK(dicts[3].usecount == 1);
}

TEST_CASE("use loads, the last use gone unloads")
{
    start({"a", "b", "c"});
    REQUIRE_FALSE(dictuse(2));
    REQUIRE_FALSE(dictuse(0));
    CHECK(used() == list{"a", "c"});
    CHECK((dictinset(0) && !dictinset(1) && dictinset(2)));
    CHECK((dicts[0].loaded && !dicts[1].loaded && dicts[2].loaded));
    CHECK(wordtext(makewordref(2, 0)) == std::string("wordc"));
    REQUIRE_FALSE(dictuse(2)); // twice, as a document may have it
    CHECK(dicts[2].usecount == 2);
    REQUIRE_FALSE(dictunuse(2));
    CHECK(dicts[2].loaded);
    REQUIRE_FALSE(dictunuse(2));
    CHECK_FALSE(dicts[2].loaded);
    CHECK(dictcount(&dicts[2].dict) == 0);
    REQUIRE_FALSE(dictunuse(2));
    CHECK(used() == list{"a"});
    CHECK(headless.setchanges == 0);
    dicttoggle(0);
    dicttoggle(1);
    CHECK(used() == list{"b"});
    CHECK(headless.setchanges == 2);
}

TEST_CASE("references to nothing have no text")
{
    start({"a"});
    REQUIRE_FALSE(dictuse(0));
    for (wordref ref : {makewordref(0, 1), makewordref(0, 0xFFFFFF), makewordref(1, 0),
                        makewordref(31, 0), makewordref(32, 0), makewordref(255, 0xFFFFFF)})
        CHECK(wordtext(ref) == std::string());
    CHECK(wordtext(0) == std::string("worda"));
    dictunload(0);
    CHECK(wordtext(0) == std::string());
}

TEST_CASE("a dictionary that fails to load stays in use without words")
{
    start({"a"});
    std::ofstream(std::string(dictdirectory) + "/a.dic") << "no dictionary";
    CHECK(dictuse(0) == nullptr);
    CHECK(used() == list{"a"});
    CHECK_FALSE(dicts[0].loaded);
    CHECK(wordtext(0) == std::string());
    CHECK(dictreload(0)->code == ERRORREAD);
    CHECK(dictedit(0)->code == ERRORREAD);
    CHECK(headless.edits == 0);
}

TEST_CASE("an edited dictionary is loaded and not in use")
{
    start({"a", "b"});
    CHECK(dictedit(1) == nullptr);
    CHECK(headless.edits == 1);
    CHECK((dicts[1].loaded && !dicts[1].usecount));
    // Until the next document is read.
    dictsetclear();
    CHECK(setread(padded("a") + padded("")) == 0);
    CHECK_FALSE(dicts[1].loaded);
}

TEST_CASE("words that the user works on outlast their dictionary's use")
{
    start({"a", "b", "c"});
    for (uint32_t i = 0; i < 3; i++)
        REQUIRE_FALSE(dictuse(i));
    REQUIRE_FALSE(dictadd("new", &dicts[0].dict));
    dicts[0].changed = 1;
    headless.editing = 2; // b
    for (uint32_t i = 0; i < 3; i++)
        REQUIRE_FALSE(dictunuse(i));
    CHECK((dicts[0].loaded && dicts[1].loaded && !dicts[2].loaded));
    CHECK(setread(padded("")) == 0);
    CHECK((dicts[0].loaded && dicts[1].loaded));
    CHECK(dictcount(&dicts[0].dict) == 2);
    dictsavechanges();
    headless.editing = 0;
    CHECK(setread(padded("")) == 0);
    CHECK((!dicts[0].loaded && !dicts[1].loaded));
    REQUIRE_FALSE(dictreload(0));
    CHECK(dictcount(&dicts[0].dict) == 2); // what was saved
}

TEST_CASE("a new dictionary stands among the others by name, and the set follows")
{
    start({"Beta", "delta"});
    REQUIRE_FALSE(dictuse(0));
    REQUIRE_FALSE(dictuse(1));
    REQUIRE_FALSE(dictcreate("alpha"));
    CHECK(known() == list{"Beta", "alpha", "delta"}); // capitals first
    CHECK(used() == list{"Beta", "delta"});
    CHECK(dictset.numbers[1] == 2);
    CHECK((dicts[1].loaded && !dicts[1].usecount && !dicts[1].changed));
    CHECK(wordtext(makewordref(2, 0)) == std::string("worddelta"));
    CHECK(std::filesystem::file_size(std::string(dictdirectory) + "/alpha.dic") == 304);
    REQUIRE_FALSE(dictcreate("zeta"));
    REQUIRE_FALSE(dictcreate("A"));
    CHECK(known() == list{"A", "Beta", "alpha", "delta", "zeta"});
    CHECK(used() == list{"Beta", "delta"});
    CHECK(headless.menubuilds == 4);
    CHECK(dictcreate("ALPHA")->code == EDAX);
    CHECK(headless.menubuilds == 5);
    REQUIRE_FALSE(dictadd("new", &dicts[4].dict));
}

TEST_CASE("a dictionary that can't be created leaves nothing")
{
    start({"b"});
    REQUIRE_FALSE(dictuse(0));
    for (int32_t n = 0;; n++) {
        flexfailafter(n);
        errorblock *err = dictcreate("a");
        flexfailafter(-1);
        if (!err) break;
        CHECK(err->code == ERRORMEMORY);
        CHECK(known() == list{"b"});
        CHECK(used() == list{"b"});
        CHECK_FALSE(filethere("a.dic"));
        CHECK(n < 20);
    }
    CHECK(used() == list{"b"});
    platformfault.space = 100;
    CHECK(dictcreate("c") != nullptr);
    platformfault = {};
    CHECK(known() == list{"a", "b"});
    CHECK(dictcreate(std::string(32, 'n').c_str())->code == ERRORMAXSTRING);
    CHECK(dictcreate(std::string(31, 'n').c_str()) == nullptr);
    CHECK(ndicts == 3);
    CHECK(dictcreate("")->code == ERRORQUIET);
    CHECK_FALSE(filethere(".dic"));
    std::ofstream(std::string(dictdirectory) + "/late.dic") << "text"; // after the scan
    CHECK(dictcreate("late")->code == EDAX);
    CHECK(dictcreate("\"b\"")->code == EDAX); // the file of another
    CHECK(ndicts == 3);
    CHECK(std::filesystem::file_size(std::string(dictdirectory) + "/late.dic") == 4);
}

TEST_CASE("a removed dictionary is gone from disc, set and memory")
{
    start({"a", "b", "c", "d"});
    for (uint32_t i : {0u, 1u, 1u, 3u})
        REQUIRE_FALSE(dictuse(i));
    REQUIRE_FALSE(dictedit(2));
    REQUIRE_FALSE(dictremovefile(1)); // twice in use
    CHECK(known() == list{"a", "c", "d"});
    CHECK(used() == list{"a", "d"});
    CHECK_FALSE(filethere("b.dic"));
    REQUIRE_FALSE(dictremovefile(1)); // loaded, not in use
    CHECK(known() == list{"a", "d"});
    CHECK(used() == list{"a", "d"});
    CHECK(wordtext(makewordref(1, 0)) == std::string("wordd"));
    std::filesystem::remove(std::string(dictdirectory) + "/a.dic");
    CHECK(dictremovefile(0) != nullptr);
    CHECK(known() == list{"a", "d"});
    REQUIRE_FALSE(dictremovefile(1));
    CHECK(used() == list{"a"});
}

TEST_CASE("the default is the first name that there is")
{
    start({"Puzzle-UK", "MainDict-US", "maindict-uk", "Aardvark"});
    REQUIRE_FALSE(dictdefault());
    CHECK(used() == list{"maindict-uk"});
    REQUIRE_FALSE(dictdefault());
    CHECK(used() == list{"maindict-uk"});
    dicttoggle(static_cast<uint32_t>(dictnamefind("MainDict-UK")));
    REQUIRE_FALSE(dictuse(0));
    REQUIRE_FALSE(dictdefault());
    CHECK(used() == list{"Aardvark"});
    start({"other"});
    CHECK(dictdefault()->code == ENOD);
    CHECK(dictset.count == 0);
}

TEST_CASE("the set is written by name, and read back")
{
    start({"a", "elevenchars", "twelve_chars", "m"});
    CHECK(written() == padded(""));
    for (uint32_t i = 0; i < 4; i++)
        REQUIRE_FALSE(dictuse(i));
    CHECK(written() ==
          padded("a") + padded("elevenchars") + padded("m") + "twelve_chars" + padded(""));
    std::string bytes = written();
    REQUIRE_FALSE(dictedit(2));
    dictsetclear();
    CHECK(dicts[3].loaded); // nothing is unloaded yet
    CHECK(setread(padded("M") + padded("a") + padded("nobody") + padded("")) == 0);
    CHECK(used() == list{"a", "m"});
    CHECK((dicts[0].loaded && dicts[2].loaded && !dicts[1].loaded && !dicts[3].loaded));
    dictsetclear();
    CHECK(setread(bytes) == 0);
    CHECK(used() == list{"a", "elevenchars", "m"}); // the longest is lost
    CHECK_FALSE(dicts[1].loaded);
    CHECK(dictsetload() == nullptr);
    CHECK((dicts[0].loaded && dicts[1].loaded && dicts[2].loaded));
}

TEST_CASE("a set that ends early is told, and keeps what was read")
{
    start({"a", "b"});
    REQUIRE_FALSE(dictedit(1));
    for (const std::string &bytes : {std::string(), padded("a"), padded("a") + "b"}) {
        dictsetclear();
        CHECK(setread(bytes) == 1);
        CHECK(used() == (bytes.empty() ? list{} : list{"a"}));
        CHECK(dicts[1].loaded);
    }
    // More names than there is room for.
    std::string many;
    for (uint32_t n = 0; n < MAXDICTS + 2; n++)
        many += padded("a");
    dictsetclear();
    CHECK(setread(many + padded("")) == 0);
    CHECK(dictset.count == MAXDICTS);
    CHECK(dicts[0].usecount == MAXDICTS);
}

TEST_CASE("a set that can't be written is told")
{
    start({"a"});
    bfile file;
    REQUIRE_FALSE(bopen((scratchfolder() + "/set.out").c_str(), "w", 129, &file));
    for (int n = 0; n < 20; n++)
        dictsetadd(0);
    platformfault.space = 0;
    CHECK(dictsetwrite(&file) == 1);
    platformfault = {};
    bclose(&file, nullptr);
}

TEST_CASE("changes are kept or discarded for all dictionaries at once")
{
    start({"a", "b", "c"});
    for (uint32_t i = 0; i < 3; i++)
        REQUIRE_FALSE(dictedit(i));
    CHECK(dictanychanges() == 0);
    auto edit = [](uint32_t number) {
        REQUIRE_FALSE(dictadd("more", &dicts[number].dict));
        dicts[number].changed = 1;
    };
    edit(0);
    edit(2);
    CHECK(dictanychanges() == 1);
    CHECK(dictdiscardchanges() == nullptr);
    CHECK(dictanychanges() == 0);
    CHECK((dictcount(&dicts[0].dict) == 1 && dictcount(&dicts[2].dict) == 1));
    edit(0);
    CHECK(dictsavechanges() == nullptr);
    CHECK(dictanychanges() == 0);
    CHECK(dictreload(0) == nullptr);
    CHECK(dictcount(&dicts[0].dict) == 2);
    // The first failure is told, the others are discarded all the same.
    edit(0);
    edit(1);
    edit(2);
    std::ofstream(std::string(dictdirectory) + "/a.dic") << "no dictionary";
    std::filesystem::remove(std::string(dictdirectory) + "/b.dic");
    errorblock *err = dictdiscardchanges();
    REQUIRE(err);
    CHECK(err->code == ERRORREAD);
    CHECK(dictanychanges() == 0);
    CHECK((!dicts[0].loaded && !dicts[1].loaded && dicts[2].loaded));
    CHECK(dictcount(&dicts[1].dict) == 0);
}
