#!/usr/bin/env python3
"""Checks the direction of includes: docs/architecture.md lists the folders of each part from top to bottom,
and no folder may include a file of a folder above it. A part that stands below another or beside it may not
include that one's files at all, nor the headers of libraries that only the other part may use.

    script/lib/floors.py
"""

import pathlib
import re
import sys

DOCUMENT = pathlib.Path("docs/architecture.md")
INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s+(["<][^">]+)[">]', re.MULTILINE)
SUFFIXES = (".hpp", ".cpp", ".mm")

# Part: the parts whose files it may not include, and the headers that are for those parts only.
LINUX = pathlib.Path("Platforms/Linux")
COMMON, X11, WAYLAND, HOST = (f"{LINUX}/{part}" for part in ("Common", "X11", "Wayland", "Host"))
X11_HEADERS = ("<xcb/", "<X11/")
WAYLAND_HEADERS = ("<wayland-", "<wlr-", "<xdg-shell-", "<qpa/")
CLOSED = {
    COMMON: ((X11, WAYLAND, HOST), X11_HEADERS + WAYLAND_HEADERS),
    X11: ((WAYLAND, HOST), WAYLAND_HEADERS),
    WAYLAND: ((X11, HOST), X11_HEADERS),
    HOST: ((), X11_HEADERS + WAYLAND_HEADERS),
}


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


def sources_in(root):
    return sorted(path for path in root.rglob("*") if path.suffix in SUFFIXES)


def complaints(part, folders):
    """Yields a line for everything in a part that contradicts its table."""
    root = pathlib.Path(part)
    floors = {folder: floor for floor, folder in enumerate(reversed(folders))}
    sources = sources_in(root)
    present = {path.relative_to(root).parts[0] for path in sources if path.parent != root}
    for folder in sorted(present ^ set(folders)):
        yield f"{DOCUMENT}: `{folder}` is {'not in the table of' if folder in present else 'no folder of'} {part}"
    for path in sources:
        folder = path.relative_to(root).parts[0]
        for written in INCLUDE.findall(path.read_text()):
            name = written[1:]
            included = name.split("/")[0]
            if written.startswith('"') and (root / name).exists() and floors.get(included, 0) > floors.get(folder, 0):
                yield f"{path}: includes {name}, which is above {folder}"


def complaints_between(part, closed, reserved):
    """Yields a line for every include in a part that only other parts may have."""
    root = pathlib.Path(part)
    below = pathlib.Path(COMMON)
    for path in sources_in(root):
        for written in INCLUDE.findall(path.read_text()):
            name = written[1:]
            if written.startswith(reserved):
                yield f"{path}: includes <{name}>, which {part} may not"
            if not written.startswith('"') or (root / name).exists() or (below / name).exists():
                continue
            for other in closed:
                if (pathlib.Path(other) / name).exists():
                    yield f"{path}: includes {name}, which is in {other}"


def strays(parts):
    """Yields a line for every source of the Linux platform that is in none of its parts."""
    roots = [pathlib.Path(part) for part in parts]
    for path in sources_in(LINUX):
        if not any(root in path.parents for root in roots):
            yield f"{path}: is in no part that {DOCUMENT} lists"


def main():
    parts = listed_folders()
    if not parts:
        sys.exit(f"{DOCUMENT} has no tables of folders")
    found = [line for part, folders in parts.items() for line in complaints(part, folders)]
    for part, (closed, reserved) in CLOSED.items():
        if part not in parts:
            found.append(f"{DOCUMENT}: has no table of {part}")
        found += complaints_between(part, closed, reserved)
    found += strays(parts)
    if found:
        sys.exit("\n".join(found))


if __name__ == "__main__":
    main()
