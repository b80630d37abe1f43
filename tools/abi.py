#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the symbols that the libraries export with tools/abi.txt.

    tools/abi.py [--update] [--build FOLDER]     default: build/release, which must be built

A program that was linked against the libraries needs every line of the list: a function or an object by its
name, and objects and virtual tables by their size too, because the program may have a copy of them. The list is
made with Debian 12's g++ and -O3; another compiler may keep other inline functions.
"""

import argparse
import pathlib
import re
import subprocess
import sys

root = pathlib.Path(__file__).resolve().parent.parent
kept = root / "tools/abi.txt"
LIBRARIES = ("libvantor_base.so", "libvantor_platform.so", "libvantor.so")
# Copies of the standard library's and Qt's templates, of which the program has its own, and local variables
# of inline functions; the name of a type is part of its type information.
FOREIGN = re.compile(r"_Z(Z|GV|TS|(T[VIT])?(N?K?(S[tabsiod]|9__gnu_cxx|\d+Q)))")
INTERNAL = re.compile(r"\{lambda|\(anonymous|^typeinfo for [^(]*\(|^std::|^void std::|QtPrivate")
STRING = "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >"


def symbols(path):
    lines = subprocess.run(["nm", "-DS", "--defined-only", str(path)], check=True, capture_output=True,
                           text=True).stdout.splitlines()
    rows = []
    for line in lines:
        *numbers, kind, name = line.split()
        if not FOREIGN.match(name) and name.startswith(("_Z", "csvparse_", "KeyBoard_")):
            has_size = kind in "DBR" or name.startswith("_ZTV")
            rows.append((name, f" size {int(numbers[1], 16)}" if has_size else ""))
    plain = subprocess.run(["c++filt"], input="\n".join(name for name, _ in rows), check=True,
                           capture_output=True, text=True).stdout.splitlines()
    return {name.replace(STRING, "std::string") + size
            for name, (_, size) in zip(plain, rows) if not INTERNAL.search(name)}


def soname(path):
    text = subprocess.run(["readelf", "-d", str(path)], check=True, capture_output=True, text=True).stdout
    return re.search(r"soname: \[(.*)\]", text).group(1)


def main():
    arguments = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    arguments.add_argument("--update", action="store_true", help="write tools/abi.txt")
    arguments.add_argument("--build", type=pathlib.Path, default=root / "build/release")
    options = arguments.parse_args()
    lines = []
    for library in LIBRARIES:
        path = options.build / "lib" / library
        if not path.exists():
            sys.exit(f"tools/abi.py: there is no {path}; this builds it in build/release:\n"
                     "cmake --preset release && cmake --build --preset release --target vantor")
        lines += [soname(path)] + sorted("    " + symbol for symbol in symbols(path)) + [""]
    if options.update:
        kept.write_text("\n".join(lines), encoding="utf-8")
    old = set(kept.read_text(encoding="utf-8").split("\n")) if kept.exists() else set()
    gone, added = sorted(old - set(lines)), sorted(set(lines) - old)
    for line in gone:
        print(f"gone or changed: {line.strip()}")
    for line in added:
        print(f"new: {line.strip()}")
    if gone:
        print("Programs that are linked against the libraries may need what is gone: CONTRIBUTING.md says when it may go.")
    if gone or added:
        print("If the change is meant: tools/abi.py --update")
    return 1 if gone or added else 0


if __name__ == "__main__":
    sys.exit(main())
