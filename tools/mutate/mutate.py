#!/usr/bin/env python3
"""Asks whether the tests notice a changed line:

    tools/mutate/mutate.py N [SEED] [--only rules|cpp]

changes one line of a copy of the tree, half of the times in a rule file and half
in C++ if not told otherwise, builds and runs the tests, N times over, and names the changes that no
test noticed. Fails if these are more than a twentieth. A change that does not
build is no change, nor is one that is known to change nothing that comes out
(equal_changes.txt, and what rules.py proves): another is drawn. A test that fails, crashes or runs for much
longer than it should has noticed the change.
"""
import argparse
import collections
import functools
import os
import pathlib
import random
import resource
import shutil
import signal
import subprocess
import sys
import time

import cpp
import rules

HOME = pathlib.Path(__file__).resolve().parents[2]
TREE = HOME / "build/mutate/tree"
BUILD = TREE / "build/mutate"
EQUAL_CHANGES = HOME / "tools/mutate/equal_changes.txt"
SHARED_NAMES = "src/rules/sentinels.rules"
SCRATCH = HOME / "build/mutate/scratch"
BUILD_SECONDS = 600
CHANGED_BUILD_SECONDS = 180  # a change of the text vocabulary can keep the rule compiler from ending
MEMORY = 4 << 30


def main():
    parser = argparse.ArgumentParser(description="Asks whether the tests notice a changed line.")
    parser.add_argument("count", type=int, metavar="N")
    parser.add_argument("seed", type=int, nargs="?", default=random.SystemRandom().randrange(1_000_000))
    parser.add_argument("--only", choices=["rules", "cpp"], help="change lines of these files only")
    options = parser.parse_args()
    # So that an end from outside ends what was started, too.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("ended"))
    count = options.count
    print(f"seed {options.seed}", flush=True)
    start = time.time()
    copy_tree()
    print("building the copy and running its tests", flush=True)
    run(["cmake", "--preset", "mutate"], BUILD_SECONDS, check=True)
    if not build("all", quiet=False):
        sys.exit("the tree does not build")
    tests = Tests()
    print(f"{time.time() - start:.0f} s; {len(tests.seconds)} test programs", flush=True)
    survivors = mutate(count, random.Random(options.seed), options.only, tests)

    for survivor in survivors:
        print(f"\nsurvived: {survivor}")
    share = 100 * len(survivors) / max(count, 1)
    spent = (time.time() - start) / 60
    print(f"{count} changes, {len(survivors)} survived ({share:.1f} %), seed {options.seed}, {spent:.0f} min")
    sys.exit(1 if 20 * len(survivors) > count else 0)


def copy_tree():
    """What is the same keeps its date, so that only what changed is built again."""
    listing = ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    listed = subprocess.run(listing, cwd=HOME, check=True, capture_output=True, text=True).stdout.split("\0")
    wanted = {name for name in listed if name and (HOME / name).is_file()}
    for path in list(TREE.rglob("*")):
        name = str(path.relative_to(TREE))
        if path.is_file() and not name.startswith("build/") and name not in wanted:
            path.unlink()
    for name in wanted:
        there = TREE / name
        if there.is_file() and there.read_bytes() == (HOME / name).read_bytes():
            continue
        there.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(HOME / name, there)


def mutate(count, rng, only, tests):
    """Runs the tests on so many changes; the survivors, described."""
    rules.shared = lines_in(TREE / SHARED_NAMES)
    kinds = [lines_of("*." + kind) for kind in ([only] if only else ["rules", "cpp"])]
    equal = equal_changes()
    survivors = []
    drawn = set()
    done = 0
    while done < count:
        name, at = rng.choice(kinds[done % len(kinds)])
        path = TREE / name
        original = path.read_bytes()
        before = lines_in(path)
        if path.suffix == ".rules":
            change = rules.mutation(before, at, rng, lines_in(path.with_suffix(".cases")))
        else:
            change = cpp.mutation(before, at, rng)
        if not change:
            continue
        what, after = change
        content = "\n".join(after).encode()
        if content.split() == original.split() or (name, content) in drawn:
            continue
        drawn.add((name, content))
        if {(name, before[at].strip(), change) for change in (after[at].strip(), "*")} & equal:
            continue
        path.write_bytes(content)
        started = time.time()
        try:
            killer = tests.killer(pathlib.Path(name).parent)
        finally:
            path.write_bytes(original)
        if killer is None:
            continue
        done += 1
        place = f"{name}:{at + 1}: {what}"
        took = f"{time.time() - started:.0f} s"
        print(f"{done}/{count} {place}: {'killed by ' + killer if killer else 'SURVIVED'} ({took})", flush=True)
        if not killer:
            survivors.append(f"{place}\n{difference(before, after)}")
            print(difference(before, after), flush=True)
    return survivors


def lines_of(pattern):
    """Every line of the sources, so that a file is drawn as often as it is long."""
    places = []
    for path in sorted((TREE / "src").rglob(pattern)):
        name = str(path.relative_to(TREE))
        # A sentinel only has to be unlike any text, and what else is shared comes with its users.
        if name != SHARED_NAMES:
            places += [(name, at) for at in range(len(lines_in(path)) - 1)]
    return places


def equal_changes():
    """The changes that are known to change nothing: file, line before, line after."""
    changes = set()
    for line in lines_in(EQUAL_CHANGES):
        if not line or line.startswith("#"):
            continue
        name, before, after, _ = (part.strip() for part in line.split(" | "))
        if before not in (known.strip() for known in lines_in(TREE / name)):
            sys.exit(f"{EQUAL_CHANGES.name}: {name} does not hold: {before}")
        changes.add((name, before, after))
    return changes


@functools.cache
def lines_in(path):
    return path.read_text().split("\n") if path.exists() else []


def difference(before, after):
    """The lines that differ, as they were and as they are."""
    first = next(i for i, (a, b) in enumerate(zip(before, after)) if a != b)
    same_end = 0
    while same_end < min(len(before), len(after)) - first and before[-1 - same_end] == after[-1 - same_end]:
        same_end += 1
    lines = ["  - " + line for line in before[first : len(before) - same_end]]
    lines += ["  + " + line for line in after[first : len(after) - same_end]]
    return "\n".join(lines)


class Tests:
    """The test programs, each built only when it is to run, the likeliest to fail first."""

    def __init__(self):
        self.seconds = {}
        self.kills = collections.Counter()
        for program in sorted((BUILD / "bin").glob("*_test")):
            start = time.time()
            result = run([program], BUILD_SECONDS)
            if result is None or result.returncode != 0:
                sys.exit(f"{program.name} fails on the tree as it is")
            self.seconds[program.name] = time.time() - start

    def killer(self, folder):
        """The name of the test program that fails, "" if none does, None if the tree does not build."""

        def likeliest(name):
            return -self.kills[folder, name], -self.kills[name], self.seconds[name]

        for name in sorted(self.seconds, key=likeliest):
            if not build(name):
                return None
            result = run([BUILD / "bin" / name], 10 + 10 * self.seconds[name])
            if result is None or result.returncode != 0:
                self.kills[folder, name] += 1
                self.kills[name] += 1
                return name if result is not None else name + " over its time"
        return ""


def build(target, quiet=True):
    result = run(["cmake", "--build", BUILD, "--target", target], CHANGED_BUILD_SECONDS if quiet else BUILD_SECONDS)
    if result is None or result.returncode == 0:
        return result is not None
    if not quiet:
        print(result.stdout)
    return False


def run(command, seconds, check=False):
    """The finished process, or None if its time ran out; nothing that it started is left."""
    shutil.rmtree(SCRATCH, ignore_errors=True)
    SCRATCH.mkdir(parents=True)
    words = [str(word) for word in command]
    process = subprocess.Popen(
        words,
        cwd=TREE,
        env={**os.environ, "GTEST_FAIL_FAST": "1", "TEST_TMPDIR": str(SCRATCH)},
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        errors="replace",
        start_new_session=True,
        preexec_fn=bound,
    )
    try:
        output, _ = process.communicate(timeout=seconds)
    except subprocess.TimeoutExpired:
        return None
    finally:
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()
    if check and process.returncode != 0:
        sys.exit(f"{' '.join(words)}:\n{output}")
    return subprocess.CompletedProcess(words, process.returncode, output)


def bound():
    """A changed loop must not take the machine's memory, nor leave dumps."""
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


if __name__ == "__main__":
    main()
