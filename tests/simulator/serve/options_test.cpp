#include "simulator/serve/options.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "simulator/usage_error.h"

namespace vireon::simulator::tests {
namespace {

using Words = std::vector<std::string_view>;

std::string complaint(const Words& words) {
  try {
    parseOptions(words);
  } catch (const UsageError& error) {
    return error.what();
  }
  return {};
}

TEST(Options, AFolderAloneIsAK7310AtComOneAnd9600) {
  const Options options = parseOptions(Words{"--folder", "ports"});
  EXPECT_EQ(options.link(), Link::kSerial);
  EXPECT_EQ(options.folder, "ports");
  EXPECT_EQ(options.com, 1);
  EXPECT_EQ(options.baud, 9600);
  EXPECT_EQ(options.model, Model::kK7310);
  EXPECT_FALSE(options.control || options.help || options.faults.once);
}

TEST(Options, EveryWordIsTaken) {
  const Options options = parseOptions(Words{"--folder=ports", "--com=4", "--baud", "1200", "--model",
                                             "K7201", "--control", "--fault", "once,cut=3", "--fault=twice"});
  EXPECT_EQ(options.folder, "ports");
  EXPECT_EQ(options.com, 4);
  EXPECT_EQ(options.baud, 1200);
  EXPECT_EQ(options.model, Model::kK7201);
  EXPECT_TRUE(options.control);
  EXPECT_TRUE(options.faults.once && options.faults.twice);
  EXPECT_EQ(options.faults.cutAfterBytes, 3U);
}

TEST(Options, FaultsAreReadForTheLinkWhereverItIsNamed) {
  const Options options =
      parseOptions(Words{"--fault", "unplug=2", "--gadget", "/dev/hidg0", "--udc-file", "UDC"});
  EXPECT_EQ(options.link(), Link::kUsb);
  EXPECT_EQ(options.gadget, "/dev/hidg0");
  EXPECT_EQ(options.udcFile, "UDC");
  EXPECT_EQ(options.faults.unplugAtReport, 2U);
}

TEST(Options, HelpNeedsNothingElse) {
  EXPECT_TRUE(parseOptions(Words{"--help"}).help);
}

struct Wrong {
  Words words;
  const char* complaint;

  friend std::ostream& operator<<(std::ostream& out, const Wrong& shown) {
    for (const std::string_view word : shown.words) out << word << ' ';
    return out;
  }
};

class WrongOptions : public testing::TestWithParam<Wrong> {};

TEST_P(WrongOptions, AreNamed) {
  EXPECT_EQ(complaint(GetParam().words), GetParam().complaint);
}

INSTANTIATE_TEST_SUITE_P(
    Table, WrongOptions,
    testing::Values(
        Wrong{{}, "give either --folder or --gadget"},
        Wrong{{"--folder", "a", "--gadget", "b"}, "give either --folder or --gadget"},
        Wrong{{"--folder"}, "--folder needs a value"}, Wrong{{"--folder="}, "--folder needs a value"},
        Wrong{{"ports"}, "there is no option ports"},
        Wrong{{"--control=1"}, "there is no option --control=1"},
        Wrong{{"--folder", "a", "--com", "5"}, "--com 5 is none of 1 2 3 4"},
        Wrong{{"--folder", "a", "--com", "1x"}, "--com 1x is none of 1 2 3 4"},
        Wrong{{"--folder", "a", "--baud", "19200"}, "--baud 19200 is none of 1200 2400 4800 9600"},
        Wrong{{"--folder", "a", "--model", "K1"}, "--model K1 is none of K7310 K7210 K7201 K7900"},
        Wrong{{"--folder", "a", "--udc-file", "b"}, "--udc-file is for a USB gadget"},
        Wrong{{"--gadget", "a", "--com", "1"}, "--com and --baud are for a serial port"},
        Wrong{{"--folder", "a", "--fault", "drop=1"}, "the fault \"drop\" is for a USB gadget"},
        Wrong{{"--gadget", "a", "--fault", "unplug=1"}, "the fault \"unplug\" needs --udc-file"},
        Wrong{{"--folder", "a", "--fault", "x"}, "there is no fault \"x\""}));

TEST(Options, TheHelpNamesEveryOption) {
  const std::string help = optionHelp();
  for (const char* const option : {"--folder", "--com", "--baud", "--gadget", "--udc-file", "--model",
                                   "--fault", "--control", "--help"}) {
    EXPECT_NE(help.find(option), std::string::npos) << option;
  }
}

}  // namespace
}  // namespace vireon::simulator::tests
