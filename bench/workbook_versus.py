#!/usr/bin/python3
"""workbook_versus.py PROGRAM [--quick]: workbooks of four columns written and read by PROGRAM
(vireon_bench_workbook_file) and by xlwt and xlrd, side by side. Fails where it is not so many times as fast
as them, or where six times the rows take far more than six times as long; with --quick it only
proves that it runs."""
import os
import subprocess
import sys
import tempfile
import time

import xlrd
import xlwt

ROWS = (10000, 60000)
WRITING_AT_LEAST = 10
READING_AT_LEAST = 5
MOST_GROWTH = 1.6  # of the time per row


def ours(mode, rows, path):
    answer = subprocess.run([sys.argv[1], mode, str(rows), path], check=True, capture_output=True)
    return float(answer.stdout)


def cells(row):
    if row == 0:
        return ("R/No", "Time", "Reading", "Remarks")
    clock = "%02d:%02d:%02d" % (row // 3600 % 24, row // 60 % 60, row % 60)
    return ("%05d" % row, clock, "%d.%05dV" % (row % 7, row), "DCV or ACV")


def write_by_xlwt(rows, path):
    grid = [cells(row) for row in range(rows)]
    start = time.perf_counter()
    book = xlwt.Workbook()
    sheet = book.add_sheet("Logger")
    for row, texts in enumerate(grid):
        for column, text in enumerate(texts):
            sheet.write(row, column, text)
    book.save(path)
    return time.perf_counter() - start


def read_by_xlrd(rows, path):
    start = time.perf_counter()
    sheet = xlrd.open_workbook(path).sheet_by_index(0)
    grid = [sheet.row_values(row) for row in range(sheet.nrows)]
    seconds = time.perf_counter() - start
    assert len(grid) == rows
    return seconds


def main():
    repeats = 1 if "--quick" in sys.argv else 3
    failed = False
    times = {}
    print("%8s %-8s %12s %12s %8s" % ("rows", "", "vireon", "python", "ratio"))
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "vireon.xls")
        other = os.path.join(folder, "xlwt.xls")
        for rows in ROWS:
            for mode, rival, least in (
                ("write", lambda: write_by_xlwt(rows, other), WRITING_AT_LEAST),
                ("read", lambda: read_by_xlrd(rows, path), READING_AT_LEAST),
            ):
                mine = ours(mode, rows, path)
                theirs = min(rival() for _ in range(repeats))
                times[mode, rows] = mine
                values = (rows, mode, mine * 1e3, theirs * 1e3, theirs / mine)
                print("%8d %-8s %9.1f ms %9.1f ms %7.1fx" % values)
                failed = failed or theirs < least * mine
    for mode in ("write", "read"):
        growth = times[mode, ROWS[1]] / times[mode, ROWS[0]] / (ROWS[1] / ROWS[0])
        print("%s: the time per row is %.2f of that at %d rows" % (mode, growth, ROWS[0]))
        failed = failed or growth > MOST_GROWTH
    return 1 if failed and "--quick" not in sys.argv else 0


if __name__ == "__main__":
    sys.exit(main())
