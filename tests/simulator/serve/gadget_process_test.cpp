#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/fakes/simulator_process.h"
#include "tests/fakes/temporary_folder.h"
#include "tests/simulator/serve/terminal_host.h"

namespace vireon::simulator::tests {
namespace {

namespace fs = std::filesystem;
using vireon::tests::SimulatorProcess;
using vireon::tests::TemporaryFolder;

// A terminal in the place of a gadget's node: it has reports of 64 bytes one after the other.
class TerminalNode {
 public:
  explicit TerminalNode(const fs::path& path) : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    ::grantpt(master_.number());
    ::unlockpt(master_.number());
    termios settings{};
    ::tcgetattr(master_.number(), &settings);
    ::cfmakeraw(&settings);
    ::tcsetattr(master_.number(), TCSANOW, &settings);
    std::array<char, 128> name{};
    ::ptsname_r(master_.number(), name.data(), name.size());
    std::error_code ignored;
    fs::remove(path, ignored);
    fs::create_symlink(name.data(), path);
  }

  void put(std::string_view command) {
    std::string report = framed(command);
    report.resize(64);
    EXPECT_EQ(::write(master_.number(), report.data(), report.size()), 64);
  }

  // The text of the answer's only report.
  std::string exchange(std::string_view command) {
    put(command);
    std::string answer;
    while (answer.size() < 64) {
      pollfd state{master_.number(), POLLIN, 0};
      if (::poll(&state, 1, 30'000) <= 0) return answer;
      std::array<char, 64> bytes{};
      const ssize_t count = ::read(master_.number(), bytes.data(), bytes.size());
      if (count <= 0) return answer;
      answer.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return answer.substr(1, answer.find('\x03') - 1);
  }

 private:
  adapters::FileDescriptor master_;
};

// A process at such a node, with a file in the place of its UDC file, ready.
struct RunningGadget {
  RunningGadget() { EXPECT_EQ(process.nextLine(), "ready " + path.string()); }

  std::vector<std::string> arguments() const {
    std::ofstream(udcPath) << "controller.0\n";
    return {"--gadget", path.string(), "--udc-file", udcPath.string()};
  }

  std::string udc() const {
    std::string text;
    std::getline(std::ifstream(udcPath), text);
    return text;
  }

  TemporaryFolder folder;
  fs::path path = folder / "hidg0";
  fs::path udcPath = folder / "UDC";
  TerminalNode node{path};
  SimulatorProcess process{arguments()};
};

TEST(GadgetProcess, AnswersAtItsNodeAndTellsTheCommands) {
  TemporaryFolder folder;
  TerminalNode node(folder / "hidg0");
  SimulatorProcess process({"--gadget", (folder / "hidg0").string(), "--model", "K7201"});
  ASSERT_EQ(process.nextLine(), "ready " + (folder / "hidg0").string());
  EXPECT_EQ(node.exchange("SIM??"), "sim:K7201 ");
  EXPECT_EQ(process.nextLine(), "command SIM??");
  EXPECT_EQ(process.control("unplug"), "error unplugging needs --udc-file");
  process.signal(SIGTERM);
  EXPECT_EQ(process.waitForExit(), 0);
  EXPECT_EQ(process.errors(), "");
}

TEST(GadgetProcess, FaultsActAtTheNode) {
  RunningGadget gadget;
  ASSERT_EQ(gadget.process.control("fault refuse"), "");
  EXPECT_EQ(gadget.node.exchange("SIM??"), "\x05");
  ASSERT_EQ(gadget.process.control("fault once,identity=Q"), "");
  EXPECT_EQ(gadget.node.exchange("SIM??"), "sim:Q     ");
  EXPECT_EQ(gadget.node.exchange("SIM??"), "sim:K7310 ");
  EXPECT_EQ(gadget.process.control("fault twice"), "error the fault \"twice\" is for a serial port");
}

TEST(GadgetProcess, UnplugAndPlugWriteTheUdcFile) {
  RunningGadget gadget;
  EXPECT_EQ(gadget.process.control("unplug"), "");
  EXPECT_EQ(gadget.udc(), "");
  EXPECT_EQ(gadget.process.control("plug"), "");
  EXPECT_EQ(gadget.udc(), "controller.0");
  EXPECT_EQ(gadget.node.exchange("SIM??"), "sim:K7310 ");
}

TEST(GadgetProcess, AnUnplugByAFaultIsToldAndWritesTheUdcFile) {
  RunningGadget gadget;
  ASSERT_EQ(gadget.process.control("fault once,unplug=2"), "");
  gadget.node.put("SIM??");
  EXPECT_EQ(gadget.process.nextLine(), "command SIM??");
  EXPECT_EQ(gadget.process.nextLine(), "unplugged");
  EXPECT_EQ(gadget.udc(), "");
  EXPECT_EQ(gadget.process.control("plug"), "");
  EXPECT_EQ(gadget.node.exchange("SIM??"), "sim:K7310 ");
}

TEST(GadgetProcess, GoesOnWhenItsNodeComesBack) {
  RunningGadget gadget;
  EXPECT_EQ(gadget.node.exchange("SIM??"), "sim:K7310 ");
  gadget.node = TerminalNode(gadget.path);
  EXPECT_EQ(gadget.node.exchange("VDA??"), "vda:44");
}

TEST(GadgetProcess, ANodeThatIsNotThereIsAnErrorOfOneLine) {
  TemporaryFolder folder;
  SimulatorProcess process({"--gadget", (folder / "hidg0").string()});
  EXPECT_EQ(process.waitForExit(), 1);
  EXPECT_NE(process.errors().find("cannot open " + (folder / "hidg0").string()), std::string::npos);
}

}  // namespace
}  // namespace vireon::simulator::tests
