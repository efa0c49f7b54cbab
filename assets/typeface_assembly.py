"""Cutting a typeface out of variable sources, joining the pieces, naming the result."""

from __future__ import annotations

import copy
import logging
from functools import lru_cache
from pathlib import Path

from fontTools import merge, subset
from fontTools.ttLib import TTFont
from fontTools.ttLib.scaleUpem import scale_upem
from fontTools.ttLib.tables import otTables
from fontTools.varLib import instancer

from font_file import as_file, dated_bytes

logging.getLogger("fontTools").setLevel(logging.ERROR)

DROPPED_TABLES = ("STAT", "MVAR", "HVAR", "VVAR", "avar", "cvar", "gvar", "fvar",  # one instance is left
                  "prep", "fpgm", "cvt ", "gasp", "hdmx", "LTSH", "VDMX",          # unhinted
                  "DSIG", "meta")
WIN_UNICODE_ENGLISH = (3, 1, 0x409)
OFL_DESCRIPTION = ("This Font Software is licensed under the SIL Open Font License, Version 1.1. "
                   "This license is available with a FAQ at: https://scripts.sil.org/OFL")
OFL_URL = "https://scripts.sil.org/OFL"


def location(source, weight_index: int) -> dict[str, int]:
    place = {"wght": source.wght[weight_index]}
    if source.wdth is not None:
        place["wdth"] = source.wdth
    return place


def code_points(ranges: str) -> set[int]:
    """The code points of a text such as "0020 0400-052F"."""
    points: set[int] = set()
    for item in ranges.split():
        first, _, last = item.partition("-")
        points.update(range(int(first, 16), int(last or first, 16) + 1))
    return points


@lru_cache(maxsize=None)
def _code_points_of(path: Path) -> frozenset[int]:
    with TTFont(path) as font:
        return frozenset(font.getBestCmap())


def leading_code_points(paths: list[Path]) -> frozenset[int]:
    return _code_points_of(paths[0])


def assemble(paths: list[Path], place: dict[str, int], keeps: str | None) -> TTFont:
    """One static font from the pieces of a source; the earlier piece wins a code point."""
    wanted = code_points(keeps) if keeps else None
    pieces, taken = [], set()
    for path in paths:
        piece_points = set(_code_points_of(path)) - taken - {0x00, 0x0D, 0xFEFF}
        if wanted is not None:
            piece_points &= wanted
        taken |= piece_points
        pieces.append(_cut(path, place, piece_points, is_leading=not pieces))
    if len(pieces) == 1:
        return pieces[0]
    for tag in ("GSUB", "GPOS"):
        _share_language_systems([piece[tag].table for piece in pieces if tag in piece])
    merged = merge.Merger().merge([as_file(piece) for piece in pieces])
    return TTFont(as_file(merged), recalcTimestamp=False)


def _cut(path: Path, place: dict[str, int], points: set[int], is_leading: bool) -> TTFont:
    font = TTFont(path, recalcTimestamp=False)
    font.flavor = None
    options = subset.Options(layout_features=["*"], layout_scripts=["*"], name_IDs=["*"], name_languages=["*"],
                             glyph_names=True, notdef_outline=True, hinting=False, recalc_timestamp=False)
    cutter = subset.Subsetter(options)
    cutter.populate(unicodes=points)
    cutter.subset(font)
    instancer.instantiateVariableFont(font, place, inplace=True)
    for tag in DROPPED_TABLES:
        if tag in font:
            del font[tag]
    if not is_leading and "GPOS" in font:
        # A letter of a later piece is kerned as its base letter in the first; both kernings would add up.
        _drop_feature(font["GPOS"].table, "kern")
    return font


def _drop_feature(table, tag: str) -> None:
    kept = [i for i, record in enumerate(table.FeatureList.FeatureRecord) if record.FeatureTag != tag]
    renumbered = {old: new for new, old in enumerate(kept)}
    table.FeatureList.FeatureRecord = [table.FeatureList.FeatureRecord[i] for i in kept]
    for script in table.ScriptList.ScriptRecord:
        for system in _systems(script.Script):
            system.FeatureIndex = [renumbered[i] for i in system.FeatureIndex if i in renumbered]


def _systems(script) -> list:
    found = [record.LangSys for record in script.LangSysRecord]
    return found + ([script.DefaultLangSys] if script.DefaultLangSys else [])


def _share_language_systems(tables: list) -> None:
    """Gives every table every script and language that any has.

    Otherwise a language known to one piece alone would lose the other pieces'
    features: Romanian would lose its tabular digits.
    """
    languages: dict[str, set[str]] = {}
    for table in tables:
        if table.ScriptList is None:
            continue
        for record in table.ScriptList.ScriptRecord:
            names = languages.setdefault(record.ScriptTag, set())
            names.update(system.LangSysTag for system in record.Script.LangSysRecord)
    for table in tables:
        if table.ScriptList is None or not table.ScriptList.ScriptRecord:
            continue
        scripts = {record.ScriptTag: record.Script for record in table.ScriptList.ScriptRecord}
        model = scripts.get("DFLT") or next(iter(scripts.values()))
        for tag, names in languages.items():
            if tag not in scripts:
                scripts[tag] = otTables.Script()
                scripts[tag].DefaultLangSys = copy.deepcopy(_default_system(model))
                scripts[tag].LangSysRecord = []
            script = scripts[tag]
            systems = {record.LangSysTag: record.LangSys for record in script.LangSysRecord}
            for name in names - set(systems):
                systems[name] = copy.deepcopy(_default_system(script))
            script.LangSysRecord = [_record(otTables.LangSysRecord(), LangSysTag=name, LangSys=systems[name])
                                    for name in sorted(systems)]
        table.ScriptList.ScriptRecord = [_record(otTables.ScriptRecord(), ScriptTag=tag, Script=scripts[tag])
                                         for tag in sorted(scripts)]


def _default_system(script):
    if script.DefaultLangSys is None:
        script.DefaultLangSys = _record(otTables.LangSys(), LookupOrder=None, ReqFeatureIndex=0xFFFF, FeatureIndex=[])
    return script.DefaultLangSys


def _record(record, **fields):
    for name, value in fields.items():
        setattr(record, name, value)
    return record


def scale_outlines(font: TTFont, factor: float) -> None:
    """Sets everything smaller or larger within an unchanged em."""
    if factor != 1.0:
        units = font["head"].unitsPerEm
        scale_upem(font, round(units * factor))
        font["head"].unitsPerEm = units


def set_vertical_metrics(font: TTFont, ascender: int, descender: int, line_gap: int) -> None:
    glyphs = font["glyf"]
    boxes = [glyphs[name] for name in font.getGlyphOrder() if glyphs[name].numberOfContours]
    for box in boxes:
        box.recalcBounds(glyphs)
    hhea, os2 = font["hhea"], font["OS/2"]
    hhea.ascent, hhea.descent, hhea.lineGap = ascender, descender, line_gap
    os2.sTypoAscender, os2.sTypoDescender, os2.sTypoLineGap = ascender, descender, line_gap
    os2.usWinAscent = max(ascender, max(box.yMax for box in boxes))
    os2.usWinDescent = max(-descender, -min(box.yMin for box in boxes))
    os2.version = max(os2.version, 4)
    os2.fsSelection |= 1 << 7  # use the typographic metrics


def set_identity(font: TTFont, family: str, style: str, weight: int, width_class: int, version: str,
                 donors: list[TTFont]) -> None:
    copyrights = dict.fromkeys(source["name"].getDebugName(0) for source in [font, *donors])
    bold = style == "Bold"
    legacy_family = family if style in ("Book", "Bold") else f"{family} {style}"
    names = {
        0: " ".join(copyrights),
        1: legacy_family,
        2: "Bold" if bold else "Regular",
        3: f"{version};{family}-{style}",
        4: f"{family} {style}",
        5: f"Version {version}",
        6: f"{family}-{style}",
        13: OFL_DESCRIPTION,
        14: OFL_URL,
        16: family,
        17: style,
    }
    table = font["name"]
    table.names = []
    for name_id, text in names.items():
        table.setName(text, name_id, *WIN_UNICODE_ENGLISH)
    os2, head = font["OS/2"], font["head"]
    os2.usWeightClass, os2.usWidthClass = weight, width_class
    os2.fsType = 0  # embedding is permitted
    os2.achVendID = "BRSL"
    os2.fsSelection &= ~0b1100001  # italic, bold, regular
    os2.fsSelection |= 1 << (5 if bold else 6)
    head.macStyle = 1 if bold else 0
    head.fontRevision = float(version)


def to_bytes(font: TTFont, seconds: int) -> bytes:
    os2 = font["OS/2"]
    os2.recalcUnicodeRanges(font)
    os2.recalcAvgCharWidth(font)
    os2.updateFirstAndLastCharIndex(font)
    return dated_bytes(font, seconds)
