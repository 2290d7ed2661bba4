#!/usr/bin/env python3
"""The three kinds of metafile, as a reader that shares no code with their writer
sees them.

usage: metafile_test.py PROGRAM...   (the emulator and the exe "metafiles")
"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True  # beside the sources
import metarecords

PROGRAM = [str(pathlib.Path(word).resolve()) for word in sys.argv[1:]]
WIDTH, HEIGHT = 201, 121

PAPER, GREEN, BLUE, RED, BLACK = "#fff8e0", "#008000", "#0000c0", "#ff0000", "#000000"


def line(points, pen):
    return [("line", *a, *b, pen) for a, b in zip(points, points[1:])]


# What metadraw asks for, shape by shape.
BOXES = [("box", 0, 0, WIDTH, HEIGHT, PAPER, PAPER),
         ("box", 20, 20, 41, 41, GREEN, GREEN),
         ("box", 60, 19, 81, 30, GREEN, GREEN),
         ("box", 100, 20, 130, 35, GREEN, None)]

class MetafileTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        run = subprocess.run(PROGRAM + [cls.folder.name], capture_output=True, timeout=120)
        if run.returncode or b"Metafiles written" not in run.stdout:
            raise AssertionError(run.stderr.decode())
        cls.files = {}
        for leaf in ("plain.wmf", "placeable.wmf", "enhanced.emf"):
            data = (pathlib.Path(cls.folder.name) / leaf).read_bytes()
            cls.files[leaf] = metarecords.read(data)

    def same(self, wanted, *kinds):
        """All files draw just these shapes of these kinds."""
        for leaf, player in self.files.items():
            with self.subTest(leaf):
                self.assertEqual([shape for shape in player.drawing if shape[0] in kinds], wanted)

    def test_shapes(self):
        self.same(BOXES, "box")
        wanted = line([(140, 20), (180, 20), (180, 35), (140, 35), (140, 20)], BLUE)
        for x in range(0, 201, 40):
            wanted += [("line", x, 0, x, 120, BLACK), ("pixel", x, 120, BLACK)]
        wanted += [("line", 3, 100, 60, 70, RED), ("pixel", 60, 70, RED)]
        self.same(wanted, "line", "pixel")
        # 12 points at 180 units to the inch; 30 is centred, 24 left, on the base line.
        self.same([("text", 100, 60, "Quillmere", "#000030", 30, "Arial", -30),
                   ("text", 70, 110, "\xc9t\xe9 \u20ac", "#800000", 24, "Arial", -30)], "text")

    def test_bitmaps(self):
        # A mask that clears, and an image that is ORed into the gaps.
        srcand, srcpaint = 0x8800C6, 0xEE0086
        for leaf, player in self.files.items():
            with self.subTest(leaf):
                bitmaps = [shape[1:7] for shape in player.drawing if shape[0] == "bitmap"]
                self.assertEqual(bitmaps, [(150, 81, 12, 9, 1, srcand),
                                           (150, 81, 12, 9, 8, srcpaint)])

    def test_all_kinds_draw_the_same(self):
        drawings = [player.drawing for player in self.files.values()]
        self.assertGreater(len(drawings[0]), 20)
        self.assertEqual(drawings[0], drawings[1])
        self.assertEqual(drawings[0], drawings[2])

    def test_windows_and_deleted_objects(self):
        ours = {PAPER, GREEN, BLUE, RED, ("Arial", -30)}
        for leaf, player in self.files.items():
            with self.subTest(leaf):
                self.assertEqual(player.window, {"extent": (WIDTH, HEIGHT), "origin": (0, 0)})
                self.assertFalse(ours & {value for _, value in player.objects.values()})

    def test_headers(self):
        self.assertEqual(self.files["placeable.wmf"].header, {
            "key": 0x9AC6CDD7, "handle": 0, "left": 0, "top": 0, "right": WIDTH, "bottom": HEIGHT,
            "inch": 120, "reserved": 0, "checksum": 0})
        header = self.files["enhanced.emf"].header
        self.assertEqual(header["description"].split("\0")[0], "Calendar")
        frame = [length * mm * 100 // pixels for length, mm, pixels in
                 zip((WIDTH, HEIGHT), header["millimetres"], header["device"])]
        self.assertEqual(header["frame"], (0, 0, *frame))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
