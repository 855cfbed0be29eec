"""Reads llvm-cov's export for the macOS platform on paper, prints how many of its lines ran and which did not,
and fails if that is too few.

    coverage_macos.py <export.json>
"""

import json
import pathlib
import sys

from coverage import uncovered_lines

PLATFORM = pathlib.Path(__file__).resolve().parents[2] / "Platforms" / "macOS"
LEAST_PERCENT = 90.0


def main():
    export = json.loads(pathlib.Path(sys.argv[1]).read_text())["data"][0]
    files = [file for file in export["files"] if PLATFORM in pathlib.Path(file["filename"]).parents]
    count = sum(file["summary"]["lines"]["count"] for file in files)
    covered = sum(file["summary"]["lines"]["covered"] for file in files)
    for file in sorted(files, key=lambda file: file["filename"]):
        if lines := uncovered_lines(file["segments"]):
            print(f"{pathlib.Path(file['filename']).relative_to(PLATFORM)}: {', '.join(map(str, lines))}")
    percent = 100 * covered / count
    print(f"lines: {covered} of {count}, {percent:.1f} % (at least {LEAST_PERCENT:.0f} %)")
    return percent >= LEAST_PERCENT


if __name__ == "__main__":
    sys.exit(0 if main() else 1)
