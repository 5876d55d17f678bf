#!/usr/bin/python3
# The system's own Python: the package that reads spreadsheets is installed for it.
"""Prints each cell of an .xlsx file that holds something, as a spreadsheet program reads it: the sheet, the cell, the
type (s text, n number), the value, the number format, and "marked" where the cell is in red. Lines of a text have <line> between them."""

import sys

import openpyxl

for sheet in openpyxl.load_workbook(sys.argv[1]):
    for row in sheet.iter_rows():
        for cell in row:
            if cell.value is None:
                continue
            colour = cell.font.color.rgb if cell.font.color is not None else None
            marked = "marked" if colour == "FFFF0000" else ""
            text = str(cell.value).replace("\n", "<line>")
            print(sheet.title, cell.coordinate, cell.data_type, text, cell.number_format, marked, sep="|")
