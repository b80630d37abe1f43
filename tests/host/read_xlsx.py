#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints what a workbook holds as JSON: a second reader of our files, on Python's library alone."""

import json
import re
import sys
import zipfile
from xml.etree import ElementTree

MAIN = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
DRAWING = "{http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing}"


def column_of(reference):
    number = 0
    for letter in re.match("[A-Z]+", reference).group():
        number = number * 26 + ord(letter) - ord("A") + 1
    return number - 1


def value_of(cell):
    if cell.get("t") == "inlineStr":
        return "".join(cell.itertext())
    value = cell.find(MAIN + "v")
    return None if value is None else float(value.text)


class Workbook:
    def __init__(self, path):
        self.archive = zipfile.ZipFile(path)
        fault = self.archive.testzip()
        if fault:
            sys.exit(f"{fault} is damaged")
        styles = self.part("xl/styles.xml")
        self.fonts = styles.find(MAIN + "fonts")
        self.fills = styles.find(MAIN + "fills")
        self.looks = styles.find(MAIN + "cellXfs")

    def part(self, name):
        return ElementTree.fromstring(self.archive.read(name))

    def look(self, cell):
        look = self.looks[int(cell.get("s", 0))]
        font = self.fonts[int(look.get("fontId"))]
        fill = self.fills[int(look.get("fillId"))].find(f"{MAIN}patternFill/{MAIN}fgColor")
        return {"bold": font.find(MAIN + "b") is not None,
                "font": font.find(MAIN + "name").get("val"),
                "fill": "" if fill is None else fill.get("rgb")}

    def sheet(self, name, part):
        tree = self.part(part)
        rows = []
        for row in tree.iter(MAIN + "row"):
            cells = []
            for cell in row:
                cells.extend([None] * (column_of(cell.get("r")) - len(cells)))
                cells.append(value_of(cell))
            rows.append(cells)
        view = tree.find(f"{MAIN}sheetViews/{MAIN}sheetView")
        filtered = tree.find(MAIN + "autoFilter")
        first = tree.find(f"{MAIN}sheetData/{MAIN}row/{MAIN}c")
        return {"name": name, "rows": rows,
                "filter": "" if filtered is None else filtered.get("ref"),
                "rightToLeft": view.get("rightToLeft") == "1",
                "frozen": view.find(MAIN + "pane") is not None,
                "widths": [float(column.get("width")) for column in tree.iter(MAIN + "col")],
                "links": [link.get("ref") for link in tree.iter(MAIN + "hyperlink")],
                "targets": [link.get("location", "") for link in tree.iter(MAIN + "hyperlink")],
                "firstLook": None if first is None else self.look(first)}

    def content(self):
        names = self.archive.namelist()
        sheets = [self.sheet(sheet.get("name"), f"xl/worksheets/sheet{number}.xml")
                  for number, sheet in enumerate(self.part("xl/workbook.xml").iter(MAIN + "sheet"), 1)]
        descriptions = [shown.get("descr") for name in names if name.startswith("xl/drawings/drawing")
                        for shown in self.part(name).iter(DRAWING + "cNvPr")]
        return {"sheets": sheets, "descriptions": descriptions,
                "pictures": sorted(name for name in names if name.startswith("xl/media/"))}


if __name__ == "__main__":
    json.dump(Workbook(sys.argv[1]).content(), sys.stdout)
