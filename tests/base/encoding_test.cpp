#include "base/encoding.h"
#include "base/errors.h"
#include "tests/base/scratch.h"

namespace
{

errorblock *in(const std::string &bytes, std::string *text, int32_t size = 100)
{
    char out[100];
    int32_t length = -1;
    errorblock *err =
        utf8to1252(bytes.data(), static_cast<int32_t>(bytes.size()), out, size, &length);
    CHECK(out[length] == 0);
    *text = std::string(out, static_cast<size_t>(length));
    return err;
}

} // namespace

TEST_CASE("every byte of code page 1252 comes back")
{
    char all[256], utf8[769], back[257];
    int32_t length, backlength;
    for (int i = 0; i < 256; i++)
        all[i] = static_cast<char>(i);
    CHECK(cp1252toutf8(all, 256, utf8, sizeof utf8, &length) == nullptr);
    CHECK(utf8to1252(utf8, length, back, sizeof back, &backlength) == nullptr);
    CHECK(std::string(back, static_cast<size_t>(backlength)) == std::string(all, 256));
    CHECK(std::string(utf8, static_cast<size_t>(length)).find("\xE2\x82\xAC") == 128); // the euro
}

TEST_CASE("text that can't be held is refused in words")
{
    std::string text;
    errorblock *err = in("ab\xCF\x80", &text); // pi
    CHECK(code(err) == ERRORENCODING);
    CHECK(words(err) == "Character U+03C0 is not in code page 1252.");
    CHECK(text == "ab");
    for (const char *bad : {"\x80", "\xC3", "\xC3(", "\xC0\xAF", "\xE0\x82\xA9", "\xF8\x88\x80\x80",
                            "\xE2\x82", "\xF0\x80\x82\xAC"})
        CHECK(words(in(std::string("x") + bad, &text)) == "Text is not UTF-8 at byte 1.");
}

TEST_CASE("too little room is an error, and the text is cut")
{
    std::string text;
    for (const char *source : {"abc", "abcd"}) {
        CHECK(code(in(source, &text, 4)) == (source[3] ? ERRORMAXSTRING : 0u));
        CHECK(text == "abc");
    }
    char out[5];
    int32_t length;
    CHECK(cp1252toutf8("\x80z", 2, out, 5, &length) == nullptr);
    CHECK(length == 4);
    CHECK(code(cp1252toutf8("z\x80z", 3, out, 4, &length)) == ERRORMAXSTRING);
    CHECK(std::string(out) == "z");
}
