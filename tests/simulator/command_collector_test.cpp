#include "simulator/command_collector.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vireon::simulator::tests {
namespace {

std::vector<std::string> collected(const std::string& bytes) {
  CommandCollector collector;
  std::vector<std::string> commands;
  for (const char byte : bytes) {
    if (auto command = collector.take(static_cast<std::uint8_t>(byte))) commands.push_back(*command);
  }
  return commands;
}

using Texts = std::vector<std::string>;

TEST(CommandCollector, TakesWhatStandsBetweenTheMarks) {
  EXPECT_EQ(collected("xx\x02VDA??\x03yy\x03\x02GTL\x03"), (Texts{"VDA??", "GTL"}));
}

TEST(CommandCollector, AStartMarkBeginsAnew) {
  EXPECT_EQ(collected("\x02VDA\x02GTL\x03"), Texts{"GTL"});
}

TEST(CommandCollector, AnEndMarkWithoutStartIsIgnored) {
  EXPECT_EQ(collected("VDA\x03"), Texts{});
}

TEST(CommandCollector, SkipsThePrefixOnlyRightAfterTheStartMark) {
  EXPECT_EQ(collected("\x02\xFE\xFDGTL\x03"), Texts{"GTL"});
  EXPECT_EQ(collected("\x02G\xFE\xFDTL\x03"), Texts{"G\xFE\xFDTL"});
}

TEST(CommandCollector, KeepsNoMoreThan601BytesOfACommand) {
  EXPECT_EQ(collected("\x02" + std::string(10000, 'V') + "\x03").at(0).size(), 601U);
}

}  // namespace
}  // namespace vireon::simulator::tests
