#include "tools/quill/arguments.h"

#include "grid/grid.h"
#include "output/exchange.h"

#include <charconv>
#include <ctime>

namespace
{

// A whole number that is all of the text.
bool numberread(const std::string &text, int32_t low, int32_t high, int32_t *number)
{
    const char *end = text.data() + text.size();
    auto [stop, error] = std::from_chars(text.data(), end, *number);
    return error == std::errc() && stop == end && *number >= low && *number <= high;
}

bool dictionariesoption(const std::string &value, arguments *args)
{
    args->dictionaries = value;
    return !value.empty();
}

bool dictoption(const std::string &value, arguments *args)
{
    args->dicts.push_back(value);
    return !value.empty();
}

bool markoption(const std::string &value, arguments *args)
{
    int32_t number[4];
    size_t at = 0;
    for (int i = 0; i < 4; i++) {
        size_t comma = i < 3 ? value.find(',', at) : value.size();
        if (comma == std::string::npos) return false;
        if (!numberread(value.substr(at, comma - at), 0, 126, &number[i])) return false;
        at = comma + 1;
    }
    args->marks.push_back(
        {.left = number[0], .right = number[2], .top = number[1], .bottom = number[3]});
    return number[0] <= number[2] && number[1] <= number[3];
}

bool maxoption(const std::string &value, arguments *args)
{
    args->maxgiven = true;
    return numberread(value, 1, 1000000, &args->max);
}

bool minoption(const std::string &value, arguments *args)
{
    return numberread(value, 1, 12, &args->min);
}

bool minscoreoption(const std::string &value, arguments *args)
{
    return numberread(value, -1000000, 1000000, &args->minscore);
}

bool sizeoption(const std::string &value, arguments *args)
{
    size_t cross = value.find('x');
    return cross != std::string::npos &&
           numberread(value.substr(0, cross), 1, GRIDMAX, &args->width) &&
           numberread(value.substr(cross + 1), 1, GRIDMAX, &args->height);
}

bool directionsoption(const std::string &value, arguments *args)
{
    return numberread(value, 1, 255, &args->directions);
}

bool seedoption(const std::string &value, arguments *args)
{
    int32_t seed;
    bool good = numberread(value, 0, INT32_MAX, &seed);
    args->seed = static_cast<uint32_t>(seed);
    return good;
}

bool secondsoption(const std::string &value, arguments *args)
{
    return numberread(value, 1, 1000000, &args->seconds);
}

bool preferoption(const std::string &value, arguments *args)
{
    args->prefer = value;
    return !value.empty();
}

bool countoption(const std::string &, arguments *args)
{
    return args->count = true;
}

bool repeatoption(const std::string &, arguments *args)
{
    return args->repeat = true;
}

bool outoption(const std::string &value, arguments *args)
{
    args->out = value;
    return !value.empty();
}

bool formatoption(const std::string &value, arguments *args)
{
    args->format = value;
    return exchangefind(value);
}

bool titleoption(const std::string &value, arguments *args)
{
    args->title = value;
    return true;
}

bool wordsoption(const std::string &value, arguments *args)
{
    args->wordlist = value;
    return !value.empty();
}

bool lossyoption(const std::string &, arguments *args)
{
    args->lossy = true;
    return true;
}

bool wordsquareoption(const std::string &, arguments *args)
{
    args->wordsquare = true;
    return true;
}

struct optionrow {
    const char *name;
    uint32_t takes;
    bool hasvalue;
    bool (*read)(const std::string &value, arguments *args);
};

constexpr optionrow options[] = {
    {"--dictionaries", TAKESDICTIONARIES, true, dictionariesoption},
    {"--dict", TAKESDICTIONARIES, true, dictoption},
    {"--mark", TAKESMARK, true, markoption},
    {"--max", TAKESMAX, true, maxoption},
    {"--min", TAKESMIN, true, minoption},
    {"--min-score", TAKESMINSCORE, true, minscoreoption},
    {"--size", TAKESMAKING, true, sizeoption},
    {"--directions", TAKESMAKING, true, directionsoption},
    {"--seed", TAKESMAKING | TAKESONE, true, seedoption},
    {"--seconds", TAKESONE, true, secondsoption},
    {"--prefer", TAKESONE, true, preferoption},
    {"--count", TAKESEVERY, false, countoption},
    {"--repeat", TAKESEVERY | TAKESONE, false, repeatoption},
    {"-o", TAKESOUT, true, outoption},
    {"--as", TAKESFORMAT, true, formatoption},
    {"--title", TAKESSHEET, true, titleoption},
    {"--words", TAKESSHEET, true, wordsoption},
    {"--lossy", TAKESLOSSY, false, lossyoption},
    {"--wordsquare", TAKESWORDSQUARE, false, wordsquareoption},
};

const optionrow *optionfind(const std::string &name, uint32_t takes)
{
    for (const optionrow &row : options)
        if ((row.takes & takes) && name == row.name) return &row;
    return nullptr;
}

// Reads the option at words[*at], with its value, which may stand behind a "="
// or be the next word.
std::string optionread(const std::vector<std::string> &words, size_t *at, uint32_t takes,
                       arguments *args)
{
    const std::string &word = words[*at];
    size_t equals = word.find('=');
    std::string name = word.substr(0, equals);
    const optionrow *row = optionfind(name, takes);
    if (!row) return "unknown option " + name;

    std::string value;
    if (equals != std::string::npos) {
        if (!row->hasvalue) return name + " takes no value";
        value = word.substr(equals + 1);
    } else if (row->hasvalue) {
        if (++*at == words.size()) return name + " needs a value";
        value = words[*at];
    }
    return row->read(value, args) ? "" : "bad value for " + name + ": " + value;
}

} // namespace

std::string argumentsread(const std::vector<std::string> &words, uint32_t takes, arguments *args)
{
    *args = {};
    args->max = 1000;
    args->seconds = 60;
    args->minscore = NOSCORE;
    args->seed = static_cast<uint32_t>(std::time(nullptr));
    bool plain = false; // behind "--" nothing is an option
    for (size_t at = 0; at < words.size(); at++) {
        const std::string &word = words[at];
        if (plain || word == "-" || word.empty() || word[0] != '-') {
            args->words.push_back(word);
        } else if (word == "--") {
            plain = true;
        } else {
            std::string wrong = optionread(words, &at, takes, args);
            if (!wrong.empty()) return wrong;
        }
    }
    if ((takes & TAKESMAKING) && !args->width) return "--size is missing";
    if ((takes & TAKESOUT) && args->out.empty()) return "-o is missing";
    return "";
}
