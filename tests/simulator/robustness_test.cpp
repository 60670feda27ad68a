#include <gtest/gtest.h>

#include "simulator/random.h"
#include "tests/simulator/cable.h"

namespace vireon::simulator::tests {
namespace {

void expectSound(const std::string& reply) {
  ASSERT_FALSE(reply.empty());
  ASSERT_LE(reply.size(), 599U);
  ASSERT_EQ(reply.find_first_of("\x02\x03"), std::string::npos);
}

std::size_t below(Random& random, std::size_t bound) {
  return static_cast<std::size_t>(random.next() % bound);
}

TEST(Robustness, RandomBytesAreAlwaysAnswered) {
  Random random(1);
  Bench bench;
  for (int i = 0; i < 20000; ++i) {
    std::string command(below(random, 300), '\0');
    for (char& byte : command) byte = static_cast<char>(random.next() & 0xFFU);
    expectSound(bench.ask(command));
  }
}

TEST(Robustness, RandomStringsOfRealCommandsAreAlwaysAnswered) {
  const std::vector<std::string> parts = {"SID", "SIM", "VDA", "VDB", "VPA", "VPB", "HDV", "HPO", "TLV",
                                          "TRG", "DHD", "STS", "DFN", "DRG", "DPS", "DPC", "DRC", "DRM",
                                          "DRP", "DRT", "DRS", "TRD", "MEM", "SMM", "SCK", "GTL", "AFN"};
  const std::vector<std::string> arguments = {
      "??", "up",      "dn",      "at", "mn",    "ac", "dc",
      "on", "of",      "nr",      "so", "sf",    "sa", "sb",
      "se", "l+",      "l-",      "00", "01",    "02", "03",
      "04", "7F",      "FF",      "10", "23",    "31", "40",
      "52", "0,1,0,9", "1,1V,1V", "5V", "5V,1V", "1V", "07-12-21 14:05:09",
      ""};
  Random random(2);
  for (const Model model : {Model::kK7310, Model::kK7210, Model::kK7201, Model::kK7900}) {
    Bench bench(model);
    for (int i = 0; i < 30000; ++i) {
      std::string command;
      for (std::size_t count = 1 + below(random, 3); count > 0; --count) {
        if (!command.empty()) command += ';';
        command += parts[below(random, parts.size())] + arguments[below(random, arguments.size())];
      }
      bench.clock.advance(std::chrono::milliseconds(below(random, 3000)));
      expectSound(bench.ask(command));
    }
  }
}

TEST(Robustness, RandomReportsNeverHurtTheNextExchange) {
  Random random(3);
  Cable cable;
  for (int i = 0; i < 20000; ++i) {
    for (auto& byte : cable.report) byte = static_cast<std::uint8_t>(random.next() % 6);
    if (below(random, 2) == 0) cable.report[0] = 2;
    EXPECT_TRUE(cable.endpoint.write(cable.report));
    cable.endpoint.read(cable.report, 0ms);
  }
  cable.endpoint.discardInput();
  EXPECT_EQ(cable.exchange("SIM??"), UsbHost::End::kAnswered);
  EXPECT_EQ(cable.host.text(), "sim:K7310 ");
}

TEST(Robustness, TheLogDoesNotGrowInALongRun) {
  Bench bench;
  for (int i = 0; i < 100000; ++i) bench.ask("STS??");
  EXPECT_LE(bench.instrument.log().size(), CommandLog::kStartCapacity);
  EXPECT_LE(bench.instrument.log().capacity(), 2 * CommandLog::kStartCapacity);
}

}  // namespace
}  // namespace vireon::simulator::tests
