// Every entry of every menu, the menu of dictionaries, files and their boxes.
#include "tests/app/screen/script.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

// The rows of a script are lines.
// clang-format off

TEST_CASE("an entry is grey only for its cause, and ticked by what it tells of")
{
    const char *filemenu =
        "New Grid, New Words, Open..., !Save, Save Grid As..., Save Clues As..., "
        "Save As Default, Exit";
    play({
        {dictionaries, "one: one word"}, {entries, MENUATFILE, filemenu},
        {entries, MENUATWORDS, "Spell Check..., Load, Edit, Create..., Delete"},
        {entries, MENUATGRID, "Grid Type, Size..., Reflect, Upper Case, Lower Case, Customise..."},
        {entries, under(MENUATGRID, MENUATGRIDTYPE), "+Crossword, Wordsquare"},
        {entries, under(MENUATGRID, MENUATREFLECT), "Vertical -, Horizontal |, Diagonal /, Diagonal \\"},
        {entries, MENUATHELP, "Choices..., Help..., About Quillmere..."},
        {entries, under(MENUATWORDS, MENUATLOAD), "one"},
        {menu, COMMANDWORDSQUARE}, {entries, MENUATFILE, filemenu},
        {entries, MENUATWORDS, "!Spell Check..., Load, Edit, Create..., Delete"},
        {entries, under(MENUATGRID, MENUATGRIDTYPE), "Crossword, +Wordsquare"},
        {entries, under(MENUATGRID, MENUATREFLECT), "!Vertical -, !Horizontal |, !Diagonal /, !Diagonal \\"},
        {menu, COMMANDCROSSWORD}, {menu, COMMANDUPPERCASE},
        {entries, MENUATGRID, "Grid Type, Size..., Reflect, +Upper Case, Lower Case, Customise..."},
        {erase, "*"}, {entries, MENUATWORDS, "!Spell Check..., Load, Edit, !Create..., Delete"},
        {menu, COMMANDDELETEDICT, "one"}, {answer, IDOK}, {known, "one"},
    });
}

TEST_CASE("every entry that opens a window opens it, in both kinds of grid")
{
    const struct {
        int32_t id;
        const char *caption;
    } windows[] = {
        {COMMANDOPEN, "Open"},         {COMMANDSAVEAS, "Save As"},
        {COMMANDSAVECLUES, "Save As"}, {COMMANDNEWDICT, "Create New Dictionary"},
        {COMMANDSIZE, "Grid Size"},    {COMMANDCUSTOMISE, "Customisation"},
        {COMMANDCHOICES, "Choices"},   {COMMANDABOUT, "About Quillmere"},
    };
    play({{dictionaries, 1, "one: one"}});
    for (int32_t kind : {COMMANDCROSSWORD, COMMANDWORDSQUARE}) {
        play({{menu, kind}});
        for (const auto &[id, caption] : windows)
            play({
                {menu, id}, {infront, caption},
                {key, VK_ESCAPE}, {shown, caption, "no"}, {enabled, "yes"},
            });
    }
}

TEST_CASE("dictionaries are loaded, ticked and unloaded by the menu, and the grid names them")
{
    play({
        {dictionaries, "Alpha: a b; beta: b c; Gamma: c d"}, {another, ".../..."},
        {menu, COMMANDLOADDICT, "Gamma"}, {menu, COMMANDLOADDICT, "Alpha"}, {title, "Quillmere*"},
        {words, "Alpha", "a b"}, {words, "Gamma", "c d"}, {words, "beta", "not loaded"},
        {entries, under(MENUATWORDS, MENUATLOAD), "+Alpha, beta, +Gamma"},
        {entries, under(MENUATWORDS, MENUATEDIT), "Alpha, beta, Gamma"},
        {entries, under(MENUATWORDS, MENUATDELETE), "Alpha, beta, Gamma"}, {inuse, "Alpha Gamma"},
        {menu, COMMANDSAVEAS}, {choose, 0, "named"}, {menu, COMMANDLOADDICT, "Gamma"},
        {inuse, "Alpha"}, {words, "Gamma", "not loaded"},
        {menu, COMMANDLOADDICT, "beta"}, {inuse, "Alpha beta"},
        {drop, ONMAIN, "named.qmg"}, {inuse, "Alpha Gamma"}, {words, "Gamma", "c d"},
        {words, "beta", "not loaded"}, {title, "Quillmere - named.qmg"},
        // A name that is no longer known is passed over.
        {menu, COMMANDDELETEDICT, "Alpha"}, {file, "Alpha.dic", "none"}, {known, "beta Gamma"},
        {inuse, "Gamma"}, {entries, under(MENUATWORDS, MENUATLOAD), "beta, +Gamma"},
        {drop, ONMAIN, "named.qmg"}, {inuse, "Gamma"},
    });
}

TEST_CASE("a dictionary is edited, made and taken away by the menu")
{
    play({
        {dictionaries, "Alpha: a; beta: b"}, {another, "..."}, {menu, COMMANDEDITDICT, "beta"},
        {infront, "Edit (beta)"},
        {shut, "Edit (beta)"}, {shown, "Edit (beta)", "no"}, {value, "unsaved", "0"},
        {menu, COMMANDNEWDICT}, {infront, "Create New Dictionary"}, {enabled, "no"},
        {type, "newest"}, {key, VK_RETURN}, {shown, "Create New Dictionary", "no"},
        {enabled, "yes"}, {known, "Alpha beta newest"}, {inuse, ""}, {kept, "newest", ""},
        {words, "newest", ""},
        {front}, {entries, under(MENUATWORDS, MENUATDELETE), "Alpha, beta, newest"},
        // What can't be deleted is told of, and stays.
        {readonly, 1, "Alpha.dic"}, {menu, COMMANDDELETEDICT, "Alpha"}, {answer, IDOK},
        {readonly, 0, "Alpha.dic"}, {kept, "Alpha", "a"}, {known, "Alpha beta newest"},
        {menu, COMMANDDELETEDICT, "beta"}, {known, "Alpha newest"}, {box, "none"},
    });
}

TEST_CASE("names that can't be a dictionary's are told of, and make none")
{
    const std::string longest(31, 'n');
    const char *signs = "A dictionary's name can't hold any of \\ / : * ? \" < > |";
    const struct {
        std::string name;
        const char *said;
    } refused[] = {
        {"no\\such\\folder", signs}, {"no*name", signs},
        {"end.", "A dictionary's name can't end in a point or a space."},
        {"lpt1.x", "lpt1.x is a device of the system's, and no name for a dictionary."},
        {longest + "n", "A dictionary's name has at most 31 characters."},
    };
    play({
        {dictionaries, "mine: ant"},
        {menu, COMMANDNEWDICT}, {infront, "Create New Dictionary"},
        {type, "MINE"}, {key, VK_RETURN}, {box, "Dictionary already exists."},
        {answer, IDOK}, {known, "mine"}, {infront, "Quillmere"},
        {menu, COMMANDNEWDICT}, {infront, "Create New Dictionary"},
    });
    for (const auto &[name, said] : refused) // the box stays, for the name to be mended
        play({
            {fill, NEWDICTNAME, name}, {key, VK_RETURN}, {box, said}, {answer, IDOK},
            {infront, "Create New Dictionary"}, {text, NEWDICTNAME, name}, {known, "mine"},
        });
    play({
        {key, VK_BACK}, {key, VK_RETURN}, {shown, "Create New Dictionary", "no"},
        {known, "mine " + longest}, {kept, longest, ""}, {enabled, "yes"},
        {menu, COMMANDNEWDICT}, {infront, "Create New Dictionary"},
        {key, VK_RETURN}, {enabled, "yes"}, {box, "none"}, // the user knows
        {menu, COMMANDNEWDICT}, {infront, "Create New Dictionary"},
        {type, "never"}, {press, DIALOGCANCEL}, {enabled, "yes"},
        {menu, COMMANDNEWDICT}, {infront, "Create New Dictionary"},
        {type, "never"}, {key, ALT | VK_F4}, {enabled, "yes"}, {known, "mine " + longest},
    });
}

TEST_CASE("a grid is saved under a typed name, and opened again")
{
    play({
        {crossword, "ab#/..."}, {menu, COMMANDSAVEAS}, {choose, 0, "first"},
        {file, 14, "first.qmg", "Quillmere Grid"}, {value, "file", "first.qmg"},
        {value, "unsaved", "0"},
        {another, "x"}, {menu, COMMANDOPEN}, {choose}, {document, "x"},
        {menu, COMMANDOPEN}, {choose, 0, "first.qmg"}, {document, "ab#/..."},
        {title, "Quillmere - first.qmg"},
        // An extension in another case stays, and Save asks nothing.
        {menu, COMMANDSAVEAS}, {choose, 1, "second.QMG"}, {value, "file", "second.QMG"},
        {erase, "second.QMG"}, {click, "2,1"}, {type, "z"}, {menu, COMMANDSAVE}, {box, "none"},
        {title, "Quillmere - second.QMG"}, {quill, "grid draw @second.QMG", "ab#|..z"},
        {click, "1,1"}, {type, "y"}, {title, "Quillmere - second.QMG*"},
        {key, CTRL | 'S'}, {title, "Quillmere - second.QMG"},
        {quill, "grid draw @second.QMG", "ab#|.yz"},
        {menu, COMMANDNEWWORDS}, {document, "..#/..."}, {title, "Quillmere - second.QMG*"},
        {menu, COMMANDSAVE}, {menu, COMMANDNEWGRID}, {document, ".../..."}, {title, "Quillmere"},
    });
}

TEST_CASE("a type of picture makes a picture, and leaves the document its name")
{
    play({
        {crossword, "ab#/..."}, {click, "0,0"}, {drag, CTRL, "1,0 1,1"}, {menu, COMMANDSAVEAS},
        {choose, 2, "marked"}, {menu, COMMANDSAVEAS}, {choose, 3, "plain.qmg"},
        {menu, COMMANDSAVEAS}, {choose, 4, "placeable.wmf"}, {value, "file", ""},
        {menu, COMMANDSAVEAS}, {choose, 2, ""}, {menu, COMMANDSAVECLUES}, {choose, 0, "clues"},
    });
    // The next box begins with the document, its folder, and the kind saved last.
    play({
        {menu, COMMANDSAVEAS}, {offered, "Grid 1"}, {choose, 0, "own"}, {menu, COMMANDSAVEAS},
        {offered, "own.qmg 1"}, {choose, 2, ""}, {menu, COMMANDSAVEAS}, {offered, "own.qmg 1"},
        {retype, 2, "some\\folder\\x.qmg"}, {offered, "some\\folder\\x.qmg 2"},
        {choose, 0, "own.emf"}, {menu, COMMANDSAVEAS}, {offered, "own.emf 2"}, {choose, 1, "own"},
        {menu, COMMANDSAVEAS}, {offered, "own.qmg 1"}, {choose, 3, "own"},
        {menu, COMMANDSAVECLUES}, {offered, "Clues 1"}, {choose, 0, ""},
        {menu, COMMANDNEWGRID}, {menu, COMMANDSAVEAS}, {offered, "Grid 1"}, {choose, 0, ""},
    });
    // Cursor and mark are in no picture.
    play({{another, "ab#/..."}, {menu, COMMANDSAVEAS}, {choose, 3, "unmarked"}});
    CHECK(file(0, "plain.wmf") == file(0, "unmarked.wmf"));
    CHECK(file(4, "marked.emf") == std::string("\1\0\0\0", 4));
    CHECK(file(4, "plain.wmf") == std::string("\1\0\t\0", 4));
    CHECK(file(4, "placeable.wmf") == "\xD7\xCD\xC6\x9A");
    CHECK(file(0, "clues.txt").find("Clues across.") != std::string::npos);
}

TEST_CASE("a default grid keeps size, kind, looks and window for the next start")
{
    play({
        {crossword, "ab#/..."}, {menu, COMMANDWORDSQUARE}, {menu, COMMANDCUSTOMISE},
        {infront, "Customisation"},
        {pickcolour, CUSTOMTEXTPICKER, "255 0 0"}, {press, DIALOGOK},
        {shown, "Customisation", "no"},
        {resize, "620,410"}, {setting, cell(0, 0), "cursor"}, {type, "a"},
        {menu, COMMANDSAVEDEFAULT}, {title, "Quillmere*"}, // the document itself isn't saved
        {file, 14, "Default", "Quillmere Grid"},
        {resize, "400,300"}, {menu, COMMANDCROSSWORD}, {another, "."}, {nextstart},
        {value, "kind", "1"}, {value, "text", "ff0000"}, {value, "size", "3,2"},
        {value, "frame", "620,410"}, {layout, "right"}, {undrawn, "0"},
    });
}

TEST_CASE("a dropped grid brings its window size along; what is no grid is told of")
{
    play({
        {crossword, "ab#/..."}, {resize, "560,420"}, {menu, COMMANDSAVEAS}, {choose, 0, "sized"},
        {put, "bad.qmg zebra|"}, {resize, "400,300"}, {another, "...."},
        {drop, ONMAIN, "sized.qmg"}, {document, "ab#/..."}, {title, "Quillmere - sized.qmg"},
        {value, "frame", "560,420"}, {layout, "right"},
        {resize, "max"}, {another, "...."},
        {drop, ONMAIN, "sized.qmg"}, {value, "frame", "560,420"}, {layout, "right"},
        {another, "...."}, {drop, ONLIST, "sized.qmg"}, {document, "ab#/..."},
        {another, "...."}, {drop, ONGRID, "sized.qmg"}, {document, "ab#/..."}, {cursor, "-1,-1"},
        {undrawn, "0"},
        {another, "...."}, {drop, ONMAIN, "bad.qmg"}, {box, "Corruption in file."},
        {answer, IDOK}, {document, "...."},
        {drop, ONMAIN, "missing.qmg"}, {document, "...."},
        {put, "words.txt apple|pear|"}, {drop, ONGRID, "words.txt"}, {count, "0"},
        // The kind is that of the grid file read last, and so is what is listed.
        {menu, COMMANDWORDSQUARE}, {drop, ONGRID, "words.txt"}, {count, "0"}, {value, "kind", "0"},
        {title, "Quillmere - words.txt"}, {menu, COMMANDWORDSQUARE}, {menu, COMMANDSAVEAS},
        {choose, 0, "square"}, {drop, ONMAIN, "square.qmg"}, {drop, ONGRID, "words.txt"},
        {listed, "apple, pear"}, {title, "Quillmere - words.txt"},
    });
}
