#include "output/exchange.h"

#include "base/encoding.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/text.h"
#include "grid/gridpicture.h"
#include "output/exchangeparts.h"
#include "output/paint.h"

namespace
{

errorblock *textread(const std::string &bytes, std::string *)
{
    std::string text = fromutf8(bytes);
    return picturetextread(text.data(), static_cast<int32_t>(text.size()));
}

void textwrite(std::string *bytes, std::string *)
{
    std::string text;
    picturetextwrite(&text);
    *bytes = toutf8(text);
}

constexpr exchangeformat formats[] = {
    {"ipuz", ipuzread, ipuzwrite},        {"puz", puzread, puzwrite},
    {"txt", textread, textwrite},         {"csv", csvread, csvwrite},
    {"svg", nullptr, svgwrite},           {"pdf", nullptr, svgwrite, paintpdf},
    {"png", nullptr, svgwrite, paintpng},
};

} // namespace

const exchangeformat *exchangefind(const std::string &name)
{
    for (const exchangeformat &format : formats)
        if (!cstricmp(format.name, name.c_str())) return &format;
    return nullptr;
}

errorblock *sketchstart(gridsketch *sketch, int64_t width, int64_t height)
{
    if (width < 1 || width > GRIDMAX || height < 1 || height > GRIDMAX)
        return makeerrortext(ECR, "A grid has 1 to %d columns and rows, not %lld by %lld.", GRIDMAX,
                             static_cast<long long>(width), static_cast<long long>(height));
    *sketch = {};
    sketch->width = static_cast<int32_t>(width);
    sketch->height = static_cast<int32_t>(height);
    for (auto &column : sketch->letters)
        for (uint8_t &letter : column)
            letter = ' ';
    return nullptr;
}

void sketchletter(gridsketch *sketch, int32_t x, int32_t y, int32_t letter)
{
    bool typed = letter > ' ' && letter <= 255 && letter != 127 && letter != '#' && letter != '.';
    sketch->letters[x][y] = typed ? static_cast<uint8_t>(letter) : ' ';
}

// By the text picture, which takes a grid whole or not at all.
errorblock *sketchopen(const gridsketch &sketch)
{
    std::string text, left, top;
    for (int32_t y = 0; y < sketch.height; y++) {
        for (int32_t x = 0; x < sketch.width; x++) {
            uint8_t flags = sketch.flags[x][y], letter = sketch.letters[x][y];
            bool block = (flags & CELLKIND) == CELLBLOCK;
            text += block ? '#' : letter == ' ' ? '.' : static_cast<char>(letter);
            std::string place = " " + std::to_string(x) + "," + std::to_string(y);
            if (flags & BARLEFT) left += place;
            if (flags & BARTOP) top += place;
        }
        text += '\n';
    }
    text += "\n";
    if (!left.empty()) text += "left" + left + "\n";
    if (!top.empty()) text += "top" + top + "\n";
    return picturetextread(text.data(), static_cast<int32_t>(text.size()));
}

std::string toutf8(const std::string &text)
{
    constexpr size_t MOST = 3; // bytes a character
    std::string bytes(text.size() * MOST + 1, 0);
    int32_t length = 0;
    cp1252toutf8(text.data(), static_cast<int32_t>(text.size()), bytes.data(),
                 static_cast<int32_t>(bytes.size()), &length);
    bytes.resize(static_cast<size_t>(length));
    return bytes;
}

std::string fromutf8(const std::string &bytes)
{
    std::string text;
    utf8decoder decoder = {};
    for (char byte : bytes) {
        uint32_t unicode = utf8byte(&decoder, static_cast<uint8_t>(byte));
        if (unicode == UTF8MORE || (unicode == UTF8MARK && text.empty())) continue;
        int32_t letter = unicode == UTF8BAD ? -1 : unicodeto1252(unicode);
        text += letter < 0 ? ' ' : static_cast<char>(letter);
    }
    return text;
}

bool gridblock(int32_t x, int32_t y)
{
    return (grid.flags[x][y] & CELLKIND) == CELLBLOCK;
}

bool gridbars()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if ((x && grid.flags[x][y] & BARLEFT) || (y && grid.flags[x][y] & BARTOP)) return true;
    return false;
}

void leftadd(std::string *left, const char *what)
{
    if (left->find(what) != left->npos) return;
    if (!left->empty()) *left += ", ";
    *left += what;
}
