#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "adapters/posix/posix_file_store.h"
#include "adapters/spreadsheet/gsf_compound_files.h"
#include "bench/logger_sheet.h"
#include "files/import_rows.h"
#include "files/workbook_writer.h"

// vireon_bench_workbook_file write ROWS FILE | read ROWS FILE: writes a workbook of so many rows, or reads
// it, and prints the seconds that the fastest of five runs took. The grid's own making is not counted, the
// file's flushing to the disk neither.
namespace {

constexpr int kRuns = 5;

using Clock = std::chrono::steady_clock;

bool writeFile(int rows, const std::string& path, double& seconds) {
  const vireon::bench::LoggerSheet sheet(rows);
  const auto start = Clock::now();
  const auto file =
      vireon::adapters::GsfCompoundFiles().pack(vireon::files::writeWorkbookStream(sheet.view()).stream).file;
  seconds = std::chrono::duration<double>(Clock::now() - start).count();
  vireon::adapters::PosixFileStore store;
  return store.replace(path, file) == vireon::platform::FileReplace::kDone;
}

bool readFile(int rows, const std::string& path, double& seconds) {
  const auto start = Clock::now();
  vireon::adapters::PosixFileStore store;
  const auto file = store.read(path, vireon::files::kLargestWorkbook);
  const auto unpacked =
      vireon::adapters::GsfCompoundFiles().unpack(file.bytes, vireon::files::kLargestWorkbook);
  const auto imported = vireon::files::importRows(unpacked.workbook);
  seconds = std::chrono::duration<double>(Clock::now() - start).count();
  return static_cast<int>(imported.rows.size()) == rows;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view mode = argc == 4 ? argv[1] : "";
  if (mode != "write" && mode != "read") {
    std::fputs("usage: vireon_bench_workbook_file write|read ROWS FILE\n", stderr);
    return 2;
  }
  double least = 0;
  const int rows = std::atoi(argv[2]);
  for (int run = 0; run < kRuns; ++run) {
    double seconds = 0;
    if (!(mode == "write" ? writeFile(rows, argv[3], seconds) : readFile(rows, argv[3], seconds))) {
      std::fputs("failed\n", stderr);
      return 1;
    }
    least = run == 0 ? seconds : std::min(least, seconds);
  }
  std::printf("%.6f\n", least);
  return 0;
}
