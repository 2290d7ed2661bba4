#!/usr/bin/env python3
"""Pictures of grids, as a reader sees them that shares no code with their writer:
it lists the records.

usage: gridpictures_test.py QUILL GRIDPICTURES...   (a native quill; the emulator
                                                     and the exe "gridpictures")
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True  # beside the sources
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import metarecords

QUILL = pathlib.Path(sys.argv[1]).resolve()
PROGRAM = [str(pathlib.Path(word).resolve()) for word in sys.argv[2:]]
KINDS = ("plain.wmf", "placeable.wmf", "enhanced.emf")
BLACK, WHITE = "#000000", "#ffffff"

BLOCKS = "CAT#.\n.###.\na.DOG\n"
BARS = "ABCD\nEFGH\nIJKL\n\nleft 1,0 3,2\ntop 0,1 2,2\n"
SQUARE = "catx\nxxox\nxxxg\ndogs\n"


class Grid:
    """What a picture's text says, told again."""

    def __init__(self, text):
        rows, _, bars = text.partition("\n\n")
        self.rows = rows.split("\n") if bars else text.rstrip("\n").split("\n")
        self.width, self.height = len(self.rows[0]), len(self.rows)
        self.bars = {"left": set(), "top": set()}
        for line in bars.splitlines():
            edge, *cells = line.split()
            self.bars[edge] |= {tuple(map(int, cell.split(","))) for cell in cells}

    def block(self, x, y):
        return self.rows[y][x] == "#"


class Made:
    """The pictures of one grid."""

    def __init__(self, folder, text, *words, wordsquare=False, scale=None):
        self.folder, self.grid = pathlib.Path(folder), Grid(text)
        (self.folder / "grid.txt").write_text(text)
        build = [QUILL, "grid", "build", "grid.qmg", "grid.txt"]
        subprocess.run(build + ["--wordsquare"] * wordsquare, cwd=folder, check=True)
        if scale is not None:  # the file's last word
            file = self.folder / "grid.qmg"
            file.write_bytes(file.read_bytes()[:-4] + scale.to_bytes(4, "little"))
        # The first program starts a desktop, which lives as long as any other one and
        # holds what it inherited: a pipe would not end with the program.
        said = self.folder / "said.txt"
        with said.open("w") as out:
            subprocess.run(PROGRAM + ["grid.qmg", "."] + list(map(str, words)), cwd=folder,
                           stdout=out, stderr=subprocess.STDOUT, timeout=120)
        told = said.read_text(errors="replace")
        if "Pictures written" not in told:
            raise AssertionError(told)
        self.square = int(re.search(r"square (\d+)", told)[1])
        self.files = {leaf: metarecords.read((self.folder / leaf).read_bytes()) for leaf in KINDS}

    def drawn(self, leaf, *kinds):
        return [shape for shape in self.files[leaf].drawing if shape[0] in kinds]


class PictureTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def shapes(self, made, *kinds):
        """Those shapes, which all kinds of file draw alike."""
        drawings = [made.drawn(leaf, *kinds) for leaf in KINDS]
        self.assertEqual(drawings[0], drawings[1])
        self.assertEqual(drawings[0], drawings[2])
        return drawings[0]

    def checkgrid(self, made):
        grid, square = made.grid, made.square
        width, height = grid.width * square, grid.height * square
        boxes = self.shapes(made, "box")
        self.assertEqual(boxes[0], ("box", 0, 0, width, height, WHITE, WHITE))
        lines = set(self.shapes(made, "line"))
        for x in range(grid.width + 1):
            self.assertIn(("line", x * square, 0, x * square, height, BLACK), lines)
        for y in range(grid.height + 1):
            self.assertIn(("line", 0, y * square, width, y * square, BLACK), lines)
        return boxes[1:], len(lines) - grid.width - grid.height - 2

    def checkcrossword(self, made, cells):
        grid, s = made.grid, made.square
        boxes, others = self.checkgrid(made)
        self.assertEqual(others, 0)
        wanted = [(x * s - 1, y * s, x * s + 1, y * s + s) for x, y in grid.bars["left"]]
        wanted += [(x * s, y * s - 1, x * s + s, y * s + 1) for x, y in grid.bars["top"]]
        wanted += [(x * s, y * s, x * s + s + 1, y * s + s + 1)
                   for x in range(grid.width) for y in range(grid.height) if grid.block(x, y)]
        self.assertEqual(sorted(boxes), sorted(("box", *box, None, BLACK) for box in wanted))
        texts = self.shapes(made, "text")
        numbers = [shape[1:4] for shape in texts if shape[3].isdigit()]
        base = numbers[0][1] % s if numbers else 0  # in its square
        self.assertEqual(sorted(numbers), sorted((x * s + 3, y * s + base, str(n + 1))
                                                 for n, (x, y) in enumerate(cells)))
        self.checkletters(made, [shape for shape in texts if not shape[3].isdigit()])

    def checkletters(self, made, letters):
        """Each at the middle of its square, and all on one height in theirs."""
        grid, s = made.grid, made.square
        wanted = sorted((x * s + s // 2, y, row[x]) for y, row in enumerate(grid.rows)
                        for x in range(grid.width) if row[x] not in "#.")
        self.assertEqual(sorted((shape[1], shape[2] // s, shape[3]) for shape in letters), wanted)
        heights = {shape[2] % s for shape in letters}
        self.assertEqual(len(heights), 1)
        self.assertTrue(s // 2 < heights.pop() < s)

    def test_blocks_bars_and_capitals(self):
        self.checkcrossword(Made(self.folder, BLOCKS), [(0, 0), (4, 0), (0, 2)])
        self.checkcrossword(Made(self.folder, BARS), [(1, 0), (2, 0), (3, 0), (0, 1), (0, 2)])
        made = Made(self.folder, BLOCKS.replace("C", "c"), "upper")
        letters = {shape[3] for shape in self.shapes(made, "text")}
        self.assertTrue({"C", "A"} <= letters)
        self.assertFalse({"c", "a"} & letters)

    def test_words_struck_through_or_not_shown(self):
        words = ["cat", 0, 0, 1, 0, "cog", 1, 0, 1, 1, "lost", -1, -1, -1, -1]
        made = Made(self.folder, SQUARE, *words, "show", wordsquare=True)
        boxes, others = self.checkgrid(made)
        self.assertEqual((boxes, others), ([], 2))  # none for a word that lies nowhere
        s = made.square
        lines = self.shapes(made, "line")
        middle = lambda x, y: (x * s + s // 2, y * s + s // 2)
        self.assertEqual(lines[-2][1:5], middle(0, 0) + middle(2, 0))
        self.assertEqual(lines[-1][1:5], middle(1, 0) + middle(3, 2))
        texts = self.shapes(made, "text")
        self.checkletters(made, texts)  # and no numbers
        made = Made(self.folder, SQUARE, "hide", "cat", 0, 0, 1, 0, wordsquare=True)
        self.assertEqual(self.checkgrid(made), ([], 0))

    def test_sizes(self):
        large = ("." * 127 + "\n") * 127
        lost = ["lost", -1, -1, -1, -1, "show"]  # no line, at any size
        for text, scale in (large, None), ("X\n", None), (".\n", 0), (".\n", 0x7FFFFFFF):
            made = Made(self.folder, text, *lost, wordsquare=True, scale=scale)
            right, bottom = made.grid.width * made.square + 1, made.grid.height * made.square + 1
            self.assertEqual(made.files["placeable.wmf"].header, {
                "key": 0x9AC6CDD7, "handle": 0, "left": 0, "top": 0, "right": right,
                "bottom": bottom, "inch": 120, "reserved": 0, "checksum": 0})
            for file in made.files.values():
                self.assertEqual(file.window, {"extent": (right, bottom), "origin": (0, 0)})
            header = made.files["enhanced.emf"].header
            self.assertEqual(header["description"].split("\0")[0], "Calendar")
            frame = [length * mm * 100 // pixels for length, mm, pixels in
                     zip((right, bottom), header["millimetres"], header["device"])]
            self.assertEqual(header["frame"], (0, 0, *frame))
            if scale is None:
                self.assertEqual(self.checkgrid(made), ([], 0))
        (pathlib.Path(self.folder) / "plain.wmf").unlink()
        with self.assertRaisesRegex(AssertionError, r"units is too large for a \*\.wmf file"):
            Made(self.folder, large, scale=0x7FFFFFFF)
        self.assertFalse((pathlib.Path(self.folder) / "plain.wmf").exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
