// The binary format of solvers' programs: a header of 52 bytes, the solution and
// the state of the solver's grid, a byte a cell, then texts, each ended by a zero.
// Numbers are little-endian. Sums over the parts guard it.

#include "base/errorcodes.h"
#include "base/errors.h"
#include "output/exchangeparts.h"
#include "output/numbering.h"

#include <cstring>

namespace
{

constexpr size_t HEADER = 52;
constexpr char MAGIC[] = "ACROSS&DOWN", VERSION[] = "1.3";
constexpr char MASK[] = "ICHEATED"; // over the second set of sums
constexpr char BLOCK = '.', BLANK = '-';

// Where the header has what.
constexpr size_t SUMAT = 0, MAGICAT = 2, BASESUMAT = 14, MASKEDAT = 16, VERSIONAT = 24,
                 WIDTHAT = 44, HEIGHTAT = 45, CLUESAT = 46, KINDAT = 48, SCRAMBLEDAT = 50;
constexpr size_t BASESIZE = 8; // of what the base sum is over, from WIDTHAT on

uint16_t wordat(const std::string &bytes, size_t at)
{
    return static_cast<uint16_t>(static_cast<uint8_t>(bytes[at]) |
                                 static_cast<uint8_t>(bytes[at + 1]) << 8);
}

void wordput(std::string *bytes, size_t at, uint32_t value)
{
    (*bytes)[at] = static_cast<char>(value);
    (*bytes)[at + 1] = static_cast<char>(value >> 8);
}

uint16_t sumover(const std::string &bytes, size_t at, size_t size, uint16_t sum)
{
    for (size_t i = 0; i < size; i++) {
        sum = static_cast<uint16_t>(sum >> 1 | (sum & 1) << 15);
        sum = static_cast<uint16_t>(sum + static_cast<uint8_t>(bytes[at + i]));
    }
    return sum;
}

// The texts: title, author and copyright with their zeros, the clues without, the
// notes with it; an empty text counts for nothing.
uint16_t sumtexts(const std::string &bytes, uint16_t sum)
{
    size_t cells = static_cast<size_t>(static_cast<uint8_t>(bytes[WIDTHAT])) *
                   static_cast<uint8_t>(bytes[HEIGHTAT]);
    size_t at = HEADER + 2 * cells;
    uint32_t clues = wordat(bytes, CLUESAT);
    for (uint32_t n = 0; n < clues + 4 && at < bytes.size(); n++) {
        size_t end = bytes.find('\0', at);
        if (end == bytes.npos) end = bytes.size();
        bool clue = n >= 3 && n < clues + 3, zero = !clue && end < bytes.size();
        if (end > at) sum = sumover(bytes, at, end - at + zero, sum);
        at = end + 1;
    }
    return sum;
}

// All sums of a file, written into its header.
void sumsput(std::string *bytes)
{
    size_t cells = static_cast<size_t>(static_cast<uint8_t>((*bytes)[WIDTHAT])) *
                   static_cast<uint8_t>((*bytes)[HEIGHTAT]);
    uint16_t base = sumover(*bytes, WIDTHAT, BASESIZE, 0);
    uint16_t masked[] = {base, sumover(*bytes, HEADER, cells, 0),
                         sumover(*bytes, HEADER + cells, cells, 0), sumtexts(*bytes, 0)};
    for (size_t i = 0; i < 4; i++) {
        (*bytes)[MASKEDAT + i] = static_cast<char>(MASK[i] ^ (masked[i] & 255));
        (*bytes)[MASKEDAT + 4 + i] = static_cast<char>(MASK[i + 4] ^ masked[i] >> 8);
    }
    wordput(bytes, BASESUMAT, base);
    wordput(bytes, SUMAT, sumtexts(*bytes, sumover(*bytes, HEADER, 2 * cells, base)));
}

errorblock *puzcheck(const std::string &bytes)
{
    if (bytes.size() < HEADER || memcmp(&bytes[MAGICAT], MAGIC, sizeof MAGIC))
        return makeerrortext(ECR, "This is no .puz file.");
    size_t cells = static_cast<size_t>(static_cast<uint8_t>(bytes[WIDTHAT])) *
                   static_cast<uint8_t>(bytes[HEIGHTAT]);
    if (bytes.size() < HEADER + 2 * cells)
        return makeerrortext(ECR, "The file ends before its grid does.");
    if (wordat(bytes, SCRAMBLEDAT) & 4)
        return makeerrortext(ECR, "The solution is scrambled, and only its key unlocks it.");
    std::string summed = bytes;
    sumsput(&summed);
    if (wordat(bytes, SUMAT) != wordat(summed, SUMAT) ||
        wordat(bytes, BASESUMAT) != wordat(summed, BASESUMAT))
        return makeerrortext(ECR, "The file is damaged: its sums don't fit.");
    return nullptr;
}

char capital(uint8_t letter)
{
    return static_cast<char>(letter >= 'a' && letter <= 'z' ? letter - 32 : letter);
}

} // namespace

errorblock *puzread(const std::string &bytes, std::string *left)
{
    gridsketch sketch;
    errorblock *err = puzcheck(bytes);
    if (!err)
        err = sketchstart(&sketch, static_cast<uint8_t>(bytes[WIDTHAT]),
                          static_cast<uint8_t>(bytes[HEIGHTAT]));
    if (err) return err;
    size_t at = HEADER;
    for (int32_t y = 0; y < sketch.height; y++)
        for (int32_t x = 0; x < sketch.width; x++) {
            char letter = bytes[at++];
            if (letter == BLOCK || letter == ':')
                sketch.flags[x][y] = CELLBLOCK;
            else if (letter != BLANK)
                sketchletter(&sketch, x, y, static_cast<uint8_t>(letter));
        }
    if (bytes.find_first_not_of('\0', at + at - HEADER) != bytes.npos)
        leftadd(left, "title, clues and notes");
    return sketchopen(sketch);
}

void puzwrite(std::string *bytes, std::string *left)
{
    if (gridbars()) leftadd(left, "the bars");
    if (grid.kind == GRIDWORDSQUARE) leftadd(left, "that it is a word square");
    size_t cells = static_cast<size_t>(grid.width * grid.height);
    std::string solution(cells, BLOCK), state(cells, BLOCK);
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++) {
            if (gridblock(x, y)) continue;
            size_t at = static_cast<size_t>(y * grid.width + x);
            uint8_t letter = gridletter(x, y);
            solution[at] = letter == ' ' ? BLANK : capital(letter);
            state[at] = BLANK;
        }
    uint32_t clues = 0;
    numberedcell cell;
    numberingstart(&cell);
    while (numberingnext(&cell))
        clues += (cell.across >= 2) + (cell.down >= 2);

    std::string header(HEADER, 0);
    memcpy(&header[MAGICAT], MAGIC, sizeof MAGIC);
    memcpy(&header[VERSIONAT], VERSION, sizeof VERSION);
    header[WIDTHAT] = static_cast<char>(grid.width);
    header[HEIGHTAT] = static_cast<char>(grid.height);
    wordput(&header, CLUESAT, clues);
    wordput(&header, KINDAT, 1); // a crossword
    // Title, author, copyright, the clues and the notes: the setter's to write.
    *bytes = header + solution + state + std::string(clues + 4, 0);
    sumsput(bytes);
}
