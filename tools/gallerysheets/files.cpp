#include "tools/gallerysheets/files.h"

#include "base/errors.h"
#include "base/files.h"

#include <algorithm>

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

uint32_t crc(const std::string &bytes)
{
    uint32_t sum = 0xFFFFFFFF;
    for (char c : bytes) {
        sum ^= static_cast<uint8_t>(c);
        for (int bit = 0; bit < 8; bit++)
            sum = sum >> 1 ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

uint32_t adler(const std::string &bytes)
{
    uint32_t a = 1, b = 0;
    for (char c : bytes) {
        a = (a + static_cast<uint8_t>(c)) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

std::string chunk(const std::string &kind, const std::string &bytes)
{
    return word(static_cast<uint32_t>(bytes.size())) + kind + bytes + word(crc(kind + bytes));
}

// Blocks that are stored as they are: large, but there is nothing to go wrong.
std::string stored(const std::string &bytes)
{
    constexpr size_t most = 65535;
    std::string out = "\x78\x01";
    for (size_t at = 0; at < bytes.size(); at += most) {
        size_t length = std::min(most, bytes.size() - at);
        out += static_cast<char>(at + length == bytes.size());
        for (size_t number : {length, ~length}) {
            out += static_cast<char>(number);
            out += static_cast<char>(number >> 8);
        }
        out += bytes.substr(at, length);
    }
    return out + word(adler(bytes));
}

} // namespace

errorblock *pngsave(const std::string &path, int32_t width, int32_t height, const std::string &rows)
{
    const std::string kind = {8, 2, 0, 0, 0}; // 8 bits each of red, green, blue
    size_t rowbytes = static_cast<size_t>(width) * 3;
    std::string lines;
    for (size_t at = 0; at < rows.size(); at += rowbytes) {
        lines += '\0'; // no filter
        lines += rows.substr(at, rowbytes);
    }
    std::string out = "\x89PNG\r\n\x1A\n";
    out += chunk("IHDR",
                 word(static_cast<uint32_t>(width)) + word(static_cast<uint32_t>(height)) + kind);
    out += chunk("IDAT", stored(lines));
    out += chunk("IEND", "");
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
