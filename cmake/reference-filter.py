#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prepares a header or a guide for the reference: Doxygen calls it with the path and reads its output.

The macros of records become what they declare, described by the fields they are for, and an override without a
comment of its own says that its base class describes it. A class names its forwarding header. Each line stays on its line, because of the warnings.
"""

import pathlib
import re
import sys

RECORD = re.compile(r"class (?:\w+_EXPORT )?(\w+) (?:final )?: public (?:\w+::)*CRecord<((?:\w+::)*(\w+))")
FIELD = re.compile(r"^(\s*)VANTOR_RECORD_(?:FIELD|SECRET)\((\w+)\)")
CONSTRUCTOR = re.compile(r"^\s+explicit \w+\((QWidget|QObject) \*parent( = nullptr)?\)")
PROPERTY = re.compile(r"^\s+Q_PROPERTY\(.*? READ (\w+)")
CLASS = re.compile(r"(?:class|struct) (?:VANTOR_EXPORT )?(\w+)(?! ?;)")
ALIAS = re.compile(r"namespace (\w+) = ::\1;")
FORWARDED = re.findall(r'^ +"(\w+) ', (pathlib.Path(__file__).parent / "ForwardingHeaders.cmake").read_text(encoding="utf-8"), re.M)
roots = [pathlib.Path(__file__).resolve().parent.parent / name for name in ("src", "platform")]


def with_includes(text):
    """The header's text and that of our headers that it includes: the structures may be there."""
    for name in re.findall(r'#include ["<](\w[\w/]*\.h)[">]', text):
        text += "".join((root / name).read_text(encoding="utf-8") for root in roots if (root / name).exists())
    return text


def type_of(texts, structure, field):
    body = re.search(rf"struct (?:\w+_EXPORT )?{structure}\s*\{{(.*?)\n\}};", texts, re.S)
    found = body and re.search(rf"^\s+([\w:<>,*& ]+?)\s*\b{field}\b\s*(?:=|;|\{{|\[)", body.group(1), re.M)
    return found.group(1) if found else sys.exit(f"{sys.argv[1]}: no field {structure}::{field}")


def accessors(texts, structure, short, field):
    kind = type_of(texts, short, field).replace("Nim::Base::SecretText", "std::string")
    about = rf"\copybrief {structure}::{field}"
    return (f"/** {about} */ {kind} GetVal_{field}() const; "
            f"/** {about} \\see GetVal_{field}() */ void SetVal_{field}(const {kind} &value);")


def comment_of(text, function):
    """What the header says about the function, which a property reads."""
    found = re.search(rf"((?:^ *///.*\n)*)^.*\b{function}\(\)(?: const)?.*?;(?: ///< (.*))?", text, re.M)
    if not found:
        return "Belongs to the base class."
    return found.group(2) or re.sub(r" *///( \\brief)?", "", found.group(1)).strip().replace("\n", " ")


def description(text, lines, number):
    """What goes without saying in a header."""
    line = lines[number]
    if CONSTRUCTOR.match(line):
        return r"/** \brief Belongs to \a parent; without one, to the caller. */ "
    if found := PROPERTY.match(" ".join(lines[number:number + 2])):
        return rf"/** \brief {comment_of(text, found.group(1))} */ "
    if re.match(r"^    [\w\[].*\(", line) and " override" in "".join(lines[number:number + 3]).split(";")[0]:
        return r"/** \brief Reimplements the function of the base class. */ "
    return ""


def guide(path):
    """Headings get anchors, which Doxygen wants to be unique, and links that leave the guides become text."""
    def anchor_of(stem, heading):
        return stem + "-" + re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")

    def link(found):
        text, target, anchor = found.groups()
        if "://" in target or target.endswith(".png"):
            return found.group(0)
        if target and not (path.parent / target).with_suffix(".md").parent.samefile(path.parent) or target.endswith(".txt"):
            return text
        stem = pathlib.Path(target).stem or path.stem
        return f"[{text}](#{stem}-{anchor})" if anchor else f"[{text}]({stem}.md)"

    blocks = re.split(r"(^```.*?^```$)", path.read_text(encoding="utf-8"), flags=re.M | re.S)
    for number in range(0, len(blocks), 2):
        block = re.sub(r"^(##+ )(.+)$", lambda m: f"{m.group(0)} {{#{anchor_of(path.stem, m.group(2))}}}",
                       blocks[number], flags=re.M)
        blocks[number] = re.sub(r"\[([^\]]*)\]\(([^)#\s]*)#?([^)\s]*)\)", link, block)
    return "".join(blocks)


def main():
    path = pathlib.Path(sys.argv[1])
    if path.suffix == ".md":
        print(guide(path))
        return
    text = path.read_text(encoding="utf-8")
    texts = with_includes(text) if "VANTOR_RECORD_FIELD" in text else ""
    structure = short = ""
    described = False # a comment is above the line
    lines = text.split("\n")
    for number, line in enumerate(lines):
        if found := RECORD.search(" ".join(lines[number:number + 2]).replace("     ", " ")):
            structure, short = found.group(2), found.group(3)
        bare = line.strip()
        if bare.startswith("#define"):
            pass
        elif ALIAS.match(bare):
            line = "" # Doxygen takes the alias for one of itself
        elif found := FIELD.match(line):
            line = found.group(1) + accessors(texts, structure, short, found.group(2))
        elif re.match(r"VANTOR_RECORD\(\w+\)", bare):
            line = "public:"
        elif (found := CLASS.match(line)) and found.group(1) in FORWARDED:
            line = rf"/** \headerfile {path.name} <Vantor/{found.group(1)}> */ " + line
        elif not described:
            line = description(text, lines, number) + line
        described = bare.startswith("///") or described and not bare.endswith((";", "}", ":", "{"))
        print(line)


if __name__ == "__main__":
    main()
