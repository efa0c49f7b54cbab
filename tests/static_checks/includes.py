"""Who may include whom.

usage: includes.py <source folder>

Dependencies between the folders of brisel/ run one way, files never form a circle, only the port that ships includes
its libraries' headers, programs outside brisel/ see public headers only, and headers that the documentation names exist.
"""

import re
import sys
from pathlib import Path

MIDDLE = {"brisel/themes", "brisel/icons", "brisel/typography", "brisel/infrastructure"}
PLAIN = {"brisel/platform"}
VIEWS = PLAIN | {"brisel/platform/views"}
# Which folders the files of a folder may include, besides its own.
MAY_INCLUDE = {
    "brisel/platform": set(),
    "brisel/platform/linux": PLAIN,
    "brisel/platform/recording": PLAIN,
    "brisel/platform/views": PLAIN,
    "brisel/tokens": PLAIN,
    "brisel/themes": MIDDLE | PLAIN | {"brisel/tokens"},
    "brisel/icons": MIDDLE | VIEWS | {"brisel/tokens"},
    "brisel/typography": MIDDLE | VIEWS | {"brisel/tokens"},
    "brisel/infrastructure": MIDDLE | VIEWS | {"brisel/tokens"},
    "brisel/object_interface": MIDDLE | VIEWS | {"brisel/tokens"},
}
UMBRELLAS = {"brisel/foundation.h", "brisel/object_interface.h"}
# Tests may also stand on a port.
PORTS = {"brisel/platform/linux", "brisel/platform/recording"}

STANDARD_HEADER = re.compile(r"[a-z_0-9]+")
# What the plain half may ask of the C library: where the code lies, and bytes of a file.
POSIX_HEADERS = {"dlfcn.h", "fcntl.h", "link.h", "sys/stat.h", "sys/types.h", "sys/wait.h", "unistd.h"}
# The processor's own instructions, as compilers offer them; behind an #if, with a plain way beside them.
PROCESSOR_HEADERS = {"emmintrin.h"}
# What tests ask besides, to fill and count memory and to end children.
PROCESS_HEADERS = {"malloc.h", "signal.h", "sys/mman.h"}
TEST_HEADERS = re.compile(r"(gtest|gmock|rapidcheck)[/.].*")

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^">]+)[">]', re.MULTILINE)


def folder_of(path):
    """The folder that the rules name: a file's own, less internal/ and test data."""
    known = [folder for folder in MAY_INCLUDE if path.startswith(folder + "/")]
    return max(known, key=len, default=None)


def is_test(path):
    return re.search(r"_test\.(h|cc)$", path) is not None


def complaint_about_system_header(path, header):
    if STANDARD_HEADER.fullmatch(header) or folder_of(path) == "brisel/platform/linux":
        return None
    if is_test(path) and (TEST_HEADERS.fullmatch(header) or header in POSIX_HEADERS | PROCESS_HEADERS):
        return None
    if header in POSIX_HEADERS | PROCESSOR_HEADERS and path.endswith(".cc"):
        return None
    return f"only the port that ships may include <{header}>"


def complaint_about_own_header(path, header, root):
    if is_test(path) and header.startswith("tests/"):
        return None if (root / header).exists() else f'"{header}" does not exist'
    if not header.startswith("brisel/"):
        return f'"{header}" is not written as "brisel/…"'
    if not (root / header).exists():
        return f'"{header}" does not exist'
    if path in UMBRELLAS:
        return None
    if header in UMBRELLAS:
        return None if is_test(path) else f"{header} is for programs that use the library"
    own, other = folder_of(path), folder_of(header)
    allowed = MAY_INCLUDE[own] | {own} | (PORTS | VIEWS if is_test(path) else set())
    return None if other in allowed else f"{own} may not include {header}"


def find_circle(graph):
    """A list of files that include each other in a ring, or None."""
    done, trail = set(), []

    def visit(path):
        if path in trail:
            return trail[trail.index(path):] + [path]
        if path in done:
            return None
        trail.append(path)
        for header in graph.get(path, []):
            if circle := visit(header):
                return circle
        trail.pop()
        done.add(path)
        return None

    for path in graph:
        if circle := visit(path):
            return circle
    return None


def check(root):
    complaints, graph = [], {}
    for file in sorted(root.glob("brisel/**/*")):
        if file.suffix not in {".h", ".cc", ".def"}:
            continue
        path = file.relative_to(root).as_posix()
        if path not in UMBRELLAS and folder_of(path) is None:
            complaints.append(f"{path}: stands in no folder that the rules know")
            continue
        includes = INCLUDE.findall(file.read_text())
        graph[path] = [header for kind, header in includes if kind == '"']
        for kind, header in includes:
            if kind == "<":
                complaint = complaint_about_system_header(path, header)
            else:
                complaint = complaint_about_own_header(path, header, root)
            if complaint:
                complaints.append(f"{path}: {complaint}")
    for folder in ("gallery", "examples"):
        for file in sorted(root.glob(f"{folder}/**/*.[hc]*")):
            for _, header in INCLUDE.findall(file.read_text()):
                if header.startswith("brisel/") and "/internal/" in header:
                    complaints.append(f"{file.relative_to(root)}: {header} is no part of the interface")
    for file in sorted([root / "README.md", *root.glob("docs/**/*.md")]):
        for header in re.findall(r"`(brisel/[a-z_/]+\.h)`", file.read_text()):
            if header not in graph:
                complaints.append(f"{file.relative_to(root)}: {header} does not exist")
    if circle := find_circle(graph):
        complaints.append("a circle: " + " -> ".join(circle))
    if not graph:
        complaints.append(f"no sources below {root}/brisel")
    return complaints


if __name__ == "__main__":
    found = check(Path(sys.argv[1]).resolve())
    print("\n".join(found) or "includes keep to the rules")
    sys.exit(1 if found else 0)
