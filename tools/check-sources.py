#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the shape of the sources: no include cycle, no long file or function. Prints the share of the tests.

A unit is a header with its source files (Name.h, Name_p.h, Name.cpp, Name_posix.cpp). Units must not include
one another in a circle, and neither may the folders of host/client and of src/ui.
"""

import collections
import pathlib
import re
import subprocess
import sys

root = pathlib.Path(__file__).resolve().parent.parent
PRODUCT = ("src/", "platform/", "host/")
TESTS = ("tests/", "fuzz/")
SEARCHED = ("src", "platform", "host/client", "host")  # include folders, beside the file's own
LAYERED = ("host/client", "src/ui")                     # their folders form layers
MOST_LINES_OF_FILE = 400
MOST_PERCENT_OF_TESTS = 34  # of the code
MOST_LINES_OF_FUNCTION = 40  # signature and braces included, blank lines not


def our_files():
    listed = subprocess.run(["git", "-c", f"safe.directory={root}", "-C", str(root), "ls-files",
                             "--cached", "--others", "--exclude-standard", "--", "*.h", "*.cpp"],
                            check=True, capture_output=True, text=True).stdout.split()
    return [name for name in listed if (root / name).exists()]


def unit_of(name):
    return re.sub(r"(_p|_posix|_win)?\.(h|cpp)$", "", name)


def forwarded():
    """The header behind each <Vantor/CName>."""
    text = (root / "cmake/ForwardingHeaders.cmake").read_text(encoding="utf-8")
    return {f"Vantor/{name}": f"src/{header}" for name, header in re.findall(r'"(\w+) (\S+\.h)"', text)}


def edges_of(files):
    known, aliases = set(files), forwarded()
    edges = collections.defaultdict(set)
    for name in files:
        folder = str(pathlib.PurePath(name).parent)
        text = (root / name).read_text(encoding="utf-8")
        for wanted in re.findall(r'^#include ["<]([^">]+)[">]', text, re.M):
            places = [aliases.get(wanted, "")] + [f"{place}/{wanted}" for place in (folder, *SEARCHED)]
            found = next((place for place in places if place in known), None)
            if found and unit_of(found) != unit_of(name):
                edges[unit_of(name)].add(unit_of(found))
    return edges


def cycles(edges):
    """Sets of nodes that reach one another (Tarjan's algorithm, without recursion)."""
    index, low, stack, on_stack, found = {}, {}, [], set(), []
    for start in list(edges):
        if start in index:
            continue
        work = [(start, iter(sorted(edges[start])))]
        index[start] = low[start] = len(index)
        stack.append(start)
        on_stack.add(start)
        while work:
            node, following = work[-1]
            for target in following:
                if target not in index:
                    index[target] = low[target] = len(index)
                    stack.append(target)
                    on_stack.add(target)
                    work.append((target, iter(sorted(edges.get(target, ())))))
                    break
                if target in on_stack:
                    low[node] = min(low[node], index[target])
            else:
                work.pop()
                if work:
                    low[work[-1][0]] = min(low[work[-1][0]], low[node])
                if low[node] == index[node]:
                    group = set()
                    while node not in group:
                        group.add(stack.pop())
                    on_stack -= group
                    if len(group) > 1:
                        found.append(sorted(group))
    return sorted(found)


def folder_edges(edges, parent):
    def folder(unit):
        inside = unit[len(parent) + 1:]
        return inside.split("/")[0] if unit.startswith(parent + "/") and "/" in inside else None
    between = collections.defaultdict(set)
    for unit, targets in edges.items():
        for target in targets:
            if folder(unit) and folder(target) and folder(unit) != folder(target):
                between[f"{parent}/{folder(unit)}"].add(f"{parent}/{folder(target)}")
    return between


def functions(lines):
    """(first line, non-blank lines) of each function whose braces are on lines of their own."""
    for number, line in enumerate(lines):
        if line.strip() != "{":
            continue
        indent = line[:len(line) - 1]
        first = number
        while first > 0 and not re.match(r"\s*(//|#|$)|.*[;}]$|.*(public|protected|private|Q_SIGNALS|Q_SLOTS"
                                         r"|namespace .*\{|extern .*\{):?$", lines[first - 1]):
            first -= 1
        signature = " ".join(lines[first:number])
        if not signature or re.match(r"\s*(template\s*<.*>\s*)?(class|struct|union|enum)\b", signature):
            continue
        last = number
        while last < len(lines) - 1 and not re.match(re.escape(indent) + r"\}", lines[last]):
            last += 1
        yield first + 1, sum(1 for text in lines[first:last + 1] if text.strip())


def code_lines(files, folders):
    count = 0
    for name in files:
        if name.startswith(folders):
            text = (root / name).read_text(encoding="utf-8")
            count += sum(1 for line in text.splitlines() if line.strip() and not re.match(r"\s*//", line))
    return count


def main():
    files = our_files()
    product = [name for name in files if name.startswith(PRODUCT)]
    faults = []
    edges = edges_of(product)
    found = cycles(edges)
    for parent in LAYERED:
        found += cycles(folder_edges(edges, parent))
    faults += ["include cycle: " + ", ".join(cycle) for cycle in found]
    for name in product:
        lines = (root / name).read_text(encoding="utf-8").splitlines()
        if name.endswith(".cpp") and len(lines) > MOST_LINES_OF_FILE:
            faults.append(f"{name}: {len(lines)} lines, {MOST_LINES_OF_FILE} are the most")
        for first, count in functions(lines):
            if count > MOST_LINES_OF_FUNCTION:
                faults.append(f"{name}:{first}: a function of {count} lines, {MOST_LINES_OF_FUNCTION} are the most")
    tests, code = code_lines(files, TESTS), code_lines(files, PRODUCT)
    print(f"{tests} lines of tests to {code} of code: {100 * tests / code:.1f} %")
    if 100 * tests > MOST_PERCENT_OF_TESTS * code:
        faults.append(f"more than {MOST_PERCENT_OF_TESTS} % of the code are tests")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
