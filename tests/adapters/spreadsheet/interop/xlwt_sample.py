"""Writes a workbook of every kind of cell with xlwt; formulas have the empty text as their result."""
import datetime
import sys

import xlwt

book = xlwt.Workbook(encoding="utf-8")
sheet = book.add_sheet("표")
bold = xlwt.easyxf("font: bold on")
time = xlwt.easyxf(num_format_str="h:mm:ss")
date = xlwt.easyxf(num_format_str="yyyy-mm-dd")
for column, text in enumerate(("R/No", "Time", "Reading", "Remarks")):
    sheet.write(0, column, text, bold)
sheet.write(1, 0, 12)
sheet.write(1, 1, datetime.time(12, 34, 56), time)
sheet.write(1, 2, -1.5)
sheet.write(1, 3, "한글 시험")
sheet.write(2, 0, 13)
sheet.write(2, 1, "1:2:3")
sheet.write(2, 2, xlwt.Formula("A2+1"))
sheet.write(2, 3, datetime.date(2023, 3, 15), date)
sheet.write(3, 0, 14.5)
sheet.write(3, 1, 0.25)
sheet.write(3, 2, True)
sheet.write(3, 3, xlwt.Formula("1/0"))
sheet.write(4, 0, 16)
sheet.write(4, 1, "--EOD---")
sheet.write(4, 2, xlwt.Formula('CONCATENATE("a";"b")'))
sheet.write(4, 3, "가나다" * 6000)
sheet.write(5, 0, "17")
sheet.write(5, 2, 0.25)
sheet.write(5, 3, "x" * 30000)
sheet.write(7, 0, "behind an empty row")
book.save(sys.argv[1])
