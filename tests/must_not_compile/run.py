"""Code that the interface must refuse.

usage: run.py <file> <source folder> <compiler>

The file holds snippets, each with a pattern of the error that is expected on one of its lines:

    #if REFUSED  // error: no match for 'operator=='
      …
    #endif

Without them the file must compile: the proof that a snippet is refused for its own reason. All are compiled at once.
"""

import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

SNIPPET = re.compile(r"^#if REFUSED\s*// error: (.*?)\s*$(.*?)^#endif$", re.MULTILINE | re.DOTALL)


def compile_file(file, root, compiler, refused):
    command = [compiler, "-std=c++20", "-fsyntax-only", "-I", str(root), f"-DREFUSED={refused}", str(file)]
    return subprocess.run(command, text=True, capture_output=True, env={**os.environ, "LC_ALL": "C"})


def complaint(text, errors, snippet):
    first = text.count("\n", 0, snippet.start()) + 1
    last = first + snippet[0].count("\n")
    found = [message for line, message in errors if first < line < last]
    if any(re.search(snippet[1], message) for message in found):
        return None
    return f"lines {first}-{last} are not refused for '{snippet[1]}' but for: " + ("; ".join(found) or "nothing")


if __name__ == "__main__":
    file, root, compiler = Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3]
    text = file.read_text()
    snippets = list(SNIPPET.finditer(text))
    if not snippets or len(snippets) != text.count("#if"):
        sys.exit(f"{file}: every snippet stands in '#if REFUSED  // error: <pattern>'")
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        control, refused = pool.map(lambda number: compile_file(file, root, compiler, number), (0, 1))
    if control.returncode:
        sys.exit(f"the control does not compile:\n{control.stderr}")
    error = re.compile(rf"^{re.escape(str(file))}:(\d+):\d+: error: (.*)$", re.MULTILINE)
    errors = [(int(line), message) for line, message in error.findall(refused.stderr)]
    found = [text for text in (complaint(text, errors, snippet) for snippet in snippets) if text]
    print("\n".join(found) or f"{len(snippets)} snippets are refused")
    sys.exit(1 if found else 0)
