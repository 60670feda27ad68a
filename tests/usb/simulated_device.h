#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "simulator/model.h"
#include "tests/fakes/simulator_process.h"
#include "tests/usb/gadget.h"

namespace vireon::tests {

// A simulated instrument on the bus, in a process of its own. Starts plugged in.
class SimulatedDevice {
 public:
  explicit SimulatedDevice(simulator::Model model = simulator::Model::kK7310, int controller = 0)
      : gadget({.vendor = simulator::kUsbVendorId, .product = simulator::usbProductId(model)}, controller),
        process(arguments(model, gadget.plug())) {
    EXPECT_TRUE(process.waitFor("ready " + gadget.deviceNode())) << process.errors();
  }

  // Faults by name, e.g. "unplug=3"; "none" switches them off.
  void fault(std::string_view list) { EXPECT_EQ(process.control("fault " + std::string(list)), ""); }

  // Return when the host has seen it.
  void plug() {
    EXPECT_EQ(process.control("plug"), "");
    EXPECT_TRUE(gadget.waitForHostNode());
  }
  void unplug() {
    EXPECT_EQ(process.control("unplug"), "");
    EXPECT_TRUE(gadget.waitForNoHostNode());
  }

  // Ends the process; the commands it took since it was last told or asked something.
  std::vector<std::string> lastCommands() {
    constexpr std::string_view kCommand = "command ";
    process.closeInput();
    std::vector<std::string> commands;
    for (auto line = process.nextLine(); line; line = process.nextLine()) {
      if (line->starts_with(kCommand)) commands.push_back(line->substr(kCommand.size()));
    }
    return commands;
  }

  Gadget gadget;
  SimulatorProcess process;

 private:
  static std::vector<std::string> arguments(simulator::Model model, const Gadget& gadget) {
    return {"--model",    std::string(simulator::identity(model)),
            "--gadget",   gadget.deviceNode(),
            "--udc-file", gadget.udcFile().string()};
  }
};

}  // namespace vireon::tests
