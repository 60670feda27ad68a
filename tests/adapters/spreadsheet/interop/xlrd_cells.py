"""Prints the cells of a workbook as xlrd reads them: row, column, bold, text as its format shows it."""
import sys

import xlrd


def shown(book, cell):
    code = book.format_map[book.xf_list[cell.xf_index].format_key].format_str
    if cell.ctype == xlrd.XL_CELL_NUMBER and code == "00000":
        return "%05d" % cell.value
    if cell.ctype == xlrd.XL_CELL_DATE and code == "hh:mm:ss":
        return "%02d:%02d:%02d" % xlrd.xldate_as_tuple(cell.value, book.datemode)[3:]
    if cell.ctype == xlrd.XL_CELL_TEXT:
        return cell.value
    return "type %d: %r as %s" % (cell.ctype, cell.value, code)


sys.stdout.reconfigure(encoding="utf-8")
book = xlrd.open_workbook(sys.argv[1], formatting_info=True)
sheet = book.sheet_by_name("Logger")
for row in range(sheet.nrows):
    for column in range(sheet.ncols):
        cell = sheet.cell(row, column)
        if cell.ctype not in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK):
            bold = book.font_list[book.xf_list[cell.xf_index].font_index].bold
            print(row, column, bold, shown(book, cell), sep="\t")
