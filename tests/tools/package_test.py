#!/usr/bin/env python3
"""The installer and the archive, as a user meets them: installed, run, installed
again over what the user has added, and removed.

usage: package_test.py ROOT BUILD FOLDER   - packs BUILD into FOLDER

It changes the registry of its Wine prefix: run it in a session of its own.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile

ROOT, BUILD, OUT = map(pathlib.Path, sys.argv[1:4])
WINE = "/usr/lib/wine/wine64"
DRIVE = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c"
DICTIONARIES = r"\Software\Orchardlight\Dictionaries"
APPPATHS = r"\Software\Microsoft\Windows\CurrentVersion\App Paths\Quillmere.exe"
CLASSES = r"\Software\Classes"
UNINSTALL = r"\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillmere"
SHIPPED = ["MainDict", "MainDict-UK", "MainDict-US", "Puzzle-UK", "Puzzle-US"]


def wine(*words, check=True):
    # Into a file: what a program leaves running in the background would hold a
    # pipe open.
    with tempfile.TemporaryFile() as told:
        run = subprocess.run([WINE, *map(str, words)], stdout=told, stderr=subprocess.STDOUT,
                             timeout=120)
        told.seek(0)
        text = told.read().decode("cp1252", "replace").replace("\r\n", "\n")
    if check and run.returncode:
        raise AssertionError(f"{words}: {run.returncode}\n{text}")
    return text


def registered(key, name=None, root="HKLM"):
    """A value of the registry, the default one without a name; None for none."""
    told = wine("reg", "query", root + key, *(["/v", name] if name else ["/ve"]), check=False)
    match = re.search(r"REG_\w+ +(.*)", told)
    return match[1].strip() if match else None


def tree(folder):
    return {str(path.relative_to(folder)) + ("/" if path.is_dir() else "")
            for path in folder.rglob("*")}


def waitfor(condition, seconds=30):
    end = time.monotonic() + seconds
    while not (held := condition()) and time.monotonic() < end:
        time.sleep(0.1)
    return held  # asking again may find it past


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        for folder in OUT / "again", OUT:
            run = subprocess.run([ROOT / "tools" / "package", BUILD, folder], capture_output=True, text=True)
            assert run.returncode == 0, run.stdout + run.stderr
        cls.setup, = OUT.glob("*-setup.exe")
        cls.archive, = OUT.glob("*.zip")
        with zipfile.ZipFile(cls.archive) as packed:
            assert packed.testzip() is None
            cls.packed = {info.filename.removeprefix("Quillmere/") for info in packed.infolist()} - {""}

    def registeredat(self, folder, root="HKLM"):
        self.assertEqual(registered(DICTIONARIES, None, root), folder + r"\Dictionaries")
        self.assertEqual(registered(APPPATHS, None, root), folder + r"\quillmere.exe")
        self.assertEqual(registered(APPPATHS, "Path", root), folder)

    def nothingregistered(self):
        for root in "HKLM", "HKCU":
            self.assertIsNone(registered(DICTIONARIES, None, root))
            self.assertIsNone(registered(APPPATHS, "Path", root))
            self.assertIsNone(registered(CLASSES + r"\.qmg", None, root))

    def starts(self, program="quillmere.exe"):
        """By its name alone, which the registry resolves; closed as by a user."""
        # It would hold a pipe open as long as it runs.
        subprocess.run([WINE, "start", program], stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, timeout=60, check=True)
        closed = lambda: "Close message sent" in wine("taskkill", "/im", "quillmere.exe", check=False)
        self.assertTrue(waitfor(closed), "it never ran")
        self.assertTrue(waitfor(lambda: not closed()), "it doesn't end")

    def test_what_is_packed(self):
        for name in ("quillmere.exe", "quill.exe", "Quillmere.chm", "Quillmere.html", "LICENSE.txt",
                     "ReadMe.txt", "register.cmd", "Choices/", "Default/", "Samples/crossword13.qmg",
                     "Dictionaries/copyright-scowl.txt", *(f"Dictionaries/{n}.dic" for n in SHIPPED)):
            self.assertIn(name, self.packed)
        self.assertFalse([name for name in self.packed if re.match("(Choices|Default)/.", name)])

    def test_packing_again_gives_the_same_bytes(self):
        for packed in self.setup, self.archive:
            self.assertEqual((OUT / "again" / packed.name).read_bytes(), packed.read_bytes())

    def test_installed_and_removed(self):
        place, windows = DRIVE / "Puzzles", r"C:\Puzzles"
        wine(self.setup, "/S", "/D=" + windows)
        self.assertEqual(tree(place), self.packed - {"register.cmd"} | {"uninstall.exe"})
        self.registeredat(windows)
        self.assertEqual(registered(CLASSES + r"\.qmg"), "Quillmere.Grid")
        self.assertEqual(registered(CLASSES + r"\Quillmere.Grid\shell\open\command"),
                         rf'"{windows}\quillmere.exe" "%1"')
        self.assertEqual(registered(CLASSES + r"\Quillmere.Grid\DefaultIcon"),
                         rf"{windows}\quillmere.exe,0")
        shortcuts = DRIVE / "ProgramData/Microsoft/Windows/Start Menu/Programs/Quillmere"
        self.assertEqual(tree(shortcuts), {"Quillmere.lnk", "Manual.lnk"})
        self.starts()

        # What the user has added stays through an installation over this one.
        quill, puzzle = place / "quill.exe", place / "Dictionaries" / "Puzzle-UK.dic"
        wine(quill, "dict", "add", puzzle, "zzquillmere")
        shutil.copy(puzzle, place / "Dictionaries" / "Mine.dic")
        (place / "Quillmere.chm").write_bytes(b"of an older version")
        wine(self.setup, "/S")  # it knows where
        self.assertIn("zzquillmere", wine(quill, "dict", "find", puzzle, "zzquillmere"))
        self.assertEqual((place / "Quillmere.chm").read_bytes(),
                         (OUT / "manual" / "Quillmere.chm").read_bytes())

        # It goes on from a copy of itself, so that it can go too.
        wine(place / "uninstall.exe", "/S")
        waitfor(lambda: not shortcuts.exists() and registered(UNINSTALL, "DisplayName") is None)
        self.assertEqual(tree(place), {"Dictionaries/", "Dictionaries/Mine.dic"})
        self.nothingregistered()
        self.assertFalse(shortcuts.exists())

    def test_installed_for_one_user(self):
        wine(self.setup, "/S", "/user")
        place, = DRIVE.glob("users/*/AppData/Local/Programs/Quillmere")
        windows = "C:\\" + str(place.relative_to(DRIVE)).replace("/", "\\")
        self.assertEqual(tree(place), self.packed - {"register.cmd"} | {"uninstall.exe"})
        self.registeredat(windows, "HKCU")
        self.assertIsNone(registered(DICTIONARIES))
        self.assertEqual(registered(CLASSES + r"\Quillmere.Grid\shell\open\command", None, "HKCU"),
                         rf'"{windows}\quillmere.exe" "%1"')
        self.starts(windows + r"\quillmere.exe")  # Wine looks for names in all users' part alone
        wine(place / "uninstall.exe", "/S")
        waitfor(lambda: not place.exists())
        self.assertFalse(place.exists())
        self.nothingregistered()

    def test_unpacked_and_registered(self):
        with zipfile.ZipFile(self.archive) as packed:
            packed.extractall(DRIVE / "My tools")
        windows = r"C:\My tools\Quillmere"
        for word, root in (("/quiet", "HKLM"), ("/user", "HKCU")):
            wine("cmd", "/c", windows + r"\register.cmd", word)
            self.registeredat(windows, root)
            self.starts(*[windows + r"\quillmere.exe"] * (root == "HKCU"))
            wine("cmd", "/c", windows + r"\register.cmd", "/remove")
            self.nothingregistered()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
