#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares two CSV files cell for cell: compare-csv.py EXPECTED WRITTEN"""

import csv
import sys


def read(path):
    with open(path, encoding="utf-8-sig", newline="") as stream:
        return list(csv.reader(stream, strict=True))


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    expected, written = (read(path) for path in sys.argv[1:])
    for number, (want, got) in enumerate(zip(expected, written), start=1):
        if want != got:
            sys.exit(f"row {number} differs:\n  expected {want}\n  written  {got}")
    if len(expected) != len(written):
        sys.exit(f"expected {len(expected)} rows, written {len(written)}")
    if not expected:
        sys.exit("both files are empty")
    cells = sum(len(row) for row in written)
    print(f"{len(written)} rows, {cells} cells: every one as expected")


if __name__ == "__main__":
    main()
