#include "desktop/handlertable.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/dispatch.h"
#include "desktop/keys.h"
#include "tests/desktop/fake/fakesource.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

namespace
{

constexpr window SELF = 10;
constexpr int32_t FIELD = 3;

template<int32_t number> errorblock *row()
{
    fake.log.push_back("row " + std::to_string(number));
    return number == 9 ? fakeerror() : nullptr;
}

errorblock *clicked(window self, intptr_t data, mouserecord *mouse)
{
    fake.log.push_back("clicked " + std::to_string(self + data + mouse->icon));
    return nullptr;
}

errorblock *keyed(window self, intptr_t data, int32_t icon, int32_t *code)
{
    fake.log.push_back("keyed " + std::to_string(self + data + icon));
    if (*code == 'c') *code = KEYCLAIMED;
    return *code == 'e' ? fakeerror() : nullptr;
}

errorblock *later(errorblock *(*function)(intptr_t), intptr_t data)
{
    fake.log.push_back("later");
    return function(data);
}

constexpr handlertable handlers = {
    {.control = 1, .press = row<1>},
    {.control = 2, .press = row<2>, .when = later},
    {.code = KEYESCAPE, .keyed = row<3>},
    {.control = FIELD, .code = KEYEITHER | KEYRETURN, .keyed = row<4>, .when = later},
    {.code = KEYPRESS | KEYSHIFT | KEYTAB, .keyed = row<9>},
    {.data = 100, .key = keyed},
    {.code = 'x', .keyed = row<5>},
    {.data = 200, .click = clicked},
    {.control = 4, .press = row<6>}, // behind a row that takes every click
    {.closed = row<9>},
};

template<typename handler> handler any()
{
    return reinterpret_cast<handler>(modulesreset);
}

} // namespace

TEST_CASE("clicks, keys and the close of a table go to its rows")
{
    REQUIRE(blockstart() == nullptr);
    REQUIRE(addhandlers(SELF, handlers) == nullptr);
    CHECK(blockcount() == 3);

    const struct {
        intptr_t buttons, icon;
        const char *heard;
    } clicks[] = {{BUTTONLEFT, 1, "row 1"},
                  {BUTTONLEFT, 2, "later, row 2"},
                  {BUTTONRIGHT, 1, "clicked 211"},
                  {BUTTONLEFT, 4, "clicked 214"},
                  {BUTTONLEFT, -2, "clicked 208"}};
    for (const auto &click : clicks) {
        mouserecord mouse = {0, 0, click.buttons, SELF, click.icon};
        block b = blockat(findblock(EVENTCLICK, 0, SELF, BLOCKANY, nullptr));
        handlerof<clickfunction>(b)(SELF, b.data, &mouse);
        CHECK(fakelog() == click.heard);
    }

    const struct {
        int32_t icon, code;
        const char *heard;
        bool claimed;
        uint32_t error = 0;
    } keys[] = {{1, KEYESCAPE, "row 3", true},
                {FIELD, KEYRETURN, "later, row 4", true},
                {FIELD, KEYPRESS | KEYRETURN, "later, row 4", true},
                {FIELD, KEYPRESS | KEYSHIFT | KEYRETURN, "keyed 113", false},
                {-1, KEYPRESS | KEYSHIFT | KEYTAB, "row 9", true, 99},
                {-1, 'x', "keyed 109, row 5", true},
                {-1, 'c', "keyed 109", true},
                {-1, 'e', "keyed 109", false, 99}};
    for (const auto &key : keys) {
        int32_t code = key.code;
        block b = blockat(findblock(EVENTKEY, 0, SELF, BLOCKANY, nullptr));
        errorblock *err = handlerof<keyfunction>(b)(SELF, b.data, key.icon, &code);
        CHECK((fakecode(err) == key.error && fakelog() == key.heard));
        CHECK(code == (key.claimed ? KEYCLAIMED : key.code));
    }

    block b = blockat(findblock(EVENTCLOSE, 0, SELF, BLOCKANY, nullptr));
    CHECK(fakecode(handlerof<closefunction>(b)(SELF, b.data)) == 99);
    CHECK(fakelog() == "row 9");
    CHECK((remhandlers(SELF, handlers) == nullptr && blockcount() == 0));
}

TEST_CASE("every event has its row, registered in the order of the table or not at all")
{
    static const handlertable every = {
        {.redraw = any<redrawfunction>()},
        {.open = any<openfunction>()},
        {.close = any<closefunction>()},
        {.focus = any<focusfunction>()},
        {.mouse = any<mousefunction>()},
        {.activate = any<activatefunction>()},
        {.pointer = any<pointerfunction>()},
        {.textchange = any<textchangefunction>()},
        {.textfocus = any<textfocusfunction>()},
        {.parentdeleted = any<parentfunction>()},
        {.parentclosed = any<parentfunction>()},
        {.wheel = any<wheelfunction>()},
        {.appcommand = any<appcommandfunction>()},
        {.help = any<helpfunction>()},
        {.drop = any<dropfunction>()},
        {.dropload = any<droploadfunction>()},
        {.dropdone = any<dropdonefunction>()},
        {.control = FIELD, .data = 7, .subclass = any<subclassfunction>()},
        {.helptemplate = 7},
        {.key = any<keyfunction>()},
        {.click = any<clickfunction>()},
    };
    REQUIRE(blockstart() == nullptr);
    CHECK(addhandlers(SELF, every) == nullptr);
    REQUIRE(blockcount() == std::ssize(every));
    for (int32_t n = 0; n < blockcount(); n++) {
        CHECK((blockat(n).data == 7) == (n == 17 || n == 18));
        CHECK((blockat(n).type == EVENTREDRAW) == (n == 0));
        CHECK((blockat(n).type == EVENTCLICK) == (n == 20));
    }
    CHECK(fake.replaced.size() == 1);
    remhandlers(SELF, every);
    CHECK((blockcount() == 0 && fake.replaced.empty()));

    // The table is full behind n of the rows, and there is no memory for a larger one.
    for (int32_t n = 0; n < static_cast<int32_t>(every.size()); n++) {
        fakefillblocks();
        for (int32_t freed = 0; freed < n; freed++)
            remblock(EVENTMESSAGE, blockat(0).subtype, 0, 0, nullptr, nullptr);
        int32_t before = blockcount();
        flexfailafter(0);
        CHECK(fakecode(addhandlers(SELF, every)) == 2);
        flexfailafter(-1);
        CHECK((blockcount() == before && fake.replaced.empty()));
    }
}
