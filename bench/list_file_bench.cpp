#include <benchmark/benchmark.h>

#include <string>

#include "bench/bench_rig.h"

namespace {

// The program with a list of so many records and the text format chosen.
struct ListRig : vireon::bench::Rig {
  explicit ListRig(int records) {
    vireon::form::MainForm& form = program.form;
    program.form.tmrInt.setEnabled(false);
    form.grdLog.setRows(records + 2);
    for (int row = 1; row <= records; ++row) {
      const std::string number = std::to_string(100000 + row).substr(1);
      form.grdLog.setText(row, 0, number);
      form.grdLog.setText(row, 1, "01:02:" + number.substr(3));
      form.grdLog.setText(row, 2, "-1.234mV");
      form.grdLog.setText(row, 3, row % 10 == 0 ? "5 \xC2\xB5\x41" : "");
    }
    form.txtFn[1].setText("list");
  }
};

void exportOfTheList(benchmark::State& state) {
  ListRig rig(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    rig.program.fileCommands.cmdSave_Click(1);
  }
}
BENCHMARK(exportOfTheList)->Arg(10000)->Arg(60000)->Unit(benchmark::kMillisecond);

void importOfTheList(benchmark::State& state) {
  ListRig rig(static_cast<int>(state.range(0)));
  rig.program.fileCommands.cmdSave_Click(1);
  for (auto _ : state) {
    rig.program.fileCommands.openSaved("/list.txt");
  }
  if (rig.program.form.grdLog.text(static_cast<int>(state.range(0)), 0).empty()) {
    state.SkipWithError("the list was not loaded");
  }
}
BENCHMARK(importOfTheList)->Arg(10000)->Arg(60000)->Unit(benchmark::kMillisecond);

}  // namespace
