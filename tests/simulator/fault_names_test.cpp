#include "simulator/fault_names.h"

#include <gtest/gtest.h>

#include <ostream>

#include "simulator/usage_error.h"
#include "tests/simulator/bench.h"

namespace vireon::simulator::tests {
namespace {

Faults faultsOf(std::string_view list, Link link) {
  Faults faults;
  addFaults(faults, list, link);
  return faults;
}

std::string complaint(std::string_view list, Link link) {
  try {
    faultsOf(list, link);
  } catch (const UsageError& error) {
    return error.what();
  }
  return {};
}

struct Named {
  const char* list;
  Link link;
  bool (*holds)(const Faults&);

  friend std::ostream& operator<<(std::ostream& out, const Named& shown) { return out << shown.list; }
};

class FaultNames : public testing::TestWithParam<Named> {};

TEST_P(FaultNames, MeanTheirFault) {
  EXPECT_TRUE(GetParam().holds(faultsOf(GetParam().list, GetParam().link))) << GetParam().list;
  EXPECT_FALSE(GetParam().holds(Faults{})) << GetParam().list;
}

using F = const Faults&;
INSTANTIATE_TEST_SUITE_P(
    Table, FaultNames,
    testing::Values(Named{"once", Link::kSerial, [](F f) { return f.once; }},
                    Named{"on=DPC03", Link::kUsb, [](F f) { return f.onlyOn == "DPC03"; }},
                    Named{"on=VDA=;x", Link::kSerial, [](F f) { return f.onlyOn == "VDA=;x"; }},
                    Named{"skip=3", Link::kUsb, [](F f) { return f.skip == 3; }},
                    Named{"dump-empty", Link::kUsb, [](F f) { return f.emptyDump; }},
                    Named{"dump-endless", Link::kUsb, [](F f) { return f.endlessDump; }},
                    Named{"silence", Link::kSerial, [](F f) { return f.silence; }},
                    Named{"refuse", Link::kUsb, [](F f) { return f.refuse; }},
                    Named{"code", Link::kSerial, [](F f) { return f.controlCode == 7; }},
                    Named{"code=21", Link::kUsb, [](F f) { return f.controlCode == 21; }},
                    Named{"late=250", Link::kUsb, [](F f) { return f.lateBy == 250ms; }},
                    Named{"cut=0", Link::kSerial, [](F f) { return f.cutAfterBytes == 0U; }},
                    Named{"garbage", Link::kSerial,
                          [](F f) { return f.garbage && f.garbage->length == 64 && f.garbage->ends; }},
                    Named{"garbage=5", Link::kUsb, [](F f) { return f.garbage && f.garbage->length == 5; }},
                    Named{"garbage-open=9", Link::kUsb,
                          [](F f) { return f.garbage && f.garbage->length == 9 && !f.garbage->ends; }},
                    Named{"endless", Link::kSerial, [](F f) { return f.endless == 602U; }},
                    Named{"endless=700", Link::kUsb, [](F f) { return f.endless == 700U; }},
                    Named{"identity", Link::kSerial, [](F f) { return f.identity == "X1000"; }},
                    Named{"identity=A=B c", Link::kSerial, [](F f) { return f.identity == "A=B c"; }},
                    Named{"false-start", Link::kUsb, [](F f) { return f.falseStart; }},
                    Named{"split", Link::kSerial, [](F f) { return f.split == 20ms; }},
                    Named{"split=0", Link::kSerial, [](F f) { return f.split == 0ms; }},
                    Named{"twice", Link::kSerial, [](F f) { return f.twice; }},
                    Named{"hangup-byte=4", Link::kSerial, [](F f) { return f.hangUpAtByte == 4U; }},
                    Named{"hangup-command", Link::kSerial, [](F f) { return f.hangUpAtCommand == 1U; }},
                    Named{"hangup-command=3", Link::kSerial, [](F f) { return f.hangUpAtCommand == 3U; }},
                    Named{"cut-reports=0", Link::kUsb, [](F f) { return f.cutAfterReports == 0U; }},
                    Named{"drop=2", Link::kUsb, [](F f) { return f.dropReport == 2U; }},
                    Named{"double=2", Link::kUsb, [](F f) { return f.doubleReport == 2U; }},
                    Named{"swap=2", Link::kUsb, [](F f) { return f.swapReport == 2U; }},
                    Named{"short=2:10", Link::kUsb,
                          [](F f) {
                            return f.shortReport && f.shortReport->report == 2 && f.shortReport->length == 10;
                          }},
                    Named{"unplug=2", Link::kUsb, [](F f) { return f.unplugAtReport == 2U; }},
                    Named{"stall", Link::kUsb, [](F f) { return f.stall; }}));

TEST(FaultLists, AddUpUntilNone) {
  Faults faults = faultsOf("silence,late=5", Link::kSerial);
  addFaults(faults, "twice", Link::kSerial);
  EXPECT_TRUE(faults.silence && faults.twice);
  EXPECT_EQ(faults.lateBy, 5ms);
  addFaults(faults, "none,once", Link::kSerial);
  EXPECT_FALSE(faults.silence || faults.twice);
  EXPECT_TRUE(faults.once);
}

TEST(FaultLists, ComplainAboutANameThatDoesNotExist) {
  EXPECT_EQ(complaint("silence,sillence", Link::kSerial), "there is no fault \"sillence\"");
  for (const char* const list : {"", ",", "silence,", "Silence", " silence", "=3"}) {
    EXPECT_NE(complaint(list, Link::kSerial), "") << list;
  }
}

TEST(FaultLists, ComplainAboutAFaultOfTheOtherLink) {
  EXPECT_EQ(complaint("drop=1", Link::kSerial), "the fault \"drop\" is for a USB gadget");
  EXPECT_EQ(complaint("twice", Link::kUsb), "the fault \"twice\" is for a serial port");
}

TEST(FaultLists, ComplainAboutAWrongValueAndShowTheRightForm) {
  EXPECT_EQ(complaint("short=1", Link::kUsb), "the fault \"short=1\" is not written as short=N:LENGTH");
  for (const char* const list : {"silence=1",
                                 "silence=",
                                 "on",
                                 "on=",
                                 "skip",
                                 "skip=0",
                                 "dump-empty=1",
                                 "none=1",
                                 "late",
                                 "late=0",
                                 "late=x",
                                 "late=-5",
                                 "late=600001",
                                 "cut",
                                 "cut=",
                                 "cut=1x",
                                 "code=2",
                                 "code=3",
                                 "code=256",
                                 "code=",
                                 "garbage=0",
                                 "endless=0",
                                 "identity=TOOLONG",
                                 "identity=\x01",
                                 "split=-1",
                                 "hangup-byte=0",
                                 "hangup-byte",
                                 "hangup-command=0",
                                 "cut=99999999999999999999"}) {
    EXPECT_NE(complaint(list, Link::kSerial).find("is not written as"), std::string::npos) << list;
  }
  for (const char* const list :
       {"drop", "drop=0", "short=0:1", "short=1:64", "short=:", "short=1:", "unplug=0"}) {
    EXPECT_NE(complaint(list, Link::kUsb).find("is not written as"), std::string::npos) << list;
  }
}

TEST(FaultLists, AreExplainedNameByName) {
  const std::string help = faultHelp();
  for (const char* const name : {"silence", "hangup-command[=N]", "short=N:LENGTH", "stall"}) {
    EXPECT_NE(help.find(name), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace vireon::simulator::tests
