#include "tools/gallerysheets/files.h"

#include "base/errors.h"
#include "base/files.h"

#include <algorithm>
#include <array>

namespace
{

// PNG writes its numbers with the high byte first.
std::string word(uint32_t value)
{
    std::string out;
    for (int shift = 24; shift >= 0; shift -= 8)
        out += static_cast<char>(value >> shift);
    return out;
}

// The remainder that each byte leaves: bit by bit, the sums take longer than all drawing.
constexpr std::array<uint32_t, 256> crctable = [] {
    std::array<uint32_t, 256> table = {};
    for (uint32_t byte = 0; byte < 256; byte++) {
        table[byte] = byte;
        for (int bit = 0; bit < 8; bit++)
            table[byte] = table[byte] >> 1 ^ (table[byte] & 1 ? 0xEDB88320 : 0);
    }
    return table;
}();

// Of the bytes from a place on.
uint32_t crc(const std::string &bytes, size_t from)
{
    uint32_t sum = 0xFFFFFFFF;
    for (size_t at = from; at < bytes.size(); at++)
        sum = sum >> 8 ^ crctable[(sum ^ static_cast<uint8_t>(bytes[at])) & 255];
    return ~sum;
}

// 64 bits hold the sums of a picture of any size.
uint32_t adler(const std::string &bytes)
{
    uint64_t a = 1, b = 0;
    for (char c : bytes) {
        a += static_cast<uint8_t>(c);
        b += a;
    }
    return static_cast<uint32_t>(b % 65521 << 16 | a % 65521);
}

void chunkadd(std::string *out, const char *kind, const std::string &bytes)
{
    *out += word(static_cast<uint32_t>(bytes.size()));
    size_t from = out->size();
    *out += kind;
    *out += bytes;
    *out += word(crc(*out, from));
}

// Blocks that are stored as they are: large, but there is nothing to go wrong.
std::string stored(const std::string &bytes)
{
    constexpr size_t most = 65535;
    std::string out = "\x78\x01";
    out.reserve(bytes.size() + bytes.size() / most * 5 + 11);
    for (size_t at = 0; at < bytes.size(); at += most) {
        size_t length = std::min(most, bytes.size() - at);
        out += static_cast<char>(at + length == bytes.size());
        for (size_t number : {length, ~length}) {
            out += static_cast<char>(number);
            out += static_cast<char>(number >> 8);
        }
        out.append(bytes, at, length);
    }
    return out + word(adler(bytes));
}

} // namespace

errorblock *pngsave(const std::string &path, int32_t width, int32_t height, const std::string &rows)
{
    const std::string kind = {8, 2, 0, 0, 0}; // 8 bits each of red, green, blue
    size_t rowbytes = static_cast<size_t>(width) * 3;
    std::string lines;
    lines.reserve(rows.size() + static_cast<size_t>(height));
    for (size_t at = 0; at < rows.size(); at += rowbytes) {
        lines += '\0'; // no filter
        lines.append(rows, at, rowbytes);
    }
    std::string out = "\x89PNG\r\n\x1A\n";
    out.reserve(lines.size() + lines.size() / 1000 + 100);
    chunkadd(&out, "IHDR",
             word(static_cast<uint32_t>(width)) + word(static_cast<uint32_t>(height)) + kind);
    chunkadd(&out, "IDAT", stored(lines));
    chunkadd(&out, "IEND", "");
    return bytessave(path, out);
}

errorblock *bytesload(const std::string &path, std::string *bytes)
{
    std::FILE *file = std::fopen(path.c_str(), "rb");
    if (!file) return makeerrorf(ERRORNOTFOUND, path.c_str());
    char buffer[4096];
    bytes->clear();
    while (size_t length = std::fread(buffer, 1, sizeof buffer, file))
        bytes->append(buffer, length);
    bool failed = std::ferror(file);
    std::fclose(file);
    return failed ? makeerror(ERRORREAD) : nullptr;
}

errorblock *bytessave(const std::string &path, const std::string &bytes)
{
    return filesave(path.c_str(), 0, bytes.data(), static_cast<int32_t>(bytes.size()));
}
