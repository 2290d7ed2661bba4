#include "desktop/events.h"
#include "tests/desktop/script.h"

#include <doctest/doctest.h>

TEST_CASE("messages and broadcasts")
{
    scriptcheck(
        "",
        {
            {"a message stops at the first error, which the sender has",
             "+message 3 1; +message 4 2; +message 3 9; +message 3 5; on message 3 9: fail; "
             "send 3 11 12; -message 3 9; send 3; send 8",
             "message 3 1 11 12, message 3 9 11 12, error 99, message 3 1 0 0, message 3 5 0 0"},
            {"a broadcast tells everyone, claimed or not, and errors are shown",
             "+other 9; +nobody 9; +broadcast 9; +broadcast 8; on other: claim & fail; "
             "broadcasts 9; broadcasts 9; -other 9; broadcasts 9; broadcasts 7",
             "other, broadcast, unclaimed 0, other, broadcast, unclaimed 1, broadcast, unclaimed "
             "1, "
             "unclaimed 1, It failed"},
            {"memory that is short is told, and what is there needs none",
             "+message 3 1; short; +message 3 2; +message 3 1; send 3", "error 2, message 3 1 0 0"},
        });
}

TEST_CASE("subclassed controls")
{
    scriptcheck(
        "",
        {
            {"the procedure is replaced once, and put back with the last",
             "subclassed 1002 5; +subclass 10 2 4; +subclass 10 2 5; replaced; subclassed 1002 7; "
             "-subclass 10 2 4; replaced; -subclass 10 2 5; replaced; -subclass 10 2 5; replaced",
             "to 0, replaced 1, subclass 7 4, subclass 7 5, to 10020, replaced 1, replaced 0, "
             "replaced 0, missed"},
            {"one stops it, with its result; errors are of no account",
             "+subclass 10 2 4; +subclass 10 2 5; on subclass 7 4: claim & fail; subclassed 1002 7",
             "subclass 7 4, stopped 1"},
            {"without memory the control is as it was", "short; +subclass 10 2 4; replaced",
             "error 2, replaced 0"},
            {"keys go to the window around it, and other messages don't",
             "ours 10; parent 1002 10; used 65; forward 256 65; forward 256 66; forward 260 65; "
             "forward 258 65; forward 512 65; parent 1002 0; forward 256 65",
             "keys 256 in 10, stop 1, keys 256 in 10, stop 0, keys 260 in 10, stop 1, "
             "keys 258 in 10, stop 1, stop 0, stop 0"},
        });
}

TEST_CASE("files that come from outside")
{
    scriptcheck(
        "", {
                {"the handlers of the type, the second when the first is done",
                 "open a.qmg 1; +load 259; +loaded 259; +load 4093; open a.qmg 1; open b.odd 1; "
                 "on load x.qmg: fail; open x.qmg 1",
                 "nobody, load a.qmg 259 0 1, loaded 0, load b.odd 4093 0 1, load x.qmg 259 0 1, "
                 "error 99"},
                {"before the poll runs it waits for that, and errors are shown",
                 "+load 259; +loaded 259; open x.qmg; open b.qmg; on load x.qmg: fail; send 65543; "
                 "send 65543; blocks",
                 "load x.qmg 259 0 0, load b.qmg 259 0 0, loaded 0, blocks 2, It failed"},
                {"and for memory", "short; open a.qmg; short 1; open a.qmg; +load 259; send 65543",
                 "error 2, error 2"},
            });
}

TEST_CASE("a dropped file goes to the first handlers of its window")
{
    scriptcheck(
        "+drop 10 1; +drop 10 2; +drop 11 9; +dropload 10 1; +dropload 10 2; "
        "+dropdone 10 1; +dropdone 10 2; ",
        {
            {"a file", "on drop: claim; dropped a.qmg 10",
             "drop a.qmg 259 55 1, dropload a.qmg 259 1 0, dropdone 1"},
            {"a folder", "on drop: claim; dropped a.odd 10 1",
             "drop a.odd 8189 55 1, dropload a.odd 8189 1 0, dropdone 1"},
            {"refused", "dropped a 10", "drop a 4093 55 1"},
            {"failed",
             "on drop: claim & fail; dropped a 10; on drop: claim; on dropload: fail; "
             "dropped a 10",
             "drop a 4093 55 1, drop a 4093 55 1, dropload a 4093 1 0, It failed, It failed"},
            {"a window that goes", "on drop: claim & -dropload 10 1 & -dropload 10 2; dropped a 10",
             "drop a 4093 55 1"},
            {"nobody to ask", "dropped a 12", ""},
        });
}

// How they are read: the fuzz target, which has a second telling of it.
TEST_CASE("a shell's commands are done in turn, up to one that doesn't fit")
{
    scriptcheck("+load 4093; +print " + std::to_string(BROADCASTPRINT) + "; ",
                {
                    {"", "shell [open(\"a b.txt\")]; send 65543", "load a b.txt 4093 0 0"},
                    {"", "shell [PrintTo\t(\"a\"\t, \"LPT1: on \xDC\" ) ]",
                     "print a to LPT1: on \xDC 4093"},
                    {"", "shell [print(\"1\")] what [print(\"2\")]", "print 1 4093"},
                    {"an unknown one", "shell [FileOpen(\"1\")][print(\"2\")]", "print 2 4093"},
                    {"no commands",
                     "shell [; shell open; shell [open(\"1\"); shell [print(1)]; shell "
                     "[print(\"1\",\"2\")]; shell [printto(\"1\")]; send 65543",
                     ""},
                });
}
