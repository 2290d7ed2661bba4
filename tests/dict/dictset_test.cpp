#include "dict/dictset.h"

#include "base/bfile.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/platformfault.h"
#include "base/text.h"
#include "dict/dictfile.h"
#include "tests/dict/teststore.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <filesystem>

namespace
{

// A fresh directory with files of one word each, their names; nothing is known
// of it yet.
void directorymake(const wordlist &names)
{
    static int made;
    std::string folder = scratch("set" + std::to_string(made++));
    std::filesystem::create_directories(folder);
    strcopyn(dictdirectory, folder.c_str(), sizeof dictdirectory);
    for (const std::string &name : names) {
        teststore s({"word" + name});
        REQUIRE_FALSE(dictsave(dictdirectory, name.c_str(), &s.dict));
    }
}

void start(const wordlist &names)
{
    directorymake(names);
    REQUIRE_FALSE(dictstart());
}

std::string fileof(const std::string &leaf)
{
    return std::string(dictdirectory) + "/" + leaf;
}

bool filethere(const std::string &leaf)
{
    return std::filesystem::exists(fileof(leaf));
}

// The dictionaries known: behind each name how often it is used, if it is, and "*"
// if it is loaded.
std::string state()
{
    std::string text;
    for (uint32_t i = 0; i < ndicts; i++) {
        const dictrec &record = dicts[i];
        text += (i ? " " : "") + std::string(record.name);
        if (record.usecount) text += std::to_string(record.usecount);
        if (record.loaded) text += "*";
    }
    return text;
}

void use(std::initializer_list<uint32_t> numbers)
{
    for (uint32_t number : numbers)
        REQUIRE_FALSE(dictuse(number));
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
    std::string folder = dictdirectory, longest(31, 'm');
    for (const std::string &leaf :
         {std::string("broken.dic"), std::string("notes.txt"), std::string("odd.dict"),
          std::string(".dic"), "n" + longest + ".dic", longest + ".dic"})
        fileput(fileof(leaf), "no dictionary");
    std::filesystem::create_directories(fileof("folder.dic"));
    headless.keeptrace = true;
    REQUIRE_FALSE(dictstart());
    headless.keeptrace = false;
    CHECK(state() == "alpha Beta broken Gamma " + longest);
    CHECK(headless.menubuilds == 1);
    CHECK(headless.tracetext.find("dic dir " + folder + "\r\n") != std::string::npos);
    CHECK(headless.tracetext.find("name Beta.dic\r\n") != std::string::npos);
    CHECK(dictnamefind("BETA") == 1);
    CHECK(dictnamefind("delta") == -1);
    dictstop();
    CHECK(headless.menudeletes == 1);
}

TEST_CASE("without a directory there are no dictionaries")
{
    start({"old"});
    use({0});
    strcopyn(dictdirectory, scratch("nosuch").c_str(), sizeof dictdirectory);
    CHECK(dictstart() == nullptr);
    CHECK((ndicts == 0 && dictset.count == 0));
    CHECK(dictdefault()->code == ENOD);
    CHECK(dictcreate("new") != nullptr);
    CHECK(ndicts == 0);
}

TEST_CASE("of 33 files the last is unknown, and none can be created")
{
    wordlist names;
    for (int n = 10; n < 43; n++)
        names.push_back("d" + std::to_string(n));
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
    use({2, 0});
    CHECK(state() == "a1* b c1*");
    CHECK((dictinset(0) && !dictinset(1) && dictinset(2)));
    CHECK(dictset.numbers[1] == 2);
    CHECK(wordtext(makewordref(2, 0)) == std::string("wordc"));
    use({2}); // twice, as a document may have it
    for (const char *after : {"a1* b c1*", "a1* b c", "a1* b c"}) {
        REQUIRE_FALSE(dictunuse(2));
        CHECK(state() == after);
    }
    CHECK(dictcount(&dicts[2].dict) == 0);
    CHECK(headless.setchanges == 0);
    dicttoggle(0);
    dicttoggle(1);
    CHECK(state() == "a b1* c");
    CHECK(headless.setchanges == 2);
}

TEST_CASE("references to nothing have no text")
{
    start({"a"});
    use({0});
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
    fileput(fileof("a.dic"), "no dictionary");
    use({0});
    CHECK(state() == "a1");
    CHECK(wordtext(0) == std::string());
    CHECK(dictreload(0)->code == ERRORREAD);
    CHECK(dictedit(0)->code == ERRORREAD);
    CHECK(headless.edits == 0);
}

TEST_CASE("an edited dictionary is loaded and not in use, until the next document is read")
{
    start({"a", "b"});
    CHECK(dictedit(1) == nullptr);
    CHECK(headless.edits == 1);
    CHECK(state() == "a b*");
    dictsetclear();
    CHECK(setread(setbytes({"a", ""})) == 0);
    CHECK(state() == "a1 b");
}

TEST_CASE("words that the user works on outlast their dictionary's use")
{
    start({"a", "b", "c"});
    use({0, 1, 2});
    addwords(&dicts[0].dict, {"new"});
    dicts[0].changed = 1;
    headless.editing = 2; // b
    for (uint32_t i = 0; i < 3; i++)
        REQUIRE_FALSE(dictunuse(i));
    CHECK(state() == "a* b* c");
    CHECK(setread(setbytes({""})) == 0);
    CHECK(state() == "a* b* c");
    use({0}); // is not read again
    REQUIRE_FALSE(dictunuse(0));
    CHECK(dictcount(&dicts[0].dict) == 2);
    dictsavechanges();
    headless.editing = 0;
    CHECK(setread(setbytes({""})) == 0);
    CHECK(state() == "a b c");
    REQUIRE_FALSE(dictreload(0));
    CHECK(dictcount(&dicts[0].dict) == 2); // what was saved
}

TEST_CASE("a new dictionary stands among the others by name, and the set follows")
{
    start({"Beta", "delta"});
    use({0, 1});
    REQUIRE_FALSE(dictcreate("alpha"));
    CHECK(state() == "Beta1* alpha* delta1*"); // capitals first
    CHECK((dictset.numbers[0] == 0 && dictset.numbers[1] == 2));
    CHECK(wordtext(makewordref(2, 0)) == std::string("worddelta"));
    CHECK(fileget(fileof("alpha.dic")).size() == 304);
    REQUIRE_FALSE(dictcreate("zeta"));
    REQUIRE_FALSE(dictcreate("A"));
    CHECK(state() == "A* Beta1* alpha* delta1* zeta*");
    CHECK((dictset.numbers[0] == 1 && dictset.numbers[1] == 3));
    CHECK(dictanychanges() == 0);
    CHECK(headless.menubuilds == 4);
    CHECK(dictcreate("ALPHA")->code == EDAX);
    CHECK(headless.menubuilds == 5);
    addwords(&dicts[4].dict, {"new"});
}

TEST_CASE("a dictionary that can't be created leaves nothing")
{
    start({"b"});
    use({0});
    for (int32_t n = 0;; n++) {
        flexfailafter(n);
        errorblock *err = dictcreate("a");
        flexfailafter(-1);
        if (!err) break;
        CHECK(err->code == ERRORMEMORY);
        CHECK(state() == "b1*");
        CHECK_FALSE(filethere("a.dic"));
        CHECK(n < 20);
    }
    platformfault.space = 100;
    CHECK(dictcreate("c") != nullptr);
    platformfault = {};
    CHECK(state() == "a* b1*");
    CHECK(dictcreate(std::string(32, 'n').c_str())->code == ERRORMAXSTRING);
    CHECK(dictcreate(std::string(31, 'n').c_str()) == nullptr);
    CHECK(ndicts == 3);
    CHECK(dictcreate("")->code == ERRORQUIET);
    CHECK_FALSE(filethere(".dic"));
    fileput(fileof("late.dic"), "text"); // after the scan
    CHECK(dictcreate("late")->code == EDAX);
    CHECK(dictcreate("\"b\"")->code == EDAX); // the file of another
    CHECK(ndicts == 3);
    CHECK(fileget(fileof("late.dic")) == "text");
}

TEST_CASE("a removed dictionary is gone from disc, set and memory")
{
    start({"a", "b", "c", "d"});
    use({0, 1, 1, 3});
    REQUIRE_FALSE(dictedit(2));
    REQUIRE_FALSE(dictremovefile(1)); // twice in use
    CHECK(state() == "a1* c* d1*");
    CHECK_FALSE(filethere("b.dic"));
    REQUIRE_FALSE(dictremovefile(1)); // loaded, not in use
    CHECK(state() == "a1* d1*");
    CHECK((dictset.count == 2 && dictset.numbers[1] == 1));
    CHECK(wordtext(makewordref(1, 0)) == std::string("wordd"));
    std::filesystem::remove(fileof("a.dic"));
    CHECK(dictremovefile(0) != nullptr);
    CHECK(state() == "a1* d1*");
    REQUIRE_FALSE(dictremovefile(1));
    CHECK((state() == "a1*" && dictset.count == 1));
}

TEST_CASE("the default is the first name that there is")
{
    start({"Puzzle-UK", "MainDict-US", "maindict-uk", "Aardvark"});
    for (int n = 0; n < 2; n++) {
        REQUIRE_FALSE(dictdefault());
        CHECK(state() == "Aardvark maindict-uk1* MainDict-US Puzzle-UK");
    }
    dicttoggle(1);
    use({0});
    REQUIRE_FALSE(dictdefault());
    CHECK(state() == "Aardvark1* maindict-uk MainDict-US Puzzle-UK");
    start({"other"});
    CHECK(dictdefault()->code == ENOD);
    CHECK(dictset.count == 0);
}

TEST_CASE("the set is written by name, and read back")
{
    start({"a", "elevenchars", "twelve_chars", "m"});
    CHECK(written() == setbytes({""}));
    use({0, 1, 2, 3});
    std::string bytes = written();
    CHECK(bytes == setbytes({"a", "elevenchars", "m", "twelve_chars", ""}));
    dictsetclear();
    CHECK(state() == "a* elevenchars* m* twelve_chars*"); // nothing is unloaded yet
    CHECK(setread(setbytes({"M", "a", "nobody", ""})) == 0);
    CHECK(state() == "a1* elevenchars m1* twelve_chars");
    dictsetclear();
    CHECK(setread(bytes) == 0);
    CHECK(state() == "a1* elevenchars1 m1* twelve_chars"); // the longest is lost
    CHECK(dictsetload() == nullptr);
    CHECK(state() == "a1* elevenchars1* m1* twelve_chars");
}

TEST_CASE("a set that ends early is told, and keeps what was read")
{
    start({"a", "b"});
    REQUIRE_FALSE(dictedit(1));
    for (const std::string &bytes : {std::string(), setbytes({"a"}), setbytes({"a"}) + "b"}) {
        dictsetclear();
        CHECK(setread(bytes) == 1);
        CHECK(state() == (bytes.empty() ? "a b*" : "a1 b*"));
    }
    // More names than there is room for.
    wordlist many(MAXDICTS + 2, "a");
    many.push_back("");
    dictsetclear();
    CHECK(setread(setbytes(many)) == 0);
    CHECK((dictset.count == MAXDICTS && dicts[0].usecount == MAXDICTS));
}

TEST_CASE("a set that can't be written is told")
{
    start({"a"});
    bfile file;
    REQUIRE_FALSE(bopen(scratch("set.out").c_str(), "w", 129, &file));
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
    auto edit = [](std::initializer_list<uint32_t> numbers) {
        for (uint32_t number : numbers) {
            addwords(&dicts[number].dict, {"more"});
            dicts[number].changed = 1;
        }
    };
    edit({0, 2});
    CHECK(dictanychanges() == 1);
    CHECK(dictdiscardchanges() == nullptr);
    CHECK(dictanychanges() == 0);
    CHECK((dictcount(&dicts[0].dict) == 1 && dictcount(&dicts[2].dict) == 1));
    edit({0});
    CHECK(dictsavechanges() == nullptr);
    CHECK(dictanychanges() == 0);
    CHECK(dictreload(0) == nullptr);
    CHECK(dictcount(&dicts[0].dict) == 2);
    // The first failure is told, the others are discarded all the same.
    edit({0, 1, 2});
    fileput(fileof("a.dic"), "no dictionary");
    std::filesystem::remove(fileof("b.dic"));
    CHECK(dictdiscardchanges()->code == ERRORREAD);
    CHECK(dictanychanges() == 0);
    CHECK(state() == "a b c*");
    CHECK(dictcount(&dicts[1].dict) == 0);
}
