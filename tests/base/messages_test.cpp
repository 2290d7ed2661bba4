#include "base/messages.h"

#include "base/flex.h"
#include "tests/base/scratch.h"

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
    CHECK(!expandtokens(buffer, limit));
    return buffer;
}

} // namespace

TEST_CASE("how a catalogue is read")
{
    // What key yields; "=" alone is the key itself, which nothing was found for.
    const struct {
        std::string text, key;
        const char *value;
    } list[] = {
        {"A:b:c", "A", "b:c"},
        {"A:b\nKEY:\n", "KEY", "="},
        {"A:b\nKEY\n", "KEY", "="},
        {"A:b\n:c", "", "="},
        {"A:1\r\n\r\n\n\n B:2\r\nC:3\r\n", " B", "2"},
        {"\r\n\nA:x//y\n", "A", "x//y"},
        {"/A:b\n", "/A", "b"},
        {"//\n//\r\n//x\r\n\r\nA:b\n// y\n//", "A", "b"},
        {"no colon\nA:b\nB:c\n", "A", "="}, // merged with the line before
        {"no colon\nA:b\nB:c\n", "B", "c"},
        {literal("A:b\x1F\x63\nB:d"), "A", "b\x1F\x63"},
        {literal("A:b\0B:c"), "B", "c"}, // any control code ends a text
        {literal("A\0b\nB:c"), "A", "b"},
        {"A:1\nA:2\na:3", "A", "1"},
        {"", "A", "="},
        {":", "", "="},
    };
    scratch place;
    for (const auto &row : list) {
        CAPTURE(row.text);
        std::string expected = std::string(row.value) == "=" ? row.key : row.value;
        CHECK(!inittrans());
        CHECK(!add(row.text));
        CHECK(token(row.key) == expected);

        inittrans();
        place.write("read.txt", row.text);
        CHECK(!addtrans(place.folder.c_str(), "read.txt"));
        CHECK(token(row.key) == expected);
    }
}

TEST_CASE("a catalogue that can't be taken in leaves the store as it was")
{
    scratch place;
    const char *folder = place.folder.c_str();
    std::string path = place.path("gone.txt");
    CHECK(token("A") == "A"); // no store at all
    flexfailafter(0);
    CHECK(code(add("A:b")) == ERRORMEMORY);
    CHECK(words(addtrans(folder, "gone.txt")) == "Messages file not found.");
    CHECK(!add("A:b\nENOTFOUND:File %s not found."));
    CHECK(words(addtrans(folder, "gone.txt")) == "File " + path + " not found.");
    CHECK(!addtrans(nullptr, "NOSUCH")); // a resource adds nothing
    CHECK(code(addtrans(std::string(300, 'x').c_str(), "gone.txt")) == ERRORMAXSTRING);

    place.write("more.txt", "B:more\nA:second");
    flexfailafter(0);
    CHECK(code(add("B:more")) == ERRORMEMORY);
    flexfailafter(0);
    CHECK(code(addtrans(folder, "more.txt")) == ERRORMEMORY);
    platformfault.reads = 0;
    CHECK(addtrans(folder, "more.txt"));
    CHECK(token("B") == "B");
    platformfault.readlimit = 1;
    CHECK(!addtrans(folder, "more.txt"));
    CHECK(token("A") + token("B") == "bmore"); // what was added first wins
}

TEST_CASE("expanding tokens")
{
    CHECK(!add("NAME:Quillmere\nTWO:{NAME} two\nE:\nK:{\nV:NAME}\n"
               "A123456789012345678901234567890:thirty-one\n"
               "A1234567890123456789012345678901:thirty-two\nLONG:0123456789\nB:b\n"
               "LOOP:{LOOP}\nC:{D}\nD:{C}\nGROW:x{GROW}\nZ:z"));
    rows("expandtokens", [](const auto &in) { return expanded(in); },
         {
             {"a {NAME} b{NAME}", "a Quillmere bQuillmere"},
             {"{TWO}", "Quillmere two"},
             {"{NOSUCHKEY}{name}{}{E}", "NOSUCHKEYname"},
             {"{{NAME}", "{NAME}"},
             {"{{{{NAME}", "{{Quillmere"}, // the fourth brace opens a token
             {"x{", "x{"},
             {"{NAME", "{NAME"},
             {"{A {NAME}", "A {NAME"}, // the key runs to the first closing brace
             {"{A123456789012345678901234567890}", "thirty-one"},
             {"{A1234567890123456789012345678901}", "{A1234567890123456789012345678901}"},
             {"{K}NAME}", "Quillmere"}, // the value is walked from its start
             {"{{{V}", "{{V}"},
             {"{LOOP}", "{LOOP}"}, // ends all the same
         });
    // A value that doesn't fit leaves its token, and the walk goes on.
    rows("expandtokens in 11 bytes", [](const auto &in) { return expanded(in, 11); },
         {{"{LONG}", "0123456789"}, {"x{LONG}{B}", "x{LONG}b"}, {"{GROW}{Z}", "x{GROW}z"}});
    CHECK(expanded("{LONG}", 10) == "{LONG}");
    CHECK(expanded("{{x{LONG}", 13) == "{x0123456789");
}

TEST_CASE("formatting into a buffer")
{
    CHECK(!add("NAME:Quillmere\nWHAT:%d words\n"));
    // Through a pointer, since the compiler can't check formats that are made.
    errorblock *(*format)(int32_t, char *, const char *, ...) = transprintf;
    char buffer[30];
    CHECK(!format(29, buffer, "{NAME}: {WHAT}, %s", 5, "{NAME}"));
    CHECK(std::string(buffer) == "Quillmere: 5 words, {NAME}"); // the second doesn't fit
    CHECK(!format(sizeof buffer, buffer, "%s", "{NAME}"));
    CHECK(std::string(buffer) == "Quillmere");
    CHECK(!format(5, buffer, "%s", "longer than that"));
    CHECK(std::string(buffer) == "long");
    std::string longest(1023, 'x');
    CHECK(!format(sizeof buffer, buffer, longest.c_str()));
    CHECK(code(format(sizeof buffer, buffer, (longest + "x").c_str())) == ERRORMAXSTRING);
    CHECK(std::string(buffer) == std::string(29, 'x'));
}
