"""The icon font: every drawing of icons.tsv at its code point in the catalogue, filling and centred in its em."""

from __future__ import annotations

import re
from dataclasses import dataclass
from pathlib import Path

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.cu2quPen import Cu2QuPen
from fontTools.pens.ttGlyphPen import TTGlyphPen

from font_file import dated_bytes
from icon_drawing import ASCENT, EM, Drawing, DrawingError, Shelf

NAME = "halvicon"
VERSION = "1.000"
COPYRIGHT = "Icons: Phosphor Icons, Copyright (c) 2023 Phosphor Icons, MIT License; further drawings by BriselFoundation"
MAXIMUM_CURVE_ERROR = 0.5  # in units of the em

HERE = Path(__file__).resolve().parent
MAPPING = HERE / "icons.tsv"
OWN_DRAWINGS = HERE / "drawings"
SAME = "="                 # instead of a source: the drawing at 24 serves at 16 as well
PACKAGE = Path("@phosphor-icons/core")
CATALOGUE_ROW = re.compile(r"BRISEL_ICON\((\w+?)_?, *\w+, *0x([0-9A-F]+), *0x([0-9A-F]+), *(?:true|false)\)")


@dataclass(frozen=True)
class Icon:
    """A line of the mapping, with its code points in the catalogue."""
    accessor: str
    x16: int
    x24: int
    source24: str
    source16: str
    remark: str = ""


def read_mapping(catalogue: Path) -> list[Icon]:
    """The icons of brisel/icons/icons.def with their drawings, in the catalogue's order."""
    drawings = _read_drawings(MAPPING)
    icons = [Icon(accessor, *codes, *drawings.pop(accessor, ("", "")))
             for accessor, codes in read_catalogue(catalogue).items()]
    undrawn = [icon.accessor for icon in icons if not icon.source24]
    if undrawn or drawings:
        raise DrawingError(f"{MAPPING.name} lacks {undrawn} of {catalogue.name}, which lacks {list(drawings)}")
    return icons


def read_catalogue(path: Path) -> dict[str, tuple[int, int]]:
    """The code points of the designs for 16 and for 24 points, by accessor."""
    codes: dict[str, tuple[int, int]] = {}
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.startswith("BRISEL_ICON("):
            continue
        row = CATALOGUE_ROW.fullmatch(line)
        if row is None or row[1] in codes:
            raise DrawingError(f"{path.name}:{number} is no row of an icon or repeats one")
        codes[row[1]] = int(row[2], 16), int(row[3], 16)
    return codes


def _read_drawings(path: Path) -> dict[str, list[str]]:
    """The sources at 24 and at 16, and the remark if there is one, by accessor."""
    drawings: dict[str, list[str]] = {}
    _, *lines = path.read_text(encoding="utf-8").splitlines()
    for number, line in enumerate(lines, 2):
        accessor, *fields = line.split("\t")
        if len(fields) not in (2, 3) or accessor in drawings:
            raise DrawingError(f"{path.name}:{number} is not of three or four fields parted by tabs, or repeats an icon")
        if fields[1] == SAME:
            fields[1] = fields[0]
        drawings[accessor] = fields
    return drawings


def glyph_sources(icons: list[Icon]) -> dict[int, str]:
    """The source of every code point; icons that share one must agree."""
    sources: dict[int, str] = {}
    for icon in icons:
        for code, source in ((icon.x16, icon.source16), (icon.x24, icon.source24)):
            if sources.setdefault(code, source) != source:
                raise DrawingError(f"{icon.accessor}: U+{code:04X} is already drawn as {sources[code]}")
    return sources


def shelf(node_modules: Path) -> Shelf:
    return Shelf(node_modules / PACKAGE / "assets", OWN_DRAWINGS)


def licence(node_modules: Path) -> Path:
    return node_modules / PACKAGE / "LICENSE"


def build_icon_font(node_modules: Path, catalogue: Path, seconds: int) -> bytes:
    """The finished font file, dated `seconds` after 1970."""
    drawings = shelf(node_modules)
    sources = dict(sorted(glyph_sources(read_mapping(catalogue)).items()))
    glyphs = {".notdef": _glyph(Drawing()), "space": _glyph(Drawing())}
    cmap = {0x20: "space"}
    for code, source in sources.items():
        cmap[code] = f"uni{code:04X}"
        glyphs[cmap[code]] = _glyph(drawings.draw(source))
    return _font(glyphs, cmap, seconds)


def _glyph(drawing: Drawing):
    pen = TTGlyphPen(None)
    drawing.draw(Cu2QuPen(pen, MAXIMUM_CURVE_ERROR))
    return pen.glyph()


def _font(glyphs: dict, cmap: dict[int, str], seconds: int) -> bytes:
    builder = FontBuilder(EM, isTTF=True)
    builder.setupGlyphOrder(list(glyphs))
    builder.setupCharacterMap(cmap)
    builder.setupGlyf(glyphs)
    builder.setupHorizontalMetrics({name: (EM, getattr(glyph, "xMin", 0)) for name, glyph in glyphs.items()})
    descent = EM - ASCENT
    builder.setupHorizontalHeader(ascent=ASCENT, descent=-descent, lineGap=0)
    builder.setupOS2(version=4, sTypoAscender=ASCENT, sTypoDescender=-descent, sTypoLineGap=0, usWinAscent=ASCENT,
                     usWinDescent=descent, fsSelection=1 << 6 | 1 << 7,  # regular, use the typographic metrics
                     usWeightClass=400, usWidthClass=5, fsType=0, achVendID="BRSL")
    builder.setupNameTable({"copyright": COPYRIGHT, "familyName": NAME, "styleName": "Regular",
                            "uniqueFontIdentifier": f"{VERSION};{NAME}", "fullName": NAME,
                            "version": f"Version {VERSION}", "psName": NAME}, mac=False)
    builder.setupPost(keepGlyphNames=False)
    font = builder.font
    font["head"].fontRevision = float(VERSION)
    font["OS/2"].recalcUnicodeRanges(font)
    return dated_bytes(font, seconds)
