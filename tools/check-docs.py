#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the documents: every relative link leads somewhere, and README's example is tests/package."""

import pathlib
import re
import subprocess
import sys

root = pathlib.Path(__file__).resolve().parent.parent


def our_documents():
    command = ["git", "-c", f"safe.directory={root}", "-C", str(root), "ls-files", "--cached",
               "--others", "--exclude-standard", "--", "*.md"]
    names = subprocess.run(command, check=True, capture_output=True, text=True).stdout.split("\n")
    return [root / name for name in names if name and (root / name).exists()]


def main():
    faults = []
    for document in our_documents():
        # Code may look like a link: [](int level) is a lambda.
        text = re.sub(r"```.*?```|`[^`\n]*`", "", document.read_text(encoding="utf-8"), flags=re.S)
        for target in re.findall(r"\]\(([^)#\s]+)[^)]*\)", text):
            if "://" not in target and not (document.parent / target).exists():
                faults.append(f"{document.relative_to(root)}: {target} is not there")
    readme = (root / "README.md").read_text(encoding="utf-8")
    for name in ("CMakeLists.txt", "main.cpp"):
        _, example = (root / "tests/package" / name).read_text(encoding="utf-8").split("\n", 1)
        if example.strip("\n") not in readme:
            faults.append(f"README.md: its example is not tests/package/{name} any more")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
