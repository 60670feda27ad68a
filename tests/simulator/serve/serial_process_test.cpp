#include <gtest/gtest.h>
#include <sys/ioctl.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <ostream>

#include "tests/fakes/simulator_process.h"
#include "tests/fakes/temporary_folder.h"
#include "tests/simulator/serve/terminal_host.h"

namespace vireon::simulator::tests {
namespace {

namespace fs = std::filesystem;
using vireon::tests::SimulatorProcess;
using vireon::tests::TemporaryFolder;

const std::string kIdentity = framed("sim:K7310 ");

// A process that serves DIR/COM1, ready.
struct Port {
  explicit Port(std::vector<std::string> more = {}) : process(arguments(std::move(more))) {
    EXPECT_EQ(process.nextLine(), "ready " + path.string());
  }

  std::vector<std::string> arguments(std::vector<std::string> more) const {
    more.insert(more.begin(), {"--folder", folder.path().string()});
    return more;
  }

  TemporaryFolder folder;
  fs::path path = folder / "COM1";
  SimulatorProcess process;
};

struct Rate {
  speed_t speed;
  const char* text;

  friend std::ostream& operator<<(std::ostream& out, const Rate& shown) { return out << shown.text; }
};

class SerialProcessRate : public testing::TestWithParam<Rate> {};

TEST_P(SerialProcessRate, AnswersAtItsRateAndAtNoOther) {
  Port port({"--baud", GetParam().text});
  TerminalHost host(port.path, GetParam().speed == B9600 ? B1200 : B9600);
  ASSERT_TRUE(host.put(framed("VDA??")));
  // The answer to a control line comes after everything that was written before it was taken.
  ASSERT_EQ(port.process.control("fault none"), "");
  host.setSpeed(GetParam().speed);
  EXPECT_EQ(host.exchange("SIM??", kIdentity.size()), kIdentity);
  EXPECT_EQ(port.process.nextLine(), "command SIM??");
}

INSTANTIATE_TEST_SUITE_P(EveryRate, SerialProcessRate,
                         testing::Values(Rate{B1200, "1200"}, Rate{B2400, "2400"}, Rate{B4800, "4800"},
                                         Rate{B9600, "9600"}),
                         [](const auto& rate) { return std::string(rate.param.text); });

TEST(SerialProcess, ServesTheModelAndThePortThatItIsTold) {
  TemporaryFolder folder;
  SimulatorProcess process({"--folder=" + folder.path().string(), "--com", "3", "--model", "K7900"});
  ASSERT_EQ(process.nextLine(), "ready " + (folder / "COM3").string());
  TerminalHost host(folder / "COM3");
  EXPECT_EQ(host.exchange("SIM??", 12), framed("sim:K7900 "));
}

TEST(SerialProcess, SendsAWaveformWhole) {
  Port port;
  TerminalHost host(port.path);
  const std::string answer = host.exchange("DRS??", 290);
  EXPECT_EQ(answer.size(), 290U);
  EXPECT_EQ(answer.substr(0, 5),
            "\x02"
            "drs:");
  EXPECT_EQ(answer.back(), '\x03');
}

TEST(SerialProcess, AnswersAgainAfterTheHostClosedAndOpenedThePort) {
  Port port;
  for (int i = 0; i < 3; ++i) {
    TerminalHost host(port.path);
    EXPECT_EQ(host.exchange("SIM??", kIdentity.size()), kIdentity);
    EXPECT_TRUE(port.process.waitFor("command SIM??"));
  }
}

TEST(SerialProcess, ExclusiveUseEndsWhenTheHostCloses) {
  Port port;
  TerminalHost first(port.path);
  ASSERT_EQ(::ioctl(first.descriptor(), TIOCEXCL), 0);
  first.close();
  ASSERT_EQ(port.process.control("fault none"), "");
  const TerminalHost second(port.path);
  ASSERT_TRUE(second.isOpen());
  int exclusive = -1;
  ASSERT_EQ(::ioctl(second.descriptor(), TIOCGEXCL, &exclusive), 0);
  EXPECT_EQ(exclusive, 0);
}

TEST(SerialProcess, TellsACommandThatIsNoTextInHexadecimal) {
  Port port;
  TerminalHost host(port.path);
  EXPECT_EQ(host.exchange("a\n\xFF", 3), "\x02\x05\x03");
  EXPECT_EQ(port.process.nextLine(), "command a\\x0A\\xFF");
}

struct Seen {
  const char* fault;
  std::string answer;

  friend std::ostream& operator<<(std::ostream& out, const Seen& shown) { return out << shown.fault; }
};

class SerialProcessFault : public testing::TestWithParam<Seen> {};

TEST_P(SerialProcessFault, IsSeenOnTheWireUntilItIsSwitchedOff) {
  Port port;
  TerminalHost host(port.path);
  ASSERT_EQ(port.process.control("fault " + std::string(GetParam().fault)), "");
  EXPECT_EQ(host.exchange("SIM??", GetParam().answer.size()), GetParam().answer);
  ASSERT_TRUE(port.process.waitFor("command SIM??"));
  ASSERT_EQ(port.process.control("fault none"), "");
  EXPECT_EQ(host.exchange("SIM??", kIdentity.size()), kIdentity);
}

INSTANTIATE_TEST_SUITE_P(Table, SerialProcessFault,
                         testing::Values(Seen{"silence", ""}, Seen{"refuse", framed("\x05")},
                                         Seen{"code=7", framed("\x07")}, Seen{"late=50", kIdentity},
                                         Seen{"cut=6", kIdentity.substr(0, 6)}, Seen{"split=1", kIdentity},
                                         Seen{"twice", kIdentity + kIdentity},
                                         Seen{"false-start", "\x7F\x01?\x02vda:4" + kIdentity},
                                         Seen{"endless=602", "\x02sim:K7310 " + std::string(591, 'a')},
                                         Seen{"identity=Q1", framed("sim:Q1    ")}, Seen{"none", kIdentity}));

TEST(SerialProcess, TheReadOutAloneIsSpoiltByControlLines) {
  Port port;
  TerminalHost host(port.path);
  ASSERT_EQ(port.process.control("fault on=DPC03,refuse"), "");
  EXPECT_EQ(host.exchange("DPC03", 3), framed("\x05"));
  EXPECT_EQ(host.exchange("SIM??", kIdentity.size()), kIdentity);
  ASSERT_EQ(port.process.control("fault dump-empty"), "");
  EXPECT_EQ(host.exchange("DPC03", 6), framed("lgd:"));
  ASSERT_EQ(port.process.control("fault dump-endless"), "");
  EXPECT_EQ(host.exchange("DPC03", 582).substr(1, 18), "lgd:00000 00:00:00");
}

TEST(SerialProcess, GarbageComesInItsLengthWithItsEndMark) {
  Port port({"--fault", "garbage=100"});
  TerminalHost host(port.path);
  EXPECT_EQ(host.exchange("SIM??", 100).find('\x03'), 99U);
}

TEST(SerialProcess, ASplitAnswerComesInSeveralPieces) {
  Port port({"--fault", "split=30"});
  TerminalHost host(port.path);
  EXPECT_EQ(host.exchange("SIM??", kIdentity.size()), kIdentity);
  EXPECT_GT(host.pieces, 1);
}

TEST(SerialProcess, FaultsOfTheCommandLineAddUpAndOnceEndsThem) {
  Port port({"--fault", "code=9", "--fault", "once,twice"});
  TerminalHost host(port.path);
  EXPECT_EQ(host.exchange("SIM??", 6), "\x02\x09\x03\x02\x09\x03");
  EXPECT_EQ(host.exchange("SIM??", kIdentity.size()), kIdentity);
}

class SerialProcessHangUp : public testing::TestWithParam<const char*> {};

TEST_P(SerialProcessHangUp, ReachesTheHostTakesTheLinkAwayAndEndsByPlugging) {
  Port port({"--fault", GetParam()});
  TerminalHost host(port.path);
  EXPECT_LT(host.exchange("SIM??", kIdentity.size()).size(), kIdentity.size());
  EXPECT_TRUE(host.hungUp);
  EXPECT_EQ(port.process.nextLine(), "command SIM??");
  EXPECT_EQ(port.process.nextLine(), "unplugged");
  EXPECT_FALSE(fs::is_symlink(port.path));
  ASSERT_EQ(port.process.control("fault none"), "");
  ASSERT_EQ(port.process.control("plug"), "");
  TerminalHost again(port.path);
  EXPECT_EQ(again.exchange("SIM??", kIdentity.size()), kIdentity);
}

INSTANTIATE_TEST_SUITE_P(Table, SerialProcessHangUp,
                         testing::Values("hangup-byte=1", "hangup-byte=12", "hangup-command=1"));

TEST(SerialProcess, UnplugAndPlugAreToldOnceAndMayBeRepeated) {
  Port port;
  TerminalHost host(port.path);
  EXPECT_EQ(port.process.control("unplug"), "");
  EXPECT_EQ(host.piece(), "");
  EXPECT_TRUE(host.hungUp);
  EXPECT_FALSE(fs::is_symlink(port.path));
  EXPECT_EQ(port.process.control("unplug"), "");
  EXPECT_EQ(port.process.control("plug"), "");
  EXPECT_EQ(port.process.control("plug"), "");
  TerminalHost again(port.path);
  EXPECT_EQ(again.exchange("SIM??", kIdentity.size()), kIdentity);
  EXPECT_EQ(port.process.nextLine(), "command SIM??");
}

TEST(SerialProcess, AControlLineWithoutMeaningIsAnErrorAndNothingElse) {
  Port port;
  EXPECT_EQ(port.process.control("sing"), "error there is no control line \"sing\"");
  EXPECT_EQ(port.process.control("fault sing"), "error there is no fault \"sing\"");
  EXPECT_EQ(port.process.control("fault drop=1"), "error the fault \"drop\" is for a USB gadget");
  TerminalHost host(port.path);
  EXPECT_EQ(host.exchange("SIM??", kIdentity.size()), kIdentity);
}

TEST(SerialProcess, APortInThePlaceOfTheLinkMakesPluggingAnError) {
  Port port;
  ASSERT_EQ(port.process.control("unplug"), "");
  std::ofstream(port.path) << "taken";
  EXPECT_EQ(port.process.control("plug").substr(0, 5), "error");
  fs::remove(port.path);
  EXPECT_EQ(port.process.control("plug"), "");
}

class SerialProcessSignal : public testing::TestWithParam<int> {};

TEST_P(SerialProcessSignal, EndsItCleanlyAndTakesTheLinkAway) {
  Port port;
  port.process.signal(GetParam());
  EXPECT_EQ(port.process.waitForExit(), 0);
  EXPECT_EQ(port.process.errors(), "");
  EXPECT_FALSE(fs::is_symlink(port.path));
}

INSTANTIATE_TEST_SUITE_P(Both, SerialProcessSignal, testing::Values(SIGINT, SIGTERM));

TEST(SerialProcess, ASignalInTheMiddleOfAnAnswerEndsItCleanly) {
  Port port({"--baud", "1200"});
  TerminalHost host(port.path, B1200);
  ASSERT_EQ(host.exchange("DRS??", 5).substr(0, 4),
            "\x02"
            "drs");
  port.process.signal(SIGTERM);
  EXPECT_EQ(port.process.waitForExit(), 0);
  EXPECT_FALSE(fs::is_symlink(port.path));
}

TEST(SerialProcess, TheEndOfItsInputEndsIt) {
  Port port;
  port.process.closeInput();
  EXPECT_EQ(port.process.waitForExit(), 0);
  EXPECT_FALSE(fs::is_symlink(port.path));
}

TEST(SerialProcess, QuitEndsItWithOk) {
  Port port;
  EXPECT_EQ(port.process.control("quit"), "");
  EXPECT_EQ(port.process.waitForExit(), 0);
  EXPECT_FALSE(fs::is_symlink(port.path));
}

TEST(SerialProcess, ALinkThatLeadsNowhereIsReplaced) {
  TemporaryFolder folder;
  fs::create_symlink("/dev/pts/999999", folder / "COM1");
  SimulatorProcess process({"--folder", folder.path().string()});
  ASSERT_EQ(process.nextLine(), "ready " + (folder / "COM1").string());
  TerminalHost host(folder / "COM1");
  EXPECT_EQ(host.exchange("SIM??", kIdentity.size()), kIdentity);
}

TEST(SerialProcess, ALinkInUseAndAFileAreLeftAlone) {
  Port port;
  const fs::path terminal = fs::read_symlink(port.path);
  SimulatorProcess second({"--folder", port.folder.path().string()});
  EXPECT_EQ(second.waitForExit(), 1);
  EXPECT_NE(second.errors().find("cannot make the link " + port.path.string()), std::string::npos);
  EXPECT_EQ(fs::read_symlink(port.path), terminal);

  std::ofstream(port.folder / "COM2") << "taken";
  SimulatorProcess third({"--folder", port.folder.path().string(), "--com", "2"});
  EXPECT_EQ(third.waitForExit(), 1);
  EXPECT_TRUE(fs::is_regular_file(port.folder / "COM2"));
}

TEST(SerialProcess, FourPortsInOneFolderLiveSideBySide) {
  TemporaryFolder folder;
  std::vector<std::unique_ptr<SimulatorProcess>> processes;
  for (const char* const com : {"1", "2", "3", "4"}) {
    processes.push_back(std::make_unique<SimulatorProcess>(
        std::vector<std::string>{"--folder", folder.path().string(), "--com", com}));
    ASSERT_TRUE(processes.back()->nextLine());
  }
  for (const char* const name : {"COM1", "COM2", "COM3", "COM4"}) {
    TerminalHost host(folder / name);
    EXPECT_EQ(host.exchange("SIM??", kIdentity.size()), kIdentity) << name;
  }
}

TEST(SerialProcess, WrongWordsAreOneLineAndStatusTwo) {
  const TemporaryFolder folder;
  const std::string here = folder.path().string();
  const std::string nowhere = (folder / "nowhere").string();
  const std::vector<std::vector<std::string>> wrong{
      {"--folder", here, "--fault", "sing"}, {"--folder", nowhere}, {"--folder", here, "--colour"}, {}};
  for (const auto& words : wrong) {
    SimulatorProcess process(words);
    EXPECT_EQ(process.waitForExit(), 2);
    EXPECT_EQ(process.errors().find('\n'), process.errors().size() - 1) << process.errors();
  }
}

TEST(SerialProcess, HelpExplainsOptionsAndFaults) {
  SimulatorProcess process({"--help"});
  EXPECT_TRUE(process.waitFor("  --control         take lines on the standard input, and end when it ends:"));
  EXPECT_TRUE(process.waitFor("  twice              the answer twice, in one piece; serial"));
  EXPECT_EQ(process.waitForExit(), 0);
}

}  // namespace
}  // namespace vireon::simulator::tests
