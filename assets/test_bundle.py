#!/usr/bin/env python3
"""Checks a built bundle: python3 assets/test_bundle.py DIR"""

from __future__ import annotations

import functools
import os
import shutil
import subprocess
import sys
import tempfile
import unicodedata
import unittest
from pathlib import Path

from fontTools.ttLib import TTFont

HERE = Path(__file__).resolve().parent
SOURCES = HERE / "node_modules"
CATALOGUE = HERE.parent / "brisel" / "icons" / "icons.def"
BUNDLE = Path()

FAMILIES = ("Tondal", "TondalArab", "TondalHebr", "TondalCyrl", "TondalGrek", "TondalDeva",
            "TondalTitle", "TondalTitleTall")
LATIN_FAMILIES = ("Tondal", "TondalTitle", "TondalTitleTall")
COMPANIONS = tuple(family for family in FAMILIES if family not in LATIN_FAMILIES)
WEIGHTS = {"Book": 400, "Bold": 700, "Black": 900}
FACES = [(family, weight) for family in FAMILIES for weight in WEIGHTS]

SCRIPTS = {
    "TondalArab": "ابتثجحخدذرزسشصضطظعغفقكلمنهويءآأؤإئةى٠١٢٣٤٥٦٧٨٩،؛؟ًٌٍَُِّْپچژکگیٹڈڑںے۰۱۲۳۴۵۶۷۸۹",
    "TondalHebr": "אבגדהוזחטיךכלםמןנסעףפץצקרשתְֱֲֳִֵֶַָֹֻּׁׂ־׳״₪",
    "TondalCyrl": "".join(map(chr, range(0x400, 0x460))) + "ҐґҒғҚқҢңҮүҰұҺһӘәӨө№",
    "TondalGrek": "ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩαβγδεζηθικλμνξοπρςστυφχψωάέήίόύώϊϋΐΰΆΈΉΊΌΎΏἀὅᾷῷ",
    "TondalDeva": "".join(map(chr, range(0x905, 0x93A))) + "ािीुूृेैोौ्ंःँ़।॥०१२३४५६७८९",
}
LATIN = "".join(
    [chr(c) for c in range(0x20, 0x7F)] + [chr(c) for c in range(0xA0, 0x180)]      # Latin-1, Latin Extended-A
    + [chr(c) for c in range(0x1EA0, 0x1EFA)] + list("ƠơƯư")                         # Vietnamese
    + [chr(c) for c in (0x300, 0x301, 0x302, 0x303, 0x304, 0x306, 0x307, 0x308, 0x309, 0x30A, 0x30B, 0x30C,
                        0x31B, 0x323)]
    + list("‐‑‒–—―‘’‚“”„†‡•…‰′″‹›⁄€₫₹™−") + [chr(c) for c in (0x2007, 0x2009, 0x200B, 0x200C, 0x200D, 0x202F, 0x25CC)])
WITHOUT_INK = {0xA0, 0x20, *range(0x2000, 0x2010), 0x202F, 0x205F, 0x2060, 0x34F}


@functools.lru_cache(maxsize=None)
def face(family: str, weight: str) -> TTFont:
    return TTFont(BUNDLE / f"{family}-{weight}.otf")


@functools.lru_cache(maxsize=None)
def drawn(family: str, weight: str) -> frozenset[int]:
    """The code points that have a glyph, and ink where ink is due."""
    font = face(family, weight)
    glyphs = font["glyf"]
    return frozenset(code for code, name in font.getBestCmap().items()
                     if name != ".notdef" and (code in WITHOUT_INK or glyphs[name].numberOfContours))


def advance(font: TTFont, name: str) -> int:
    return font["hmtx"][name][0]


def substituted(font: TTFont, feature: str, name: str, script: str = "latn", language: str | None = None) -> str:
    """What the single substitutions of one feature turn a glyph into."""
    table = font["GSUB"].table
    scripts = {record.ScriptTag: record.Script for record in table.ScriptList.ScriptRecord}
    systems = {record.LangSysTag: record.LangSys for record in scripts[script].LangSysRecord}
    system = systems[language] if language else scripts[script].DefaultLangSys
    records = [table.FeatureList.FeatureRecord[i] for i in system.FeatureIndex]
    for index in sorted(i for record in records if record.FeatureTag == feature
                        for i in record.Feature.LookupListIndex):
        for subtable in table.LookupList.Lookup[index].SubTable:
            subtable = getattr(subtable, "ExtSubTable", subtable)
            if subtable.LookupType == 1 and name in subtable.mapping:
                return subtable.mapping[name]
    return name


def kerning(font: TTFont, first: str, second: str) -> int:
    """The kerning of two letters: every lookup adds what its first matching subtable says."""
    cmap, table, total = font.getBestCmap(), font["GPOS"].table, 0
    left, right = cmap[ord(first)], cmap[ord(second)]
    wanted = {i for record in table.FeatureList.FeatureRecord if record.FeatureTag == "kern"
              for i in record.Feature.LookupListIndex}
    for index in wanted:
        for pairs in table.LookupList.Lookup[index].SubTable:
            pairs = getattr(pairs, "ExtSubTable", pairs)
            if pairs.LookupType != 2 or left not in pairs.Coverage.glyphs:
                continue
            if pairs.Format == 1:
                pair_set = pairs.PairSet[pairs.Coverage.glyphs.index(left)]
                found = [r.Value1 for r in pair_set.PairValueRecord if r.SecondGlyph == right]
            else:
                row = pairs.Class1Record[pairs.ClassDef1.classDefs.get(left, 0)]
                found = [row.Class2Record[pairs.ClassDef2.classDefs.get(right, 0)].Value1]
            if found:
                total += getattr(found[0], "XAdvance", 0) or 0
                break
    return total


class Files(unittest.TestCase):
    def test_the_bundle_holds_the_24_faces_the_icon_font_and_no_other_file(self):
        self.assertEqual({path.name for path in BUNDLE.iterdir()},
                         {f"{family}-{weight}.otf" for family, weight in FACES} | {"halvicon.ttf", "licences"})

    def test_every_source_licence_is_beside_the_faces(self):
        texts = {path.name: path.read_text() for path in (BUNDLE / "licences").iterdir()}
        self.assertIn("MIT License", texts.pop("phosphor-icons-MIT.txt"))
        self.assertEqual(set(texts), {f"{name}-OFL.txt" for name in (
            "figtree", "archivo", "noto-sans", "noto-sans-arabic", "noto-sans-hebrew", "noto-sans-devanagari")})
        for name, text in texts.items():
            self.assertIn("SIL OPEN FONT LICENSE Version 1.1", text, name)
            self.assertIn("Copyright", text, name)

    def test_the_sanitizer_accepts_every_face(self):
        tool = shutil.which("ots-sanitize")
        if not tool:
            self.skipTest("ots-sanitize is not installed")
        for family, weight in FACES:
            result = subprocess.run([tool, BUNDLE / f"{family}-{weight}.otf", os.devnull], capture_output=True)
            self.assertEqual(result.returncode, 0, f"{family}-{weight}: {result.stderr}")


class Identity(unittest.TestCase):
    def test_names_follow_family_and_weight(self):
        for family, weight in FACES:
            with self.subTest(family=family, weight=weight):
                name = face(family, weight)["name"].getDebugName
                self.assertEqual(name(1), family if weight != "Black" else f"{family} Black")
                self.assertEqual(name(2), "Bold" if weight == "Bold" else "Regular")
                self.assertEqual(name(4), f"{family} {weight}")
                self.assertEqual(name(6), f"{family}-{weight}")
                self.assertEqual((name(16), name(17)), (family, weight))

    def test_copyright_and_licence_are_named(self):
        for family, weight in FACES:
            name = face(family, weight)["name"].getDebugName
            self.assertIn("Project Authors", name(0))
            self.assertIn("SIL Open Font License", name(13))
            self.assertEqual(name(14), "https://scripts.sil.org/OFL")
        self.assertIn("Archivo", face("Tondal", "Book")["name"].getDebugName(0))  # lends the horn

    def test_weight_class_style_bits_and_embedding(self):
        for family, weight in FACES:
            with self.subTest(family=family, weight=weight):
                os2, head = face(family, weight)["OS/2"], face(family, weight)["head"]
                self.assertEqual(os2.usWeightClass, WEIGHTS[weight])
                self.assertEqual(os2.fsType, 0)
                self.assertEqual(bool(os2.fsSelection & 1 << 5), weight == "Bold")
                self.assertEqual(bool(os2.fsSelection & 1 << 6), weight != "Bold")
                self.assertFalse(os2.fsSelection & 1, "italic")
                self.assertEqual(head.macStyle, 1 if weight == "Bold" else 0)

    def test_faces_are_static_and_unhinted(self):
        for family, weight in FACES:
            self.assertFalse({"fvar", "gvar", "avar", "prep", "fpgm", "cvt ", "gasp"} & set(face(family, weight).keys()))

    def test_strokes_grow_with_the_weight(self):
        # The vertical bar: its width is its stroke.
        letters = dict.fromkeys(LATIN_FAMILIES, "l") | {"TondalArab": "ا", "TondalHebr": "ו", "TondalCyrl": "І",
                                                        "TondalGrek": "Ι", "TondalDeva": "।"}
        for family, letter in letters.items():
            widths = []
            for weight in WEIGHTS:
                font = face(family, weight)
                glyph = font["glyf"][font.getBestCmap()[ord(letter)]]
                widths.append(glyph.xMax - glyph.xMin)
            self.assertEqual(widths, sorted(set(widths)), family)


class Metrics(unittest.TestCase):
    def test_all_faces_share_one_line_box(self):
        for family, weight in FACES:
            with self.subTest(family=family, weight=weight):
                font = face(family, weight)
                hhea, os2 = font["hhea"], font["OS/2"]
                self.assertEqual(font["head"].unitsPerEm, 1000)
                self.assertEqual((hhea.ascent, hhea.descent, hhea.lineGap), (950, -250, 0))
                self.assertEqual((os2.sTypoAscender, os2.sTypoDescender, os2.sTypoLineGap), (950, -250, 0))
                self.assertTrue(os2.fsSelection & 1 << 7)

    def test_windows_box_holds_all_ink(self):
        for family, weight in FACES:
            font = face(family, weight)
            self.assertGreaterEqual(font["OS/2"].usWinAscent, font["head"].yMax)
            self.assertGreaterEqual(font["OS/2"].usWinDescent, -font["head"].yMin)

    def test_tabular_digits_have_equal_advances(self):
        for family in LATIN_FAMILIES:
            for weight in WEIGHTS:
                font = face(family, weight)
                digits = [font.getBestCmap()[ord(digit)] for digit in "0123456789"]
                for language in (None, "ROM ", "TRK ", "MOL "):
                    with self.subTest(family=family, weight=weight, language=language):
                        if language and language not in languages(font):
                            continue
                        tabular = [substituted(font, "tnum", digit, language=language) for digit in digits]
                        self.assertEqual(len({advance(font, digit) for digit in tabular}), 1)
                        if family == "Tondal":
                            self.assertGreater(len({advance(font, digit) for digit in digits}), 1, "default digits")

    def test_figure_space_is_as_wide_as_a_tabular_digit(self):
        font = face("Tondal", "Book")
        zero = substituted(font, "tnum", font.getBestCmap()[ord("0")])
        self.assertEqual(advance(font, font.getBestCmap()[0x2007]), advance(font, zero))


def languages(font: TTFont) -> set[str]:
    return {system.LangSysTag for record in font["GSUB"].table.ScriptList.ScriptRecord
            if record.ScriptTag == "latn" for system in record.Script.LangSysRecord}


class Coverage(unittest.TestCase):
    def assert_covers(self, text: str, family: str):
        for weight in WEIGHTS:
            missing = sorted({f"U+{ord(char):04X}" for char in text if ord(char) not in drawn(family, weight)})
            self.assertEqual(missing, [], f"{family}-{weight}")

    def test_latin_families_cover_latin(self):
        for family in LATIN_FAMILIES:
            with self.subTest(family=family):
                self.assert_covers(LATIN, family)

    def test_companions_cover_their_script_and_what_shaping_needs(self):
        for family, text in SCRIPTS.items():
            with self.subTest(family=family):
                self.assert_covers(text + " ", family)
        self.assert_covers("\u200c\u200d\u25cc", "TondalArab")
        self.assert_covers("\u200c\u200d\u25cc", "TondalDeva")

    def test_companions_have_no_latin(self):
        for family in COMPANIONS:
            for weight in WEIGHTS:
                latin = [f"U+{code:04X}" for code in face(family, weight).getBestCmap()
                         if unicodedata.name(chr(code), "").startswith("LATIN ") or 0x30 <= code <= 0x39]
                self.assertEqual(latin, [], f"{family}-{weight}")

    def test_each_companion_keeps_to_its_own_script(self):
        for family in COMPANIONS:
            for other in COMPANIONS:
                if other != family:
                    letters = {ord(c) for c in SCRIPTS[other] if unicodedata.category(c)[0] == "L"}
                    self.assertFalse(letters & set(face(family, "Book").getBestCmap()), f"{other} in {family}")


class Drawing(unittest.TestCase):
    def test_vietnamese_letters_are_as_wide_as_their_base(self):
        for family in LATIN_FAMILIES:
            font = face(family, "Book")
            cmap = font.getBestCmap()
            for letter in "ếệậốắạỹĩ":
                base = {"ĩ": "ì"}.get(letter, unicodedata.normalize("NFD", letter)[0])
                self.assertAlmostEqual(advance(font, cmap[ord(letter)]), advance(font, cmap[ord(base)]), delta=1,
                                       msg=f"{family} {letter}")

    def test_marks_lie_above_and_below_the_letter(self):
        for family in LATIN_FAMILIES:
            for weight in WEIGHTS:
                font = face(family, weight)
                glyph = lambda char: font["glyf"][font.getBestCmap()[ord(char)]]
                with self.subTest(family=family, weight=weight):
                    self.assertGreater(glyph("ê").yMax, glyph("e").yMax)
                    self.assertGreater(glyph("ế").yMax, glyph("ê").yMax)
                    self.assertGreater(glyph("Ễ").yMax, glyph("Ê").yMax)
                    self.assertLess(glyph("ệ").yMin, -100)
                    self.assertGreater(glyph("ơ").xMax, glyph("o").xMax)
                    self.assertGreater(glyph("ư").xMax, glyph("u").xMax)

    def test_kerning_reaches_the_letters_of_later_pieces(self):
        for family in LATIN_FAMILIES:
            font = face(family, "Book")
            self.assertNotEqual(kerning(font, "T", "o"), 0, family)
            self.assertEqual(kerning(font, "Ť", "o"), kerning(font, "T", "o"), family)
            self.assertEqual(kerning(font, "T", "ộ"), kerning(font, "T", "o"), family)
            self.assertEqual(kerning(font, "Ả", "V"), kerning(font, "A", "V"), family)

    def test_marks_attach_to_letters(self):
        for family in LATIN_FAMILIES + ("TondalHebr", "TondalArab", "TondalDeva"):
            features = {record.FeatureTag for record in face(family, "Book")["GPOS"].table.FeatureList.FeatureRecord}
            self.assertIn("mark", features, family)


class Building(unittest.TestCase):
    def setUp(self):
        sys.path.insert(0, str(HERE))
        sys.dont_write_bytecode = True
        import build_bundle
        self.recipe = build_bundle

    def test_a_rebuild_gives_the_same_bytes(self):
        if not SOURCES.is_dir():
            self.skipTest("the sources are not installed")
        if "SOURCE_DATE_EPOCH" in os.environ:
            self.skipTest("SOURCE_DATE_EPOCH is set, the bundle may have been built without")
        family = self.recipe.FAMILIES[0]
        self.assertEqual(self.recipe.build_face(family, "Book", SOURCES), (BUNDLE / "Tondal-Book.otf").read_bytes())

    def test_missing_sources_leave_nothing_behind(self):
        with tempfile.TemporaryDirectory() as folder:
            result = subprocess.run(
                [sys.executable, HERE / "build_bundle.py", "--sources", f"{folder}/none", "--icons", CATALOGUE,
                 "--out", f"{folder}/B.bundle"],
                capture_output=True, text=True)
            self.assertEqual(result.returncode, 1)
            self.assertEqual(len(result.stderr.strip().splitlines()), 1)
            self.assertIn("npm ci", result.stderr)
            self.assertEqual(os.listdir(folder), [])

    def test_a_bundle_of_the_same_ingredients_is_copied_from_the_store(self):
        if not SOURCES.is_dir():
            self.skipTest("the sources are not installed")
        with tempfile.TemporaryDirectory() as folder:
            store, out, catalogue = Path(folder, "store"), Path(folder, "B.bundle"), Path(folder, "icons.def")
            shutil.copy(CATALOGUE, catalogue)
            digest = self.recipe.ingredients_digest(SOURCES, catalogue)
            for kept in (store / "older", store / digest):
                Path(folder, "made", "licences").mkdir(parents=True, exist_ok=True)
                Path(folder, "made", "face.otf").write_text(kept.name)
                self.recipe.keep(Path(folder, "made"), kept)
            self.assertEqual(os.listdir(store), [digest])
            self.recipe.build_bundle(SOURCES, catalogue, out, 1, False, store)
            self.assertEqual((out / "face.otf").read_text(), digest)
            catalogue.write_text(catalogue.read_text() + "\n")
            self.assertNotEqual(self.recipe.ingredients_digest(SOURCES, catalogue), digest)

    def test_a_folder_that_is_no_bundle_is_not_replaced(self):
        if not SOURCES.is_dir():
            self.skipTest("the sources are not installed")
        with tempfile.TemporaryDirectory() as folder:
            Path(folder, "letter.txt").write_text("dear")
            with self.assertRaises(self.recipe.BuildError):
                self.recipe.build_bundle(SOURCES, CATALOGUE, Path(folder), 1, False)
            self.assertEqual(os.listdir(folder), ["letter.txt"])


if __name__ == "__main__":
    if len(sys.argv) < 2 or not Path(sys.argv[1]).is_dir():
        sys.exit("usage: test_bundle.py DIR: the built bundle")
    BUNDLE = Path(sys.argv.pop(1)).resolve()
    unittest.main()
