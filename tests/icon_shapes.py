#!/usr/bin/env python3
"""Icons that `brisel icon` draws from the icon font, beside their drawings as librsvg draws them: alike to a tolerance.

Two renderers that share no code see two files made apart, so that a fault in reading a drawing, in the font's outlines or
in placing the glyph shows in one of them only. Drawings of our own are all compared, of the rest of the mapping's
drawings that are taken as they are every sixth.

Usage: icon_shapes.py <the program> <node_modules folder of assets>
"""

import collections
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import zlib

if shutil.which("rsvg-convert") is None:
    sys.exit("icon_shapes: rsvg-convert is missing: install librsvg2-bin")
PROGRAM, SOURCES = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
del sys.argv[1:3]
ASSETS = pathlib.Path(__file__).resolve().parent.parent / "assets"
PHOSPHOR = SOURCES / "@phosphor-icons" / "core" / "assets"

SIZE_16 = 16
SIZES_24 = (24, 67)  # in turn: on the pixels it is designed for, and between them
STRIDE = 6

# Of 255: a hundredth on average, a quarter at the worst pixel. The renderers round coverage differently, and the font's
# curves are up to half a unit of the em off.
MEAN_TOLERANCE = 2.5
WORST_TOLERANCE = 64


def drawing_file(source):
    """The file of a drawing that is taken as it is; None where parts are put together."""
    folder, _, name = source.partition("/")
    if not name or not set(name).isdisjoint(" @") or folder == "digits":
        return None
    if folder == "own":
        return ASSETS / "drawings" / f"{name}.svg"
    return PHOSPHOR / folder / (f"{name}.svg" if folder == "regular" else f"{name}-{folder}.svg")


def sample():
    """(accessor, design, file, size) of every comparison."""
    rows = [line.split("\t") for line in (ASSETS / "icons.tsv").read_text(encoding="utf-8").splitlines()[1:]]
    for number, (accessor, source24, source16, *_) in enumerate(rows):
        for design, source, size in (("x24", source24, SIZES_24[number // STRIDE % 2]),
                                     ("x16", source24 if source16 == "=" else source16, SIZE_16)):
            file = drawing_file(source)
            if file and (number % STRIDE == 0 or source.startswith("own/")):
                yield accessor, design, file, size


def sheet(files, size):
    """Drawings one below the other, as an SVG: librsvg is started once for all of a size."""
    drawings = (re.sub(r"<svg\b", f'<svg y="{number * size}" width="{size}" height="{size}"',
                       file.read_text(encoding="utf-8"), count=1) for number, file in enumerate(files))
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{size}" height="{size * len(files)}">'
            f'{"".join(drawings)}</svg>')


def alpha_of_png(path):
    """Width and the alpha bytes, row by row, of a PNG of 8 bits RGBA that is not interlaced."""
    data, position, packed, header = path.read_bytes(), 8, b"", b""
    while position < len(data):
        length, kind = int.from_bytes(data[position:position + 4], "big"), data[position + 4:position + 8]
        body = data[position + 8:position + 8 + length]
        header, packed = (body, packed) if kind == b"IHDR" else (header, packed + body if kind == b"IDAT" else packed)
        position += length + 12
    width, height = int.from_bytes(header[:4], "big"), int.from_bytes(header[4:8], "big")
    assert header[8:] == b"\x08\x06\0\0\0", f"{path}: 8 bits RGBA are expected"
    raw, stride, above, alpha = zlib.decompress(packed), 4 * width, bytes(4 * width), bytearray()
    for start in range(0, height * (stride + 1), stride + 1):
        kind, row = raw[start], bytearray(raw[start + 1:start + 1 + stride])
        for i in range(stride):
            left, up, corner = (row[i - 4] if i > 3 else 0), above[i], (above[i - 4] if i > 3 else 0)
            row[i] = row[i] + (0, left, up, (left + up) // 2, paeth(left, up, corner))[kind] & 255
        alpha, above = alpha + row[3::4], row
    return width, bytes(alpha)


def paeth(left, up, corner):
    guess = left + up - corner
    return min((left, up, corner), key=lambda value: abs(guess - value))


class Shapes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.ours, self.theirs = (pathlib.Path(folder.name) / name for name in ("ours.png", "theirs.png"))

    def differences(self, comparisons):
        """Of all pixels, in steps of 255, beside the comparison."""
        of_size = collections.defaultdict(list)
        for comparison in comparisons:
            of_size[comparison[3]].append(comparison)
        for size, group in of_size.items():
            subprocess.run(["rsvg-convert", "--output", self.theirs],
                           input=sheet([file for _, _, file, _ in group], size).encode(), check=True, timeout=60)
            width, drawings = alpha_of_png(self.theirs)
            self.assertEqual((width, len(drawings)), (size, size * size * len(group)))
            for number, comparison in enumerate(group):
                accessor, design, _, _ = comparison
                subprocess.run([PROGRAM, "icon", accessor, "--size", str(size), "--scale", "1", "--color", "#ffffff",
                                "--design", design, "-o", self.ours], check=True, timeout=60)
                width, icon = alpha_of_png(self.ours)
                self.assertEqual((width, len(icon)), (size, size * size), comparison)
                drawing = drawings[number * size * size:(number + 1) * size * size]
                yield comparison, [abs(a - b) for a, b in zip(icon, drawing)]

    def test_icons_look_like_their_drawings(self):
        icons, drawn = set(), set()
        for (accessor, design, file, size), off in self.differences(sample()):
            icons.add(accessor)
            drawn.add(file)
            with self.subTest(icon=accessor, design=design, size=size):
                self.assertLessEqual(sum(off) / len(off), MEAN_TOLERANCE)
                self.assertLessEqual(max(off), WORST_TOLERANCE)
        self.assertGreaterEqual(len(icons), 60)
        self.assertGreaterEqual(len(drawn & set((ASSETS / "drawings").iterdir())), 40)

    def test_another_drawing_is_not_taken_for_the_icon(self):
        others = [(accessor, design, drawing_file(drawing), size) for accessor, design, drawing, size in (
            ("heart", "x24", "regular/star", 24), ("heart", "x24", "bold/heart", 24), ("heart", "x16", "regular/heart", 16),
            ("chevronLeft", "x24", "regular/caret-right", 24), ("minus", "x16", "regular/minus", 16))]
        for comparison, off in self.differences(others):
            self.assertGreater(max(off), WORST_TOLERANCE, comparison)


if __name__ == "__main__":
    unittest.main()
