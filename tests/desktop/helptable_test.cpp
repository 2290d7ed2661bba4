#include "desktop/helptable.h"

#include "base/errors.h"
#include "base/flex.h"
#include "base/random.h"
#include "desktop/help.h"
#include "desktop/templatechain.h"
#include "tests/desktop/fake/fakesource.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <fstream>
#include <string>
#include <vector>

namespace
{

templaterow rows[] = {
    {1, 0, nullptr, "Confirm"}, {3, 0, nullptr, "Info"},  {70, 0, nullptr, "edit"},
    {12, 0, nullptr, "custom"}, {0, 0, nullptr, nullptr},
};

struct templates {
    templatelink link;
    templates()
    {
        templatelinked(rows, &link);
    }
    ~templates()
    {
        templateunlinked(&link);
    }
};

errorblock *add(const std::string &lines)
{
    return helptableadd(lines.data(), static_cast<int32_t>(lines.size()));
}

std::string text(int32_t number, int32_t icon)
{
    const char *found = helptabletext(number, icon);
    return found ? found : "none";
}

} // namespace

TEST_CASE("lines give icons of a template their text")
{
    templates known;
    CHECK(add("/ Confirm,5:A comment\r\n"
              "Confirm,0,11:Answers: yes, or no.\r\n"
              "\r\n"
              "INFO,255:The program\n"
              "nobody,1:Unknown\n"
              "Confirm 4:No comma\n"
              "Confirm,7 no colon\n"
              "Confirm,12:\n"
              "Confirm,254:Any other\n"
              "Confirm,13:Too late\n"
              "edit,0x11:The last, without an end of line") == nullptr);
    CHECK(text(1, 0) == "Answers: yes, or no.");
    CHECK(text(1, 11) == "Answers: yes, or no.");
    CHECK(text(1, 12) == "");
    for (int32_t icon : {5, 4, 7, 13, 999, -1})
        CHECK(text(1, icon) == "Any other");
    CHECK(text(3, -1) == "The program");
    CHECK(text(3, 0) == "none");
    CHECK(text(70, 17) == "The last, without an end of line");
    CHECK(text(12, 1) == "none");
    CHECK(text(0, 1) == "none");
    CHECK(text(71, 17) == "none");
}

TEST_CASE("the first entry that fits counts, in whatever order templates come")
{
    templates known;
    struct line {
        size_t row;
        int32_t icon;
        std::string text;
    };
    std::vector<line> all;
    for (int n = 0; n < 200; n++) {
        line l = {static_cast<size_t>(randomdraw() % 4), randomdraw() % 30, std::to_string(n)};
        all.push_back(l);
        CHECK_FALSE(add(std::string(rows[l.row].name) + "," + std::to_string(l.icon) + ":" +
                        l.text + "\n"));
    }
    for (size_t row = 0; row < 4; row++)
        for (int32_t icon = 0; icon < 31; icon++) {
            std::string wanted = "none";
            for (const line &l : all)
                if (wanted == "none" && l.row == row && l.icon == icon) wanted = l.text;
            CHECK(text(rows[row].number, icon) == wanted);
        }
}

TEST_CASE("a table that memory runs out for holds the lines before")
{
    templates known;
    bool shortmemory = true;
    for (int n = 0; shortmemory; n++) {
        helptablereset();
        CHECK_FALSE(add("edit,1:One\n"));
        flexfailafter(n);
        errorblock *err = add("Confirm,2,3:Two\ncustom,4:Three\n");
        flexfailafter(-1);
        shortmemory = err;
        CHECK(fakecode(err) == (err ? ERRORMEMORY : 0u));
        CHECK(text(70, 1) == "One");
        CHECK(text(70, 4) == "none");
        for (int32_t icon : {2, 3})
            CHECK((text(1, icon) == "Two" || (err && text(1, icon) == "none")));
        CHECK(text(12, 4) == (err ? "none" : "Three"));
    }
}

TEST_CASE("a table is read from a file, or from a resource that may be missing")
{
    templates known;
    std::string folder = scratchfolder();
    std::ofstream(folder + "/Help.txt") << "Info,1:From a file\n";
    CHECK_FALSE(addhelptable(folder.c_str(), "Help.txt"));
    CHECK(text(3, 1) == "From a file");
    CHECK_FALSE(addhelptable(nullptr, "Help"));
    CHECK(fakecode(addhelptable(folder.c_str(), "Missing.txt")) == ERRORNOTFOUND);
}
