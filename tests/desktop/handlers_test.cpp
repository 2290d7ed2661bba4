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

// Of a window: function, window, data; of a drop the function comes last.
template<typename add, typename rem> void ofwindow(add adder, rem remover, int32_t type)
{
    block b = made(adder, remover, nullptr, 10, 20);
    CHECK(b.type == type);
    CHECK(b.window == 10);
    CHECK(b.data == 20);
}

template<typename add, typename rem> void ofdrop(add adder, rem remover, int32_t type)
{
    block b = made(adder, remover, 10, 20, nullptr);
    CHECK(b.type == type);
    CHECK(b.window == 10);
    CHECK(b.data == 20);
}

} // namespace

TEST_CASE("the type and the fields of each registration")
{
    REQUIRE(blockstart() == nullptr);
    headless.keeptrace = true;
    ofwindow(addredrawhandler, remredrawhandler, 1);
    ofwindow(addopenhandler, remopenhandler, 2);
    ofwindow(addclosehandler, remclosehandler, 3);
    ofwindow(addclickhandler, remclickhandler, 6);
    ofwindow(addkeyhandler, remkeyhandler, 8);
    ofwindow(addfocushandler, remfocushandler, 11);
    ofwindow(addhelphandler, remhelphandler, -16);
    ofwindow(addmousehandler, remmousehandler, -17);
    ofwindow(addactivatehandler, remactivatehandler, -18);
    ofwindow(addpointerhandler, rempointerhandler, -19);
    ofwindow(addtextchangehandler, remtextchangehandler, -20);
    ofwindow(addtextfocushandler, remtextfocushandler, -21);
    ofwindow(addparentdeletedhandler, remparentdeletedhandler, -23);
    ofwindow(addparentclosedhandler, remparentclosedhandler, -24);
    ofwindow(addhookhandler, remhookhandler, -25);
    ofwindow(addwheelhandler, remwheelhandler, -27);
    ofwindow(addappcommandhandler, remappcommandhandler, -28);
    ofdrop(adddroploadhandler, remdroploadhandler, -6);
    ofdrop(adddropdonehandler, remdropdonehandler, -7);
    ofdrop(adddrophandler, remdrophandler, -8);
    ofdrop(adddropextrahandler, remdropextrahandler, -9);

    CHECK(made(addnullhandler, remnullhandler, nullptr, 20).type == 0);
    CHECK(made(addpostpollhandler, rempostpollhandler, nullptr, 20).type == -2);
    CHECK(made(addprepollhandler, remprepollhandler, nullptr, 20).type == -3);
    CHECK(made(addloadhandler, remloadhandler, 0x103, nullptr).type == -4);
    CHECK(made(addloadedhandler, remloadedhandler, 0x103, nullptr).type == -5);
    CHECK(made(addmessagehandler, remmessagehandler, 65537, nullptr, 20).type == -10);
    CHECK(made(addbroadcasthandler, rembroadcasthandler, nullptr, 9).type == 17);
    CHECK(headless.tracetext.empty());
}
