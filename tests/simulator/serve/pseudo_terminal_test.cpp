#include "simulator/serve/pseudo_terminal.h"

#include <gtest/gtest.h>

#include "tests/fakes/temporary_folder.h"
#include "tests/simulator/bench.h"
#include "tests/simulator/serve/terminal_host.h"

namespace vireon::simulator::tests {
namespace {

class Terminal : public testing::Test, protected Bench {
 protected:
  bool hasNews(std::chrono::milliseconds limit = 0ms) const {
    pollfd state{terminal.wake().descriptor, terminal.wake().events, 0};
    return ::poll(&state, 1, static_cast<int>(limit.count())) > 0;
  }

  vireon::tests::TemporaryFolder folder;
  SerialEndpoint endpoint{instrument, clock, 9600};
  PseudoTerminal terminal{endpoint, folder / "COM1"};
};

TEST_F(Terminal, WaitsForNothingButNewsWhileTheLineIsQuiet) {
  terminal.serve();
  EXPECT_FALSE(hasNews());
  EXPECT_FALSE(terminal.wake().at);
}

TEST_F(Terminal, WaitsForTheNextByteWhileTheLineIsBusy) {
  TerminalHost host(folder / "COM1");
  ASSERT_TRUE(host.put("\x02V"));
  ASSERT_TRUE(hasNews(TerminalHost::kLimit));
  terminal.serve();
  EXPECT_FALSE(hasNews());
  EXPECT_EQ(terminal.wake().at, clock.now() + 10'000'000'000ns / 9600);
}

TEST_F(Terminal, AHostThatLeftIsNewsOnlyOnce) {
  {
    TerminalHost host(folder / "COM1");
    terminal.serve();
  }
  EXPECT_TRUE(hasNews(TerminalHost::kLimit));
  terminal.serve();
  EXPECT_FALSE(hasNews());
  EXPECT_FALSE(terminal.wake().at);
}

TEST_F(Terminal, WhatIsSentWhileNobodyHasItOpenIsLost) {
  {
    TerminalHost host(folder / "COM1");
    ASSERT_TRUE(host.put(framed("SIM??")));
  }
  terminal.serve();
  clock.advance(1s);
  terminal.serve();
  EXPECT_EQ(instrument.commandCount(), 1U);
  TerminalHost host(folder / "COM1");
  ASSERT_TRUE(host.put(framed("VDA??")));
  terminal.serve();
  clock.advance(1s);
  terminal.serve();
  EXPECT_EQ(host.listen(8), framed("vda:44"));
}

TEST_F(Terminal, WaitsForNothingWhileItIsUnplugged) {
  terminal.unplug();
  EXPECT_EQ(terminal.wake().descriptor, -1);
  EXPECT_FALSE(terminal.wake().at);
}

}  // namespace
}  // namespace vireon::simulator::tests
