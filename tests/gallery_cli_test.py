#!/usr/bin/env python3
"""The program `brisel` from outside: exit statuses, complaints of one line, whole files or none, and a style guide in
which everything that is referred to exists.

Usage: gallery_cli_test.py <the program>
"""

import html.parser
import json
import os
import pathlib
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zlib

PROGRAM = pathlib.Path(sys.argv.pop()).resolve()
SOURCES = pathlib.Path(__file__).resolve().parent.parent


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
                for category, size in zip(GROWING, values["data-sizes"].split(), strict=True):
                    width, height = map(int, size.split("x"))
                    stem = f"{values['data-picture']}-{category}"
                    self.pictures.append((stem + ".png", width, height))
                    self.pictures.append((stem + "@2x.png", 2 * width, 2 * height))


CATEGORIES = ["extraSmall", "small", "medium", "large", "extraLarge", "extraExtraLarge", "extraExtraExtraLarge"] + [
    "accessibility" + step for step in ("Medium", "Large", "ExtraLarge", "ExtraExtraLarge", "ExtraExtraExtraLarge")]
GROWING = CATEGORIES[:10]  # no style is larger in the two behind them, which share the picture of the last of these


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
        self.assertIn("--design DESIGN", run("icon", "--help").stdout)
        self.assertIn("--json", run("icons", "--help").stdout)
        self.assertIn("2 trouble", run("compare", "--help").stdout)
        self.assertIn("--grid COLOR", run("scale", "--help").stdout)
        self.assertIn("--format FORMAT", run("tokens", "--help").stdout)
        self.assertIn("the poorer ratio counts", run("contrast", "--help").stdout.replace("\n", " "))
        self.assertIn("--text-size CATEGORY", run("window", "--help").stdout)
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
            (["icon", "hart", "-o", picture], 'no icon is called "hart"; near it are heart'),
            (["icon", "VLMBriselIconHart", "-o", picture], "near it are heart"),
            (["icon", "none", "-o", picture], 'no icon is called "none"'),
            (["icon", "x" * 100_000, "-o", picture], "no icon is called"),
            (["icon", "heart", "--color", "mauve", "-o", picture], 'no colour is called "mauve"'),
            (["scale", picture, "8", "--grid", "mauve", "-o", picture], 'no colour is called "mauve"'),
            (["scale", picture, "0", "-o", picture], "the factor is a whole number"),
            (["compare", picture], "compare takes two pictures"),
            (["compare", picture, picture, "--accuracy", "2"], "--accuracy takes a number from 0 to 1"),
            (["contrast", "--set", "light"], 'no colour set is called "light"'),
            (["contrast", "--role", "all"], "--role takes text or essential"),
            (["contrast", "--min", "0"], "--min takes a number from 1 to 21"),
            (["tokens"], "tokens needs --format dtcg, css or json"),
            (["tokens", "--format", "DTCG", "-o", picture], '--format takes dtcg, css or json, not "DTCG"'),
            (["tokens", "--format", "dtcg"], "tokens --format dtcg needs -o DIR"),
            (["tokens", "--format", "css", "gray7"], 'tokens takes no argument "gray7"'),
            (["window", "--size", "100x100", "--screenshot", picture], "--size takes a width"),
            (["window", "--set", "light", "--screenshot", picture], 'no colour set is called "light"'),
            (["window", "--set", "light"], 'no colour set is called "light"'),
            (["window", "--text-size", "huge", "--screenshot", picture], 'no category is called "huge"'),
            (["window", "--direction", "up"], "--direction takes ltr or rtl"),
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

    def test_an_icon_is_drawn_under_any_of_its_names(self):
        pictures = []
        for name in ["heart", "Heart", "VLMBriselIconHeart"]:
            picture = self.folder / "a.png"
            result = run("icon", name, "--size", "24", "--scale", "3", "--color", "#1ED760", "-o", picture)
            self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
            self.assertEqual(png_size(picture), (72, 72))
            pictures.append(picture.read_bytes())
        self.assertEqual(len(set(pictures)), 1)
        for name in ["delete", "delete_", "public", "public_", "playbackSpeed0Point5X", "plus2Px"]:
            self.assertEqual(run("icon", name, "-o", self.folder / "b.png").returncode, 0, name)

    def test_an_icon_has_the_design_for_its_size_unless_told(self):
        def drawn(*options):
            self.assertEqual(run("icon", "heart", *options, "-o", self.folder / "a.png").returncode, 0)
            return (self.folder / "a.png").read_bytes()

        for size, own, other in [("16", "x16", "x24"), ("16.1", "x24", "x16")]:
            chosen = drawn("--size", size, "--scale", "10")
            self.assertEqual(chosen, drawn("--size", size, "--scale", "10", "--design", own))
            self.assertNotEqual(chosen, drawn("--size", size, "--scale", "10", "--design", other))
        self.assertNotEqual(drawn(), drawn("--background", "black"))

    def test_icons_are_listed_in_the_order_of_their_numbers(self):
        listed = json.loads(run("icons", "--json").stdout)
        self.assertEqual([icon["number"] for icon in listed], list(range(1, len(listed) + 1)))
        rows = (SOURCES / "brisel/icons/icons.def").read_text().count("\nBRISEL_ICON(")
        self.assertEqual(len(listed), rows)
        self.assertEqual(listed[1], {
            "accessor": "addCalendar", "cppAccessor": "Brisel::Icon::addCalendar()", "name": "AddCalendar",
            "constant": "VLMBriselIconAddCalendar", "number": 2, "x16": "U+F53F", "x24": "U+F540",
            "autoMirror": False})
        by_name = {icon["accessor"]: icon for icon in listed}
        self.assertEqual(by_name["delete"]["cppAccessor"], "Brisel::Icon::delete_()")
        self.assertEqual(by_name["plus2Px"]["constant"], "VLMBriselIconPlus2px")
        self.assertEqual(sum(icon["autoMirror"] for icon in listed), 9)
        lines = run("icons").stdout.splitlines()
        self.assertEqual([line.split()[1] for line in lines], [icon["accessor"] for icon in listed])
        self.assertEqual(lines[1].split(), ["2", "addCalendar", "VLMBriselIconAddCalendar", "U+F53F", "U+F540"])

    def picture(self, name, rows):
        """A PNG file of rows of pixels, each of four bytes."""
        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

        head = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 6, 0, 0, 0)
        data = b"".join(b"\0" + b"".join(bytes(pixel) for pixel in row) for row in rows)
        path = self.folder / name
        path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(data)) +
                         chunk(b"IEND", b""))
        return path

    def test_pictures_are_compared_at_an_accuracy(self):
        grey, lighter = (100, 100, 100, 255), (100, 103, 100, 255)
        first = self.picture("a.png", [[grey, grey], [grey, grey]])
        second = self.picture("b.png", [[grey, grey], [grey, lighter]])
        for accuracy, status, text in [
            ("0", 1, "1 of 4 pixels differs; the largest difference is 3 of 255 (0.0118)\n"),
            ("0.01", 1, "1 of 4 pixels differs; the largest difference is 3 of 255 (0.0118)\n"),
            ("0.02", 0, "0 of 4 pixels differ; the largest difference is 3 of 255 (0.0118)\n"),
        ]:
            result = run("compare", first, second, "--accuracy", accuracy)
            self.assertEqual((result.returncode, result.stdout, result.stderr), (status, text, ""), accuracy)
        self.assertEqual(run("compare", first, first).returncode, 0)

    def test_pictures_of_different_sizes_differ_where_only_one_has_a_pixel(self):
        grey = (100, 100, 100, 255)
        first = self.picture("a.png", [[grey, grey], [grey, grey]])
        second = self.picture("b.png", [[grey, grey, grey]])
        result = run("compare", first, second, "--accuracy", "1", "--diff", self.folder / "diff.png")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (
            1, "3 of 5 pixels differ, the pictures being 2 x 2 and 3 x 1; "
               "the largest difference is 0 of 255 (0.0000)\n", ""))
        self.assertEqual(png_size(self.folder / "diff.png"), (3, 2))

    def test_the_difference_is_drawn_on_the_dimmed_picture(self):
        grey, lighter = (100, 100, 100, 255), (100, 103, 100, 255)
        dimmed, pink, yellow, clear = (25, 25, 25, 255), (255, 26, 191, 255), (243, 255, 70, 255), (0, 0, 0, 0)
        first = self.picture("a.png", [[grey, grey], [grey, grey]])
        second = self.picture("b.png", [[grey, lighter, grey]])
        difference = self.folder / "diff.png"
        run("compare", first, second, "--diff", difference)
        expected = self.picture("c.png", [[dimmed, pink, yellow], [yellow, yellow, clear]])
        self.assertEqual(run("compare", difference, expected).returncode, 0)

    def test_a_picture_is_enlarged_under_a_grid(self):
        red, blue = (255, 0, 0, 255), (0, 0, 255, 255)
        picture = self.picture("a.png", [[red, blue], [blue, red]])
        large = self.folder / "large.png"
        result = run("scale", picture, "3", "-o", large)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        expected = [[red] * 3 + [blue] * 3] * 3 + [[blue] * 3 + [red] * 3] * 3
        self.assertEqual(run("compare", large, self.picture("b.png", expected)).returncode, 0)
        self.assertEqual(run("scale", picture, "3", "--grid", "#FF00FF", "-o", large).returncode, 0)
        grid = (255, 0, 255, 255)
        expected = [[grid if 2 in (x, y) else expected[y][x] for x in range(6)] for y in range(6)]
        self.assertEqual(run("compare", large, self.picture("b.png", expected)).returncode, 0)
        self.assertEqual(run("scale", picture, "3", "--interpolation", "high", "-o", picture).returncode, 0)
        self.assertEqual(run("compare", large, picture).returncode, 1)

    def test_files_that_are_no_pictures_are_said_to_be_none(self):
        good = self.picture("good.png", [[(1, 2, 3, 255)]])
        bytes_ = good.read_bytes()

        def stating(side):
            """The same file, which states another size."""
            data = bytearray(bytes_)
            data[16:24] = struct.pack(">II", side, side)
            data[29:33] = struct.pack(">I", zlib.crc32(bytes(data[12:29])))
            return bytes(data)

        faulty = {"empty.png": (b"", "empty"), "text.png": (b"dear picture", "not a PNG file"),
                  "cut.png": (bytes_[:40], "damaged"), "turned.png": (bytes_.replace(b"IDAT", b"IDAZ"), "damaged"),
                  "large.png": (stating(40_000), "40000 x 40000 pixels, which is too large"),
                  "huge.png": (stating(2**31 - 1), "damaged")}
        for name, (data, words) in faulty.items():
            file = self.folder / name
            file.write_bytes(data)
            with self.subTest(file=name):
                self.assert_complaint(run("compare", file, good), 2, words)
                self.assert_complaint(run("compare", good, file), 2, name)
                self.assert_complaint(run("scale", file, "2", "-o", self.folder / "out.png"), 1, words)
        for file, words in [(self.folder / "none.png", "No such file"), (self.folder, "not a regular file"),
                            (pathlib.Path("/dev/zero"), "not a regular file")]:
            with self.subTest(file=file):
                self.assert_complaint(run("compare", file, good), 2, words)
                self.assert_complaint(run("scale", file, "2", "-o", self.folder / "out.png"), 1, words)
        self.assertFalse((self.folder / "out.png").exists())

    def test_tools_say_what_they_cannot_write(self):
        good = self.picture("good.png", [[(1, 2, 3, 255)] * 2])
        nowhere = self.folder / "none" / "a.png"
        self.assert_complaint(run("compare", good, good, "--diff", nowhere), 2, "cannot write")
        self.assert_complaint(run("compare", good, good, "--diff", self.folder), 2, "cannot write")
        self.assert_complaint(run("scale", good, "2", "-o", nowhere), 1, "cannot write")
        self.assert_complaint(run("scale", good, "32767", "-o", self.folder / "a.png"), 1, "32767")
        self.assert_complaint(run("icon", "heart", "-o", nowhere), 1, "cannot write")
        self.assert_complaint(run("icon", "heart", "--size", "4000", "--scale", "16", "-o", self.folder / "a.png"), 1,
                              "32767")
        self.assert_complaint(run("icon", "heart", "--size", "0.5", "-o", self.folder / "a.png"), 1, "no pixels")
        self.assertEqual(os.listdir(self.folder), ["good.png"])

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

    def test_tokens_are_printed_or_written_to_a_file(self):
        heads = {"css": "/* Exported by brisel. */\n:root {\n", "json": '[\n  {"name":"palette.gray7",'}
        for format, head in heads.items():
            printed = run("tokens", "--format", format)
            self.assertEqual((printed.returncode, printed.stderr), (0, ""))
            self.assertTrue(printed.stdout.startswith(head), printed.stdout[:80])
            file = self.folder / "tokens"
            written = run("tokens", "--format", format, "-o", file)
            self.assertEqual((written.returncode, written.stdout, written.stderr), (0, "", ""))
            self.assertEqual(file.read_text(), printed.stdout)
        self.assertEqual(len(json.loads(printed.stdout)), 1915)

    def test_token_files_replace_older_ones_and_nothing_else(self):
        place = self.folder / "deep" / "tokens"
        result = run("tokens", "--format", "dtcg", "-o", place)
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        names = sorted(os.listdir(place))
        self.assertEqual(len(names), 9)
        self.assertEqual(run("tokens", "--format", "dtcg", "-o", place).returncode, 0)
        self.assertEqual(sorted(os.listdir(place)), names)
        (place / "mine.tokens.json").write_text("{}")
        self.assert_complaint(run("tokens", "--format", "dtcg", "-o", place), 1, "it holds other files")
        self.assertEqual(sorted(os.listdir(place)), sorted([*names, "mine.tokens.json"]))
        self.assert_complaint(run("tokens", "--format", "dtcg", "-o", place / names[0]), 1, "not a directory")
        self.assertEqual(os.listdir(place.parent), ["tokens"])

    def test_tokens_that_cannot_be_written_are_a_failure(self):
        self.assert_complaint(run("tokens", "--format", "css", "-o", self.folder / "none" / "a.css"), 1, "cannot write")
        self.assert_complaint(run("tokens", "--format", "json", "-o", self.folder), 1, "not a regular file")
        for arguments in [("tokens", "--format", "css"), ("icons", "--json"), ("--help",)]:
            with open("/dev/full", "w") as full:
                result = subprocess.run([PROGRAM, *arguments], stdout=full, stderr=subprocess.PIPE, text=True,
                                        timeout=60)
            self.assertEqual(result.returncode, 1)
            self.assertRegex(result.stderr, r"\Abrisel: cannot write to standard output: [^\n]+\n\Z")
        self.assertEqual(os.listdir(self.folder), [])

    def contrast_pairs(self, *arguments):
        report = json.loads(run("contrast", "--json", *arguments).stdout)
        self.assertEqual((list(report), report["guidelines"]), (["method", "guidelines", "pairs"], "WCAG 2.2"))
        return report["pairs"]

    def test_complaints_send_nothing_of_a_path_to_the_terminal(self):
        dirty = os.fsencode(self.folder) + b"/no\n\x1b[31mred\xc2\x9b\xff\xc3\xa9"
        for status, arguments in [(1, ["tokens", "--format", "css", "-o", dirty + b"/x"]),
                                  (1, ["scale", dirty, "2", "-o", dirty]), (2, ["compare", dirty, dirty]),
                                  (2, ["tokens", dirty]), (2, ["icon", dirty, "-o", dirty])]:
            result = subprocess.run([PROGRAM, *arguments], capture_output=True, timeout=60)
            self.assertEqual((result.returncode, result.stdout), (status, b""), result.stderr)
            self.assertRegex(result.stderr.decode(), r"\Abrisel: [^\x00-\x1f\x7f-\x9f]+\n\Z")
            self.assertIn("/no??[31mred??é", result.stderr.decode())

    def test_contrast_is_listed_for_every_pair_of_every_set(self):
        pairs = self.contrast_pairs()
        self.assertEqual(len({(pair["set"], pair["foreground"], pair["background"]) for pair in pairs}), 25 * 14 * 12)
        self.assertEqual(len({pair["set"] for pair in pairs}), 25)
        for pair in pairs:
            is_text = pair["foreground"].startswith("text.")
            levels = [(7, "AAA"), (4.5, "AA"), (3, "AA large")] if is_text else [(3, "AA")]
            level = next((level for least, level in levels if pair["ratio"] >= least), "fail")
            self.assertEqual(pair["level"], level, pair)
        self.assertIn({"set": "base", "foreground": "text.base", "background": "background.press", "ratio": 21,
                       "level": "AAA"}, pairs)
        essentials = self.contrast_pairs("--set", "tierEstiva", "--role", "essential")
        self.assertEqual(essentials, [pair for pair in pairs if pair["set"] == "tierEstiva"
                                      and pair["foreground"].startswith("essential.")])

    def test_the_contrast_tables_hold_the_same_pairs_cut_off_to_two_decimals(self):
        result = run("contrast")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertLessEqual(max(map(len, result.stdout.splitlines())), 120)
        cells = {}
        for block in result.stdout.split("\n\n"):
            title, head, *rows = block.splitlines()
            self.assertEqual(len(rows), 12)
            name, role = title.split(", ")
            columns = [(match.start(), match[0]) for match in re.finditer(r"\w+", head)]
            for row in rows:
                background = "background." + row.split()[0]
                for start, column in columns:
                    ratio, level = row[start:start + 12].split()
                    cells[name, f"{role}.{column}", background] = (ratio, level)
        for pair in self.contrast_pairs():
            ratio, level = cells.pop((pair["set"], pair["foreground"], pair["background"]))
            self.assertRegex(ratio, r"\A\d+\.\d\d\Z")
            self.assertTrue(0 <= pair["ratio"] - float(ratio) < 0.01, pair)
            self.assertEqual(level, "large" if pair["level"] == "AA large" else pair["level"])
        self.assertEqual(cells, {})

    def test_contrast_below_a_minimum_is_a_failure_that_names_the_pairs(self):
        arguments = ("contrast", "--set", "base", "--role", "text")
        table = run(*arguments).stdout
        passed = run(*arguments, "--min", "4.47")
        self.assertEqual((passed.returncode, passed.stdout, passed.stderr), (0, table, ""))
        failed = run(*arguments, "--min", "4.5")
        self.assertEqual((failed.returncode, failed.stdout), (1, table))
        self.assertEqual(failed.stderr, """brisel: 4 of 84 pairs are below 4.5:
  base: text.negative on background.elevated.highlight, 4.47
  base: text.announcement on background.elevated.highlight, 4.47
  base: text.negative on background.tinted.highlight, 4.49
  base: text.announcement on background.tinted.highlight, 4.49
""")
        machine = run("contrast", "--json", "--min", "21")
        self.assertEqual(machine.returncode, 1)
        below = [pair for pair in json.loads(machine.stdout)["pairs"] if pair["ratio"] < 21]
        self.assertTrue(machine.stderr.startswith(f"brisel: {len(below)} of 4200 pairs are below 21:\n"))
        self.assertEqual(len(machine.stderr.splitlines()), 1 + len(below))

    def window(self, *options, **environment):
        """The bytes of a screenshot, drawn where there is neither a display nor a session."""
        picture = self.folder / "window.png"
        bare = {name: value for name, value in os.environ.items()
                if name not in ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR")}
        result = run("window", *options, "--screenshot", picture, env=dict(bare, **environment))
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        return picture.read_bytes()

    def test_a_screenshot_is_as_large_as_told(self):
        for options, size in [([], (960, 720)), (["--size", "480x320"], (480, 320)),
                              (["--size=480x320", "--scale", "2"], (960, 640)),
                              (["--size", "333x241", "--scale", "1.5"], (500, 362))]:
            self.window(*options)
            self.assertEqual(png_size(self.folder / "window.png"), size)
        heights = []
        for category in ["extraSmall", "large", "accessibilityExtraLarge"]:
            self.window("--size", "480", "--text-size", category)
            heights.append(png_size(self.folder / "window.png")[1])
        self.assertEqual(heights, sorted(set(heights)))

    def test_a_screenshot_is_what_its_options_say_and_nothing_else(self):
        usual = self.window()
        self.assertEqual(self.window("--text-size", "large", "--set", "base", "--direction", "ltr", "--scale", "1"), usual)
        self.assertEqual(self.window("--text-size", "UIContentSizeCategoryLarge"), usual)
        self.assertEqual(self.window(XDG_CURRENT_DESKTOP="GNOME", LC_ALL="C.UTF-8"), usual)
        others = {self.window(*options) for options in [("--text-size", "small"), ("--set", "warning"),
                                                        ("--direction", "rtl"), ("--set", "tierAurel")]}
        self.assertEqual(len(others | {usual}), 5)

    def test_a_window_that_cannot_be_shown_or_written_is_a_failure(self):
        self.assert_complaint(run("window", "--screenshot", self.folder / "none" / "a.png"), 1, "cannot write")
        self.assert_complaint(run("window", "--size", "8192x8192", "--scale", "16", "--screenshot",
                                  self.folder / "a.png"), 1, "32767")
        nowhere = dict(os.environ, SDL_VIDEODRIVER="nowhere")
        self.assert_complaint(run("window", env=nowhere), 1, "cannot open a window")
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_a_window_that_nobody_would_see_ends_at_once_and_names_the_screenshot(self):
        bare = {name: value for name, value in os.environ.items()
                if name not in ("DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "SDL_VIDEODRIVER")}
        for environment in {}, {"SDL_VIDEODRIVER": "offscreen"}, {"SDL_VIDEODRIVER": "dummy"}:
            result = run("window", env=dict(bare, **environment))
            self.assert_complaint(result, 1, "cannot open a window")
            self.assertIn("; --screenshot FILE needs no display", result.stderr)

    def test_an_interrupted_style_guide_leaves_nothing_behind(self):
        def heed_interrupts():  # which whoever runs the test in the background may ignore
            signal.signal(signal.SIGINT, signal.SIG_DFL)

        for _ in range(5):  # it may be done before a busy machine lets us interrupt it
            with subprocess.Popen([PROGRAM, "gallery", "--out", self.folder / "site"], stderr=subprocess.PIPE,
                                  preexec_fn=heed_interrupts) as process:
                deadline = time.monotonic() + 60
                while (process.poll() is None and not list(self.folder.glob(".site.*/pictures")) and
                       time.monotonic() < deadline):
                    time.sleep(0.01)
                was_drawing = process.poll() is None
                process.send_signal(signal.SIGINT)
                said = process.communicate(timeout=60)[1]
            if was_drawing:
                break
            shutil.rmtree(self.folder / "site")
        self.assertEqual(said, b"brisel: interrupted\n")
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
        self.assertEqual(sorted(self.pages), ["colours.html", "curves.html", "icons.html", "index.html", "reference.html",
                                              "shapes.html", "text-views.html", "themes.html", "tokens.html",
                                              "type.html"])
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

    def test_explains_contrast_in_the_words_of_the_command(self):
        method = json.loads(run("contrast", "--json", "--set", "base").stdout)["method"]
        self.assertIn(method, (self.site / "themes.html").read_text())

    def test_states_the_size_of_every_picture(self):
        stated = set()
        for page in self.pages.values():
            for file, width, height in page.pictures:
                self.assertEqual(png_size(self.site / file), (width, height), file)
                stated.add(self.site / file)
        sheets = re.findall(r'url\("\.\./([^"]+)\.png"\) 1x, url\("\.\./([^"]+)@2x\.png"\) 2x',
                            (self.site / "site/icons.css").read_text())
        self.assertEqual([pathlib.Path(sheet).name for sheet, _ in sheets], ["12", "16", "20", "24", "32", "48", "64"])
        for sheet, double in sheets:
            width, height = png_size(self.site / f"{sheet}.png")
            self.assertEqual(png_size(self.site / f"{double}@2x.png"), (2 * width, 2 * height))
            stated |= {self.site / f"{sheet}.png", self.site / f"{double}@2x.png"}
        self.assertEqual(set(self.site.rglob("*.png")), stated)
        self.assertEqual(len(list(self.site.glob("pictures/colours/*.png"))), 2 * 312)
        self.assertEqual(len(list(self.site.glob("pictures/type/*.png"))), 2 * 19 * len(GROWING))
        self.assertEqual(len(list(self.site.glob("pictures/scripts/*.png"))), 2 * 12 * len(GROWING))
        self.assertEqual(len(list(self.site.glob("pictures/tokens/*.png"))), 2 * (13 + 6))

    def test_defines_every_property_that_its_style_sheet_uses(self):
        styles = (self.site / "site/page.css").read_text()
        used = set(re.findall(r"var\((--[\w-]+)\)", styles))
        givers = [self.site / "site/ground.css", self.site / "site/icons.css", self.site / "icons.html"]
        defined = set(re.findall(r"(--[\w-]+):", styles + "".join(path.read_text() for path in givers)))
        self.assertGreater(len(used), 20)
        self.assertEqual(used - defined, set())

    def test_takes_colours_and_gaps_from_the_library_alone(self):
        for line in (self.site / "site/page.css").read_text().splitlines():
            self.assertNotRegex(line, r"#[0-9a-fA-F]{3,8}\b|rgba?\(|hsla?\(")
            for rule in re.findall(r"(?:padding|margin|gap)[\w-]*: ([^;]+)", line):
                self.assertNotRegex(rule, r"\d(?:px|rem|em)", line)

    def test_is_small(self):
        self.assertLess(sum(path.stat().st_size for path in self.site.rglob("*") if path.is_file()), 30_000_000)

    def test_is_the_same_each_time(self):
        def contents():
            return {path.relative_to(self.site): path.read_bytes() for path in self.site.rglob("*") if path.is_file()}

        before = contents()
        (self.site / "outdated.html").write_text("")
        self.assertEqual(run("gallery", "--out", self.site).returncode, 0)
        self.assertEqual(contents(), before)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
