"""The sizes of type styles are the designed ones to the last bit, whatever compiles them.

usage: run.py <build folder> <library>…

Compiles the resolution's arithmetic for a processor that can multiply and add in one instruction, which rounds once
instead of twice, with the build's own flags, by g++ and (where there is one) clang++ at three levels. No object may
hold such an instruction, and a program with it must print the designed sizes; it runs only where the processor is such
a one. As a control, the same without -ffp-contract=off must be seen to fuse: else all of this would prove nothing.
"""

import json
import shlex
import shutil
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

SOURCE = "brisel/typography/type_style_resolution.cc"
PROCESSOR = "-march=x86-64-v3"
EXACT = "-ffp-contract=off"
COMPILERS = [name for name in ("g++", "clang++-14") if shutil.which(name)]
LEVELS = ("-O0", "-O2", "-O3")

# In the order of the categories, the smallest first.
SIZES = [
    # ballad
    [13.0, 14.001999999999999, 15.001000000000001, 16.0, 17.998, 19.996000000000002, 22.0, 27.599999999999998,
     33.199999999999996, 38.800000000000004, 38.800000000000004, 38.800000000000004],
    # minuet
    [10.0, 10.0, 10.0, 10.0, 11.998000000000001, 13.996, 16.0, 20.799999999999997, 25.599999999999998,
     30.400000000000002, 30.400000000000002, 30.400000000000002],
    # bass
    [53.0, 54.002, 55.001, 56.0, 57.998, 59.996, 62.0, 62.4, 62.8, 63.2, 63.2, 63.2],
]


def run(*command):
    return subprocess.run([str(word) for word in command], check=True, text=True, stdout=subprocess.PIPE).stdout


def flags_of_the_build(build):
    """The source, and how the build compiles it, less what this script chooses itself."""
    for entry in json.loads((build / "compile_commands.json").read_text()):
        if entry["file"].endswith(SOURCE):
            words = shlex.split(entry["command"])
            return entry["file"], [word for word in words if word.startswith(("-I", "-f", "-m", "-std="))]
    sys.exit(f"the build does not compile {SOURCE}")


def can_fuse():
    return " fma " in Path("/proc/cpuinfo").read_text().replace("\n", " ")


def complaints(folder, source, flags, libraries, probe, compiler, level, must_fuse=False):
    name = f"{compiler} {level}{' control' if must_fuse else ''}"
    code = folder / f"{name}.o".replace(" ", "_")
    program = code.with_suffix("")
    run(compiler, *flags, PROCESSOR, level, "-c", source, "-o", code)
    found = []
    if ("vfm" in run("objdump", "--disassemble", code)) != must_fuse:
        found.append(f"{name}: {'no' if must_fuse else 'a'} fused instruction")
    if can_fuse():
        # What is linked itself comes before what a library holds.
        paths = {f"-Wl,-rpath,{library.parent}" for library in libraries}
        run(compiler, probe, code, *libraries, *paths, "-o", program)
        printed = [[float.fromhex(word) for word in line.split()] for line in run(program).splitlines()]
        if (printed != SIZES) != must_fuse:
            found.append(f"{name}: {'the designed' if must_fuse else 'other'} sizes: {printed}")
    return found


if __name__ == "__main__":
    build, libraries = Path(sys.argv[1]), [Path(library) for library in sys.argv[2:]]
    source, flags = flags_of_the_build(build)
    loose = [flag for flag in flags if flag != EXACT]
    with tempfile.TemporaryDirectory() as name, ThreadPoolExecutor() as pool:
        folder = Path(name)
        probe = folder / "probe.o"
        run(COMPILERS[0], *flags, "-c", Path(__file__).with_name("probe.cc"), "-o", probe)
        jobs = [pool.submit(complaints, folder, source, flags, libraries, probe, compiler, level)
                for compiler in COMPILERS for level in LEVELS]
        jobs += [pool.submit(complaints, folder, source, loose, libraries, probe, compiler, "-O2", must_fuse=True)
                 for compiler in COMPILERS]
        found = [line for job in jobs for line in job.result()]
    print("\n".join(found) or f"{len(SIZES)} styles are exact by {' and '.join(COMPILERS)} at {', '.join(LEVELS)}"
          + ("" if can_fuse() else " (by their instructions: this processor fuses nothing)"))
    sys.exit(1 if found else 0)
