#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compiles sources for Windows with mingw-w64, without code: tools/check-windows.py [--all | SOURCE …]

Without --all: the sources that hold code for Windows, a few seconds. Qt and the other libraries are
those of this machine, because only their declarations count; tools/try-windows runs what needs none of them.
Takes the options from build/asan, whose moc files must be made. Exits with 1 when one fails.
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

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/asan"
COMPILER = "x86_64-w64-mingw32-g++-posix"
# Of the other libraries; the C library's own headers beside them are not Windows's.
HEADERS = ("csv.h curl expat.h expat_config.h expat_external.h microhttpd.h rapidjson sodium "
           "sodium.h sqlite3.h xlsxwriter xlsxwriter.h zip.h zipconf.h").split()


def link_headers(folder):
    for name in HEADERS:
        for place in ("/usr/include", "/usr/include/x86_64-linux-gnu"):
            if os.path.exists(f"{place}/{name}") and not (folder / name).exists():
                (folder / name).symlink_to(f"{place}/{name}")
    # Debian's SDL includes its configuration for Linux.
    (folder / "SDL2").mkdir()
    for header in pathlib.Path("/usr/include/SDL2").iterdir():
        (folder / "SDL2" / header.name).symlink_to(header)
    (folder / "SDL2/_real_SDL_config.h").write_text("#define HAVE_STDINT_H 1\n")


def options_of(command, folder):
    """The definitions and include folders of a command for this machine."""
    options, words = [], iter(shlex.split(command))
    for word in words:
        if word == "-isystem":
            path = next(words).replace("mkspecs/linux-g++", "mkspecs/win32-g++")
            if "qt5" in path:
                options += ["-isystem", path]
        elif word.startswith(("-D", "-I", "-std=", "-W")) and word != "-Werror":
            options.append(word)
    # Qt's own warnings are not ours, and one of printf's formats differs.
    return options + ["-isystem", str(folder), "-isystem", str(folder / "SDL2"), "-Werror", "-Wno-attributes",
                      "-D__USE_MINGW_ANSI_STDIO=1"]


def is_for_windows(source):
    text = source.read_text(encoding="utf-8")
    return re.search(r"_win\.cpp$", source.name) or re.search(r"\b(_WIN32|Q_OS_WIN)\b", text)


def main():
    every = "--all" in sys.argv[1:]
    named = [ROOT / name for name in sys.argv[1:] if name != "--all"]
    if not (BUILD / "host/client/vantor-client_autogen/mocs_compilation.cpp").exists():
        sys.exit("tools/check-windows.py: build/asan lacks what moc makes; this makes it:\n"
                 "cmake --preset asan && cmake --build --preset asan --target vantor-client vantor-server")
    commands = {pathlib.Path(entry["file"]): entry["command"]
                for entry in json.loads((BUILD / "compile_commands.json").read_text())}
    ours = {}
    for source, command in commands.items():
        if not source.is_relative_to(ROOT) or source.is_relative_to(BUILD) or not source.exists():
            continue
        if source.relative_to(ROOT).parts[0] not in ("src", "platform", "host"):
            continue
        if source.name.endswith("_posix.cpp"):
            twin = source.with_name(source.name.replace("_posix", "_win"))
            if not twin.exists():
                print(f"{source.relative_to(ROOT)} has no form for Windows")
                return 1
            source = twin
        if source in named or (not named and (every or is_for_windows(source))):
            ours[source] = command
    lost = [str(source) for source in named if source not in ours]
    if lost or not ours:
        print(f"no target compiles {', '.join(lost) or 'any source'}")
        return 1
    with tempfile.TemporaryDirectory() as folder:
        link_headers(pathlib.Path(folder))

        def compile_one(item):
            source, command = item
            done = subprocess.run(
                [COMPILER, "-fsyntax-only", *options_of(command, pathlib.Path(folder)), str(source)],
                cwd=BUILD, capture_output=True, text=True, check=False)
            return source, done.returncode, done.stderr

        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            failed = [(source, text) for source, code, text in pool.map(compile_one, ours.items())
                      if code]
    for source, text in failed:
        print(f"{source.relative_to(ROOT)}:\n" + "\n".join(text.splitlines()[:12]))
    print(f"{len(ours) - len(failed)} of {len(ours)} sources compile for Windows")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
