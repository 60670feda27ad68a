#include <gtest/gtest.h>

#include "tests/link/serial_fixture.h"

namespace vireon::link {
namespace {

using platform::SerialOpenError;
using tests::onLine;
using Texts = std::vector<std::string>;

class PortSearch : public tests::SerialFixture {
 protected:
  PortSearch() { silence(); }

  void search() { connection.serial().com_search(); }

  void expectSearchEnded() {
    EXPECT_FALSE(link.portSearch);
    EXPECT_FALSE(link.linkBusy);
    EXPECT_FALSE(form.tmrCom.enabled());
    EXPECT_EQ(searchView.depth, 0);
    EXPECT_EQ(messages.count(), 0U);
  }
};

TEST_F(PortSearch, SixteenPairsAreTriedInOrderFor500MillisecondsEach) {
  int longest = 0;
  searchView.whileTrying = [&] {
    EXPECT_EQ(searchView.depth, 1);
    EXPECT_TRUE(link.portSearch);
    EXPECT_EQ(form.StatusBar1.panel(1), "Please wait for com port");
    longest = std::max(longest, pump.lastTimeOut);
  };
  search();
  Texts pairs;
  Texts steps;
  for (const char* port : {"COM1:", "COM2:", "COM3:", "COM4:"}) {
    for (const char* rate : {"9600", "4800", "2400", "1200"}) {
      pairs.push_back(std::string(port) + rate);
      steps.push_back(std::to_string(pairs.size()) + " " + pairs.back());
    }
  }
  EXPECT_EQ(serialPort.attempts, pairs);
  EXPECT_EQ(searchView.tried, steps);
  EXPECT_EQ(serialPort.commands, Texts(16, "SIM??"));
  EXPECT_EQ(pump.timeOuts, 16U);
  EXPECT_EQ(pump.lastTimeOut, 500);
  EXPECT_EQ(longest, 500);
}

TEST_F(PortSearch, WhenNothingAnswersTheLastPairStaysAndThePortIsClosed) {
  form.StatusBar1.setPanel(2, "COM2:4800");
  search();
  EXPECT_EQ(link.comPort, "4");
  EXPECT_EQ(link.baudRate, "1200");
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_EQ(form.StatusBar1.panel(1), "");
  EXPECT_EQ(form.StatusBar1.panel(2), "COM2:4800");
  EXPECT_FALSE(serialPort.isOpen());
  expectSearchEnded();
}

TEST_F(PortSearch, EachPairIsAcceptedWithItsWaitingTime) {
  struct Row {
    int port;
    int rate;
    int comWait;
    std::size_t attempts;
  };
  for (const Row& row : {Row{1, 9600, 800, 1}, Row{1, 4800, 1600, 2}, Row{1, 2400, 2400, 3},
                         Row{1, 1200, 3200, 4}, Row{3, 4800, 1600, 10}, Row{4, 1200, 3200, 16}}) {
    const std::string name = "COM" + std::to_string(row.port) + ":" + std::to_string(row.rate);
    SCOPED_TRACE(name);
    serialPort.attempts.clear();
    instrumentAt(row.port, row.rate);
    search();
    EXPECT_EQ(serialPort.attempts.size(), row.attempts);
    EXPECT_EQ(link.comPort, std::to_string(row.port));
    EXPECT_EQ(link.baudRate, std::to_string(row.rate));
    EXPECT_EQ(link.comWait, row.comWait);
    EXPECT_FALSE(link.rxTimeout);
    EXPECT_EQ(form.StatusBar1.panel(1), "");
    EXPECT_EQ(form.StatusBar1.panel(2), name);
    EXPECT_TRUE(serialPort.isOpen());
    EXPECT_EQ(state.modelId, "K7310");
    expectSearchEnded();
  }
}

TEST_F(PortSearch, EveryIdentityOfTheFamilyIsAcceptedAndNoOther) {
  struct Row {
    const char* model;
    bool accepted;
  };
  for (const Row& row :
       {Row{"K7310", true}, Row{"K7900", true}, Row{"K7", true}, Row{"K7999", true}, Row{"K8310", false},
        Row{"k7310", false}, Row{"K", false}, Row{"", false}, Row{" K7310", false}, Row{"XK7310", false}}) {
    instrumentAt(2, 9600, row.model);
    search();
    EXPECT_EQ(!link.rxTimeout, row.accepted) << row.model;
    EXPECT_EQ(link.comPort, row.accepted ? "2" : "4") << row.model;
    EXPECT_EQ(serialPort.isOpen(), row.accepted);
  }
}

TEST_F(PortSearch, AnAcknowledgeAloneIsNoInstrument) {
  answer({onLine("\6")});
  search();
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_EQ(serialPort.commands.size(), 16U);
}

TEST_F(PortSearch, TheIdentityOfAnEarlierPairDoesNotCountForTheNext) {
  state.modelId = "K7310";
  search();
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_EQ(state.modelId, "");

  serialPort.instrument = [](int com, int rate, const std::string&) {
    return com == 1 && rate == 9600 ? Texts{onLine("sim:K8000")} : Texts{};
  };
  searchView.whileTrying = [this] { state.modelId = "K7310"; };
  search();
  EXPECT_TRUE(link.rxTimeout);
}

TEST_F(PortSearch, PortsThatDoNotOpenAreLeftOut) {
  for (const int port : {1, 2}) {
    serialPort.refusals[port] = {SerialOpenError::kNotFound, {}, {}, false};
  }
  instrumentAt(3, 9600);
  search();
  EXPECT_EQ(link.comPort, "3");
  EXPECT_EQ(serialPort.attempts.size(), 9U);
  EXPECT_EQ(serialPort.commands, Texts{"SIM??"});
  EXPECT_EQ(pump.timeOuts, 0U);
  EXPECT_EQ(form.StatusBar1.panel(1), "");
  expectSearchEnded();
}

TEST_F(PortSearch, WithoutAnyPortItEndsAtOnce) {
  for (const int port : {1, 2, 3, 4}) {
    serialPort.refusals[port] = {SerialOpenError::kNotFound, {}, {}, false};
  }
  search();
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_EQ(pump.waits, 0U);
  EXPECT_EQ(serialPort.attempts.size(), 16U);
  EXPECT_TRUE(searchView.advised.empty());
  expectSearchEnded();
}

TEST_F(PortSearch, TheUserEndsItAtOnceBetweenTwoPairs) {
  for (int pair = 0; pair < 5; ++pair) {
    pump.atPump.push_back([] {});
  }
  pump.atPump.push_back([this] { connection.endWait(); });
  search();
  EXPECT_EQ(searchView.tried.size(), 6U);
  EXPECT_EQ(serialPort.commands.size(), 5U);
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_FALSE(serialPort.isOpen());
  EXPECT_EQ(form.StatusBar1.panel(1), "");
  expectSearchEnded();
}

TEST_F(PortSearch, TheUserEndsItAtOnceInAWait) {
  whileWaiting([this] { connection.endWait(); });
  search();
  EXPECT_EQ(serialPort.attempts.size(), 1U);
  EXPECT_EQ(pump.timeOuts, 0U);
  EXPECT_TRUE(link.rxTimeout);
  EXPECT_FALSE(serialPort.isOpen());
  expectSearchEnded();
}

TEST_F(PortSearch, EndedByTheUserItLeavesPortAndRateAsTheyWere) {
  link.comPort = "2";
  link.baudRate = "4800";
  whileWaiting([this] { connection.endWait(); });
  search();
  EXPECT_EQ(link.comPort, "2");
  EXPECT_EQ(link.baudRate, "4800");
  EXPECT_EQ(link.comWait, 1600);
}

TEST_F(PortSearch, ThatFoundNothingLeavesTheLastPairItsOwnTimeForAnAnswer) {
  serialPort.instrument = [](int, int, const std::string&) { return std::vector<std::string>{}; };
  search();
  EXPECT_EQ(link.baudRate, "1200");
  EXPECT_EQ(link.comWait, 3200);
}

TEST_F(PortSearch, AfterAnEndedSearchTheNextOneSearches) {
  whileWaiting([this] { connection.endWait(); });
  search();
  instrumentAt(2, 2400);
  search();
  EXPECT_EQ(form.StatusBar1.panel(2), "COM2:2400");
  EXPECT_FALSE(link.rxTimeout);
}

TEST_F(PortSearch, AnAdapterPulledOutDuringItIsNoMessage) {
  whileWaiting([this] { serialPort.pullOut(); });
  instrumentAt(2, 9600);
  search();
  EXPECT_EQ(form.StatusBar1.panel(2), "COM2:9600");
  expectSearchEnded();
}

TEST_F(PortSearch, ARefusedPortIsToldInOneLineAndAtLength) {
  struct Row {
    platform::SerialOpenResult refusal;
    const char* line = "";
    const char* text = "";
  };
  const Row rows[] = {
      {{SerialOpenError::kNoPermission, "/dev/ttyUSB0", "dialout", false},
       "No permission for /dev/ttyUSB0: join group dialout",
       "This account may not read and write /dev/ttyUSB0, which belongs to the group dialout.\n"
       "This command makes it a member; then log out and in again:\n\n"
       "sudo usermod -aG dialout \"$USER\""},
      {{SerialOpenError::kNoPermission, "/dev/ttyUSB0", "dialout", true},
       "No permission for /dev/ttyUSB0: log in again",
       "This account is a member of the group dialout, which may use /dev/ttyUSB0, but that holds only from "
       "the next login on.\nLog out and in again."},
      {{SerialOpenError::kInUse, "/dev/ttyUSB0", {}, false},
       "/dev/ttyUSB0 is in use by another program",
       "Another program has opened /dev/ttyUSB0.\nEnd it or disconnect it there, then connect again."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.line);
    searchView.advised.clear();
    searchView.advisedTexts.clear();
    serialPort.refusals[2] = row.refusal;
    search();
    EXPECT_EQ(form.StatusBar1.panel(1), row.line);
    EXPECT_EQ(form.StatusBar1.toolTip(1), row.text);
    EXPECT_EQ(searchView.advised, Texts{row.line});
    EXPECT_EQ(searchView.advisedTexts, Texts{row.text});
    expectSearchEnded();
  }
}

TEST_F(PortSearch, OfSeveralRefusedPortsTheFirstIsTold) {
  serialPort.refusals[1] = {SerialOpenError::kFailed, "/dev/ttyS0", {}, false};
  serialPort.refusals[2] = {SerialOpenError::kInUse, "/dev/ttyS1", {}, false};
  serialPort.refusals[3] = {SerialOpenError::kNoPermission, "/dev/ttyS2", "dialout", false};
  search();
  EXPECT_EQ(form.StatusBar1.panel(1), "/dev/ttyS1 is in use by another program");
  EXPECT_EQ(searchView.advised.size(), 1U);
}

TEST_F(PortSearch, AnInstrumentThatIsFoundLeavesNoAdvice) {
  serialPort.refusals[1] = {SerialOpenError::kInUse, "/dev/ttyS0", {}, false};
  search();
  ASSERT_NE(form.StatusBar1.toolTip(1), "");
  instrumentAt(2, 9600);
  search();
  EXPECT_EQ(form.StatusBar1.panel(1), "");
  EXPECT_EQ(form.StatusBar1.toolTip(1), "");
}

}  // namespace
}  // namespace vireon::link
