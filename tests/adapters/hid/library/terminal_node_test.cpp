#include "tests/adapters/hid/library/terminal_node.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/time.h>

#include <chrono>
#include <memory>
#include <numeric>
#include <vector>

#include "adapters/hid/hidapi_port.h"
#include "tests/adapters/hid/sample_descriptors.h"

namespace vireon::tests {
namespace {

using platform::HidOpenError;
using platform::HidTransfer;
using std::chrono::milliseconds;
using std::chrono::steady_clock;
using Bytes = std::vector<std::uint8_t>;

Bytes counting(std::size_t size, std::uint8_t first) {
  Bytes bytes(size);
  std::iota(bytes.begin(), bytes.end(), first);
  return bytes;
}

// Interrupts the process every 2 ms for as long as it lives.
class Signals {
 public:
  Signals() {
    struct sigaction action {};
    action.sa_handler = [](int) {};
    ::sigaction(SIGALRM, &action, &before_);
    const itimerval every{.it_interval = {.tv_sec = 0, .tv_usec = 2000},
                          .it_value = {.tv_sec = 0, .tv_usec = 2000}};
    ::setitimer(ITIMER_REAL, &every, nullptr);
  }
  Signals(const Signals&) = delete;
  Signals& operator=(const Signals&) = delete;
  ~Signals() {
    const itimerval never{};
    ::setitimer(ITIMER_REAL, &never, nullptr);
    ::sigaction(SIGALRM, &before_, nullptr);
  }

 private:
  struct sigaction before_ {};
};

class TerminalNodeTest : public testing::Test {
 protected:
  void SetUp() override {
    platform::HidOpenResult opened = port_.open({.path = node_.path()});
    ASSERT_EQ(opened.error, HidOpenError::kNone);
    handle_ = std::move(opened.handle);
  }

  HidTransfer read(milliseconds timeout) { return handle_->read(report_, timeout); }

  TerminalNode node_{kVendor64};
  adapters::HidapiPort port_;
  std::unique_ptr<platform::HidHandle> handle_;
  Bytes report_ = Bytes(65);
};

TEST(TerminalNodeLengthsTest, TheLengthsComeFromTheNode) {
  const TerminalNode keyboard(kKeyboard);
  adapters::HidapiPort port;

  const auto handle = port.open({.path = keyboard.path()}).handle;

  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(handle->capabilities().inputReportLength, 9U);
  EXPECT_EQ(handle->capabilities().outputReportLength, 2U);
}

TEST_F(TerminalNodeTest, ANodeThatStopsBeingAHidNodeIsNotFound) {
  node_.stopAnswering();

  EXPECT_EQ(port_.open({.path = node_.path()}).error, HidOpenError::kNotFound);
}

TEST_F(TerminalNodeTest, AReportArrivesBehindTheIdentifier) {
  const Bytes payload = counting(64, 1);
  node_.send(payload);

  ASSERT_EQ(read(milliseconds(1000)), HidTransfer::kDone);

  EXPECT_EQ(report_[0], 0);
  EXPECT_EQ(Bytes(report_.begin() + 1, report_.end()), payload);
}

TEST_F(TerminalNodeTest, AShortReportIsOfTheWrongLength) {
  node_.send(counting(63, 1));

  EXPECT_EQ(read(milliseconds(1000)), HidTransfer::kWrongLength);
}

TEST_F(TerminalNodeTest, ALongReportIsOfTheWrongLength) {
  node_.send(counting(65, 1));

  EXPECT_EQ(read(milliseconds(1000)), HidTransfer::kWrongLength);
}

TEST_F(TerminalNodeTest, AWriteSendsTheWholeReport) {
  const Bytes report = counting(65, 0);

  EXPECT_EQ(handle_->write(report), HidTransfer::kDone);

  EXPECT_EQ(node_.take(100), report);
}

TEST_F(TerminalNodeTest, SilenceTimesOutNotBeforeTheTimeAsked) {
  const auto start = steady_clock::now();

  EXPECT_EQ(read(milliseconds(30)), HidTransfer::kTimedOut);

  EXPECT_GE(steady_clock::now() - start, milliseconds(30));
}

TEST_F(TerminalNodeTest, SignalsNeitherEndNorStretchTheWait) {
  const Signals signals;
  const auto start = steady_clock::now();

  EXPECT_EQ(read(milliseconds(60)), HidTransfer::kTimedOut);

  const auto waited = steady_clock::now() - start;
  EXPECT_GE(waited, milliseconds(60));
  EXPECT_LT(waited, milliseconds(1000));
}

TEST_F(TerminalNodeTest, OldReportsAreDiscarded) {
  node_.send(counting(64, 1));
  node_.send(counting(64, 2));
  handle_->discardInput();
  node_.send(counting(64, 9));

  ASSERT_EQ(read(milliseconds(1000)), HidTransfer::kDone);

  EXPECT_EQ(report_[1], 9);
}

TEST_F(TerminalNodeTest, AnUnplugEndsTheWaitAtOnce) {
  node_.unplug();
  const auto start = steady_clock::now();

  EXPECT_EQ(read(milliseconds(6000)), HidTransfer::kFailed);

  EXPECT_LT(steady_clock::now() - start, milliseconds(1000));
}

TEST_F(TerminalNodeTest, AnUnpluggedNodeFailsToWriteAndHasNothingToDiscard) {
  node_.unplug();

  handle_->discardInput();

  EXPECT_EQ(handle_->write(Bytes(65)), HidTransfer::kFailed);
}

}  // namespace
}  // namespace vireon::tests
