#!/usr/bin/env python3
"""The manual as its readers get it: the help file unpacked by another program,
the one page for browsers, and whether they tell of all that the program shows.

usage: manual_test.py ROOT FOLDER   - of the sources, and of the made manual
"""
import base64
import html.parser
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT, MADE = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
IMAGES = {path.name: path.read_bytes() for path in (ROOT / "docs" / "images").glob("*.png")}
FOLDERS = ["app", "base", "desktop", "dict", "find", "graphics", "grid", "output"]

# Errors that are made and that nobody sees: what was cancelled needs no message, and
# neither does a field that was left empty.
UNSEEN = {"ESCAN", "ELCAN", "EREP"}
# A question that a program of several documents would ask.
NEVERASKED = {"FS09"}
# Buttons of the box for questions that no question of this program has, and the
# texts that it stands there with before it is shown.
NOTSHOWN = {"Confirm": {"Cancel", "Discard", "Save", "Question"}, "Edit": {"123456"}}


class Reader(html.parser.HTMLParser):
    """A page: its ids, links, pictures, and the text under each heading."""

    def __init__(self, text):
        super().__init__()
        self.ids, self.links, self.pictures, self.sections = [], [], [], {}
        self.title, self.rows, self.sitemap = "", [], []
        self.open, self.under, self.text = [], "", ""
        self.feed(text)
        self.text = squeezed(self.text)

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if "id" in attributes:
            self.ids.append(attributes["id"])
        if tag == "a":
            self.links.append(attributes["href"])
        if tag == "img":
            self.pictures.append(attributes)
        if tag == "param" and attributes["name"] == "Name":
            self.sitemap.append((attributes["value"], None))
        if tag == "param" and attributes["name"] == "Local":
            self.sitemap[-1] = (self.sitemap[-1][0], attributes["value"])
        if tag in ("h1", "h2"):
            self.under = ""
        if tag == "tr":
            self.rows.append([])
        if tag in ("td", "th"):
            self.rows[-1].append("")
        if tag not in ("img", "meta", "param", "br", "hr"):
            self.open.append(tag)

    def handle_endtag(self, tag):
        while self.open and self.open.pop() != tag:
            pass

    def handle_data(self, data):
        if "style" in self.open:
            return
        if "title" in self.open:
            self.title += data
            return
        if {"h1", "h2"} & set(self.open):
            self.under += data
        if {"td", "th"} & set(self.open):
            self.rows[-1][-1] += data
        self.text += data
        self.sections[self.under] = self.sections.get(self.under, "") + data


def squeezed(text):
    return " ".join(text.split())


class HelpFile(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.place = pathlib.Path(folder.name)
        run = subprocess.run(["extract_chmLib", MADE / "Quillmere.chm", cls.place],
                             capture_output=True, text=True)
        assert run.returncode == 0, run.stderr
        cls.pages = {path.name: Reader(path.read_text(encoding="cp1252"))
                     for path in cls.place.glob("*.html")}

    def target(self, link):
        file, _, anchor = link.partition("#")
        self.assertIn(file, self.pages, link)
        if anchor:
            self.assertIn(anchor, self.pages[file].ids, link)
        return file

    def sitemap(self, name):
        return Reader((self.place / name).read_text(encoding="cp1252")).sitemap

    def test_contents_and_index_lead_to_every_page(self):
        sources = {path.stem + ".html" for path in (ROOT / "docs" / "manual").glob("*.md")}
        self.assertEqual(set(self.pages), sources - {"contents.html"})
        titles = [page.title for page in self.pages.values()]
        self.assertEqual(len(set(titles) - {""}), len(self.pages))
        rows = [row for row in self.sitemap("contents.hhc") if row[1]]
        self.assertEqual(sorted(self.target(target) for _, target in rows), sorted(self.pages))
        for title, target in rows:
            self.assertEqual(title, self.pages[target].title)
        rows = self.sitemap("index.hhk")
        self.assertGreater(len(rows), 100)
        self.assertEqual({self.target(target) for _, target in rows}, set(self.pages))
        words = [word.lower() for word, _ in rows]
        self.assertEqual(words, sorted(words))
        self.assertEqual(len(set(rows)), len(rows), "a word leads to one place twice")
        system = (self.place / "#SYSTEM").read_bytes()
        for text in (b"contents.hhc\0", b"index.hhk\0", b"index.html\0", b"Quillmere\0"):
            self.assertIn(text, system)

    def test_links_and_pictures_are_there(self):
        pictures = set()
        for name, page in self.pages.items():
            self.assertEqual(len(set(page.ids)), len(page.ids), f"{name}: an id twice")
            for link in page.links:
                self.target(link if not link.startswith("#") else name + link)
            for picture in page.pictures:
                self.assertTrue(picture["alt"], f"{name}: {picture['src']} says nothing")
                pictures.add(picture["src"])
        self.assertGreater(len(pictures), 10)
        for name in pictures:
            self.assertEqual((self.place / name).read_bytes(), IMAGES[name], name)

    def test_one_page_has_everything(self):
        page = Reader((MADE / "Quillmere.html").read_text(encoding="utf-8"))
        self.assertEqual(len(set(page.ids)), len(page.ids))
        self.assertGreater(len(page.links), 40)
        self.assertEqual({link[0] for link in page.links}, {"#"})
        self.assertEqual({link[1:] for link in page.links} - set(page.ids), set())
        for picture in page.pictures:
            kind, _, data = picture["src"].partition(",")
            self.assertEqual(kind, "data:image/png;base64")
            self.assertIn(base64.b64decode(data, validate=True), IMAGES.values(), picture["alt"])
        for name in (MADE / "pages").glob("*.html"):
            self.assertTrue(made(name.stem).text in page.text, name.name)


def made(name):
    return Reader((MADE / "pages" / (name + ".html")).read_text(encoding="cp1252"))


def resource(name):
    return (ROOT / "resources" / name).read_text(encoding="cp1252")


def unquoted(text):
    """A resource's string as it is shown: without the marks of its keys."""
    return text.replace('""', '"').replace("\\\\", "\\").replace("&", "")


class Told(unittest.TestCase):
    """What the program shows, by its own resources, is what the manual tells."""

    def test_every_menu_entry(self):
        entries = re.findall(r'\b(?:MENUITEM|POPUP) "(.*?)"', resource("menus.rc"))
        self.assertGreater(len(entries), 30)
        page = made("menus")
        heads = {squeezed(row[0]) for row in page.rows if row} | set(page.sections)
        for entry in entries:
            if entry == "DIct":  # nobody sees the name of the menu on a list
                continue
            text, _, key = unquoted(entry.replace("\\t", "\t")).partition("\t")
            self.assertIn(f"{text} ({key})" if key else text, heads)

    def test_every_dialog_and_button(self):
        dialogs, window = made("dialogs"), made("window").text
        found = re.findall(r'^(\w+) DIALOGEX(?:[^{]*?^CAPTION "(.*?)")?[^{]*?^\{(.*?)^\}',
                           resource("templates.rc"), re.S | re.M)
        self.assertGreater(len(found), 8)
        for name, caption, controls in found:
            bar = re.fullmatch(r"buttons\d?", name)
            if name == "main" or not bar and not caption:
                continue
            caption = {"About": "About Quillmere"}.get(caption, caption)
            told = window if bar else squeezed(dialogs.sections[caption])
            for label in re.findall(r'^ +(?:LTEXT|PUSHBUTTON|DEFPUSHBUTTON|AUTOCHECKBOX|GROUPBOX|RTEXT)'
                                    r' "(.*?)"', controls, re.M):
                label = unquoted(label).strip()
                if label in NOTSHOWN.get(caption, ()) or label in ("OK", "Cancel", ""):
                    continue
                self.assertTrue(label in told, f"{caption or name} has {label}")

    def test_every_message(self):
        texts = dict(line.split(":", 1) for line in reversed(resource("Messages.txt").splitlines())
                     if re.match(r"[A-Z0-9]+:", line))
        paths = [path for folder in FOLDERS for path in (ROOT / folder).rglob("*.cpp")
                 if path.name not in ("apperrors.cpp", "librarytable.cpp")]
        sources = "\n".join(path.read_text(encoding="utf-8") for path in paths)
        seen = self.keysseen(sources) - UNSEEN
        self.assertTrue({"ENMW", "EDAX", "EWR", "ENUD", "SPNONE", "FS10"} <= seen)
        # A key without a text is itself what is shown.
        shown = {texts.get(key, key) for key in seen}
        told = made("messages").text
        for text in sorted(shown | set(re.findall(r'reportf\(0, "(.*?)"', sources))):
            pattern = ".*?".join(map(re.escape, re.split(r"%[sd]", text)))
            self.assertTrue(re.search(pattern, told), f"{text} is not told of")

    def keysseen(self, sources):
        """The keys of the errors that some code makes, and of the questions."""
        rows = "".join((ROOT / path).read_text(encoding="utf-8")
                       for path in ("app/apperrors.cpp", "base/librarytable.cpp"))
        seen = {key for code, key in re.findall(r'\{(\w+), "\{(\w+)\}"\}', rows)
                if not code.isdigit() and re.search(rf"\bmakeerrorf?\({code}\b", sources)}
        questions = re.findall(r'\b(?:askbox|confirm|nonewwords)\([^;]*?\{(\w+)\}', sources)
        return seen | set(questions) - NEVERASKED


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
