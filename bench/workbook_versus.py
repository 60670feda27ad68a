#!/usr/bin/python3
"""workbook_versus.py PROGRAM [--quick]: workbooks of four columns written and read by PROGRAM
(vireon_bench_workbook_file) and by xlwt and xlrd, side by side; the best of some runs each. With --quick one run."""
import pathlib
import subprocess
import sys
import tempfile
import time

import xlrd
import xlwt

ROWS = (10000, 60000)


def ours(mode: str, rows: int, path: pathlib.Path) -> float:
    answer = subprocess.run([sys.argv[1], mode, str(rows), path], check=True, capture_output=True)
    return float(answer.stdout)


def cells(row: int) -> tuple[str, str, str, str]:
    if row == 0:
        return ("R/No", "Time", "Reading", "Remarks")
    clock = f"{row // 3600 % 24:02d}:{row // 60 % 60:02d}:{row % 60:02d}"
    return (f"{row:05d}", clock, f"{row % 7}.{row:05d}V", "DCV or ACV")


def write_by_xlwt(rows: int, path: pathlib.Path) -> float:
    grid = [cells(row) for row in range(rows)]
    start = time.perf_counter()
    book = xlwt.Workbook()
    sheet = book.add_sheet("Logger")
    for row, texts in enumerate(grid):
        for column, text in enumerate(texts):
            sheet.write(row, column, text)
    book.save(str(path))
    return time.perf_counter() - start


def read_by_xlrd(rows: int, path: pathlib.Path) -> float:
    start = time.perf_counter()
    sheet = xlrd.open_workbook(str(path)).sheet_by_index(0)
    grid = [sheet.row_values(row) for row in range(sheet.nrows)]
    seconds = time.perf_counter() - start
    assert len(grid) == rows
    return seconds


def main() -> None:
    repeats = range(1 if "--quick" in sys.argv else 3)
    with tempfile.TemporaryDirectory() as folder:
        mine, other = pathlib.Path(folder, "vireon.xls"), pathlib.Path(folder, "xlwt.xls")
        for rows in ROWS:
            print(f"measured: write.{rows}.vireon {ours('write', rows, mine):.6f} s")
            print(f"measured: write.{rows}.xlwt {min(write_by_xlwt(rows, other) for _ in repeats):.6f} s")
            print(f"measured: read.{rows}.vireon {ours('read', rows, mine):.6f} s")
            print(f"measured: read.{rows}.xlrd {min(read_by_xlrd(rows, mine) for _ in repeats):.6f} s")


if __name__ == "__main__":
    main()
