#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Compares the interface of the two libraries with docs/interface.txt.

    tools/interface.py [--update] [--build FOLDER]     default: build/asan, which must be built

The file lists, class by class and in the order of declaration: bases, size, functions with their types,
fields, enumerators, and what Qt's meta-object system knows. Hosts compile, link and connect against all of
it. After a change that is meant, --update writes the file; its diff belongs in the same commit.
Every function that is declared in an exported class must also be defined in its library.
"""

import argparse
import difflib
import json
import pathlib
import shlex
import subprocess
import sys

from clang.cindex import AccessSpecifier, AvailabilityKind, Config, CursorKind, Index

root = pathlib.Path(__file__).resolve().parent.parent
kept = root / "docs/interface.txt"
Config.set_library_file("libclang-14.so.1")

CLASSES = (CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.CLASS_TEMPLATE)
FUNCTIONS = (CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
             CursorKind.FUNCTION_TEMPLATE, CursorKind.CONVERSION_FUNCTION, CursorKind.FUNCTION_DECL)
# What Qt's macros add to each class.
FROM_MOC = {"metaObject", "qt_metacast", "qt_metacall", "staticMetaObject", "qt_static_metacall", "tr",
            "trUtf8", "qt_check_for_QOBJECT_macro"}
META = {"qt_signal": "signal", "qt_slot": "slot", "qt_invokable": "invokable"}


def compile_flags(build):
    """The include folders and definitions of a test, the same as those of a host."""
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    command = next(c["command"] for c in commands if c["file"].endswith("/tst_translate.cpp"))
    words = iter(shlex.split(command))
    flags = ["-x", "c++", "-std=c++17", "-fPIC", "-Wno-everything",
             '-DQT_ANNOTATE_ACCESS_SPECIFIER(x)=__attribute__((annotate(#x)))',
             '-DQT_ANNOTATE_FUNCTION(x)=__attribute__((annotate(#x)))']
    for word in words:
        if word == "-isystem":
            flags += [word, next(words)]
        elif word.startswith(("-I", "-D")):
            flags.append(word)
    return flags


def parse(build):
    headers = (build / "interface-headers.txt").read_text(encoding="utf-8").split()
    text = "".join(f'#include "{header}"\n' for header in headers)
    unit = Index.create().parse("interface.cpp", compile_flags(build), [("interface.cpp", text)])
    errors = [str(d) for d in unit.diagnostics if d.severity >= 3]
    if errors:
        sys.exit("tools/interface.py: the headers do not compile:\n" + "\n".join(errors[:5]))
    return unit, set(headers)


def annotations(cursor):
    return {c.spelling for c in cursor.get_children() if c.kind == CursorKind.ANNOTATE_ATTR}


def is_exported(cursor):
    return any(c.kind == CursorKind.VISIBILITY_ATTR and c.spelling == "default"
               for c in cursor.get_children())


def parameters(cursor):
    texts = []
    for parameter in cursor.get_children():
        if parameter.kind != CursorKind.PARM_DECL:
            continue
        tokens = [t.spelling for t in parameter.get_tokens()]
        default = " = " + "".join(tokens[tokens.index("=") + 1:]) if "=" in tokens else ""
        texts.append(parameter.type.spelling + default)
    return ", ".join(texts)


def function_line(cursor):
    words = []
    if cursor.access_specifier == AccessSpecifier.PROTECTED:
        words.append("protected")
    elif cursor.access_specifier == AccessSpecifier.PRIVATE:
        words.append("private")
    words += sorted(META[a] for a in annotations(cursor) if a in META)
    if cursor.is_static_method():
        words.append("static")
    if cursor.is_pure_virtual_method():
        words.append("pure")
    if cursor.is_virtual_method():
        words.append("virtual")
    name = f"{cursor.spelling}({parameters(cursor)})"
    if cursor.kind == CursorKind.FUNCTION_TEMPLATE:
        words.append("template")
    if cursor.is_const_method():
        name += " const"
    if cursor.kind not in (CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR):
        name += f" -> {cursor.result_type.spelling}"
    if cursor.availability == AvailabilityKind.NOT_AVAILABLE:
        name += " = delete"
    return " ".join(words + [name])


def is_seen(cursor):
    """Whether a host can depend on the member: not private, or known to the meta object or a vtable."""
    if cursor.access_specifier != AccessSpecifier.PRIVATE:
        return True
    return cursor.kind in FUNCTIONS and (
        cursor.is_virtual_method() or bool(annotations(cursor) & set(META)))


def qualified(cursor):
    parent = cursor.semantic_parent
    if parent is None or parent.kind == CursorKind.TRANSLATION_UNIT:
        return cursor.spelling
    return f"{qualified(parent)}::{cursor.spelling}"


class Dump:
    def __init__(self, headers):
        self.headers = headers
        self.blocks = {}   # qualified name -> lines
        self.linked = {}   # mangled name -> name: what the libraries must define

    def add(self, name, lines):
        self.blocks.setdefault(name, [])
        self.blocks[name] += [line for line in lines if line not in self.blocks[name]]

    def must_be_defined(self, cursor, owner_exported):
        if cursor.kind == CursorKind.FUNCTION_TEMPLATE or cursor.is_pure_virtual_method():
            return
        if not (owner_exported or is_exported(cursor)) or cursor.get_definition() is not None:
            return
        if cursor.is_default_method() or cursor.availability == AvailabilityKind.NOT_AVAILABLE:
            return
        # Constructors and destructors have several symbols.
        name = cursor.mangled_name.replace("C1E", "C2E").replace("D1E", "D2E").replace("D0E", "D2E")
        self.linked[name] = qualified(cursor)

    def walk(self, cursor):
        for child in cursor.get_children():
            if child.kind in (CursorKind.NAMESPACE, CursorKind.LINKAGE_SPEC, CursorKind.UNEXPOSED_DECL):
                if child.location.file and child.location.file.name in self.headers:
                    self.walk(child)
                continue
            if not child.location.file or child.location.file.name not in self.headers:
                continue
            if child.kind in CLASSES and child.is_definition():
                self.class_block(child)
            elif child.kind == CursorKind.ENUM_DECL:
                self.enum_block(child)
            elif child.kind in FUNCTIONS and child.semantic_parent.kind not in CLASSES:
                where = child.semantic_parent
                name = "" if where.kind == CursorKind.TRANSLATION_UNIT else qualified(where)
                self.add(f"namespace {name}".strip(), ["    " + function_line(child)])
                self.must_be_defined(child, False)

    def enum_block(self, cursor):
        values = [f"{c.spelling} = {c.enum_value}" for c in cursor.get_children()
                  if c.kind == CursorKind.ENUM_CONSTANT_DECL]
        self.add(f"enum {qualified(cursor)} : {cursor.enum_type.spelling}",
                 ["    " + value for value in values])

    def class_block(self, cursor):
        bases = [c.type.spelling for c in cursor.get_children()
                 if c.kind == CursorKind.CXX_BASE_SPECIFIER]
        head = ("template " if cursor.kind == CursorKind.CLASS_TEMPLATE else "") + "class "
        head += qualified(cursor) + (" : " + ", ".join(bases) if bases else "")
        size = cursor.type.get_size()
        lines = [f"    size {size}"] if size > 0 else []
        exported = is_exported(cursor)
        for member in cursor.get_children():
            if member.kind in FUNCTIONS and member.spelling not in FROM_MOC:
                self.must_be_defined(member, exported)
            if member.spelling in FROM_MOC or not is_seen(member):
                continue
            if f"decltype(StructureType::{member.spelling[7:]})" in member.type.spelling:
                if member.spelling.startswith("GetVal_"): # and SetVal_, by one macro
                    lines.append(f"    accessors {member.spelling[7:]}")
            elif member.kind in FUNCTIONS:
                lines.append("    " + function_line(member))
            elif member.kind in (CursorKind.FIELD_DECL, CursorKind.VAR_DECL):
                static = "static " if member.kind == CursorKind.VAR_DECL else ""
                lines.append(f"    {static}{member.spelling} -> {member.type.spelling}")
            elif member.kind in (CursorKind.TYPEDEF_DECL, CursorKind.TYPE_ALIAS_DECL):
                lines.append(f"    using {member.spelling} = {member.underlying_typedef_type.spelling}")
            elif member.kind == CursorKind.ENUM_DECL:
                self.enum_block(member)
            elif member.kind in CLASSES and member.is_definition():
                self.class_block(member)
        lines += properties(cursor)
        self.add(head, lines)

    def text(self):
        lines = []
        for head in sorted(self.blocks, key=lambda h: h.split()[-1 if h.startswith("namespace") else 1]):
            lines += [head] + self.blocks[head] + [""]
        return "\n".join(lines)


def properties(cursor):
    """Q_PROPERTY as it is written: clang does not see it."""
    lines, words = [], None
    for token in cursor.get_tokens():
        if token.spelling == "Q_PROPERTY":
            words = []
        elif words is not None:
            words.append(token.spelling)
            if words.count("(") == words.count(")"):
                lines.append("    property " + " ".join(words[1:-1]))
                words = None
    return lines


def undefined(linked, build):
    defined = set()
    for library in ("libvantor.so", "libvantor_platform.so", "libvantor_base.so"):
        listed = subprocess.run(["nm", "-D", "--defined-only", str(build / "lib" / library)],
                                check=True, capture_output=True, text=True).stdout
        defined |= {line.split()[-1] for line in listed.splitlines()}
    return sorted(name for symbol, name in linked.items() if symbol not in defined)


def main():
    arguments = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    arguments.add_argument("--update", action="store_true", help="write docs/interface.txt")
    arguments.add_argument("--build", type=pathlib.Path, default=root / "build/asan")
    options = arguments.parse_args()
    for needed in ("compile_commands.json", "interface-headers.txt", "lib/libvantor.so"):
        if not (options.build / needed).exists():
            sys.exit(f"tools/interface.py: there is no {options.build / needed}; this builds it in build/asan:\n"
                     "cmake --preset asan && cmake --build --preset asan --target vantor")
    unit, headers = parse(options.build)
    dump = Dump(headers)
    dump.walk(unit.cursor)
    text = dump.text()
    faults = [f"declared but not defined: {name}" for name in undefined(dump.linked, options.build)]
    print("\n".join(faults), end="\n" if faults else "")
    if options.update:
        kept.write_text(text, encoding="utf-8")
    old = kept.read_text(encoding="utf-8") if kept.exists() else ""
    if text != old:
        sys.stdout.writelines(difflib.unified_diff(old.splitlines(True), text.splitlines(True),
                                                   "docs/interface.txt", "the headers", n=1))
        print("The interface has changed. If that is meant: tools/interface.py --update")
        return 1
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
