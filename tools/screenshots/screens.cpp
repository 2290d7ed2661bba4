// screens FOLDER - pictures the windows of all templates, as they come out of the
// resources, and the library's own boxes.
#include "base/boxes.h"
#include "base/chars.h"
#include "base/errors.h"
#include "desktop/confirm.h"
#include "desktop/help.h"
#include "desktop/task.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "tests/support/driver.h"

#include <cstdio>
#include <cstring>

namespace
{

std::string folder;
int pictures, faults;
templatelink all; // every template of the program
window stage;     // the main window of the templates, which the others stand in or over

void fault(const std::string &what)
{
    std::printf("fault: %s\n", what.c_str());
    faults++;
}

void save(window w, const std::string &name)
{
    if (!w) return fault(name + " has no window");
    drivesave(drivelookframe(w), folder + "/" + name + ".png");
    pictures++;
}

// A resource's name comes back in capitals.
std::string lower(const char *name)
{
    std::string text = name;
    for (char &c : text)
        c = static_cast<char>(charlower(static_cast<uint8_t>(c)));
    return text;
}

errorblock *templatepicture(const templaterow &row)
{
    window w = 0;
    errorblock *err = createchild(row.number, &w, stage);
    if (!err) err = opencentred(w, 0);
    if (!err) {
        drivepump(100);
        save(w, lower(row.name));
    }
    errorblock *removed = removewindow(&w);
    drivepump();
    return err ? err : removed;
}

// But the boxes, which are seen at work.
void templates()
{
    for (const templaterow *row = all.table; row->number; row++) {
        if (strcasecmp(row->name, "Confirm") == 0 || strcasecmp(row->name, "Info") == 0) continue;
        if (errorblock *err = templatepicture(*row)) fault(err->text);
    }
}

// The question hides the buttons that a kind of it lacks.
void questions()
{
    constexpr int ESCAPE = 27;
    const struct {
        uint32_t kind;
        const char *text, *name;
    } rows[] = {
        {CONFIRMYESNO, "Is this a question?", "confirm-yesno"},
        {CONFIRMDISCARDCANCEL, "There are changes.", "confirm-discard"},
        {CONFIRMDISCARDCANCELSAVE, "There are changes to be saved.", "confirm-save"},
    };
    for (const auto &row : rows) {
        int answer;
        driveaside([&] { reporterror(confirm(stage, row.kind, &answer, "%s", row.text)); },
                   [&] {
                       window w = drivewaitwindow("Screens", "Task");
                       drivewait([] { return false; }, 200);
                       save(w, row.name);
                       drivekey(ESCAPE);
                   });
    }
}

void about()
{
    constexpr int ESCAPE = 27;
    reporterror(showabout(stage, 220, "(26-June-2012)", "Quillmere"));
    drivepump(100);
    save(drivefind("About Quillmere", "Task"), "about");
    drivekey(ESCAPE);
}

errorblock *start()
{
    errorblock *err = starttask("Screens", "Screens", "!Quillmere", nullptr, 0, nullptr);
    if (!err) err = addtemplates(nullptr, "", nullptr, &all);
    if (!err) err = createtop(templatenumber("main"), &stage);
    if (!err) err = opencentred(stage, 0);
    if (!err) err = setactive(stage);
    return err;
}

} // namespace

int main(int count, char **words)
{
    if (count != 2) return 2;
    folder = words[1];
    taskleaf = "screens.exe";
    if (errorblock *err = start()) {
        std::printf("The screens don't start: %s\n", err->text);
        return 1;
    }
    drivepump(100);
    templates();
    questions();
    about();
    removewindow(&stage);
    if (faults) return 1;
    std::printf("Screens drawn at %d dots to the inch: %d\n", static_cast<int>(modeinfo.xdpi),
                pictures);
    return 0;
}
