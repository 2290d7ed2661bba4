#include "base/errorcodes.h"
#include "base/errors.h"
#include "output/exchangeparts.h"

#include <algorithm>

namespace
{

using csvrow = std::vector<std::string>;

// Fields by RFC 4180; a line ends in LF or CR LF, and the last may lack it.
std::vector<csvrow> csvfields(const std::string &text)
{
    std::vector<csvrow> rows;
    csvrow row;
    std::string field;
    bool quoted = false, any = false; // any: of the row
    auto endrow = [&] {
        row.push_back(field);
        rows.push_back(row);
        row.clear();
        field.clear();
        any = false;
    };
    for (size_t i = 0; i < text.size(); i++) {
        char c = text[i];
        if (quoted && c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
            field += text[++i];
        } else if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && c == ',') {
            row.push_back(field);
            field.clear();
        } else if (!quoted && c == '\n') {
            endrow();
            continue;
        } else if (quoted || c != '\r') {
            field += c;
        }
        any = true;
    }
    if (any) endrow();
    return rows;
}

} // namespace

errorblock *csvread(const std::string &bytes, std::string *left)
{
    std::vector<csvrow> rows = csvfields(fromutf8(bytes));
    size_t width = 0;
    for (const csvrow &row : rows)
        width = std::max(width, row.size());
    gridsketch sketch;
    errorblock *err =
        sketchstart(&sketch, static_cast<int64_t>(width), static_cast<int64_t>(rows.size()));
    if (err) return err;
    for (size_t y = 0; y < rows.size(); y++)
        for (size_t x = 0; x < rows[y].size(); x++) {
            const std::string &cell = rows[y][x];
            if (cell.size() > 1) leftadd(left, "all but the first letter of a cell");
            if (cell == "#")
                sketch.flags[x][y] = CELLBLOCK;
            else if (!cell.empty())
                sketchletter(&sketch, static_cast<int32_t>(x), static_cast<int32_t>(y),
                             static_cast<uint8_t>(cell[0]));
        }
    return sketchopen(sketch);
}

void csvwrite(std::string *bytes, std::string *left)
{
    if (gridbars()) leftadd(left, "the bars");
    std::string text;
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++) {
            char letter = static_cast<char>(gridletter(x, y));
            if (gridblock(x, y))
                text += '#';
            else if (letter == '"')
                text += "\"\"\"\"";
            else if (letter == ',')
                text += "\",\"";
            else if (letter != ' ')
                text += letter;
            text += x < grid.width - 1 ? "," : "\r\n";
        }
    *bytes = toutf8(text);
}
