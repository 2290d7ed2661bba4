// Commands from another program, against a second telling of their grammar: a
// list of the parts of a command, each with blanks before it.

#include "desktop/ddecommand.h"

#include "tests/fuzz/fuzz.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string>
#include <vector>

namespace
{

struct reading {
    std::string text;
    size_t at;
};

char next(reading *r)
{
    r->at = std::min(r->text.find_first_not_of(" \t", r->at), r->text.size());
    return r->at < r->text.size() ? r->text[r->at] : 0;
}

std::string letters(reading *r)
{
    std::string word;
    for (next(r); r->at < r->text.size() && std::isalpha(static_cast<uint8_t>(r->text[r->at]));
         r->at++)
        word += static_cast<char>(std::tolower(r->text[r->at]));
    return word;
}

// 'v' is a verb, '"' a name, anything else itself. True if all parts are there.
bool match(reading *r, const std::string &parts, std::vector<std::string> *words)
{
    for (char part : parts) {
        if (part == 'v') {
            words->push_back(letters(r));
            if (words->back().empty()) return false;
            continue;
        }
        if (next(r) != part) return false;
        size_t start = ++r->at;
        if (part != '"') continue;
        size_t end = r->text.find('"', start);
        if (end == std::string::npos || end == start || end - start > PATHSIZE - 1) return false;
        words->push_back(r->text.substr(start, end - start));
        r->at = end + 1;
    }
    return true;
}

// The place behind the command at the start of text, or 0.
size_t model(const std::string &text, std::vector<std::string> *words)
{
    for (const char *parts : {"v(\",\")", "v(\")"})
        for (bool bracket : {true, false}) {
            reading r = {text, 0};
            words->clear();
            std::string whole = bracket ? "[" + std::string(parts) + "]" : parts;
            if (!match(&r, whole, words)) continue;
            if ((words->front() == "printto") == (words->size() == 3)) return r.at;
        }
    return 0;
}

ddeverbs verbof(const std::string &word)
{
    return word == "open"      ? DDEOPEN
           : word == "print"   ? DDEPRINT
           : word == "printto" ? DDEPRINTTO
                               : DDENOVERB;
}

} // namespace

void fuzztarget(fuzzfeed feed)
{
    std::string text = fuzzrest(&feed);
    text.resize(std::strlen(text.c_str()));
    const char *at = text.c_str();
    for (;;) {
        const char *before = at;
        std::vector<std::string> words;
        size_t length = model(before, &words);
        ddecommandrecord command;
        bool fits = ddecommandread(&at, &command);
        FUZZCHECK(fits == (length != 0));
        FUZZCHECK(static_cast<size_t>(at - before) == length);
        if (!fits) break;
        FUZZCHECK(command.verb == verbof(words[0]));
        FUZZCHECK(words[1] == command.name);
        FUZZCHECK((words.size() > 2 ? words[2] : "") == command.printer);
    }
}
