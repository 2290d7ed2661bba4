#include "grid/gridpicture.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"

#include <algorithm>
#include <string_view>

namespace
{

constexpr char PICTUREBLOCK = '#', PICTUREBLANK = '.', PICTUREODD = '?';

// The two edges of a bar, in the order in which a picture lists them.
struct edge {
    std::string_view word;
    uint8_t bar;
};

constexpr edge EDGES[] = {{"left", BARLEFT}, {"top", BARTOP}};

// A picture on its way into the document, which is not touched before all of
// it has been understood.
struct picture {
    int32_t width, height;
    uint8_t letters[GRIDSTRIDE][GRIDSTRIDE];
    uint8_t flags[GRIDSTRIDE][GRIDSTRIDE];
};

// The lines of a text. A CR before the LF belongs to the end of the line.
struct linereader {
    std::string_view rest;
    std::string_view line;
    int32_t number; // of line, from 1
};

bool linenext(linereader *in)
{
    if (in->rest.empty()) return false;
    size_t end = in->rest.find('\n');
    in->line = in->rest.substr(0, end);
    in->rest.remove_prefix(end == std::string_view::npos ? in->rest.size() : end + 1);
    if (!in->line.empty() && in->line.back() == '\r') in->line.remove_suffix(1);
    in->number++;
    return true;
}

constexpr bool pictureletter(uint8_t ch)
{
    return ch >= 32 && ch != 127 && ch != PICTUREBLOCK && ch != PICTUREBLANK;
}

errorblock *cellread(picture *read, int32_t x, int32_t y, char ch, int32_t line)
{
    uint8_t byte = static_cast<uint8_t>(ch);
    read->letters[x][y] = ' ';
    read->flags[x][y] = ch == PICTUREBLOCK ? CELLBLOCK : CELLOPEN;
    if (pictureletter(byte))
        read->letters[x][y] = byte;
    else if (ch != PICTUREBLOCK && ch != PICTUREBLANK)
        return makeerrortext(ECR, "Line %d: character %d is a control character.", line, x + 1);
    return nullptr;
}

// The first row gives the width.
errorblock *rowread(picture *read, const linereader &in)
{
    size_t length = in.line.size();
    if (length > GRIDMAX)
        return makeerrortext(ECR, "Line %d: a row has at most %d cells.", in.number, GRIDMAX);
    if (read->height == GRIDMAX)
        return makeerrortext(ECR, "Line %d: a grid has at most %d rows.", in.number, GRIDMAX);
    int32_t width = static_cast<int32_t>(length);
    if (read->height && width != read->width)
        return makeerrortext(ECR, "Line %d: the row has %d cells, those above have %d.", in.number,
                             width, read->width);
    read->width = width;
    errorblock *err = nullptr;
    for (int32_t x = 0; x < width && !err; x++)
        err = cellread(read, x, read->height, in.line[static_cast<size_t>(x)], in.number);
    read->height++;
    return err;
}

// Stops behind the empty line, or at the end of the text.
errorblock *rowsread(picture *read, linereader *in)
{
    errorblock *err = nullptr;
    while (!err && linenext(in) && !in->line.empty())
        err = rowread(read, *in);
    if (!err && !read->height) err = makeerrortext(ECR, "Line 1: the picture has no rows.");
    return err;
}

// The next word of a line, which spaces part; empty at its end.
std::string_view wordnext(std::string_view *line)
{
    line->remove_prefix(std::min(line->find_first_not_of(' '), line->size()));
    std::string_view word = line->substr(0, line->find(' '));
    line->remove_prefix(word.size());
    return word;
}

// A number below limit that takes up all of text, or -1.
int32_t numberread(std::string_view text, int32_t limit)
{
    int32_t value = text.empty() ? -1 : 0;
    for (char ch : text) {
        if (ch < '0' || ch > '9') return -1;
        value = value * 10 + (ch - '0');
        if (value >= limit) return -1;
    }
    return value;
}

errorblock *barread(picture *read, uint8_t bar, std::string_view place, int32_t line)
{
    size_t comma = place.find(',');
    int32_t x = numberread(place.substr(0, comma), read->width);
    int32_t y =
        comma == std::string_view::npos ? -1 : numberread(place.substr(comma + 1), read->height);
    if (x < 0 || y < 0)
        return makeerrortext(ECR, "Line %d: \"%.*s\" is not a cell of the grid.", line,
                             static_cast<int>(std::min<size_t>(place.size(), 32)), place.data());
    read->flags[x][y] |= bar;
    return nullptr;
}

// A line of bars; the same edge may have several.
errorblock *barsread(picture *read, linereader *in)
{
    std::string_view line = in->line;
    std::string_view word = wordnext(&line);
    if (word.empty()) return nullptr;
    for (const edge &edge : EDGES) {
        if (word != edge.word) continue;
        errorblock *err = nullptr;
        for (word = wordnext(&line); !err && !word.empty(); word = wordnext(&line))
            err = barread(read, edge.bar, word, in->number);
        return err;
    }
    return makeerrortext(ECR, "Line %d: neither \"left\" nor \"top\".", in->number);
}

// gridnew has cleared all cells, those outside the picture too: a larger size
// must not bring the document before back.
void documentset(const picture &read)
{
    gridnew();
    cursorremove();
    grid.width = read.width;
    grid.height = read.height;
    for (int32_t x = 0; x < read.width; x++)
        for (int32_t y = 0; y < read.height; y++) {
            grid.letters[x][y] = read.letters[x][y];
            grid.flags[x][y] |= read.flags[x][y];
        }
    gridextent();
    gridredraw();
    gridchange(); // it is in no grid file yet
}

// A letter under a block isn't seen on screen either.
char picturecell(int32_t x, int32_t y)
{
    uint8_t letter = grid.letters[x][y];
    if ((grid.flags[x][y] & CELLKIND) == CELLBLOCK) return PICTUREBLOCK;
    if (letter == ' ' || letter == 0) return PICTUREBLANK;
    return pictureletter(letter) ? static_cast<char>(letter) : PICTUREODD;
}

std::string barlist(const edge &edge)
{
    std::string line;
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++)
            if (grid.flags[x][y] & edge.bar)
                line += " " + std::to_string(x) + "," + std::to_string(y);
    return line.empty() ? line : std::string(edge.word) + line + "\n";
}

} // namespace

errorblock *picturetextread(const char *text, int32_t size)
{
    picture read = {};
    linereader in = {.rest = {text, static_cast<size_t>(size)}, .line = {}, .number = 0};
    errorblock *err = rowsread(&read, &in);
    while (!err && linenext(&in))
        err = barsread(&read, &in);
    if (!err) documentset(read);
    return err;
}

void picturetextwrite(std::string *text)
{
    text->clear();
    for (int32_t y = 0; y < grid.height; y++) {
        for (int32_t x = 0; x < grid.width; x++)
            *text += picturecell(x, y);
        *text += '\n';
    }
    std::string bars = barlist(EDGES[0]) + barlist(EDGES[1]);
    if (!bars.empty()) *text += "\n" + bars;
}
