// screens FOLDER - starts the demonstration and pictures its windows and those of
// the program's templates.
#include "tools/screenshots/screens.h"

#include "base/errors.h"
#include "desktop/task.h"
#include "graphics/modeinfo.h"
#include "tests/support/driver.h"
#include "tools/deskdemo/deskdemo.h"

#include <cstdio>

int screenfaults;

static std::string folder;
static int pictures;

void screenfault(const std::string &what)
{
    std::printf("fault: %s\n", what.c_str());
    screenfaults++;
}

void screensave(window w, const std::string &name)
{
    if (!w) return screenfault(name + " has no window");
    drivesave(drivelookframe(w), folder + "/" + name + ".png");
    pictures++;
}

void screensaveall(const std::string &name)
{
    drivesave(drivelookscreen(), folder + "/" + name + ".png");
    pictures++;
}

int main(int count, char **words)
{
    if (count != 2) return 2;
    folder = words[1];
    taskleaf = "screens.exe";
    if (errorblock *err = demostart()) {
        std::printf("The demonstration doesn't start: %s\n", err->text);
        return 1;
    }
    drivepump(100);
    screendemo();
    screentemplates();
    demoend();
    if (screenfaults) return 1;
    std::printf("Screens drawn at %d dots to the inch: %d\n", static_cast<int>(modeinfo.xdpi),
                pictures);
    return 0;
}
