#include "desktop/wdata.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "tests/desktop/fake/fakesource.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <string>

namespace
{

constexpr window PARENT = 1;

std::string heard; // by the handlers and by who ends what the pointer does

void ending(window w)
{
    heard += "end " + std::to_string(w) + " ";
}

errorblock *told(window w, intptr_t)
{
    heard += "told " + std::to_string(w) + " ";
    return nullptr;
}

// Deletes the window that the data names.
errorblock *deletes(window w, intptr_t other)
{
    told(w, 0);
    if (wdata *record = wdatafind(other)) wdatafree(record);
    return nullptr;
}

void freeall()
{
    while (wdatas)
        wdatafree(wdatas);
}

errorblock *deletesall(window w, intptr_t)
{
    freeall();
    return told(w, 0);
}

errorblock *fails(window w, intptr_t)
{
    told(w, 0);
    return fakeerror();
}

void add(window w, window parent = PARENT)
{
    wdata *record;
    REQUIRE_FALSE(wdatanew(w, &record));
    record->parent = parent;
}

// The parent, and dependants 14, 13, 12, 11 in the order of a walk.
void family()
{
    REQUIRE_FALSE(blockstart());
    heard.clear();
    add(PARENT, 0);
    for (window w = 11; w <= 14; w++)
        add(w);
}

std::string handles()
{
    std::string list;
    for (const wdata *record = wdatas; record; record = record->next) {
        list += std::to_string(record->handle) + " ";
        CHECK((record->next == nullptr || record->next->previous == record));
    }
    return list;
}

// Each window of a chain closes the next, so that the walks nest; the last one
// deletes what all of them come to next.
constexpr int CHAIN = 16;

errorblock *chainclosed(window w, intptr_t)
{
    if (w < CHAIN) {
        wdatadependants(w, EVENTPARENTCLOSED, ending, false);
        return nullptr;
    }
    for (window other = 100; other < 100 + CHAIN; other++)
        if (wdata *record = wdatafind(other)) wdatafree(record);
    return nullptr;
}

} // namespace

TEST_CASE("records stand in a list, the newest first")
{
    family();
    CHECK(handles() == "14 13 12 11 1 ");
    CHECK(wdatafind(12)->parent == PARENT);
    CHECK(wdatafind(99) == nullptr);
    wdatafree(wdatafind(14));
    wdatafree(wdatafind(12));
    wdatafree(wdatafind(1));
    CHECK(handles() == "13 11 ");

    flexfailafter(0);
    wdata *record;
    CHECK(wdatanew(15, &record)->code == 2);
    CHECK(handles() == "13 11 ");
    freeall();
}

TEST_CASE("a handle that is nobody's leaves two lines in the trace")
{
    family();
    headless.keeptrace = true;
    checkhandle(12, "open");
    CHECK(headless.tracetext.empty());
    checkhandle(0xABC, "open");
    CHECK(headless.tracetext.find("illegal window handle abc at open") != std::string::npos);
    CHECK(headless.tracetext.find("wimp check open wdata's 5") != std::string::npos);
    freeall();
}

TEST_CASE("dependants hear of their parent's close, and stay")
{
    family();
    add(21, 12); // depends on a dependant
    addparentclosedhandler(told, 11, 0);
    addparentclosedhandler(fails, 13, 0);
    addparentclosedhandler(told, 13, 0); // only the first is asked
    addparentclosedhandler(told, 21, 0);
    addparentdeletedhandler(told, 12, 0);
    wdatadependants(PARENT, EVENTPARENTCLOSED, ending, false);
    CHECK(heard == "end 14 end 13 told 13 end 12 end 11 told 11 ");
    CHECK(headless.boxes == 1); // the failure was shown, and the walk went on
    CHECK(handles() == "21 14 13 12 11 1 ");
    freeall();
}

TEST_CASE("a delete frees the dependants that their handlers left")
{
    family();
    addparentdeletedhandler(told, 13, 0);
    addparentdeletedhandler(deletes, 12, 12);
    wdatadependants(PARENT, EVENTPARENTDELETED, ending, true);
    CHECK(heard == "end 14 end 13 told 13 end 12 told 12 end 11 ");
    CHECK(handles() == "1 ");
    freeall();
}

TEST_CASE("a walk goes on behind records that its handlers delete")
{
    const struct {
        window deleter, deleted;
        const char *heard;
    } rows[] = {{13, 13, "end 14 end 13 told 13 end 12 end 11 "},
                {13, 12, "end 14 end 13 told 13 end 11 "},       // the next one
                {13, 1, "end 14 end 13 told 13 end 12 end 11 "}, // the list's last
                {11, 11, "end 14 end 13 end 12 end 11 told 11 "}};
    for (const auto &row : rows) {
        family();
        addparentclosedhandler(deletes, row.deleter, row.deleted);
        wdatadependants(PARENT, EVENTPARENTCLOSED, ending, false);
        CHECK(heard == row.heard);
        freeall();
        blockend();
    }
    family();
    addparentclosedhandler(deletesall, 13, 0);
    wdatadependants(PARENT, EVENTPARENTCLOSED, ending, true);
    CHECK(heard == "end 14 end 13 told 13 ");
    CHECK(wdatas == nullptr);
}

TEST_CASE("sixteen walks inside one another are all protected")
{
    REQUIRE_FALSE(blockstart());
    heard.clear();
    for (window w = 1; w <= CHAIN; w++) {
        add(99 + w, w - 1); // behind the one below in its walk
        add(w, w - 1);
        addparentclosedhandler(chainclosed, w, 0);
    }
    wdatadependants(0, EVENTPARENTCLOSED, ending, false);
    for (window other = 100; other < 100 + CHAIN; other++)
        CHECK(heard.find("end " + std::to_string(other) + " ") == std::string::npos);

    // All entries are free again.
    heard.clear();
    add(100, 0);
    add(101, 0);
    addparentclosedhandler(deletes, 101, 100);
    wdatadependants(0, EVENTPARENTCLOSED, ending, false);
    CHECK(heard.find("end 100 ") == std::string::npos);
    freeall();
}
