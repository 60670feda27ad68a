#include <string>
#include <vector>

#include "files/workbook_writer.h"
#include "tests/adapters/spreadsheet/interop/interop_bench.h"
#include "tests/files/grid_text.h"

// Other programs open the workbooks that are written here.
namespace vireon::tests {
namespace {

class OpenedElsewhere : public InteropBench {
 protected:
  OpenedElsewhere() : grid_(loggerGrid(300)) {
    grid_.push_back({"00301", "23:59:59", "\xC2\xB5V -1.2", "한글 \xF0\x9F\x98\x80"});
    grid_.push_back({"--EOD---", "", std::string(32767, 'x'), ""});
    std::string wideText;
    for (int unit = 0; unit < 20000; ++unit) wideText += "가";
    grid_.push_back({"12", "1:2:3", wideText, "00012"});
    grid_.push_back({"x", "--EOD---", "", ""});
    write("ours.xls",
          adapters::GsfCompoundFiles().pack(files::writeWorkbookStream(sheetOf(grid_)).stream).file);
  }

  // "row TAB column TAB bold TAB text" of every cell that is not empty.
  std::string expectedCells() const {
    std::string lines;
    for (std::size_t row = 0; row < grid_.size(); ++row) {
      for (std::size_t column = 0; column < 4; ++column) {
        if (grid_[row][column].empty()) continue;
        lines += std::to_string(row) + "\t" + std::to_string(column) + (row == 0 ? "\t1\t" : "\t0\t") +
                 grid_[row][column] + "\n";
      }
    }
    return lines;
  }

  GridText grid_;
};

TEST_F(OpenedElsewhere, XlrdShowsTheSameCellsAndABoldHeader) {
  if (!hasModule("xlrd")) GTEST_SKIP() << "python3-xlrd is not installed";
  ASSERT_TRUE(run(script("xlrd_cells.py") + " ours.xls >cells.txt")) << log();
  EXPECT_TRUE(read("cells.txt") == expectedCells()) << read("cells.txt").substr(0, 300);
}

TEST_F(OpenedElsewhere, LibreOfficeShowsTheSameCellsAndABoldHeader) {
  if (!hasProgram("soffice")) GTEST_SKIP() << "libreoffice-calc-nogui is not installed";
  ASSERT_TRUE(run(libreOffice("--convert-to fods ours.xls"))) << log();
  ASSERT_TRUE(run(script("fods_cells.py") + " ours.fods >cells.txt")) << log();
  EXPECT_TRUE(read("cells.txt") == expectedCells()) << read("cells.txt").substr(0, 300);
}

TEST_F(OpenedElsewhere, GnumericShowsTheSameCells) {
  if (!hasProgram("ssconvert")) GTEST_SKIP() << "gnumeric is not installed";
  ASSERT_TRUE(
      run("ssconvert --export-type=Gnumeric_stf:stf_assistant -O 'separator=\"\t\" format=preserve' "
          "ours.xls cells.txt"))
      << log();
  std::string lines;
  for (const auto& row : grid_) lines += row[0] + "\t" + row[1] + "\t" + row[2] + "\t" + row[3] + "\n";
  std::string cells = read("cells.txt");
  std::erase(cells, '"');
  EXPECT_TRUE(cells == lines) << cells.substr(0, 300);
}

}  // namespace
}  // namespace vireon::tests
