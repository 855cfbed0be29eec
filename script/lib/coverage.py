"""Reads llvm-cov's export for the kit, prints the totals, and checks that they reach the bars and that
all uncovered code is listed in Tests/Kit/Uncovered.txt with a reason.

    coverage.py <export.json> [--list]
"""

import collections
import json
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
KIT = ROOT / "VirelineKit"
REASONS = ROOT / "Tests" / "Kit" / "Uncovered.txt"
BARS = {"lines": 95.0, "branches": 90.0}

# llvm-cov's number for code regions.
CODE = 0


def plain_name(demangled):
    """The name without parameters, template arguments and lambdas, for example `DockMagnifier::scales`."""
    name = demangled.replace("(anonymous namespace)::", "")
    name = re.sub(r"::(\$_\d+|'lambda\d*').*", "", name)
    name = re.sub(r"\[abi:\w+\]", "", name).replace("operator<<", "operator LL")
    # Parameters and template arguments, innermost first.
    for pattern in (r"\([^()]*\)", r"<[^<>]*>"):
        while re.search(pattern, name):
            name = re.sub(pattern, "", name)
    name = name.split("(")[0].replace("operator LL", "operator<<")
    name = re.sub(r"( const| noexcept|&)+$", "", name.strip())
    # The demangled name of a template begins with its return type.
    return re.sub(r"^.* (?!operator)(?=\S+$)", "", name).removeprefix("vireline::")


def demangled(names):
    result = subprocess.run(["llvm-cxxfilt-19"], input="\n".join(names), text=True,
                            capture_output=True, check=True)
    return result.stdout.splitlines()


def functions_by_file(functions):
    """{file: {(first line, last line, name)}}"""
    # The name of an internal function is prefixed with its file.
    names = demangled([function["name"].rpartition(":")[2] for function in functions])
    found = collections.defaultdict(set)
    for function, name in zip(functions, names):
        first, _, last, *_ = function["regions"][0]
        found[function["filenames"][0]].add((first, last, plain_name(name)))
    return found


def uncovered_lines(segments):
    """The same lines that llvm-cov reports: the count of a line is the largest of the regions on it."""
    lines, wrapped = {}, None
    by_line = collections.defaultdict(list)
    for segment in segments:
        by_line[segment[0]].append(segment)
    if not segments:
        return []
    for line in range(segments[0][0], segments[-1][0] + 1):
        here = by_line[line]
        entries = [s for s in here if s[3] and s[4] and not s[5]]
        begins_skipped = bool(here) and not here[0][3] and here[0][4]
        mapped = not begins_skipped and ((wrapped is not None and wrapped[3]) or bool(entries))
        if mapped:
            counts = [s[2] for s in entries]
            if wrapped is not None and wrapped[3]:
                counts.append(wrapped[2])
            lines[line] = max(counts) if counts else 0
        if here:
            wrapped = here[-1]
    return [line for line, count in lines.items() if count == 0]


def untaken_branches(branches):
    """The line of every outcome that a condition never had."""
    taken = collections.defaultdict(lambda: [0, 0])
    for first, column, last, end, is_true, is_false, *_ in branches:
        counts = taken[first, column, last, end]
        counts[0] += is_true
        counts[1] += is_false
    return [place[0] for place, counts in taken.items() for count in counts if count == 0]


def left_uncovered(data):
    """{(path, function): [lines, branches]}"""
    functions = functions_by_file(data["functions"])
    left = collections.defaultdict(lambda: [[], []])
    for file in data["files"]:
        path = pathlib.Path(file["filename"])
        places = functions[file["filename"]]
        missed = (uncovered_lines(file["segments"]), untaken_branches(file["branches"]))
        for kind, lines in enumerate(missed):
            for line in lines:
                around = [f for f in places if f[0] <= line <= f[1]]
                name = min(around, key=lambda f: f[1] - f[0])[2] if around else "?"
                left[str(path.relative_to(KIT)), name][kind].append(line)
    return left


def amount(lines, branches):
    parts = [f"{len(part)} {one if len(part) == 1 else many}"
             for part, one, many in ((lines, "line", "lines"), (branches, "branch", "branches")) if part]
    return ", ".join(parts)


def read_reasons():
    reasons = {}
    for number, line in enumerate(REASONS.read_text().splitlines() if REASONS.exists() else [], 1):
        if not line.strip() or line.startswith("#"):
            continue
        fields = [field.strip() for field in line.split(" | ")]
        if len(fields) != 4 or not fields[3]:
            sys.exit(f"{REASONS}:{number}: not \"path | function | what | reason\"")
        reasons[fields[0], fields[1]] = fields[2]
    return reasons


def main():
    export = json.loads(pathlib.Path(sys.argv[1]).read_text())["data"][0]
    left = {place: amount(*missed) for place, missed in left_uncovered(export).items()}
    if "--list" in sys.argv:
        for place, (lines, branches) in sorted(left_uncovered(export).items()):
            print(" | ".join(place), "|", amount(lines, branches), "| lines", lines, "branches", branches)

    holds = True
    for kind, bar in BARS.items():
        total = export["totals"][kind]
        print(f"{kind}: {total['covered']} of {total['count']}, {total['percent']:.1f} % (at least {bar:.0f} %)")
        holds = holds and total["percent"] >= bar
    reasons = read_reasons()
    for place, what in sorted(left.items()):
        if reasons.get(place) != what:
            print(f"uncovered without a reason: {' | '.join(place)} | {what}")
            holds = False
    for place in sorted(reasons.keys() - left.keys()):
        print(f"covered, but listed as uncovered: {' | '.join(place)}")
        holds = False
    return holds


if __name__ == "__main__":
    sys.exit(0 if main() else 1)
