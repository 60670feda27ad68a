#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/simulated_hid.h"
#include "simulator/instrument.h"
#include "simulator/usb_endpoint.h"
#include "tests/app/shown_disconnected.h"
#include "tests/app/traces_of.h"
#include "tests/fakes/fake_ports.h"

namespace vireon::tests {

// The whole program without a toolkit, on a simulated instrument whose time stands still until a test moves
// it.
class ProgramBench : public FakePorts {
 public:
  explicit ProgramBench(simulator::Model model = simulator::Model::kK7310)
      : instrument(model, clock), hid(endpoint, model) {
    pump.timeOut = &program.form.tmrCom;
  }

  form::MainForm& form() { return program.form; }

  // Loaded and connected, sampling; nothing logged yet.
  void goLive() {
    if (program.state.modelId.empty()) {
      ASSERT_TRUE(program.Form_Load());
    }
    connect();
    form().cmdStart.click();
    instrument.clearLog();
  }

  void connect() {
    form().cmdBttn[0].click();
    ASSERT_TRUE(program.connection.connected());
    instrument.clearLog();
  }

  void tick() { form().tmrInt.tick(); }

  // What picScope must show of the samples last sent.
  std::vector<form::Line> sentTraces() const { return tracesOf(instrument.trace()); }

  std::vector<form::Line> drawn() {
    const auto lines = form().picScope.lines();
    return {lines.begin(), lines.end()};
  }

  // The next poll draws exactly what the instrument sends, and nothing is said about it.
  void expectCleanTick() {
    const std::size_t before = messages.count();
    tick();
    EXPECT_EQ(drawn(), sentTraces());
    EXPECT_EQ(messages.count(), before);
    EXPECT_FALSE(program.state.uiBusy);
  }

  void expectDisconnected() {
    expectShownDisconnected(program);
    EXPECT_EQ(form().cmdBttn[0].backColor(), form::kButtonFace);
    EXPECT_EQ(form().cmdStart.caption(), "Start");
  }

  simulator::ManualClock clock;
  simulator::Instrument instrument;
  simulator::UsbEndpoint endpoint{instrument, clock};
  app::SimulatedHid hid;
  app::Program program{with(hid), "folder"};
};

}  // namespace vireon::tests
