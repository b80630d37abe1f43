#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the texts of every language are whole: tools/check-translations.py

Each language has the messages that the sources use, no more and no fewer, with the same place
holders and accelerators, which are Latin letters in Arabic, and nothing is empty or unfinished.
English counts things with plural forms. Exits with 1 and a line for each fault. Needs lupdate (qttools5-dev-tools).
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unicodedata
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDER = ROOT / "resources/translations"
PLURAL_FORMS = {"ar": 6, "en": 2, "zh_CN": 1}
# Words in -s behind a place holder that are no things that are counted.
VERBS = {"does", "ends", "has", "is", "needs", "takes", "was"}

faults = []


def fault(file, message, text):
    name = file.relative_to(ROOT) if file.is_relative_to(ROOT) else file
    faults.append(f"{name}: {text}: {message}" if message else f"{name}: {text}")


def read(file):
    """The messages of a .ts file: (context, source, comment) to the element."""
    messages = {}
    for context in ElementTree.parse(file).getroot().iter("context"):
        for message in context.iter("message"):
            if message.find("translation").get("type") in ("obsolete", "vanished"):
                fault(file, message.findtext("source"), "is used no more")
                continue
            key = (context.findtext("name"), message.findtext("source"),
                   message.findtext("comment") or "")
            if key in messages:
                fault(file, key[1], "is there twice")
            messages[key] = message
    return messages


def forms_of(message):
    translation = message.find("translation")
    if message.get("numerus"):
        return [form.text or "" for form in translation.iter("numerusform")]
    return [translation.text or ""]


def place_holders(text):
    return sorted(set(re.findall(r"%L?(?:\d+|n)", text)))


def accelerator(text):
    found = re.search(r"&(\w)", text.replace("&&", ""))
    return found[1] if found else ""


def check_file(file, english):
    language = file.stem.split("_", 1)[1]
    messages = read(file)
    for key in english.keys() - messages.keys():
        fault(file, key[1], "is missing")
    for key in messages.keys() - english.keys():
        fault(file, key[1], "is not in English")
    for key in messages.keys() & english.keys():
        message, counted = messages[key], messages[key].get("numerus")
        forms, reference = forms_of(message), forms_of(english[key])[-1]
        if message.find("translation").get("type") == "unfinished" or not all(forms):
            fault(file, key[1], "is unfinished")
            continue
        if counted and len(forms) != PLURAL_FORMS[language]:
            fault(file, key[1], f"has {len(forms)} plural forms, not {PLURAL_FORMS[language]}")
        for form in forms:
            held = place_holders(form)
            wanted = place_holders(reference)
            if held != wanted and not (counted and set(wanted) - set(held) <= {"%n", "%Ln"}):
                fault(file, key[1], f"has the place holders {held}, not {wanted}")
            if bool(accelerator(form)) != bool(accelerator(reference)):
                fault(file, key[1], "differs from English in having an accelerator")
            # Qt 5 underlines a letter by drawing it apart from its neighbours: Arabic words fall to
            # pieces, and are wider than the space that is reserved for them.
            if "ARABIC" in unicodedata.name(accelerator(form) or " "):
                fault(file, key[1], "has an Arabic accelerator; append a Latin one, as in \"(&F)\"")
            word = re.search(r"%L?\d+ (\w+s)\b", form)
            if language == "en" and word and word[1] not in VERBS:
                fault(file, key[1], "would say \"1 " + word[1] + "\"; use plural forms")


def check_sources_of_client(english):
    """The client's texts are in its sources, where lupdate finds them."""
    with tempfile.TemporaryDirectory() as folder:
        found_file = pathlib.Path(folder) / "found_en.ts"
        subprocess.run(["lupdate", "-silent", "-locations", "none", str(ROOT / "host/client"),
                        "-ts", str(found_file)], check=True, env={"QT_SELECT": "qt5",
                        "PATH": "/usr/lib/qt5/bin:/usr/local/bin:/usr/bin:/bin"})
        found = read(found_file)
    file = FOLDER / "client_en.ts"
    for key in found.keys() - english.keys():
        fault(file, f"{key[1]} ({key[0]})", "is missing")
    for key in english.keys() - found.keys():
        fault(file, f"{key[1]} ({key[0]})", "is in no source")


def check_sources_of_library(english):
    """The library's texts are keys, which are literals in its sources."""
    sources = "\n".join(path.read_text(encoding="utf-8") for folder in ("src", "platform")
                        for path in sorted((ROOT / folder).rglob("*.cpp")))
    file = FOLDER / "vantor_en.ts"
    keys = {key[1] for key in english}
    for key in sorted(keys):
        if f'"{key}"' not in sources:
            fault(file, key, "is in no source")
    for key in re.findall(r'Translate\(Q\w+\("([^"]+)"\)', sources):
        if key not in keys:
            fault(file, key, "is missing")


def main():
    languages = set()
    for catalogue in ("vantor", "client"):
        english = read(FOLDER / f"{catalogue}_en.ts")
        files = sorted(FOLDER.glob(f"{catalogue}_*.ts"))
        languages.add(tuple(file.stem.split("_", 1)[1] for file in files))
        for file in files:
            check_file(file, english)
        (check_sources_of_client if catalogue == "client" else check_sources_of_library)(english)
    if languages != {tuple(sorted(PLURAL_FORMS))}:
        faults.append(f"the languages differ between the catalogues or from {PLURAL_FORMS.keys()}")
    print("\n".join(sorted(faults)) or f"{len(PLURAL_FORMS)} languages are whole")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
