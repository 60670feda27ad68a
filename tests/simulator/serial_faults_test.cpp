#include <gtest/gtest.h>

#include "tests/simulator/line.h"

namespace vireon::simulator::tests {
namespace {

constexpr auto kByte = 10'000'000'000ns / 9600;

std::string spoilt(const Faults& faults, std::string_view command = "VDA??") {
  Line line;
  line.endpoint.setFaults(faults);
  return line.exchange(command);
}

TEST(SerialFaults, SilenceGivesNoAnswerThoughTheCommandWasCarriedOut) {
  Line line;
  line.endpoint.setFaults({.silence = true});
  EXPECT_EQ(line.exchange("VDAup"), "");
  line.endpoint.setFaults({});
  EXPECT_EQ(line.exchange("VDA??"), framed("vda:45"));
}

TEST(SerialFaults, AFaultOnceIsGoneAfterOneExchange) {
  Line line;
  line.endpoint.setFaults({.once = true, .silence = true});
  EXPECT_EQ(line.exchange("VDA??"), "");
  EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
}

TEST(SerialFaults, RefusalIsAnsweredAndTheCommandNotCarriedOut) {
  Line line;
  line.endpoint.setFaults({.once = true, .refuse = true});
  EXPECT_EQ(line.exchange("VDAup"), framed(kRefused));
  EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
}

TEST(SerialFaults, AnOddControlCodeStandsAloneBetweenTheMarks) {
  EXPECT_EQ(spoilt({.controlCode = 7}), "\x02\x07\x03");
}

TEST(SerialFaults, ALateAnswerKeepsItsPace) {
  Line line;
  line.endpoint.setFaults({.lateBy = 800ms});
  line.put(framed("VDA??"));
  const auto pieces = line.pieces();
  ASSERT_EQ(pieces.size(), 8U);
  EXPECT_EQ(pieces.front().at, 7 * 10'000'000'000ns / 9600 + 800ms + kByte);
  EXPECT_EQ(pieces.back().at, 7 * 10'000'000'000ns / 9600 + 800ms + 8 * 10'000'000'000ns / 9600);
}

TEST(SerialFaults, AnAnswerCanEndAfterAnyOfItsBytes) {
  for (std::size_t bytes = 0; bytes <= 9; ++bytes) {
    EXPECT_EQ(spoilt({.cutAfterBytes = bytes}), framed("vda:44").substr(0, bytes));
  }
}

TEST(SerialFaults, GarbageHasItsEndMarkLastOrNone) {
  const std::string closed = spoilt({.garbage = Garbage{.length = 100}});
  EXPECT_EQ(closed.size(), 100U);
  EXPECT_EQ(closed.find('\x03'), 99U);
  const std::string open = spoilt({.garbage = Garbage{.length = 100, .ends = false}});
  EXPECT_EQ(open.size(), 100U);
  EXPECT_EQ(open.find('\x03'), std::string::npos);
}

TEST(SerialFaults, AnEndlessAnswerHasItsLengthAndNoEndMark) {
  for (const std::size_t length : {1U, 5U, 601U, 602U, 3000U}) {
    const std::string answer = spoilt({.endless = length});
    EXPECT_EQ(answer.size(), length);
    EXPECT_EQ(answer.find('\x03'), std::string::npos);
    EXPECT_EQ(answer.rfind('\x02'), 0U);
  }
}

TEST(SerialFaults, AFalseStartComesBeforeTheWholeAnswer) {
  const std::string answer = spoilt({.falseStart = true});
  const std::size_t start = answer.rfind('\x02');
  EXPECT_EQ(answer.substr(start), framed("vda:44"));
  EXPECT_LT(answer.find('\x02'), start);
  EXPECT_GT(answer.find('\x02'), 0U);
  EXPECT_EQ(answer.find('\x03'), answer.size() - 1);
}

TEST(SerialFaults, AForeignIdentityTakesTheModelsPlaceAndNothingElse) {
  EXPECT_EQ(spoilt({.identity = "X1000"}, "SIM??"), framed("sim:X1000 "));
  EXPECT_EQ(spoilt({.identity = "Z"}, "VDA??;SIM??;VPA??"), framed("vda:44,sim:Z     ,vpa:22"));
  EXPECT_EQ(spoilt({.identity = "X1000"}), framed("vda:44"));
}

TEST(SerialFaults, ASplitAnswerComesByteByByteHoweverLateTheHostFetches) {
  Line line;
  line.endpoint.setFaults({.split = 20ms});
  line.put(framed("VDA??"));
  line.clock.advance(10s);
  const auto pieces = line.pieces();
  ASSERT_EQ(pieces.size(), 8U);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    EXPECT_EQ(pieces[i].bytes, framed("vda:44").substr(i, 1));
    EXPECT_EQ(pieces[i].at, i * 20ms);
  }
}

TEST(SerialFaults, ASplitAnswerIsNoFasterThanTheLine) {
  Line line;
  line.endpoint.setFaults({.split = 0ns});
  line.put(framed("VDA??"));
  const auto pieces = line.pieces();
  ASSERT_EQ(pieces.size(), 8U);
  EXPECT_EQ(pieces[7].at - pieces[6].at, kByte);
}

TEST(SerialFaults, AnAnswerTwiceIsOnePieceAndDueWithItsLastByte) {
  Line line;
  line.endpoint.setFaults({.twice = true});
  line.put(framed("VDA??"));
  const auto pieces = line.pieces();
  ASSERT_EQ(pieces.size(), 1U);
  EXPECT_EQ(pieces[0].bytes, framed("vda:44") + framed("vda:44"));
  EXPECT_EQ(pieces[0].at, 7 * 10'000'000'000ns / 9600 + 16 * 10'000'000'000ns / 9600);
}

TEST(SerialFaults, TheAdapterCanGoAtEveryByteOfAnAnswer) {
  for (std::size_t byte = 1; byte <= 8; ++byte) {
    Line line;
    line.endpoint.setFaults({.once = true, .hangUpAtByte = byte});
    EXPECT_EQ(line.exchange("VDA??"), framed("vda:44").substr(0, byte - 1));
    EXPECT_FALSE(line.endpoint.plugged());
    line.endpoint.plug();
    EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
  }
}

TEST(SerialFaults, TheAdapterStaysUntilTheByteItGoesAt) {
  Line line;
  line.endpoint.setFaults({.hangUpAtByte = 1});
  line.put(framed("VDA??"));
  line.clock.advance(7 * 10'000'000'000ns / 9600);
  line.endpoint.read(9600);
  EXPECT_TRUE(line.endpoint.plugged());
  line.clock.advance(kByte + 1ns);
  line.endpoint.read(9600);
  EXPECT_FALSE(line.endpoint.plugged());
}

TEST(SerialFaults, AHangUpBeyondTheAnswerDoesNothing) {
  Line line;
  line.endpoint.setFaults({.hangUpAtByte = 9});
  EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
  EXPECT_TRUE(line.endpoint.plugged());
}

TEST(SerialFaults, TheAdapterGoesOnTheCommandItWaitsFor) {
  for (const bool once : {false, true}) {
    Line line;
    line.endpoint.setFaults({.once = once, .hangUpAtCommand = 3});
    EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
    EXPECT_EQ(line.exchange("VDA??"), framed("vda:44"));
    EXPECT_EQ(line.exchange("VDAup"), "");
    EXPECT_FALSE(line.endpoint.plugged());
    EXPECT_EQ(line.instrument.log().back(), "VDAup");
    line.endpoint.plug();
    line.exchange("VDA??");
    line.exchange("VDA??");
    line.exchange("VDA??");
    EXPECT_EQ(line.endpoint.plugged(), once);
  }
}

TEST(SerialFaults, SeveralActTogether) {
  EXPECT_EQ(spoilt({.cutAfterBytes = 4, .controlCode = 7, .twice = true}), "\x02\x07\x03\x02\x07\x03");
}

}  // namespace
}  // namespace vireon::simulator::tests
