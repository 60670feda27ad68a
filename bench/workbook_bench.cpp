#include <benchmark/benchmark.h>

#include "adapters/spreadsheet/gsf_compound_files.h"
#include "bench/logger_sheet.h"
#include "files/import_rows.h"
#include "files/workbook_writer.h"

// Workbooks of so many rows of four columns, from the grid's texts to the file's bytes and back.
namespace {

void writingAWorkbook(benchmark::State& state) {
  const vireon::bench::LoggerSheet sheet(static_cast<int>(state.range(0)));
  vireon::adapters::GsfCompoundFiles compound;
  for (auto _ : state) {
    const auto file = compound.pack(vireon::files::writeWorkbookStream(sheet.view()).stream);
    benchmark::DoNotOptimize(file.file.data());
  }
}
void writingItsStream(benchmark::State& state) {
  const vireon::bench::LoggerSheet sheet(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto written = vireon::files::writeWorkbookStream(sheet.view());
    benchmark::DoNotOptimize(written.stream.data());
  }
}
BENCHMARK(writingItsStream)->Arg(10000)->Arg(60000)->Unit(benchmark::kMillisecond);

BENCHMARK(writingAWorkbook)->Arg(10000)->Arg(60000)->Unit(benchmark::kMillisecond);

void readingAWorkbook(benchmark::State& state) {
  const vireon::bench::LoggerSheet sheet(static_cast<int>(state.range(0)));
  vireon::adapters::GsfCompoundFiles compound;
  const auto file = compound.pack(vireon::files::writeWorkbookStream(sheet.view()).stream).file;
  for (auto _ : state) {
    const auto unpacked = compound.unpack(file, vireon::files::kLargestWorkbook);
    const auto imported = vireon::files::importRows(unpacked.workbook);
    if (static_cast<int>(imported.rows.size()) != sheet.rows()) {
      state.SkipWithError("rows are missing");
      break;
    }
  }
}
BENCHMARK(readingAWorkbook)->Arg(10000)->Arg(60000)->Unit(benchmark::kMillisecond);

}  // namespace
