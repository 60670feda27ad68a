#include "app/simulated_hid.h"

#include <gtest/gtest.h>

#include "simulator/instrument.h"

namespace vireon::app {
namespace {

using platform::HidOpenError;
using platform::HidTransfer;
using simulator::Model;
using Report = std::vector<std::uint8_t>;
using namespace std::chrono_literals;

class SimulatedNode : public testing::Test {
 protected:
  std::unique_ptr<platform::HidHandle> open() { return hid.open(hid.list().at(0)).handle; }

  static Report command(const std::string& text) {
    Report report(65, 0);
    report[1] = 2;
    std::copy(text.begin(), text.end(), report.begin() + 2);
    report[text.size() + 2] = 3;
    return report;
  }

  simulator::ManualClock clock;
  simulator::Instrument instrument{Model::kK7310, clock};
  simulator::UsbEndpoint endpoint{instrument, clock};
  SimulatedHid hid{endpoint, Model::kK7310};
  Report answer = Report(65, 0xAA);
};

TEST_F(SimulatedNode, EachModelIsListedUnderItsOwnProduct) {
  const std::pair<Model, int> rows[] = {
      {Model::kK7310, 0xE001}, {Model::kK7210, 0xE002}, {Model::kK7201, 0xE003}, {Model::kK7900, 0xE004}};
  for (const auto& [model, product] : rows) {
    const auto nodes = SimulatedHid(endpoint, model).list();
    ASSERT_EQ(nodes.size(), 1U);
    EXPECT_EQ(nodes[0].vendorId, 0x10C4);
    EXPECT_EQ(nodes[0].productId, product);
  }
}

TEST_F(SimulatedNode, AnUnpluggedInstrumentIsNeitherListedNorOpened) {
  const platform::HidNode node = hid.list().at(0);
  endpoint.unplug();
  EXPECT_TRUE(hid.list().empty());
  const auto result = hid.open(node);
  EXPECT_EQ(result.handle, nullptr);
  EXPECT_EQ(result.error, HidOpenError::kNotFound);
}

TEST_F(SimulatedNode, AnotherNodeIsNotFound) {
  const auto result = hid.open({"another", 0x10C4, 0xE001});
  EXPECT_EQ(result.handle, nullptr);
  EXPECT_EQ(result.error, HidOpenError::kNotFound);
}

TEST_F(SimulatedNode, ReportsAre65BytesBothWays) {
  const auto handle = open();
  EXPECT_EQ(handle->capabilities().inputReportLength, 65U);
  EXPECT_EQ(handle->capabilities().outputReportLength, 65U);
}

TEST_F(SimulatedNode, AnAnswerHasZeroAtElementZeroAndItsPayloadFromOne) {
  const auto handle = open();
  EXPECT_EQ(handle->write(command("DFN??")), HidTransfer::kDone);
  EXPECT_EQ(handle->read(answer, 100ms), HidTransfer::kDone);
  EXPECT_EQ(answer[0], 0);
  EXPECT_EQ(std::string(answer.begin() + 1, answer.begin() + 9), "\2dfn:00\3");
  EXPECT_EQ(instrument.log(), std::vector<std::string>{"DFN??"});
}

TEST_F(SimulatedNode, WithoutAnAnswerAReadTimesOutAndTheHandleStaysUsable) {
  const auto handle = open();
  EXPECT_EQ(handle->read(answer, 6000ms), HidTransfer::kTimedOut);
  EXPECT_EQ(clock.now(), 6000ms);
  EXPECT_EQ(handle->write(command("DFN??")), HidTransfer::kDone);
  EXPECT_EQ(handle->read(answer, 100ms), HidTransfer::kDone);
}

TEST_F(SimulatedNode, AShortReportIsOfTheWrongLength) {
  endpoint.setFaults({.shortReport = simulator::ShortReport{1, 63}});
  const auto handle = open();
  handle->write(command("DFN??"));
  EXPECT_EQ(handle->read(answer, 100ms), HidTransfer::kWrongLength);
}

TEST_F(SimulatedNode, DiscardingDropsTheUnreadAnswer) {
  const auto handle = open();
  handle->write(command("DFN??"));
  handle->discardInput();
  EXPECT_EQ(handle->read(answer, 100ms), HidTransfer::kTimedOut);
}

TEST_F(SimulatedNode, OneHandleReadsWhatAnotherAskedFor) {
  const auto writing = open();
  const auto reading = open();
  writing->write(command("DFN??"));
  EXPECT_EQ(reading->read(answer, 100ms), HidTransfer::kDone);
}

TEST_F(SimulatedNode, ASpanOfAnotherLengthThan65MovesNothingAndTheHandleStaysUsable) {
  const auto handle = open();
  for (const std::size_t length : {1U, 64U, 66U}) {
    Report report(length, 0);
    EXPECT_EQ(handle->write(report), HidTransfer::kWrongLength) << length;
    EXPECT_EQ(handle->read(report, 100ms), HidTransfer::kWrongLength) << length;
  }
  EXPECT_EQ(clock.now(), 0ms);
  EXPECT_EQ(handle->write(command("DFN??")), HidTransfer::kDone);
  EXPECT_EQ(handle->read(answer, 100ms), HidTransfer::kDone);
}

TEST_F(SimulatedNode, AHandleThatMetAnUnpluggedDeviceWritingFailsForGood) {
  const auto handle = open();
  endpoint.unplug();
  EXPECT_EQ(handle->write(command("DFN??")), HidTransfer::kFailed);
  endpoint.plug();
  EXPECT_EQ(handle->write(command("DFN??")), HidTransfer::kFailed);
  EXPECT_EQ(handle->read(answer, 100ms), HidTransfer::kFailed);
  EXPECT_EQ(open()->write(command("DFN??")), HidTransfer::kDone);
}

TEST_F(SimulatedNode, AHandleThatMetAnUnpluggedDeviceReadingFailsForGood) {
  const auto handle = open();
  endpoint.unplug();
  EXPECT_EQ(handle->read(answer, 100ms), HidTransfer::kFailed);
  endpoint.plug();
  EXPECT_EQ(handle->write(command("DFN??")), HidTransfer::kFailed);
  EXPECT_EQ(handle->read(answer, 100ms), HidTransfer::kFailed);
}

}  // namespace
}  // namespace vireon::app
