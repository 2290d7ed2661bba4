#include "base/random.h"
#include "grid/grid.h"
#include "tests/find/plainsearch.h"

#include <algorithm>
#include <set>

namespace
{

constexpr int32_t STEPS[8][2] = {{1, 0},  {1, 1},  {1, -1}, {0, 1},
                                 {0, -1}, {-1, 0}, {-1, 1}, {-1, -1}};

// The longest word of the line from a cell; no text if there is none.
plainword longest(const std::set<std::string> &known, int32_t x, int32_t y, int32_t dx, int32_t dy)
{
    plainword word = {.text = "", .x = x, .y = y, .dx = dx, .dy = dy};
    for (std::string text; gridinside(x, y) && text.size() < 31; x += dx, y += dy) {
        text += lower(static_cast<char>(grid.letters[x][y]));
        if (text.back() < 'a' || text.back() > 'z' || grid.flags[x][y] & CELLKIND) break;
        if (static_cast<int32_t>(text.size()) >= grid.minwordlength && known.count(text))
            word.text = text;
    }
    return word;
}

// The picture with a word in it; empty where that would leave it or meet another
// letter.
std::string laid(std::string picture, const plainword &word)
{
    int32_t x = word.x, y = word.y;
    for (char ch : word.text) {
        if (!gridinside(x, y)) return "";
        char &cell = picture[static_cast<size_t>(y * (grid.width + 1) + x)];
        if (cell != ' ' && cell != ch) return "";
        cell = lower(ch);
        x += word.dx, y += word.dy;
    }
    return picture;
}

bool place(plainsquare *square, const wordlist &words, size_t i)
{
    if (i == words.size()) return true;
    uint32_t directions = grid.filldirections & 255 ? grid.filldirections : 15;
    int32_t startx = randomdraw() % grid.width, starty = randomdraw() % grid.height;
    int32_t startd = randomdraw() & 7, area = grid.width * grid.height;
    for (int32_t n = 0; n < area * 8; n++) {
        int32_t cell = (starty * grid.width + startx + n / 8) % area, d = (startd + n) % 8;
        plainword word = {words[i], cell % grid.width, cell / grid.width, STEPS[d][0], STEPS[d][1]};
        if (!(directions >> d & 1)) continue;
        std::string before = square->picture, after = laid(before, word);
        if (after.empty()) continue;
        square->picture = after;
        square->placed.push_back(word);
        if (place(square, words, i + 1)) return true;
        square->placed.pop_back();
        square->picture = before;
    }
    return false;
}

plainsquare empty()
{
    plainsquare square;
    for (int32_t y = 0; y < grid.height; y++)
        square.picture += std::string(static_cast<size_t>(grid.width), ' ') + '\n';
    return square;
}

// Whether an empty grid takes the word in any allowed direction.
bool takes(const std::string &word)
{
    uint32_t directions = grid.filldirections & 255 ? grid.filldirections : 15;
    auto fits = [&](int32_t cells, int step) {
        return !step || static_cast<int32_t>(word.size()) <= cells;
    };
    for (int d = 0; d < 8; d++)
        if ((directions >> d & 1) && fits(grid.width, STEPS[d][0]) &&
            fits(grid.height, STEPS[d][1]))
            return true;
    return false;
}

void fill(plainsquare *square)
{
    for (size_t x = 0, row = static_cast<size_t>(grid.width) + 1; x + 1 < row; x++)
        for (size_t at = x; at < square->picture.size(); at += row)
            if (square->picture[at] == ' ')
                square->picture[at] = static_cast<char>('a' + randomdraw() % 26);
}

} // namespace

std::vector<plainword> plainfind()
{
    std::set<std::string> known;
    for (const plaindict &dict : plaindicts)
        for (const std::string &word : dict.closed)
            known.insert(lower(word));
    std::vector<plainword> found;
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            for (const auto &[dx, dy] : STEPS)
                if (plainword word = longest(known, x, y, dx, dy); !word.text.empty())
                    found.push_back(word);
    std::sort(found.begin(), found.end());
    return found;
}

plainsquare plainmake(const wordlist &words)
{
    plainsquare square = empty();
    if (!std::all_of(words.begin(), words.end(), takes) || !place(&square, words, 0))
        for (const std::string &word : words)
            square.placed.push_back({word, -1, -1, -1, -1});
    fill(&square);
    return square;
}

// Words are drawn from the dictionaries in turn, from the second on, up to the
// fourth that has no place.
plainsquare plainnew()
{
    plainsquare square = empty();
    size_t turn = 0;
    for (int misses = 0; misses < 4;) {
        const wordlist &words = plaindicts[++turn % plaindicts.size()].words;
        auto low = static_cast<uint32_t>(randomdraw());
        uint32_t drawn = (low + 32768 * static_cast<uint32_t>(randomdraw())) & 0xFFFFFF;
        if (words.empty() || !place(&square, {words[drawn % words.size()]}, 0)) misses++;
    }
    fill(&square);
    return square;
}
