#!/usr/bin/env python3
"""The word lists and samples that are shipped, as a user meets them.

usage: shipped_test.py SAMPLES DATA QUILL SESSION.md
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

SAMPLES, DATA, SESSION = (pathlib.Path(sys.argv[at]).resolve() for at in (1, 2, 4))
QUILL = pathlib.Path(sys.argv[3]).resolve()


def words(name):
    return (DATA / f"{name}.txt").read_text(encoding="ascii").splitlines()


def quill(*args):
    run = subprocess.run([QUILL, *map(str, args)], capture_output=True, text=True, timeout=300)
    if run.returncode:
        raise AssertionError(run.stderr)
    return run.stdout.splitlines()


class ListTest(unittest.TestCase):
    SIZES = {"MainDict-UK": 280000, "MainDict-US": 274000, "MainDict": 283000,
             "Puzzle-UK": 79000, "Puzzle-US": 77000}

    def test_every_word_can_stand_in_a_grid_and_is_in_the_dictionary(self):
        for name, size in self.SIZES.items():
            held = words(name)
            self.assertAlmostEqual(len(held), size, delta=size // 100)
            for word in held:
                self.assertRegex(word, r"\A[A-Za-z][a-z]{1,30}\Z")
            small = [word.lower() for word in held]
            self.assertTrue(all(a < b for a, b in zip(small, small[1:])), name)
            self.assertEqual(quill("dict", "words", DATA / f"{name}.dic"), held)

    def test_each_list_has_its_spellings_and_a_family_can_read_the_puzzles(self):
        for name, held, absent in (
                ("Puzzle-UK", "colour realise realize cafe ok", "color Paris cd"),
                ("Puzzle-US", "color realize cafe ok", "colour Paris cd"),
                ("MainDict-UK", "colour Paris Texas Jew polish china", "color paris Polish Ibm Cd"),
                ("MainDict-US", "color Paris", "Ibm"), ("MainDict", "color colour Paris", "Ibm")):
            have = set(words(name))
            self.assertEqual(set(held.split()) - have, set(), name)
            self.assertEqual(set(absent.split()) & have, set(), name)
            foul = re.compile("fuck|nigg[ae]r?s?$|cunt|bullshit|^shit|wank|^whore|faggot|^bitch")
            if name.startswith("Puzzle"):
                self.assertEqual([w for w in have if foul.search(w) and "swank" not in w], [])


class SampleTest(unittest.TestCase):
    NAMES = "crossword13", "barred12", "misspelt15"

    def test_grids_are_symmetric_and_their_words_known_but_the_misspelt_two(self):
        family = set(words("Puzzle-UK"))
        known = family | {word.lower() for word in words("MainDict")}
        for name in self.NAMES:
            grid = DATA / f"{name}.qmg"
            self.assertIn("symmetry\thalf turn", quill("stats", grid), name)
            filled = [word.lower() for word in quill("grid", "words", grid) if " " not in word]
            self.assertGreater(len(filled), 15, name)
            wrong = ["grammer", "resistence"] if name == "misspelt15" else []
            self.assertEqual(sorted(set(filled) - family), wrong)
            self.assertEqual(sorted(set(filled) - known), wrong)

    def test_solutions_are_as_many_as_the_readme_says(self):
        rows, name = [], None
        for line in (SAMPLES / "README.md").read_text(encoding="utf-8").splitlines():
            heading = re.match(r"## `(\w+)\.txt`", line)
            row = re.match(r"\|.*\| `(--mark .*)` \| (\d+) \|", line)
            name = heading[1] if heading else name
            if row:
                rows.append((name, row[1].split(), int(row[2])))
        self.assertGreaterEqual(len(rows), 6)
        for name, marks, count in rows:
            solutions = quill("solve", DATA / f"{name}.qmg", "--dictionaries", DATA,
                              "--dict", "Puzzle-UK", *marks)
            self.assertEqual(len(set(solutions)), count, f"{name} {marks}")

    def test_square_lists_are_short_lists_of_known_words(self):
        known = set(words("Puzzle-UK"))
        lists = sorted((SAMPLES / "words").glob("*.txt"))
        self.assertGreaterEqual(len(lists), 4)
        for path in lists:
            held = path.read_text(encoding="ascii").splitlines()
            self.assertIn(len(held), range(10, 41), path.name)
            self.assertEqual(set(held) - known, set(), path.name)


class SessionTest(unittest.TestCase):
    def test_the_manuals_session_goes_as_it_says(self):
        blocks = re.findall("(?:^    .*\n)+", SESSION.read_text(encoding="utf-8"), re.M)
        blocks = ["\n".join(line[4:] for line in block.splitlines()) + "\n" for block in blocks]
        files = [block for block in blocks if not block.startswith(("> ", "set "))]
        with tempfile.TemporaryDirectory() as folder:
            for leaf, text in zip(("sunday.txt", "traded.txt"), files, strict=True):
                (pathlib.Path(folder) / leaf).write_text(text)
            told = [part for block in blocks if block.startswith("> ") for part in block[2:].split("\n> ")]
            self.assertGreater(len(told), 8)
            for part in told:
                command, _, printed = part.partition("\n")
                run = subprocess.run([QUILL, *command.split()[1:], *(["--dictionaries", DATA] * ("--dict " in command))],
                                     stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, cwd=folder, timeout=300)
                self.assertEqual((run.returncode, run.stdout.expandtabs().split()), (0, printed.split()), command)


unittest.main(argv=sys.argv[:1])
