#include <gtest/gtest.h>

#include <set>

#include "tests/form/recording_view.h"
#include "tests/protocol/reply_rig.h"

namespace vireon::protocol {
namespace {

using Texts = std::vector<std::string>;

// Characters 5 on of an item in which every character tells its own position: "a" is 5, "b" is 6 and so on.
std::string ruler(std::size_t length) {
  const std::string alphabet = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789!$%&()*+-./";
  return alphabet.substr(0, length);
}

class MeterReplies : public tests::ReplyRig {
 protected:
  void showMode(int mode) {
    form_.SSTab1.setTab(1);
    form_.cmbDmod.setListIndex(mode);
  }

  Texts results() const {
    Texts texts;
    for (const form::Label& label : form_.lblYdg) {
      texts.push_back(label.caption());
    }
    return texts;
  }

  Texts parameters() const {
    Texts texts;
    for (const form::TextBox& box : form_.txtLog) {
      texts.push_back(box.text());
    }
    return texts;
  }
};

TEST_F(MeterReplies, ReadingOnTheScopeTabIsCharacters5To13) {
  item("drm:" + ruler(20));
  EXPECT_EQ(form_.lblDmm.caption(), "abcdefghi");
  EXPECT_EQ(form_.dmmMrdg.caption(), "");
  EXPECT_EQ(form_.dmmMrge.caption(), "");
}

TEST_F(MeterReplies, ReadingOnTheMeterTabIsSixCharactersAndAUnitOfFour) {
  form_.SSTab1.setTab(1);
  item("drm:" + ruler(20));
  EXPECT_EQ(form_.dmmMrdg.caption(), "abcdef");
  EXPECT_EQ(form_.dmmMrge.caption(), "ghij");
  EXPECT_EQ(form_.lblDmm.caption(), "");
}

TEST_F(MeterReplies, AShortReadingLeavesTheUnitEmpty) {
  form_.SSTab1.setTab(1);
  form_.dmmMrge.setCaption("mV");
  item("drm:-1.2");
  EXPECT_EQ(form_.dmmMrdg.caption(), "-1.2");
  EXPECT_EQ(form_.dmmMrge.caption(), "");
}

TEST_F(MeterReplies, ReadingOnAnyOtherTabChangesNothing) {
  form_.SSTab1.setTabs(3);
  form_.SSTab1.setTab(2);
  tests::RecordingView view;
  form_.setView(&view);
  item("drm:123456789");
  EXPECT_TRUE(view.changes.empty());
}

TEST_F(MeterReplies, ParametersOfTheDataLoggerAreAChoiceAndThreeFieldsOfFive) {
  showMode(0);
  item("dps:1" + ruler(24).substr(1));
  EXPECT_EQ(form_.optLog.selected(), 1);
  EXPECT_EQ(parameters(), (Texts{"cdefg", "ijklm", "opqrs"}));
  item("dps:0,00010,00001,00300");
  EXPECT_EQ(form_.optLog.selected(), 0);
  EXPECT_EQ(parameters(), (Texts{"00010", "00001", "00300"}));
}

TEST_F(MeterReplies, ShortParametersLeaveTheLaterFieldsEmpty) {
  showMode(0);
  item("dps:0,00010,00001,00300");
  item("dps:0,00020,12");
  EXPECT_EQ(parameters(), (Texts{"00020", "12", ""}));
  item("dps:0");
  EXPECT_EQ(parameters(), (Texts{"", "", ""}));
}

TEST_F(MeterReplies, AChoiceThatIsNoneEndsTheParametersBeforeTheirFields) {
  for (const int mode : {0, 4}) {
    showMode(mode);
    form_.optLog[1].setValue(true);
    form_.txtLog[0].setText("before");
    for (const char* text :
         {"dps:2,00010,00001,00300", "dps:9,00010", "dps:x,00010", "dps: ,00010", "dps:"}) {
      item(text);
      EXPECT_EQ(form_.optLog.selected(), 1) << text;
      EXPECT_EQ(form_.txtLog[0].text(), "before") << text;
    }
  }
}

TEST_F(MeterReplies, ParametersChangeNothingInRecordModeOrWithoutAMode) {
  for (const int mode : {1, -1}) {
    showMode(mode);
    form_.picSet.setVisible(true);
    form_.picSwin[0].setVisible(true);
    tests::RecordingView view;
    form_.setView(&view);
    item("dps:0,00010,00001,00300,5");
    EXPECT_TRUE(view.changes.empty()) << mode;
    form_.setView(nullptr);
  }
}

TEST_F(MeterReplies, TheReferenceIsTakenWhileTheSetUpBoxIsOpen) {
  showMode(2);
  form_.picSet.setVisible(false);
  item("dps:" + ruler(30));
  EXPECT_EQ(form_.txtSet[0].text(), "-1.234mV");
  form_.picSet.setVisible(true);
  item("dps:" + ruler(30));
  EXPECT_EQ(form_.txtSet[0].text(), "abcdefgh");
  EXPECT_EQ(form_.txtSet[1].text(), "-010.0mV");
}

TEST_F(MeterReplies, TheLimitsAreTakenWhileTheSettingsWindowOrTheSetUpBoxIsShown) {
  showMode(3);
  form_.picSwin[1].setVisible(true);
  for (const bool settings : {false, true}) {
    for (const bool setUp : {false, true}) {
      form_.picSwin[0].setVisible(settings);
      form_.picSet.setVisible(setUp);
      form_.txtSet[0].setText("before");
      form_.txtSet[1].setText("before");
      item("dps:" + ruler(30));
      const bool taken = settings || setUp;
      EXPECT_EQ(form_.txtSet[0].text(), taken ? "abcdefgh" : "before") << settings << setUp;
      EXPECT_EQ(form_.txtSet[1].text(), taken ? "jklmnopq" : "before") << settings << setUp;
    }
  }
}

TEST_F(MeterReplies, ParametersTouchTheFieldsOfTheirModeAlone) {
  const Texts fields[] = {
      {"optLog_0", "optLog_1", "txtLog_0", "txtLog_1", "txtLog_2"},
      {},
      {"txtSet_0"},
      {"txtSet_0", "txtSet_1"},
      {"lblStm", "optLog_0", "optLog_1", "txtLog_0", "txtLog_1", "vdtrd_1", "vdtrd_2", "vdtrd_3", "vdtrd_7"}};
  form_.picSet.setVisible(true);
  form_.picSwin[0].setVisible(true);
  for (int mode = 0; mode < 5; ++mode) {
    showMode(mode);
    form_.optLog[mode == 0 ? 0 : 1].setValue(true);
    tests::RecordingView view;
    form_.setView(&view);
    item("dps:" + std::string(mode == 0 ? "1" : "0") + ",00" + std::to_string(mode) + "34567,01234567,5");
    const std::set<std::string> changed(view.changes.begin(), view.changes.end());
    EXPECT_EQ(Texts(changed.begin(), changed.end()), fields[mode]) << mode;
    form_.setView(nullptr);
  }
}

TEST_F(MeterReplies, TrendParametersAreCopiedToTheScale) {
  showMode(4);
  item("dps:1, 10.00  ,   2.5 V,3");
  EXPECT_EQ(form_.optLog.selected(), 1);
  EXPECT_EQ(form_.txtLog[0].text(), "10.00");
  EXPECT_EQ(form_.vdtrd[7].caption(), "10.00");
  EXPECT_EQ(form_.txtLog[1].text(), "2.5 V");
  EXPECT_EQ(form_.vdtrd[1].caption(), "2.5 V");
  EXPECT_EQ(form_.vdtrd[2].caption(), "2.5 V");
  EXPECT_EQ(form_.lblStm.caption(), "2Min");
  EXPECT_EQ(form_.vdtrd[3].caption(), "2Min");
}

TEST_F(MeterReplies, TrendParametersAreCharacters7To14And16To23And25) {
  showMode(4);
  item("dps:0" + ruler(20).substr(1) + "4xyz");
  EXPECT_EQ(form_.txtLog[0].text(), "cdefghij");
  EXPECT_EQ(form_.txtLog[1].text(), "lmnopqrs");
  EXPECT_EQ(form_.lblStm.caption(), "5Min");
}

TEST_F(MeterReplies, SpanCodesBelow13ShowTheirLabel) {
  const char* const labels[] = {"20Sec", "40Sec", "1Min",  "2Min",  "5Min",   "10Min", "20Min",
                                "50Min", "1Hour", "2Hour", "5Hour", "10Hour", ""};
  showMode(4);
  for (std::size_t code = 0; code < 13; ++code) {
    item("dps:0,00000000,00000000," + std::string(1, "0123456789ABC"[code]));
    EXPECT_EQ(form_.lblStm.caption(), labels[code]);
    EXPECT_EQ(form_.vdtrd[3].caption(), labels[code]);
    EXPECT_EQ(state_.labels.trdSpan, static_cast<int>(std::min<std::size_t>(code, 11)));
  }
}

TEST_F(MeterReplies, SpanCodesFrom13OnAndNoDigitsLeaveTheLabel) {
  showMode(4);
  item("dps:0,00000000,00000000,5");
  for (const char* span : {"D", "E", "f", "G", " ", ""}) {
    item("dps:0,aaaaaaaa,bbbbbbbb," + std::string(span));
    EXPECT_EQ(form_.lblStm.caption(), "10Min") << span;
    EXPECT_EQ(form_.vdtrd[3].caption(), "10Min") << span;
    EXPECT_EQ(form_.txtLog[0].text(), "aaaaaaaa") << span;
  }
}

TEST_F(MeterReplies, ResultsAreFiveAdjacentFieldsOfTheMode) {
  const std::string text = ruler(66);
  const std::vector<std::vector<std::pair<std::size_t, std::size_t>>> fields = {
      {{5, 21}, {22, 38}, {39, 55}, {56, 61}, {62, 69}},
      {{5, 12}, {13, 20}, {21, 27}, {28, 34}, {35, 42}},
      {{5, 12}, {13, 20}, {21, 28}, {29, 34}, {35, 42}},
  };
  for (int mode = 1; mode <= 3; ++mode) {
    showMode(mode);
    item("drp:" + text);
    Texts expected;
    for (const auto& [first, last] : fields[static_cast<std::size_t>(mode) - 1]) {
      expected.push_back(text.substr(first - 5, last - first + 1));
    }
    EXPECT_EQ(results(), expected) << mode;
  }
}

TEST_F(MeterReplies, ShortResultsLeaveTheLaterFieldsEmpty) {
  showMode(2);
  item("drp:" + ruler(66));
  item("drp:-bcdefghij");
  EXPECT_EQ(results(), (Texts{"-bcdefgh", "ij", "", "", ""}));
}

TEST_F(MeterReplies, ResultsChangeNothingInOtherModesAndOnOtherTabs) {
  for (const int mode : {-1, 0, 4}) {
    for (form::Label& label : form_.lblYdg) {
      label.setCaption("old");
    }
    showMode(mode);
    item("drp:" + ruler(66));
    EXPECT_EQ(results(), Texts(5, "old")) << mode;
  }
  for (form::Label& label : form_.lblYdg) {
    label.setCaption("");
  }
  showMode(1);
  form_.SSTab1.setTab(0);
  item("drp:" + ruler(66));
  EXPECT_EQ(results(), Texts(5));
  form_.SSTab1.setTabs(3);
  form_.SSTab1.setTab(2);
  item("drp:" + ruler(66));
  EXPECT_EQ(results(), Texts(5));
}

TEST_F(MeterReplies, RangeBit3IsTheAutoFlag) {
  form_.SSTab1.setTab(1);
  item("drg:08");
  EXPECT_EQ(form_.chkDmAt.value(), 1);
  EXPECT_EQ(form_.chkDmAt.foreColor(), form::kRed);
  item("drg:F7");
  EXPECT_EQ(form_.chkDmAt.value(), 0);
  EXPECT_EQ(form_.chkDmAt.foreColor(), form::kButtonText);
}

TEST_F(MeterReplies, RangeCountsOnTheMeterTabAlone) {
  item("drg:08");
  EXPECT_EQ(form_.chkDmAt.value(), 0);
  form_.SSTab1.setTabs(3);
  form_.SSTab1.setTab(2);
  item("drg:08");
  EXPECT_EQ(form_.chkDmAt.value(), 0);
  EXPECT_EQ(form_.chkDmAt.foreColor(), form::kButtonText);
}

}  // namespace
}  // namespace vireon::protocol
