#include "app/startup.h"

#include "app/main.h"
#include "base/boxes.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/filetypes.h"
#include "base/messages.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"
#include "desktop/task.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "tests/desktop/fake/fakesource.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <cstring>
#include <fstream>

namespace
{

const char catalogue[] = "ECR:Corruption in file.\nFS10:Grid edited and not saved. Continue?\n";

errorblock *note(intptr_t number, intptr_t, intptr_t, intptr_t)
{
    fake.log.push_back("message " + std::to_string(number));
    return number == TASKREADY ? fakeerror() : nullptr; // which nobody looks at
}

// Texts, and who follows the stages of the task, as soon as there is a table.
void listen(const std::string &stage)
{
    if (stage != "tasktemplates") return;
    addtranstext(catalogue, sizeof catalogue - 1);
    for (intptr_t number : {TASKREADY, TASKRUN, TASKEND})
        addmessagehandler(number, note, 0);
}

// Runs the program, which is told to quit as soon as it polls. Its status when
// it ends inside, or that plus 100 when it returns.
int run(std::vector<std::string> words = {})
{
    words.insert(words.begin(), "quillmere.exe");
    std::vector<char *> pointers;
    for (std::string &word : words)
        pointers.push_back(word.data());
    fake.onstage = listen;
    postquit(0);
    try {
        return 100 + mainroutine(static_cast<int>(words.size()), pointers.data());
    } catch (const fakeleft &left) {
        return left.status;
    }
}

// The log behind the library's own stages.
std::string applog()
{
    std::string log = fakelog();
    size_t at = log.find("tasktemplates, ");
    return at == std::string::npos ? "none of " + log : log.substr(at + 15);
}

const char wholelog[] = "linktemplates, linkmenus, message 3, openmainwindow, "
                        "message 65543, wait, message 4, modeinfoend";

std::string gridfile(const char *leaf)
{
    std::string path = scratchfolder() + "/" + leaf;
    gridreset();
    grid.width = 9;
    grid.letters[2][3] = 'q';
    REQUIRE(gridwrite(path.c_str()) == nullptr);
    gridreset();
    return path;
}

} // namespace

TEST_CASE("the program starts, runs and ends in its order")
{
    CHECK(run() == 0);
    CHECK(applog() == wholelog);
    CHECK(headless.boxes == 0);
    CHECK(grid.width == 16);
    CHECK(grid.filename[0] == 0);
    CHECK(headless.metrics == 1); // of the lists, by the choices
}

TEST_CASE("a library that doesn't start is told, and the program ends with 0")
{
    fake.failstage = "initsprites";
    CHECK(run() == 100);
    CHECK(headless.boxes == 1);
    CHECK(headless.boxtext == "It failed");
    CHECK(headless.boxtitle == "Quillmere");
    CHECK(headless.boxflags == (BOXTASKMODAL | BOXSTOP));
    CHECK(fakelog() == "modeinfoinit, inittemp, initsprites");
}

TEST_CASE("an application that doesn't start whole goes on without a word")
{
    SUBCASE("templates")
    {
        fake.failstage = "linktemplates";
        CHECK(run() == 0);
        // Without the quit handler the poll ends the process itself.
        CHECK(applog() == "linktemplates, message 3, openmainwindow, message 65543, wait");
    }
    SUBCASE("menus")
    {
        fake.failstage = "linkmenus";
        CHECK(run() == 0);
        CHECK(applog() ==
              "linktemplates, linkmenus, message 3, openmainwindow, message 65543, wait");
    }
    CHECK(headless.boxes == 0);
}

TEST_CASE("a main window that doesn't open is the end")
{
    fake.failstage = "openmainwindow";
    CHECK(run() == 0);
    CHECK(applog() ==
          "linktemplates, linkmenus, message 3, openmainwindow, message 4, modeinfoend");
    CHECK(headless.boxes == 1);
}

TEST_CASE("the command line names one grid")
{
    std::string path = gridfile("a grid.txt"); // whatever its extension says
    SUBCASE("one")
    {
        CHECK(run({path}) == 0);
        CHECK(grid.width == 9);
        CHECK(grid.letters[2][3] == 'q');
        CHECK(grid.filename == path);
        CHECK(gridsunsaved() == 0);
        CHECK(headless.boxes == 0);
    }
    SUBCASE("two: none is opened")
    {
        CHECK(run({path, path}) == 0);
        CHECK(grid.width == 16);
        CHECK(headless.boxes == 0);
    }
    SUBCASE("a text: it isn't one, and the program stays")
    {
        std::ofstream(path) << "zebra\n";
        CHECK(run({path}) == 0);
        CHECK(headless.boxes == 1);
        CHECK(headless.boxtext == "Corruption in file.");
        CHECK(grid.width == 16);
    }
    CHECK(applog() == wholelog);
}

TEST_CASE("the question before the end")
{
    CHECK(run() == 0);
    CHECK(quitquery() == 0);
    CHECK(headless.boxes == 0);

    gridchange();
    headless.boxanswer = 7; // No
    CHECK(quitquery() == 1);
    CHECK(headless.boxes == 1);
    CHECK(headless.boxtext == "Grid edited and not saved. Continue?");
    CHECK(headless.boxflags == (BOXYESNO | BOXWARNING));
    CHECK(gridsunsaved() == 1);
    headless.boxanswer = 6; // Yes
    CHECK(quitquery() == 0);
}

TEST_CASE("the kinds of file")
{
    REQUIRE(loadappresources(nullptr) == nullptr);
    CHECK(filetypeof("a.QMG") == 0x103);
    CHECK(filetypeof("a.txt") == 0xFFF);
    CHECK(filetypeof("a.emf") == 0x101);
    CHECK(filetypeof("a.wmf") == 0x100); // the first of two rows
    CHECK(filetypeof("a.dat") == FILETYPEDEFAULT);
    CHECK(filetypeof("a.doc") == FILETYPEDATA);
    CHECK(filetypeof("a") == FILETYPEDATA);
    CHECK(std::string(filetypedescription(0x102)) == "Placement metafile (*.wmf)");
    char extension[8];
    filetypetext(0x102, extension, sizeof extension);
    CHECK(std::string(extension) == "wmf");
    filetypetext(FILETYPEDATA, extension, sizeof extension);
    CHECK(std::string(extension) == "dat");
    CHECK(std::string(lookuperror(ECR)) == "{ECR}");
}
