#include <gtest/gtest.h>

#include <ostream>

#include "tests/simulator/logger_bench.h"

namespace vireon::simulator::tests {
namespace {

// What a list makes of a record's two last characters of reading, written in hexadecimal.
std::string remarkOf(const std::string& mainCode, const std::string& subCode) {
  if (mainCode == "20") {
    if (subCode == "25") return "Dty";
    if (subCode == "53") return "P/W";
    if (subCode == "6B") return "OHM or BZ";
    return subCode == "9C" ? "RPM" : "none";
  }
  if (mainCode == "53") return "P/W";
  if (mainCode == "56") return "DCV or ACV";
  if (mainCode == "7A") return "FRQ (Hz)";
  if (mainCode == "8C") return "OHM or BZ";
  if (mainCode == "95") return "DCV";
  return mainCode == "96" ? "ACV" : "Check!!";
}

// Hexadecimal without padding, as a list builds it from a dump.
std::string hexOf(const std::string& text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string hex;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 16) hex += kDigits[byte / 16];
    hex += kDigits[byte % 16];
  }
  return hex;
}

std::vector<std::string> remarksOf(const std::string& dump) {
  const std::string hex = hexOf(dump.substr(4));
  std::vector<std::string> remarks;
  for (std::size_t record = 0; 48 * (record + 1) <= hex.size(); ++record) {
    remarks.push_back(remarkOf(hex.substr(48 * record + 44, 2), hex.substr(48 * record + 42, 2)));
  }
  return remarks;
}

struct Listed {
  const char* function;
  double volts;
  double frequency;
  double ohms;
  const char* remark;

  friend std::ostream& operator<<(std::ostream& out, const Listed& shown) {
    return out << "function " << shown.function << ", " << shown.remark;
  }
};

class DumpCode : public testing::TestWithParam<Listed> {};

TEST_P(DumpCode, NamesTheFunctionOfEveryRecord) {
  Bench bench;
  MeterInput& input = bench.instrument.meterInput();
  input.signal.amplitude = input.signal.offset = GetParam().volts;
  input.signal.frequency = GetParam().frequency;
  input.resistance = GetParam().ohms;
  bench.ask(std::string("DFN1") + GetParam().function + ";DPC04");
  run(bench, 3s);
  bench.ask("DPC02");
  const std::string remark = GetParam().remark;
  EXPECT_EQ(remarksOf(bench.ask("DPC03")), (std::vector<std::string>{remark, remark, remark}));
}

INSTANTIATE_TEST_SUITE_P(
    EveryFunction, DumpCode,
    testing::Values(Listed{"0", 6.0, 50.0, 1500.0, "DCV"}, Listed{"0", 0.1, 50.0, 1500.0, "DCV or ACV"},
                    Listed{"0", 5000.0, 50.0, 1500.0, "DCV"}, Listed{"1", 6.0, 50.0, 1500.0, "ACV"},
                    Listed{"1", 0.1, 50.0, 1500.0, "DCV or ACV"}, Listed{"2", 6.0, 50.0, 1500.0, "OHM or BZ"},
                    Listed{"2", 6.0, 50.0, 1.5e6, "OHM or BZ"}, Listed{"2", 6.0, 50.0, 1e9, "OHM or BZ"},
                    Listed{"3", 6.0, 50.0, 1500.0, "OHM or BZ"}, Listed{"4", 6.0, 50.0, 1500.0, "FRQ (Hz)"},
                    Listed{"4", 6.0, 50e3, 1500.0, "FRQ (Hz)"}, Listed{"4", 6.0, 1.5e6, 1500.0, "FRQ (Hz)"},
                    Listed{"5", 6.0, 50.0, 1500.0, "RPM"}, Listed{"5", 6.0, 1e3, 1500.0, "RPM"},
                    Listed{"6", 6.0, 50.0, 1500.0, "P/W"}, Listed{"6", 6.0, 50e3, 1500.0, "P/W"},
                    Listed{"6", 6.0, 0.5, 1500.0, "P/W"}, Listed{"7", 6.0, 50.0, 1500.0, "Dty"}));

TEST(Dump, EveryByteHasTwoHexadecimalDigits) {
  for (const char function : kFunctionDigits) {
    Bench bench;
    bench.ask(std::string("DFN1") + function + ";DPC04");
    run(bench, 30s);
    bench.ask("DPC02");
    for (int i = 0; i < 3; ++i) {
      const std::string records = bench.ask("DPC03").substr(4);
      EXPECT_EQ(hexOf(records).size(), 2 * records.size()) << function;
    }
  }
}

TEST(Dump, AFrameHasAllRecordsThatFitIn600Bytes) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 60s);
  bench.ask("DPC02");
  const std::size_t length = bench.ask("DPC03").size();
  EXPECT_LE(length, 600U);
  EXPECT_GT(length + 24, 600U);
}

TEST(Dump, ARecordHasItsNumberTimeAndReadingInTheirPlaces) {
  Bench bench;
  bench.ask("SCK07-12-21 23:59:58;DFN10;DPS0,1,4711,4712;DPC04");
  run(bench, 2s);
  const std::string record = download(bench).at(1);
  EXPECT_EQ(record.substr(0, 5), "04712");
  EXPECT_EQ(record.substr(6, 8), "00:00:00");
  EXPECT_EQ(record.substr(15, 8), "  4.80V\x95");
}

TEST(Dump, TheEndRecordHasItsMarkInTheTimeField) {
  EXPECT_EQ(Bench().ask("DPC03").substr(4).substr(6, 8), "--EOD---");
  EXPECT_EQ(Bench().ask("DPC03").size(), 4U + 24);
}

TEST(Dump, AfterTheEndTheEndRecordComesAgain) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 2s);
  bench.ask("DPC02");
  EXPECT_EQ(bench.ask("DPC03").size(), 4U + 2 * 24);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(bench.ask("DPC03"), kEndRecord);
}

TEST(Dump, ARewindInItsMiddleBeginsItAnew) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 30s);
  bench.ask("DPC02");
  const std::string first = bench.ask("DPC03");
  bench.ask("DPC02");
  EXPECT_EQ(bench.ask("DPC03"), first);
}

TEST(Dump, AStartBeginsItAnew) {
  Bench bench;
  bench.ask("DFN10;DPC04");
  run(bench, 3s);
  bench.ask("DPC03");
  bench.ask("DPC04;DPC04");
  run(bench, 1s);
  EXPECT_EQ(bench.ask("DPC03").size(), 4U + 24);
}

}  // namespace
}  // namespace vireon::simulator::tests
