#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the reference that the target docs has written below a build folder: tools/check-reference.py [FOLDER]

Doxygen had nothing to warn of, and the index of the help file has each class with a forwarding header.
"""

import pathlib
import re
import sqlite3
import sys

root = pathlib.Path(__file__).resolve().parent.parent


def main():
    folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else root / "build/release") / "reference"
    if not (folder / "vantor.qch").exists():
        sys.exit(f"tools/check-reference.py: there is no {folder}/vantor.qch; this makes it in build/release:\n"
                 "cmake --preset release && cmake --build --preset release --target docs")
    faults = [line.replace(f"{root}/", "") for line in
              (folder / "warnings.txt").read_text(encoding="utf-8").splitlines() if line]
    classes = re.findall(r'^    "(\w+) ', (root / "cmake/ForwardingHeaders.cmake").read_text(encoding="utf-8"), re.M)
    index = {row[0] for row in sqlite3.connect(folder / "vantor.qch").execute("SELECT Identifier FROM IndexTable")}
    faults += [f"vantor.qch: its index lacks {name}" for name in classes if name not in index]
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
