#!/usr/bin/env python3
"""Checks the icon font of a built bundle against the mapping: python3 assets/test_icon_font.py DIR"""

from __future__ import annotations

import functools
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from collections import Counter, defaultdict
from pathlib import Path

from fontTools.pens.boundsPen import BoundsPen
from fontTools.pens.pointPen import SegmentToPointPen
from fontTools.pens.statisticsPen import StatisticsPen
from fontTools.ttLib import TTFont

sys.dont_write_bytecode = True
HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))
import icon_drawing  # noqa: E402
import icon_font  # noqa: E402

SOURCES = HERE / "node_modules"
CATALOGUE = HERE.parent / "brisel" / "icons" / "icons.def"
BUNDLE = Path()

ICONS = icon_font.read_mapping(CATALOGUE)
BY_ACCESSOR = {icon.accessor: icon for icon in ICONS}
ACTIVE_PAIRS = [(BY_ACCESSOR[icon.accessor.removesuffix("Active")], icon) for icon in ICONS
                if icon.accessor.endswith("Active") and icon.accessor.removesuffix("Active") in BY_ACCESSOR]
SHARING = (("ban", "skip"), ("banActive", "skipActive"))

EM = 1024
OFF_CENTRE = EM / 16  # one pixel of the small design


@functools.lru_cache(maxsize=None)
def font() -> TTFont:
    return TTFont(BUNDLE / "halvicon.ttf")


def glyph(code: int):
    return font()["glyf"][font().getBestCmap()[code]]


def outline(code: int) -> tuple:
    coordinates, ends, flags = glyph(code).getCoordinates(font()["glyf"])
    return tuple(coordinates), tuple(ends), bytes(flags)


@functools.lru_cache(maxsize=None)
def statistics(code: int) -> StatisticsPen:
    """Area and centre of mass of a glyph's ink; each piece counts, whichever way it is turned."""
    drawing, pen = icon_drawing.Drawing(), StatisticsPen()
    font().getGlyphSet()[font().getBestCmap()[code]].draw(icon_drawing.CubicPen(SegmentToPointPen(drawing)))
    drawing.oriented().draw(pen)
    return pen


def ink(code: int) -> float:
    return abs(statistics(code).area)


def designs():
    for icon in ICONS:
        yield f"{icon.accessor} at 16", icon.x16
        yield f"{icon.accessor} at 24", icon.x24


class Mapping(unittest.TestCase):
    def test_code_points_are_of_the_private_range(self):
        self.assertTrue(all(0xF100 <= code <= 0xF69E for _, code in designs()))

    def test_two_pairs_share_their_code_points_and_no_other_do(self):
        users = defaultdict(set)
        for icon in ICONS:
            users[icon.x16].add(icon.accessor)
            users[icon.x24].add(icon.accessor)
        shared = Counter(tuple(sorted(names)) for names in users.values() if len(names) > 1)
        self.assertEqual(shared, {pair: 2 for pair in SHARING})

    def test_it_has_the_icons_of_the_catalogue_in_their_order(self):
        rows = icon_font.MAPPING.read_text(encoding="utf-8").splitlines()[1:]
        self.assertEqual([row.partition("\t")[0] for row in rows], list(icon_font.read_catalogue(CATALOGUE)))

    def test_code_points_are_those_of_the_catalogue(self):
        self.assertEqual((BY_ACCESSOR["ad"].x16, BY_ACCESSOR["ad"].x24), (0xF61D, 0xF61E))
        self.assertEqual((BY_ACCESSOR["xAlt"].x16, BY_ACCESSOR["xAlt"].x24), (0xF5DA, 0xF5DB))
        self.assertIn("public", BY_ACCESSOR)  # a keyword, which the catalogue gives an underscore

    def test_a_fault_in_the_catalogue_is_named(self):
        row = "BRISEL_ICON(ad, Ad, 0xF61D, 0xF61E, false)\n"
        faults = {"torn": (row + row.replace("0xF61D", "F61D"), ":2 is no row"), "twice": (row + row, ":2 is no row"),
                  "short": (row, r"icons.tsv lacks \[\] of"),
                  "unknown": (CATALOGUE.read_text() + row.replace("(ad", "(adieu"), r"lacks \['adieu'\] of")}
        with tempfile.TemporaryDirectory() as folder:
            for name, (text, words) in faults.items():
                catalogue = Path(folder) / f"{name}.def"
                catalogue.write_text(text)
                with self.subTest(fault=name), self.assertRaisesRegex(icon_drawing.DrawingError, words):
                    icon_font.read_mapping(catalogue)
            with self.assertRaises(FileNotFoundError):
                icon_font.read_mapping(Path(folder) / "none.def")

    def test_every_drawing_of_our_own_is_used_and_has_two_designs(self):
        drawn = {path.stem for path in (HERE / "drawings").glob("*.svg")}
        self.assertEqual({name for name in drawn if not name.endswith("-bold")},
                         {name.removesuffix("-bold") for name in drawn if name.endswith("-bold")})
        sources = " ".join(f"{icon.source24} {icon.source16}" for icon in ICONS)
        used = set(re.findall(r"\bown/([\w-]+)", sources))
        for number, weight in re.findall(r"\bdigits/([\w.]+?)(-bold)?(?=[@ ]|$)", sources):
            used |= {f"digit-{'point' if digit == '.' else digit}{weight}" for digit in number}
        self.assertEqual(drawn, used)

    def test_active_icons_are_filled(self):
        for icon in ICONS:
            if icon.accessor.endswith("Active") and not icon.source24.startswith("own/"):
                self.assertTrue(icon.source24.startswith("fill/"), icon.accessor)
                self.assertTrue(icon.source16.startswith("fill/"), icon.accessor)

    def test_the_marks_of_others_are_called_so_here_and_in_the_notice(self):
        marks = {icon.accessor for icon in ICONS if icon.remark == "a mark of its owner"}
        self.assertLessEqual({icon.accessor for icon in ICONS if "-logo" in icon.source24}, marks)
        notice = (HERE.parent / "NOTICE.md").read_text()
        named = re.search(r"the icons called (.*?)\.", notice, re.DOTALL)[1]
        self.assertEqual(set(re.findall(r"`(\w+)`", named)), marks)

    def test_the_counts_of_the_readme_are_true(self):
        def origin(source: str) -> str:
            if re.search(r" [-+~] ", source) or source.startswith("digits/"):
                return "composed"
            return "our own" if source.startswith("own/") else "Phosphor"

        stated = dict(re.findall(r"^\| (Phosphor|composed|our own) \|.*\| (\d+) \|$", (HERE / "README.md").read_text(),
                                 re.MULTILINE))
        counted = Counter(origin(icon.source24) for icon in ICONS)
        self.assertEqual({name: int(count) for name, count in stated.items()}, counted)


class Tables(unittest.TestCase):
    def test_it_has_the_code_points_of_the_mapping(self):
        self.assertEqual(set(font().getBestCmap()) - {0x20}, {code for _, code in designs()})

    def test_the_line_box_is_the_em(self):
        hhea, os2 = font()["hhea"], font()["OS/2"]
        self.assertEqual(font()["head"].unitsPerEm, EM)
        self.assertEqual((hhea.ascent, hhea.descent, hhea.lineGap), (896, -128, 0))
        self.assertEqual((os2.sTypoAscender, os2.sTypoDescender, os2.sTypoLineGap), (896, -128, 0))
        self.assertEqual((os2.usWinAscent, os2.usWinDescent), (896, 128))
        self.assertTrue(os2.fsSelection & 1 << 7, "use the typographic metrics")

    def test_every_glyph_is_one_em_wide_and_lies_where_it_is_drawn(self):
        for name, (advance, bearing) in font()["hmtx"].metrics.items():
            self.assertEqual((advance, bearing), (EM, getattr(font()["glyf"][name], "xMin", 0)), name)

    def test_names(self):
        name = font()["name"].getDebugName
        self.assertEqual([name(number) for number in (1, 2, 4, 6)], ["halvicon", "Regular", "halvicon", "halvicon"])
        self.assertIn("Phosphor Icons", name(0))
        self.assertEqual(font()["post"].formatType, 3)
        self.assertFalse({"CFF ", "fpgm", "prep", "cvt ", "GSUB", "GPOS"} & set(font().keys()))

    def test_the_sanitizer_accepts_it(self):
        tool = shutil.which("ots-sanitize")
        if not tool:
            self.skipTest("ots-sanitize is not installed")
        result = subprocess.run([tool, BUNDLE / "halvicon.ttf", os.devnull], capture_output=True)
        self.assertEqual(result.returncode, 0, result.stderr)


class Outlines(unittest.TestCase):
    def test_every_code_point_has_ink(self):
        for name, code in designs():
            self.assertGreater(ink(code), EM * EM / 100, name)

    def test_only_icons_that_say_so_are_drawn_alike(self):
        alike = defaultdict(set)
        for icon in ICONS:
            alike[outline(icon.x16)].add(icon.accessor)
            alike[outline(icon.x24)].add(icon.accessor)
        said = {frozenset((icon.accessor, icon.remark.removeprefix("same as "))) for icon in ICONS
                if icon.remark.startswith("same as ")}
        self.assertEqual({frozenset(names) for names in alike.values() if len(names) > 1}, said)
        self.assertLessEqual(set(map(frozenset, SHARING)), said)

    def test_the_two_designs_differ_where_the_mapping_says_so(self):
        for icon in ICONS:
            self.assertEqual(outline(icon.x16) == outline(icon.x24), icon.source16 == icon.source24, icon.accessor)

    def test_nothing_leaves_the_em(self):
        for name, code in designs():
            box = glyph(code)
            self.assertTrue(0 <= box.xMin and box.xMax <= EM and -128 <= box.yMin and box.yMax <= 896,
                            f"{name}: {box.xMin} {box.yMin} {box.xMax} {box.yMax}")

    def test_icons_are_centred_by_their_box_or_by_their_mass(self):
        for name, code in designs():
            box, mass = glyph(code), statistics(code)
            across = min(abs((box.xMin + box.xMax) / 2 - 512), abs(mass.meanX - 512))
            along = min(abs((box.yMin + box.yMax) / 2 - 384), abs(mass.meanY - 384))
            self.assertLessEqual(max(across, along), OFF_CENTRE, name)

    def test_the_small_design_of_a_drawing_is_heavier(self):
        for icon in ICONS:
            if icon.source24.startswith("regular/") and icon.source16 == icon.source24.replace("regular/", "bold/"):
                self.assertGreater(ink(icon.x16), ink(icon.x24), icon.accessor)

    def test_an_active_icon_has_more_ink_than_its_plain_form(self):
        self.assertEqual(len(ACTIVE_PAIRS), 53)
        for plain, active in ACTIVE_PAIRS:
            self.assertGreater(ink(active.x24), ink(plain.x24), f"{active.accessor} at 24")
            self.assertGreater(ink(active.x16), ink(plain.x16), f"{active.accessor} at 16")


class Building(unittest.TestCase):
    def test_a_rebuild_gives_the_same_bytes(self):
        if not SOURCES.is_dir():
            self.skipTest("the sources are not installed")
        if "SOURCE_DATE_EPOCH" in os.environ:
            self.skipTest("SOURCE_DATE_EPOCH is set, the bundle may have been built without")
        import build_bundle
        built = icon_font.build_icon_font(SOURCES, CATALOGUE, build_bundle.source_date())
        self.assertEqual(built, (BUNDLE / "halvicon.ttf").read_bytes())

    def test_a_fault_in_a_drawing_is_named(self):
        with tempfile.TemporaryDirectory() as folder:
            own = Path(folder)
            shelf = icon_drawing.Shelf(own, own)
            path = 'd="M0 0H9V9Z"'
            for name, text in {"fine": f"<path {path}/>", "stroked": f'<path {path} stroke="#000"/>', "empty": "",
                               "round": '<circle r="9"/>'}.items():
                (own / f"{name}.svg").write_text(
                    f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 256 256">{text}</svg>')
            (own / "small.svg").write_text(f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24"/>')
            (own / "torn.svg").write_text("<svg")
            self.assertEqual(len(shelf.draw("own/fine").contours), 1)
            for source, words in {"own/none": "none.svg is missing: draw it", "own/stroked": "only <path",
                                  "own/round": "only <path", "own/empty": "empty", "own/small": "viewBox",
                                  "own/torn": "torn.svg is no SVG", "thin/fine": "no set of drawings named thin",
                                  "own/fine@1,2": "not of the form", "own/fine +own/fine": "not of the form"}.items():
                with self.subTest(source=source), self.assertRaisesRegex(icon_drawing.DrawingError, re.escape(words)):
                    shelf.draw(source)


class Composition(unittest.TestCase):
    """The notation, on squares: `a` covers the left half of the box, `b` its middle half, turned the other way."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        own = Path(folder.name)
        for name, path in {"a": "M0 0H128V256H0Z", "b": "M64 64V192H192V64Z"}.items():
            (own / f"{name}.svg").write_text(
                f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 256 256"><path d="{path}"/></svg>')
        self.shelf = icon_drawing.Shelf(own, own)

    def area(self, source: str) -> float:
        """In units of the box of 256."""
        pen = StatisticsPen()
        self.shelf.draw(source).draw(pen)
        return abs(pen.area) / 16

    def bounds(self, source: str) -> tuple:
        pen = BoundsPen(None)
        self.shelf.draw(source).draw(pen)
        return pen.bounds

    def test_the_box_fills_the_em_from_descent_to_ascent(self):
        self.assertEqual(self.bounds("own/a"), (0, -128, 512, 896))
        self.assertEqual(self.bounds("own/a@128,64,64"), (512, 384, 640, 640))

    def test_parts_are_joined_cut_out_and_laid_on(self):
        self.assertAlmostEqual(self.area("own/a + own/b"), 128 * 256 + 64 * 128, delta=1)
        self.assertAlmostEqual(self.area("own/a - own/b"), 128 * 256 - 64 * 128, delta=1)
        # A gap of 16 around b, with round corners, is cut out of a.
        gap = 80 * 160 - (4 - 3.14159) / 4 * 16 * 16 * 2
        self.assertAlmostEqual(self.area("own/a ~ own/b"), 128 * 256 - gap + 128 * 128, delta=4)

    def test_parts_are_taken_from_left_to_right(self):
        self.assertAlmostEqual(self.area("own/a - own/b + own/b"), 128 * 256 + 64 * 128, delta=1)
        self.assertAlmostEqual(self.area("own/a + own/b - own/b"), 128 * 256 - 64 * 128, delta=1)


if __name__ == "__main__":
    if len(sys.argv) < 2 or not Path(sys.argv[1]).is_dir():
        sys.exit("usage: test_icon_font.py DIR: the built bundle")
    BUNDLE = Path(sys.argv.pop(1)).resolve()
    unittest.main()
