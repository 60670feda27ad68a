#include <gtest/gtest.h>

#include "tests/app/start_bench.h"

namespace vireon::app {
namespace {

// A first run that ends before it has found anything.
class CancelledStart : public tests::StartBench {
 protected:
  void expectQuietEnd() {
    EXPECT_FALSE(program.Form_Load());
    EXPECT_EQ(messages.count(), 0U);
    EXPECT_EQ(files.replaces, 0U);
    expectNothingLeft();
  }
};

TEST_F(CancelledStart, ASearchThatTheUserEndsInAWaitEndsQuietly) {
  pump.happenings.push_back([this] { searchView.onCancel(); });
  expectQuietEnd();
  EXPECT_EQ(serialPort.attempts.size(), 1U);
  EXPECT_EQ(pump.timeOuts, 0U);
}

TEST_F(CancelledStart, ASearchThatTheUserEndsBetweenTwoPairsEndsQuietly) {
  searchView.whileTrying = [this] {
    if (searchView.tried.size() == 7) {
      searchView.onCancel();
    }
  };
  expectQuietEnd();
  EXPECT_EQ(serialPort.commands.size(), 6U);
}

TEST_F(CancelledStart, TheIdentityQueryOverASerialPortEndsQuietly) {
  plugSerial(1, 9600);
  pump.happenings = {[this] { serialPort.deliver(); }, [this] { searchView.onCancel(); }};
  expectQuietEnd();
}

TEST_F(CancelledStart, AClickDuringTheIdentityQueryOverUsbEndsItQuietly) {
  plugUsb();
  pump.atPump.push_back([this] { searchView.onCancel(); });
  expectQuietEnd();
  EXPECT_EQ(hid.commands.back(), "GTL");
}

TEST_F(CancelledStart, AnInstrumentFoundInTheMomentOfTheClickIsNotWrittenDown) {
  plugSerial(1, 9600);
  pump.happenings.push_back([this] {
    serialPort.deliver();
    searchView.onCancel();
  });
  expectQuietEnd();
}

TEST_F(CancelledStart, ARequestToCloseDuringTheSearchEndsItQuietly) {
  int closes = 0;
  program.closeLater = [&] { ++closes; };
  pump.happenings.push_back([this] { EXPECT_FALSE(program.requestClose()); });
  expectQuietEnd();
  EXPECT_EQ(serialPort.attempts.size(), 1U);
  EXPECT_EQ(closes, 1);
}

TEST_F(CancelledStart, ARequestToCloseDuringTheIdentityQueryEndsItQuietly) {
  plugSerial(1, 9600);
  pump.happenings = {[this] { serialPort.deliver(); }, [this] { EXPECT_FALSE(program.requestClose()); }};
  expectQuietEnd();
}

TEST_F(CancelledStart, ClosingBeforeTheStartIsDoneAsksAndWritesNothing) {
  writeSerialSettings();
  const std::string before = file();
  program.link.comPort = "2";
  messages.answers = {platform::MessageAnswer::kYes};
  EXPECT_TRUE(program.requestClose());
  program.Form_QueryUnload();
  EXPECT_EQ(messages.count(), 0U);
  EXPECT_EQ(file(), before);
}

TEST_F(CancelledStart, TheNextStartSearchesAgain) {
  pump.happenings.push_back([this] { searchView.onCancel(); });
  expectQuietEnd();
  plugSerial(2, 9600);
  EXPECT_TRUE(program.Form_Load());
  EXPECT_EQ(panel(2), "COM2:9600");
}

}  // namespace
}  // namespace vireon::app
