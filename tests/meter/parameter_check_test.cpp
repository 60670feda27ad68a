#include "meter/parameter_check.h"

#include <gtest/gtest.h>

#include "form/main_form.h"
#include "tests/fakes/fake_message_boxes.h"

namespace vireon::meter {
namespace {

class ParameterCheck : public testing::Test {
 protected:
  ParameterCheck() { form_.lblSrdg[1].setCaption("Sample Time(sec):"); }

  bool accepted() { return accepts(form_.txtLog[0], form_.lblSrdg[1], messages_); }

  bool accepted(std::string text) {
    form_.txtLog[0].setText(std::move(text));
    return accepted();
  }

  form::MainForm form_;
  tests::FakeMessageBoxes messages_;
};

TEST_F(ParameterCheck, TakesWhatTheInstrumentCanTell) {
  for (const char* text : {"00001", "-1.234mV", "1.5k\xB5", " 1 V ", "?", "\x80", "\xA0", "0"}) {
    EXPECT_TRUE(accepted(text)) << text;
  }
  EXPECT_EQ(messages_.count(), 0U);
}

TEST_F(ParameterCheck, RefusesWithOneMessageThatNamesTheBoxAndTheReason) {
  struct Row {
    std::string text;
    const char* message;
  };
  const Row rows[] = {
      {"", "\"Sample Time(sec)\" must not be empty."},
      {"   ", "\"Sample Time(sec)\" must not be empty."},
      {"1;GTL", "\"Sample Time(sec)\" must not contain \";\" or \",\"."},
      {"1,2", "\"Sample Time(sec)\" must not contain \";\" or \",\"."},
      {"1\x03", "\"Sample Time(sec)\" must not contain a control character."},
      {std::string(1, '\0'), "\"Sample Time(sec)\" must not contain a control character."},
      {"1\x1F", "\"Sample Time(sec)\" must not contain a control character."},
      {"1\t", "\"Sample Time(sec)\" must not contain a control character."},
      {"\x7F", "\"Sample Time(sec)\" must not contain a control character."},
      {"\x81", "\"Sample Time(sec)\" must not contain a control character."},
  };
  for (const Row& row : rows) {
    messages_.shown.clear();
    EXPECT_FALSE(accepted(row.text)) << row.text;
    ASSERT_EQ(messages_.count(), 1U) << row.text;
    EXPECT_EQ(messages_.lastText(), row.message);
    EXPECT_EQ(messages_.shown.back().icon, platform::MessageIcon::kExclamation);
    EXPECT_EQ(messages_.shown.back().buttons, platform::MessageButtons::kOk);
  }
}

TEST_F(ParameterCheck, RefusesALetterOutsideTheCodePageUntilItIsGone) {
  form_.txtLog[0].type("1\xCE\xA9");  // ohm
  EXPECT_FALSE(accepted());
  EXPECT_EQ(messages_.lastText(),
            "\"Sample Time(sec)\" contains a letter that the instrument does not know.");
  form_.txtLog[0].type("1?");
  EXPECT_TRUE(accepted());
  form_.txtLog[0].type("1\xCE\xA9");
  form_.txtLog[0].setText("1?");
  EXPECT_TRUE(accepted());
}

TEST_F(ParameterCheck, NamesABoxWithoutTheColonAndBlanksAtItsCaptionsEnd) {
  form_.lblSrdg[1].setCaption("Stop Address : ");
  EXPECT_FALSE(accepted(""));
  EXPECT_EQ(messages_.lastText(), "\"Stop Address\" must not be empty.");
}

TEST_F(ParameterCheck, NamesABoxInUtf8) {
  form_.lblSrdg[1].setCaption("\xB5V:");
  EXPECT_FALSE(accepted(""));
  EXPECT_EQ(messages_.lastText(), "\"\xC2\xB5V\" must not be empty.");
}

}  // namespace
}  // namespace vireon::meter
