#include <benchmark/benchmark.h>
#include <malloc.h>

#include <string>

#include "bench/bench_rig.h"
#include "bench/dumps.h"

namespace {

using vireon::bench::dumpOf;
using vireon::bench::kDumpRecords;

// The controls and the listing alone; nothing is shown.
struct ListingRig : vireon::bench::Rig {
  ListingRig() { program.recordListing.prepare(); }

  void list(const std::string& dump) {
    receive(dump);
    program.dispatcher.dspRcv();
  }

  void listRecords(int records) {
    for (int first = 0; first < records; first += kDumpRecords) {
      list(dumpOf(first));
    }
  }
};

// A whole memory in dumps of 24 records: 100,000 take at most 12 times as long as 10,000.
void listingOfAMemory(benchmark::State& state) {
  ListingRig rig;
  const int records = static_cast<int>(state.range(0));
  for (auto _ : state) {
    rig.program.recordListing.prepare();
    rig.listRecords(records);
  }
  state.SetComplexityN(records);
  state.counters["s_per_record"] =
      benchmark::Counter(static_cast<double>(records),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(listingOfAMemory)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

// One "lgd" reply of 24 records in a list of 100,000, at most 100 us.
void listingOfOneReply(benchmark::State& state) {
  ListingRig rig;
  rig.listRecords(100'000);
  const int row = rig.program.state.logRow;
  const std::string dump = dumpOf(7);
  for (auto _ : state) {
    rig.list(dump);
    if (rig.program.state.logRow > 2 * row) {
      state.PauseTiming();
      rig.program.form.grdLog.setRows(row + 3);
      rig.program.state.logRow = row;
      state.ResumeTiming();
    }
  }
}
BENCHMARK(listingOfOneReply)->Unit(benchmark::kMicrosecond);

// One live record behind 100,000 others, at most 10 us.
void appendingOfOneRecord(benchmark::State& state) {
  ListingRig rig;
  rig.program.form.panTrd.setVisible(false);
  rig.listRecords(100'000);
  const int row = rig.program.state.logRow;
  for (auto _ : state) {
    rig.receive("drt:0000012:34:56  4.80V\x95");
    rig.program.dispatcher.dspRcv();
    if (rig.program.state.logRow > 2 * row) {
      state.PauseTiming();
      rig.program.form.grdLog.setRows(row + 3);
      rig.program.state.logRow = row;
      state.ResumeTiming();
    }
  }
}
BENCHMARK(appendingOfOneRecord)->Unit(benchmark::kMicrosecond);

// Memory of the list, at most 300 bytes a record; of records with as many letters outside ASCII as there can
// be too.
void memoryOfARecord(benchmark::State& state) {
  constexpr int kRecords = 100'000;
  const char letter = state.range(0) == 0 ? '1' : '\x80';
  for (auto _ : state) {
    ListingRig rig;
    const std::size_t before = mallinfo2().uordblks;
    for (int first = 0; first < kRecords; first += kDumpRecords) {
      rig.list("lgd:" + std::string(24 * kDumpRecords, letter));
    }
    state.counters["bytes"] = static_cast<double>(mallinfo2().uordblks - before) / kRecords;
  }
}
BENCHMARK(memoryOfARecord)->Arg(0)->Arg(1)->Iterations(1);

}  // namespace
