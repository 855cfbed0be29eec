"""Builds the kit's tests with a mutant and runs them, in a copy of the sources."""

import json
import os
import pathlib
import re
import resource
import shlex
import shutil
import subprocess
import sys

from mutants import ROOT

WORK = ROOT / "build" / "mutants"

# What is copied.
PARTS = ["CMakeLists.txt", "cmake", "VirelineKit", "Tests/CMakeLists.txt", "Tests/Kit", "Tests/Storm",
         "Tests/Support"]

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
        self.read_commands()
        self.precompile()
        self.libraries = self.libraries_of_the_tests()
        failure = self.link_and_test(["*"])
        if failure is not None:
            sys.exit(f"the tests fail without any change:\n{failure}")

    def read_commands(self):
        """Only the units of the kit's tests; other tests are configured but not built."""
        needed = set(self.run(["ninja", "-t", "inputs", "KitTests"]).stdout.splitlines())
        self.objects, self.commands = {}, {}
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            made = re.search(r" -o (\S+)", entry["command"])[1]
            if made in needed:
                unit = str(pathlib.Path(entry["file"]).relative_to(self.source))
                self.objects[unit] = made
                self.commands[unit] = entry["command"].split(" -o ")[0].replace(
                    shutil.which("ccache") or " ", "", 1)

    def precompile(self):
        """Precompiles the library headers, which take most of a unit's compile time."""
        header = self.folder / "outer.hpp"
        header.write_text("".join(f"#include <{name}>\n" for name in OUTER_HEADERS))
        flags = shlex.split(next(c for unit, c in self.commands.items() if unit.startswith("VirelineKit")))
        made = self.run([*flags, "-x", "c++-header", str(header), "-o", f"{header}.pch"])
        if made.returncode == 0:
            # Check with the first unit that the precompiled header works for the kit's units.
            made = self.compile(next(unit for unit in self.objects if unit.startswith("VirelineKit/")))
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
        own = [unit for unit in (f"VirelineKit/{stem}.cpp", f"Tests/Kit/{stem}Tests.cpp")
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
