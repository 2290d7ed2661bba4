#include "desktop/handlers.h"

#include "base/flex.h"
#include "desktop/blocks.h"
#include "tests/desktop/fake/fakesource.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

namespace
{

// The one block that an add makes, and nothing is left of it behind its twin.
template<typename add, typename rem, typename... words>
block made(add adder, rem remover, words... arguments)
{
    CHECK(adder(arguments...) == nullptr);
    REQUIRE(blockcount() == 1);
    block b = blockat(0);
    CHECK(remover(arguments...) == nullptr);
    CHECK(blockcount() == 0);
    return b;
}

// Of a window: function, window, data.
#define OFWINDOW(name, number)                                                                     \
    {                                                                                              \
        block b = made(add##name##handler, rem##name##handler, nullptr, 10, 20);                   \
        CHECK(b.type == number);                                                                   \
        CHECK(b.window == 10);                                                                     \
        CHECK(b.data == 20);                                                                       \
    }

#define OFDROP(name, number)                                                                       \
    {                                                                                              \
        block b = made(add##name##handler, rem##name##handler, 10, 20, nullptr);                   \
        CHECK(b.type == number);                                                                   \
        CHECK(b.window == 10);                                                                     \
        CHECK(b.data == 20);                                                                       \
    }

} // namespace

TEST_CASE("the type and the fields of each registration")
{
    REQUIRE(blockstart() == nullptr);
    headless.keeptrace = true;
    OFWINDOW(redraw, 1)
    OFWINDOW(open, 2)
    OFWINDOW(close, 3)
    OFWINDOW(click, 6)
    OFWINDOW(key, 8)
    OFWINDOW(focus, 11)
    OFWINDOW(help, -16)
    OFWINDOW(mouse, -17)
    OFWINDOW(activate, -18)
    OFWINDOW(pointer, -19)
    OFWINDOW(textchange, -20)
    OFWINDOW(textfocus, -21)
    OFWINDOW(parentdeleted, -23)
    OFWINDOW(parentclosed, -24)
    OFWINDOW(hook, -25)
    OFWINDOW(wheel, -27)
    OFWINDOW(appcommand, -28)
    OFDROP(dropload, -6)
    OFDROP(dropdone, -7)
    OFDROP(drop, -8)
    OFDROP(dropextra, -9)

    CHECK(made(addnullhandler, remnullhandler, nullptr, 20).type == 0);
    CHECK(made(addpostpollhandler, rempostpollhandler, nullptr, 20).type == -2);
    CHECK(made(addprepollhandler, remprepollhandler, nullptr, 20).type == -3);
    block b = made(addloadhandler, remloadhandler, 0x103, nullptr);
    CHECK(b.type == -4);
    CHECK(b.window == 0x103);
    b = made(addloadedhandler, remloadedhandler, 0x103, nullptr);
    CHECK(b.type == -5);
    CHECK(b.window == 0x103);
    b = made(addmessagehandler, remmessagehandler, 65537, nullptr, 20);
    CHECK(b.type == -10);
    CHECK(b.subtype == 65537);
    CHECK(b.data == 20);
    b = made(addbroadcasthandler, rembroadcasthandler, nullptr, 9);
    CHECK(b.type == 17);
    CHECK(b.subtype == 9);
    CHECK(headless.tracetext.empty());
}
