#include <gtest/gtest.h>
#include <hidapi.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <string_view>
#include <vector>

#include "tests/usb/measured.h"
#include "tests/usb/simulated_device.h"
#include "tests/usb/usb_program.h"

namespace vireon::tests {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int kRounds = 60;
constexpr int kExchanges = 20;  // of each side in a round
constexpr std::string_view kCommand = "DRS??";

struct Closer {
  void operator()(hid_device* device) const { hid_close(device); }
};

// The same exchange without the program: reports out and in until the end mark.
class BareLoop {
 public:
  explicit BareLoop(const std::string& node) : device_(hid_open_path(node.c_str())) {}

  bool exchange() {
    std::array<std::uint8_t, 65> out{};
    out[1] = 2;
    std::ranges::copy(kCommand, out.begin() + 2);
    out[2 + kCommand.size()] = 3;
    for (;;) {
      if (hid_write(device_.get(), out.data(), out.size()) != 65) return false;
      std::array<std::uint8_t, 64> in{};
      if (hid_read_timeout(device_.get(), in.data(), in.size(), 6000) != 64) return false;
      if (std::ranges::find(in, 3) != in.end()) return true;
      out[1] = 4;
    }
  }

 private:
  std::unique_ptr<hid_device, Closer> device_;
};

template <class Exchange>
double perSecond(const Exchange& exchange) {
  EXPECT_TRUE(exchange());  // drops what the other side's exchanges left unread
  const auto began = Clock::now();
  for (int i = 0; i < kExchanges; ++i) EXPECT_TRUE(exchange());
  return kExchanges / Seconds(Clock::now() - began).count();
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

TEST(UsbSpeed, TheProgramAndABareLoopExchangeTheSameReports) {
  const SimulatedDevice device;
  UsbProgram usb;
  usb.load();
  usb.connect();
  std::vector<double> program;
  std::vector<double> bare;
  std::vector<double> ratios;
  for (int round = 0; round < kRounds; ++round) {
    program.push_back(perSecond([&usb] { return usb.program.connection.trans_usb(kCommand); }));
    BareLoop loop(device.gadget.hostNode().value_or(""));
    bare.push_back(perSecond([&loop] { return loop.exchange(); }));
    ratios.push_back(100 * program.back() / bare.back());
  }
  EXPECT_EQ(usb.form().picScope.lines().size(), UsbProgram::kFrameLines);
  measured("waveform exchanges of the program, median", median(program), "per second");
  measured("waveform exchanges of a bare loop, median", median(bare), "per second");
  measured("the program's speed, median over rounds side by side,", median(ratios), "% of the bare loop's");
}

}  // namespace
}  // namespace vireon::tests
