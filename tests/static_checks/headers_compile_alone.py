"""Every header of the library compiles as the first thing that a file includes.

usage: headers_compile_alone.py <source folder> <compiler>

Where a source includes a header first (color.cc and color.h), the build has proved it; the others are compiled here.
"""

import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

FIRST_INCLUDE = re.compile(r'^#include [<"]([^">]+)[">]', re.MULTILINE)


def included_first(root):
    """The headers that the build has compiled alone."""
    matches = (FIRST_INCLUDE.search(source.read_text()) for source in root.glob("brisel/**/*.cc"))
    return {match.group(1) for match in matches if match}


def complaint(root, compiler, header):
    command = [compiler, "-std=c++20", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-fsyntax-only", "-I", str(root)]
    source = f'#include "{header}"\n'
    result = subprocess.run([*command, "-x", "c++", "-"], input=source, text=True, capture_output=True)
    return f"{header}:\n{result.stderr}" if result.returncode else None


if __name__ == "__main__":
    root, compiler = Path(sys.argv[1]).resolve(), sys.argv[2]
    headers = {path.relative_to(root).as_posix() for path in root.glob("brisel/**/*.h")}
    if not headers:
        sys.exit(f"no headers below {root}/brisel")
    headers = sorted(headers - included_first(root))
    # The port that ships has its libraries' headers to itself; its few own ones all have sources.
    headers = [header for header in headers if not header.startswith("brisel/platform/linux/")]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        found = [text for text in pool.map(lambda header: complaint(root, compiler, header), headers) if text]
    print("\n".join(found) or f"{len(headers)} more headers compile alone")
    sys.exit(1 if found else 0)
