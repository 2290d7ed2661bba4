#include "base/binsearch.h"
#include "base/escapes.h"
#include "base/numbers.h"
#include "base/random.h"
#include "base/textkind.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace
{

std::string decoded(const char *in, int32_t size = 100)
{
    char out[101];
    int32_t length = -1;
    gstrans(out, size, in, &length);
    return std::string(out, static_cast<size_t>(length));
}

std::string source(uint8_t ch, uint32_t flags)
{
    char out[4];
    return std::string(out, static_cast<size_t>(charescape(ch, out, flags) - out));
}

std::string number(double value, int32_t places, int32_t size = 50)
{
    char out[50];
    CHECK(numbertext(value, places, out, size) == 0);
    return out;
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
    } rows[] = {{"-0x1f", -31, 6, 0, 0, true},
                {"12x", 12, 2, 0x12, 2, false},
                {"12", 12, 3, 0x12, 3, true},
                {"", 0, 1, 0, 1, false},
                {"-", 0, 2, 0, 0, false},
                {"0x", 0, 3, 0, 1, false},
                {"0xg", 0, 2, 0, 1, false},
                {"0XfF", 255, 5, 0, 1, true},
                {"1a", 20, 3, 0x1a, 3, false},
                {"FF", 165, 3, 0xff, 3, false},
                {"--1", 0, 1, 0, 0, false},
                {" 1", 0, 0, 0, 0, false},
                {"00x1", 0, 2, 0, 2, false},
                {"0xffffffff", -1, 11, 0, 1, true},
                {"ffffffff,", 166666665, 8, 0xffffffff, 8, false},
                {"-2147483648", INT32_MIN, 12, 0, 0, true}};
    for (const auto &row : rows) {
        CAPTURE(row.text);
        int32_t used = -1;
        CHECK(numberparse(row.text, &used) == row.value);
        CHECK(used == row.used);
        CHECK(hexparse(row.text, &used) == row.hex);
        CHECK(used == row.hexused);
        CHECK(isnumber(row.text) == row.whole);
    }
    CHECK(numberparse("7", nullptr) == 7);
}

TEST_CASE("writing numbers")
{
    CHECK(number(2, 3) == "2.0");
    CHECK(number(-0.05, 3) == "-0.05");
    CHECK(number(0.25, 1) == "0.2");
    CHECK(number(12.3456, 3) == "12.346");
    CHECK(number(100.100, 4) == "100.1");
    CHECK(number(3, 0) == "3.0");
    CHECK(number(1.5, 3, 4) == "1.5");
    char out[50];
    CHECK(numbertext(1.5, 3, out, 3) == 1);
    CHECK(std::string(out) == "1.");
    CHECK(numbertext(1e300, 100, out, sizeof out) == 1);
}

TEST_CASE("sizes in words")
{
    const std::pair<uint32_t, const char *> rows[] = {
        {0, "0"},
        {1023, "1023"},
        {1024, "1K"},
        {1048575, "1023K"},
        {1048576, "1M"},
        {1048576 + 10239, "1M"}, // nine KiB are no hundredth
        {1048576 + 11264, "1.01M"},
        {1536 * 1024, "1.50M"},
        {0xffffffff, "4095.99M"},
    };
    for (auto [bytes, text] : rows)
        CHECK(std::string(sizetext(bytes)) == text);
}

TEST_CASE("arithmetic")
{
    const struct {
        int32_t a, b, c, result;
    } rows[] = {{100, 96, 180, 53},
                {1, 1, 2, 1},
                {-1, 1, 2, -1},
                {1, -1, -2, 1},
                {1, 1, 3, 0},
                {2, 1, -3, -1},
                {5, 1, 0, -1},
                {INT32_MAX, INT32_MAX, 1, -1},
                {INT32_MIN, 1, 1, INT32_MIN},
                {INT32_MIN, 1, -1, -1},
                {INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN},
                {INT32_MAX, 2, 4, 1073741824}};
    for (const auto &row : rows) {
        CAPTURE(row.a);
        CHECK(muldiv(row.a, row.b, row.c) == row.result);
    }
    CHECK(distance(3, 4) == 5);
    CHECK(distance(-1, 1) == 1);
    CHECK(distance(INT32_MIN, INT32_MIN) == INT32_MAX);
    CHECK(distance(INT32_MAX, 0) == INT32_MAX);
}

TEST_CASE("bar escapes")
{
    const std::pair<const char *, std::string> rows[] = {
        {"a|Jb|M", "a\nb\r"},
        {"|m|?", "m\x7F"},
        {"|!A|!|M|!|?|!|!B", "\xC1\x8D\xFF\x42"},
        {"|!|@x", "\x80x"},
        {"|||\"|<|1", "|\"<1"},
        {"|_|^|[", "\x1F\x1E\x1B"},
        {"a|@b", "a"}, // a zero ends the text
        {"a|", "a"},
        {"a|!", "a"},
        {"a|!|", "a"},
        {"|!\x80z", ""},
        {"", ""},
    };
    for (const auto &[in, out] : rows) {
        CAPTURE(in);
        CHECK(decoded(in) == out);
    }
    CHECK(decoded("abc", 2) == "ab");
    CHECK(decoded("|Mbc", 1) == "\r");
    CHECK(decoded("abc", 0) == "");
}

TEST_CASE("backslash escapes")
{
    char out[100], back[100];
    strescape("a\"b\\c\n", out);
    CHECK(std::string(out) == "a\\\"b\\\\c\n");
    strunescape(out, back);
    CHECK(std::string(back) == "a\"b\\c\n");
    strunescape("\\f\\n\\r\\t\\v\\q\\0\\", out);
    CHECK(std::string(out) == "\f\n\r\t\vq0");

    CHECK(source(159, 0) == "\\x9f");
    CHECK(source(159, ESCAPEKEEPHIGH) == "\x9F");
    CHECK(source(160, 0) == "\xA0");
    CHECK(source(127, ESCAPEKEEPHIGH) == "\\x7f");
    CHECK(source(0, 0) == "\\x00");
    CHECK(source('\n', 0) == "\\n");
    CHECK(source('~', 0) == "~");
    strescapen("a\0\t\"\x80\\", 6, out);
    CHECK(std::string(out) == "a\\x00\\t\\\"\x80\\\\");
}

TEST_CASE("search in sorted records")
{
    // Found, or the place to insert at: the record there is above, or the one
    // before it below.
    for (int32_t count = 0; count < 20; count++)
        for (int32_t key = -5; key <= 10 * count + 5; key += 5) {
            CAPTURE(count);
            CAPTURE(key);
            std::vector<int32_t> records;
            for (int32_t i = 0; i < count; i++)
                records.push_back(10 * i);
            auto place = std::lower_bound(records.begin(), records.end(), key) - records.begin();
            bool there = place < count && records[static_cast<size_t>(place)] == key;
            records.push_back(-99); // behind the last
            int result = 99;
            const void *found =
                binsearch(&key, records.data(), count, sizeof key, intorder, &result);
            CHECK(found == records.data() + place);
            CHECK((result == 0) == there);
            if (place == count) CHECK(result == -1);
            if (count && place == 0 && !there) CHECK(result == 1);
            CHECK((result >= -1 && result <= 1));
        }
}

TEST_CASE("guessing how a text is encoded")
{
    const std::pair<std::string, int32_t> rows[] = {
        {"", TEXTSINGLE},
        {"plain text", TEXTSINGLE},
        {"\xFF\xFE", 34},
        {"\xFF", TEXTSINGLE},
        {"\xFE\xFFx", 50},
        {"\xEF\xBB\xBFx", 33},
        {"\xEF\xBB", TEXTSINGLE},
        {std::string("\x00\x00\xFE\xFF", 4), 35},
        {std::string("\xFF\xFE\x00\x00", 4), 34}, // the shorter mark is seen first
        {std::string("a\0b\0c\0", 6), 2},
        {std::string("a\0b\0", 4), TEXTSINGLE},
        {std::string("\0a\0b\0c", 6), 18},
        {std::string("\0\0\0\0\0\0", 6), 18}};
    for (const auto &[bytes, kind] : rows)
        CHECK(textkind(bytes.data(), static_cast<int32_t>(bytes.size())) == kind);
}

TEST_CASE("draws have 15 bits and can be repeated")
{
    std::vector<int32_t> first;
    int32_t seen = 0;
    randomseed(42);
    for (int i = 0; i < 1000; i++) {
        first.push_back(randomdraw());
        CHECK((first.back() & ~0x7fff) == 0);
        seen |= first.back();
    }
    CHECK(seen == 0x7fff);
    randomseed(42);
    for (int32_t draw : first)
        CHECK(randomdraw() == draw);
    randomseed(43);
    CHECK(randomdraw() != first[0]);
}
