"""Every header of the library compiles as the first and only thing that a file includes.

usage: headers_compile_alone.py <source folder> <compiler>
"""

import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

# The port that ships keeps its libraries' headers to itself, so its own headers are compiled by its own sources.
LEFT_OUT = "brisel/platform/linux/"


def complaint(root, compiler, header):
    command = [compiler, "-std=c++20", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-fsyntax-only", "-I", str(root)]
    source = f'#include "{header}"\n'
    result = subprocess.run([*command, "-x", "c++", "-"], input=source, text=True, capture_output=True)
    return f"{header}:\n{result.stderr}" if result.returncode else None


if __name__ == "__main__":
    root, compiler = Path(sys.argv[1]).resolve(), sys.argv[2]
    headers = [path.relative_to(root).as_posix() for path in sorted(root.glob("brisel/**/*.h"))]
    headers = [header for header in headers if not header.startswith(LEFT_OUT)]
    if not headers:
        sys.exit(f"no headers below {root}/brisel")
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        found = [text for text in pool.map(lambda header: complaint(root, compiler, header), headers) if text]
    print("\n".join(found) or f"{len(headers)} headers compile alone")
    sys.exit(1 if found else 0)
