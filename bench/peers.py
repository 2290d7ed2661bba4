#!/usr/bin/env python3
"""peers.py QUILL DATA - quill beside what else a Debian has for the same work.

Whole processes, CPU seconds (user and system), the least of some runs; both read the
same words. A program that isn't installed has no row. Everybody's output goes to a
file, so that writing counts too.
"""
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile

QUILL, DATA = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
RUNS = 5
LONGEST = 20  # seconds that anybody may take
LATE = float("inf")

BLOCKS15 = """....#....#.....
....#....#.....
.........#.....
...#.....#.....
###...#........
......#...#....
.....#...#.....
....#.....#....
.....#...#.....
....#...#......
........#...###
.....#.....#...
.....#.........
.....#....#....
.....#....#....
"""
OPEN15 = """........#......
.#.#.#.#.#.#.#.
.......#.......
.#.#.#.#.#.#.#.
.....#.........
##.#.###.#.#.#.
......#........
.#.#.#.#.#.#.#.
........#......
.#.#.#.###.#.##
.........#.....
.#.#.#.#.#.#.#.
.......#.......
.#.#.#.#.#.#.#.
......#........
"""
BLOCKS21 = """..........#...##.....
..........#..........
..........#..........
...#...##.........###
......#......##......
###...#.....#........
#.........#......#...
.......####....#.....
...###....##......###
....#.......##.......
....#...........#....
.......##.......#....
###......##....###...
.....#....####.......
...#......#.........#
........#.....#...###
......##......#......
###.........##...#...
..........#..........
..........#..........
.....##...#..........
"""


def seconds(command, folder, runs=RUNS):
    """CPU seconds of a shell line, the least of the runs; None when it fails, LATE after LONGEST."""
    best = None
    for _ in range(runs):
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        run = subprocess.Popen(["sh", "-c", command], cwd=folder, stderr=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, start_new_session=True)
        try:
            status = run.wait(LONGEST)
        except subprocess.TimeoutExpired:
            os.killpg(run.pid, signal.SIGKILL)  # what the shell started too
            run.wait()
            return LATE
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        if status:
            return None
        spent = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        best = spent if best is None else min(best, spent)
    return best


def told(spent):
    if spent in (None, LATE):
        return "-" if spent is None else f"over {LONGEST} s"
    return f"{spent * 1000:.1f} ms"


def row(work, ours, peer, theirs):
    ratio = f"{ours / theirs:.2f}" if ours and theirs and LATE not in (ours, theirs) else "-"
    print(f"{work:<44} {told(ours):>12}  {peer:<12} {told(theirs):>12}  {ratio:>6}", flush=True)


def slots(picture):
    """The cells of each word of a picture with blocks and bars, across and down."""
    text, _, edges = picture.partition("\n\n")
    rows = text.splitlines()
    bars = {"left": set(), "top": set()}
    for line in edges.splitlines():
        side, *cells = line.split()
        bars[side] = {tuple(map(int, cell.split(","))) for cell in cells}
    words = []
    for dx, dy, side in ((1, 0, "left"), (0, 1, "top")):
        def joined(x, y):  # to the cell before
            return (min(x - dx, y - dy) >= 0 and rows[y][x] != "#" and rows[y - dy][x - dx] != "#"
                    and (x, y) not in bars[side])
        for y, line in enumerate(rows):
            for x in range(len(line)):
                if line[x] == "#" or joined(x, y):
                    continue
                cells = [(x, y)]
                ahead = (x + dx, y + dy)
                while ahead[0] < len(line) and ahead[1] < len(rows) and joined(*ahead):
                    cells.append(ahead)
                    ahead = (ahead[0] + dx, ahead[1] + dy)
                if len(cells) > 1:
                    words.append(cells)
    return words


def lookups(folder, words):
    peers = lambda name, command: seconds(command, folder) if shutil.which(name) else None
    fives = sorted({w.lower() for w in words if re.fullmatch(r"[A-Za-z]{5}", w)})
    (folder / "fives").write_text("".join(f"{w[0]} {w}\n" for w in fives))
    (folder / "shuffled").write_text("\n".join(random.Random(1).sample(words, len(words))) + "\n")
    (folder / "one.txt").write_text("..a...e\n")
    (folder / "two.txt").write_text(".....\n" + ".####\n" * 4)
    here = f"--dictionaries {DATA} --dict Puzzle-UK"
    for name in ("one", "two"):
        subprocess.run([QUILL, "grid", "build", f"{name}.qmg", f"{name}.txt"], cwd=folder,
                       check=True, capture_output=True)
    row("one slot, ..a...e", seconds(f"{QUILL} solve one.qmg --mark 0,0,6,0 {here} > out", folder),
        "grep", peers("grep", "grep -ix '..a...e' words > out"))
    row("two crossing slots, the first 1,000,001",
        seconds(f"{QUILL} solve two.qmg --mark 0,0,4,0 --mark 0,0,0,4 --max 1000000 {here} > out",
                folder),
        "join", peers("join", "join fives fives | head -n 1000001 > out"))
    ours = seconds(f"{QUILL} anagram triangles {here} > out", folder)
    row("anagrams of nine letters", ours, "an", peers("an", "an -d words -l 1 triangles > out"))
    row("anagrams of nine letters", ours, "wordplay",
        peers("wordplay", "wordplay triangles -m1 -f words > out"))
    ours = seconds(f"{QUILL} dict build new.dic shuffled", folder)
    row("a dictionary of shuffled words", ours, "sort", peers("sort", "LC_ALL=C sort -u shuffled > out"))
    row("a dictionary of shuffled words", ours, "aspell",
        peers("aspell", "aspell --lang=en create master ./new.rws < shuffled"))


def spelling(folder):
    grid = DATA / "misspelt15.qmg"
    drawn = subprocess.run([QUILL, "grid", "words", grid], capture_output=True, text=True, check=True)
    (folder / "asked").write_text(drawn.stdout)
    if shutil.which("aspell"):
        row("suggestions for a misspelt grid",
            seconds(f"{QUILL} spell {grid} --dictionaries {DATA} --dict Puzzle-UK > out", folder), "aspell",
            seconds("aspell -a --lang=en --sug-mode=ultra < asked > out", folder))


def fills(folder):
    barred = subprocess.run([QUILL, "grid", "draw", DATA / "barred12.qmg"], capture_output=True,
                            text=True, check=True).stdout
    head, _, edges = barred.partition("\n\n")
    grids = {"15 by 15, every cell checked": BLOCKS15, "15 by 15, every second checked": OPEN15,
             "12 by 12 with bars": re.sub(r"[^#\n]", ".", head) + "\n\n" + edges,
             "21 by 21, every cell checked": BLOCKS21}
    for name, picture in grids.items():
        (folder / "fill.txt").write_text(picture)
        subprocess.run([QUILL, "grid", "build", "fill.qmg", "fill.txt"], cwd=folder, check=True,
                       capture_output=True)
        deck = [" ".join(f"{y:02}{x:02}" for x, y in cells) for cells in slots(picture)]
        (folder / "fill.deck").write_text(".RANDOM 1\n" + "\n".join(deck) + "\n")
        ours = [seconds(f"{QUILL} fillgrid fill.qmg -o f.qmg --seed {seed} --seconds {LONGEST} "
                        f"--dictionaries {DATA} --dict MainDict", folder, 1) for seed in (1, 2, 3)]
        row("a fill, " + name, sorted(ours)[1], "qxw",
            seconds("qxw -b -d all fill.deck > out", folder, 1) if shutil.which("qxw") else None)


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        words = (DATA / "Puzzle-UK.txt").read_text(encoding="cp1252").splitlines()
        (folder / "words").write_text("\n".join(words) + "\n")
        shutil.copy(DATA / "MainDict.txt", folder / "all")
        lookups(folder, words)
        spelling(folder)
        fills(folder)


main()
