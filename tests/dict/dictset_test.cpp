#include "dict/dictset.h"

#include "base/bfile.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/platformfault.h"
#include "base/text.h"
#include "dict/dictfile.h"
#include "dict/dictname.h"
#include "tests/dict/teststore.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <filesystem>

namespace
{

std::string fileof(const std::string &leaf)
{
    return std::string(dictdirectory) + "/" + leaf;
}

// A fresh directory with files of one word each, their names; the first are used.
void start(const wordlist &names, std::initializer_list<uint32_t> used = {})
{
    static int made;
    std::string folder = scratch("set" + std::to_string(made++));
    std::filesystem::create_directories(folder);
    strcopyn(dictdirectory, folder.c_str(), sizeof dictdirectory);
    for (const std::string &name : names) {
        teststore s({"word" + name});
        REQUIRE_FALSE(dictsave(dictdirectory, name.c_str(), &s.dict));
    }
    REQUIRE_FALSE(dictstart());
    for (uint32_t number : used)
        REQUIRE_FALSE(dictuse(number));
}

// The dictionaries known: behind each name how often it is used, if it is, and "*"
// if it is loaded. Behind a "=" the set.
std::string state()
{
    std::string text;
    for (uint32_t i = 0; i < ndicts; i++) {
        text += (i ? " " : "") + std::string(dicts[i].name);
        if (dicts[i].usecount) text += std::to_string(dicts[i].usecount);
        if (dicts[i].loaded) text += "*";
    }
    for (uint32_t i = 0; i < dictset.count; i++)
        text += (i ? "," : "=") + std::to_string(dictset.numbers[i]);
    return text;
}

// Such a state behind a call that must go well.
std::string after(const errorblock *err)
{
    CHECK_FALSE(err);
    return state();
}

uint32_t code(const errorblock *err)
{
    return err ? err->code : 0;
}

void change(std::initializer_list<uint32_t> numbers)
{
    for (uint32_t number : numbers) {
        addwords(&dicts[number].dict, {"more"});
        dicts[number].changed = 1;
    }
}

// Names as a set holds them; the empty one ends it.
std::string setbytes(const wordlist &names)
{
    std::string bytes;
    for (const std::string &name : names)
        bytes += name + std::string(12 - name.size(), 0);
    return bytes;
}

// The set as it is written.
std::string written()
{
    bfile file;
    REQUIRE_FALSE(bopen(scratch("set").c_str(), "w", BFILEBUFFER, &file));
    CHECK((dictsetwrite(&file) == 0 && !bclose(&file, nullptr)));
    return getfile(scratch("set"));
}

// The state behind a set that is read in place of the one before; "!" behind it if
// that ended early.
std::string afterread(const std::string &bytes)
{
    bfile file;
    putfile(scratch("set"), bytes);
    REQUIRE_FALSE(bopen(scratch("set").c_str(), "r", BFILEBUFFER, &file));
    dictsetclear();
    int early = dictsetread(&file);
    bclose(&file, nullptr);
    return state() + (early ? "!" : "");
}

} // namespace

TEST_CASE("a scan knows the files by name and reads none of them")
{
    CHECK(dictdirectory == // by a macro, at first
          std::string("<HKEY_LOCAL_MACHINE\\Software\\Orchardlight\\Dictionaries\\>"));
    start({"Beta", "alpha"});
    std::string longest(31, 'm');
    for (const std::string &leaf : {std::string("broken.dic"), std::string("odd.dict"),
                                    std::string(".dic"), "n" + longest + ".dic", longest + ".dic"})
        putfile(fileof(leaf), "no dictionary");
    std::filesystem::create_directories(fileof("folder.dic"));
    headlessreset();
    CHECK(after(dictstart()) == "alpha Beta broken " + longest);
    CHECK((headless.menubuilds == 1 && headless.menudeletes == 0));
    CHECK((dictnamefind("BETA") == 1 && dictnamefind("delta") == -1));
    dictstop();
    CHECK(headless.menudeletes == 1);
    CHECK(after(dictuse(2)) == "alpha Beta broken1 " + longest + "=2"); // without words
    CHECK((code(dictreload(2)) == ERRORREAD && code(dictedit(2)) == ERRORREAD));
    CHECK((wordtext(makewordref(2, 0)) == std::string() && headless.edits == 0));
    strcopyn(dictdirectory, scratch("nosuch").c_str(), sizeof dictdirectory);
    CHECK(after(dictstart()) == ""); // nor are there any without a directory
    CHECK((code(dictdefault()) == ENOD && dictcreate("new") && ndicts == 0));

    wordlist names; // of 33 files the last is unknown, and none can be created
    for (int n = 10; n < 43; n++)
        names.push_back("d" + std::to_string(n));
    start(names);
    CHECK((ndicts == MAXDICTS && dictnamefind("d41") == 31 && dictnamefind("d42") == -1));
    CHECK((code(dictcreate("new")) == ENUD && code(dictcreate("D20")) == EDAX));
    CHECK_FALSE(std::filesystem::exists(fileof("new.dic")));
    CHECK_FALSE(dictuse(31)); // what is in use keeps its place, and another one makes room
    CHECK((dictknow("d42") == 31 && ndicts == MAXDICTS && dictnamefind("d41") == 30));
    CHECK((dictnamefind("d40") == -1 && dictset.numbers[0] == 30 && !dictneed(31)));
    CHECK((dictknow("") == -1 && dictknow("d43") == -1 && dictknow("../other") == -1));
    start(names);
    for (uint32_t i = 0; i < MAXDICTS; i++)
        CHECK(dictsetadd(MAXDICTS - 1 - i) == nullptr);
    for (uint32_t i = 0; i < MAXDICTS; i++)
        CHECK(dictset.numbers[i] == i);
    CHECK((code(dictsetadd(3)) == EMDC && dictuse(3) == nullptr && dicts[3].usecount == 1));
}

TEST_CASE("use loads, the last use gone unloads")
{
    start({"a", "b", "c"}, {2, 0});
    CHECK(state() == "a1* b c1*=0,2");
    CHECK((dictinset(0) && !dictinset(1) && dictinset(2)));
    CHECK(after(dictuse(2)) == "a1* b c2*=0,2,2"); // twice, as a document may have it
    CHECK(wordtext(makewordref(2, 0)) == std::string("wordc"));
    for (wordref ref : {makewordref(0, 1), makewordref(0, 0xFFFFFF), makewordref(1, 0),
                        makewordref(31, 0), makewordref(32, 0), makewordref(255, 0xFFFFFF)})
        CHECK(wordtext(ref) == std::string()); // to nothing
    CHECK(after(dictunuse(2)) == "a1* b c1*=0,2");
    for (int n = 0; n < 2; n++)
        CHECK(after(dictunuse(2)) == "a1* b c=0");
    CHECK((dictcount(&dicts[2].dict) == 0 && headless.setchanges == 0));
    CHECK(after(dicttoggle(0)) == "a b c");
    CHECK(after(dicttoggle(1)) == "a b1* c=1");
    CHECK(headless.setchanges == 2);
}

TEST_CASE("words that the user works on outlast their dictionary's use")
{
    start({"a", "b", "c", "d"}, {0, 1, 2});
    CHECK(after(dictedit(3)) == "a1* b1* c1* d*=0,1,2"); // not in use
    CHECK(headless.edits == 1);
    change({0});
    headless.editing = 2; // b
    for (uint32_t i = 0; i < 3; i++)
        REQUIRE_FALSE(dictunuse(i));
    CHECK(state() == "a* b* c d*");
    CHECK(afterread(setbytes({""})) == "a* b* c d"); // until the next document
    CHECK(after(dictuse(0)) == "a1* b* c d=0");      // is not read again
    REQUIRE_FALSE(dictunuse(0));
    CHECK(dictcount(&dicts[0].dict) == 2);
    CHECK((dictsavechanges() == nullptr && dictanychanges() == 0));
    headless.editing = 0;
    CHECK(afterread(setbytes({""})) == "a b c d");
    CHECK((dictreload(0) == nullptr && dictcount(&dicts[0].dict) == 2)); // what was saved
}

TEST_CASE("a new dictionary stands among the others by name, or leaves nothing")
{
    start({"Beta", "delta"}, {0, 1});
    CHECK(after(dictcreate("alpha")) == "Beta1* alpha* delta1*=0,2"); // capitals first
    CHECK(wordtext(makewordref(2, 0)) == std::string("worddelta"));
    CHECK(getfile(fileof("alpha.dic")).size() == 304);
    CHECK(after(dictcreate("A")) == "A* Beta1* alpha* delta1*=1,3");
    CHECK((dictanychanges() == 0 && headless.menubuilds == 3));
    addwords(&dicts[3].dict, {"new"});

    start({"b"}, {0});
    uint32_t failed = ERRORMEMORY;
    for (int32_t n = 0; failed; n++) {
        flexfailafter(n);
        failed = code(dictcreate("a"));
        flexfailafter(-1);
        CHECK((failed == ERRORMEMORY || failed == 0));
        CHECK(state() == (failed ? "b1*=0" : "a* b1*=1"));
        CHECK(std::filesystem::exists(fileof("a.dic")) == !failed);
    }
    platformfault.space = 100;
    CHECK(dictcreate("c") != nullptr);
    platformfault = {};
    putfile(fileof("late.dic"), "text"); // after the scan
    const std::pair<std::string, uint32_t> rows[] = {{std::string(32, 'n'), ERRORMAXSTRING},
                                                     {"", ERRORQUIET},
                                                     {"A", EDAX},
                                                     {"late", EDAX},
                                                     {"\"b\"", EDAX}}; // the file of another
    for (const auto &[name, refused] : rows)
        CHECK(code(dictcreate(name.c_str())) == refused);
    CHECK((state() == "a* b1*=1" && getfile(fileof("late.dic")) == "text"));
    std::string longest(31, 'n');
    CHECK(after(dictcreate(longest.c_str())) == "a* b1* " + longest + "*=1");
}

TEST_CASE("a removed dictionary is gone from disc, set and memory")
{
    start({"a", "b", "c", "d"}, {0, 1, 1, 3});
    REQUIRE_FALSE(dictedit(2));
    CHECK(after(dictremovefile(1)) == "a1* c* d1*=0,2"); // twice in use
    CHECK_FALSE(std::filesystem::exists(fileof("b.dic")));
    CHECK(after(dictremovefile(1)) == "a1* d1*=0,1"); // loaded, not in use
    CHECK(wordtext(makewordref(1, 0)) == std::string("wordd"));
    std::filesystem::remove(fileof("a.dic"));
    CHECK((dictremovefile(0) && state() == "a1* d1*=0,1"));
    CHECK(after(dictremovefile(1)) == "a1*=0");
}

TEST_CASE("the default is the first name that there is")
{
    start({"Puzzle-UK", "MainDict-US", "maindict-uk", "Aardvark"});
    CHECK(after(dictdefault()) == "Aardvark maindict-uk1* MainDict-US Puzzle-UK=1");
    dicttoggle(1);
    dictuse(0);
    CHECK(after(dictdefault()) == "Aardvark1* maindict-uk MainDict-US Puzzle-UK=0");
    for (const char *name : {"MainDict", "MainDict-US", "Puzzle-UK", "Puzzle-US"}) {
        start({name}); // the first of the directory too
        CHECK(after(dictdefault()) == name + std::string("1*=0"));
    }
    start({"other"});
    CHECK((code(dictdefault()) == ENOD && dictset.count == 0));
}

TEST_CASE("the set is written by name, and read back")
{
    start({"a", "elevenchars", "twelve_chars", "m"});
    CHECK(written() == setbytes({""}));
    for (uint32_t i = 0; i < 4; i++)
        REQUIRE_FALSE(dictuse(i));
    std::string bytes = written();
    CHECK(bytes == setbytes({"a", "elevenchars", "m", "twelve_chars", ""}));
    dictsetclear();
    CHECK(state() == "a* elevenchars* m* twelve_chars*"); // nothing is unloaded yet
    CHECK(afterread(setbytes({"M", "a", "nobody", ""})) == "a1* elevenchars m1* twelve_chars=0,2");
    // The longest is lost.
    CHECK(afterread(bytes) == "a1* elevenchars1 m1* twelve_chars=0,1,2");
    CHECK(after(dictsetload()) == "a1* elevenchars1* m1* twelve_chars=0,1,2");
    CHECK(afterread(setbytes({"a"}) + "b") == "a1* elevenchars* m* twelve_chars=0!"); // early
    CHECK(afterread(setbytes({"a", "M", "A", "a", ""})) == "a1* elevenchars m1* twelve_chars=0,2");
}

TEST_CASE("changes are kept or discarded for all dictionaries at once")
{
    start({"a", "b", "c"}, {0, 1, 2});
    CHECK(dictanychanges() == 0);
    change({0, 2});
    CHECK((dictanychanges() == 1 && dictdiscardchanges() == nullptr && dictanychanges() == 0));
    CHECK((dictcount(&dicts[0].dict) == 1 && dictcount(&dicts[2].dict) == 1));
    change({0, 1, 2});
    putfile(fileof("a.dic"), "no dictionary");
    std::filesystem::remove(fileof("b.dic"));
    CHECK(code(dictdiscardchanges()) == ERRORREAD); // the first; the others are discarded too
    CHECK((dictanychanges() == 0 && state() == "a1 b1 c1*=0,1,2"));
    CHECK(dictcount(&dicts[1].dict) == 0);

    start({"a", "b"}, {0, 1});
    change({0, 1});
    std::filesystem::remove(fileof("a.dic"));
    std::filesystem::create_directory(fileof("a.dic")); // can't be written
    CHECK(dictsavechanges() != nullptr);
    CHECK((dicts[0].changed && !dicts[1].changed));
    std::filesystem::remove(fileof("a.dic"));
    CHECK((dictsavechanges() == nullptr && dictanychanges() == 0));
}

TEST_CASE("a name that no file can have is refused in words")
{
    for (const char *name : {"a", "Main Dict", "con1", "comx", "com", ".a", "lpt0", "nulls", ""})
        CHECK_MESSAGE(dictnamecheck(name) == nullptr, name);
    for (const char *name : {"a\\b", "a/b", "c:", "*", "what?", "\"", "<", ">", "|", "a\tb", "a.",
                             "a ", "con", "Nul.old", "COM1", "lpt9.x"})
        CHECK_MESSAGE(code(dictnamecheck(name)) == EDNAME, name);
    CHECK(dictnamecheck(std::string(31, 'n').c_str()) == nullptr);
    CHECK(code(dictnamecheck(std::string(32, 'n').c_str())) == EDNAME);
}
