#include "form/buttons.h"

#include <gtest/gtest.h>

#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

using tests::expectFault;
using tests::RecordingView;

TEST(Button, AClickRaisesItsEvent) {
  Form form("window");
  Button button(form, "cmdStart");
  int clicks = 0;
  button.onClick = [&] { ++clicks; };
  button.click();
  button.click();
  EXPECT_EQ(clicks, 2);
}

TEST(Button, ADisabledOneTakesNoClick) {
  Form form("window");
  Button button(form, "cmdStart");
  int clicks = 0;
  button.onClick = [&] { ++clicks; };
  button.setEnabled(false);
  button.click();
  EXPECT_EQ(clicks, 0);
}

TEST(Button, AClickWithoutAHandlerDoesNothing) {
  Form form("window");
  const Button button(form, "cmdStart");
  button.click();
  EXPECT_EQ(button.caption(), "");
}

TEST(CheckBox, StartsUnchecked) {
  Form form("window");
  const CheckBox box(form, "chkAt");
  EXPECT_EQ(box.value(), 0);
}

TEST(CheckBox, ANewValueRaisesTheEventOnceAndTheSameOneNone) {
  Form form("window");
  CheckBox box(form, "chkAt");
  std::vector<int> seen;
  box.onClick = [&] { seen.push_back(box.value()); };
  for (const int value : {0, 1, 1, 0, 0}) {
    box.setValue(value);
  }
  EXPECT_EQ(seen, (std::vector<int>{1, 0}));
}

TEST(CheckBox, ANewValueIsToldToTheViewBeforeTheEvent) {
  Form form("window");
  CheckBox box(form, "chkAt");
  RecordingView view;
  form.setView(&view);
  std::size_t toldBefore = 0;
  box.onClick = [&] { toldBefore = view.changes.size(); };
  box.setValue(1);
  box.setValue(1);
  EXPECT_EQ(view.changes, std::vector<std::string>{"chkAt"});
  EXPECT_EQ(toldBefore, 1U);
}

TEST(CheckBox, ValuesOtherThanZeroAndOneAreFaults) {
  Form form("window");
  CheckBox box(form, "chkAt");
  int events = 0;
  box.onClick = [&] { ++events; };
  for (const int value : {-1, 2, 255}) {
    expectFault(FaultKind::kPropertyValue, [&] { box.setValue(value); });
  }
  EXPECT_EQ(box.value(), 0);
  EXPECT_EQ(events, 0);
}

TEST(OptionButton, AloneItSelectsAndClears) {
  Form form("window");
  OptionButton option(form, "optAlone");
  int events = 0;
  option.onClick = [&] { ++events; };
  option.setValue(false);
  EXPECT_EQ(events, 0);
  option.setValue(true);
  EXPECT_TRUE(option.value());
  option.setValue(true);
  EXPECT_EQ(events, 1);
  option.setValue(false);
  EXPECT_FALSE(option.value());
  EXPECT_EQ(events, 1);
}

}  // namespace
}  // namespace vireon::form
