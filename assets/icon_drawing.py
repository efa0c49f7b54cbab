"""Reading the drawings of icons and putting them together, by the notation that README.md explains."""

from __future__ import annotations

import re
from functools import lru_cache
from pathlib import Path
from xml.etree import ElementTree

import pyclipper
from booleanOperations import BooleanOperationManager as booleans
from fontTools.misc.bezierTools import cubicPointAtT
from fontTools.pens.areaPen import AreaPen
from fontTools.pens.basePen import BasePen
from fontTools.pens.boundsPen import BoundsPen
from fontTools.pens.pointPen import AbstractPointPen, PointToSegmentPen, ReverseContourPointPen, SegmentToPointPen
from fontTools.pens.transformPen import TransformPen
from fontTools.svgLib.path import parse_path

BOX = 256                  # side of the square that every drawing is made in
SCALE = 4                  # units of the em to one of the box
EM = BOX * SCALE
ASCENT = EM * 7 // 8       # of the top of the box above the baseline

GAP = 16 * SCALE           # cut away around what "~" lays on
CLEFT = 40 * SCALE         # clefts of a badge that are narrower than this are cut away with it
CRUMB = 150 * SCALE**2     # area of what a gap leaves over that is too small to be meant
CLIPPER_SCALE = 1 << 10    # the clipper works in integers
CURVE_STEPS = 16           # of the polygons that approximate a badge
ARC_TOLERANCE = 0.25       # of the arcs around it, in units of the em

DIGIT_SPACE = 11 * SCALE   # between the digits of a number

WEIGHTS = {"regular": "", "bold": "-bold", "fill": "-fill"}
PART = re.compile(r"(?P<set>[a-z]+)/(?P<name>[\w.-]+)(?:@(?P<x>-?[\d.]+),(?P<y>-?[\d.]+),(?P<size>[\d.]+))?")


class DrawingError(Exception):
    """A fault in a drawing, or in the notation, that one line explains."""


class Contour(list):
    """The points of a closed contour, each a place and a kind as point pens have them."""

    def drawPoints(self, pen: AbstractPointPen) -> None:
        pen.beginPath()
        for place, kind in self:
            pen.addPoint(place, kind)
        pen.endPath()


class Drawing(AbstractPointPen):
    """Closed contours in units of the em, y upwards, filled by the nonzero rule; a pen that keeps what it draws."""

    def __init__(self, contours=()):
        self.contours = list(contours)

    def beginPath(self, identifier=None, **kwargs):
        self.contours.append(Contour())

    def addPoint(self, pt, segmentType=None, smooth=False, name=None, identifier=None, **kwargs):
        self.contours[-1].append((pt, segmentType))

    def endPath(self):
        if len(self.contours[-1]) < 2:
            self.contours.pop()

    def addComponent(self, baseGlyphName, transformation, identifier=None, **kwargs):
        raise NotImplementedError

    def draw(self, pen) -> None:
        """Draws with a segment pen."""
        points = PointToSegmentPen(pen)
        for contour in self.contours:
            contour.drawPoints(points)

    def placed(self, x: float, y: float, size: float) -> Drawing:
        """The drawing in a smaller box, whose top left corner is at (x, y) of the box."""
        factor, left, top = size / BOX, x * SCALE, ASCENT - y * SCALE
        return Drawing(Contour(((left + px * factor, top + (py - ASCENT) * factor), kind) for (px, py), kind in contour)
                       for contour in self.contours)

    def sides(self) -> tuple[float, float]:
        """Where the ink begins and ends from left to right."""
        pen = BoundsPen(None)
        self.draw(pen)
        return pen.bounds[0], pen.bounds[2]

    def clockwise(self) -> Drawing:
        """The drawing turned so that its outer contours are clockwise, as TrueType has them."""
        if sum(map(_area, self.contours)) <= 0:
            return self
        result = Drawing()
        for contour in self.contours:
            contour.drawPoints(ReverseContourPointPen(result))
        return result

    def oriented(self) -> Drawing:
        """The drawing without overlaps, each contour turned by whether it is an outer one or a hole."""
        result = Drawing()
        booleans.union(self.contours, result)
        return result.clockwise()

    def united(self, other: Drawing) -> Drawing:
        # Outer contours of opposite directions would cancel out where they overlap.
        return Drawing(self.oriented().contours + other.oriented().contours).oriented()

    def less(self, other: Drawing) -> Drawing:
        result = Drawing()
        booleans.difference(self.contours, other.contours, result)
        return result.clockwise()

    def without_crumbs(self) -> Drawing:
        return Drawing(contour for contour in self.contours if abs(_area(contour)) >= CRUMB)

    def surroundings(self) -> Drawing:
        """All that is within the gap around the silhouette."""
        pen = PolygonPen()
        self.draw(pen)
        silhouette = _outer(pyclipper.SimplifyPolygons(pen.polygons, pyclipper.PFT_NONZERO))
        closed = _outer(_offset(silhouette, GAP + CLEFT / 2))
        return Drawing(Contour(((x / CLIPPER_SCALE, y / CLIPPER_SCALE), "line") for x, y in path)
                       for path in _outer(_offset(closed, -CLEFT / 2)))


class CubicPen(BasePen):
    """Passes drawings on with quadratic curves raised to cubic ones, the only kind that `booleans` understands."""

    def __init__(self, pen):
        super().__init__()
        self._moveTo, self._lineTo, self._curveToOne = pen.moveTo, pen.lineTo, pen.curveTo
        self._closePath, self._endPath = pen.closePath, pen.endPath


class PolygonPen(BasePen):
    """Keeps contours as polygons in the clipper's integers."""

    def __init__(self):
        super().__init__()
        self.polygons = []

    def _moveTo(self, point):
        self.polygons.append([])
        self._lineTo(point)

    def _lineTo(self, point):
        self.polygons[-1].append(tuple(round(value * CLIPPER_SCALE) for value in point))

    def _curveToOne(self, first, second, end):
        start = self._getCurrentPoint()
        for step in range(1, CURVE_STEPS + 1):
            self._lineTo(cubicPointAtT(start, first, second, end, step / CURVE_STEPS))


def _area(contour: Contour) -> float:
    pen = AreaPen()
    Drawing([contour]).draw(pen)
    return pen.value


def _outer(polygons: list) -> list:
    return [polygon for polygon in polygons if pyclipper.Orientation(polygon)]


def _offset(polygons: list, distance: float) -> list:
    clipper = pyclipper.PyclipperOffset(arc_tolerance=ARC_TOLERANCE * CLIPPER_SCALE)
    clipper.AddPaths(polygons, pyclipper.JT_ROUND, pyclipper.ET_CLOSEDPOLYGON)
    return clipper.Execute(distance * CLIPPER_SCALE)


def read_svg(path: Path) -> Drawing:
    """The drawing of a file that holds filled paths in a box of 256 and nothing else."""
    try:
        root = ElementTree.parse(path).getroot()
    except ElementTree.ParseError as error:
        raise DrawingError(f"{path.name} is no SVG: {error}") from error
    drawing = Drawing()
    if root.get("viewBox") != f"0 0 {BOX} {BOX}":
        raise DrawingError(f"{path.name}: the viewBox must be 0 0 {BOX} {BOX}")
    pen = TransformPen(CubicPen(SegmentToPointPen(drawing)), (SCALE, 0, 0, -SCALE, 0, ASCENT))
    for element in root:
        if not element.tag.endswith("}path") or set(element.keys()) != {"d"}:
            raise DrawingError(f"{path.name}: only <path d=…> is understood, filled by the nonzero rule")
        parse_path(element.get("d"), pen)
    if not drawing.contours:
        raise DrawingError(f"{path.name} is empty")
    return drawing.clockwise()


class Shelf:
    """The sets that the notation takes drawings from."""

    def __init__(self, phosphor: Path, own: Path):
        self._phosphor, self._own = phosphor, own

    def draw(self, notation: str) -> Drawing:
        """The drawing that a source of the mapping describes."""
        first, *rest = re.split(r"\s+([-+~])\s+", notation)
        drawing = self._part(first)
        for operator, text in zip(rest[::2], rest[1::2]):
            part = self._part(text)
            if operator == "~":
                drawing = drawing.less(part.surroundings()).without_crumbs()
            drawing = drawing.less(part) if operator == "-" else drawing.united(part)
        return drawing

    def path(self, set_name: str, name: str) -> Path:
        """The file of one drawing; both designs of our own stand side by side."""
        if set_name == "own":
            return self._own / f"{name}.svg"
        if set_name in WEIGHTS:
            return self._phosphor / set_name / f"{name}{WEIGHTS[set_name]}.svg"
        raise DrawingError(f"there is no set of drawings named {set_name}")

    def _part(self, text: str) -> Drawing:
        match = PART.fullmatch(text)
        if not match:
            raise DrawingError(f"{text!r} is not of the form set/name or set/name@x,y,size")
        drawing = self._drawing(match["set"], match["name"])
        if match["x"] is None:
            return drawing
        return drawing.placed(float(match["x"]), float(match["y"]), float(match["size"]))

    def _digits(self, text: str) -> Drawing:
        """A number set in a line in the middle of the box."""
        text, weight = (text.removesuffix("-bold"), "-bold") if text.endswith("-bold") else (text, "")
        line, end = Drawing(), -DIGIT_SPACE
        for character in text:
            digit = self._drawing("own", f"digit-{'point' if character == '.' else character}{weight}")
            left, right = digit.sides()
            line.contours += digit.placed((end + DIGIT_SPACE - left) / SCALE, 0, BOX).contours
            end += DIGIT_SPACE + right - left
        return line.placed((EM - end) / 2 / SCALE, 0, BOX)

    @lru_cache(maxsize=None)
    def _drawing(self, set_name: str, name: str) -> Drawing:
        if set_name == "digits":
            return self._digits(name)
        path = self.path(set_name, name)
        if not path.is_file():
            remedy = "draw it" if set_name == "own" else "run `npm ci --prefix assets`, or mend the name"
            raise DrawingError(f"{path} is missing: {remedy}")
        return read_svg(path)
