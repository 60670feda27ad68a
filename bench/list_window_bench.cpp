#include <benchmark/benchmark.h>

#include <QScrollBar>
#include <QTableView>
#include <memory>
#include <string>

#include "adapters/qt/printer.h"
#include "bench/dumps.h"
#include "bench/window_rig.h"

namespace {

constexpr int kRecords = 100'000;

// The window on its meter tab, the list shown.
struct ListWindow : vireon::bench::WindowRig {
  ListWindow() {
    form().tmrInt.setEnabled(false);
    form().SSTab1.setTab(1);
    receive("dfn:10");
    paint();
    table = session.window().findChild<QTableView*>(QStringLiteral("grdLog"));
  }

  // As a download does it: the window lives between two dumps.
  void listRecords() {
    program().recordListing.prepare();
    for (int first = 0; first < kRecords; first += vireon::bench::kDumpRecords) {
      receive(vireon::bench::dumpOf(first));
      QApplication::processEvents();
    }
    paint();
  }

  QTableView* table;
};

// 100,000 records into the list and its window, at most 0.5 s.
void listingOfAMemoryIntoTheWindow(benchmark::State& state) {
  ListWindow rig;
  for (auto _ : state) {
    rig.listRecords();
  }
  if (!rig.table->isVisible() || rig.table->model()->rowCount() < kRecords) {
    state.SkipWithError("the list is not shown");
  }
}
BENCHMARK(listingOfAMemoryIntoTheWindow)->Unit(benchmark::kMillisecond);

// One repaint of the filled list somewhere else, at most 16 ms.
void scrollingOfAFilledList(benchmark::State& state) {
  ListWindow rig;
  rig.listRecords();
  int row = 0;
  for (auto _ : state) {
    row = (row + 997) % kRecords;
    rig.table->verticalScrollBar()->setValue(row);
    rig.table->viewport()->repaint();
  }
}
BENCHMARK(scrollingOfAFilledList)->Unit(benchmark::kMicrosecond);

// One live record behind 100,000 others, shown at once.
void oneRecordIntoTheFilledWindow(benchmark::State& state) {
  ListWindow rig;
  rig.form().panTrd.setVisible(false);
  rig.listRecords();
  for (auto _ : state) {
    rig.receive("drt:0000012:34:56  4.80V\x95");
    rig.paint();
  }
}
BENCHMARK(oneRecordIntoTheFilledWindow)->Unit(benchmark::kMicrosecond);

// A printer that lays documents out as the system's does, and takes them.
class PaperlessPrinter : public vireon::platform::Printer {
 public:
  explicit PaperlessPrinter(vireon::adapters::ModalGate& gate) : printer_(gate) {}

  std::unique_ptr<vireon::platform::PrintDocument> begin() override { return printer_.begin(); }
  vireon::platform::PrintResult print(const std::string& /*title*/, std::string_view document) override {
    size = document.size();
    return vireon::platform::PrintResult::kDone;
  }

  std::size_t size = 0;  // bytes of the last document

 private:
  vireon::adapters::QtPrinter printer_;
};

// A list of 60,000 rows laid out as a PDF, its progress shown.
void printOutOfALongList(benchmark::State& state) {
  vireon::bench::Bench bench;
  vireon::bench::NoSerialPort serialPort;
  vireon::app::MemoryFileStore files;
  vireon::adapters::ModalGate gate;
  PaperlessPrinter printer(gate);
  vireon::app::Session session({bench.hid, serialPort, files, &printer}, "", gate);
  session.show();
  vireon::form::Grid& list = session.program().form.grdLog;
  const int rows = static_cast<int>(state.range(0));
  list.setRows(rows + 2);
  for (int row = 1; row <= rows; ++row) {
    list.setText(row, 0, std::to_string(row));
    list.setText(row, 1, "12:34:56");
    list.setText(row, 2, "  4.80V");
  }
  for (auto _ : state) {
    session.program().form.cmdLprt.click();
  }
  if (printer.size == 0) {
    state.SkipWithError("nothing was printed");
  }
}
BENCHMARK(printOutOfALongList)->Arg(1000)->Arg(60000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
