"""The guide's code, built and run against an installed tree outside the build folder.

usage: installed_test.py BUILD_FOLDER GUIDE
"""

import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

SECONDS = 300


def run(words, **options):
    done = subprocess.run(words, capture_output=True, text=True, timeout=SECONDS, **options)
    if done.returncode != 0:
        raise SystemExit(f"{words}\n{done.stdout}\n{done.stderr}")
    return done.stdout


def snippets(guide):
    """Each piece of code with its language and what it prints."""
    blocks = re.findall(r"^```(\w+)\n(.*?)^```$", guide.read_text(), re.M | re.S)
    return [(language, code, blocks[i + 1][1]) for i, (language, code) in enumerate(blocks) if language != "text"]


def environment(tree):
    variables = dict(os.environ)
    variables["PATH"] = f"{tree}/bin:{variables['PATH']}"
    for folder in tree.glob("lib*/**/libquillary.so"):
        variables["LD_LIBRARY_PATH"] = str(folder.parent)
        variables["PKG_CONFIG_PATH"] = str(folder.parent / "pkgconfig")
    return variables


def run_c(code, folder, variables):
    """By pkg-config, as any build system can."""
    (folder / "host.c").write_text(code)
    flags = run(["pkg-config", "--cflags", "--libs", "quillary"], env=variables).split()
    run(["cc", "-std=c99", "-Wall", "-Wextra", "-pedantic", "-Werror", "host.c", "-o", "c_host", *flags],
        cwd=folder, env=variables)
    return run([folder / "c_host"], env=variables)


def run_cpp(code, folder, variables, tree):
    """By the CMake package, with either library."""
    (folder / "host.cpp").write_text(code)
    (folder / "CMakeLists.txt").write_text(
        "cmake_minimum_required(VERSION 3.25)\nproject(host LANGUAGES CXX)\n"
        "find_package(quillary 0.1 REQUIRED)\n"
        "add_executable(shared host.cpp)\ntarget_link_libraries(shared PRIVATE quillary::quillary)\n"
        "add_executable(static host.cpp)\ntarget_link_libraries(static PRIVATE quillary::quillary_static)\n")
    build = folder / "build"
    run(["cmake", "-S", folder, "-B", build, f"-DCMAKE_PREFIX_PATH={tree}"], env=variables)
    run(["cmake", "--build", build], env=variables)
    printed = run([build / "shared"], env=variables)
    if run([build / "static"]) != printed:
        raise SystemExit("the static library does otherwise than the shared one")
    return printed


def main():
    build, guide = Path(sys.argv[1]), Path(sys.argv[2])
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        tree = folder / "tree"
        run(["cmake", "--install", build, "--prefix", tree])
        variables = environment(tree)
        for language, code, expected in snippets(guide):
            if language == "c":
                printed = run_c(code, folder, variables)
            elif language == "cpp":
                printed = run_cpp(code, folder, variables, tree)
            elif language == "sh":
                printed = run(["sh", "-euc", code], cwd=folder, env=variables)
            else:
                raise SystemExit(f"{guide}: nobody knows how to run {language}")
            if printed.replace("\r\n", "\n") != expected:
                raise SystemExit(f"{language}: printed\n{printed}\nexpected\n{expected}")
            print(f"{language}: as the guide says")


if __name__ == "__main__":
    main()
