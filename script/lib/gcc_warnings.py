#!/usr/bin/env python3
"""Checks the tests and the benchmarks for GCC's warnings, without generating code.

The program itself is built by GCC anyway.
"""
import concurrent.futures
import json
import os
import pathlib
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = ROOT / "build/gcc"
FOLDERS = [folder / part for folder in (BUILD, ROOT) for part in ("Tests", "Tools", "Benchmarks")]


def commands():
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        source = pathlib.Path(entry["file"])
        # Sources that are generated during the build do not exist yet.
        if source.exists() and any(folder in source.parents for folder in FOLDERS):
            yield shlex.split(entry["command"]), entry["directory"]


def read(command):
    words, folder = command
    output = words.index("-o")
    words = words[:output] + words[output + 2 :] + ["-fsyntax-only"]
    return subprocess.run(words, cwd=folder, capture_output=True, text=True)


def make_protocol_headers():
    """Tests include the headers that are generated for Wayland, where the program is built for that."""
    known = (BUILD / "build.ninja").read_text()
    for target in "VirelineProtocols", "VirelineTestProtocols":
        if f"build {target}:" in known:
            subprocess.run(["cmake", "--build", BUILD, "--target", target], check=True, stdout=subprocess.DEVNULL)


def main():
    subprocess.run(["cmake", "--preset", "gcc"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    make_protocol_headers()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        failed = [done for done in pool.map(read, commands()) if done.returncode != 0]
    for done in failed:
        print(done.stderr, file=sys.stderr)
    return bool(failed)


if __name__ == "__main__":
    sys.exit(main())
