#include "dict/wordscores.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace
{

constexpr std::string_view BLANKS = " \t\r";

std::string_view trimmed(std::string_view text)
{
    size_t first = text.find_first_not_of(BLANKS);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(BLANKS) + 1 - first);
}

bool scoreread(std::string_view text, int32_t *score)
{
    const char *end = text.data() + text.size();
    auto [stop, error] = std::from_chars(text.data(), end, *score);
    return error == std::errc() && stop == end;
}

} // namespace

int32_t scoredwords(std::string *list, int32_t least)
{
    std::string kept;
    int32_t without = 0;
    for (size_t at = 0; at < list->size();) {
        size_t end = std::min(list->find('\n', at), list->size());
        std::string_view line = trimmed(std::string_view(*list).substr(at, end - at));
        at = end + 1;
        if (line.empty()) continue;
        size_t mark = line.rfind(';');
        int32_t score;
        if (mark == line.npos || !scoreread(trimmed(line.substr(mark + 1)), &score))
            without++;
        else if (score >= least)
            kept.append(line.substr(0, mark)).append("\n");
    }
    *list = kept;
    return without;
}
