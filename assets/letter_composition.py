"""Drawing the Latin letters and signs that a source lacks from what it has.

A letter is composed of the face's own base letter and marks. Hook above and
horn, which a face without Vietnamese does not have, are lent by a donor face.
"""

from __future__ import annotations

import copy
import unicodedata

from fontTools.pens.recordingPen import DecomposingRecordingPen
from fontTools.pens.transformPen import TransformPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTFont

GRAVE, ACUTE, CIRCUMFLEX, TILDE, MACRON, BREVE = 0x300, 0x301, 0x302, 0x303, 0x304, 0x306
DOT, DIAERESIS, HOOK, RING, DOUBLE_ACUTE, CARON = 0x307, 0x308, 0x309, 0x30A, 0x30B, 0x30C
HORN, DOT_BELOW, DIAERESIS_BELOW, COMMA_BELOW = 0x31B, 0x323, 0x324, 0x326
CEDILLA, OGONEK, LINE_BELOW = 0x327, 0x328, 0x331

TOP_MARKS = (GRAVE, ACUTE, CIRCUMFLEX, TILDE, MACRON, BREVE, DOT, DIAERESIS, HOOK, RING, DOUBLE_ACUTE, CARON)
# A mark without a glyph of its own is drawn as its spacing accent, as that of a letter which wears it, or as a
# top mark set below.
SPACING_TWINS = {GRAVE: 0x60, ACUTE: 0xB4, CIRCUMFLEX: 0x2C6, TILDE: 0x2DC, MACRON: 0xAF, BREVE: 0x2D8, DOT: 0x2D9,
                 DIAERESIS: 0xA8, RING: 0x2DA, DOUBLE_ACUTE: 0x2DD, CARON: 0x2C7, CEDILLA: 0xB8, OGONEK: 0x2DB}
WORN_BY = {CIRCUMFLEX: "ê", BREVE: "ă", DOT: "ż", RING: "å", CARON: "ě"}
TWINS_ABOVE = {DOT_BELOW: DOT, DIAERESIS_BELOW: DIAERESIS, LINE_BELOW: MACRON}
GAP_BELOW = 82      # from the baseline to a mark below, in units of the em
GAP_STACKED = 38    # between two marks one above the other
SMALL_MARK = 0.84   # of a mark beside a circumflex
SIDE_BEARING = 30   # of an accent that stands alone
DOTLESS = {ord("i"): 0x131, ord("j"): 0x237}

COMPOSED = [*range(0xC0, 0x250), *range(0x1E00, 0x1F00)]
SEQUENCES = {0x13F: "L·", 0x140: "l·", 0x149: "’n", 0x1C4: "DŽ", 0x1C5: "Dž", 0x1C6: "dž", 0x1C7: "LJ", 0x1C8: "Lj",
             0x1C9: "lj", 0x1CA: "NJ", 0x1CB: "Nj", 0x1CC: "nj", 0x1F1: "DZ", 0x1F2: "Dz", 0x1F3: "dz",
             0x2025: "..", 0x203C: "!!", 0x2047: "??", 0x2048: "?!", 0x2049: "!?"}
SAME_SHAPE = {0xAD: "-", 0x2010: "-", 0x2011: "-", 0x2012: "–", 0x2015: "—", 0x2024: ".", 0x2027: "·", 0x2BC: "’",
              0x2BB: "‘", 0x2219: "·", 0x2126: "Ω"}
# Width in em: a fraction, or the letter that has it.
SPACES = {0x2000: 1 / 2, 0x2001: 1, 0x2002: 1 / 2, 0x2003: 1, 0x2004: 1 / 3, 0x2005: 1 / 4, 0x2006: 1 / 6,
          0x2007: "tabular", 0x2008: ".", 0x2009: 1 / 5, 0x200A: 1 / 10, 0x200B: 0, 0x200C: 0, 0x200D: 0, 0x2060: 0,
          0x202F: 1 / 5, 0x205F: 4 / 18}
BORROWED_LOWER_CASE = (0x138, 0x167, 0x17F)
BORROWED_CAPITALS = (0x166, 0x2032, 0x2033, *range(0x20A0, 0x20C1))

# All that a donor is asked for.
LENT = " ".join(f"{code:04X}" for code in (
    *map(ord, "oOuU"), 0x1A0, 0x1A1, 0x1AF, 0x1B0, ACUTE, HOOK, *BORROWED_LOWER_CASE, *BORROWED_CAPITALS))

# A háček or stroke that stands right of these letters forbids the base letter's kerning on that side.
KERNED_ON_THE_LEFT_ONLY = {0x10F, 0x13D, 0x13E, 0x165, 0x140, 0x13F, 0x1A0, 0x1A1, 0x1AF, 0x1B0}


def complete_latin(font: TTFont, donor: TTFont | None) -> None:
    """Adds every Latin letter and common sign that can be drawn and is lacking."""
    drawing = Drawing(font, donor)
    for mark in (*TOP_MARKS, DOT_BELOW, DIAERESIS_BELOW, LINE_BELOW, COMMA_BELOW, CEDILLA, OGONEK, HORN):
        drawing.add_mark(mark)
    drawing.borrow()
    for code in COMPOSED:
        drawing.compose(code)
    for mark, code in SPACING_TWINS.items():
        drawing.add_spacing_accent(code, mark)
    for code, text in SEQUENCES.items():
        drawing.set_in_a_row(code, text)
    for code, char in SAME_SHAPE.items():
        drawing.share_shape(code, char)
    for code, width in SPACES.items():
        drawing.add_space(code, width)
    drawing.add_dotted_circle()
    drawing.add_double_dagger()
    drawing.add_per_mille()
    drawing.finish()


class Drawing:
    """Adds glyphs to one font."""

    def __init__(self, font: TTFont, donor: TTFont | None):
        self.font, self.donor = font, donor
        self.glyphs, self.metrics = font["glyf"], font["hmtx"]
        self.order = list(font.getGlyphOrder())
        self.known = set(self.order)
        self.cmap = dict(font.getBestCmap())
        self.marks: dict[int, str] = {}
        self.anchors = Anchors(font)

    # Glyphs

    def put(self, name: str, glyph, advance: int, code: int | None = None, mark: bool = False) -> str:
        self.order.append(name)
        self.known.add(name)
        self.glyphs.glyphOrder = self.order
        self.glyphs.glyphs[name] = glyph
        if glyph.numberOfContours:
            glyph.recalcBounds(self.glyphs)
        self.metrics[name] = (advance, getattr(glyph, "xMin", 0))
        self.font["GDEF"].table.GlyphClassDef.classDefs[name] = 3 if mark else 1
        if code is not None:
            self.encode(code, name)
        return name

    def encode(self, code: int, name: str) -> None:
        self.cmap[code] = name

    def finish(self) -> None:
        self.font.setGlyphOrder(self.order)
        for table in self.font["cmap"].tables:
            if table.isUnicode() and table.format in (4, 12):
                limit = 0xFFFF if table.format == 4 else 0x10FFFF
                table.cmap.update({code: name for code, name in self.cmap.items() if code <= limit})

    def name_for(self, code: int) -> str:
        name = f"uni{code:04X}"
        return name if name not in self.known else f"{name}.drawn"

    def composite(self, parts: list[tuple[str, int, int]]):
        pen = TTGlyphPen(self.glyphs.glyphs)
        for name, x, y in parts:
            pen.addComponent(name, (1, 0, 0, 1, x, y))
        return pen.glyph()

    def box(self, name: str):
        glyph = self.glyphs[name]
        if glyph.numberOfContours:
            glyph.recalcBounds(self.glyphs)
        return glyph

    def centre(self, name: str) -> float:
        return (self.box(name).xMin + self.box(name).xMax) / 2

    # Marks

    def add_mark(self, mark: int) -> None:
        """Finds or draws the combining mark and gives it its code point."""
        usual = {ACUTE: "acutecomb", GRAVE: "gravecomb", TILDE: "tildecomb"}.get(mark, f"uni{mark:04X}")
        if mark in self.cmap:
            name = self.cmap[mark]
        elif usual in self.known:
            name = usual
        else:
            name = self._draw_mark(mark)
        if name:
            self.marks[mark] = name
            self.encode(mark, name)

    def _draw_mark(self, mark: int) -> str | None:
        if mark in TWINS_ABOVE and TWINS_ABOVE[mark] in self.marks:
            twin = self.marks[TWINS_ABOVE[mark]]
            glyph = self.composite([(twin, -self.box(twin).xMin, -GAP_BELOW - self.box(twin).yMax)])
            return self.put(self.name_for(mark), glyph, 0, mark=True)
        if self.cmap.get(SPACING_TWINS.get(mark)):
            twin = self.cmap[SPACING_TWINS[mark]]
            name = self.put(self.name_for(mark), self.composite([(twin, -self.box(twin).xMin, 0)]), 0, mark=True)
        elif mark in WORN_BY:
            wearer = WORN_BY[mark]
            body = self.box(self.cmap[ord(unicodedata.normalize("NFD", wearer)[0])]).yMax
            glyph = outline(self.font, self.cmap[ord(wearer)], contours=lambda box: box[1] >= body)
            glyph.coordinates.translate((-min(x for x, _ in glyph.coordinates), 0))
            name = self.put(self.name_for(mark), glyph, 0, mark=True)
        elif mark == HOOK and self.donor:
            theirs = self.donor.getBestCmap()
            rise = self.box(self.marks[ACUTE]).yMin - self.donor["glyf"][theirs[ACUTE]].yMin
            name = self.put(self.name_for(mark), outline(self.donor, theirs[HOOK], dy=rise), 0, mark=True)
        elif mark == HORN and (self.donor or 0x1B0 in self.cmap):
            return self.put(self.name_for(mark), self._horn(ord("u")), 0, mark=True)
        else:
            return None
        self.anchors.treat_alike(name, self.marks.get(ACUTE), self.centre)
        return name

    def _horn(self, base: int):
        """The horn of the donor's ơ or ư, or of our own, set to our letter."""
        lender = self.donor or self.font
        theirs = lender.getBestCmap()
        horned = {ord("u"): 0x1B0, ord("o"): 0x1A1, ord("U"): 0x1AF, ord("O"): 0x1A0}[base]
        ours, original = self.box(self.cmap[base]), lender["glyf"][theirs[base]]
        return outline(lender, theirs[horned], dx=ours.xMax - original.xMax, dy=ours.yMax - original.yMax,
                       contours=lambda box: box[2] > original.xMax + 15 and box[0] > original.xMax * 0.55)

    def add_spacing_accent(self, code: int, mark: int) -> None:
        if code not in self.cmap and mark in self.marks:
            box = self.box(self.marks[mark])
            glyph = self.composite([(self.marks[mark], SIDE_BEARING - box.xMin, 0)])
            self.put(self.name_for(code), glyph, box.xMax - box.xMin + 2 * SIDE_BEARING, code)

    # Letters

    def compose(self, code: int) -> None:
        decomposed = unicodedata.normalize("NFD", chr(code))
        base, marks = ord(decomposed[0]), [ord(mark) for mark in decomposed[1:]]
        if code in self.cmap or not marks or base not in self.cmap or any(mark not in self.marks for mark in marks):
            return
        above = [mark for mark in marks if mark in TOP_MARKS]
        letter = self.cmap[base]
        if above and base in DOTLESS:
            if DOTLESS[base] not in self.cmap:
                return
            letter = self.cmap[DOTLESS[base]]
        parts, advance = [(letter, 0, 0)], self.metrics[letter][0]
        if HORN in marks:
            horned = {"o": 0x1A1, "O": 0x1A0, "u": 0x1B0, "U": 0x1AF}.get(decomposed[0])
            if horned is None:
                return
            if horned in self.cmap:
                parts = [(self.cmap[horned], 0, 0)]
            else:
                parts.append((self.put(f"horn.{letter}", self._horn(base), 0), 0, 0))
        parts += [self._below(mark, letter) for mark in marks if mark not in TOP_MARKS and mark != HORN]
        parts += self._stack(above, letter)
        self.put(self.name_for(code), self.composite(parts), advance, code)

    def _below(self, mark: int, letter: str) -> tuple[str, int, int]:
        name, box = self.marks[mark], self.box(letter)
        offset = self.anchors.offset(letter, name)
        if offset and mark not in TWINS_ABOVE:
            return (name, *offset)
        if mark == OGONEK:
            return (name, round(box.xMax - self.box(name).xMax), 0)
        x, y = (box.xMin + box.xMax) / 2, 0
        if letter == self.cmap[ord("y")]:
            x = box.xMax - (box.xMax - box.xMin) * 0.22  # right of the tail
        elif box.yMin < -100 and mark in TWINS_ABOVE:
            y = box.yMin + GAP_BELOW // 2
        return (name, round(x - self.centre(name)), y)

    def _stack(self, marks: list[int], letter: str) -> list[tuple[str, int, int]]:
        if not marks:
            return []
        first, rest = self.marks[marks[0]], marks[1:]
        x, y = self._on_top(first, letter)
        parts = [[first, x, y]]
        for mark in rest:
            name = self.marks[mark]
            low, high = self.box(parts[-1][0]), self.box(name)
            if marks[0] == CIRCUMFLEX and mark in (ACUTE, GRAVE, HOOK):
                # Beside the circumflex, which makes room: as Vietnamese readers know it, and no taller line.
                name = self._small(name)
                high = self.box(name)
                width = high.xMax - high.xMin
                parts[0][1] -= round(width * 0.22)
                left = parts[0][1] + low.xMax - width * (0.3 if mark == GRAVE else 0.42)
                bottom = parts[0][2] + low.yMin + (low.yMax - low.yMin) * 0.72
                parts.append([name, round(left - high.xMin), round(bottom - high.yMin)])
            else:
                rise = parts[-1][2] + low.yMax + GAP_STACKED - high.yMin
                parts.append([name, round(parts[-1][1] + self.centre(parts[-1][0]) - self.centre(name)), rise])
        return [tuple(part) for part in parts]

    def _small(self, mark: str) -> str:
        name = f"{mark}.small"
        return name if name in self.known else self.put(name, outline(self.font, mark, SMALL_MARK), 0)

    def _on_top(self, name: str, letter: str) -> tuple[int, int]:
        offset = self.anchors.offset(letter, name)
        if offset:
            return offset
        raised = self.box(letter).yMax - self.box(self.cmap[ord("x")]).yMax
        return round(self.centre(letter) - self.centre(name)), max(0, round(raised * 0.85))

    # Signs

    def borrow(self) -> None:
        if self.donor is None:
            return
        theirs = self.donor.getBestCmap()
        for codes, height in ((BORROWED_LOWER_CASE, "sxHeight"), (BORROWED_CAPITALS, "sCapHeight")):
            factor = getattr(self.font["OS/2"], height) / getattr(self.donor["OS/2"], height)
            for code in codes:
                if code in theirs and code not in self.cmap:
                    glyph = outline(self.donor, theirs[code], factor)
                    self.put(self.name_for(code), glyph, round(self.donor["hmtx"][theirs[code]][0] * factor), code)

    def set_in_a_row(self, code: int, text: str) -> None:
        if code in self.cmap or any(ord(char) not in self.cmap for char in text):
            return
        parts, x = [], 0
        for char in text:
            parts.append((self.cmap[ord(char)], x, 0))
            x += self.metrics[self.cmap[ord(char)]][0]
        self.put(self.name_for(code), self.composite(parts), x, code)

    def share_shape(self, code: int, char: str) -> None:
        if code not in self.cmap and ord(char) in self.cmap:
            self.encode(code, self.cmap[ord(char)])

    def add_space(self, code: int, width: float | str) -> None:
        if code in self.cmap:
            return
        if width == "tabular":
            advance = self.metrics["zero.tf" if "zero.tf" in self.known else self.cmap[ord("0")]][0]
        elif isinstance(width, str):
            advance = self.metrics[self.cmap[ord(width)]][0]
        else:
            advance = round(width * self.font["head"].unitsPerEm)
        self.put(self.name_for(code), TTGlyphPen(None).glyph(), advance, code)

    def add_dotted_circle(self) -> None:
        if 0x25CC in self.cmap:
            return
        dot, height = self.marks[DOT], self.box(self.cmap[ord("o")]).yMax
        size, middle = self.box(dot).xMax - self.box(dot).xMin, (self.box(dot).yMin + self.box(dot).yMax) / 2
        radius, step = height / 2, 0.5 ** 0.5
        ring = [(1, 0), (step, step), (0, 1), (-step, step), (-1, 0), (-step, -step), (0, -1), (step, -step)]
        pen, scale = TTGlyphPen(self.glyphs.glyphs), min(1.0, 70 / size)
        for x, y in ring:
            pen.addComponent(dot, (scale, 0, 0, scale, round(300 + x * radius - scale * self.centre(dot)),
                                   round(radius + y * radius - scale * middle)))
        self.put(self.name_for(0x25CC), pen.glyph(), 600, 0x25CC)

    def add_double_dagger(self) -> None:
        if 0x2021 in self.cmap or 0x2020 not in self.cmap:
            return
        dagger, box = self.cmap[0x2020], self.box(self.cmap[0x2020])
        pen = TTGlyphPen(self.glyphs.glyphs)
        pen.addComponent(dagger, (1, 0, 0, 1, 0, 0))
        # One in the descender is already long; one on the baseline grows downwards to part the bars.
        drop = 0 if box.yMin < -100 else round((box.yMax - box.yMin) * 0.16)
        pen.addComponent(dagger, (-1, 0, 0, -1, box.xMin + box.xMax, box.yMin + box.yMax - drop))
        self.put(self.name_for(0x2021), pen.glyph(), self.metrics[dagger][0], 0x2021)

    def add_per_mille(self) -> None:
        """The percent sign with its right ring twice."""
        if 0x2030 in self.cmap:
            return
        percent = self.cmap[ord("%")]
        box = self.box(percent)
        rings = contour_boxes(self.font, percent)
        right = [b for b in rings if b[0] > (box.xMin + box.xMax) / 2 and b[3] < box.yMax * 0.75]
        if not right:
            return
        gap = self.metrics[percent][0] - box.xMax
        step = max(b[2] for b in right) - min(b[0] for b in right) + round(gap * 0.8)
        ring = self.put("perthousand.ring", outline(self.font, percent, contours=lambda b: b in right), 0)
        parts = [(percent, 0, 0), (ring, step, 0)]
        self.put(self.name_for(0x2030), self.composite(parts), self.metrics[percent][0] + step, 0x2030)


class Anchors:
    """The mark attachment points of a font's GPOS table."""

    def __init__(self, font: TTFont):
        lookups = font["GPOS"].table.LookupList.Lookup if "GPOS" in font else []
        self.tables = [table for lookup in lookups for table in subtables(lookup, 4)]
        self.font = font

    def offset(self, base: str, mark: str) -> tuple[int, int] | None:
        """How far a mark moves to sit on a base letter."""
        for table in self.tables:
            bases, marks = table.BaseCoverage.glyphs, table.MarkCoverage.glyphs
            if base in bases and mark in marks:
                record = table.MarkArray.MarkRecord[marks.index(mark)]
                anchor = table.BaseArray.BaseRecord[bases.index(base)].BaseAnchor[record.Class]
                if anchor:
                    return (anchor.XCoordinate - record.MarkAnchor.XCoordinate,
                            anchor.YCoordinate - record.MarkAnchor.YCoordinate)
        return None

    def treat_alike(self, new: str, model: str | None, centre) -> None:
        """Attaches a new mark wherever a known one attaches."""
        for table in self.tables:
            marks = table.MarkCoverage.glyphs
            if model not in marks or new in marks:
                continue
            record = copy.deepcopy(table.MarkArray.MarkRecord[marks.index(model)])
            record.MarkAnchor.XCoordinate = round(centre(new))
            marks.append(new)  # new glyphs come last in the glyph order, as coverage demands
            table.MarkArray.MarkRecord.append(record)
            table.MarkArray.MarkCount = len(marks)


def subtables(lookup, kind: int) -> list:
    found = [getattr(table, "ExtSubTable", table) for table in lookup.SubTable]
    return [table for table in found if table.LookupType == kind]


def recorded_contours(font: TTFont, name: str) -> list[list]:
    pen = DecomposingRecordingPen(font.getGlyphSet())
    font.getGlyphSet()[name].draw(pen)
    contours: list[list] = []
    for step in pen.value:
        if step[0] == "moveTo" or not contours or contours[-1][-1][0] in ("closePath", "endPath"):
            contours.append([])
        contours[-1].append(step)
    return contours


def bounds(contour: list) -> tuple[float, float, float, float]:
    points = [point for _, points in contour for point in points if point]
    xs, ys = [x for x, _ in points], [y for _, y in points]
    return min(xs), min(ys), max(xs), max(ys)


def contour_boxes(font: TTFont, name: str) -> list[tuple[float, float, float, float]]:
    return [bounds(contour) for contour in recorded_contours(font, name)]


def outline(font: TTFont, name: str, factor: float = 1.0, dx: float = 0, dy: float = 0, contours=None):
    """A glyph's outline, scaled, then moved; of some contours only if a test of their boxes is given."""
    target = TTGlyphPen(None)
    pen = TransformPen(target, (factor, 0, 0, factor, dx, dy))
    for contour in recorded_contours(font, name):
        if contours is None or contours(bounds(contour)):
            for step, points in contour:
                getattr(pen, step)(*points)
    glyph = target.glyph()
    if glyph.numberOfContours:
        glyph.coordinates.toInt()
    return glyph


# Kerning


def kern_letters_like_their_bases(font: TTFont, leading: frozenset[int]) -> None:
    """Letters that did not come with the leading piece inherit their base letter's kerning."""
    if "GPOS" not in font:
        return
    cmap = font.getBestCmap()
    kin: dict[str, list[str]] = {}
    left_only = {cmap[code] for code in KERNED_ON_THE_LEFT_ONLY if code in cmap}
    for code, name in sorted(cmap.items()):
        base = ord(unicodedata.normalize("NFD", chr(code))[0])
        if code not in leading and base in leading and cmap[base] != name and unicodedata.category(chr(code))[0] == "L":
            kin.setdefault(cmap[base], []).append(name)
    table = font["GPOS"].table
    wanted = {index for record in table.FeatureList.FeatureRecord if record.FeatureTag == "kern"
              for index in record.Feature.LookupListIndex}
    for index in sorted(wanted):
        for pairs in subtables(table.LookupList.Lookup[index], 2):
            extend = _extend_single_pairs if pairs.Format == 1 else _extend_class_pairs
            extend(pairs, kin, left_only, font.getGlyphID)


def _extend_single_pairs(pairs, kin, left_only, glyph_id) -> None:
    for pair_set in pairs.PairSet:
        known = {record.SecondGlyph for record in pair_set.PairValueRecord}
        for record in list(pair_set.PairValueRecord):
            for name in kin.get(record.SecondGlyph, ()):
                if name not in known:
                    twin = copy.copy(record)
                    twin.SecondGlyph = name
                    pair_set.PairValueRecord.append(twin)
        pair_set.PairValueRecord.sort(key=lambda record: glyph_id(record.SecondGlyph))
        pair_set.PairValueCount = len(pair_set.PairValueRecord)
    sets = dict(zip(pairs.Coverage.glyphs, pairs.PairSet))
    for base, names in kin.items():
        for name in names:
            if base in sets and name not in sets and name not in left_only:
                sets[name] = sets[base]
    pairs.Coverage.glyphs = sorted(sets, key=glyph_id)
    pairs.PairSet = [sets[name] for name in pairs.Coverage.glyphs]
    pairs.PairSetCount = len(pairs.PairSet)


def _extend_class_pairs(pairs, kin, left_only, glyph_id) -> None:
    first, second = pairs.ClassDef1.classDefs, pairs.ClassDef2.classDefs
    covered = set(pairs.Coverage.glyphs)
    for base, names in kin.items():
        for name in names:
            if base in covered and name not in covered and name not in left_only:
                covered.add(name)
                if base in first:
                    first[name] = first[base]
            if base in second and name not in second:
                second[name] = second[base]
    pairs.Coverage.glyphs = sorted(covered, key=glyph_id)
