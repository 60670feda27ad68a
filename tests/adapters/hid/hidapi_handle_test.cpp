#include "adapters/hid/hidapi_handle.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <memory>
#include <numeric>
#include <optional>
#include <span>
#include <vector>

#include "adapters/hid/hidapi_port.h"
#include "tests/adapters/hid/fake_hidapi.h"
#include "tests/adapters/hid/sample_descriptors.h"

namespace vireon::tests {
namespace {

using platform::HidTransfer;
using std::chrono::milliseconds;
using Bytes = std::vector<std::uint8_t>;

Bytes counting(std::size_t size, std::uint8_t first) {
  Bytes bytes(size);
  std::iota(bytes.begin(), bytes.end(), first);
  return bytes;
}

class HidapiHandleTest : public testing::Test {
 protected:
  explicit HidapiHandleTest(std::span<const std::uint8_t> descriptor = kVendor64) {
    library_.reportDescriptor.assign(descriptor.begin(), descriptor.end());
    handle_ = port_.open({.path = "/dev/hidraw0"}).handle;
  }

  HidTransfer read(milliseconds timeout) { return handle_->read(report_, timeout); }

  FakeHidapi library_;
  adapters::HidapiPort port_{library_.probe(), library_.clock()};
  std::unique_ptr<platform::HidHandle> handle_;
  Bytes report_ = Bytes(65, 0xEE);
};

TEST_F(HidapiHandleTest, TakesItsLengthsFromTheReportDescriptor) {
  library_.reportDescriptor.assign(kKeyboard.begin(), kKeyboard.end());
  const auto keyboard = port_.open({.path = "/dev/hidraw1"}).handle;

  EXPECT_EQ(keyboard->capabilities().inputReportLength, 9U);
  EXPECT_EQ(keyboard->capabilities().outputReportLength, 2U);
}

TEST_F(HidapiHandleTest, TakesReportsOf65BytesWhereThereIsNoDescriptor) {
  library_.reportDescriptor.clear();
  const auto unknown = port_.open({.path = "/dev/hidraw1"}).handle;

  EXPECT_EQ(unknown->capabilities().inputReportLength, 65U);
  EXPECT_EQ(unknown->capabilities().outputReportLength, 65U);
}

TEST_F(HidapiHandleTest, PresentsThePayloadFromElementOne) {
  const Bytes payload = counting(64, 1);
  library_.arrives(payload);

  ASSERT_EQ(read(milliseconds(6000)), HidTransfer::kDone);

  EXPECT_EQ(report_[0], 0);
  EXPECT_EQ(Bytes(report_.begin() + 1, report_.end()), payload);
}

TEST_F(HidapiHandleTest, ReadsReportsInTheirOrder) {
  library_.arrives(counting(64, 1));
  library_.arrives(counting(64, 100));

  ASSERT_EQ(read(milliseconds(0)), HidTransfer::kDone);
  EXPECT_EQ(report_[1], 1);
  ASSERT_EQ(read(milliseconds(0)), HidTransfer::kDone);
  EXPECT_EQ(report_[1], 100);
}

TEST_F(HidapiHandleTest, SilenceTimesOutAfterExactlyTheTimeAsked) {
  for (const int timeout : {0, 1, 6000}) {
    const milliseconds start = library_.now;

    EXPECT_EQ(read(milliseconds(timeout)), HidTransfer::kTimedOut);

    EXPECT_EQ(library_.now - start, milliseconds(timeout));
  }
}

TEST_F(HidapiHandleTest, ReadsOnAfterATimeOut) {
  library_.arrives(counting(64, 7), milliseconds(150));
  ASSERT_EQ(read(milliseconds(100)), HidTransfer::kTimedOut);

  EXPECT_EQ(read(milliseconds(100)), HidTransfer::kDone);
  EXPECT_EQ(report_[1], 7);
}

TEST_F(HidapiHandleTest, AReportAtTheLastMomentIsTaken) {
  library_.arrives(counting(64, 7), milliseconds(6000));

  EXPECT_EQ(read(milliseconds(6000)), HidTransfer::kDone);
}

TEST_F(HidapiHandleTest, SignalsDoNotEndTheWait) {
  for (const int at : {10, 20, 20, 5990}) library_.happens(FakeEvent::Kind::kSignal, milliseconds(at));
  library_.arrives(counting(64, 7), milliseconds(5995));

  EXPECT_EQ(read(milliseconds(6000)), HidTransfer::kDone);
  EXPECT_EQ(library_.now, milliseconds(5995));
}

TEST_F(HidapiHandleTest, SignalsDoNotStretchTheWait) {
  for (const int at : {10, 3000, 5999}) library_.happens(FakeEvent::Kind::kSignal, milliseconds(at));

  EXPECT_EQ(read(milliseconds(6000)), HidTransfer::kTimedOut);
  EXPECT_EQ(library_.now, milliseconds(6000));
}

TEST_F(HidapiHandleTest, AWaitThatWakesEarlyGoesOn) {
  library_.happens(FakeEvent::Kind::kEarlyWake, milliseconds(10));

  EXPECT_EQ(read(milliseconds(6000)), HidTransfer::kTimedOut);
  EXPECT_EQ(library_.now, milliseconds(6000));
}

TEST_F(HidapiHandleTest, ANegativeTimeOutDoesNotWaitForEver) {
  EXPECT_EQ(read(milliseconds(-1)), HidTransfer::kTimedOut);
  EXPECT_FALSE(library_.waitedForEver);
  EXPECT_EQ(library_.now, milliseconds(0));
}

TEST_F(HidapiHandleTest, TheLongestTimeOutDoesNotWaitForEver) {
  EXPECT_EQ(read(milliseconds::max()), HidTransfer::kTimedOut);
  EXPECT_FALSE(library_.waitedForEver);
}

TEST_F(HidapiHandleTest, AnUnplugFailsAtOnce) {
  library_.unpluggedAt = milliseconds(40);

  EXPECT_EQ(read(milliseconds(6000)), HidTransfer::kFailed);
  EXPECT_EQ(library_.now, milliseconds(40));
}

TEST_F(HidapiHandleTest, AnUnplugIsNotMistakenForAnEarlierSignal) {
  library_.unpluggedAt = milliseconds(0);
  errno = EINTR;

  EXPECT_EQ(read(milliseconds(6000)), HidTransfer::kFailed);
  EXPECT_EQ(library_.readCalls, 1);
}

TEST_F(HidapiHandleTest, AnUnplugAfterASignalFails) {
  library_.happens(FakeEvent::Kind::kSignal, milliseconds(10));
  library_.unpluggedAt = milliseconds(20);

  EXPECT_EQ(read(milliseconds(6000)), HidTransfer::kFailed);
  EXPECT_EQ(library_.now, milliseconds(20));
}

TEST_F(HidapiHandleTest, AnErrorOfTheReadFails) {
  library_.happens(FakeEvent::Kind::kError, milliseconds(10));

  EXPECT_EQ(read(milliseconds(6000)), HidTransfer::kFailed);
}

TEST_F(HidapiHandleTest, AReportOfAnotherLengthIsDropped) {
  for (const std::size_t size : {1U, 63U, 65U, 66U, 1000U}) {
    library_.arrives(counting(size, 1));
    library_.arrives(counting(64, 9));

    EXPECT_EQ(read(milliseconds(100)), HidTransfer::kWrongLength) << size;

    EXPECT_EQ(read(milliseconds(100)), HidTransfer::kDone) << size;
    EXPECT_EQ(report_[1], 9) << size;
  }
}

TEST_F(HidapiHandleTest, ReadsNothingIntoASpanOfAnotherSize) {
  library_.arrives(counting(64, 1));
  Bytes small(64);
  Bytes large(66);

  EXPECT_EQ(handle_->read(small, milliseconds(0)), HidTransfer::kWrongLength);
  EXPECT_EQ(handle_->read(large, milliseconds(0)), HidTransfer::kWrongLength);
  EXPECT_EQ(library_.readCalls, 0);
}

TEST_F(HidapiHandleTest, WritesTheIdentifierAndThePayload) {
  Bytes report = counting(65, 0);

  EXPECT_EQ(handle_->write(report), HidTransfer::kDone);

  EXPECT_EQ(library_.written, std::vector<Bytes>{report});
}

TEST_F(HidapiHandleTest, WritesNothingOfASpanOfAnotherSize) {
  EXPECT_EQ(handle_->write(Bytes(64)), HidTransfer::kWrongLength);
  EXPECT_EQ(handle_->write(Bytes(66)), HidTransfer::kWrongLength);
  EXPECT_EQ(library_.writeCalls, 0);
}

TEST_F(HidapiHandleTest, AReportTakenInPartIsAFailure) {
  for (const int count : {0, 1, 64, 66}) {
    library_.writeAnswers = {{.result = count}};

    EXPECT_EQ(handle_->write(Bytes(65)), HidTransfer::kFailed) << count;
  }
  EXPECT_EQ(library_.writeCalls, 4);
}

TEST_F(HidapiHandleTest, AWriteThatASignalStoppedIsMadeAgain) {
  library_.writeAnswers = {{.result = -1, .errnoValue = EINTR}, {.result = -1, .errnoValue = EINTR}};

  EXPECT_EQ(handle_->write(Bytes(65)), HidTransfer::kDone);
  EXPECT_EQ(library_.written.size(), 1U);
}

TEST_F(HidapiHandleTest, SignalsWithoutEndDoNotHoldAWriteForEver) {
  library_.signalStorm = true;

  EXPECT_EQ(handle_->write(Bytes(65)), HidTransfer::kFailed);
  EXPECT_EQ(library_.now, milliseconds(5000));
}

TEST_F(HidapiHandleTest, AWriteIsNotRepeatedAfterAnyOtherError) {
  for (const int error : {ENODEV, ETIMEDOUT, EIO, EPIPE}) {
    library_.writeAnswers = {{.result = -1, .errnoValue = error}};

    EXPECT_EQ(handle_->write(Bytes(65)), HidTransfer::kFailed) << error;
  }
  EXPECT_EQ(library_.writeCalls, 4);
  EXPECT_TRUE(library_.written.empty());
}

TEST_F(HidapiHandleTest, DiscardsAllThatArrivedAndKeepsWhatArrivesLater) {
  for (int i = 0; i < 63; ++i) library_.arrives(counting(64, 1));
  library_.arrives(counting(10, 1));
  library_.arrives(counting(64, 9), milliseconds(50));

  handle_->discardInput();

  EXPECT_EQ(library_.now, milliseconds(0));
  ASSERT_EQ(read(milliseconds(100)), HidTransfer::kDone);
  EXPECT_EQ(report_[1], 9);
}

TEST_F(HidapiHandleTest, ASignalDoesNotLeaveOldReportsBehind) {
  library_.arrives(counting(64, 1));
  library_.happens(FakeEvent::Kind::kSignal, milliseconds(0));
  library_.arrives(counting(64, 2));

  handle_->discardInput();

  EXPECT_EQ(read(milliseconds(10)), HidTransfer::kTimedOut);
}

TEST_F(HidapiHandleTest, ADeviceThatStreamsWithoutEndIsDiscardedInBoundedTime) {
  library_.streams = true;

  handle_->discardInput();

  EXPECT_EQ(library_.readCalls, 4096);
}

TEST_F(HidapiHandleTest, DiscardingEndsAtAnUnplug) {
  library_.unpluggedAt = milliseconds(0);
  errno = EINTR;

  handle_->discardInput();

  EXPECT_EQ(library_.readCalls, 1);
}

class NumberedHandleTest : public HidapiHandleTest {
 protected:
  NumberedHandleTest() : HidapiHandleTest(kNumbered) { report_.resize(9); }
};

TEST_F(NumberedHandleTest, PresentsTheIdentifierAtElementZero) {
  library_.arrives({2, 11, 12, 13, 14, 15, 16, 17, 18});

  ASSERT_EQ(read(milliseconds(0)), HidTransfer::kDone);

  EXPECT_EQ(report_, (Bytes{2, 11, 12, 13, 14, 15, 16, 17, 18}));
}

TEST_F(NumberedHandleTest, AReportOfAnotherLengthIsDropped) {
  library_.arrives({1, 11, 12, 13});
  library_.arrives({2, 11, 12, 13, 14, 15, 16, 17, 18, 19});

  EXPECT_EQ(read(milliseconds(0)), HidTransfer::kWrongLength);
  EXPECT_EQ(read(milliseconds(0)), HidTransfer::kWrongLength);
}

}  // namespace
}  // namespace vireon::tests
