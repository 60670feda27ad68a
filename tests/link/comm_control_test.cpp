#include "link/comm_control.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_serial_port.h"
#include "tests/form/expect_fault.h"

namespace vireon::link {
namespace {

using form::FaultKind;
using platform::SerialOpenError;
using tests::expectFault;
using Bytes = std::vector<std::uint8_t>;

class CommControlTest : public testing::Test {
 protected:
  template <class Statement>
  void expectRefused(Statement statement) {
    expectFault(FaultKind::kPropertyValue, statement);
  }

  void open() {
    Mcom.PortOpen(true);
    ASSERT_TRUE(Mcom.PortOpen());
  }

  tests::FakeSerialPort port;
  CommControl Mcom{port};
};

TEST_F(CommControlTest, ItStartsClosedOnPortOneAt9600) {
  EXPECT_FALSE(Mcom.PortOpen());
  EXPECT_EQ(Mcom.CommPort(), 1);
  EXPECT_EQ(Mcom.Settings(), "9600,N,8,1");
  EXPECT_EQ(Mcom.InputLen(), 0);
  EXPECT_EQ(Mcom.InputMode(), 1);
  EXPECT_EQ(Mcom.CommEvent(), 0);
  EXPECT_EQ(Mcom.openResult().error, SerialOpenError::kNone);
}

TEST_F(CommControlTest, PortsCountFromOneToSixteen) {
  for (const int number : {1, 4, 16}) {
    Mcom.CommPort(number);
    EXPECT_EQ(Mcom.CommPort(), number);
  }
  for (const int number : {0, -1, 17, 32767}) {
    expectRefused([&] { Mcom.CommPort(number); });
    EXPECT_EQ(Mcom.CommPort(), 16) << number;
  }
}

TEST_F(CommControlTest, TheNumberOfAnOpenPortStays) {
  open();
  expectRefused([&] { Mcom.CommPort(2); });
  EXPECT_EQ(Mcom.CommPort(), 1);
  Mcom.PortOpen(false);
  Mcom.CommPort(2);
  EXPECT_EQ(Mcom.CommPort(), 2);
}

TEST_F(CommControlTest, SettingsReachThePort) {
  struct Row {
    const char* text = "";
    platform::SerialSettings settings;
  };
  const Row rows[] = {{"9600,N,8,1", {9600, 'N', 8, 1}},
                      {"1200,N,8,1", {1200, 'N', 8, 1}},
                      {"4800,E,7,2", {4800, 'E', 7, 2}},
                      {"1,O,5,1", {1, 'O', 5, 1}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    Mcom.Settings(row.text);
    EXPECT_EQ(Mcom.Settings(), row.text);
    open();
    const platform::SerialSettings& got = port.opened.back().second;
    EXPECT_EQ(got.baudRate, row.settings.baudRate);
    EXPECT_EQ(got.parity, row.settings.parity);
    EXPECT_EQ(got.dataBits, row.settings.dataBits);
    EXPECT_EQ(got.stopBits, row.settings.stopBits);
  }
}

TEST_F(CommControlTest, SettingsOfAnyOtherFormAreRefusedAndTheOldOnesStay) {
  for (const char* text :
       {"",           ",N,8,1",     "9600",         "9600,N,8",    "9600,N,8,1,",       "9600,N,8,1,1",
        "fast,N,8,1", "0,N,8,1",    "-9600,N,8,1",  "9600x,N,8,1", "99999999999,N,8,1", "9600,n,8,1",
        "9600,X,8,1", "9600,,8,1",  "9600,NN,8,1",  "9600,N,4,1",  "9600,N,9,1",        "9600,N,,1",
        "9600,N,8,0", "9600,N,8,3", "9600,N,8,1.5", "9600, N,8,1", "9600;N;8;1"}) {
    SCOPED_TRACE(text);
    expectRefused([&] { Mcom.Settings(text); });
    EXPECT_EQ(Mcom.Settings(), "9600,N,8,1");
  }
  open();
  EXPECT_EQ(port.opened.back().second.baudRate, 9600);
}

TEST_F(CommControlTest, OpeningUsesThePortOfThatNumber) {
  Mcom.CommPort(3);
  open();
  EXPECT_EQ(port.attempts, std::vector<std::string>{"COM3:9600"});
  EXPECT_EQ(Mcom.openResult().error, SerialOpenError::kNone);
  EXPECT_EQ(Mcom.openResult().device, "/dev/ttyUSB3");
}

TEST_F(CommControlTest, APortThatDoesNotOpenFaultsAndTellsWhy) {
  for (const SerialOpenError error : {SerialOpenError::kNotFound, SerialOpenError::kNoPermission,
                                      SerialOpenError::kInUse, SerialOpenError::kFailed}) {
    port.refusals[1] = {error, "/dev/ttyS0", "dialout", true};
    expectRefused([&] { Mcom.PortOpen(true); });
    EXPECT_FALSE(Mcom.PortOpen());
    EXPECT_EQ(Mcom.openResult().error, error);
    EXPECT_EQ(Mcom.openResult().device, "/dev/ttyS0");
    EXPECT_EQ(Mcom.openResult().group, "dialout");
    EXPECT_TRUE(Mcom.openResult().memberAfterNextLogin);
  }
}

TEST_F(CommControlTest, ALaterSuccessReplacesTheReason) {
  port.refusals[1] = {SerialOpenError::kInUse, "/dev/ttyS0", {}, false};
  expectRefused([&] { Mcom.PortOpen(true); });
  port.refusals.clear();
  open();
  EXPECT_EQ(Mcom.openResult().error, SerialOpenError::kNone);
}

TEST_F(CommControlTest, ClosingAClosedPortIsNoFault) {
  Mcom.PortOpen(false);
  EXPECT_FALSE(Mcom.PortOpen());
  EXPECT_EQ(port.closes, 0U);
}

TEST_F(CommControlTest, InputLenIsAtLeastZero) {
  Mcom.InputLen(5);
  expectRefused([&] { Mcom.InputLen(-1); });
  EXPECT_EQ(Mcom.InputLen(), 5);
}

TEST_F(CommControlTest, InputModeIsBinaryAlone) {
  Mcom.InputMode(1);
  for (const int mode : {0, 2, -1}) {
    expectRefused([&] { Mcom.InputMode(mode); });
  }
  EXPECT_EQ(Mcom.InputMode(), 1);
}

TEST_F(CommControlTest, WithInputLenZeroInputTakesAll) {
  open();
  port.receive("abcde");
  EXPECT_EQ(Mcom.InBufferCount(), 5U);
  EXPECT_EQ(Mcom.Input(), (Bytes{'a', 'b', 'c', 'd', 'e'}));
  EXPECT_EQ(Mcom.InBufferCount(), 0U);
  EXPECT_TRUE(Mcom.Input().empty());
}

TEST_F(CommControlTest, WithAnotherInputLenItTakesSoMany) {
  open();
  port.receive("abcde");
  Mcom.InputLen(3);
  EXPECT_EQ(Mcom.Input(), (Bytes{'a', 'b', 'c'}));
  EXPECT_EQ(Mcom.InBufferCount(), 2U);
  EXPECT_EQ(Mcom.Input(), (Bytes{'d', 'e'}));
}

TEST_F(CommControlTest, OutputSendsTheBytesInOneWrite) {
  open();
  EXPECT_TRUE(Mcom.Output(Bytes{2, 'G', 'T', 'L', 3}));
  EXPECT_EQ(port.written, std::vector<std::string>{tests::onLine("GTL")});
}

TEST_F(CommControlTest, AClosedPortHoldsNothingAndSendsNothing) {
  EXPECT_FALSE(Mcom.Output(Bytes{2, 'x', 3}));
  port.receive("abc");
  EXPECT_EQ(Mcom.InBufferCount(), 0U);
  EXPECT_TRUE(Mcom.Input().empty());
  EXPECT_TRUE(port.written.empty());
}

TEST_F(CommControlTest, AWriteThatIsRefusedIsTold) {
  open();
  port.refusesWrites = true;
  EXPECT_FALSE(Mcom.Output(Bytes{2, 'x', 3}));
}

TEST_F(CommControlTest, AnArrivalIsEventTwo) {
  int events = 0;
  Mcom.OnComm = [&] {
    ++events;
    EXPECT_EQ(Mcom.CommEvent(), 2);
  };
  open();
  port.receive("a");
  port.receive("b");
  EXPECT_EQ(events, 2);
}

TEST_F(CommControlTest, ADeviceThatGoesIsTold) {
  int losses = 0;
  Mcom.onLost = [&] { ++losses; };
  open();
  port.pullOut();
  EXPECT_EQ(losses, 1);
  EXPECT_FALSE(Mcom.PortOpen());
}

TEST_F(CommControlTest, NobodyNeedsToListen) {
  open();
  port.receive("a");
  port.pullOut();
  EXPECT_FALSE(Mcom.PortOpen());
}

TEST_F(CommControlTest, ItsEndClosesThePortAndListensNoMore) {
  {
    CommControl other(port);
    other.PortOpen(true);
  }
  EXPECT_FALSE(port.isOpen());
  EXPECT_FALSE(port.onArrival);
  EXPECT_FALSE(port.onLost);
}

}  // namespace
}  // namespace vireon::link
