"""Builds and runs the README's first example as hosts do.

usage: run.py installed <source folder> <build folder> <compiler> [<compiler flags>]
       run.py embedded <source folder> <build folder> <compiler> [<compiler flags>]

installed: Installs the build and moves it to another prefix. Builds the example by find_package, runs it from another
folder, and runs it again with the bundle deployed beside the program and the installed one gone; builds it, and one
that needs no text library, by pkg-config.
embedded: Builds and runs it in a project that takes the source tree in by add_subdirectory and deploys the bundle. The
library is not compiled again.
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


def build_by_pkg_config(package, example, prefix, folder, compiler, flags):
    """The example's program, with the bundle beside it where it is linked statically."""
    static = is_static(prefix)
    # Shared libraries need no development files but their own.
    searched = "PKG_CONFIG_PATH" if static else "PKG_CONFIG_LIBDIR"
    environment = {**os.environ, searched: str(prefix / "lib/pkgconfig")}
    answer = run("pkg-config", "--cflags", "--libs", *(["--static"] if static else []), package, env=environment)
    folder.mkdir()
    run(compiler, "-std=c++20", *flags.split(), example / "main.cc", "-o", folder / "program", *answer.split(),
        f"-Wl,-rpath,{prefix}/lib")
    if static:
        bundle = Path(run("pkg-config", "--variable=bundle", package, env=environment).strip())
        shutil.copytree(bundle, folder / bundle.name)
    return folder / "program", answer


def expect(example, program):
    said, expected = run(program, cwd="/"), (example / "expected.txt").read_text()
    if said != expected:
        sys.exit(f"{program} said {said!r}, not {expected!r}")


def is_static(prefix):
    return not list(prefix.glob("lib/libBriselCore.so*"))


def check_installed(source, build, scratch, compiler, flags):
    hello, themes = source / "examples/hello", source / "examples/themes"
    readme = (source / "README.md").read_text()
    for example in re.findall(r"<!-- (examples/\w+/main\.cc);", readme):
        if (source / example).read_text() not in readme:
            sys.exit(f"README.md does not show {example} as it is")

    prefix = installed_and_moved(build, scratch)
    project = source / "tests/consumer/deployed" if is_static(prefix) else hello
    build_by_cmake(project, scratch / "hello", compiler, flags, f"-DCMAKE_PREFIX_PATH={prefix}")
    expect(hello, scratch / "hello/hello")

    program, _ = build_by_pkg_config("BriselFoundation", hello, prefix, scratch / "by_pkg_config", compiler, flags)
    tokens, linked = build_by_pkg_config("BriselTokens", themes, prefix, scratch / "tokens", compiler, flags)
    if re.search("BriselCore|BriselPlatformLinux|harfbuzz|cairo", linked):
        sys.exit("a program without text links a text library")
    if is_static(prefix):  # Programs that bring their bundle along need nothing of the installed tree.
        shutil.rmtree(prefix)
        expect(hello, scratch / "hello/hello")
    expect(hello, program)
    expect(themes, tokens)


def check_embedded(source, build, scratch, compiler, flags):
    launcher = f"{source}/tests/consumer/compiled_already.sh;{build}"
    build_by_cmake(source / "tests/consumer/embedded", scratch / "embedded", compiler, flags,
                   f"-DBRISEL_SOURCE={source}", f"-DBRISEL_BUNDLE_STORE={source}/build/bundle",
                   f"-DCMAKE_CXX_COMPILER_LAUNCHER={launcher}")
    expect(source / "examples/hello", scratch / "embedded/hello")

    refusal = subprocess.run(["cmake", "-S", source / "tests/consumer/without_packages", "-B", scratch / "refused",
                              f"-DBRISEL_SOURCE={source}"], text=True, capture_output=True)
    if refusal.returncode == 0 or "setup/install.sh assets" not in refusal.stderr:
        sys.exit(f"does not say how to get what the bundle is made from: {refusal.stderr}")


if __name__ == "__main__":
    check = {"installed": check_installed, "embedded": check_embedded}[sys.argv[1]]
    with tempfile.TemporaryDirectory() as folder:
        check(Path(sys.argv[2]).resolve(), Path(sys.argv[3]).resolve(), Path(folder), sys.argv[4], "".join(sys.argv[5:]))
