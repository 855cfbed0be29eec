"""Mutation test of the macOS platform: inserts one-line bugs, one at a time, and checks that its tests on paper
fail. The bugs are flipped comparisons, retain cycles, missing removes and calls, wrong selectors and names,
wrong order, missing guards and attempts. See script/mutate for how to use it.

Never changes the checkout: a changed copy of the file is compiled and linked with the objects of the paper
build.
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import threading

from mutant_worker import LINKER
from mutants import HIDDEN, ROOT, TOKENS, Mutant, replacement
from mutate import REQUIRED_SHARE

BUILD = ROOT / "build" / "paper"
WORK = ROOT / "build" / "mutants" / "macos"
OBJECTS = WORK / "build"
LAST = WORK / "outcomes.json"
PLATFORM = ROOT / "Platforms" / "macOS"
EQUIVALENT = ROOT / "Tests" / "Paper" / "EquivalentMutants.txt"
HELPERS = ROOT / "script" / "lib" / "StrongForWeak.hpp"
TEST_SECONDS = 300
# Excluded: tests of the fakes, a storm with a random seed, and the slowest tests, which mostly test the kit.
EXCLUDED_TESTS = ["-OneCallFails", "-FakeFiles", "-FakeWatch", "-VirtualTime", "-OfToday"]
# Runs the program about 200 times, so it is excluded except for bugs of the kind "missing attempt".
EXCEPTIONS = "-Exceptions"

UNDOING = r"remove|invalidate|cancel|close|unlink|Invalidate|Remove|reset\(|orderOut|erase|pop_back|clear\(|= nil;"
# A statement on a line of its own: a message, a call, or a property that is set.
STATEMENT = re.compile(r"^ +(?:\[[^\]\n].*\]|[\w.]+(?:->|\.)\w+ = [^;\n]+|[\w:.]+(?:->[\w.]+)?\([^;\n]*\));$", re.M)
RULES = [
    # kind, pattern, replacement
    ("retain cycle", re.compile(r"__weak (?=\w)"), ""),
    ("retain cycle", re.compile(r"const std::weak_ptr<(.+?)> (\w+) = ([^;\n]+);"),
     r"const StrongForWeak<\1> \2{\3};"),
    ("wrong selector", re.compile(r"@selector\(\w+:?\)"), "@selector(description)"),
    ("wrong name", re.compile(r"\bNS\w+Notification\b(?=[,})]| *$)", re.M), '@"another"'),
    ("missing attempt", re.compile(r"\battempt\((?=\")"), "unattempted("),
    ("missing attempt", re.compile(r"\battemptOr\((?=\S)"), "unattemptedOr("),
    ("missing guard", re.compile(r"(?<=\n)( +)if \((?!const|auto|NS|id)([^;\n]+)\)(?=\n +return|\n +continue)"),
     r"\1if (false)"),
    ("flip", re.compile(r"\bYES\b"), "NO"),
    ("flip", re.compile(r"\bNO\b"), "YES"),
]


# Lines without effect at run time: assertions for the compiler, reserved memory, and guards against failed
# allocations.
SKIPPED = ("static_assert", ".reserve(", "self == nil")

# How many bugs of each kind a run tries.
SHARES = {"retain cycle": 12, "wrong selector": 8, "wrong name": 10, "missing remove": 24, "missing attempt": 8,
          "missing guard": 16, "wrong order": 6, "missing call": 20, "flip": 26}


def hidden(source):
    return HIDDEN.sub(lambda found: re.sub(r"[^\n]", " ", found[0]), source)


def at(path, source, start, old, new, kind, seen):
    begin = source.rfind("\n", 0, start) + 1
    text = source[begin:source.find("\n", start)].strip()
    # Number bugs that are otherwise indistinguishable, since each needs a unique name.
    same = (text if kind == "flip" else "", kind, " ".join(old.split()))
    seen[same] = seen.get(same, 0) + 1
    return kind, Mutant(path, start, source.count("\n", 0, start) + 1, text, old, new, seen[same])


def mutants_of(file):
    source = file.read_text()
    path = str(file.relative_to(PLATFORM))
    # Blank out comments, but keep strings: a pattern needs the call's name in an attempt.
    code = re.sub(r"//[^\n]*", lambda found: " " * len(found[0]), source)
    found, seen = [], {}
    for kind, pattern, new in RULES:
        for match in pattern.finditer(code):
            line = code[code.rfind("\n", 0, match.start()) + 1:code.find("\n", match.end())]
            if not any(word in line for word in SKIPPED):
                found.append(at(path, source, match.start(), match[0], match.expand(new), kind, seen))
    for match in TOKENS.finditer(hidden(source)):
        kind = "number" if match.lastgroup == "suffix" else match.lastgroup
        line = source[source.rfind("\n", 0, match.start()) + 1:source.find("\n", match.start())]
        # Template brackets and blocks look like operators here, and reserving memory has no visible effect.
        if any(word in line for word in (*SKIPPED, "template", "#include")) or line.startswith(("- (", "+ (")):
            continue
        found.append(at(path, source, match.start(kind), match[kind], replacement(kind, match[kind]), "flip", seen))
    previous = None
    for match in STATEMENT.finditer(code):
        line = match[0]
        if any(word in line for word in (*SKIPPED, "static_cast<void>", "super ")):
            continue
        kind = "missing remove" if re.search(UNDOING, line) else "missing call"
        found.append(at(path, source, match.start(), line, ";", kind, seen))
        if previous is not None and previous.end() + 1 == match.start() and indent(previous[0]) == indent(line):
            both = previous[0] + "\n" + line
            found.append(at(path, source, previous.start(), both, line + "\n" + previous[0], "wrong order", seen))
        previous = match
    return found


def indent(line):
    return len(line) - len(line.lstrip())


def key(kind, mutant):
    which = f" ({mutant.occurrence})" if mutant.occurrence > 1 else ""
    old = " ".join(mutant.old.split())
    return f"{mutant.path} | {kind} | {old}{which}" + (f" | {mutant.text}" if kind == "flip" else "")


def sample(mutants, share):
    """A fixed number of each kind, chosen by a hash, so that the sample is stable when code changes elsewhere."""
    ordered = sorted(mutants, key=lambda m: hashlib.sha256(key(*m).encode()).hexdigest())
    taken = {}
    chosen = []
    for kind, mutant in ordered:
        taken[kind] = taken.get(kind, 0) + 1
        if taken[kind] <= SHARES[kind] * share:
            chosen.append((kind, mutant))
    return chosen


def read_equivalents():
    """{key of the mutant: reason}"""
    lines = EQUIVALENT.read_text().splitlines() if EQUIVALENT.exists() else []
    pairs = [line.rsplit(" | ", 1) for line in lines if line.strip() and not line.startswith("#")]
    return {name.strip(): reason for name, reason in pairs}


class Bench:
    """Compiles, links and tests mutants with the objects of the paper build."""

    def __init__(self):
        # A copy, so that the checkout can be used in the meantime.
        shutil.rmtree(OBJECTS, ignore_errors=True)
        WORK.mkdir(parents=True, exist_ok=True)
        shutil.copytree(BUILD, OBJECTS, symlinks=True)
        self.sources = {str(file.relative_to(PLATFORM)): file.read_text() for file in PLATFORM.rglob("*.mm")}
        commands = json.loads((BUILD / "compile_commands.json").read_text())
        self.compile = {}
        for entry in commands:
            file = pathlib.Path(entry["file"])
            if PLATFORM in file.parents:
                self.compile[str(file.relative_to(PLATFORM))] = entry["command"]
        made = subprocess.run(["ninja", "-t", "commands", "PaperTests"], cwd=BUILD, text=True,
                              capture_output=True, check=True).stdout.splitlines()
        self.link = next(c for c in reversed(made) if " -o Tests/Paper/PaperTests " in c)
        self.link = self.link.split(" && ")[1]
        self.tests = {file: file.read_text() for file in (ROOT / "Tests" / "Paper").rglob("*Tests.mm")}
        # How many bugs each test has caught. Those with the most run first.
        self.catches = {}
        self.lock = threading.Lock()

    def outcome(self, kind, mutant):
        """Returns "survived", "not C++", or which test caught the bug."""
        folder = WORK / hashlib.sha256(key(kind, mutant).encode()).hexdigest()[:16]
        folder.mkdir(exist_ok=True)
        try:
            return self.judge(kind, mutant, folder)
        finally:
            for file in folder.iterdir():
                file.unlink()
            folder.rmdir()

    def judge(self, kind, mutant, folder):
        source = self.sources[mutant.path]
        changed = folder / pathlib.PurePath(mutant.path).name
        changed.write_text(source[:mutant.start] + mutant.new + source[mutant.start + len(mutant.old):])
        command = self.compile[mutant.path].replace(" -Werror", " -w").replace(" -g1", "")
        words = shlex.split(command[command.index("/usr/bin/clang++"):].split(" -o ")[0])
        original = shlex.split(command)[shlex.split(command).index("-o") + 1]
        made = self.run([*words, "-include", str(HELPERS), "-o", str(folder / "mutant.o"), "-c", str(changed)], 300)
        if made is None or made.returncode != 0:
            return "not C++"
        program = folder / "PaperTests"
        link = self.link.replace(f" {original} ", f" {folder / 'mutant.o'} ")
        link = link.replace(" -o Tests/Paper/PaperTests ", f" -o {program} ")
        linked = self.run([*shlex.split(link), *LINKER], 300)
        if linked is None or linked.returncode != 0:
            sys.exit(linked.stdout if linked else "the linker hangs")
        excluded = EXCLUDED_TESTS if kind == "missing attempt" else [*EXCLUDED_TESTS, EXCEPTIONS]
        return self.first_failure(program, excluded, self.nearest(mutant.path))

    def nearest(self, path):
        """The tests in files that include the header of the changed file."""
        header = f'"{pathlib.PurePath(path).with_suffix(".hpp")}"'
        return [f"{suite}.{test}" for text in self.tests.values() if header in text
                for suite, test in re.findall(r"^TEST(?:_F)?\((\w+), (\w+)\)", text, re.M)]

    def first_failure(self, program, excluded, nearest=()):
        with self.lock:
            often = sorted(self.catches, key=lambda test: -self.catches[test])
        first = [*nearest, *(test for test in often if test not in nearest)]
        ran = self.run([str(program), "--gtest_brief=1", "--forked", *excluded, *first], TEST_SECONDS)
        if ran is None:
            return "caught as it hangs"
        if ran.returncode == 0:
            return "survived"
        test = ran.stdout.rsplit("FAILED ", 1)[1].split()[0] if "FAILED " in ran.stdout else "its crash"
        with self.lock:
            self.catches[test] = self.catches.get(test, 0) + 1
        return f"caught by {test}"

    @staticmethod
    def run(command, seconds):
        try:
            return subprocess.run(command, cwd=OBJECTS, text=True, errors="replace", timeout=seconds,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                  env=dict(os.environ, VIRELINE_UNCUT="1", VIRELINE_STORM_STEPS="150"))
        except subprocess.TimeoutExpired:
            return None


def judge_all(chosen, jobs, known):
    bench = Bench()
    if (failure := bench.first_failure(OBJECTS / "Tests/Paper/PaperTests", EXCLUDED_TESTS)) != "survived":
        sys.exit(f"without any change: {failure}")
    bench.catches.clear()
    judged = 0

    def judge(pair):
        nonlocal judged
        outcome = bench.outcome(*pair)
        judged += 1
        known[key(*pair)] = outcome
        LAST.write_text(json.dumps(known, indent=1))
        print(f"{judged:4} of {len(chosen)}  {pair[1].path}:{pair[1].line}  {pair[0]}  {outcome}", flush=True)

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        list(pool.map(judge, chosen))


def report(chosen, known):
    equivalents = read_equivalents()
    outcomes = {key(*pair): known[key(*pair)] for pair in chosen}
    judged = {name: outcome for name, outcome in outcomes.items() if outcome != "not C++"}
    survivors = [name for name, outcome in judged.items() if outcome == "survived"]
    unexplained = [name for name in survivors if name not in equivalents]
    changing = len(judged) - len(survivors) + len(unexplained)
    caught = changing - len(unexplained)
    share = caught / changing if changing else 1.0
    print(f"\n{len(outcomes)} bugs, {len(outcomes) - len(judged)} of them not C++, "
          f"{len(survivors) - len(unexplained)} that change nothing for a reason; of the other {changing} "
          f"the tests on paper caught {caught}: {share:.1%}")
    for name in sorted(unexplained):
        print(f"survived: {name}")
    stale = [name for name in equivalents if name in judged and name not in survivors]
    for name in stale:
        print(f"no such survivor any more: {name}")
    return share >= REQUIRED_SHARE and not stale


def main():
    arguments = argparse.ArgumentParser(prog="script/mutate --macos")
    arguments.add_argument("--list", action="store_true", help="only say what would be changed")
    arguments.add_argument("--again", action="store_true", help="only those that were not caught the last time")
    arguments.add_argument("--share", type=float, default=1, help="how many times as many; 100 takes all")
    arguments.add_argument("--jobs", type=int, default=min(2, os.cpu_count() or 1))
    arguments.add_argument("files", nargs="*", help="only files whose path contains this")
    asked = arguments.parse_args()

    files = sorted(file for file in PLATFORM.rglob("*.mm")
                   if not asked.files or any(name in str(file) for name in asked.files))
    mutants = [mutant for file in files for mutant in mutants_of(file)]
    chosen = sample(mutants, asked.share)
    if asked.list:
        for pair in chosen:
            print(f"{pair[1].path}:{pair[1].line}", key(*pair))
        print(f"{len(chosen)} of {len(mutants)} bugs")
        return True
    known = json.loads(LAST.read_text()) if asked.again and LAST.exists() else {}
    explained = read_equivalents()
    due = [pair for pair in chosen if key(*pair) not in known or
           (known[key(*pair)] == "survived" and key(*pair) not in explained)]
    judge_all(due, asked.jobs, known)
    return report(chosen, known)


if __name__ == "__main__":
    sys.exit(0 if main() else 1)
