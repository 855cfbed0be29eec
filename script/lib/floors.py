#!/usr/bin/env python3
"""Checks the direction of includes: docs/architecture.md lists the folders of each part from top to bottom,
and no folder may include a file of a folder above it. Below those, includes between a folder's own files and
its subfolders may not form a cycle, at any depth. A part that stands below another or beside it may not
include that one's files at all, nor the headers of libraries that only the other part may use.

    script/lib/floors.py
"""

import pathlib
import re
import sys

DOCUMENT = pathlib.Path("docs/architecture.md")
INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s+(["<][^">]+)[">]', re.MULTILINE)
SUFFIXES = (".hpp", ".cpp", ".mm")
# Of each step of a cycle.
SHOWN = 8

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


def includes_in(root):
    """Yields every include in a part of one of its own files, as two paths in that part."""
    for path in sources_in(root):
        for written in INCLUDE.findall(path.read_text()):
            if written.startswith('"') and (root / written[1:]).exists():
                yield path.relative_to(root), pathlib.PurePath(written[1:])


def shortest_cycle(graph):
    """The nodes of a cycle in {node: {node: anything}}, or nothing if there is none."""
    shortest = []
    for start in sorted(graph):
        seen = set()
        ways = [[start]]
        for way in ways:  # Breadth first: grows as it goes.
            for node in sorted(graph.get(way[-1], {})):
                if node == start and (not shortest or len(way) < len(shortest)):
                    shortest = way
                if node not in seen:
                    seen.add(node)
                    ways.append([*way, node])
    return shortest


def cycles(part):
    """Yields the includes of every cycle that a folder's own files and its subfolders form."""
    root = pathlib.Path(part)
    graphs = {}  # {folder: {subfolder: {subfolder: includes}}}; a folder's own files count as a subfolder.
    for path, included in includes_in(root):
        for folder in path.parents:
            if folder == pathlib.PurePath() or folder not in included.parents:
                continue
            depth = len(folder.parts)
            inside = [file.parts[depth] if len(file.parts) > depth + 1 else "" for file in (path, included)]
            if inside[0] != inside[1]:
                ways = graphs.setdefault(folder, {}).setdefault(inside[0], {})
                ways.setdefault(inside[1], []).append(f"{root / path}: includes {included}")
    for folder, graph in sorted(graphs.items()):
        while cycle := shortest_cycle(graph):
            names = [str(root / folder / name) for name in cycle]
            yield f"{' -> '.join([*names, names[0]])} is a cycle:"
            steps = list(zip(cycle, cycle[1:] + cycle[:1]))
            for start, end in steps:
                includes = graph[start][end]
                yield from (f"    {line}" for line in includes[:SHOWN])
                if len(includes) > SHOWN:
                    yield f"    and {len(includes) - SHOWN} more from {folder / start} to {folder / end}"
            # Most likely the wrong one; without it, other cycles are found.
            start, end = min(steps, key=lambda step: len(graph[step[0]][step[1]]))
            del graph[start][end]


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
    found = [line for part, folders in parts.items() for line in [*complaints(part, folders), *cycles(part)]]
    for part, (closed, reserved) in CLOSED.items():
        if part not in parts:
            found.append(f"{DOCUMENT}: has no table of {part}")
        found += complaints_between(part, closed, reserved)
    found += strays(parts)
    if found:
        sys.exit("\n".join(found))


if __name__ == "__main__":
    main()
