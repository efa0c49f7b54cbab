"""Code that the interface must refuse.

usage: run.py <file> <source folder> <compiler>

The file holds snippets, each with a pattern of the error that is expected of it:

    #if CASE == 1  // error: no match for 'operator=='
      …
    #endif

Without a case (CASE is 0) the file must compile: the proof that a case fails for its own reason. Cases are numbered
from 1 without gaps.
"""

import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

CASE = re.compile(r"^#if CASE == (\d+)\s*// error: (.*)$", re.MULTILINE)


def compile_case(file, root, compiler, number):
    command = [compiler, "-std=c++20", "-fsyntax-only", "-I", str(root), f"-DCASE={number}", str(file)]
    return subprocess.run(command, text=True, capture_output=True, env={**os.environ, "LC_ALL": "C"})


def complaint(result, number, pattern):
    if number == 0:
        return f"the control does not compile:\n{result.stderr}" if result.returncode else None
    if result.returncode == 0:
        return f"case {number} compiles"
    errors = [line for line in result.stderr.splitlines() if "error:" in line]
    if not any(re.search(pattern, line) for line in errors):
        return f"case {number} fails for another reason than '{pattern}':\n" + "\n".join(errors)
    return None


if __name__ == "__main__":
    file, root, compiler = Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3]
    text = file.read_text()
    cases = [(int(number), pattern.strip()) for number, pattern in CASE.findall(text)]
    if [number for number, _ in cases] != list(range(1, len(cases) + 1)) or len(cases) != text.count("#if CASE"):
        sys.exit(f"{file}: cases must be numbered from 1, each with '// error: <pattern>'")
    runs = [(0, ""), *cases]
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda run: compile_case(file, root, compiler, run[0]), runs)
        found = [text for text in map(lambda result, run: complaint(result, *run), results, runs) if text]
    print("\n".join(found) or f"{len(cases)} cases are refused")
    sys.exit(1 if found else 0)
