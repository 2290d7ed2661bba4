// The dialogs of settings, and the ways into help.
#include "desktop/helpsystem.h"
#include "tests/app/screen/inside.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

namespace
{

std::string helped; // what the system was asked for, in order

std::string asked(int32_t, const std::string &)
{
    return ask([] { return helped; });
}

void forget(int32_t, const std::string &)
{
    inprogram([] { helped.clear(); });
}

std::string manual()
{
    std::string own = place("Default"); // PROGRAM\Default\login.qmg
    return "topic " + own.substr(0, own.rfind("Default")) + "Quillmere.chm>;";
}

} // namespace

errorblock *helpsystemtopic(window, const char *path)
{
    helped += std::string("topic ") + path + ";";
    return nullptr;
}

errorblock *helpsystempopup(window, const char *, int32_t, int32_t, const char *)
{
    helped += "popup;";
    return nullptr;
}

errorblock *helpsystemopen(window, const char *address)
{
    helped += std::string("open ") + address + ";";
    return nullptr;
}

// The rows of a script are lines.
// clang-format off

TEST_CASE("F1 and the menu open the manual, and with Ctrl nothing; dialogs have no help")
{
    play({
        {crossword, ".../..."}, {forget}, {menu, COMMANDHELP}, {asked, manual()},
        {forget}, {front}, {key, VK_F1}, {asked, manual()},
        {forget}, {click, "0,0"}, {key, CTRL | VK_F1}, {asked, ""},
        {key, VK_F1}, {asked, manual()},
        {forget}, {press, BARLETTERS}, {key, VK_F1}, {asked, manual()},
        {forget}, {key, SHIFT | VK_TAB}, {focus, BARANAGRAM, "yes"}, {key, VK_F1}, {asked, manual()},
        {forget}, {menu, COMMANDSIZE}, {infront, "Grid Size"},
        {key, VK_F1}, {press, DIALOGCANCEL, "right"}, {key, SHIFT | VK_F1}, {press, DIALOGCANCEL},
        {asked, ""}, {shown, "Grid Size", "yes"}, // the press was the question
        {press, DIALOGCANCEL}, {shown, "Grid Size", "no"}, {asked, ""},
    });
}

TEST_CASE("About tells of the program, and its links open")
{
    play({
        {forget}, {menu, COMMANDABOUT}, {infront, "About Quillmere"}, {text, INFONAME, "Quillmere"},
        {text, INFOVERSION, "2.20 (26-June-2012)"}, {text, INFOAUTHOR, "The Quillmere authors"},
        {text, INFORIGHTS, "(c) 2026 The Quillmere authors"},
        {press, INFOHOME}, {press, INFOWEB}, {press, INFOMAIL},
        {asked, "open https://quillmere.example.org/;open https://www.example.org/;open mailto:hello@quillmere.example.org;"},
        {command, COMMANDABOUT}, {infront, "About Quillmere"}, // it is there already
        {press, DIALOGOK}, {shown, "About Quillmere", "no"},
        {menu, COMMANDABOUT}, {infront, "About Quillmere"},
        {key, VK_ESCAPE}, {shown, "About Quillmere", "no"},
    });
}

TEST_CASE("Choices: a limit out of range is brought into it; only Save writes the file")
{
    auto limit = [](const std::string &typed, step left, const char *taken) {
        play({
            {setting, 1000, "limit"}, {menu, COMMANDCHOICES}, {infront, "Choices"}, {enabled, "no"},
            {text, CHOICESMAX, "1000"},
            {fill, CHOICESMAX, typed}, left, {shown, "Choices", "no"}, {enabled, "yes"},
            {infront, "Quillmere"}, {value, "limit", taken}, {file, "Choices", "none"},
        });
    };
    limit("5", {press, DIALOGOK}, "20");
    limit("99999999999999", {key, VK_RETURN}, "1000000");
    limit("", {press, DIALOGOK}, "1000");
    limit("77", {press, DIALOGCANCEL}, "1000");
    limit("77", {key, VK_ESCAPE}, "1000");
    limit("77", {key, ALT | VK_F4}, "1000");
    play({
        {menu, COMMANDCHOICES}, {infront, "Choices"}, {fill, CHOICESMAX, "321"},
        {press, CHOICESSAVE}, {infront, "Quillmere"}, {value, "limit", "321"},
        {setting, 1000, "limit"}, {nextstart}, {value, "limit", "321"},
        {setting, 1000, "limit"}, {menu, COMMANDCHOICES}, {press, CHOICESMAXARROWS, "high"},
        {text, CHOICESMAX, "1001"},
        {fill, CHOICESMAX, "21"}, {press, CHOICESMAXARROWS, "low"},
        {press, CHOICESMAXARROWS, "low"}, {press, CHOICESMAXARROWS, "low"},
        {text, CHOICESMAX, "20"},
        {press, DIALOGCANCEL},
        // Tab goes to the buttons of colours and fonts too, Space and Return press them.
        {menu, COMMANDCHOICES}, {focus, CHOICESMAX, "yes"}, {key, SHIFT | VK_TAB},
        {focus, CHOICESSOLPICKER, "yes"}, {key, VK_SPACE}, {boxthere, "yes"}, {answer, IDCANCEL},
        {focus, CHOICESSOLPICKER, "yes"}, {key, SHIFT | VK_TAB}, {key, SHIFT | VK_TAB},
        {focus, CHOICESSELECTEDPICKER, "yes"}, {key, VK_RETURN}, {boxthere, "yes"},
        {answer, IDCANCEL}, {focus, CHOICESSELECTEDPICKER, "yes"}, {key, VK_ESCAPE},
        {shown, "Choices", "no"},
    });
}

TEST_CASE("Choices: all that is set is seen at once, and after Save it is in the file")
{
    play({
        {dictionaries, "mine: ant bee cow"}, {another, "...../...../....."},
        {setting, cell(1, 1), "cursor"}, {menu, COMMANDCHOICES}, {infront, "Choices"},
        {sample, CHOICESCURSORSAMPLE, "00bbff"},
        {pickcolour, CHOICESCURSORPICKER, "200 100 50"}, {sample, CHOICESCURSORSAMPLE, "c86432"},
        {sample, CHOICESSELECTEDSAMPLE, "eeeebb"},
        {press, DIALOGCANCEL}, {infront, "Quillmere"}, {value, "cursor", "00bbff"},
        {colour, cell(1, 1), "00bbff"},
        {menu, COMMANDEDITDICT, "mine"}, {aside, "Edit (mine)"}, {value, "tall words", "no"},
        {menu, COMMANDCHOICES}, {infront, "Choices"},
        {pickcolour, CHOICESCURSORSAMPLE, "200 100 50"},
        {pickcolour, CHOICESSELECTEDPICKER, "10 220 30"}, {pickfont, CHOICESDICTPICKER, "20"},
        {pickfont, CHOICESSOLSAMPLE, "20"}, {fill, CHOICESMAX, "321"}, {press, CHOICESSAVE},
        {enabled, "yes"}, {colour, cell(1, 1), "c86432"}, {value, "tall words", "yes"},
        {value, "dict font", "20"}, {value, "list font", "20"},
        {front}, {drag, "2,2 3,2"}, {colour, cell(3, 2), "0adc1e"},
        {fresh}, {value, "dict font", "8"},
        {nextstart}, {value, "cursor", "c86432"}, {value, "selected", "0adc1e"},
        {value, "dict font", "20"}, {value, "list font", "20"}, {value, "limit", "321"},
        {menu, COMMANDWORDSQUARE}, {fill, BARWORD, "heron"}, {key, VK_RETURN}, {listed, "heron"},
        {undrawn, "0"}, {value, "tall list", "yes"},
    });
}

TEST_CASE("Customisation: all that is set is seen at once, and goes with the grid's file")
{
    play({
        {crossword, "ab#/.c."}, {setting, cell(0, 1), "cursor"}, {menu, COMMANDCUSTOMISE},
        {infront, "Customisation"}, {text, CUSTOMSCALE, "180"},
        {fill, CUSTOMSCALE, "92"}, {press, CUSTOMSCALEARROWS, "low"},
        {press, CUSTOMSCALEARROWS, "low"}, {press, CUSTOMSCALEARROWS, "low"},
        {text, CUSTOMSCALE, "90"},
        {press, DIALOGCANCEL}, {infront, "Quillmere"}, {value, "scale", "180"},
        {value, "cell", "36"}, {value, "unsaved", "0"},
        // which takes the least
        {menu, COMMANDCUSTOMISE}, {fill, CUSTOMSCALE, "90"}, {press, DIALOGOK},
        {value, "scale", "150"}, {value, "cell", "30"}, {title, "Quillmere*"},
        {menu, COMMANDCUSTOMISE}, {infront, "Customisation"},
        {inks, CUSTOMFONTSAMPLE, "ffffff", "many"},
        {pickcolour, CUSTOMBACKPICKER, "255 255 128"}, {inks, CUSTOMFONTSAMPLE, "ffffff", "none"},
        {inks, CUSTOMFONTSAMPLE, "ffff80", "many"}, {inks, CUSTOMCLUESAMPLE, "ffff80", "many"},
        {pickcolour, CUSTOMTEXTSAMPLE, "255 0 0"}, {sample, CUSTOMTEXTSAMPLE, "ff0000"},
        {inks, CUSTOMFONTSAMPLE, "ff0000", "some"},
        {pickcolour, CUSTOMFILLPICKER, "0 128 0"}, {pickcolour, CUSTOMGRIDSAMPLE, "0 0 255"},
        {fill, CUSTOMSCALE, "300"}, {press, DIALOGOK}, {infront, "Quillmere*"},
        {value, "cell", "60"}, {colour, cell(2, 0), "008000"}, {colour, cell(2, 1), "ffff80"},
        {inks, "0000ff", "many"}, {inks, "ff0000", "some"},
        // Squares go by the text's font. Numbers are for pictures.
        {menu, COMMANDCUSTOMISE}, {pickfont, CUSTOMFONTSAMPLE, "20"},
        {pickfont, CUSTOMCLUEPICKER, "20"}, {press, DIALOGOK}, {value, "grid font", "20"},
        {value, "clue font", "20"}, {value, "roomy", "yes"},
        {menu, COMMANDSAVEAS}, {choose, 0, "looks"}, {menu, COMMANDNEWGRID}, {fresh},
        {value, "text", "000000"},
        {menu, COMMANDOPEN}, {choose, 0, "looks.qmg"}, {value, "text", "ff0000"},
        {value, "lines", "0000ff"}, {value, "blocks", "008000"}, {value, "behind", "ffff80"},
        {value, "grid font", "20"}, {value, "clue font", "20"}, {value, "scale", "300"},
        {colour, cell(2, 0), "008000"}, {undrawn, "0"},
    });
}

TEST_CASE("Customisation of a Wordsquare: what is made, and how")
{
    const struct {
        int32_t control;
        const char *on;
    } boxes[] = {{CUSTOMLEFT, "yes"},   {CUSTOMUPLEFT, "yes"},  {CUSTOMDOWNLEFT, "yes"},
                 {CUSTOMDOWN, "yes"},   {CUSTOMUP, "no"},       {CUSTOMRIGHT, "no"},
                 {CUSTOMUPRIGHT, "no"}, {CUSTOMDOWNRIGHT, "no"}};
    play({
        {square, 5}, {setting, 15, "directions"}, {menu, COMMANDCUSTOMISE},
        {infront, "Customisation"},
    });
    for (const auto &one : boxes)
        play({{ticked, one.control, one.on}});
    play({
        {press, CUSTOMLEFT}, {press, CUSTOMUPRIGHT}, {press, CUSTOMSOLUTIONS},
        {fill, CUSTOMLENGTH, "13"}, {press, DIALOGOK}, {shown, "Customisation", "no"},
        {value, "directions", "142"}, {value, "show", "0"}, {value, "minimum", "12"},
        {title, "Quillmere*"},
        {menu, COMMANDCUSTOMISE}, {press, CUSTOMLENGTHARROWS, "low"},
        {pickcolour, CUSTOMGRIDPICKER, "0 0 255"}, {press, DIALOGOK}, {value, "minimum", "11"},
        {menu, COMMANDSAVEAS}, {choose, 0, "square looks"}, {fresh}, {value, "minimum", "5"},
        {menu, COMMANDOPEN}, {choose, 0, "square looks.qmg"}, {value, "minimum", "11"},
        {value, "show", "0"}, {value, "lines", "0000ff"}, {value, "kind", "1"},
    });
}
