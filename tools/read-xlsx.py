#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Reads the workbooks of write_workbooks with openpyxl and LibreOffice: read-xlsx.py FOLDER

Both must open each file without repairing it, and find the written values.
"""

import csv
import os
import subprocess
import sys
import warnings

from openpyxl import load_workbook

ALL_ROWS = 1048576
NAMES = ["Hidden", "n" * 31, "中文" * 5, "تقرير" * 3]
TEXT = '中文 العربية 😀 <&>"'
LINK = "https://example.org/a%20b?c=d&e=f"
# Commas, quotes, UTF-8, cells as they are, and each sheet to a file of its own (the last -1).
CSV_FILTER = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false,false,-1"


class Fault(Exception):
    pass


def expect(what, got, wanted):
    if got != wanted:
        raise Fault(f"{what}: {got!r} instead of {wanted!r}")


def check_header(sheet):
    cell = sheet["A1"]
    expect("header", cell.value, "Column 0")
    expect("font", (cell.font.name, cell.font.sz, cell.font.b, cell.font.color.rgb),
           ("DejaVu Sans", 14, True, "FFFFFFFF"))
    expect("fill", cell.fill.fgColor.rgb, "FF204060")
    expect("alignment", (cell.alignment.horizontal, bool(cell.alignment.wrap_text)),
           ("center", True))
    expect("filter", sheet.auto_filter.ref, "A1:D10")


def check_cells(sheet):
    expect("text", sheet["A2"].value, TEXT)
    expect("number", sheet["B2"].value, -1234.5)
    expect("no formula", (sheet["C2"].value, sheet["C2"].data_type in "si"), ("=1+1", True))
    expect("plain font", (sheet["A2"].font.name, sheet["A2"].font.sz), ("Microsoft YaHei", 11))
    expect("link", sheet["A3"].hyperlink.target.replace("%20", " "), LINK.replace("%20", " "))
    expect("place", (sheet["B3"].hyperlink.location.strip("#").replace(".", "!"),
                     sheet["B3"].value), ("Hidden!A1", "shown"))
    expect("merged", sorted(str(cells) for cells in sheet.merged_cells.ranges),
           ["A5:D5", "C6:D9"])
    expect("merged texts", (sheet["A5"].value, sheet["C6"].value), ("one row", "four rows"))
    lists = {str(rule.sqref): (rule.type, rule.formula1) for rule in
             sheet.data_validations.dataValidation}
    expect("lists", lists, {"A4": ("list", '"open,in progress,say ""done"""'),
                            "B4:B10": ("list", '"' + "中" * 100 + '"')})
    expect("pictures", [(image.anchor._from.row, image.anchor._from.col)
                        for image in sheet._images], [(10, 0), (10, 2)])


def check_book(path):
    book = load_workbook(path)
    expect("sheets", book.sheetnames, NAMES)
    expect("states", [sheet.sheet_state for sheet in book], ["hidden"] + ["visible"] * 3)
    expect("active", book.active.title, NAMES[1])
    for name in NAMES[1:]:
        check_header(book[name])
        check_cells(book[name])


def check_rows(path):
    book = load_workbook(path, read_only=True)
    count = 0
    for count, (value,) in enumerate(book["Rows"].iter_rows(values_only=True), start=1):
        expect(f"row {count}", value, f"row {count - 1}")
    expect("rows", count, ALL_ROWS)


def check_many_sheets(folder, count):
    book = load_workbook(os.path.join(folder, f"sheets{count}.xlsx"))
    expect("sheets", [(sheet.title, sheet["A1"].value) for sheet in book],
           [(f"S{number}", f"on sheet {number}") for number in range(1, count + 1)])


def check_column(sheet, what, count):
    expect(what, [cells[0].value for cells in sheet.iter_rows(max_col=1)],
           [f"{what} {row}" for row in range(count)])


def check_merges(path):
    sheet = load_workbook(path)["Merges"]
    expect("merges", {str(cells) for cells in sheet.merged_cells.ranges},
           {f"A{row}:B{row}" for row in range(1, 65536)})
    check_column(sheet, "merge", 100000)


def check_lists(path):
    sheet = load_workbook(path)["Lists"]
    offered = {}
    for rule in sheet.data_validations.dataValidation:
        for cells in rule.sqref.ranges:
            for row in range(cells.min_row, cells.max_row + 1):
                offered[cells.min_col, row] = rule.formula1
    wanted = {(1, row): '"open,closed"' for row in range(1, 5001)}
    wanted.update({(3, row): '"odd,none"' if row % 2 == 0 else '"even,none"'
                   for row in range(1, 5001)})
    expect("cells with lists", len(offered), len(wanted))
    expect("lists", offered == wanted, True)
    check_column(sheet, "list", 5000)


def check_looks(path):
    sheet = load_workbook(path)["Looks"]
    fills = [cells[0].fill.fgColor.rgb for cells in sheet.iter_rows(max_col=1)]
    expect("fills", fills[:64000] == [f"FF{row:06X}" for row in range(64000)], True)
    check_column(sheet, "look", 66000)


def check_links(path):
    sheet = load_workbook(path)["Links"]
    expect("places", [sheet.cell(row, 1).hyperlink.location for row in (1, 2, 3)],
           ["'Links'!A1"] * 3)
    expect("shown", [sheet.cell(row, 1).value for row in (1, 2, 3)],
           ["a_x0001_b", "中" * 1000, "<&>\"'"])
    expect("long address", sheet["A5"].value, "https://example.org/" + "a" * 3000)


def convert(folder, out, name, target):
    profile = "-env:UserInstallation=file://" + os.path.abspath(os.path.join(out, "profile"))
    done = subprocess.run(
        ["soffice", profile, "--headless", "--norestore", "--convert-to", target, "--outdir", out,
         os.path.join(folder, name)],
        capture_output=True, text=True, timeout=600, check=False)
    told = [line for line in done.stderr.splitlines() if line and "javaldx" not in line]
    if done.returncode != 0 or told:
        raise Fault(f"LibreOffice: status {done.returncode}, {done.stdout} {told}")


def check_csv(path, wanted):
    with open(path, encoding="utf-8", newline="") as stream:
        rows = list(csv.reader(stream))
    expect(f"{os.path.basename(path)}, rows", len(rows), len(wanted))
    for number, (got, want) in enumerate(zip(rows, wanted), start=1):
        expect(f"{os.path.basename(path)}, row {number}", got[:len(want)], want)


def check_with_libreoffice(folder):
    out = os.path.join(folder, "converted")
    convert(folder, out, "rows.xlsx", CSV_FILTER)
    check_csv(os.path.join(out, "rows-Rows.csv"), [[f"row {row}"] for row in range(ALL_ROWS)])
    for what, count in (("merge", 100000), ("list", 5000), ("look", 66000)):
        convert(folder, out, f"{what}s.xlsx", CSV_FILTER)
        check_csv(os.path.join(out, f"{what}s-{what.capitalize()}s.csv"),
                  [[f"{what} {row}"] for row in range(count)])
    for count in (64, 900):
        convert(folder, out, f"sheets{count}.xlsx", CSV_FILTER)
        for number in range(1, count + 1):
            check_csv(os.path.join(out, f"sheets{count}-S{number}.csv"), [[f"on sheet {number}"]])
    convert(folder, out, "links.xlsx", CSV_FILTER)
    check_csv(os.path.join(out, "links-Links.csv"), [["a\x01b"], ["中" * 1000], ["<&>\"'"], ["_x000D_"],
               ["https://example.org/" + "a" * 3000]])
    for name in ("memory", "constant"):
        convert(folder, out, f"{name}.xlsx", CSV_FILTER)
        for sheet in NAMES[1:]:
            check_csv(os.path.join(out, f"{name}-{sheet}.csv"),
                      [["Column 0", "Column 1", "Column 2", "Column 3"], [TEXT], [], [],
                       ["one row"], ["", "", "four rows"]])


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = sys.argv[1]
    warnings.simplefilter("error")  # openpyxl warns where it drops something
    try:
        for name in ("memory.xlsx", "constant.xlsx"):
            check_book(os.path.join(folder, name))
        check_rows(os.path.join(folder, "rows.xlsx"))
        check_many_sheets(folder, 64)
        check_many_sheets(folder, 900)
        for what, check in (("merges", check_merges), ("lists", check_lists),
                            ("looks", check_looks), ("links", check_links)):
            check(os.path.join(folder, what + ".xlsx"))
        check_with_libreoffice(folder)
    except Fault as fault:
        sys.exit(f"read-xlsx.py: {fault}")
    print("openpyxl and LibreOffice read every cell, look, link, list, picture and name")


if __name__ == "__main__":
    main()
