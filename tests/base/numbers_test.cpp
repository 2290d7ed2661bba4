#include "base/numbers.h"

#include "base/binsearch.h"
#include "base/escapes.h"
#include "base/random.h"
#include "base/textkind.h"
#include "tests/base/scratch.h"

#include <algorithm>

namespace
{

std::string spelt(int32_t value)
{
    return std::to_string(value);
}

int intorder(const void *record, const void *key)
{
    return *static_cast<const int32_t *>(record) - *static_cast<const int32_t *>(key);
}

} // namespace

TEST_CASE("reading numbers")
{
    // used counts the zero of a number that ends the text.
    const struct {
        const char *text;
        int32_t value, used;
        uint32_t hex;
        int32_t hexused;
        bool whole;
    } list[] = {{"-0x1f", -31, 6, 0, 0, true},
                {"", 0, 1, 0, 1, false},
                {"-", 0, 2, 0, 0, false},
                {"0x", 0, 3, 0, 1, false},
                {"0XfF", 255, 5, 0, 1, true},
                {"1a", 20, 3, 0x1a, 3, false},
                {" 1", 0, 0, 0, 0, false},
                {"ffffffff,", 166666665, 8, 0xffffffff, 8, false},
                {"-2147483648", INT32_MIN, 12, 0, 0, true},
                {"90", 90, 3, 0x90, 3, true}};
    for (const auto &row : list) {
        CAPTURE(row.text);
        int32_t used = -1;
        CHECK(numberparse(row.text, &used) == row.value);
        CHECK(used == row.used);
        CHECK(hexparse(row.text, &used) == row.hex);
        CHECK(used == row.hexused);
        CHECK(isnumber(row.text) == row.whole);
    }
}

TEST_CASE("writing numbers")
{
    const struct {
        double value;
        int32_t places, size;
        const char *text;
        int cut;
    } list[] = {{2, 3, 50, "2.0", 0},          {-0.05, 3, 50, "-0.05", 0},
                {12.3456, 3, 50, "12.346", 0}, {100.1, 4, 50, "100.1", 0},
                {3, 0, 50, "3.0", 0},          {1.5, 3, 4, "1.5", 0},
                {1.5, 3, 3, "1.", 1},          {1e300, 100, 2, "1", 1}};
    for (const auto &row : list) {
        char out[50];
        CHECK(numbertext(row.value, row.places, out, row.size) == row.cut);
        CHECK(std::string(out) == row.text);
    }
    rows("sizetext", [](const auto &in) { return sizetext(hexparse(in.c_str(), nullptr)); },
         {{"0", "0"},
          {"3ff", "1023"},
          {"400", "1K"},
          {"fffff", "1023K"},
          {"100000", "1M"},
          {"1027ff", "1M"}, // nine KiB are no hundredth
          {"102c00", "1.01M"},
          {"ffffffff", "4095.99M"}});
}

TEST_CASE("arithmetic")
{
    const int32_t products[][4] = {{100, 96, 180, 53},
                                   {1, 1, 2, 1},
                                   {1, 1, 3, 0},
                                   {5, 1, 0, -1},
                                   {INT32_MAX, 1, 1, INT32_MAX},
                                   {INT32_MAX, INT32_MAX, 1, -1},
                                   {INT32_MIN, 2, 1, -1}};
    for (auto [a, b, c, result] : products) {
        CAPTURE(a);
        CHECK(muldiv(a, b, c) == result);
    }
    CHECK(distance(3, -4) == 5);
    CHECK(distance(INT32_MIN, INT32_MIN) == INT32_MAX);
}

TEST_CASE("escapes of bars and of backslashes")
{
    int32_t room = 100;
    auto decoded = [&](const std::string &in) {
        char out[101];
        int32_t length = -1;
        gstrans(out, room, in.c_str(), &length);
        return std::string(out, static_cast<size_t>(length));
    };
    rows("gstrans", decoded,
         {{"a|Jb|M", "a\nb\r"},
          {"|m|?|_|||\"|<|@c", "m\x7F\x1F|\"<"}, // a zero ends the text
          {"|!A|!|M|!|?|!|!B|`", "\xC1\x8D\xFF\x42`"},
          {"|!|@x", "\x80x"},
          {"a|!|", "a"},
          {"|!\x80z", ""}});
    room = 2;
    rows("gstrans of two bytes", decoded, {{"abc", "ab"}, {"|Mbc", "\rb"}});

    char out[100], back[100];
    std::fill_n(out, 100, '!');
    strescape("a\"b\\c\n", out);
    CHECK(std::string(out) == "a\\\"b\\\\c\n");
    strunescape("\\f\\n\\r\\t\\v\\q\\0\\", back);
    CHECK(std::string(back) == "\f\n\r\t\vq0");
    strescapen("a\0\t\"\x80\x9F\xA0\x1F ~\x7F", 11, out);
    CHECK(std::string(out) == "a\\x00\\t\\\"\x80\x9F\xA0\\x1f ~\\x7f");
    char *end = out;
    for (uint8_t ch : {128, 159, 160})
        end = charescape(ch, end, 0);
    CHECK(std::string(out, end) == "\\x80\\x9f\xA0");
}

TEST_CASE("search in sorted records")
{
    // Found, or the place to insert at: the record there is above, or the one
    // before it below.
    const int32_t records[] = {0, 10, 20, 30, -99};
    for (int32_t count = 0; count <= 4; count++)
        for (int32_t key = -5; key <= 10 * count; key += 5) {
            CAPTURE(count);
            CAPTURE(key);
            const int32_t *place = std::lower_bound(records, records + count, key);
            bool there = place < records + count && *place == key;
            int result = 99;
            CHECK(binsearch(&key, records, count, sizeof key, intorder, &result) == place);
            CHECK((result == 0) == there);
            if (place == records + count) CHECK(result == -1);
            if (count && place == records && !there) CHECK(result == 1);
        }
}

TEST_CASE("guessing how a text is encoded")
{
    rows("textkind",
         [](const auto &in) { return spelt(textkind(in.data(), static_cast<int32_t>(in.size()))); },
         {{"", spelt(TEXTSINGLE)},
          {"\xFF", spelt(TEXTSINGLE)},
          {literal("\xFF\xFE\0\0"), "34"}, // the shorter mark is seen first
          {"\xFE\xFFx", "50"},
          {"\xEF\xBB\xBFx", "33"},
          {literal("\0\0\xFE\xFF"), "35"},
          {literal("a\0b\0c\0"), "2"},
          {literal("a\0b\0"), spelt(TEXTSINGLE)},
          {literal("\0\0\0\0\0\0"), "18"}});
}

TEST_CASE("draws have 15 bits and can be repeated")
{
    int32_t first[2], seen = 0;
    for (int32_t &draw : first) {
        randomseed(42);
        draw = randomdraw();
    }
    CHECK(first[0] == first[1]);
    for (int i = 0; i < 1000; i++)
        seen |= randomdraw();
    CHECK(seen == 0x7fff);
}
