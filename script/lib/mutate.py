"""Mutation test of the kit's rules; see script/mutate for how to use it.

Works on copies of the sources in build/mutants, one for each worker, and never changes the checkout.
"""

import argparse
import concurrent.futures
import dataclasses
import json
import os
import pathlib
import queue
import re
import resource
import shlex
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutants"
LAST = WORK / "outcomes.json"
EQUIVALENT = ROOT / "Tests" / "Kit" / "EquivalentMutants.txt"
REQUIRED_SHARE = 0.95

# What is copied.
PARTS = ["CMakeLists.txt", "cmake", "VirelineKit", "Tests/CMakeLists.txt", "Tests/Kit", "Tests/Storm",
         "Tests/Support"]

# The kit's rules, and the few values that contain numbers or arithmetic.
RULES = """
Layout/DockEdge.hpp
Layout/DockLocationDetector.cpp
Model/DockMetrics.hpp
Layout/FullScreenDetector.cpp
Layout/PanelPlanner.cpp
Foundation/Geometry.hpp
Interaction/ClickPolicy.cpp
Interaction/TapTracker.cpp
Model/DockOrdering.cpp
Settings/Settings.cpp
Settings/Settings.hpp
Settings/SettingsCoding.cpp
Sources/DockPreferencesReader.cpp
Views/AccessibleTiles.cpp
Presentation/Curve.cpp
Views/DemoCursor.cpp
Layout/DockMagnifier.cpp
Layout/DockMagnifier.hpp
Views/DockScene.cpp
Layout/Edge.hpp
Layout/ReorderMath.cpp
Layout/StripLayout.cpp
ClientWindows/GuardMath.cpp
ClientWindows/GuardMath.hpp
ClientWindows/WindowPlacement.cpp
ProgramWindows/OnboardingView.cpp
ProgramWindows/SettingsView.cpp
""".split()

# A mutant that exceeds one of these limits counts as caught. The tests normally need a fraction of them.
PROCESSOR_SECONDS = 20
WALL_SECONDS = 120
ADDRESS_SPACE = 2 << 30

# How many of the units that include a header are tried before building all units.
MOST_NEAR_UNITS = 8

# The fastest linker that is installed.
LINKER = ["-fuse-ld=lld"] if shutil.which("ld.lld") else ["-fuse-ld=gold"] if shutil.which("ld.gold") else []

OUTER_HEADERS = """algorithm array cmath cstdint functional map memory nlohmann/json.hpp optional ostream ranges
set span string string_view utility variant vector""".split()

BINARY = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=",
}
WORDS = {"true": "false", "false": "true", "min": "max", "max": "min"}

# Relies on clang-format: binary operators have blanks around them, unary operators and template brackets do
# not.
TOKENS = re.compile(
    r"(?<=\s)(?P<binary><=|>=|==|!=|&&|\|\||[-+*/]=|[<>+*/%-])(?=\s)"
    r"|(?P<step>\+\+|--)(?=\w)"
    r"|(?<=[\s(\[{,])(?P<minus>-)(?=[\w(])"
    r"|(?P<no>!)(?=[\w(])"
    r"|(?<![\w.'])(?P<number>0x[0-9a-fp]+|\d+(?:\.\d+)?(?:e-?\d+)?)(?P<suffix>[uUlLfF]*)(?![\w.'])"
    r"|\b(?P<word>true|false)\b|\bstd::(?:ranges::)?(?P<extreme>min|max)\b"
)
HIDDEN = re.compile(
    r"//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*|\"(?:\\.|[^\"\\\n])*\"|'(?:\\.|[^'\\\n])'", re.S | re.M)


@dataclasses.dataclass(frozen=True)
class Mutant:
    """One change: `old` at `start` becomes `new`."""

    path: str
    start: int
    line: int
    text: str
    old: str
    new: str
    # The number of the token among the same tokens on the line, from 1.
    occurrence: int

    @property
    def change(self):
        which = f" ({self.occurrence})" if self.occurrence > 1 else ""
        return f"{self.old or 'nothing'}{which} -> {self.new or 'nothing'}"

    @property
    def key(self):
        return f"{self.path} | {self.text} | {self.change}"


def changed_number(text):
    """Adds 1 to a whole number, and 10 % to a fraction."""
    if text.startswith("0x"):
        return "(1 + " + text + ")"
    if re.fullmatch(r"\d+", text):
        return str(int(text) + 1)
    value = float(text)
    return repr(value + 1 if value.is_integer() else round(value * 1.1, 9))


def replacement(kind, token):
    if kind == "binary":
        return BINARY[token]
    if kind == "step":
        return "--" if token == "++" else "++"
    if kind in ("minus", "no"):
        return ""
    if kind == "number":
        return changed_number(token)
    return WORDS[token]


def mutants_of(path):
    source = (ROOT / "VirelineKit" / path).read_text()
    code = HIDDEN.sub(lambda hidden: re.sub(r"[^\n]", " ", hidden[0]), source)
    found, seen = [], {}
    for match in TOKENS.finditer(code):
        kind = "number" if match.lastgroup == "suffix" else match.lastgroup
        start = match.start(kind)
        begin = source.rfind("\n", 0, start) + 1
        text = source[begin:source.find("\n", start)].strip()
        # Reserving memory has no visible effect.
        if ".reserve(" in text:
            continue
        old = match[kind]
        seen[text, old] = seen.get((text, old), 0) + 1
        found.append(Mutant(path, start, source.count("\n", 0, start) + 1, text, old,
                            replacement(kind, old), seen[text, old]))
    return found


def read_equivalents():
    """{key of the mutant: reason}"""
    reasons = {}
    if not EQUIVALENT.exists():
        return reasons
    for number, line in enumerate(EQUIVALENT.read_text().splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        fields = [field.strip() for field in line.split(" | ")]
        if len(fields) < 4 or not fields[-1]:
            sys.exit(f"{EQUIVALENT}:{number}: not \"path | line | change | reason\"")
        reasons[" | ".join(fields[:-1])] = fields[-1]
    return reasons


class Worker:
    """A copy of the sources, with its own build folder."""

    def __init__(self, number):
        self.folder = WORK / str(number)
        self.source = self.folder / "source"
        self.build = self.folder / "build"
        # Exists while the build folder may contain objects of a mutant.
        self.mark = self.folder / "at work"
        # Units whose objects were last built from a mutant.
        self.stale = set()
        self.environment = dict(os.environ, CCACHE_DIR=str(WORK / "ccache"), CCACHE_MAXSIZE="2G",
                                CCACHE_BASEDIR=str(self.folder))

    def run(self, command, **options):
        return subprocess.run(command, cwd=self.build, env=self.environment, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)

    def prepare(self, jobs):
        """Copies and builds the sources, from scratch if the last run was interrupted."""
        if self.mark.exists():
            shutil.rmtree(self.build, ignore_errors=True)
        self.build.mkdir(parents=True, exist_ok=True)
        self.mark.touch()
        self.copy_sources()
        configure = ["cmake", "-G", "Ninja", "-S", str(self.source), "-B", str(self.build),
                     "-D", "CMAKE_CXX_COMPILER=clang++-19", "-D", "CMAKE_BUILD_TYPE=Debug",
                     "-D", "CMAKE_CXX_FLAGS_DEBUG=-O0", "-D", "CMAKE_CXX_FLAGS=-w -D_GLIBCXX_ASSERTIONS",
                     "-D", "CMAKE_DISABLE_PRECOMPILE_HEADERS=ON", "-D", "VIRELINE_PROGRAM=OFF",
                     "-D", "VIRELINE_TESTS=ON"]
        built = self.run(configure)
        if built.returncode == 0:
            built = self.run(["ninja", "-j", str(jobs), "KitTests"])
        if built.returncode != 0:
            sys.exit(built.stdout)
        commands = json.loads((self.build / "compile_commands.json").read_text())
        self.objects = {str(pathlib.Path(c["file"]).relative_to(self.source)):
                        re.search(r" -o (\S+)", c["command"])[1] for c in commands}
        self.commands = {str(pathlib.Path(c["file"]).relative_to(self.source)):
                         c["command"].split(" -o ")[0].replace(shutil.which("ccache") or " ", "", 1)
                         for c in commands}
        self.precompile()
        self.libraries = self.libraries_of_the_tests()
        failure = self.link_and_test(["*"])
        if failure is not None:
            sys.exit(f"the tests fail without any change:\n{failure}")

    def precompile(self):
        """Precompiles the library headers, which take most of a unit's compile time."""
        header = self.folder / "outer.hpp"
        header.write_text("".join(f"#include <{name}>\n" for name in OUTER_HEADERS))
        flags = shlex.split(next(c for unit, c in self.commands.items() if unit.startswith("VirelineKit")))
        made = self.run([*flags, "-x", "c++-header", str(header), "-o", f"{header}.pch"])
        if made.returncode == 0:
            made = self.compile(next(f"VirelineKit/{rule}" for rule in RULES if rule.endswith(".cpp")))
        if made.returncode != 0:
            sys.exit(made.stdout)

    def libraries_of_the_tests(self):
        """The libraries to link besides the project's own, whose objects are linked directly to save archiving them."""
        commands = self.run(["ninja", "-t", "commands", "KitTests"]).stdout.splitlines()
        link = next(c for c in reversed(commands) if " -o Tests/KitTests " in c)
        words = shlex.split(link.split(" -o Tests/KitTests ")[1].split(" && ")[0])
        return [word for word in words if "libVireline" not in word]

    def copy_sources(self):
        """Copies only files that have changed, so that nothing else is rebuilt."""
        listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", *PARTS], cwd=ROOT,
                                capture_output=True, text=True, check=True).stdout.split()
        wanted = {name for name in listed if (ROOT / name).exists()}
        for old in self.source.rglob("*"):
            if old.is_file() and str(old.relative_to(self.source)) not in wanted:
                old.unlink()
        for name in wanted:
            content, copy = (ROOT / name).read_bytes(), self.source / name
            if not copy.exists() or copy.read_bytes() != content:
                copy.parent.mkdir(parents=True, exist_ok=True)
                copy.write_bytes(content)

    def ninja(self, *targets):
        return self.run(["ninja", "-j", "1", *targets])

    def outcome(self, mutant):
        """"caught", "not C++" or "survived"."""
        file = self.source / "VirelineKit" / mutant.path
        original = file.read_text()
        file.write_text(original[:mutant.start] + mutant.new + original[mutant.start + len(mutant.old):])
        try:
            return self.judge(mutant)
        finally:
            file.write_text(original)
            # Objects of this mutant need not be rebuilt: those of the next mutant of the same file replace
            # them. Unless everything was built.
            if len(self.stale) == len(self.objects):
                self.restore()

    def judge(self, mutant):
        subject = pathlib.PurePath(mutant.path).stem
        tests = [f"*{subject}*", f"-*{subject}*"]
        if not mutant.path.endswith(".hpp"):
            return self.judge_with([f"VirelineKit/{mutant.path}"], tests)
        # Building everything that includes a header takes long. So first build only the header's own unit and
        # its tests, then also some of the kit's units that include it. They are linked first, so the program
        # uses their copies of the header's inline functions.
        for units in (*self.nearest_units(mutant.path), list(self.objects)):
            outcome = self.judge_with(units, tests) if units else "survived"
            if outcome != "survived":
                return outcome
        return "survived"

    def nearest_units(self, header):
        stem = pathlib.PurePath(header).with_suffix("")
        own = [unit for unit in (f"VirelineKit/{stem}.cpp", f"Tests/Kit/{stem.name}Tests.cpp")
               if unit in self.objects]
        near = [unit for unit in self.objects if unit.startswith("VirelineKit/") and
                unit not in own and f'#include "{header}"' in (self.source / unit).read_text()]
        return own, own + near[:MOST_NEAR_UNITS]

    def judge_with(self, units, tests):
        self.stale.update(units)
        for unit in units:
            if len(units) == len(self.objects):
                built = self.ninja(*self.objects.values())
                break
            built = self.compile(unit)
            if built.returncode != 0:
                break
        if built.returncode != 0:
            return "caught" if "static assertion failed" in built.stdout else "not C++"
        return "survived" if self.link_and_test(tests, units) is None else "caught"

    def compile(self, unit):
        # The precompiled header was made with the kit's flags, which differ from the tests'.
        precompiled = ["-include-pch", str(self.folder / "outer.hpp.pch")]
        return self.run([*shlex.split(self.commands[unit]), "-o", self.objects[unit],
                         *(precompiled if unit.startswith("VirelineKit/") else []),
                         "-c", str(self.source / unit)])

    def link_and_test(self, tests, front=()):
        """The output of the failed tests; None if all passed."""
        program = self.folder / "KitTests"
        units = [*front, *(unit for unit in self.objects if unit not in front)]
        linked = self.run(["clang++-19", *LINKER, "-o", str(program),
                           *(self.objects[unit] for unit in units), *self.libraries])
        if linked.returncode != 0:
            sys.exit(linked.stdout)
        for some in tests:
            failure = self.test(some, program)
            if failure is not None:
                return failure
        return None

    def restore(self):
        """Rebuilds the objects that were built from a mutant."""
        for unit in self.stale:
            (self.build / self.objects[unit]).unlink(missing_ok=True)
        self.ninja(*[self.objects[unit] for unit in self.stale])
        self.stale.clear()

    def finish(self):
        self.restore()
        self.mark.unlink()

    def test(self, tests, program):
        """The output of the failed tests; None if all passed."""
        def bounded():
            resource.setrlimit(resource.RLIMIT_CPU, (PROCESSOR_SECONDS, PROCESSOR_SECONDS))
            resource.setrlimit(resource.RLIMIT_AS, (ADDRESS_SPACE, ADDRESS_SPACE))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        command = [str(program), f"--gtest_filter={tests}", "--gtest_fail_fast", "--gtest_brief=1"]
        try:
            ran = self.run(command, timeout=WALL_SECONDS, preexec_fn=bounded)
        except subprocess.TimeoutExpired:
            return "took too long"
        return None if ran.returncode == 0 else ran.stdout


def judge_all(mutants, workers, known):
    """Distributes the mutants by file, so that a worker rebuilds little from one mutant to the next.
    Stores every outcome at once in `known`, by the mutant's key, and on disk."""
    free = queue.Queue()
    for worker in workers:
        free.put(worker)
    files = {}
    for mutant in mutants:
        files.setdefault(mutant.path, []).append(mutant)
    total, judged = len(mutants), 0

    def judge_file(batch):
        nonlocal judged
        worker = free.get()
        try:
            for mutant in batch:
                known[mutant.key] = worker.outcome(mutant)
                judged += 1
                LAST.write_text(json.dumps(known, indent=1))
                print(f"{judged:4} of {total}  {known[mutant.key]:9} "
                      f"{mutant.path}:{mutant.line}  {mutant.change}", flush=True)
        finally:
            worker.restore()
            free.put(worker)

    with concurrent.futures.ThreadPoolExecutor(len(workers)) as pool:
        largest_first = sorted(files.values(), key=len, reverse=True)
        for done in [pool.submit(judge_file, batch) for batch in largest_first]:
            done.result()


def report(mutants, known, equivalents):
    """Returns whether enough mutants were caught and the list of equivalent ones is current."""
    outcomes = {mutant: known[mutant.key] for mutant in mutants}
    judged = [m for m in mutants if outcomes[m] != "not C++"]
    survivors = [m for m in judged if outcomes[m] == "survived"]
    unexplained = [m for m in survivors if m.key not in equivalents]
    changing = [m for m in judged if m not in survivors or m in unexplained]
    share = (len(changing) - len(unexplained)) / len(changing) if changing else 1.0
    print(f"\n{len(outcomes)} mutants, {len(outcomes) - len(judged)} of them not C++, "
          f"{len(survivors) - len(unexplained)} equivalent for a reason; of the other "
          f"{len(changing)} the tests caught {len(changing) - len(unexplained)}: {share:.1%}")
    for mutant in sorted(unexplained, key=lambda m: (m.path, m.line)):
        print(f"survived: VirelineKit/{mutant.path}:{mutant.line}\n    {mutant.key}")
    survived = {m.key for m in survivors}
    paths = {m.path for m in mutants}
    stale = [key for key in equivalents if key not in survived and key.split(" | ")[0] in paths]
    for key in stale:
        print(f"no such survivor any more: {key}")
    return share >= REQUIRED_SHARE and not stale


def main():
    arguments = argparse.ArgumentParser(prog="script/mutate", description="Mutation check of the kit's rules.")
    arguments.add_argument("--list", action="store_true", help="only say what would be changed")
    arguments.add_argument("--again", action="store_true", help="only those that were not caught the last time")
    arguments.add_argument("--jobs", type=int, default=min(2, os.cpu_count() or 1))
    arguments.add_argument("files", nargs="*", help="only rules whose path contains this")
    chosen = arguments.parse_args()

    paths = [p for p in RULES if not chosen.files or any(f in p for f in chosen.files)]
    mutants = [mutant for path in paths for mutant in mutants_of(path)]
    known = json.loads(LAST.read_text()) if chosen.again and LAST.exists() else {}
    due = [m for m in mutants if known.get(m.key, "survived") == "survived"]
    if chosen.list:
        for mutant in mutants:
            print(f"{mutant.path}:{mutant.line}  {mutant.change}  |  {mutant.text}")
        print(f"{len(mutants)} mutants")
        return True

    WORK.mkdir(parents=True, exist_ok=True)
    workers = [Worker(number) for number in range(chosen.jobs)]
    for worker in workers:
        worker.prepare(chosen.jobs)
    judge_all(due, workers, known)
    for worker in workers:
        worker.finish()
    return report(mutants, known, read_equivalents())


if __name__ == "__main__":
    sys.exit(0 if main() else 1)
