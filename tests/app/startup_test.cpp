#include "app/startup.h"

#include "app/apperrors.h"
#include "app/main.h"
#include "base/boxes.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/filetypes.h"
#include "base/messages.h"
#include "base/platformfault.h"
#include "base/text.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"
#include "desktop/task.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "tests/desktop/fake/fakesource.h"
#include "tests/support/testfiles.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <filesystem>

namespace
{

const char catalogue[] = "ECR:Corruption in file.\n"
                         "FS10:Grid edited and not saved. Continue?\n"
                         "SPKEEP:Dictionaries changed. Retain changes?\n";

errorblock *note(intptr_t number, intptr_t, intptr_t, intptr_t)
{
    fake.log.push_back("message " + std::to_string(number));
    return number == TASKREADY ? fakeerror() : nullptr; // which nobody looks at
}

// Runs the program, which is told to quit as soon as it polls. Its status when
// it ends inside, or -1 when it returns; texts, and who follows the stages of the
// task, are there as soon as there is a table.
int run(std::vector<std::string> words = {})
{
    words.insert(words.begin(), "quillmere.exe");
    std::vector<char *> pointers;
    for (std::string &word : words)
        pointers.push_back(word.data());
    fake.onstage = [](const std::string &stage) {
        if (stage != "tasktemplates") return;
        addtranstext(catalogue, sizeof catalogue - 1);
        for (intptr_t number : {TASKREADY, TASKRUN, TASKEND})
            addmessagehandler(number, note, 0);
    };
    postquit(0);
    return fakeended([&] { mainroutine(static_cast<int>(pointers.size()), pointers.data()); });
}

const std::string ended = "linktemplates, linkmenus, message 3, openmainwindow, "
                          "message 65543, wait, message 4, modeinfoend";

} // namespace

TEST_CASE("the program starts, runs and ends in its order, whatever fails")
{
    // What comes behind the library's own stages.
    const struct {
        const char *failing;
        int status;
        std::string log;
        uint32_t boxes = 0;
    } rows[] = {
        {"", 0, ended},
        // Of the library: it is told, and the end. Of the application: not a word.
        {"initsprites", -1, "modeinfoinit, inittemp, initsprites", 1},
        // Without the quit handler the poll ends the process itself.
        {"linktemplates", 0, "linktemplates, message 3, openmainwindow, message 65543, wait"},
        {"linkmenus", 0,
         "linktemplates, linkmenus, message 3, openmainwindow, message 65543, wait"},
        {"openmainwindow", 0,
         "linktemplates, linkmenus, message 3, openmainwindow, message 4, modeinfoend", 1}};
    for (const auto &row : rows) {
        modulesreset();
        fake.failstage = row.failing;
        CHECK(run() == row.status);
        std::string log = fakelog();
        size_t at = log.find("linktemplates");
        CHECK(log.substr(at == std::string::npos ? 0 : at) == row.log);
        CHECK(headless.boxes == row.boxes);
        if (!row.boxes) continue;
        CHECK((headless.boxtext == "It failed" && headless.boxtitle == "Quillmere"));
        CHECK(headless.boxflags == (BOXTASKMODAL | BOXSTOP));
    }
}

TEST_CASE("the command line names one grid, whatever its extension says")
{
    std::string path = scratch("a grid.txt"), text = scratch("text.qmg");
    std::string absolute = std::filesystem::absolute(path).make_preferred().string();
    userfolder folder("Default");
    grid.width = 9;
    REQUIRE_FALSE(gridwrite(path.c_str()));
    grid.width = 16;
    grid.gridfont.height = 256;
    REQUIRE_FALSE(gridsavedefault());
    putfile(text, "zebra\n");
    const struct {
        std::vector<std::string> words;
        int32_t width;
        std::string filename, box;
    } rows[] = {{{}, 16, "", ""},
                {{path}, 9, absolute, ""},
                {{path, path}, 16, "", ""},               // of two none is opened
                {{text}, 16, "", "Corruption in file."}}; // it isn't one, and the program stays
    for (const auto &row : rows) {
        modulesreset();
        solutions = {};
        CHECK(run(row.words) == 0);
        CHECK((grid.gridfont.height == (row.width == 9 ? 128 : 256)));
        CHECK(solutions.maxsolutions == 1000);
        CHECK((grid.width == row.width && grid.filename == row.filename && gridsunsaved() == 0));
        CHECK(headless.boxtext == row.box);
        CHECK(fakelog().ends_with(ended));
        CHECK(headless.metrics == 1); // of the lists, by the choices
    }
    // The question before the end.
    headless.boxes = 0;
    CHECK((quitquery() == 0 && headless.boxes == 0));
    gridchange();
    headless.boxanswer = 7; // No
    CHECK(quitquery() == 1);
    CHECK((headless.boxtext == "Grid edited and not saved. Continue?" && gridsunsaved() == 1));
    CHECK(headless.boxflags == (BOXYESNO | BOXWARNING));
    headless.boxanswer = 6; // Yes
    CHECK(quitquery() == 0);

    // And the one about words that are in memory alone.
    modulesreset();
    CHECK(run() == 0);
    strcopyn(dictdirectory, scratch("").c_str(), sizeof dictdirectory);
    REQUIRE_FALSE(dictcreate("leaving"));
    REQUIRE_FALSE(dictadd("ant", &dicts[0].dict));
    dicts[0].changed = 1;
    const struct {
        int answer, space, stays;
        const char *told;
        bool left;                                                         // changed still
    } ways[] = {{2, -1, 1, "Dictionaries changed. Retain changes?", true}, // Cancel
                {7, -1, 0, "Dictionaries changed. Retain changes?", true}, // No
                {6, 10, 1, "(WriteFile)", true},                           // on a full disc
                {6, -1, 0, "Dictionaries changed. Retain changes?", false}};
    for (const auto &row : ways) {
        CAPTURE(row.answer);
        headless.boxanswer = row.answer;
        platformfault.space = row.space;
        CHECK(quitquery() == row.stays);
        platformfault = {};
        CHECK(headless.boxtext.find(row.told) != std::string::npos);
        CHECK((dictanychanges() != 0) == row.left);
    }
    dictunload(0);
}

TEST_CASE("the kinds of file")
{
    REQUIRE(loadappresources(nullptr) == nullptr);
    const std::pair<const char *, int32_t> rows[] = {{"a.QMG", 0x103},
                                                     {"a.wmf", 0x100}, // of two rows
                                                     {"a.dat", FILETYPEDEFAULT},
                                                     {"a.doc", FILETYPEDATA},
                                                     {"a", FILETYPEDATA}};
    for (auto [name, type] : rows)
        CHECK(filetypeof(name) == type);
    CHECK(std::string(filetypedescription(0x102)) == "Placement metafile (*.wmf)");
    char extension[8];
    filetypetext(FILETYPEDATA, extension, sizeof extension);
    CHECK(std::string(extension) == "dat");
}

TEST_CASE("what the user reads of the application's errors, or of one over the library's")
{
    initerror();
    taskerrors();
    apperrors();
    REQUIRE_FALSE(inittrans());
    REQUIRE_FALSE(addtrans(RESOURCESFOLDER, "Messages.txt"));
    const std::pair<uint32_t, const char *> rows[] = {
        {ENMW, "Need marked word!"},
        {EBADBITS, "EBADBITS"}, // no entry, on purpose
        {28, "File %s not found."}};
    for (auto [code, text] : rows)
        CHECK(std::string(makeerror(code)->text) == text);
    endtrans();
}
