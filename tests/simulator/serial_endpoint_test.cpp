#include <gtest/gtest.h>

#include "tests/simulator/line.h"

namespace vireon::simulator::tests {
namespace {

TEST(SerialEndpoint, AnswersACommandBetweenItsMarks) {
  Line line;
  EXPECT_EQ(line.exchange("SIM??"), framed("sim:K7310 "));
  EXPECT_EQ(line.exchange("VDAup"), framed(kAck));
  EXPECT_EQ(line.exchange("rubbish"), framed(kRefused));
}

TEST(SerialEndpoint, PassesOverThePrefixBehindTheStartMark) {
  Line line;
  line.put("\x02\xFE\xFDVDA??\x03");
  EXPECT_EQ(line.listen(), framed("vda:44"));
}

TEST(SerialEndpoint, SendsAWaveformWhole) {
  Line line;
  const std::string answer = line.exchange("DRS??");
  EXPECT_EQ(answer.size(), 290U);
  EXPECT_EQ(answer.back(), '\x03');
}

class SerialPace : public testing::TestWithParam<int> {};

TEST_P(SerialPace, EveryByteTakesTenBitsInBothDirections) {
  Line line(GetParam());
  const auto after = [](std::int64_t bytes) { return bytes * 10'000'000'000ns / GetParam(); };
  line.put(framed("VDA??"));
  const auto pieces = line.pieces();
  ASSERT_EQ(pieces.size(), 8U);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    EXPECT_EQ(pieces[i].bytes.size(), 1U);
    EXPECT_EQ(pieces[i].at, after(7) + after(static_cast<std::int64_t>(i) + 1)) << i;
  }
}

TEST_P(SerialPace, NoBaudRateButItsOwnGetsAnAnswer) {
  for (const int baud : {1200, 2400, 4800, 9600, 19200, 0}) {
    Line line(GetParam());
    line.hostBaud = baud;
    EXPECT_EQ(line.exchange("VDA??"), baud == GetParam() ? framed("vda:44") : "") << baud;
    EXPECT_EQ(line.instrument.commandCount(), baud == GetParam() ? 1U : 0U) << baud;
  }
}

INSTANTIATE_TEST_SUITE_P(AtEveryBaud, SerialPace, testing::Values(1200, 2400, 4800, 9600));

TEST(SerialEndpoint, TheCommandIsCarriedOutWhenItsEndMarkHasArrived) {
  Line line(1200);
  line.put(framed("VDA??"));
  line.clock.advance(7 * 10'000'000'000ns / 1200 - 1ns);
  line.endpoint.read(1200);
  EXPECT_EQ(line.instrument.commandCount(), 0U);
  line.clock.advance(1ns);
  line.endpoint.read(1200);
  EXPECT_EQ(line.instrument.commandCount(), 1U);
}

TEST(SerialEndpoint, AHostThatFetchesLateGetsAllThatCameInOnePiece) {
  Line line;
  line.put(framed("VDA??"));
  line.clock.advance(1s);
  const auto bytes = line.endpoint.read(9600);
  EXPECT_EQ(std::string(bytes.begin(), bytes.end()), framed("vda:44"));
  EXPECT_FALSE(line.endpoint.nextDue());
}

TEST(SerialEndpoint, ACommandInPartsIsOneCommand) {
  Line line;
  line.put("\x02VD");
  EXPECT_EQ(line.listen(), "");
  line.put("A??\x03");
  EXPECT_EQ(line.listen(), framed("vda:44"));
}

TEST(SerialEndpoint, CommandsInOneWriteAreAnsweredOneAfterTheOther) {
  Line line;
  line.put(framed("VDA??") + framed("VPA??"));
  EXPECT_EQ(line.listen(), framed("vda:44") + framed("vpa:22"));
}

TEST(SerialEndpoint, AWriteWhileBytesAreUnderWayWaitsForTheLine) {
  Line line;
  line.put("xxxxxxx");
  line.put(framed("VDA??"));
  EXPECT_EQ(line.pieces().back().at, 2 * (7 * 10'000'000'000ns / 9600) + 8 * 10'000'000'000ns / 9600);
}

TEST(SerialEndpoint, AnotherRateInTheMiddleOfACommandSpoilsIt) {
  Line line;
  line.put("\x02VDA");
  line.listen();
  line.hostBaud = 4800;
  line.put("x");
  line.hostBaud = 9600;
  line.put("??\x03");
  EXPECT_EQ(line.listen(), "");
}

TEST(SerialEndpoint, AHostThatChangesItsRateLosesTheAnswer) {
  Line line;
  line.put(framed("VDA??"));
  line.hostBaud = 4800;
  EXPECT_EQ(line.listen(), "");
  line.hostBaud = 9600;
  EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
}

TEST(SerialEndpoint, ALongerWriteThanTheBacklogLosesItsEnd) {
  Line line;
  line.put(std::string(SerialEndpoint::kLongestBacklog - 3, 'x') + framed("VDA??") + framed("VDB??"));
  EXPECT_EQ(line.listen(), "");
  line.put("A??\x03");
  EXPECT_EQ(line.instrument.commandCount(), 0U);
}

TEST(SerialEndpoint, PullingTheAdapterOutLosesWhatIsUnderWay) {
  Line line;
  line.put(framed("VDA??"));
  line.clock.advance(9ms);
  line.endpoint.unplug();
  EXPECT_FALSE(line.endpoint.nextDue());
  EXPECT_EQ(line.exchange("VDA??"), "");
  line.endpoint.plug();
  EXPECT_EQ(line.listen(), "");
  EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
}

TEST(SerialEndpoint, TheInstrumentKeepsItsSettingsWhileUnplugged) {
  Line line;
  line.exchange("VDAup");
  line.endpoint.unplug();
  line.endpoint.plug();
  EXPECT_EQ(line.exchange("VDA??"), framed("vda:45"));
}

}  // namespace
}  // namespace vireon::simulator::tests
