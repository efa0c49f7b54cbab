"""A host's project builds and runs against the installed tree, which has been moved since.

usage: run.py <source folder> <build folder> <compiler> [--flags=<compiler flags>]

Installs the build, moves it to another prefix, and then: builds the README's first example by find_package, runs it from
another folder, and runs it again with the bundle deployed beside the program and the installed one gone; builds the
same by pkg-config; configures a project that takes the source tree in by add_subdirectory.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path


def run(*command, **options):
    print("$", *command, flush=True)
    result = subprocess.run([str(part) for part in command], text=True, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, **options)
    print(result.stdout, flush=True)
    if result.returncode:
        sys.exit(f"failed: {command[0]}, exit status {result.returncode}")
    return result.stdout


def installed_and_moved(build, scratch):
    run("cmake", "--install", build, "--prefix", scratch / "first")
    prefix = scratch / "moved" / "elsewhere"
    prefix.parent.mkdir()
    shutil.move(scratch / "first", prefix)
    for file in prefix.glob("lib/**/*"):
        if file.suffix in {".cmake", ".pc"} and str(scratch / "first") in file.read_text():
            sys.exit(f"{file} holds the prefix of the installation")
    return prefix


def build_by_cmake(project, build, compiler, flags, *options):
    run("cmake", "-S", project, "-B", build, "-G", "Ninja", f"-DCMAKE_CXX_COMPILER={compiler}",
        f"-DCMAKE_CXX_FLAGS={flags}", *options)
    run("cmake", "--build", build)


def build_by_pkg_config(source, prefix, scratch, compiler, flags):
    static = [] if list(prefix.glob("lib/libBriselCore.so*")) else ["--static"]
    environment = {**os.environ, "PKG_CONFIG_PATH": str(prefix / "lib/pkgconfig")}
    answer = run("pkg-config", "--cflags", "--libs", *static, "BriselFoundation", env=environment)
    program = scratch / "hello_by_pkg_config"
    run(compiler, "-std=c++20", *flags.split(), source / "examples/hello/main.cc", "-o", program, *answer.split(),
        f"-Wl,-rpath,{prefix}/lib")
    return program


def check(source, build, compiler, flags):
    readme = (source / "README.md").read_text()
    for example in re.findall(r"<!-- (examples/\w+/main\.cc);", readme):
        if (source / example).read_text() not in readme:
            sys.exit(f"README.md does not show {example} as it is")
    with tempfile.TemporaryDirectory() as folder:
        scratch = Path(folder)
        prefix = installed_and_moved(build, scratch)
        static = not list(prefix.glob("lib/libBriselCore.so*"))

        project = source / "tests/consumer/deployed" if static else source / "examples/hello"
        build_by_cmake(project, scratch / "hello", compiler, flags, f"-DCMAKE_PREFIX_PATH={prefix}")
        said = run(scratch / "hello/hello", cwd="/")
        expected = (source / "examples/hello/expected.txt").read_text()
        if said != expected:
            sys.exit(f"the example said {said!r}, not {expected!r}")

        program = build_by_pkg_config(source, prefix, scratch, compiler, flags)
        if static:  # A program that brings its bundle along needs nothing of the installed tree.
            shutil.rmtree(prefix)
            if run(scratch / "hello/hello", cwd="/") != expected:
                sys.exit("the deployed program needs the installed tree")
        elif run(program, cwd="/") != expected:
            sys.exit("the example built by pkg-config says something else")

        run("cmake", "-S", source / "tests/consumer/embedded", "-B", scratch / "embedded", "-G", "Ninja",
            f"-DCMAKE_CXX_COMPILER={compiler}", f"-DBRISEL_SOURCE={source}")


if __name__ == "__main__":
    flags = [argument.removeprefix("--flags=") for argument in sys.argv[4:]]
    check(Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve(), sys.argv[3], " ".join(flags))
