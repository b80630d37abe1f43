#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints the ratios that benchmark programs counted: bench-table.py [--strict] RESULT.json ...

A benchmark sets a counter `ratio_<what>`, the median of interleaved pairs, baseline over ours, so
that more is better; and, where a bar is set, a counter `bar_<what>`, the least it has to be. A
benchmark whose label begins with "skipped: " is listed and is no failure.
"""

import json
import os
import sys


class BadResult(Exception):
    pass


def rows_of(path):
    """Yields (label, ratio, bar or None) for each ratio of one program."""
    program = os.path.basename(path).removesuffix(".json").removeprefix("bench_")
    with open(path, encoding="utf-8") as stream:
        runs = json.load(stream)["benchmarks"]
    found = False
    for run in runs:
        if run.get("error_occurred"):
            raise BadResult(f"{run['name']}: {run.get('error_message', 'failed')}")
        if run.get("run_type") == "aggregate":
            continue
        if run.get("label", "").startswith("skipped: "):
            print(f"{run['name']} {run['label']}")
            found = True
            continue
        # Sizes follow the name after a slash and distinguish the rows of one operation.
        sizes = "".join(f" {part}" for part in run["name"].split("/")[1:] if part.isdigit())
        for counter, value in run.items():
            if counter.startswith("ratio_"):
                what = counter.removeprefix("ratio_")
                found = True
                text = what.removeprefix(f"{program}_").replace("_", " ")
                yield f"{program} {text}{sizes}", value, run.get(f"bar_{what}")
    if not found:
        raise BadResult(f"{path}: no ratio_ counter")


def main():
    paths = [argument for argument in sys.argv[1:] if argument != "--strict"]
    if not paths:
        sys.exit(__doc__)
    try:
        rows = [row for path in paths for row in rows_of(path)]
    except BadResult as fault:
        sys.exit(f"bench-table.py: {fault}")

    width = max((len(label) for label, _, _ in rows), default=0)
    missed = 0
    for label, ratio, bar in rows:
        line = f"{label:<{width}} | {ratio:6.2f}x"
        if bar is not None:
            is_met = ratio >= bar
            missed += not is_met
            line += f" | at least {bar:g}x | {'ok' if is_met else 'MISSED'}"
        print(line)
    if missed:
        print(f"{missed} of {len(rows)} below the bar")
    return 1 if missed and "--strict" in sys.argv else 0


if __name__ == "__main__":
    sys.exit(main())
