#include "base/chars.h"
#include "base/ctltext.h"
#include "base/edittext.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/text.h"
#include "base/widetext.h"
#include "tests/base/scratch.h"

#include <cstring>

namespace
{

int sign(int value)
{
    return (value > 0) - (value < 0);
}

template<class Call> std::string edited(const std::string &text, Call call)
{
    char buffer[100];
    std::strcpy(buffer, text.c_str());
    call(buffer);
    return buffer;
}

} // namespace

TEST_CASE("checked copies: what just fits fits, and the rest is an error and a cut text")
{
    const struct {
        const char *source;
        int32_t size;
        const char *copy;
        bool fits;
    } rows[] = {{"fives", 6, "fives", true},
                {"fives", 5, "five", false},
                {"", 1, "", true},
                {"x", 1, "", false},
                {"\xE9t\xE9", 4, "\xE9t\xE9", true}};
    for (const auto &row : rows) {
        CAPTURE(row.source);
        char narrow[8] = "zzzzzzz";
        char16_t wide[8] = u"zzzzzzz";
        char16_t source[8] = {};
        for (size_t i = 0; row.source[i]; i++)
            source[i] = static_cast<uint8_t>(row.source[i]);
        uint32_t error = row.fits ? 0 : ERRORMAXSTRING;
        CHECK(code(xzstrncpy(narrow, row.source, row.size)) == error);
        CHECK(std::string(narrow) == row.copy);
        CHECK(code(xzstrncpyu(narrow, row.source, row.size)) == error);
        CHECK(std::string(narrow) == row.copy);
        CHECK(code(xzstrncpy21(narrow, source, row.size)) == error);
        CHECK(std::string(narrow) == row.copy);
        CHECK(code(xzstrncpy22(wide, row.source, row.size)) == error);
        for (size_t i = 0; i <= std::strlen(row.copy); i++)
            CHECK(wide[i] == static_cast<uint8_t>(row.copy[i]));
        strcopyn(narrow, row.source, row.size);
        CHECK(std::string(narrow) == row.copy);
    }
}

TEST_CASE("checked formatting")
{
    char buffer[6];
    int32_t length = -1;
    CHECK(xzsnprintf(6, &length, buffer, "%d%s", 12, "abc") == nullptr);
    CHECK(std::string(buffer) == "12abc");
    CHECK(length == 5);
    CHECK(code(xzsnprintf(6, &length, buffer, "%d%s", 12, "abcd")) == ERRORMAXSTRING);
    CHECK(std::string(buffer) == "12abc");
    CHECK(length == 5);
    CHECK(xzsnprintf(1, nullptr, buffer, "%s", "") == nullptr);

    wchar_t wide[6];
    CHECK(xzsnprintfw(6, &length, wide, L"%d%ls", 7, L"abc") == nullptr);
    CHECK(std::wstring(wide) == L"7abc");
    CHECK(length == 4);
    CHECK(code(xzsnprintfw(6, nullptr, wide, L"%d%ls", 7, L"abcdefg")) == ERRORMAXSTRING);
    CHECK(wide[5] == 0);
}

TEST_CASE("a copy of its own")
{
    char *copy = nullptr;
    flexfailafter(0);
    CHECK(code(strnew("text", &copy)) == ERRORMEMORY);
    CHECK(copy == nullptr);
    CHECK(strnew("text", &copy) == nullptr);
    CHECK(std::string(copy) == "text");
    void *memory = copy;
    heap_free(&memory);
}

TEST_CASE("case is the code page's")
{
    int letters = 0;
    for (int ch = 0; ch < 256; ch++) {
        CAPTURE(ch);
        uint8_t byte = static_cast<uint8_t>(ch), upper = byte;
        if ((ch >= 97 && ch <= 122) || (ch >= 224 && ch <= 246) || (ch >= 248 && ch <= 254))
            upper = static_cast<uint8_t>(ch - 32);
        if (ch == 154 || ch == 156) upper = static_cast<uint8_t>(ch - 16);
        if (ch == 255) upper = 159;
        CHECK(charupper(byte) == upper);
        CHECK(charlower(upper) == (upper == byte ? charlower(byte) : byte));
        CHECK(charupper(charlower(byte)) == upper);
        letters += charisletter(byte);
    }
    CHECK(letters == 52 + 62 + 11); // ASCII, the accented runs, and those in 128 to 191
    for (const char *ch = "@[`{0_ \xD7\xF7\x80\xA9"; *ch; ch++)
        CHECK_FALSE(charisletter(static_cast<uint8_t>(*ch)));
    for (uint8_t same : {uint8_t{'['}, uint8_t{215}, uint8_t{223}})
        CHECK(charlower(same) == same);
}

TEST_CASE("comparing without case")
{
    const struct {
        const char *a, *b;
        int32_t n;
        int difference, limited;
        int32_t prefix;
    } rows[] = {{"abc", "ABC", 9, 0, 0, 3},
                {"abc", "abd", 9, -1, -1, 2},
                {"abc", "abd", 2, -1, 0, 2},
                {"ab", "abc", 9, -'C', -'C', 2},
                {"", "", 9, 0, 0, 0},
                {"", "a", 0, -'A', 0, 0},
                {"\xE9", "\xC9", 9, 0, 0, 1},
                {"\xFF", "z", 9, 159 - 'Z', 159 - 'Z', 0},
                {"a_", "aB", 9, '_' - 'B', '_' - 'B', 1}};
    for (const auto &row : rows) {
        CAPTURE(row.a);
        CHECK(cstricmp(row.a, row.b) == row.difference);
        CHECK(cstrnicmp(row.a, row.b, row.n) == row.limited);
        CHECK(cstrprefix(row.a, row.b, row.n) == row.prefix);
    }
    CHECK(cstrstarts("Prefixed", "pREF") == 0);
    CHECK(cstrstarts("Pre", "pref") < 0);
    CHECK(cstrstarts("x", "") == 0);
    CHECK(cstrnicmpw(u"\x20AC\x0161z", u"\x20AC\x0160Z!", 3) == 0);
    CHECK(cstrnicmpw(u"\x20AC\x0161z", u"\x20AC\x0160Z!", 4) == -'!');
    CHECK(cstrnicmpw(u"\x3C0", u"\x3A0", 3) == 0x20); // no letters of ours
    CHECK(strlenw(u"\x3C0x") == 2);
}

TEST_CASE("finding without case")
{
    const char *text = "one Two TWO";
    CHECK(cstrstr(text, "tWO") == text + 4);
    CHECK(cstrstr(text, "") == text);
    CHECK(cstrstr(text, "twos") == nullptr);
    CHECK(cstrstr("", "") != nullptr);
    CHECK(cstrstr("", "x") == nullptr);
    CHECK(cstrstr("aab", "AB") != nullptr);
}

TEST_CASE("control-terminated text")
{
    char out[20];
    CHECK(strlenctl("abc\rdef") == 3);
    CHECK(strlenctl("\xE9\xFF\x1F") == 2);
    strcopyctl(out, "ab \xE9\nx");
    CHECK(std::string(out) == "ab \xE9");
    strcopyctln(out, "abcdef\n", 4);
    CHECK(std::string(out) == "abc");
    strcopyctln(out, "ab\ncdef", 4);
    CHECK(std::string(out) == "ab");

    char text[] = "abc\ndef";
    CHECK(strendctl(text, 7) == text + 3);
    CHECK(text[3] == 0);
    CHECK(strendctl(text, 2) == text + 2);
    CHECK(std::string(text) == "ab");

    CHECK(edited("ab  \rx", strtrimctl) == "ab");
    CHECK(edited("ab\rx", strtrimctl) == "ab\rx");
    CHECK(edited("  \n", strtrimctl) == "");
    CHECK(edited("a b", strtrimctl) == "a b");

    CHECK(cstrnicmpctl("abc\r", "ABC\nx", 9) == 0);
    CHECK(cstrnicmpctl("abc\r", "abcd", 9) == '\r' - 'D');
    CHECK(cstrnicmpctl("abc", "abd", 2) == 0);
    CHECK(sign(cstrnicmpctl("abc", "abd", 3)) == -1);
}

TEST_CASE("editing in place")
{
    CHECK(edited("one two TWO", [](char *t) { strreplacei(t, "TWO", "three"); }) ==
          "one three TWO");
    CHECK(edited("one two TWO", [](char *t) { strreplace(t, "TWO", "x"); }) == "one two x");
    CHECK(edited("one", [](char *t) { CHECK_FALSE(strreplace(t, "ONE", "x")); }) == "one");
    CHECK(edited("one", [](char *t) { CHECK(strreplacei(t, "ONE", "")); }) == "");
    CHECK(edited("a/b/c", [](char *t) { strreplacech(t, '/', '\\'); }) == "a\\b\\c");
    CHECK(edited("\"\"quoted\" rest", [](char *t) { strunquote(t, t); }) == "quoted");
    CHECK(edited("plain", [](char *t) { strunquote(t, t); }) == "plain");
    CHECK(edited("\"", [](char *t) { strunquote(t, t); }) == "");
    CHECK(strcountch("a,b,,c", ',') == 3);
    CHECK(strcountlist("one\0two\0three\0") == 3);
    CHECK(strcountlist("") == 0);
}

TEST_CASE("16-bit text")
{
    char narrow[8];
    char16_t wide[8];
    CHECK(multitowide("\x80\xE9z", wide, 8) == nullptr);
    CHECK(std::u16string(wide) == u"\x20AC\xE9z");
    CHECK(widetomulti(wide, narrow, 4, LACKREFUSED) == nullptr);
    CHECK(std::string(narrow) == "\x80\xE9z");
    CHECK(code(multitowide("abc", wide, 3)) == ERRORMAXSTRING);
    CHECK(std::u16string(wide) == u"ab");
    CHECK(code(widetomulti(u"abc", narrow, 3, LACKREFUSED)) == ERRORMAXSTRING);
    CHECK(std::string(narrow) == "ab");

    const char16_t lacking[] = {'a', 0x3C0, 0xD83D, 0xDE00, 'b', 0xDE00, 0xD83D, 0};
    CHECK(widetomulti(lacking, narrow, 8, LACKQUESTION) == nullptr);
    CHECK(std::string(narrow) == "a??b??");
    CHECK(words(widetomulti(lacking, narrow, 8, LACKREFUSED)) ==
          "Character U+03C0 is not in code page 1252.");
    CHECK(std::string(narrow) == "a");
    CHECK(words(widetomulti(lacking + 2, narrow, 8, LACKREFUSED)) ==
          "Character U+1F600 is not in code page 1252.");
}
