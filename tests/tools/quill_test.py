#!/usr/bin/env python3
"""The console companion from outside: what it prints, where, and its status.

usage: quill_test.py ENCODING PROGRAM...   (PROGRAM may be an emulator and an exe)
"""
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest

ENCODING = sys.argv[1]
PROGRAM = [str(pathlib.Path(word).resolve()) for word in sys.argv[2:]]
DONE, FAILED, WRONGUSAGE = 0, 1, 2


class QuillTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def file(self, leaf, text=None):
        path = pathlib.Path(self.folder.name) / leaf
        if text is not None:
            path.write_bytes(text if isinstance(text, bytes) else text.encode(ENCODING))
        return path

    def quill(self, *words, status=DONE, stdin=b""):
        run = subprocess.run(PROGRAM + [str(word) for word in words], input=stdin,
                             capture_output=True, cwd=self.folder.name, timeout=120)
        self.remarks = run.stderr.decode(ENCODING).replace("\r", "")
        self.assertEqual(run.returncode, status, self.remarks)
        return run.stdout.decode(ENCODING)

    def dictionary(self, leaf, *words):
        self.quill("dict", "build", leaf)
        if words:
            self.quill("dict", "add", leaf, "-", stdin="\n".join(words).encode(ENCODING))

    def grid(self, leaf, picture):
        self.file("p.txt", picture)
        self.quill("grid", "build", leaf, "p.txt")

    def test_usage(self):
        self.quill(status=WRONGUSAGE)
        self.assertIn("usage: quill COMMAND", self.remarks)
        self.assertRegex(self.quill("--version"), r"^quill \d+\.\d+\.\d+\n$")
        overview = self.quill("help")
        for command in ("dict build", "dict check", "grid draw", "solve"):
            self.assertIn(command, overview)
            self.assertIn("usage: quill " + command, self.quill("help", *command.split()))
        for wrong in (["frobnicate"], ["dict"], ["dict", "words"], ["dict", "words", "a.dic", "b"],
                      ["solve", "x.qmg", "--max"], ["solve", "x.qmg", "--max", "none"],
                      ["solve", "x.qmg", "--mark", "1,2,3"], ["solve", "x.qmg", "--mark=3,0,1,0"],
                      ["dict", "words", "a.dic", "--wordsquare"], ["help", "frobnicate"]):
            self.assertEqual(self.quill(*wrong, status=WRONGUSAGE), "", wrong)
            self.assertIn("usage:", self.remarks)

    def test_missing_and_damaged_files(self):
        for words in (["dict", "words", "none.dic"], ["dict", "build", "a.dic", "none.txt"],
                      ["grid", "draw", "none.qmg"], ["grid", "build", "a.qmg", "none.txt"],
                      ["solve", "none.qmg"]):
            self.assertEqual(self.quill(*words, status=FAILED), "")
            self.assertIn("not found.", self.remarks)
        self.file("short.dic", b"Quillmere")
        self.quill("dict", "check", "short.dic", status=FAILED)
        self.assertIn("Error reading data.", self.remarks)
        self.file("old.dic", b"\0" * 304)
        self.quill("dict", "words", "old.dic", status=FAILED)
        self.assertIn("Dictionary is too old.", self.remarks)
        self.quill("dict", "build", "noextension", status=FAILED)
        self.quill("dict", "build", "nofolder/a.dic", status=FAILED)

    def test_a_dictionary_from_texts_to_words(self):
        self.file("a.txt", "nations\nNation\r\n\r\nNew York\tzebra")
        self.file("b.txt", "nation\nnational")
        self.assertEqual(self.quill("dict", "build", "w.dic", "a.txt", "b.txt"), "")
        size = self.file("w.dic").stat().st_size
        self.assertEqual(self.remarks, f"5 words, {size} bytes\n")
        self.assertEqual(self.quill("dict", "words", "w.dic"),
                         "nation\nnational\nnations\nNewyork\nzebra\n")
        self.assertEqual(self.quill("dict", "check", "w.dic"), "ok: 5 words, 1 entries\n")
        self.assertEqual(self.quill("dict", "find", "w.dic", "NATION", "nationa", "aa", "zz"),
                         "NATION\tfound\t0\tnation\n" "nationa\tabsent\t0\tnation\n"
                         "aa\tabsent\t0\tnation\n" "zz\tabsent\t4\tzebra\n")
        self.quill("dict", "build", "empty.dic")
        self.assertEqual(self.remarks, "0 words, 304 bytes\n")
        self.assertEqual(self.quill("dict", "words", "empty.dic"), "")

    def test_words_as_they_stand(self):
        self.dictionary("w.dic", "ice cream", "co-op", "\u00c9t\u00e9", "can't", "x" * 32)
        self.assertIn("not stored: " + "x" * 32, self.remarks)
        self.assertEqual(sorted(self.quill("dict", "words", "w.dic").splitlines()),
                         sorted(["ice cream", "co-op", "\u00c9t\u00e9", "can't"]))
        self.quill("dict", "add", "w.dic", "ICE cream", "zoo")
        self.assertIn("ICE cream\n", self.quill("dict", "words", "w.dic"))
        self.quill("dict", "remove", "w.dic", "Zoo", "absent", "-", stdin=b"co-op\r\nCAN'T\n")
        self.assertIn("absent: absent", self.remarks)
        self.assertEqual(sorted(self.quill("dict", "words", "w.dic").splitlines()),
                         sorted(["ICE cream", "\u00c9t\u00e9"]))

    def test_a_character_that_the_code_page_lacks(self):
        self.dictionary("w.dic")
        before = self.file("w.dic").read_bytes()
        self.quill("dict", "add", "w.dic", "\u03c0", status=FAILED)
        self.assertIn("U+03C0", self.remarks)
        self.assertEqual(self.file("w.dic").read_bytes(), before)

    def test_check_finds_a_fault(self):
        self.dictionary("w.dic", *(f"word{chr(97 + i // 26)}{chr(97 + i % 26)}" for i in range(300)))
        data = bytearray(self.file("w.dic").read_bytes())
        words = struct.unpack_from("<I", data, 268)[0] - 20
        self.assertIn("ok: 300 words", self.quill("dict", "check", "w.dic"))
        data[284 + words + 20 + 8] ^= 1  # a letter of the first index entry
        self.file("w.dic", bytes(data))
        self.assertEqual(self.quill("dict", "check", "w.dic", status=FAILED), "")
        self.assertNotEqual(self.remarks, "")

    PICTURE = "CAT#.\n.#..E\nabc\u00e9F\n\nleft 2,2 3,0\ntop 1,2\n"

    def test_a_grid_from_a_picture_and_back(self):
        self.grid("g.qmg", self.PICTURE)
        self.assertEqual(self.remarks, "5 by 3 cells\n")
        drawn = self.quill("grid", "draw", "g.qmg")
        self.assertEqual(drawn.splitlines()[:3], self.PICTURE.splitlines()[:3])
        self.grid("again.qmg", drawn)
        self.assertEqual(self.file("g.qmg").read_bytes(), self.file("again.qmg").read_bytes())
        self.quill("grid", "build", "ws.qmg", "p.txt", "--wordsquare")
        self.assertEqual(self.file("ws.qmg").read_bytes()[240], 1)
        self.assertEqual(self.file("g.qmg").read_bytes()[240], 0)

    def test_words_and_clues_of_a_grid(self):
        self.grid("g.qmg", "CAT\nA#O\nB.P\n")
        self.assertEqual(self.quill("grid", "words", "g.qmg"), "CAT\nCAB\nTOP\nB P\n")
        self.assertEqual(self.quill("clues", "g.qmg"),
                         "Clues across.\r\n1. CAT\n3. B P\n\nClues down.\n\n1. CAB\n2. TOP\n")

    def test_a_bad_picture(self):
        self.file("p.txt", "ab\nabc\n")
        self.assertEqual(self.quill("grid", "build", "g.qmg", "p.txt", status=FAILED), "")
        self.assertIn("Line 2: the row has 3 cells", self.remarks)
        self.assertFalse(self.file("g.qmg").exists())

    def solvegrid(self):
        self.dictionary("MainDict.dic", "cat", "cot", "Cut", "tar", "tip", "top", "cart")
        self.dictionary("Other.dic", "cit")
        self.grid("g.qmg", "C.T\n##.\n##.\n")

    def solve(self, *words, status=DONE):
        return self.quill("solve", "g.qmg", "--dictionaries", ".", *words, status=status)

    def test_solve(self):
        self.solvegrid()
        self.assertEqual(self.solve("--mark", "0,0,2,0"), "cat\ncot\nCut\n")
        self.assertEqual(self.remarks, "3 solutions of 1 words\n")
        self.assertEqual(self.solve("--mark=0,0,2,0", "--mark=2,0,2,2").splitlines(),
                         [f"{a}\t{b}" for a in ("cat", "cot", "Cut") for b in ("tar", "tip", "top")])
        self.assertEqual(self.solve("--mark", "0,0,2,0", "--dict", "Other", "--dict", "MainDict"),
                         "cat\ncot\nCut\ncit\n")
        limited = self.solve("--mark", "0,0,2,2", "--max", "4")
        self.assertEqual(len(limited.splitlines()), 5)  # the list stops above the limit

    def test_solve_failures(self):
        self.solvegrid()
        mark = ["--mark", "0,0,2,0"]
        for words, text in (([], "Need marked word!"), (["--mark", "0,0,0,0"], "Nothing to solve!"),
                            (mark + ["--dict", "Nowhere"], "No dictionary Nowhere")):
            self.assertEqual(self.solve(*words, status=FAILED), "")
            self.assertIn(text, self.remarks)
        self.file("MainDict.dic", b"\0" * 304)
        self.solve(*mark, status=FAILED)
        self.assertIn("Dictionary is too old.", self.remarks)
        self.file("none").mkdir()
        self.quill("solve", "g.qmg", *mark, "--dictionaries", "none", status=FAILED)
        self.assertIn("No dictionaries loaded!", self.remarks)

    def test_anagram(self):
        self.solvegrid()
        for words, found in ((["c*t"], "cat\ncot\nCut\n"), (["CIT", "--dict", "Other"], "cit\n"),
                             (["zzz"], ""), (["***", "--max", "1"], "cat\ncot\n")):
            self.assertEqual(self.quill("anagram", *words, "--dictionaries", "."), found)
        self.quill("anagram", "x" * 32, "--dictionaries", ".", status=FAILED)

    def test_guess_and_spell(self):
        self.solvegrid()
        use = ("--dictionaries", ".")
        self.assertIn("cat\n", self.quill("guess", "catt", *use))
        self.assertEqual(self.quill("guess", "zzzzz", *use), "")
        self.grid("s.qmg", "CATT\n####\nTIPS\n####\nTOP.\n")
        lines = self.quill("spell", "s.qmg", *use).splitlines()
        for line, word, guess in zip(lines, ("CATT", "TIPS"), ("cat", "tip"), strict=True):
            self.assertEqual(line.split("\t")[0], word)
            self.assertIn(guess, line.split("\t")[1].split(","))

    def test_make_and_find(self):
        words = ["otter", "badger", "heron", "pine", "elk"]
        self.file("w.txt", "\n".join(words))
        self.quill("dict", "build", "MainDict.dic", "w.txt")
        making = ("make", "w.txt", "--size", "9x8", "--directions", "255", "--seed", "12")
        places = self.quill(*making, "-o", "g.qmg")
        self.assertEqual(self.quill(*making, "-o", "h.qmg"), places)
        self.assertEqual(self.file("g.qmg").read_bytes(), self.file("h.qmg").read_bytes())
        rows = self.quill("grid", "draw", "g.qmg").splitlines()
        self.assertEqual((len(rows[0]), len(rows)), (9, 8))
        for line, word in zip(places.splitlines(), words, strict=True):
            text, *place = line.split("\t")
            x, y, dx, dy = map(int, place)
            self.assertEqual(text, word)
            self.assertEqual("".join(rows[y + i * dy][x + i * dx] for i in range(len(word))), word)
        found = self.quill("find", "g.qmg", "--min", "3", "--dictionaries", ".").splitlines()
        self.assertTrue(set(places.splitlines()) <= set(found))
        self.assertEqual(found, sorted(found, key=lambda line: line.split("\t")[0]))
        self.assertNotIn("elk", self.quill("find", "g.qmg", "--dictionaries", "."))
        self.file("long.txt", "elephantine")
        self.assertEqual(self.quill("make", "long.txt", "--size", "4x4", "-o", "l.qmg"),
                         "elephantine\t-1\t-1\t-1\t-1\n")
        for wrong in (["make", "w.txt", "-o", "x.qmg"], ["make", "w.txt", "--size", "9x8"],
                      ["make", "w.txt", "--size", "0x8", "-o", "x.qmg"],
                      ["make", "w.txt", "--size", "9x128", "-o", "x.qmg"],
                      ["fill", "--size", "9x8", "--directions", "256", "-o", "x.qmg"]):
            self.quill(*wrong, status=WRONGUSAGE)

    def test_fill(self):
        self.dictionary("MainDict.dic", "otter", "badger", "heron", "squirrel")
        filling = ("fill", "--size", "6x5", "--seed", "3", "--dictionaries", ".")
        self.assertEqual(self.quill(*filling, "-o", "f.qmg"), "")
        drawn = self.quill("grid", "draw", "f.qmg")
        self.assertRegex(drawn, r"^([a-z]{6}\n){5}$")
        self.quill(*filling, "-o", "g.qmg")
        self.assertEqual(self.quill("grid", "draw", "g.qmg"), drawn)
        self.quill("fill", "--size", "6x5", "--dictionaries", "nowhere", "-o", "h.qmg",
                   status=FAILED)
        self.assertFalse(self.file("h.qmg").exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
