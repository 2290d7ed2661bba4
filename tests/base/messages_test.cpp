#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "tests/base/scratch.h"
#include "tools/headless.h"

#include <cstring>

namespace
{

errorblock *add(const std::string &text)
{
    return addtranstext(text.data(), static_cast<int32_t>(text.size()));
}

std::string token(const std::string &key)
{
    return lookuptoken(key.c_str());
}

std::string expanded(const std::string &text, int32_t limit = 256)
{
    char buffer[1024];
    std::strcpy(buffer, text.c_str());
    CHECK(expandtokens(buffer, limit) == nullptr);
    return buffer;
}

// A catalogue with a zero in it, which a literal's own length keeps.
template<size_t N> std::string literal(const char (&bytes)[N])
{
    return std::string(bytes, N - 1);
}

} // namespace

TEST_CASE("how a catalogue is read")
{
    // What key yields; "=" alone is the key itself, which nothing was found for.
    const struct {
        std::string text, key;
        const char *value;
    } rows[] = {
        {"A:b:c", "A", "b:c"},
        {"//x\nA:b\n", "//x", "="},
        {"A:b\nKEY:", "KEY", "="},
        {"A:b\nKEY:\n", "KEY", "="},
        {"A:b\nKEY", "KEY", "="},
        {"A:b\nKEY\n", "A", "b"},
        {"A:b\n:c", "", "="},
        {"KEY:\nA:b", "KEY", ""}, // only the last is dropped
        {"KEY:\nA:b", "A", "b"},
        {"A:1\r\n\r\n\n\n B:2\r\nC:3\r\n", " B", "2"},
        {"\r\n\nA:1", "A", "1"},
        {"A:x//y\n", "A", "x//y"},
        {"/A:b\n", "/A", "b"},
        {"A:b\n/", "A", "b"},
        {"A:b\n//last", "A", "b"},
        {"A:b\n//", "A", "b"},
        {"//\n//\r\n//x\r\n\r\nA:b\n// y\n", "A", "b"},
        {"no colon\nA:b\nB:c\n", "A", "="}, // merged with the line before
        {"no colon\nA:b\nB:c\n", "B", "c"},
        {"A:\xE9\x80\nB\xFF:c", "A", "\xE9\x80"},
        {"A:\xE9\x80\nB\xFF:c", "B\xFF", "c"},
        {literal("A:b\x1F\x63\nB:d"), "A", "b\x1F\x63"},
        {"A:b\tB:c\n", "B", "c"}, // any control code ends a text
        {literal("A:b\0B:c"), "B", "c"},
        {literal("A\0b\nB:c"), "A", "b"},
        {"A:1\nA:2\na:3", "A", "1"},
        {"A:1\nA:2\na:3", "a", "3"},
        {"", "A", "="},
        {":", "", "="},
        {"\n//", "A", "="},
    };
    scratch place;
    for (const auto &row : rows) {
        CAPTURE(row.text);
        std::string expected = std::string(row.value) == "=" ? row.key : row.value;
        CHECK(inittrans() == nullptr);
        CHECK(add(row.text) == nullptr);
        CHECK(token(row.key) == expected);
        CHECK(add("ZZ:last") == nullptr); // the store is well to be added to
        CHECK(token("ZZ") == "last");

        inittrans();
        place.write("read.txt", row.text);
        CHECK(addtrans(place.folder.c_str(), "read.txt") == nullptr);
        CHECK(token(row.key) == expected);
    }
}

TEST_CASE("what was added first wins")
{
    CHECK(token("A") == "A"); // no store at all
    CHECK(add("A:first\n") == nullptr);
    CHECK(add("A:second\nB:new\n") == nullptr);
    CHECK(token("A") == "first");
    CHECK(token("B") == "new");
}

TEST_CASE("a catalogue that isn't there")
{
    scratch place;
    const char *folder = place.folder.c_str();
    std::string path = place.path("gone.txt");
    inittrans();
    headless.keeptrace = true;
    errorblock *err = addtrans(folder, "gone.txt");
    CHECK(code(err) == ERRORNOTFOUND);
    CHECK(words(err) == "Messages file not found.");
    CHECK(headless.tracetext == "addtrans file " + path + "\r\n");
    add("ENOTFOUND:File %s not found.");
    CHECK(words(addtrans(folder, "gone.txt")) == "File " + path + " not found.");
    CHECK(addtrans(nullptr, "NOSUCH") == nullptr); // a resource adds nothing
    CHECK(code(addtrans(std::string(300, 'x').c_str(), "gone.txt")) == ERRORMAXSTRING);
}

TEST_CASE("a catalogue that can't be taken in leaves the store as it was")
{
    scratch place;
    const char *folder = place.folder.c_str();
    place.write("more.txt", "B:more\n");
    add("A:b");
    flexfailafter(0);
    CHECK(code(add("B:more")) == ERRORMEMORY);
    flexfailafter(0);
    CHECK(code(addtrans(folder, "more.txt")) == ERRORMEMORY);
    platformfault.opens = 0;
    CHECK(addtrans(folder, "more.txt"));
    platformfault.reads = 0;
    CHECK(addtrans(folder, "more.txt"));
    CHECK(token("A") == "b");
    CHECK(token("B") == "B");
    CHECK(token("") == "");
    platformfault.readlimit = 1;
    CHECK(addtrans(folder, "more.txt") == nullptr);
    CHECK(token("B") == "more");
}

TEST_CASE("expanding tokens")
{
    add("NAME:Quillmere\nTWO:{NAME} two\nE:\nK:{\nV:NAME}\n"
        "A123456789012345678901234567890:thirty-one\n"
        "A1234567890123456789012345678901:thirty-two\nZ:last");
    const struct {
        const char *text, *result;
    } rows[] = {
        {"", ""},
        {"a {NAME} b{NAME}", "a Quillmere bQuillmere"},
        {"{TWO}", "Quillmere two"},
        {"{NOSUCHKEY}", "NOSUCHKEY"},
        {"{name}", "name"},
        {"{}", ""},
        {"{E}x", "x"},
        {"{{NAME}", "{NAME}"},
        {"{{{NAME}", "{{NAME}"},
        {"{{{{NAME}", "{{Quillmere"}, // the fourth brace opens a token
        {"{{x", "{x"},
        {"x{", "x{"},
        {"{NAME", "{NAME"},
        {"{A {NAME}", "A {NAME"}, // the key runs to the first closing brace
        {"{A123456789012345678901234567890}", "thirty-one"},
        {"{A1234567890123456789012345678901}", "{A1234567890123456789012345678901}"},
        {"{AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA {NAME}", "{AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA Quillmere"},
        {"{K}NAME}", "Quillmere"}, // the value is walked from its start
        {"{{{V}", "{{V}"},
    };
    for (const auto &row : rows) {
        CAPTURE(row.text);
        CHECK(expanded(row.text) == row.result);
    }
}

TEST_CASE("a value that doesn't fit leaves its token, and the walk goes on")
{
    add("LONG:0123456789\nB:b\n");
    CHECK(expanded("{LONG}", 11) == "0123456789");
    CHECK(expanded("{LONG}", 10) == "{LONG}");
    CHECK(expanded("x{LONG}{B}", 11) == "x{LONG}b");
    CHECK(expanded("{B}{LONG}", 12) == "b0123456789");
}

TEST_CASE("a value that leads back to itself ends all the same")
{
    add("A:{A}\nB:{C}\nC:{B}\nD:x{D}\nZ:z");
    CHECK(expanded("{A}") == "{A}");
    CHECK(expanded("{B}").size() == 3);
    CHECK(expanded("{D}", 20) == std::string(16, 'x') + "{D}");
    CHECK(expanded("{D}{Z}", 20).size() < 20);
}

TEST_CASE("formatting into a buffer")
{
    add("NAME:Quillmere\nWHAT:%d words\n");
    // Through a pointer, since the compiler can't check formats that are made.
    errorblock *(*format)(int32_t, char *, const char *, ...) = transprintf;
    char buffer[30];
    CHECK(format(29, buffer, "{NAME}: {WHAT}, %s", 5, "{NAME}") == nullptr);
    CHECK(std::string(buffer) == "Quillmere: 5 words, {NAME}"); // the second doesn't fit
    CHECK(format(sizeof buffer, buffer, "%s", "{NAME}") == nullptr);
    CHECK(std::string(buffer) == "Quillmere");
    CHECK(format(5, buffer, "%s", "longer than that") == nullptr);
    CHECK(std::string(buffer) == "long");

    std::string longest(1023, 'x');
    CHECK(format(sizeof buffer, buffer, longest.c_str()) == nullptr);
    CHECK(code(format(sizeof buffer, buffer, (longest + "x").c_str())) == ERRORMAXSTRING);
    CHECK(std::string(buffer) == std::string(29, 'x'));
}

TEST_CASE("the program's own catalogue")
{
    REQUIRE(addtrans(RESOURCESFOLDER, "Messages.txt") == nullptr);
    CHECK(expanded("{EREPDEC}") == "Repeated decimal point");      // the first entry
    CHECK(expanded("{COPY}") == "(c) 2026 The Quillmere authors"); // the last
    for (const char *key :
         {"ENOE",      "EME",   "ERD",   "EWR",    "ETEMP",  "ETEMPX", "ETEMPF",  "ENOTF",
          "ENOTFOUND", "ESCAN", "ELCAN", "ECR",    "ENMW",   "ENTS",   "EASW",    "EMDC",
          "EDAX",      "ENOD",  "EASP",  "EDCOLD", "EDCAPS", "EAMAT",  "ENOSAVE", "FS10",
          "ABOUT",     "HOME",  "WEB",   "EMAIL",  "AUTHOR"}) {
        CAPTURE(key);
        CHECK(token(key) != key);
        CHECK(expanded(token(key)) == token(key)); // none stands for another
    }
}
