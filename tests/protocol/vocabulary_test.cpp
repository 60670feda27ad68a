#include "protocol/vocabulary.h"

#include <gtest/gtest.h>

namespace vireon::protocol {
namespace {

struct HexCase {
  int value;
  const char* text;
};

TEST(Vocabulary, HexArgumentsAreAtLeastTwoUpperCaseDigits) {
  const HexCase cases[] = {{0, "00"},
                           {5, "05"},
                           {9, "09"},
                           {10, "0A"},
                           {15, "0F"},
                           {16, "10"},
                           {64, "40"},
                           {128, "80"},
                           {159, "9F"},
                           {160, "A0"},
                           {171, "AB"},
                           {191, "BF"},
                           {254, "FE"},
                           {255, "FF"},
                           {256, "100"},
                           {4095, "FFF"},
                           {0x7FFFFFFF, "7FFFFFFF"}};
  for (const HexCase& expected : cases) {
    EXPECT_EQ(hexArgument(expected.value), expected.text) << expected.value;
  }
}

TEST(Vocabulary, ChannelMnemonicsEndInTheChannelsLetter) {
  EXPECT_EQ(channelMnemonic("VD", 0), "VDA");
  EXPECT_EQ(channelMnemonic("VD", 1), "VDB");
  EXPECT_EQ(channelMnemonic("VP", 0), "VPA");
  EXPECT_EQ(channelMnemonic("VP", 1), "VPB");
}

TEST(Vocabulary, FixedStringsAreSentAsTheyStand) {
  const std::pair<std::string_view, std::string_view> strings[] = {
      {kQueryIdentity, "SID??;SIM??"},
      {kQueryModel, "SIM??"},
      {kQueryFunction, "DFN??"},
      {kQueryParameters, "DPS??"},
      {kQueryScope, "VDA??;VDB??;VPA??;VPB??;HDV??;HPO??;TRG??;DFN??;STS??"},
      {kQueryFunctionText, "AFN??"},
      {kPollWaveform, "DRS??"},
      {kPollReading, "DRM??"},
      {kPollReadingAndResults, "DRM??;DRP??"},
      {kPollRecord, "DRT??"},
      {kAlsoStatus, ";STS??"},
      {kGoToLocal, "GTL"},
      {kMeterModel, "K7900"},
      {kModelPrefix, "K7"},
  };
  for (const auto& [constant, text] : strings) {
    EXPECT_EQ(constant, text);
  }
}

TEST(Vocabulary, ControlBytesAreThoseOfTheWire) {
  EXPECT_EQ(kStx, 2);
  EXPECT_EQ(kEtx, 3);
  EXPECT_EQ(kEot, 4);
  EXPECT_EQ(kEnq, 5);
  EXPECT_EQ(kAck, 6);
}

}  // namespace
}  // namespace vireon::protocol
