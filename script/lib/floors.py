#!/usr/bin/env python3
"""Checks the direction of includes: docs/architecture.md lists the folders of each part from top to bottom,
and no folder may include a file of a folder above it.

    script/lib/floors.py
"""

import pathlib
import re
import sys

DOCUMENT = pathlib.Path("docs/architecture.md")
INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s+"([^"]+)"', re.MULTILINE)


def listed_folders():
    """{part: its folders, from top to bottom}, from the tables in the document."""
    parts = {}
    folders = None
    for line in DOCUMENT.read_text().splitlines():
        if heading := re.match(r"\| `(\S+)/` \| \|$", line):
            folders = parts.setdefault(heading[1], [])
        elif not line.startswith("|"):
            folders = None
        elif folders is not None and (row := re.match(r"\| `(\w+)` \|", line)):
            folders.append(row[1])
    return parts


def complaints(part, folders):
    """Yields a line for everything in a part that contradicts its table."""
    root = pathlib.Path(part)
    floors = {folder: floor for floor, folder in enumerate(reversed(folders))}
    sources = [path for path in root.rglob("*") if path.suffix in (".hpp", ".cpp", ".mm")]
    present = {path.relative_to(root).parts[0] for path in sources if path.parent != root}
    for folder in sorted(present ^ set(folders)):
        yield f"{DOCUMENT}: `{folder}` is {'not in the table of' if folder in present else 'no folder of'} {part}"
    for path in sorted(sources):
        folder = path.relative_to(root).parts[0]
        for name in INCLUDE.findall(path.read_text()):
            included = name.split("/")[0]
            if (root / name).exists() and floors.get(included, 0) > floors.get(folder, 0):
                yield f"{path}: includes {name}, which is above {folder}"


def main():
    parts = listed_folders()
    if not parts:
        sys.exit(f"{DOCUMENT} has no tables of folders")
    found = [line for part, folders in parts.items() for line in complaints(part, folders)]
    if found:
        sys.exit("\n".join(found))


if __name__ == "__main__":
    main()
