#!/usr/bin/env python3
"""read_back.py FILE: what a CSV file or a workbook's first sheet holds, by readers that know nothing of
its writer.

One line per cell that is not blank, "ROW COLUMN number VALUE SHOWN INDENT" or "ROW COLUMN text TEXT
INDENT", with "bold" behind it where the font is. SHOWN is what the number's format makes of it. Texts
are in quotes, with \\uXXXX for every unit beyond printable ASCII. Exit status 3: a reader is missing.
"""
import re
import sys
from decimal import Decimal, getcontext

NO_READER = 3
SIGNIFICANT_DIGITS = 15
getcontext().prec = 400


def quoted(text):
    units = memoryview(text.encode("utf-16-le", "surrogatepass")).cast("H")
    return '"%s"' % "".join(
        chr(unit) if 0x20 <= unit < 0x7F and unit not in b'"\\' else "\\u%04x" % unit
        for unit in units
    )


def shown(value, number_format):
    """The subset of number formats that has digits, a point, groups, an exponent and signs."""
    sections = number_format.split(";")
    section, sign = sections[0], "-" if value < 0 else ""
    if len(sections) == 3:
        section, sign = sections[0 if value > 0 else 1 if value < 0 else 2], ""
    parts = re.fullmatch(r"([+-]?)(#,##0|0|#)(?:(\.)(0*))?(?:E([+-])(0+))?", section)
    if parts is None:
        return "the format %s" % number_format
    literal, whole_format, point, zeros, exponent_sign, exponent_zeros = parts.groups()
    number = Decimal("%.*e" % (SIGNIFICANT_DIGITS - 1, abs(value)))
    exponent = ""
    if exponent_sign:
        power = number.adjusted()
        number = number.scaleb(-power)
        mark = "-" if power < 0 else exponent_sign.replace("-", "")
        exponent = "E" + mark + str(abs(power)).zfill(len(exponent_zeros))
    digits = len(zeros or "")
    whole, _, decimals = format(round(number, digits), "f").partition(".")
    if "," in whole_format:
        whole = format(int(whole), ",")
    elif whole_format == "#" and whole == "0":
        whole = ""
    return sign + literal + whole + (point or "") + (decimals if digits else "") + exponent


def cells_of_xlsx(path):
    import openpyxl

    sheet = openpyxl.load_workbook(path).worksheets[0]
    for row in sheet.iter_rows():
        for cell in row:
            if cell.value is not None:
                kind = {"n": "number", "s": "text", "inlineStr": "text"}.get(cell.data_type)
                yield (cell.row - 1, cell.column - 1, kind or "kind " + cell.data_type, cell.value,
                       cell.number_format, int(cell.alignment.indent or 0), cell.font.bold)


def cells_of_xls(path):
    import xlrd

    book = xlrd.open_workbook(path, formatting_info=True, ragged_rows=True)
    sheet = book.sheet_by_index(0)
    for row in range(sheet.nrows):
        for column in range(sheet.row_len(row)):
            cell = sheet.cell(row, column)
            if cell.ctype in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK):
                continue
            kind = {xlrd.XL_CELL_NUMBER: "number", xlrd.XL_CELL_TEXT: "text"}.get(cell.ctype)
            style = book.xf_list[cell.xf_index]
            yield (row, column, kind or "kind %d" % cell.ctype, cell.value,
                   book.format_map[style.format_key].format_str, style.alignment.indent_level,
                   book.font_list[style.font_index].weight >= 700)


def cells_of_csv(path):
    import csv

    with open(path, encoding="utf-8", newline="") as file:
        for row, cells in enumerate(csv.reader(file, strict=True)):
            for column, text in enumerate(cells):
                if text:
                    yield (row, column, "text", text, "", 0, False)


READERS = {".csv": cells_of_csv, ".xls": cells_of_xls, ".xlsx": cells_of_xlsx}


def main(path):
    try:
        for row, column, kind, value, number_format, indent, bold in READERS[
            path[path.rindex("."):]
        ](path):
            if kind == "number":
                what = "%r %s" % (float(value), quoted(shown(value, number_format)))
            else:
                what = quoted(str(value))
            print(row, column, kind, what, indent, *(["bold"] if bold else []))
    except ImportError as error:
        print(error)
        return NO_READER
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
