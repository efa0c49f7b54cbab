"""Nothing of the library runs when a program is loaded, and nothing when it ends.

usage: no_static_constructors.py <build folder>

Reads every object file of brisel/ in a build folder: none may have an .init_array section, nor register a destructor
at load (__cxa_atexit, which a global with a destructor and a constant initialiser calls).
"""

import subprocess
import sys
from pathlib import Path

FORBIDDEN = (".init_array", ".ctors", ".fini_array", "__cxa_atexit", "__tls_init")


def is_of_the_library(path):
    return not any(part.endswith("_tests.dir") for part in path.parts)


def traces(objects):
    """Lines "<object>: <what was found>"."""
    listing = subprocess.run(["objdump", "--section-headers", "--syms", *map(str, objects)], check=True, text=True,
                             capture_output=True).stdout
    current, found = None, set()
    for line in listing.splitlines():
        if ":     file format" in line:
            current = line.split(":")[0]
        for word in FORBIDDEN:
            if word in line:
                found.add(f"{current}: {word}")
    return sorted(found)


if __name__ == "__main__":
    folder = Path(sys.argv[1])
    objects = [path for path in sorted(folder.glob("brisel/**/*.o")) if is_of_the_library(path)]
    if not objects:
        sys.exit(f"no object files below {folder}/brisel")
    found = traces(objects)
    print("\n".join(found) or f"{len(objects)} object files, no static constructor or destructor")
    sys.exit(1 if found else 0)
