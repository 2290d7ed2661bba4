#!/usr/bin/env python3
"""The console companion from outside: what it prints, where, and its status.

usage: quill_test.py ENCODING PROGRAM...   (PROGRAM may be an emulator and an exe)
"""
import json
import os
import pathlib
import re
import shlex
import signal
import struct
import subprocess
import sys
import tempfile
import unittest
from xml.etree import ElementTree

ENCODING = sys.argv[1]
PROGRAM = [str(pathlib.Path(word).resolve()) for word in sys.argv[2:]]
DONE, FAILED, WRONGUSAGE = 0, 1, 2
HERE = "--dictionaries ."
PICTURE = "CAT#.\n.#..E\nabc\u00e9F\n\nleft 3,0 2,2\ntop 1,2\n"
PLANTS = "otter\nbadger\nheron\npine\nelk\n"
# Others' way of saying the same: a block and a blank of their own, bars on the far sides.
IPUZ = """{{"version": "http://ipuz.org/v1", "kind": ["http://ipuz.org/crossword"], "block": "X",
"empty": "_", "dimensions": {{"width": {}, "height": 2}}, "title": "T",
"puzzle": [[{{"cell": 1, "style": {{"barred": "RB"}}}}, "_"], ["X", null, 0]],
"solution": [["ab", {{"value": "\\u03c0"}}], ["X", null]]}}"""
# Bars round the middle, two pieces, a word across that stands down as well.
STATS = "cat#\na.a#\nt#t.\nx..y\n\nleft 1,2 3,3 0,0\ntop 0,3 1,1 2,3 3,3\n"
WORDS = {"Main.txt": "cat\ncot\nCut\ntar\ntip\ntop\ncart\n", "Other.txt": "cit\n"}

LONGNAME = "./" * 127 + "p.qmgx"  # a character more than a path holds

# What is written before a run, by the name of the file.
FILES = {"a.txt": "nations\nNation\r\n\r\nNew York\tzebra", "b.txt": "nation\nnational",
         "bad.txt": "ab\nabc\n", "p.txt": PICTURE, "t.txt": "CAT\nA#O\nB.P\n",
         "g.txt": "C.T\n##.\n##.\n", "s.txt": "CATT\n####\nTIPS\n####\nTOP.\n", "plants.txt": PLANTS,
         "score.txt": "HOT DOG;50\r\n\ncat ; 49\nfoo\nx;y;1\nx;y;51\n", "k.txt": STATS, "letters.txt": "a,\"\n\u00c9#<\n", "big.csv": "," * 127,
         "not.ipuz": "{", "kind.ipuz": "{}", "size.ipuz": IPUZ.format(0), "other.ipuz": IPUZ.format(2),
         "hidden.txt2": "tac\nxxx\ngod\n", "hidden.txt": "Cat\ndog\nowl\n", "big.txt": ("." * 40 + "\n") * 40,
         "long.txt": "elephantine", "short.dic": "Quillmere", "old.dic": "\0" * 304,
         "none/x": "", **{f"crowd/a{n}.dic": "" for n in range(40)}, "old/MainDict.dic": "\0" * 304, **WORDS}

# Runs in the one folder, in this order: a command, its status, what it prints, and a part of
# its remarks; what it reads stands behind a "<". None for any output.
RUNS = [
    ("", WRONGUSAGE, "", "usage: quill COMMAND"),
    ("frobnicate", WRONGUSAGE, "", "usage:"),
    ("help frobnicate", WRONGUSAGE, "", "usage:"),
    ("dict words", WRONGUSAGE, "", "usage:"),
    ("dict words a.dic b", WRONGUSAGE, "", "usage:"),
    ("dict words a.dic --wordsquare", WRONGUSAGE, "", "usage:"),
    ("solve x.qmg --max", WRONGUSAGE, "", "usage:"),
    ("solve x.qmg --max none", WRONGUSAGE, "", "usage:"),
    ("solve x.qmg --mark 1,2,3", WRONGUSAGE, "", "usage:"),
    ("solve x.qmg --mark=3,0,1,0", WRONGUSAGE, "", "usage:"),
    ("make plants.txt -o x.qmg", WRONGUSAGE, "", ""),
    ("make plants.txt --size 9x8", WRONGUSAGE, "", ""),
    ("make plants.txt --size 0x8 -o x.qmg", WRONGUSAGE, "", ""),
    ("make plants.txt --size 9x128 -o x.qmg", WRONGUSAGE, "", ""),
    ("fill --size 9x8 --directions 256 -o x.qmg", WRONGUSAGE, "", ""),
    # Files that are missing or damaged.
    ("dict words none.dic", FAILED, "", "not found."),
    ("dict build a.dic none.txt", FAILED, "", "not found."),
    ("grid build a.qmg none.txt", FAILED, "", "not found."),
    ("solve none.qmg", FAILED, "", "not found."),
    ("dict check short.dic", FAILED, "", "Error reading data."),
    ("dict words old.dic", FAILED, "", "Dictionary is too old."),
    ("dict build nofolder/a.dic", FAILED, "", "quill: nofolder"),
    ("dict build a.dic huge.txt", FAILED, "", "quill: "),
    # A dictionary from texts to words.
    ("dict build w.dic a.txt b.txt", DONE, "", "5 words, 343 bytes\n"),
    ("dict words w.dic", DONE, "nation\nnational\nnations\nNewyork\nzebra\n", ""),
    ("dict check w.dic", DONE, "ok: 5 words, 1 entries\n", ""),
    ("dict find w.dic NATION nationa aa zz", DONE,
     "NATION\tfound\t0\tnation\nnationa\tabsent\t0\tnation\n"
     "aa\tabsent\t0\tnation\nzz\tabsent\t4\tzebra\n", ""),
    ("dict build e.dic", DONE, "", "0 words, 304 bytes\n"),
    ("dict words e.dic", DONE, "", ""),
    # Words as they stand, and a character that the code page lacks.
    (f"dict add e.dic - < ice cream\nco-op\n\u00c9t\u00e9\ncan't\n{'x' * 32}", DONE, "",
     "not stored: " + "x" * 32),
    ("dict add e.dic 'ICE cream' zoo", DONE, "", ""),
    ("dict remove e.dic Zoo absent - < co-op\r\nCAN'T\n", DONE, "", "absent: absent"),
    ("dict add e.dic \u03c0", FAILED, "", "U+03C0"),
    ("dict words e.dic", DONE, "\u00c9t\u00e9\nICE cream\n", ""),
    # A grid from a picture and back, its words and clues.
    ("grid build p.qmg p.txt", DONE, "", "5 by 3 cells\n"),
    ("grid draw p.qmg", DONE, PICTURE, ""),
    # A name that is cut would be another file's.
    *[(command, FAILED, "", "longer than 259") for command in (
        f"grid draw {LONGNAME}", f"grid build {LONGNAME} p.txt", f"grid build a.qmg {LONGNAME}",
        f"dict words {LONGNAME}.dic", f"anagram a --dictionaries {LONGNAME}")],
    ("grid build ws.qmg p.txt --wordsquare", DONE, "", ""),
    ("clues ws.qmg", FAILED, "", "ws.qmg is a word square"),
    ("solve ws.qmg --mark 0,0,2,0", FAILED, "", "ws.qmg is a word square"),
    ("grid build bad.qmg bad.txt", FAILED, "", "Line 2: the row has 3 cells"),
    ("grid draw bad.qmg", FAILED, "", "not found."),
    ("grid build t.qmg t.txt", DONE, "", ""),
    ("grid words t.qmg", DONE, "CAT\nCAB\nTOP\nB P\n", ""),
    ("clues t.qmg", DONE, "Clues across.\r\n1. CAT\n3. B P\n\nClues down.\n\n1. CAB\n2. TOP\n", ""),
    ("dict build score.dic score.txt --min-score 50", DONE, "",
     "score.txt: 1 without a score\n2 words"),
    ("dict words score.dic", DONE, "Hotdog\nxy\n", ""),
    ("dict build score.dic score.txt --min-score high", WRONGUSAGE, "", ""),
    ("grid build k.qmg k.txt", DONE, "", ""),
    ("stats k.qmg", DONE,
     "size\t4 by 4\ncells\t13 open, 3 blocks, 6 bars\nfilled\t9 (69 %)\n"
     "letters\tA 3, C 1, T 3, X 1, Y 1\nwords\t4 across, 2 down\nlengths\t2: 1, 3: 5\n"
     "average\t2.8\nchecked\t5 (38 %)\nunchecked\t7 (54 %)\npieces\t3\nsymmetry\tnone\n"
     "repeated\tCAT\n", ""),
    ("sheet k.qmg -o k.doc", FAILED, "", "A sheet is a .svg, .html or .pdf file: k.doc"),
    ("grid build hidden.qmg hidden.txt2 --wordsquare", DONE, "", ""),
    ("sheet hidden.qmg -o h.svg --words hidden.txt", DONE, "", "not in the square: owl"),
    ("grid build big.qmg big.txt", DONE, "", ""),
    # Files of other programs, and what they can't hold.
    ("grid export k.qmg -o k.puz", FAILED, "", "can't hold the bars. With --lossy"),
    ("grid export ws.qmg -o ws.puz", FAILED, "", "that it is a word square"),
    ("grid export k.qmg -o k.doc", FAILED, "", "No known format ends in .doc"),
    ("grid export k.qmg -o k.doc --as doc", WRONGUSAGE, "", ""),
    ("grid import k.svg -o x.qmg", FAILED, "", "svg files can be written, but not read."),
    ("grid import none.puz -o x.qmg", FAILED, "", "not found."),
    ("grid import big.csv -o x.qmg", FAILED, "", "not 128 by 1."),
    ("grid import not.ipuz -o x.qmg", FAILED, "", "no .ipuz file"),
    ("grid import kind.ipuz -o x.qmg", FAILED, "", "neither a crossword nor"),
    ("grid import size.ipuz -o x.qmg", FAILED, "", "not 0 by 2."),
    ("grid import other.ipuz -o other.qmg", DONE, "", "left out: all but the first letter of a cell, "
     "letters that code page 1252 lacks, that some cells aren't there, cells beyond its dimensions, "
     "title, clues and notes"),
    ("grid draw other.qmg", DONE, "a.\n##\n\nleft 1,0\ntop 0,1\n", ""),
    # Searches.
    ("dict build MainDict.dic", DONE, "", ""),
    (f"dict add MainDict.dic - < {WORDS['Main.txt']}", DONE, "", ""),
    ("dict build Other.dic Other.txt", DONE, "", ""),
    ("grid build g.qmg g.txt", DONE, "", ""),
    (f"solve g.qmg {HERE} --mark 0,0,2,0", DONE, "cat\ncot\nCut\n", "3 solutions of 1 word\n"),
    (f"solve g.qmg {HERE} --mark=0,0,2,0 --mark=2,0,2,2", DONE,
     "".join(f"{a}\t{b}\n" for a in ("cat", "cot", "Cut") for b in ("tar", "tip", "top")), ""),
    (f"solve g.qmg {HERE} --mark 0,0,2,0 --dict Other --dict MainDict", DONE,
     "cat\ncot\nCut\ncit\n", ""),
    (f"solve g.qmg {HERE} --mark 2,0,2,2 --max 2", DONE, "tar\ntip\ntop\n",  # one above it
     "ended at the limit"),
    (f"solve g.qmg {HERE}", FAILED, "", "Need marked word!"),
    (f"solve g.qmg {HERE} --mark 0,0,0,0", FAILED, "", "Nothing to solve!"),
    (f"solve g.qmg {HERE} --mark 0,0,2,0 --dict Nowhere", FAILED, "", "No dictionary Nowhere"),
    ("solve g.qmg --mark 0,0,2,0 --dictionaries old", FAILED, "", "Dictionary is too old."),
    ("solve g.qmg --mark 0,0,2,0 --dictionaries none", FAILED, "", "No dictionaries loaded!"),
    (f"fillall g.qmg {HERE}", DONE,
     "".join(f"{a}\t{b}\n" for a in ("cat", "cot", "Cut") for b in ("tar", "tip", "top")),
     "9 fills of 2 words"),
    (f"fillall g.qmg {HERE} --mark 2,0,2,2 --max 2", DONE, "tar\ntip\n", "ended at the limit"),
    (f"fillall g.qmg {HERE} --count --repeat", DONE, "9\n", ""),
    (f"fillgrid g.qmg {HERE} --dict Other --prefer MainDict -o x.qmg", FAILED, "",
     "MainDict is no dictionary in use."),
    (f"fillgrid g.qmg {HERE} --dict Other -o x.qmg", FAILED, "", "There is no fill"),
    (f"fillgrid g.qmg {HERE} --dict Other --dict MainDict --prefer Other --seed 1 -o f.qmg", DONE, "",
     "2 words"),
    (f"solve f.qmg {HERE} --dict Other --mark 0,0,2,0", DONE, "cit\n", ""),
    (f"anagram c*t {HERE}", DONE, "cat\ncot\nCut\n", ""),
    (f"anagram CIT --dict Other {HERE}", DONE, "cit\n", ""),
    ("dict build crowd/z.dic Other.txt", DONE, "", ""),  # in a folder of more than are known
    ("anagram CIT --dict z --dictionaries crowd", DONE, "cit\n", ""),
    (f"anagram *** --max 1 {HERE}", DONE, "cat\ncot\n", ""),
    (f"anagram {'x' * 32} {HERE}", FAILED, "", ""),
    ("make long.txt --size 4x4 -o l.qmg", FAILED, "elephantine\t-1\t-1\t-1\t-1\n",
     "1 word not placed: elephantine"),
    (f"solve g.qmg {HERE} --mark 0,0,3,0", FAILED, "", "--mark 0,0,3,0 is not inside the grid"),
    ("dict words -h", DONE, "usage: quill dict words FILE.dic\n"
     "dict words lists every word of a dictionary.\n", ""),
    ("fill --size 6x5 --dictionaries nowhere -o x.qmg", FAILED, "", ""),
    ("grid draw x.qmg", FAILED, "", "not found."),
]


class QuillTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        for leaf, text in FILES.items():
            (cls.folder / leaf).parent.mkdir(exist_ok=True)
            (cls.folder / leaf).write_bytes(text.encode(ENCODING))
        with (cls.folder / "huge.txt").open("wb") as huge:
            huge.truncate(1 << 32 | 5)  # all of it holes

    def bytes(self, leaf):
        return (self.folder / leaf).read_bytes()

    def quill(self, command, status=DONE):
        """What it prints, and its remarks."""
        command, _, read = command.partition(" < ")
        run = subprocess.run(PROGRAM + shlex.split(command), input=read.encode(ENCODING),
                             capture_output=True, cwd=self.folder, timeout=120)
        told = run.stderr.decode(ENCODING).replace("\r", "")
        self.assertEqual(run.returncode, status, command + "\n" + told)
        return run.stdout.decode(ENCODING), told

    def test_1_runs(self):
        for command, status, printed, remark in RUNS:
            with self.subTest(command):
                output, told = self.quill(command, status)
                self.assertEqual(output, printed)
                self.assertIn(remark, told)

    def test_2_help_and_version(self):
        self.assertRegex(self.quill("--version")[0], r"^quill \d+\.\d+\.\d+\n$")
        overview = self.quill("help")[0]
        for command in ("dict build", "dict check", "grid draw", "solve"):
            self.assertIn(command, overview)
            self.assertIn("usage: quill " + command, self.quill("help " + command)[0])

    def test_3_what_files_hold(self):
        self.assertEqual(len(self.bytes("w.dic")), 343)  # as it was told
        self.quill("grid build again.qmg p.txt")
        self.assertEqual(self.bytes("p.qmg"), self.bytes("again.qmg"))
        self.assertEqual((self.bytes("p.qmg")[240], self.bytes("ws.qmg")[240]), (0, 1))
        many = "\n".join(f"word{chr(97 + i // 26)}{chr(97 + i % 26)}" for i in range(300))
        self.quill("dict build many.dic")
        self.quill("dict add many.dic - < " + many)
        self.assertIn("ok: 300 words", self.quill("dict check many.dic")[0])
        data = bytearray(self.bytes("many.dic"))
        words = struct.unpack_from("<I", data, 268)[0] - 20
        data[284 + words + 20 + 8] ^= 1  # a letter of the first index entry
        (self.folder / "many.dic").write_bytes(data)
        self.assertNotEqual(self.quill("dict check many.dic", FAILED), ("", ""))

    @unittest.skipIf(ENCODING == "cp1252", "names that Windows has not")
    def test_3_names_are_taken_as_they_stand(self):
        for leaf in ('<<a>"b.qmg', "<%HOME%>.qmg"):
            self.quill(f"grid build '{leaf}' p.txt")
            self.assertEqual(self.bytes(leaf), self.bytes("p.qmg"))
            self.assertEqual(self.quill(f"grid draw '{leaf}'")[0], PICTURE)

    @unittest.skipUnless(hasattr(os, "mkfifo") and ENCODING == "utf-8", "pipes of another kind")
    def test_3_what_is_no_file_is_written_to(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        reader = os.open(pipe, os.O_RDONLY | os.O_NONBLOCK)
        self.quill("grid build pipe p.txt")
        self.assertEqual(os.read(reader, 65536), self.bytes("p.qmg"))
        os.close(reader)
        self.assertTrue(pipe.is_fifo())

    @unittest.skipUnless(pathlib.Path("/dev/full").exists() and ENCODING == "utf-8",
                         "signals of another kind")
    def test_3_what_ends_early_says_so(self):
        with open("/dev/full", "w") as full:
            run = subprocess.run([*PROGRAM, "help"], stdout=full, stderr=subprocess.PIPE, timeout=60)
        self.assertEqual((run.returncode, run.stderr), (FAILED, b"quill: Error writing data.\n"))
        # Each word fits, but not all of them: it goes on until Ctrl+C.
        (self.folder / "crowd.txt").write_text("".join(f"{a}{b}{a}{b}{b}\n" for a in "abcdefg" for b in "hij"))
        run = subprocess.Popen([*PROGRAM, "make", "crowd.txt", "--size", "5x5", "-o", "c.qmg"],
                               cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        state = pathlib.Path(f"/proc/{run.pid}/status")
        while not int(re.search(r"SigCgt:\t(\w+)", state.read_text())[1], 16) & 2:
            pass  # it doesn't hear yet
        run.send_signal(signal.SIGINT)
        told = run.communicate(timeout=60)[1]
        self.assertEqual(run.returncode, 130)
        self.assertIn(b"stopped: the words placed so far are in the file", told)
        self.assertEqual(len(self.quill("grid draw c.qmg")[0].split()), 5)

    def test_4_guess_and_spell(self):
        self.assertIn("cat\n", self.quill(f"guess catt {HERE}")[0])
        self.quill("grid build s.qmg s.txt")
        lines = self.quill(f"spell s.qmg {HERE}")[0].splitlines()
        for line, word, guess in zip(lines, ("CATT", "TIPS"), ("cat", "tip"), strict=True):
            self.assertEqual(line.split("\t")[0], word)
            self.assertIn(guess, line.split("\t")[1].split(","))

    def test_5_make_fill_and_find(self):
        self.quill("dict build MainDict.dic plants.txt")
        making = "make plants.txt --size 9x8 --directions 255 --seed 12 -o "
        places = self.quill(making + "m.qmg")[0]
        self.assertEqual(self.quill(making + "n.qmg")[0], places)
        self.assertEqual(self.bytes("m.qmg"), self.bytes("n.qmg"))
        rows = self.quill("grid draw m.qmg")[0].splitlines()
        self.assertEqual((len(rows[0]), len(rows)), (9, 8))
        for line, word in zip(places.splitlines(), PLANTS.split(), strict=True):
            text, *place = line.split("\t")
            x, y, dx, dy = map(int, place)
            self.assertEqual((text, "".join(rows[y + i * dy][x + i * dx] for i in range(len(word)))),
                             (word, word))
        found = self.quill(f"find m.qmg --min 3 {HERE}")[0].splitlines()
        self.assertTrue(set(places.splitlines()) <= set(found))
        self.assertNotIn("elk", self.quill(f"find m.qmg {HERE}")[0])

        filling = f"fill --size 6x5 --seed 3 {HERE} -o "
        drawn = [self.quill(filling + leaf) and self.quill("grid draw " + leaf)[0]
                 for leaf in ("f.qmg", "h.qmg")]
        self.assertEqual(drawn[0], drawn[1])
        self.assertTrue(re.fullmatch(r"([a-z]{6}\n){5}", drawn[0]))

    def test_6_exchange(self):
        """Each format gives back what it can hold, and its files are what others read."""
        self.quill("grid build letters.qmg letters.txt")
        for leaf in ("t", "k", "letters"):
            drawn = self.quill(f"grid draw {leaf}.qmg")[0]
            for kind in ("ipuz", "txt", "csv", "puz"):
                with self.subTest(f"{leaf}.{kind}"):
                    self.quill(f"grid export {leaf}.qmg -o x.{kind} --lossy")
                    told = self.quill(f"grid import x.{kind} -o y.qmg")[1]
                    self.assertNotIn("left out", told)
                    again = self.quill("grid draw y.qmg")[0]
                    if kind in ("csv", "puz"):  # no bars
                        drawn = drawn.split("\n\n")[0].rstrip("\n") + "\n"
                    if kind == "puz":
                        drawn = drawn.upper()
                    self.assertEqual(again, drawn)
        self.quill("grid export k.qmg -o k.ipuz")
        file = json.loads(self.bytes("k.ipuz"))
        self.assertEqual(file["puzzle"][3], [{"cell": 5, "style": {"barred": "T"}}, 0,
                                             {"cell": 0, "style": {"barred": "T"}},
                                             {"cell": 0, "style": {"barred": "TL"}}])
        self.assertEqual(file["solution"][3], ["x", 0, 0, "y"])
        self.assertEqual([clue["number"] for clue in file["clues"]["Down"]], [1, 2])
        self.quill("grid export ws.qmg -o ws.out --as IPUZ")
        self.quill("grid import ws.out --as ipuz -o again.qmg")
        self.assertEqual(self.bytes("again.qmg")[240], 1)
        self.quill("grid export k.qmg -o k.svg")
        drawing = [element.tag.split("}")[1] for element in ElementTree.fromstring(self.bytes("k.svg")).iter()]
        self.assertEqual([drawing.count(tag) for tag in ("rect", "path", "text")],
                         [1 + 3, 2 * 5 + 7, 9 + 5])
        for kind, start in (("pdf", b"%PDF-"), ("png", b"\x89PNG")):  # a Windows quill has neither
            self.quill(f"grid export k.qmg -o k.{kind}", FAILED if ".exe" in PROGRAM[-1] else DONE)
            self.assertTrue(".exe" in PROGRAM[-1] or self.bytes(f"k.{kind}").startswith(start))

    def test_7_sheet(self):
        """Each page has its heading, and what is to be solved has no letters."""
        def told(leaf):
            pages = re.findall(r"<svg [^>]*mm.*?</svg>", self.bytes(leaf).decode(), re.S)
            return [re.findall(r"<text[^>]*>([^<]*)</text>", page) for page in pages]

        self.quill("sheet t.qmg -o t.html --title <\u00c9>")
        numbers, head = ["1", "2", "3"], "&lt;\u00c9&gt;"
        self.assertEqual(told("t.html"), [
            [head, *numbers, "Across", "1", "(3)", "3", "(3)", "Down", "1", "(3)", "2", "(3)"],
            [head + ": solution", *numbers, *"CATAOBP"]])
        self.quill("sheet hidden.qmg -o h.html --words hidden.txt")
        letters = list("tacxxxgod")
        self.assertEqual(told("h.html"), [["", *letters, "Cat", "dog", "owl"], ["Solution", *letters]])
        self.assertEqual(self.bytes("h.html").count(b"l-72 0"), 2)
        self.quill("sheet big.qmg -o big.svg")  # a list that goes on over pages
        self.assertEqual(self.bytes("big.svg").count(b"translate(0 "), 3)

    def test_7_puz(self):
        """The sums of a .puz file, told a second time; and files that aren't whole."""
        def sums(data, total=0):
            for byte in data:
                total = (total >> 1 | (total & 1) << 15) + byte & 0xFFFF
            return total

        self.quill("grid export t.qmg -o t.puz")
        data = self.bytes("t.puz")
        cells, clues = data[44] * data[45], struct.unpack_from("<H", data, 46)[0]
        self.assertEqual((data[44:46], clues, data[52:67]), (b"\3\3", 4, b"CATA.OB-P----.-"))
        parts = [sums(data[44:52]), sums(data[52:52 + cells]), sums(data[52 + cells:52 + 2 * cells]), 0]
        self.assertEqual(struct.unpack_from("<HHH", data, 14)[0], parts[0])
        self.assertEqual(struct.unpack_from("<H", data)[0], sums(data[52:52 + 2 * cells], parts[0]))
        self.assertEqual(data[16:24], bytes(ord("ICHEATED"[i]) ^ (parts[i % 4] >> i // 4 * 8 & 255)
                                            for i in range(8)))
        # Another's file: with clues, which count in the sums.
        told = b"Title\0\0\0" + b"First\0Second\0\0Fourth\0" + b"Note\0"
        other = bytearray(data[:52 + 2 * cells] + told)
        total = sums(other[52:52 + 2 * cells], parts[0])
        for text in (b"Title\0", b"First", b"Second", b"Fourth", b"Note\0"):
            total = sums(text, total)
        struct.pack_into("<H", other, 0, total)
        for change, status, remark in (
                ({}, DONE, "left out: title, clues and notes"),
                ({50: 4}, FAILED, "scrambled"), ({53: 65}, FAILED, "damaged"),
                ({45: 200}, FAILED, "ends before"), ({3: 1}, FAILED, "no .puz")):
            changed = bytearray(other)
            for at, byte in change.items():
                changed[at] ^= byte
            (self.folder / "o.puz").write_bytes(changed)
            self.assertIn(remark, self.quill("grid import o.puz -o o.qmg", status)[1])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
