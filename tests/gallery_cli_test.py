#!/usr/bin/env python3
"""The program `brisel` from outside: exit statuses, complaints of one line, whole files or none, and a style guide in
which everything that is referred to exists.

Usage: gallery_cli_test.py <the program>
"""

import html.parser
import os
import pathlib
import re
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = pathlib.Path(sys.argv.pop()).resolve()


def run(*arguments, **options):
    return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, timeout=120, **options)


def png_size(path):
    head = path.read_bytes()[:24]
    assert head[:8] == b"\x89PNG\r\n\x1a\n" and head[12:16] == b"IHDR", path
    return struct.unpack(">II", head[16:24])


class References(html.parser.HTMLParser):
    """Files that a page refers to, its fragments, the sizes that it states for pictures, and its generator."""

    def __init__(self, path):
        super().__init__()
        self.files, self.ids, self.links, self.pictures = set(), set(), [], []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if "id" in values:
            assert values["id"] not in self.ids, f"twice: {values['id']}"
            self.ids.add(values["id"])
        for name in ("src", "href"):
            if name in values:
                self.links.append(values[name])
        if tag == "img":
            width, height = int(values["width"]), int(values["height"])
            self.pictures.append((values["src"], width, height))
            self.pictures.append((values["srcset"].removesuffix(" 2x"), 2 * width, 2 * height))
            if "data-picture" in values:
                for category, size in zip(CATEGORIES, values["data-sizes"].split(), strict=True):
                    width, height = map(int, size.split("x"))
                    stem = f"{values['data-picture']}-{category}"
                    self.pictures.append((stem + ".png", width, height))
                    self.pictures.append((stem + "@2x.png", 2 * width, 2 * height))


CATEGORIES = ["extraSmall", "small", "medium", "large", "extraLarge", "extraExtraLarge", "extraExtraExtraLarge"] + [
    "accessibility" + step for step in ("Medium", "Large", "ExtraLarge", "ExtraExtraLarge", "ExtraExtraExtraLarge")]


class CommandLine(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def assert_complaint(self, result, status, words):
        self.assertEqual(result.returncode, status, result.stderr)
        self.assertRegex(result.stderr, r"\Abrisel: [^\n]+\n\Z")
        self.assertIn(words, result.stderr)
        self.assertEqual(result.stdout, "")

    def test_help_and_version_are_printed(self):
        self.assertRegex(run("--version").stdout, r"\Abrisel \d+\.\d+\.\d+\n\Z")
        self.assertIn("brisel gallery --out DIR", run("--help").stdout)
        self.assertIn("--style NAME", run("text", "--help").stdout)
        self.assertIn("--out DIR", run("gallery", "--help").stdout)
        self.assertEqual(run("--help").returncode, 0)

    def test_what_is_not_understood_is_said_in_one_line(self):
        picture = self.folder / "a.png"
        for arguments, words in [
            ([], "a command is missing"),
            (["paint"], "unknown command"),
            (["gallery"], "--out"),
            (["gallery", "--out", self.folder / "site", "--fast"], "unknown option --fast"),
            (["text", "a"], "needs -o FILE"),
            (["text", "a", "--style", "polka", "-o", picture], 'no style is called "polka"'),
            (["text", "a", "--style", "Ballad Bold", "-o", picture], "no style is called"),
            (["text", "a", "--category", "huge", "-o", picture], 'no category is called "huge"'),
            (["text", "a", "--color", "#12345", "-o", picture], 'no colour is called "#12345"'),
            (["text", "a", "--background", "gray8", "-o", picture], 'no colour is called "gray8"'),
            (["text", "a", "--width", "-3", "-o", picture], "--width takes a number"),
            (["text", "a", "--scale", "two", "-o", picture], "--scale takes a number"),
        ]:
            with self.subTest(arguments=arguments):
                self.assert_complaint(run(*arguments), 2, words)
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_a_text_is_drawn_at_its_width_and_scale(self):
        picture = self.folder / "a.png"
        result = run("text", "Six quavers and a key", "--style", "ballad", "--category", "accessibilityLarge",
                     "--width", "120", "--scale", "2", "-o", picture)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        width, height = png_size(picture)
        self.assertEqual(width, 240)
        self.assertGreater(height, 2 * 2 * 33)  # 33.2 points, on several lines
        self.assertEqual(os.listdir(self.folder), ["a.png"])

    def test_a_text_grows_with_style_and_category(self):
        heights = []
        for style, category in [("minuet", "extraSmall"), ("ballad", "large"),
                                ("ballad", "UIContentSizeCategoryAccessibilityLarge"), ("bass", "large")]:
            picture = self.folder / "a.png"
            self.assertEqual(run("text", "x", "--style", style, "--category", category, "-o", picture).returncode, 0)
            heights.append(png_size(picture)[1])
        self.assertEqual(heights, sorted(set(heights)))

    def test_a_colour_makes_a_difference_and_the_same_colour_none(self):
        pictures = {}
        for name, colour in [("named", "green"), ("hex", "#1DB954"), ("other", "red100")]:
            self.assertEqual(run("text", "x", "--color", colour, "-o", self.folder / name).returncode, 0)
            pictures[name] = (self.folder / name).read_bytes()
        self.assertEqual(pictures["named"], pictures["hex"])
        self.assertNotEqual(pictures["named"], pictures["other"])

    def test_what_cannot_be_written_leaves_nothing_behind(self):
        self.assert_complaint(run("text", "a", "-o", self.folder / "none" / "a.png"), 1, "cannot write")
        self.assert_complaint(run("text", "a", "-o", self.folder), 1, "not a regular file")
        self.assert_complaint(run("text", "x" * 4000, "--style", "bass", "--scale", "16", "-o", self.folder / "a.png"),
                              1, "32767")
        (self.folder / "letters").mkdir()
        (self.folder / "letters" / "dear.txt").write_text("dear")
        self.assert_complaint(run("gallery", "--out", self.folder / "letters"), 1, "it holds other files")
        self.assert_complaint(run("gallery", "--out", self.folder / "letters" / "dear.txt"), 1, "not a directory")
        self.assertEqual([str(p.relative_to(self.folder)) for p in sorted(self.folder.rglob("*"))],
                         ["letters", "letters/dear.txt"])

    def test_an_interrupted_style_guide_leaves_nothing_behind(self):
        with subprocess.Popen([PROGRAM, "gallery", "--out", self.folder / "site"], stderr=subprocess.PIPE) as process:
            deadline = time.monotonic() + 60
            while not list(self.folder.glob(".site.*/pictures")) and time.monotonic() < deadline:
                time.sleep(0.01)
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.communicate(timeout=60)[1], b"brisel: interrupted\n")
            self.assertEqual(process.returncode, 130)
        self.assertEqual(list(self.folder.iterdir()), [])


class StyleGuide(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.site = pathlib.Path(folder.name) / "deep" / "site"
        cls.result = run("gallery", "--out", cls.site)
        cls.pages = {path.name: References(path) for path in cls.site.glob("*.html")}

    def test_is_written_quietly_where_nobody_watches(self):
        self.assertEqual((self.result.returncode, self.result.stdout, self.result.stderr), (0, "", ""))
        self.assertEqual(sorted(self.pages), ["colours.html", "index.html", "type.html"])
        self.assertEqual(os.listdir(self.site.parent), ["site"])

    def test_refers_to_nothing_that_is_not_there(self):
        for name, page in self.pages.items():
            for link in page.links:
                file, _, fragment = link.partition("#")
                with self.subTest(page=name, link=link):
                    self.assertTrue((self.site / (file or name)).is_file())
                    if fragment:
                        self.assertIn(fragment, self.pages[file or name].ids)
        styles = (self.site / "site/page.css").read_text()
        for face in re.findall(r'url\("([^"]+)"\)', styles):
            self.assertTrue((self.site / "site" / face).is_file(), face)

    def test_states_the_size_of_every_picture(self):
        stated = set()
        for page in self.pages.values():
            for file, width, height in page.pictures:
                self.assertEqual(png_size(self.site / file), (width, height), file)
                stated.add(self.site / file)
        self.assertEqual(set(self.site.rglob("*.png")), stated)
        self.assertEqual(len(list(self.site.glob("pictures/colours/*.png"))), 2 * 312)
        self.assertEqual(len(list(self.site.glob("pictures/type/*.png"))), 2 * 19 * 12)
        self.assertEqual(len(list(self.site.glob("pictures/scripts/*.png"))), 2 * 12 * 12)

    def test_defines_every_property_that_its_style_sheet_uses(self):
        used = set(re.findall(r"var\((--[\w-]+)\)", (self.site / "site/page.css").read_text()))
        defined = set(re.findall(r"(--[\w-]+):", (self.site / "site/ground.css").read_text()))
        self.assertGreater(len(used), 20)
        self.assertEqual(used - defined, set())

    def test_takes_colours_and_gaps_from_the_library_alone(self):
        for line in (self.site / "site/page.css").read_text().splitlines():
            self.assertNotRegex(line, r"#[0-9a-fA-F]{3,8}\b|rgba?\(|hsla?\(")
            for rule in re.findall(r"(?:padding|margin|gap)[\w-]*: ([^;]+)", line):
                self.assertNotRegex(rule, r"\d(?:px|rem|em)", line)

    def test_is_small(self):
        self.assertLess(sum(path.stat().st_size for path in self.site.rglob("*") if path.is_file()), 25_000_000)

    def test_is_the_same_each_time(self):
        def contents():
            return {path.relative_to(self.site): path.read_bytes() for path in self.site.rglob("*") if path.is_file()}

        before = contents()
        (self.site / "outdated.html").write_text("")
        self.assertEqual(run("gallery", "--out", self.site).returncode, 0)
        self.assertEqual(contents(), before)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
