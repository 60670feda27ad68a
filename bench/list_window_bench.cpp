#include <benchmark/benchmark.h>

#include <QScrollBar>
#include <QTableView>

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

}  // namespace
