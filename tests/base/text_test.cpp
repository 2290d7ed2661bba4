#include "base/text.h"

#include "base/chars.h"
#include "base/ctltext.h"
#include "base/edittext.h"
#include "base/encoding.h"
#include "base/flex.h"
#include "base/widetext.h"
#include "tests/base/scratch.h"

#include <cstring>

namespace
{

// A call that changes the text in a buffer, for rows.
auto edit(void (*call)(char *))
{
    return [call](const std::string &in) {
        char buffer[100];
        std::strcpy(buffer, in.c_str());
        call(buffer);
        return std::string(buffer);
    };
}

} // namespace

TEST_CASE("checked copies: what just fits fits, and the rest is an error and a cut text")
{
    const struct {
        const char *source;
        int32_t size;
        const char *copy;
    } list[] = {{"\xE9ves", 5, "\xE9ves"}, {"fives", 5, "five"}, {"", 1, ""}, {"x", 1, ""}};
    for (const auto &row : list) {
        CAPTURE(row.source);
        char narrow[8] = "zzzzzzz";
        char16_t wide[8] = u"zzzzzzz", source[8] = {};
        for (size_t i = 0; row.source[i]; i++)
            source[i] = static_cast<uint8_t>(row.source[i]);
        uint32_t error = std::strcmp(row.source, row.copy) ? ERRORMAXSTRING : 0;
        CHECK(code(xzstrncpy(narrow, row.source, row.size)) == error);
        CHECK(std::string(narrow) == row.copy);
        CHECK(code(xzstrncpyu(narrow, row.source, row.size)) == error);
        CHECK(code(xzstrncpy21(narrow, source, row.size)) == error);
        CHECK(std::string(narrow) == row.copy);
        CHECK(code(xzstrncpy22(wide, row.source, row.size)) == error);
        for (size_t i = 0; i <= std::strlen(row.copy); i++)
            CHECK(wide[i] == static_cast<uint8_t>(row.copy[i]));
        strcopyn(narrow, row.source, row.size);
        CHECK(std::string(narrow) == row.copy);
    }

    char *copy = nullptr;
    flexfailafter(0);
    CHECK(code(strnew("text", &copy)) == ERRORMEMORY);
    CHECK((!strnew("text", &copy) && std::string(copy) == "text"));
    void *memory = copy;
    heap_free(&memory);
}

TEST_CASE("checked formatting")
{
    char buffer[6];
    int32_t length = -1;
    CHECK((!xzsnprintf(6, &length, buffer, "%d%s", 12, "abc") && length == 5));
    CHECK(code(xzsnprintf(6, &length, buffer, "%d%s", 12, "abcd")) == ERRORMAXSTRING);
    CHECK(std::string(buffer) == "12abc");
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
    for (uint8_t ch : {'@', '[', '`', '{', '\xD7', '\xF7'})
        CHECK_FALSE(charisletter(ch));
}

TEST_CASE("comparing and finding without case")
{
    const struct {
        const char *a, *b;
        int32_t n;
        int difference, limited;
        int32_t prefix;
    } list[] = {{"abc", "ABC", 9, 0, 0, 3},
                {"abc", "abd", 9, -1, -1, 2},
                {"abc", "abd", 2, -1, 0, 2},
                {"ab", "abc", 9, -'C', -'C', 2},
                {"", "", 9, 0, 0, 0},
                {"\xFF", "z", 9, 159 - 'Z', 159 - 'Z', 0},
                {"a_", "aB", 9, '_' - 'B', '_' - 'B', 1}};
    for (const auto &row : list) {
        CAPTURE(row.a);
        CHECK(cstricmp(row.a, row.b) == row.difference);
        CHECK(cstrnicmp(row.a, row.b, row.n) == row.limited);
        CHECK(cstrprefix(row.a, row.b, row.n) == row.prefix);
    }
    CHECK(cstrstarts("Prefixed", "pREF") == 0);
    CHECK(cstrstarts("Pre", "pref") < 0);
    CHECK(cstrnicmpw(u"\x20AC\x0161z", u"\x20AC\x0160Z!", 3) == 0);
    CHECK(cstrnicmpw(u"\x20AC\x0161z", u"\x20AC\x0160Z!", 4) == -'!');
    CHECK(cstrnicmpw(u"\x3C0", u"\x3A0", 3) == 0x20); // no letters of ours
    CHECK(strlenw(u"\x3C0x") == 2);
    rows("cstrstr",
         [](const auto &in) {
             const char *found = cstrstr("one Two TWO", in.c_str());
             return std::string(found ? found : "none");
         },
         {{"tWO", "Two TWO"}, {"", "one Two TWO"}, {"twos", "none"}});
    CHECK(cstrnicmpctl("abc\r", "ABC\nx", 9) == 0);
    CHECK(cstrnicmpctl("abc\r", "abcd", 9) == '\r' - 'D');
    CHECK(cstrnicmpctl("abc", "abd", 2) == 0);
}

TEST_CASE("control-terminated text")
{
    CHECK(strlenctl("\xE9\xFF \x1F") == 3);
    rows("strcopyctl", edit([](char *t) { strcopyctl(t, t); }), {{"ab \xE9\nx", "ab \xE9"}});
    rows("strcopyctln", edit([](char *t) { strcopyctln(t, t, 4); }),
         {{"abcdef\n", "abc"}, {"ab\ncdef", "ab"}});
    rows("strendctl", edit([](char *t) {
             const char *end = strendctl(t, 3);
             CHECK(end == t + std::strlen(t));
         }),
         {{"abc\n", "abc"}, {"abcd", "abc"}, {"ab\nx", "ab"}});
    rows("strtrimctl", edit(strtrimctl), {{"ab  \rx", "ab"}, {"a b\rx", "a b\rx"}, {"  \n", ""}});
}

TEST_CASE("editing in place")
{
    auto replace = edit([](char *t) { strcat(t, strreplace(t, "TWO", "x") ? "" : "-"); });
    rows("strreplace", replace, {{"one two TWO TWO", "one two x TWO"}, {"two", "two-"}});
    auto replacei = edit([](char *t) { strcat(t, strreplacei(t, "TWO", "three") ? "" : "-"); });
    rows("strreplacei", replacei, {{"one two TWO", "one three TWO"}, {"one", "one-"}});
    rows("strreplacech", edit([](char *t) { strreplacech(t, '/', '\\'); }), {{"/b/", "\\b\\"}});
    rows("strunquote", edit([](char *t) { strunquote(t, t); }),
         {{"\"\"quoted\" rest", "quoted"}, {"plain", "plain"}, {"\"", ""}});
    CHECK(strcountch("a,b,,c", ',') == 3);
    CHECK(strcountlist("one\0two\0three\0") == 3);
}

TEST_CASE("16-bit text")
{
    char narrow[8];
    char16_t wide[8];
    CHECK(!multitowide("\x80\xE9z", wide, 4));
    CHECK(std::u16string(wide) == u"\x20AC\xE9z");
    CHECK(!widetomulti(wide, narrow, 4, LACKREFUSED));
    CHECK(std::string(narrow) == "\x80\xE9z");
    CHECK(code(multitowide("abc", wide, 3)) == ERRORMAXSTRING);
    CHECK(code(widetomulti(u"abc", narrow, 3, LACKREFUSED)) == ERRORMAXSTRING);

    const char16_t lacking[] = {'a', 0xD83D, 0xDE00, 'b', 0xDE00, 0xD83D, 0};
    CHECK(!widetomulti(lacking, narrow, 8, LACKQUESTION));
    CHECK(std::string(narrow) == "a?b??");
    CHECK(words(widetomulti(lacking, narrow, 8, LACKREFUSED)) ==
          "Character U+1F600 is not in code page 1252.");
    CHECK(std::string(narrow) == "a");
}

TEST_CASE("UTF-8: every byte of the code page comes back, and what can't be held is refused")
{
    char all[256], utf8[769], back[257];
    int32_t length, backlength;
    for (int i = 0; i < 256; i++)
        all[i] = static_cast<char>(i);
    CHECK(!cp1252toutf8(all, 256, utf8, sizeof utf8, &length));
    CHECK(!utf8to1252(utf8, length, back, sizeof back, &backlength));
    CHECK(std::string(back, static_cast<size_t>(backlength)) == std::string(all, 256));
    CHECK(std::string(utf8 + 1, 130).ends_with("\x7F\xE2\x82\xAC"));

    auto narrowed = [](const std::string &in) {
        char out[4];
        int32_t count = -1;
        errorblock *err = utf8to1252(in.data(), static_cast<int32_t>(in.size()), out, 4, &count);
        CHECK(out[count] == 0);
        return out + std::string(err ? " " : "") + words(err);
    };
    std::string bad = " Text is not UTF-8 at byte 1.", pi = "U+03C0 is not in code page 1252.";
    rows("utf8to1252", narrowed,
         {{"abc", "abc"},
          {"abcd", "abc EMAXSTRING"},
          {"ab\xCF\x80", "ab Character " + pi},
          {"x\x80", "x" + bad},
          {"x\xC3", "x" + bad},
          {"x\xC3(", "x" + bad},
          {"x\xC0\xAF", "x" + bad},
          {"x\xE0\x82\xA9", "x" + bad},
          {"x\xF8\x88\x80\x80", "x" + bad},
          {"x\xF0\x80\x82\xAC", "x" + bad},
          {"\xF0\x9F\x98\x80", " Character U+1F600 is not in code page 1252."}});
    CHECK(!cp1252toutf8("\x80z", 2, utf8, 5, &length));
    CHECK(code(cp1252toutf8("z\x80z", 3, utf8, 4, &length)) == ERRORMAXSTRING);
    CHECK(std::string(utf8) == "z");

    rows("textkindutf8",
         [](const auto &in) {
             textkindfinder finder = {};
             for (char ch : in)
                 textkindbyte(&finder, static_cast<uint8_t>(ch));
             return std::string(textkindutf8(finder) ? "UTF-8" : "");
         },
         {{"plain", ""},
          {"\xC3\xA9", "UTF-8"},
          {"\xEF\xBB\xBFplain", "UTF-8"},
          {"\xC3\xA9\xC3", ""}, // ends in the middle
          {"\xC3\xA9\xE9!", ""}});
}
