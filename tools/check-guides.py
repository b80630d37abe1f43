#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compiles the C++ examples of the guides in docs/ against the headers: tools/check-guides.py [guide …]

Each ```cpp block becomes a function of the class CGuide, which docs/examples/<guide>.h declares together with
what the example takes from the host: windows, models, slots. Includes, functions and classes of a block go to
the top of the file. The preset asan must be configured.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

root = pathlib.Path(__file__).resolve().parent.parent
contexts = root / "docs/examples"
ON_TOP = re.compile(r'(class|struct|template|namespace \w+ \{|extern "C"|[\w:<>\s*&]+?\b[\w:]+\([^;]*\)\n\{)')


def flags():
    database = root / "build/asan/compile_commands.json"
    if not database.exists():
        sys.exit("tools/check-guides.py: build/asan has no options to compile with; this makes them:\n"
                 "cmake --preset asan")
    commands = json.loads(database.read_text(encoding="utf-8"))
    command = next(c["command"] for c in commands if c["file"].endswith("/tst_client_columns.cpp"))
    words, wanted = iter(shlex.split(command)), ["-std=c++17", "-fPIC", "-Wall", "-Wextra"]
    for word in words:
        if word == "-isystem":
            wanted += [word, next(words)]
        elif word.startswith("-I"):
            wanted.append(word)
    return wanted


def source_of(guide):
    """The guide's examples as one source; line directives lead messages back to the document."""
    includes, top, functions = [], [], []
    lines = (root / f"docs/{guide}.md").read_text(encoding="utf-8").split("\n")
    number = 0
    while number < len(lines):
        number += 1
        if lines[number - 1] != "```cpp":
            continue
        end = lines.index("```", number)
        body, first = [], number + 1
        paragraph = []
        for at in range(number, end + 1):
            line = lines[at] if at < end else ""
            if line.startswith("#"):
                includes += [line] if line.startswith("#include") else []
            elif line or (paragraph and not closes(paragraph)):
                paragraph.append((at + 1, line))
            elif paragraph:
                text = "\n".join(text for _, text in paragraph)
                (top if ON_TOP.match(text) else body).append(
                    f'#line {paragraph[0][0]} "docs/{guide}.md"\n{text}\n')
                paragraph = []
        if body:
            functions.append(f"template <> void CGuide::Example<{first}>()\n{{\n{''.join(body)}}}\n")
        number = end + 1
    context = f'#include "examples/{guide}.h"\n' if (contexts / f"{guide}.h").exists() else (
        "struct CGuide { template <int> void Example(); };\n")
    return "\n".join(includes) + "\n" + context + "".join(top) + "".join(functions)


def closes(paragraph):
    text = "\n".join(text for _, text in paragraph)
    return text.count("{") <= text.count("}") and text.count("(") <= text.count(")")


def compile_guide(guide, compiler_flags):
    source = source_of(guide)
    if "Example<" not in source:
        return ""
    with tempfile.NamedTemporaryFile("w", suffix=".cpp", encoding="utf-8") as file:
        file.write(source)
        file.flush()
        result = subprocess.run(
            ["c++", "-fsyntax-only", *compiler_flags, f"-I{root}/docs", f"-I{root}/host", "-Wno-unused", file.name],
            capture_output=True, text=True)
    return result.stderr if result.returncode else ""


def main():
    guides = sys.argv[1:] or sorted(path.stem for path in (root / "docs").glob("*.md"))
    compiler_flags = flags()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        faults = [fault for fault in pool.map(lambda g: compile_guide(g, compiler_flags), guides) if fault]
    print("".join(faults), end="")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
