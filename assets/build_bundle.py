#!/usr/bin/env python3
"""Builds BriselFoundation.bundle: the 24 typefaces, the icon font and the licences of their sources.

    python3 assets/build_bundle.py --sources assets/node_modules --icons brisel/icons/icons.def --out DIR

The design sheet below says what every family is made of; `typeface_assembly`
cuts and joins the pieces, `letter_composition` draws the letters that the
sources lack. `icon_font` follows a sheet of its own, icons.tsv, and takes the
code points from the catalogue of icons. The same sources give the same bytes.
"""

from __future__ import annotations

import argparse
import contextlib
import hashlib
import multiprocessing
import os
import shutil
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

try:
    import booleanOperations  # noqa: F401  (joins the parts of icons)
    import brotli  # noqa: F401  (WOFF2 sources cannot be read without it)
    import fontTools  # noqa: F401
except ImportError as error:
    sys.exit(f"build_bundle: {error.name} is missing for {sys.executable}: "
             "install python3-fonttools, python3-brotli and python3-booleanoperations")

# ---------------------------------------------------------------------------
# Design sheet
# ---------------------------------------------------------------------------

VERSION = "1.000"
UNITS_PER_EM = 1000

# One line box for every face, so that a line does not grow when a fallback
# face sets part of it. It is the text face's own.
ASCENDER, DESCENDER, LINE_GAP = 950, -250, 0

WEIGHTS = {"Book": 400, "Bold": 700, "Black": 900}

SHAPING = "0020 00A0 00AD 200B-200F 2060 25CC"  # space, joiners, dotted circle


@dataclass(frozen=True)
class Source:
    """Files of one source family; the first file leads, the rest fill gaps."""
    package: str
    files: tuple[str, ...]
    wght: tuple[int, int, int]  # axis position of Book, Bold, Black
    wdth: int | None = None
    scale: float = 1.0          # optical size beside the text face

    def paths(self, root: Path) -> list[Path]:
        folder = root / "@fontsource-variable" / self.package / "files"
        return [folder / f"{self.package}-{name}-normal.woff2" for name in self.files]

    def licence(self, root: Path) -> Path:
        return root / "@fontsource-variable" / self.package / "LICENSE"


@dataclass(frozen=True)
class Family:
    name: str
    source: Source
    keeps: str | None = None     # code points, as hexadecimal ranges; None: all
    latin: bool = False          # must cover all of Latin: missing letters are drawn
    donor: Source | None = None  # lends the shapes that cannot be composed
    width_class: int = 5


def archivo(wdth: int, wght: tuple[int, int, int] = (400, 700, 900), scale: float = 1.0) -> Source:
    return Source("archivo", ("latin-standard", "latin-ext-standard", "vietnamese-standard"), wght, wdth, scale)


FAMILIES = (
    # Text. Horn, hook above and a few rare letters come from Archivo, at the
    # axis positions where its stems are as heavy as Figtree's (80, 132, 180).
    Family("Tondal", Source("figtree", ("latin-wght", "latin-ext-wght"), (400, 700, 900)),
           latin=True, donor=archivo(100, (350, 660, 845))),

    # Script companions. Latin letters and ASCII digits always come from the primary face.
    Family("TondalArab", Source("noto-sans-arabic", ("arabic-wght", "symbols-wght"), (400, 670, 900)),
           keeps=f"{SHAPING} 060C-06FF 0750-077F 0870-08FF FB50-FDFF FE70-FEFC 204F 2E41"),
    Family("TondalHebr", Source("noto-sans-hebrew", ("hebrew-wght",), (365, 650, 890), scale=0.955),
           keeps=f"{SHAPING} 0591-05F4 FB1D-FB4F 20AA"),
    # Noto's lower case is 536 high, Figtree's 500: set smaller, at equal stems.
    Family("TondalCyrl", Source("noto-sans", ("cyrillic-wght", "cyrillic-ext-wght"), (387, 655, 890), scale=0.955),
           keeps=f"{SHAPING} 0300-036F 0400-052F 1C80-1C8F 2116 20B4 20BD 2DE0-2DFF A640-A69F FE2E-FE2F"),
    Family("TondalGrek", Source("noto-sans", ("greek-wght", "greek-ext-wght"), (387, 655, 890), scale=0.955),
           keeps=f"{SHAPING} 0300-036F 0370-03FF 1F00-1FFF 2126"),
    Family("TondalDeva", Source("noto-sans-devanagari", ("devanagari-wght",), (400, 680, 900)),
           keeps=f"{SHAPING} 0900-097F 1CD0-1CFA 20B9 20F0 A830-A839 A8E0-A8FF"),

    # Titles: two widths of one design.
    Family("TondalTitle", archivo(100), latin=True),
    Family("TondalTitleTall", archivo(62), latin=True, width_class=2),
)

# ---------------------------------------------------------------------------


class BuildError(Exception):
    """A fault that one line explains."""


def source_date() -> int:
    """Seconds since 1970 written into every face; fixed unless the caller sets it."""
    return int(os.environ.get("SOURCE_DATE_EPOCH", "1735689600"))  # 2025-01-01


def sources_of(family: Family) -> list[Source]:
    return [family.source] + ([family.donor] if family.donor else [])


def check_sources(root: Path, families: tuple[Family, ...] = FAMILIES) -> None:
    for family in families:
        for source in sources_of(family):
            for path in [*source.paths(root), source.licence(root)]:
                if not path.is_file():
                    raise BuildError(f"{path} is missing: run `npm ci --prefix assets`")


def build_face(family: Family, weight: str, root: Path) -> bytes:
    """One finished typeface file."""
    import typeface_assembly as assembly
    import letter_composition as composition

    index = list(WEIGHTS).index(weight)
    font = assembly.assemble(family.source.paths(root), assembly.location(family.source, index), family.keeps)
    assembly.scale_outlines(font, family.source.scale)
    donor = None
    if family.donor:
        donor = assembly.assemble(family.donor.paths(root), assembly.location(family.donor, index),
                                  composition.LENT)
    if family.latin:
        composition.complete_latin(font, donor)
    composition.kern_letters_like_their_bases(font, assembly.leading_code_points(family.source.paths(root)))
    assembly.set_vertical_metrics(font, ASCENDER, DESCENDER, LINE_GAP)
    assembly.set_identity(font, family.name, weight, WEIGHTS[weight], family.width_class, VERSION,
                          [donor] if donor else [])
    return assembly.to_bytes(font, source_date())


def write_face(job: tuple[str, str, str, str]) -> str:
    family_name, weight, root, folder = job
    family = next(f for f in FAMILIES if f.name == family_name)
    path = Path(folder) / f"{family_name}-{weight}.otf"
    path.write_bytes(build_face(family, weight, Path(root)))
    return str(path)


def write_icon_font(root: Path, catalogue: Path, folder: Path) -> str:
    import icon_font
    from icon_drawing import DrawingError

    path = folder / f"{icon_font.NAME}.ttf"
    try:
        path.write_bytes(icon_font.build_icon_font(root, catalogue, source_date()))
    except DrawingError as error:
        raise BuildError(str(error)) from error
    return str(path)


def write_licences(root: Path, folder: Path) -> None:
    import icon_font

    folder.mkdir()
    for source in dict.fromkeys(s.package for family in FAMILIES for s in sources_of(family)):
        text = (root / "@fontsource-variable" / source / "LICENSE").read_text(encoding="utf-8")
        (folder / f"{source}-OFL.txt").write_text(text, encoding="utf-8")
    (folder / "phosphor-icons-MIT.txt").write_text(icon_font.licence(root).read_text(encoding="utf-8"), encoding="utf-8")


def sanitize(paths: list[str]) -> None:
    tool = shutil.which("ots-sanitize")
    if tool is None:
        raise BuildError("ots-sanitize is missing: install opentype-sanitizer")
    for path in paths:
        result = subprocess.run([tool, path, os.devnull], capture_output=True, text=True)
        if result.returncode != 0:
            raise BuildError(f"{Path(path).name} is rejected: {result.stdout.strip()} {result.stderr.strip()}")


def replace_directory(new: Path, target: Path) -> None:
    """Puts `new` where `target` is; what was there stays if that fails."""
    old = None
    if target.exists():
        old = Path(tempfile.mkdtemp(prefix=f".{target.name}.old-", dir=target.parent))
        target.rename(old / target.name)
    try:
        new.rename(target)
    except OSError:
        if old:
            (old / target.name).rename(target)
        raise
    finally:
        if old:
            shutil.rmtree(old)


def ingredients_digest(root: Path, catalogue: Path) -> str:
    """Tells bundles apart by all that they are made from: the packages as installed, the recipe, and its tools."""
    here = Path(__file__).resolve().parent
    files = [root / ".package-lock.json", catalogue, here / "icons.tsv", *sorted(here.glob("*.py")),
             *sorted((here / "drawings").glob("*.svg"))]
    digest = hashlib.sha256(f"{sys.version} {fontTools.version} {source_date()}".encode())
    for file in files:
        digest.update(f"\n{file.name}\n".encode() + file.read_bytes())
    return digest.hexdigest()


def keep(bundle: Path, kept: Path) -> None:
    """Keeps a copy of the bundle for other build trees, and no older one."""
    kept.parent.mkdir(parents=True, exist_ok=True)
    draft = Path(tempfile.mkdtemp(prefix=".new-", dir=kept.parent))
    shutil.copytree(bundle, draft / kept.name)
    for older in kept.parent.iterdir():
        if older != draft:
            shutil.rmtree(older)
    (draft / kept.name).rename(kept)
    draft.rmdir()


def build_bundle(root: Path, catalogue: Path, out: Path, jobs: int, check: bool, store: Path | None = None) -> None:
    check_sources(root)
    kept = None
    if store and (root / ".package-lock.json").is_file():  # else nobody knows which packages these are
        kept = store / ingredients_digest(root, catalogue)
    out = out.absolute()
    if out.exists() and not is_bundle(out):
        raise BuildError(f"{out} exists and is not a bundle: not replaced")
    out.parent.mkdir(parents=True, exist_ok=True)
    work = Path(tempfile.mkdtemp(prefix=f".{out.name}.new-", dir=out.parent))
    try:
        work.chmod(0o755)
        if kept and kept.is_dir() and not check:
            shutil.copytree(kept, work, dirs_exist_ok=True)
            replace_directory(work, out)
            return
        tasks = [(family.name, weight, str(root), str(work)) for family in FAMILIES for weight in WEIGHTS]
        with multiprocessing.Pool(jobs) as pool:
            faces = pool.map_async(write_face, tasks, chunksize=1)
            paths = [write_icon_font(root, catalogue, work), *faces.get()]
        write_licences(root, work / "licences")
        if check:
            sanitize(paths)
        if kept:
            with contextlib.suppress(OSError):  # a bundle that could not be kept costs time alone
                keep(work, kept)
        replace_directory(work, out)
    finally:
        shutil.rmtree(work, ignore_errors=True)


def is_bundle(path: Path) -> bool:
    """Whether a directory may be replaced: a bundle, or empty."""
    return path.is_dir() and ((path / "licences").is_dir() or not any(path.iterdir()))


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--sources", type=Path, required=True, help="the node_modules folder of the pinned packages")
    parser.add_argument("--icons", type=Path, required=True, help="the catalogue of icons, brisel/icons/icons.def")
    parser.add_argument("--out", type=Path, required=True, help="the bundle directory; replaced as a whole")
    parser.add_argument("--store", type=Path, help="where build trees share a bundle that is made from the same things")
    parser.add_argument("--jobs", type=int, default=min(4, os.cpu_count() or 1))
    parser.add_argument("--sanitize", action="store_true", help="have ots-sanitize check every face")
    arguments = parser.parse_args()
    try:
        build_bundle(arguments.sources, arguments.icons, arguments.out, max(1, arguments.jobs), arguments.sanitize,
                     arguments.store)
    except (BuildError, OSError) as error:
        print(f"build_bundle: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
