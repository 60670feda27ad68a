#include "files/worksheet_writer.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "files/workbook_globals_writer.h"

namespace vireon::files {
namespace {

constexpr int kBlockRows = 32;  // rows whose records stand together
constexpr unsigned kColumnWidth = 14 * 256;
constexpr double kSecondsOfDay = 86400;

CellFormat formatOf(CellContent content, bool header) {
  switch (content) {
    case CellContent::kRecordNumber:
      return header ? CellFormat::kBoldRecordNumber : CellFormat::kRecordNumber;
    case CellContent::kTime:
      return header ? CellFormat::kBoldTime : CellFormat::kTime;
    default:
      return header ? CellFormat::kBoldText : CellFormat::kText;
  }
}

class WorksheetWriter {
 public:
  WorksheetWriter(RecordWriter& out, const SheetCells& cells)
      : out_(out), cells_(cells), blocks_((cells.rows() + kBlockRows - 1) / kBlockRows) {}

  void write() {
    const std::size_t index = writeStart();
    for (int block = 0; block < blocks_; ++block) {
      const std::size_t position = writeBlock(block * kBlockRows);
      out_.patch32(index + static_cast<std::size_t>(block) * 4, position);
    }
    writeEnd();
  }

 private:
  // Returns where the index lists the blocks' positions.
  std::size_t writeStart() {
    out_.beginPart(biff::kWorksheet);

    const auto rows = static_cast<std::size_t>(cells_.rows());
    const auto listLength = static_cast<std::size_t>(blocks_) * 4;
    out_.begin(biff::kIndex, 16 + listLength);
    out_.u32(0);
    out_.u32(0);
    out_.u32(rows);
    const std::size_t list = out_.position() + 4;
    out_.u32(list + listLength);  // the column width's record
    for (int block = 0; block < blocks_; ++block) out_.u32(0);

    out_.begin(biff::kDefaultColumnWidth, 2);
    out_.u16(8);
    const auto columns = static_cast<unsigned>(cells_.columns());
    if (columns != 0) writeColumns(columns);

    out_.begin(biff::kDimensions, 14);
    out_.u32(0);
    out_.u32(rows);
    out_.u16(0);
    out_.u16(rows == 0 ? 0 : columns);
    out_.u16(0);
    return list;
  }

  void writeColumns(unsigned columns) {
    out_.begin(biff::kColumnInfo, 12);
    out_.u16(0);
    out_.u16(columns - 1);
    out_.u16(kColumnWidth);
    out_.u16(static_cast<unsigned>(CellFormat::kText));
    out_.u16(0);
    out_.u16(0);
  }

  // Returns the position of the record that closes the block.
  std::size_t writeBlock(int first) {
    const int last = std::min(first + kBlockRows, cells_.rows());
    const std::size_t start = out_.position();
    for (int row = first; row < last; ++row) writeRow(row);
    std::array<std::size_t, kBlockRows> firstCells{};
    for (int row = first; row < last; ++row) {
      firstCells[static_cast<std::size_t>(row - first)] = out_.position();
      for (int column = 0; column < cells_.columns(); ++column) writeCell(row, column);
    }
    const std::size_t close = out_.position();
    out_.begin(biff::kDbCell, 4 + static_cast<std::size_t>(last - first) * 2);
    out_.u32(close - start);
    std::size_t before = start + biff::kHeader + 16;  // the second row's record
    for (int row = first; row < last; ++row) {
      const std::size_t cell = firstCells[static_cast<std::size_t>(row - first)];
      out_.u16(static_cast<unsigned>(cell - before));
      before = cell;
    }
    return close;
  }

  void writeRow(int row) {
    out_.begin(biff::kRow, 16);
    out_.u16(static_cast<unsigned>(row));
    out_.u16(0);
    out_.u16(static_cast<unsigned>(cells_.columns()));
    out_.u16(255);  // twips
    out_.u32(0);
    out_.u32(0x000F0100);  // of the usual height and format
  }

  void writeCell(int row, int column) {
    const CellContent content = cells_.content(row, column);
    const std::uint32_t value = cells_.value(row, column);
    if (content == CellContent::kText) {
      beginCell(biff::kLabelSst, 4, row, column);
      out_.u32(value);
    } else if (content == CellContent::kRecordNumber) {
      beginCell(biff::kRk, 4, row, column);
      out_.u32(value << 2U | 2U);  // a whole number
    } else if (content == CellContent::kTime) {
      beginCell(biff::kNumber, 8, row, column);
      out_.f64(value / kSecondsOfDay);
    }
  }

  void beginCell(biff::Record record, std::size_t length, int row, int column) {
    out_.begin(record, 6 + length);
    out_.u16(static_cast<unsigned>(row));
    out_.u16(static_cast<unsigned>(column));
    out_.u16(static_cast<unsigned>(formatOf(cells_.content(row, column), row == 0)));
  }

  void writeEnd() {
    out_.begin(biff::kWindow2, 18);
    out_.u16(0x06B6);  // with grid lines and headings; selected and shown
    out_.u16(0);
    out_.u16(0);
    out_.u16(0x0040);  // the grid's usual colour
    for (int field = 0; field < 5; ++field) out_.u16(0);
    out_.begin(biff::kEof);
  }

  RecordWriter& out_;
  const SheetCells& cells_;
  int blocks_;
};

}  // namespace

void writeWorksheet(RecordWriter& out, const SheetCells& cells) {
  WorksheetWriter(out, cells).write();
}

}  // namespace vireon::files
