#include <string>

#include "tests/adapters/spreadsheet/interop/interop_bench.h"
#include "tests/files/grid_text.h"

// The import reads workbooks that other programs have written.
namespace vireon::tests {
namespace {

class WrittenElsewhere : public InteropBench {
 protected:
  // The sample's rows as the import gives them, with its formulas calculated.
  static GridText expected() {
    std::string wideText;
    for (int part = 0; part < 6000; ++part) wideText += "가나다";
    return {kHeader,
            {"00012", "12:34:56", "-1.5", "한글 시험"},
            {"00013", "01:02:03", "13", "2023-03-15"},
            {"00015", "06:00:00", "True", "#DIV/0!"},
            {"00016", "--EOD---", "ab", wideText},
            {"17", "", "0.25", std::string(30000, 'x')}};
  }

  void expectRows(const std::string& name, const GridText& rows) const {
    const auto result = import(name);
    EXPECT_EQ(result.error, files::WorkbookReadError::kNone);
    ASSERT_EQ(result.rows.size(), rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
      for (std::size_t column = 0; column < 4; ++column) {
        EXPECT_TRUE(result.rows[row][column] == rows[row][column])
            << row << ", " << column << ": " << result.rows[row][column].substr(0, 80);
      }
    }
  }
};

TEST_F(WrittenElsewhere, Xlwt) {
  if (!hasModule("xlwt")) GTEST_SKIP() << "python3-xlwt is not installed";
  ASSERT_TRUE(run(script("xlwt_sample.py") + " sample.xls")) << log();
  GridText rows = expected();
  // It calculates no formula.
  rows[2][2] = rows[3][3] = rows[4][2] = "";
  expectRows("sample.xls", rows);
}

TEST_F(WrittenElsewhere, Gnumeric) {
  if (!hasProgram("ssconvert") || !hasModule("xlwt")) GTEST_SKIP() << "gnumeric or xlwt is not installed";
  ASSERT_TRUE(run(script("xlwt_sample.py") + " sample.xls")) << log();
  ASSERT_TRUE(run("ssconvert --recalc --export-type=Gnumeric_Excel:excel_biff8 sample.xls out.xls")) << log();
  expectRows("out.xls", expected());
}

TEST_F(WrittenElsewhere, GnumericsOlderFormatIsToldApart) {
  if (!hasProgram("ssconvert") || !hasModule("xlwt")) GTEST_SKIP() << "gnumeric or xlwt is not installed";
  ASSERT_TRUE(run(script("xlwt_sample.py") + " sample.xls")) << log();
  ASSERT_TRUE(run("ssconvert --export-type=Gnumeric_Excel:excel_biff7 sample.xls old.xls")) << log();
  EXPECT_EQ(unpack("old.xls").error, platform::UnpackError::kOldWorkbook);
  ASSERT_TRUE(run("ssconvert --recalc --export-type=Gnumeric_Excel:excel_dsf sample.xls both.xls")) << log();
  expectRows("both.xls", expected());
}

TEST_F(WrittenElsewhere, LibreOffice) {
  if (!hasProgram("soffice")) GTEST_SKIP() << "libreoffice-calc-nogui is not installed";
  ASSERT_TRUE(run(script("fods_sample.py") + " sample.fods")) << log();
  ASSERT_TRUE(run(libreOffice("--convert-to xls:'MS Excel 97' sample.fods"))) << log();
  expectRows("sample.xls", expected());
}

}  // namespace
}  // namespace vireon::tests
