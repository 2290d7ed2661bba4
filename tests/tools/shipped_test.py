#!/usr/bin/env python3
"""The word lists and samples that are shipped, as a user meets them.

usage: shipped_test.py SAMPLES DATA QUILL
"""
import pathlib
import re
import subprocess
import sys
import unittest

SAMPLES, DATA, QUILL = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]


def words(name):
    return (DATA / f"{name}.txt").read_text(encoding="ascii").splitlines()


def quill(*args):
    run = subprocess.run([QUILL, *map(str, args)], capture_output=True, text=True, timeout=300)
    if run.returncode:
        raise AssertionError(run.stderr)
    return run.stdout.splitlines()


class Picture:
    """A sample's picture, read without the program's help."""

    def __init__(self, name):
        rows, _, bars = (SAMPLES / f"{name}.txt").read_text(encoding="ascii").partition("\n\n")
        self.rows = rows.splitlines()
        self.width, self.height = len(self.rows[0]), len(self.rows)
        self.bars = {"left": set(), "top": set()}
        for line in bars.splitlines():
            edge, *cells = line.split()
            self.bars[edge] |= {tuple(map(int, cell.split(","))) for cell in cells}

    def walls(self):
        """Blocks and bars, each bar by the two cells that it parts."""
        blocks = {(x, y) for y, row in enumerate(self.rows) for x, ch in enumerate(row) if ch == "#"}
        left = {frozenset({(x - 1, y), (x, y)}) for x, y in self.bars["left"]}
        top = {frozenset({(x, y - 1), (x, y)}) for x, y in self.bars["top"]}
        return blocks, left | top

    def lights(self):
        across = ["".join(("|" if (x, y) in self.bars["left"] else "") + ch
                          for x, ch in enumerate(row)) for y, row in enumerate(self.rows)]
        down = ["".join(("|" if (x, y) in self.bars["top"] else "") + self.rows[y][x]
                        for y in range(self.height)) for x in range(self.width)]
        return [light for line in across + down for light in re.split(r"[#|]", line) if len(light) > 1]


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

    def test_half_a_turn_changes_no_wall(self):
        for name in self.NAMES:
            picture = Picture(name)
            blocks, bars = picture.walls()
            turn = lambda cell: (picture.width - 1 - cell[0], picture.height - 1 - cell[1])
            self.assertEqual({turn(cell) for cell in blocks}, blocks, name)
            self.assertEqual({frozenset(map(turn, bar)) for bar in bars}, bars, name)

    def test_words_are_words_but_the_misspelt_two(self):
        family = set(words("Puzzle-UK"))
        known = family | {word.lower() for word in words("MainDict")}
        for name in self.NAMES:
            filled = [light.lower() for light in Picture(name).lights() if "." not in light]
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


unittest.main(argv=sys.argv[:1])
