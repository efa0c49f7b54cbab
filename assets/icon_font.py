"""The icon font: every drawing of icons.tsv at its code point, filling and centred in its em."""

from __future__ import annotations

import io
from dataclasses import dataclass
from pathlib import Path

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.cu2quPen import Cu2QuPen
from fontTools.pens.ttGlyphPen import TTGlyphPen

from icon_drawing import ASCENT, EM, Drawing, DrawingError, Shelf

NAME = "halvicon"
VERSION = "1.000"
COPYRIGHT = "Icons: Phosphor Icons, Copyright (c) 2023 Phosphor Icons, MIT License; further drawings by BriselFoundation"
MAXIMUM_CURVE_ERROR = 0.5  # in units of the em
MAC_EPOCH_OFFSET = 2082844800  # 1904 to 1970, in seconds

HERE = Path(__file__).resolve().parent
MAPPING = HERE / "icons.tsv"
OWN_DRAWINGS = HERE / "drawings"
SAME = "="                 # instead of a source: the drawing at 24 serves at 16 as well
PACKAGE = Path("@phosphor-icons/core")


@dataclass(frozen=True)
class Icon:
    """A line of the mapping."""
    accessor: str
    x16: int
    x24: int
    source24: str
    source16: str
    remark: str = ""


def read_mapping(path: Path = MAPPING) -> list[Icon]:
    icons = []
    _, *lines = path.read_text(encoding="utf-8").splitlines()
    for number, line in enumerate(lines, 2):
        try:
            accessor, x16, x24, source24, source16, *remark = line.split("\t")
            icons.append(Icon(accessor, int(x16, 16), int(x24, 16), source24,
                              source24 if source16 == SAME else source16, *remark))
        except (TypeError, ValueError) as error:
            raise DrawingError(f"{path.name}:{number} is not of five or six fields parted by tabs") from error
    return icons


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


def build_icon_font(node_modules: Path, seconds: int) -> bytes:
    """The finished font file, dated `seconds` after 1970."""
    drawings = shelf(node_modules)
    sources = dict(sorted(glyph_sources(read_mapping()).items()))
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
    font["head"].created = font["head"].modified = seconds + MAC_EPOCH_OFFSET
    font.recalcTimestamp = False
    font["OS/2"].recalcUnicodeRanges(font)
    stream = io.BytesIO()
    font.save(stream, reorderTables=True)
    return stream.getvalue()
