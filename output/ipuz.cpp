#include "base/errorcodes.h"
#include "base/errors.h"
#include "output/exchangeparts.h"
#include "output/numbering.h"

#include <nlohmann/json.hpp>

namespace
{

using json = nlohmann::ordered_json;

constexpr const char *VERSION = "http://ipuz.org/v2";
constexpr const char *CROSSWORD = "http://ipuz.org/crossword#1";
constexpr const char *WORDSEARCH = "http://ipuz.org/wordsearch#1";

// A member, or null.
const json &member(const json &of, const char *name)
{
    static const json none;
    if (!of.is_object()) return none;
    auto found = of.find(name);
    return found == of.end() ? none : *found;
}

// A text or a number as text; anything else is empty.
std::string textof(const json &value)
{
    if (value.is_string()) return value.get<std::string>();
    return value.is_number() ? value.dump() : "";
}

std::string namedtext(const json &of, const char *name, const char *otherwise)
{
    std::string text = textof(member(of, name));
    return text.empty() ? otherwise : text;
}

// The cell of a field of rows, which may be shorter than the grid.
const json &cellof(const json &rows, int32_t x, int32_t y)
{
    static const json none;
    size_t column = static_cast<size_t>(x), row = static_cast<size_t>(y);
    if (!rows.is_array() || row >= rows.size() || !rows[row].is_array()) return none;
    return column < rows[row].size() ? rows[row][column] : none;
}

void barsread(gridsketch *sketch, int32_t x, int32_t y, const std::string &barred)
{
    for (char side : barred) {
        if (side == 'L') sketch->flags[x][y] |= BARLEFT;
        if (side == 'T') sketch->flags[x][y] |= BARTOP;
        if (side == 'R' && x < sketch->width - 1) sketch->flags[x + 1][y] |= BARLEFT;
        if (side == 'B' && y < sketch->height - 1) sketch->flags[x][y + 1] |= BARTOP;
    }
}

struct ipuzmarks {
    std::string block, empty; // what cells of these kinds say
};

void letterread(gridsketch *sketch, int32_t x, int32_t y, const json &value, const ipuzmarks &marks,
                std::string *left)
{
    std::string said = textof(value);
    if (said.empty() || said == marks.empty || said == marks.block) return;
    std::string text = fromutf8(said);
    if (text.empty()) return;
    if (text.size() > 1) leftadd(left, "all but the first letter of a cell");
    if (text == " ") leftadd(left, "letters that code page 1252 lacks");
    sketchletter(sketch, x, y, static_cast<uint8_t>(text[0]));
}

// A cell of the puzzle says what it is and how it looks; its letter is that of the
// solution. In a word search the puzzle shows the letters itself.
void cellread(gridsketch *sketch, int32_t x, int32_t y, const json &file, bool search,
              const ipuzmarks &marks, std::string *left)
{
    const json &shown = cellof(member(file, "puzzle"), x, y);
    const json &kind = shown.is_object() ? member(shown, "cell") : shown;
    barsread(sketch, x, y, textof(member(member(shown, "style"), "barred")));
    if (kind.is_null() && !shown.is_object()) leftadd(left, "that some cells aren't there");
    if (textof(kind) == marks.block || (kind.is_null() && !shown.is_object())) {
        sketch->flags[x][y] |= CELLBLOCK;
        return;
    }
    const json &solved = cellof(member(file, "solution"), x, y);
    const json &given = member(shown, "value");
    letterread(sketch, x, y,
               search               ? kind
               : solved.is_object() ? member(solved, "value")
               : solved.is_null()   ? given
                                    : solved,
               marks, left);
}

int64_t sizeread(const json &size)
{
    return size.is_number_integer() ? size.get<int64_t>() : 0;
}

// Whether the file says that it is of a kind, whatever its version of it.
bool iskind(const json &file, const char *kind)
{
    std::string wanted = kind;
    wanted.resize(wanted.find('#'));
    for (const json &said : member(file, "kind"))
        if (textof(said).starts_with(wanted)) return true;
    return false;
}

bool reachesbeyond(const json &rows, const gridsketch &sketch)
{
    if (!rows.is_array()) return false;
    if (rows.size() > static_cast<size_t>(sketch.height)) return true;
    for (const json &row : rows)
        if (row.is_array() && row.size() > static_cast<size_t>(sketch.width)) return true;
    return false;
}

// Whether there is text that a grid has no place for. A clue is a text, or a row of
// number and text, or has members.
bool tellsmore(const json &file)
{
    for (const char *name : {"title", "author", "copyright", "intro", "notes"})
        if (!textof(member(file, name)).empty()) return true;
    for (const json &direction : member(file, "clues"))
        for (const json &clue : direction) {
            const json &text = clue.is_array() && clue.size() > 1 ? clue[1]
                               : clue.is_object()                 ? member(clue, "clue")
                                                                  : clue;
            if (!textof(text).empty()) return true;
        }
    return false;
}

// A cell with its bars.
json barred(int32_t x, int32_t y, const json &cell)
{
    std::string sides;
    if (grid.flags[x][y] & BARTOP) sides += "T";
    if (grid.flags[x][y] & BARLEFT) sides += "L";
    if (sides.empty()) return cell;
    return {{"cell", cell}, {"style", {{"barred", sides}}}};
}

// What an empty cell says: 0, or what no letter is where 0 is one.
json emptymark()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if (gridletter(x, y) == '0') return " ";
    return 0;
}

json letterof(int32_t x, int32_t y, const json &empty)
{
    uint8_t letter = gridletter(x, y);
    if (letter == ' ') return empty;
    return toutf8(std::string(1, static_cast<char>(letter)));
}

json clue(int32_t number, int32_t length)
{
    return {{"number", number}, {"clue", ""}, {"enumeration", std::to_string(length)}};
}

void crosswordwrite(json *file, const json &empty)
{
    int32_t numbers[GRIDSTRIDE][GRIDSTRIDE] = {};
    json across = json::array(), down = json::array();
    numberedcell cell;
    numberingstart(&cell);
    while (numberingnext(&cell)) {
        numbers[cell.x][cell.y] = cell.number;
        if (cell.across >= 2) across.push_back(clue(cell.number, cell.across));
        if (cell.down >= 2) down.push_back(clue(cell.number, cell.down));
    }
    json puzzle = json::array(), solution = json::array();
    for (int32_t y = 0; y < grid.height; y++) {
        json shown = json::array(), solved = json::array();
        for (int32_t x = 0; x < grid.width; x++) {
            shown.push_back(barred(x, y,
                                   gridblock(x, y) ? json("#")
                                   : numbers[x][y] ? json(numbers[x][y])
                                                   : empty));
            solved.push_back(gridblock(x, y) ? json("#") : letterof(x, y, empty));
        }
        puzzle.push_back(shown);
        solution.push_back(solved);
    }
    (*file)["puzzle"] = puzzle;
    (*file)["solution"] = solution;
    (*file)["clues"] = {{"Across", across}, {"Down", down}};
}

void searchwrite(json *file, const json &empty)
{
    json puzzle = json::array();
    for (int32_t y = 0; y < grid.height; y++) {
        json shown = json::array();
        for (int32_t x = 0; x < grid.width; x++)
            shown.push_back(barred(x, y, gridblock(x, y) ? json("#") : letterof(x, y, empty)));
        puzzle.push_back(shown);
    }
    (*file)["puzzle"] = puzzle;
}

} // namespace

errorblock *ipuzread(const std::string &bytes, std::string *left)
{
    json file = json::parse(bytes, nullptr, false);
    if (!file.is_object()) return makeerrortext(ECR, "This is no .ipuz file.");
    bool search = iskind(file, WORDSEARCH);
    if (!search && !iskind(file, CROSSWORD))
        return makeerrortext(ECR, "The puzzle is neither a crossword nor a word search.");
    const json &size = member(file, "dimensions");
    gridsketch sketch;
    errorblock *err =
        sketchstart(&sketch, sizeread(member(size, "width")), sizeread(member(size, "height")));
    if (err) return err;
    ipuzmarks marks = {namedtext(file, "block", "#"), namedtext(file, "empty", "0")};
    for (int32_t y = 0; y < sketch.height; y++)
        for (int32_t x = 0; x < sketch.width; x++)
            cellread(&sketch, x, y, file, search, marks, left);
    if (reachesbeyond(member(file, "puzzle"), sketch)) leftadd(left, "cells beyond its dimensions");
    if (tellsmore(file)) leftadd(left, "title, clues and notes");
    err = sketchopen(sketch);
    if (!err) grid.kind = search ? GRIDWORDSQUARE : GRIDCROSSWORD;
    return err;
}

void ipuzwrite(std::string *bytes, std::string *)
{
    bool search = grid.kind == GRIDWORDSQUARE;
    json file = {{"version", VERSION},
                 {"kind", {search ? WORDSEARCH : CROSSWORD}},
                 {"origin", "Quillmere"},
                 {"dimensions", {{"width", grid.width}, {"height", grid.height}}}};
    json empty = emptymark();
    if (empty.is_string()) file["empty"] = empty;
    (search ? searchwrite : crosswordwrite)(&file, empty);
    *bytes = file.dump() + "\n";
}
