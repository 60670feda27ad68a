#include <gtest/gtest.h>

#include "tests/form/recording_view.h"
#include "tests/protocol/reply_rig.h"

namespace vireon::protocol {
namespace {

using Settings = std::vector<std::pair<int, int>>;

class ScopeReplies : public tests::ReplyRig {
 protected:
  void select(int source) {
    for (form::OptionButton& option : form_.optTS) {
      option.setValue(false);
    }
    if (source < form_.optTS.size()) {
      form_.optTS[source].setValue(true);
    }
  }
};

TEST_F(ScopeReplies, IdentityBecomesTheWindowsCaption) {
  item("sid:K7310 Scope");
  EXPECT_EQ(form_.caption(), "K7310 Scope");
}

TEST_F(ScopeReplies, IdentityIsCharacters5To34) {
  item("sid:" + std::string(29, 'a') + "bc");
  EXPECT_EQ(form_.caption(), std::string(29, 'a') + "b");
  item("sid:");
  EXPECT_EQ(form_.caption(), "");
}

TEST_F(ScopeReplies, ModelIsCharacters5To10) {
  item("sim:K7310 x");
  EXPECT_EQ(state_.modelId, "K7310 ");
  item("sim:K79");
  EXPECT_EQ(state_.modelId, "K79");
  item("sim");
  EXPECT_EQ(state_.modelId, "");
}

TEST_F(ScopeReplies, ChannelSettingsGoToTheChannelsDisplay) {
  item("vda:00");
  item("vdb:00");
  item("vda:FF");
  item("vdb:7C");
  EXPECT_EQ(settings_, (Settings{{0, 0}, {1, 0}, {0, 255}, {1, 0x7C}}));
}

TEST_F(ScopeReplies, PositionMovesTheChannelsMarkerAndSlider) {
  const std::pair<const char*, int> cases[] = {{"00", 0}, {"15", 21}, {"16", 22}, {"3E", 62}, {"FF", 255}};
  for (int channel = 0; channel < 2; ++channel) {
    const int other = 1 - channel;
    for (const auto& [digits, byte] : cases) {
      const int otherTop = form_.posDV[other].top();
      const int otherValue = form_.sldPosV[other].value();
      item((channel == 0 ? "vpa:" : "vpb:") + std::string(digits));
      EXPECT_EQ(form_.posDV[channel].top(), (byte - 21) * 30 + 330);
      EXPECT_EQ(form_.sldPosV[channel].value(), byte);
      EXPECT_EQ(form_.posDV[other].top(), otherTop);
      EXPECT_EQ(form_.sldPosV[other].value(), otherValue);
    }
  }
  item("vpa:15");
  EXPECT_EQ(form_.posDV[0].top(), 330);
}

TEST_F(ScopeReplies, TimeBaseCodesShowTheirLabelOnBothPlaces) {
  for (int code = 0; code <= 20; ++code) {
    item("hdv:" + std::string(code < 16 ? "0" : "1") + "0123456789ABCDEF"[code & 15]);
    const std::string& label = state_.labels.hdvLbl[static_cast<std::size_t>(code)];
    EXPECT_FALSE(label.empty()) << code;
    EXPECT_EQ(form_.lblHd.caption(), label) << code;
    EXPECT_EQ(form_.lblSinf[2].caption(), label) << code;
  }
}

TEST_F(ScopeReplies, TimeBaseCodes21To25ShowNothing) {
  for (const char* text : {"hdv:15", "hdv:16", "hdv:17", "hdv:18", "hdv:19"}) {
    item("hdv:00");
    ASSERT_EQ(form_.lblHd.caption(), "1uS");
    item(text);
    EXPECT_EQ(form_.lblHd.caption(), "") << text;
    EXPECT_EQ(form_.lblSinf[2].caption(), "") << text;
  }
}

TEST_F(ScopeReplies, TimeBaseCodes26To31EndTheItemWithoutAChange) {
  item("hdv:49");
  for (const char* text : {"hdv:1A", "hdv:1B", "hdv:1C", "hdv:1D", "hdv:1E", "hdv:1F", "hdv:5A"}) {
    tests::RecordingView view;
    form_.setView(&view);
    item(text);
    EXPECT_TRUE(view.changes.empty()) << text;
    form_.setView(nullptr);
  }
  EXPECT_EQ(form_.lblHd.caption(), "1mS");
  EXPECT_EQ(form_.chkHat.value(), 1);
}

TEST_F(ScopeReplies, TimeBaseBit6IsTheAutoFlagAndBits5And7AreNot) {
  item("hdv:49");
  EXPECT_EQ(form_.chkHat.value(), 1);
  EXPECT_EQ(form_.chkHat.foreColor(), form::kRed);
  item("hdv:A9");
  EXPECT_EQ(form_.chkHat.value(), 0);
  EXPECT_EQ(form_.chkHat.foreColor(), form::kButtonText);
  EXPECT_EQ(form_.lblHd.caption(), "1mS");
}

TEST_F(ScopeReplies, HorizontalPositionMovesTheTriggerMarkerAndTheSlider) {
  const std::pair<const char*, int> cases[] = {
      {"hpo:00", 440}, {"hpo:02", 500}, {"hpo:80", 4280}, {"hpo:FF", 8090}};
  for (const auto& [text, left] : cases) {
    item(text);
    EXPECT_EQ(form_.markT.left(), left) << text;
  }
  EXPECT_EQ(form_.sldPosH.value(), 255);
  item("hpo:0A");
  EXPECT_EQ(form_.sldPosH.value(), 10);
}

TEST_F(ScopeReplies, LevelIsMeasuredFromTheSourcesMarker) {
  form_.posDV[0].setTop(1000);
  form_.posDV[1].setTop(2000);
  const int references[] = {1000, 2000, 0, 0};  // the last one with no source selected
  for (int source = 0; source < 4; ++source) {
    select(source);
    item("tlv:70");  // 16 steps up
    EXPECT_EQ(form_.posT.top(), std::max(200, 480 + references[source])) << source;
    EXPECT_EQ(form_.posT.visible(), source != 2) << source;
  }
}

TEST_F(ScopeReplies, LevelMarkerIsShownAgainAfterAnExternalSource) {
  select(2);
  item("tlv:80");
  ASSERT_FALSE(form_.posT.visible());
  select(0);
  item("tlv:80");
  EXPECT_TRUE(form_.posT.visible());
}

TEST_F(ScopeReplies, LevelMarkerIsMovedEvenWhileItIsHidden) {
  select(2);
  form_.posT.setTop(777);
  item("tlv:50");
  EXPECT_FALSE(form_.posT.visible());
  EXPECT_EQ(form_.posT.top(), 48 * 30);
}

TEST_F(ScopeReplies, LevelZeroIsHeldAtTheLowerClamp) {
  select(0);
  form_.posDV[0].setTop(330);
  item("tlv:00");  // 330 + 3840
  EXPECT_EQ(form_.posT.top(), 2900);
}

TEST_F(ScopeReplies, LevelMarkerStaysBetween200And2900) {
  struct ClampCase {
    int reference;
    const char* text;
    int top;
  };
  const ClampCase cases[] = {{200, "tlv:80", 200},   {199, "tlv:80", 200},   {201, "tlv:80", 201},
                             {2900, "tlv:80", 2900}, {2901, "tlv:80", 2900}, {2899, "tlv:80", 2899},
                             {1560, "tlv:FF", 200},  {230, "tlv:81", 200},   {2870, "tlv:7F", 2900}};
  select(0);
  for (const ClampCase& expected : cases) {
    form_.posDV[0].setTop(expected.reference);
    item(expected.text);
    EXPECT_EQ(form_.posT.top(), expected.top) << expected.reference << " " << expected.text;
  }
}

TEST_F(ScopeReplies, LevelMovesItsSliderUpsideDown) {
  const std::pair<const char*, int> cases[] = {
      {"tlv:00", 255}, {"tlv:FF", 0}, {"tlv:80", 127}, {"tlv:7F", 128}, {"tlv:BF", 64}};
  for (const auto& [text, value] : cases) {
    item(text);
    EXPECT_EQ(form_.trgLvl.value(), value) << text;
  }
}

TEST_F(ScopeReplies, TriggerBits0And1SelectTheSource) {
  const char* const captions[] = {"CHA", "CHB", "EXT"};
  for (int source = 0; source < 3; ++source) {
    item("trg:0" + std::to_string(source));
    EXPECT_EQ(form_.optTS.selected(), source);
    EXPECT_EQ(form_.lblSinf[4].caption(), captions[source]);
  }
}

TEST_F(ScopeReplies, TriggerSource3LeavesTheSourceAsItWas) {
  item("trg:01");
  item("trg:27");
  EXPECT_EQ(form_.optTS.selected(), 1);
  EXPECT_EQ(form_.lblSinf[4].caption(), "CHB");
  EXPECT_EQ(form_.cmdSlp.caption(), "-");
  EXPECT_EQ(form_.chkAt.value(), 1);
}

TEST_F(ScopeReplies, TriggerBit2IsTheSlope) {
  item("trg:04");
  EXPECT_EQ(form_.cmdSlp.caption(), "-");
  EXPECT_EQ(form_.lblSinf[3].caption(), "-");
  item("trg:FB");
  EXPECT_EQ(form_.cmdSlp.caption(), "+");
  EXPECT_EQ(form_.lblSinf[3].caption(), "+");
}

TEST_F(ScopeReplies, TriggerBit5IsTheAutoMode) {
  item("trg:20");
  EXPECT_EQ(form_.chkAt.value(), 1);
  EXPECT_EQ(form_.chkAt.foreColor(), form::kRed);
  EXPECT_EQ(form_.lblSinf[5].caption(), "Auto");
  item("trg:DF");
  EXPECT_EQ(form_.chkAt.value(), 0);
  EXPECT_EQ(form_.chkAt.foreColor(), form::kButtonText);
  EXPECT_EQ(form_.lblSinf[5].caption(), "Norm");
}

TEST_F(ScopeReplies, TriggerMovesTheLevelSliderOnlyWhileLevelsAreKeptInStep) {
  form_.trgLvl.setValue(99);
  item("trg:20");
  EXPECT_EQ(form_.trgLvl.value(), 99);
  state_.trgLevelSync = true;
  item("trg:20");
  EXPECT_EQ(form_.trgLvl.value(), 0xDF);
}

TEST_F(ScopeReplies, AReplyMovesTheControlsAndRaisesTheirEvents) {
  int events = 0;
  for (form::Slider* slider : {&form_.sldPosV[0], &form_.sldPosH, &form_.trgLvl}) {
    slider->onChange = [&] { ++events; };
  }
  form_.optTS[0].onClick = [&] { ++events; };
  reply("vpa:10,hpo:11,tlv:12,trg:00");
  EXPECT_EQ(events, 4);
  reply("vpa:10,hpo:11,tlv:12,trg:00");
  EXPECT_EQ(events, 4);
}

}  // namespace
}  // namespace vireon::protocol
