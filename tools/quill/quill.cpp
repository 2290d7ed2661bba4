// quill - the console companion: the word store, the grid and the searches
// without a window. It makes the shipped dictionaries, and is how the logic is
// scripted, tested and measured from outside.

#include "app/apperrors.h"
#include "base/boxes.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "base/paths.h"
#include "find/solutions.h"
#include "grid/gridfile.h"
#include "messagetext.h"
#include "tools/quill/commands.h"
#include "tools/quill/console.h"
#include "tools/quill/edge.h"
#include "tools/quill/session.h"

#include <cstdio>

namespace
{

constexpr int DONE = 0, FAILED = 1, WRONGUSAGE = 2, STOPPED = 130;

struct commandrow {
    const char *name; // one or two words
    const char *usage;
    const char *does;
    size_t least; // words that it needs
    size_t most;  // words that it can take
    uint32_t takes;
    commandfunction run;
};

constexpr size_t ANY = ~size_t{0};

constexpr commandrow commands[] = {
    {"dict build", "OUT.dic [WORDS.txt]... [--min-score N]",
     "makes a dictionary from texts of words; with --min-score from lists of WORD;SCORE", 1, ANY,
     TAKESMINSCORE, commanddictbuild},
    {"dict words", "FILE.dic", "lists every word of a dictionary", 1, 1, 0, commanddictwords},
    {"dict find", "FILE.dic WORD...", "looks words up: word, found or absent, number, stored word",
     2, ANY, 0, commanddictfind},
    {"dict add", "FILE.dic WORD...", "adds words; - reads them from standard input, one a line", 2,
     ANY, 0, commanddictadd},
    {"dict remove", "FILE.dic WORD...", "removes words; - reads them from standard input", 2, ANY,
     0, commanddictremove},
    {"dict check", "FILE.dic", "checks a dictionary from end to end", 1, 1, 0, commanddictcheck},
    {"grid build", "OUT.qmg PICTURE.txt [--wordsquare]", "makes a grid from a text picture", 2, 2,
     TAKESWORDSQUARE, commandgridbuild},
    {"grid draw", "GRID.qmg", "draws a grid as a text picture", 1, 1, 0, commandgriddraw},
    {"grid words", "GRID.qmg", "lists the words of a grid", 1, 1, 0, commandgridwords},
    {"grid import", "IN -o OUT.qmg [--as FORMAT] [--wordsquare]",
     "makes a grid from a file of another program: ipuz, puz, txt or csv", 1, 1,
     TAKESOUT | TAKESFORMAT | TAKESWORDSQUARE, commandgridimport},
    {"grid export", "GRID.qmg -o OUT [--as FORMAT] [--lossy]",
     "writes a grid for other programs: ipuz, puz, txt, csv, svg, pdf or png", 1, 1,
     TAKESOUT | TAKESFORMAT | TAKESLOSSY, commandgridexport},
    {"solve", "GRID.qmg [--mark L,T,R,B]... [--max N]",
     "fills the marked cells: all words for one slot, all pairs for two, a selection for more", 1,
     1, TAKESDICTIONARIES | TAKESMARK | TAKESMAX, commandsolve},
    {"fillall", "GRID.qmg [--mark L,T,R,B]... [--max N] [--count] [--repeat]",
     "finds every fill of all slots, or of the marked ones", 1, 1,
     TAKESDICTIONARIES | TAKESMARK | TAKESMAX | TAKESEVERY, commandfillall},
    {"fillgrid", "GRID.qmg -o OUT.qmg [--seed N] [--prefer NAME] [--seconds N] [--repeat]",
     "fills a whole grid once; what stands in it stays", 1, 1,
     TAKESDICTIONARIES | TAKESONE | TAKESOUT, commandfillgrid},
    {"anagram", "TEXT [--max N]", "finds every word of exactly these letters; * is any one", 1, 1,
     TAKESDICTIONARIES | TAKESMAX, commandanagram},
    {"guess", "WORD", "suggests words like this one", 1, 1, TAKESDICTIONARIES, commandguess},
    {"spell", "GRID.qmg", "lists the unknown words of a grid, with suggestions", 1, 1,
     TAKESDICTIONARIES, commandspell},
    {"make", "WORDS.txt --size WxH [--directions MASK] [--seed N] -o OUT.qmg",
     "hides a list of words in a square of letters", 1, 1, TAKESMAKING | TAKESOUT, commandmake},
    {"fill", "--size WxH [--directions MASK] [--seed N] -o OUT.qmg",
     "makes a square of as many random words as will go in", 0, 0,
     TAKESDICTIONARIES | TAKESMAKING | TAKESOUT, commandfill},
    {"find", "GRID.qmg [--min N]", "finds the words hidden in a square", 1, 1,
     TAKESDICTIONARIES | TAKESMIN, commandfind},
    {"stats", "GRID.qmg", "counts words, cells and letters, and looks for symmetry", 1, 1, 0,
     commandstats},
    {"sheet", "GRID.qmg -o OUT [--title TEXT] [--words WORDS.txt] [--min N]",
     "makes a sheet to solve on, with the solution apart: svg, html or pdf", 1, 1,
     TAKESOUT | TAKESSHEET | TAKESDICTIONARIES | TAKESMIN, commandsheet},
    {"clues", "GRID.qmg", "writes the clue list of a grid", 1, 1, 0, commandclues},
};

void usageshow(FILE *out, const commandrow &row)
{
    std::fprintf(out, "usage: quill %s %s\n", row.name, row.usage);
    if (row.takes & TAKESDICTIONARIES)
        std::fputs("       [--dictionaries DIR] [--dict NAME]...\n", out);
}

void helpall(FILE *out)
{
    std::fputs("usage: quill COMMAND ...\n\n", out);
    for (const commandrow &row : commands)
        std::fprintf(out, "  %-12s %s\n", row.name, row.does);
    std::fputs("\n  quill help COMMAND   how a command is used\n"
               "  quill --version      which quill this is\n",
               out);
}

// The command that the first words name; *used says how many those are.
const commandrow *commandfind(const std::vector<std::string> &words, size_t *used)
{
    for (const commandrow &row : commands) {
        std::string name = row.name;
        *used = name.find(' ') == std::string::npos ? 1 : 2;
        if (words.size() < *used) continue;
        std::string said = *used == 1 ? words[0] : words[0] + " " + words[1];
        if (said == name) return &row;
    }
    return nullptr;
}

// An error of the system's tells the call that failed and its code, and the file last:
// "words (call) (code) (file)". Who sits at a console wants the file and the words.
std::string plainwords(const std::string &text)
{
    for (size_t at = text.find('('); at != std::string::npos; at = text.find('(', at + 1)) {
        int behind = 0;
        if (std::sscanf(text.c_str() + at, "(%*[^)]) (%*[0-9])%n", &behind), !behind) continue;
        std::string words = text.substr(0, text.find_last_not_of(" \r\n", at - 1) + 1);
        std::string file = text.substr(at + static_cast<size_t>(behind));
        return file.size() > 3 ? file.substr(2, file.size() - 3) + ": " + words : words;
    }
    return text;
}

int failed(const errorblock *err)
{
    remark("quill: %s", plainwords(err->text).c_str());
    return FAILED;
}

// What was asked for is on its way only when the output took it.
int told()
{
    errorblock *err = outclose();
    return err ? failed(err) : DONE;
}

// Whether help is asked for among the options.
bool helpasked(const std::vector<std::string> &words)
{
    for (const std::string &word : words) {
        if (word == "--") return false;
        if (word == "-h" || word == "--help") return true;
    }
    return false;
}

int commandhelp(const commandrow &row)
{
    usageshow(stdout, row);
    std::fprintf(stdout, "%s %s.\n", row.name, row.does);
    return told();
}

int help(std::vector<std::string> words)
{
    size_t used;
    words.erase(words.begin());
    if (words.empty()) {
        helpall(stdout);
        return told();
    }
    if (const commandrow *row = commandfind(words, &used)) return commandhelp(*row);
    // "help dict" shows the commands that begin so.
    bool any = false;
    for (const commandrow &row : commands)
        if (std::string(row.name).rfind(words[0] + " ", 0) == 0) {
            usageshow(stdout, row);
            any = true;
        }
    if (any) return told();
    helpall(stderr);
    return WRONGUSAGE;
}

errorblock *foundationstart()
{
    settaskname("quill", nullptr);
    pathmacros(false);
    errorblock *err = flex_init2();
    if (!err) err = initerror();
    if (!err) err = inittrans();
    if (!err) err = taskerrors();
    if (!err) err = apperrors();
    if (!err) err = addtranstext(messagetext, static_cast<int32_t>(sizeof messagetext - 1));
    gridreset();
    return err;
}

int commandrun(const commandrow &row, const std::vector<std::string> &words)
{
    arguments args;
    std::string wrong = argumentsread(words, row.takes, &args);
    if (wrong.empty() && (args.words.size() < row.least || args.words.size() > row.most))
        wrong = args.words.size() < row.least ? "something is missing" : "one word too many";
    if (!wrong.empty()) {
        remark("quill %s: %s", row.name, wrong.c_str());
        usageshow(stderr, row);
        return WRONGUSAGE;
    }
    errorblock *err = row.run(args);
    if (!err) err = outclose();
    int result = err ? failed(err) : edgestopped() ? STOPPED : DONE;
    sessionend();
    return result;
}

} // namespace

int main(int count, char **line)
{
    edgestart();
    std::vector<std::string> words;
    errorblock *err = foundationstart();
    if (!err) err = edgearguments(count - 1, line + 1, &words);
    if (err) return failed(err);

    if (words.empty()) {
        helpall(stderr);
        return WRONGUSAGE;
    }
    if (words[0] == "--version") {
        std::puts("quill " QUILLMERE_VERSION);
        return told();
    }
    if (words[0] == "help" || words[0] == "--help" || words[0] == "-h") return help(words);

    size_t used;
    const commandrow *row = commandfind(words, &used);
    if (!row) {
        remark("quill: no command %s", words[0].c_str());
        helpall(stderr);
        return WRONGUSAGE;
    }
    words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(used));
    if (helpasked(words)) return commandhelp(*row);
    return commandrun(*row, words);
}
