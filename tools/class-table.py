#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares docs/classes.md with the list of forwarding headers: tools/class-table.py [--update]

The table has each class, by task, with the first sentence of its header. --update writes it.
"""

import pathlib
import re
import sys

root = pathlib.Path(__file__).resolve().parent.parent
page = root / "docs/classes.md"
# Folder below src/: the task and its guide. The first that fits counts.
TASKS = {
    "ui/MutiPageWidget": "[Show a long list](lists.md)",
    "ui/FilterTreeViewEx": "[Show a long list](lists.md)",
    "ui/CustomizeColumnButton": "[Let users choose columns](columns.md)",
    "controller/ListExport": "[Export a list](exporting.md)",
    "controller/CSV": "[Export a list](exporting.md)",
    "controller/Excel": "[Export a list](exporting.md)",
    "common/CopyFileThread": "[Copy files](copying.md)",
    "ui/BaseFileProgressBar": "[Show recordings on a time line](time.md)",
    "ui/AnimationProgressBar": "[Show recordings on a time line](time.md)",
    "ui/TimeBarDelegate": "[Show recordings on a time line](time.md)",
    "ui/OneDayTimeBox": "[Show recordings on a time line](time.md)",
    "common/TimeZoneRecords": "[Show recordings on a time line](time.md)",
    "ui/DockManager": "[Dock a panel](dock.md)",
    "ui/AccountPassword": "[Log users in](login.md)",
    "ui/PasswordFrame": "[Log users in](login.md)",
    "ui/VerifyCodeWidget": "[Log users in](login.md)",
    "ui/SecondAuthentication": "[Log users in](login.md)",
    "controller/SecondAuthentication": "[Log users in](login.md)",
    "common/LoginData": "[Log users in](login.md)",
    "common/SecuritySettings": "[Log users in](login.md)",
    "controller/JoystickKeyBoardControl": "[Use keyboards, joysticks and displays](devices.md)",
    "controller/Screen": "[Use keyboards, joysticks and displays](devices.md)",
    "common/CustomEvent": "[Send events](devices.md)",
    "common/UpdateEvent": "[Send events](devices.md)",
    "common/EventTransMgr": "[Send events](devices.md)",
    "common/StyleManager": "[Follow a theme](styling.md)",
}
HEAD = """# All classes by task

`#include <Vantor/CName>` for each. The table is made from the headers: `tools/class-table.py --update`.

| Task | Class | Purpose |
|---|---|---|
"""


def first_sentence(header, name):
    text = (root / "src" / header).read_text(encoding="utf-8")
    found = re.search(rf"((?:^///.*\n)+)(?:^//.*\n)*(?:class|struct) (?:VANTOR_EXPORT )?{name}\b[^;]*$", text, re.M)
    if not found:
        return None
    words = re.sub(r"^/// ?", "", found.group(1), flags=re.M).replace("\\brief ", "").split("\n\n")[0]
    sentence = re.match(r".*?\.(?=\s|$)", " ".join(words.split())).group(0)
    if record := re.match(r"An? (\w+) as a record\.", sentence):
        return first_sentence(header, record.group(1))
    return re.sub(r"\\[ac] ", "", sentence).replace("|", "\\|")


def main():
    pairs = re.findall(r'^    "(\w+) (\S+)"', (root / "cmake/ForwardingHeaders.cmake").read_text(encoding="utf-8"), re.M)
    rows, faults = [], []
    for number, (folder, task) in enumerate(TASKS.items()):
        rows += [(number, task, name, header) for name, header in pairs if header.startswith(folder)]
    listed = {name for _, _, name, _ in rows}
    faults += [f"tools/class-table.py: no task for {name}, {header}" for name, header in pairs if name not in listed]
    order = list(dict.fromkeys(TASKS.values()))
    text, last = HEAD, ""
    for _, task, name, header in sorted(rows, key=lambda row: (order.index(row[1]), row[0])):
        about = first_sentence(header, name)
        if not about:
            faults.append(f"src/{header}: no comment above {name}")
        text += f"| {task if task != last else ''} | `{name}` | {about} |\n"
        last = task
    if "--update" in sys.argv[1:]:
        page.write_text(text, encoding="utf-8")
    if not page.exists() or page.read_text(encoding="utf-8") != text:
        faults.append("docs/classes.md is not what the headers say; tools/class-table.py --update writes it")
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
