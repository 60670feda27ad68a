#include "simulator/waveform_frame.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>

#include "simulator/random.h"
#include "tests/simulator/bench.h"

namespace vireon::simulator::tests {
namespace {

bool isHexPair(const std::string& text) {
  const auto digit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); };
  return text.size() == 2 && digit(text[0]) && digit(text[1]);
}

// 2 and 3 frame the wire.
bool holdsMark(const std::string& text) {
  return text.find_first_of("\x02\x03") != std::string::npos;
}

TEST(WaveformFrame, FieldsStandAtTheirPlaces) {
  Bench bench;
  bench.ask("DFN05;VDAac;VDBof;VPA21;VPB5B;TRGl-;TLV81;HPO3D");
  const Frame frame = bench.frame();
  ASSERT_EQ(frame.text().size(), 288U);
  EXPECT_EQ(frame.text().substr(0, 4), "drs:");
  EXPECT_EQ(frame.text().substr(4, 2), "00");  // 5-6
  EXPECT_EQ(frame.field(7), "05");             // function
  EXPECT_EQ(frame.field(9), "54");             // channel A
  EXPECT_EQ(frame.field(11), "03");            // channel B
  EXPECT_EQ(frame.field(13), "07");            // time base
  EXPECT_EQ(frame.field(15), "21");            // position A
  EXPECT_EQ(frame.field(17), "5B");            // position B
  EXPECT_EQ(frame.field(19), "24");            // trigger
  EXPECT_EQ(frame.field(21), "81");            // level
  EXPECT_EQ(frame.field(23), "00");
  EXPECT_EQ(frame.field(25), "3D");  // horizontal position
  EXPECT_EQ(frame.flag(), '0');
  EXPECT_EQ(frame.text()[27], '0');
  EXPECT_EQ("drm:" + frame.reading(), bench.ask("DRM??"));
}

TEST(WaveformFrame, ItsFieldsAreTheRepliesToTheQueries) {
  Bench bench;
  bench.ask("VDAat;HDVat;VDBup;TRGse;DFN02");
  const Frame frame = bench.frame();
  EXPECT_EQ("vda:" + frame.field(9) + ",vdb:" + frame.field(11) + ",hdv:" + frame.field(13),
            bench.ask("VDA??;VDB??;HDV??"));
  EXPECT_EQ("vpa:" + frame.field(15) + ",vpb:" + frame.field(17) + ",trg:" + frame.field(19),
            bench.ask("VPA??;VPB??;TRG??"));
  EXPECT_EQ("tlv:" + frame.field(21) + ",hpo:" + frame.field(25) + ",dfn:" + frame.field(7),
            bench.ask("TLV??;HPO??;DFN??"));
}

TEST(WaveformFrame, TheReferenceTraceStandsInChannelBsPlaceAndIsFlagged) {
  Bench bench;
  bench.instrument.storeReference();
  const auto stored = bench.frame().a();
  bench.a().amplitude = 0.5;
  const Frame frame = bench.frame();
  EXPECT_EQ(frame.flag(), '2');
  EXPECT_EQ(frame.b(), stored);
  EXPECT_NE(frame.a(), stored);
  bench.instrument.clearReference();
  EXPECT_EQ(bench.frame().flag(), '0');
  EXPECT_NE(bench.frame().b(), stored);
}

TEST(WaveformFrame, EveryModelSendsIt) {
  for (const Model model : {Model::kK7310, Model::kK7210, Model::kK7201, Model::kK7900}) {
    EXPECT_EQ(Bench(model).frame().text().size(), 288U);
  }
}

TEST(WaveformFrame, NeverHoldsAMarkAndOnlyChannelAHoldsGaps) {
  Random random(7);
  const auto upTo = [&random](int count) {
    return static_cast<int>(random.next() % static_cast<unsigned>(count));
  };
  const auto volts = [&random] { return 100.0 * random.deviation() * random.deviation(); };
  for (int i = 0; i < 5000; ++i) {
    Bench bench;
    Settings& settings = bench.instrument.settings();
    for (ChannelSettings* channel : {&settings.a, &settings.b}) {
      *channel = {upTo(13), upTo(2) == 1, upTo(2) == 1, upTo(2) == 1, static_cast<std::uint8_t>(upTo(256))};
    }
    settings.timeBase = {upTo(21), upTo(2) == 1, static_cast<std::uint8_t>(upTo(256))};
    settings.trigger = {static_cast<TriggerSource>(upTo(3)), upTo(2) == 1, upTo(2) == 1,
                        static_cast<std::uint8_t>(upTo(256))};
    settings.meter.function = static_cast<Function>(upTo(9));
    for (const Channel channel : {Channel::kA, Channel::kB, Channel::kExternal, Channel::kMeter}) {
      bench.instrument.signal(channel) = {.shape = static_cast<Shape>(upTo(5)),
                                          .amplitude = volts(),
                                          .offset = volts(),
                                          .frequency = 1e5 * random.deviation(),
                                          .phase = random.deviation(),
                                          .duty = random.deviation(),
                                          .rise = random.deviation(),
                                          .noise = volts()};
    }
    const std::string text = bench.ask("DRS??");
    ASSERT_EQ(text.size(), 288U);
    ASSERT_FALSE(holdsMark(text));
    const Frame frame(text);
    for (const int sample : frame.a()) ASSERT_TRUE(sample >= 4 && sample <= 240);
    for (const int sample : frame.b()) ASSERT_TRUE(sample >= 4 && sample <= 239);
    for (std::size_t index = 7; index < 27; index += 2) ASSERT_TRUE(isHexPair(frame.field(index)));
  }
}

TEST(WaveformFrame, ASignalThatIsNoNumberStaysOnTheScreen) {
  Bench bench;
  bench.a() = {.offset = std::numeric_limits<double>::quiet_NaN(), .frequency = 0.0};
  bench.b() = {.offset = std::numeric_limits<double>::infinity(), .frequency = 0.0};
  const Frame frame = bench.frame();
  EXPECT_EQ(frame.a(), std::vector<int>(125, 239));
  EXPECT_EQ(frame.b(), std::vector<int>(125, 4));
}

TEST(Memories, AllSixteenAreFilledDifferAndNeverChange) {
  Bench bench;
  std::set<std::string> seen;
  for (const char digit : std::string("0123456789ABCDEF")) {
    const std::string command = std::string("MEM0") + digit;
    const std::string text = bench.ask(command);
    EXPECT_EQ(text.size(), 288U);
    EXPECT_EQ(text.substr(0, 4), "mem:");
    EXPECT_FALSE(holdsMark(text));
    EXPECT_GE(span(Frame(text).a()), 28) << digit;
    EXPECT_GE(span(Frame(text).b()), 20) << digit;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\xF0'), 0);
    seen.insert(text.substr(28, 250));
    bench.clock.advance(1s);
    EXPECT_EQ(bench.ask(command), text);
  }
  EXPECT_EQ(seen.size(), 16U);
}

TEST(Memories, RecallingOneLeavesTheSettingsAlone) {
  Bench bench;
  const std::string before = bench.ask("VDA??;VDB??;HDV??;TRG??;DFN??");
  bench.ask("MEM07");
  EXPECT_EQ(bench.ask("VDA??;VDB??;HDV??;TRG??;DFN??"), before);
}

}  // namespace
}  // namespace vireon::simulator::tests
