"""Mutation test of the kit's rules; see script/mutate for how to use it.

Works on copies of the sources in build/mutants, one for each worker, and never changes the checkout.
"""

import argparse
import concurrent.futures
import json
import os
import queue
import sys

from mutant_worker import WORK, Worker
from mutants import ROOT, mutants_of

LAST = WORK / "outcomes.json"
EQUIVALENT = ROOT / "Tests" / "Kit" / "EquivalentMutants.txt"
REQUIRED_SHARE = 0.95

# The kit's rules, the few values that contain numbers or arithmetic, and what decides about apps' signals.
RULES = """
Layout/DockEdge.hpp
Layout/DockLocationDetector.cpp
Model/DockMetrics.hpp
Layout/FullScreenDetector.cpp
Layout/PanelPlanner.cpp
Foundation/Geometry.hpp
Interaction/ClickPolicy.cpp
Interaction/NewWindow.cpp
Interaction/TapTracker.cpp
Interaction/WindowTitles.cpp
Interaction/WindowTitles.hpp
Model/DockOrdering.cpp
Settings/Settings.cpp
Settings/Settings.hpp
Settings/SettingsCoding.cpp
Sources/Attention.cpp
Sources/DockPreferencesReader.cpp
Sources/LauncherEntries.cpp
Sources/LauncherEntries.hpp
Sources/ListHistory.cpp
Sources/ListHistory.hpp
Sources/TileSignals.cpp
Sources/TileSignals.hpp
Views/Contents/AccessibleTiles.cpp
Presentation/Curve.cpp
Presentation/TileStatus.cpp
Views/Input/DemoCursor.cpp
Views/Input/DockMenus.cpp
Layout/DockMagnifier.cpp
Layout/DockMagnifier.hpp
Views/Contents/DockScene.cpp
Layout/Edge.hpp
Layout/ReorderMath.cpp
Layout/StripLayout.cpp
ClientWindows/GuardMath.cpp
ClientWindows/GuardMath.hpp
ClientWindows/WindowPlacement.cpp
ProgramWindows/OnboardingView.cpp
ProgramWindows/SettingsView.cpp
""".split()


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
