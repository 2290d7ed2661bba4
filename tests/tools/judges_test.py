#!/usr/bin/env python3
"""Puzzle files by the judgement of readers of other makers.

usage: judges_test.py TOOL SAMPLES QUILL   (ends with 77 where TOOL has brought no readers)
"""
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

found = subprocess.run([sys.argv[1], "--found"], capture_output=True, text=True)
FOLDER, SAMPLES, QUILL = pathlib.Path(found.stdout.strip()), pathlib.Path(sys.argv[2]), sys.argv[3]
JUDGE = """
const { readFileSync } = require("fs"), { readpuz } = require("@confuzzle/readpuz");
const { Parsers } = require("xpuz");
(async () => {
    for (const file of process.argv.slice(1)) {
        const bytes = readFileSync(file), json = file.endsWith(".ipuz");
        const puzzle = json ? await new Parsers.IPUZ().parse(JSON.parse(bytes))
                            : await new Parsers.PUZ().parse(bytes);
        const numbers = puzzle.grid.map(row => row.map(c => c.isBlockCell ? "#" : c.clueNumber || 0));
        console.log(JSON.stringify({ numbers, solution: json ? null : readpuz(bytes).solution }));
    }
})();
"""


def ran(*command, status=0):
    run = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                         encoding="utf-8", cwd=FOLDER, timeout=300)
    if run.returncode != status:
        raise AssertionError(f"{command}\n{run.stdout}{run.stderr}")
    return run.stdout + run.stderr


def judged(*files):
    return [json.loads(line) for line in ran("node", "-e", JUDGE, *files).splitlines()]


def drawn(file, status=0):
    """What quill takes from a file, in rows of cells."""
    with tempfile.TemporaryDirectory() as folder:
        grid = pathlib.Path(folder) / "taken.qmg"
        told = ran(QUILL, "grid", "import", file, "-o", grid, status=status)
        return told if status else ran(QUILL, "grid", "draw", grid).split("\n\n")[0].split()


class JudgesTest(unittest.TestCase):
    def test_what_is_written(self):
        with tempfile.TemporaryDirectory() as folder:
            at = pathlib.Path(folder)
            for name in ("crossword13", "misspelt15"):
                ran(QUILL, "grid", "build", at / "g.qmg", SAMPLES / f"{name}.txt")
                for leaf in ("g.puz", "g.ipuz"):
                    ran(QUILL, "grid", "export", at / "g.qmg", "-o", at / leaf)
                rows = ran(QUILL, "grid", "draw", at / "g.qmg").split()
                numbered, again = judged(at / "g.puz", at / "g.ipuz")
                cells = "".join(rows).upper().translate(str.maketrans("#.", ".-"))
                self.assertEqual(numbered["solution"], cells)
                self.assertEqual(numbered["numbers"], again["numbers"])  # which the first counts itself
                damaged = bytearray((at / "g.puz").read_bytes())
                damaged[60] ^= 1
                (at / "g.puz").write_bytes(damaged)
                ran("node", "-e", JUDGE, at / "g.puz", status=1)

    def test_what_others_wrote(self):
        files = sorted((FOLDER / "package").rglob("*.*puz"))
        self.assertEqual(len(files), 18)
        for file in files:
            with self.subTest(file.name):
                if "locked" in file.name:
                    self.assertIn("scrambled", drawn(file, 1))
                    continue
                if "smaller" in file.name:  # which the other refuses
                    self.assertEqual(drawn(file)[0], "SHIPS")
                    continue
                seen = judged(file)[0]
                rows = drawn(file)
                if seen["solution"]:
                    self.assertEqual("".join(rows), seen["solution"].translate(str.maketrans(".-", "#.")))
                self.assertEqual(["".join("#" if c == "#" else "." for c in row) for row in seen["numbers"]],
                                 ["".join("#" if c == "#" else "." for c in row) for row in rows])


if __name__ == "__main__":
    if found.returncode:
        print("Not judged: there are no readers of other makers here.")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1], verbosity=1)
