#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the documents: relative links lead somewhere, known-behaviour.md has a contents, README's example is tests/package, README names the packages of tools/setup."""

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


def anchor_of(heading):
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def anchors(document):
    return {anchor_of(h) for h in re.findall(r"^#+ (.+)$", document.read_text(encoding="utf-8"), re.M)}


def packages_named_once():
    """The faults of README's table of Debian packages against tools/setup."""
    setup = (root / "tools/setup").read_text(encoding="utf-8")
    installed = {name for listed in re.findall(r"^\w+_packages=\((.*?)^\)", setup, re.M | re.S)
                 for name in re.findall(r"^ +([\w.+-]+)", listed, re.M)}
    readme = (root / "README.md").read_text(encoding="utf-8")
    table = readme.split("| Need | Debian package |")[1].split("\n\n")[0]
    named = {name for row in table.splitlines()[2:]
             for name in re.findall(r"[\w.+-]+", re.sub(r"\(.*?\)", "", row.split("|")[2]))}
    return ([f"README.md: its table lacks the package {name}" for name in installed - named] +
            [f"tools/setup does not install {name}, which README.md names" for name in named - installed])


def main():
    faults = packages_named_once()
    for document in our_documents():
        # Code may look like a link: [](int level) is a lambda.
        text = re.sub(r"```.*?```|`[^`\n]*`", "", document.read_text(encoding="utf-8"), flags=re.S)
        for target, anchor in re.findall(r"\]\(([^)#\s]*)#?([^)\s]*)\)", text):
            if "://" in target:
                continue
            linked = document.parent / target if target else document
            if not linked.exists():
                faults.append(f"{document.relative_to(root)}: {target} is not there")
            elif anchor and anchor not in anchors(linked):
                faults.append(f"{document.relative_to(root)}: {target}#{anchor} is not there")
    known = root / "docs/known-behaviour.md"
    for heading in re.findall(r"^## (.+)$", known.read_text(encoding="utf-8"), re.M):
        if f"](#{anchor_of(heading)})" not in known.read_text(encoding="utf-8"):
            faults.append(f"docs/known-behaviour.md: its contents lack \"{heading}\"")
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
