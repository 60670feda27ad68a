#include "form/control.h"

#include <gtest/gtest.h>

#include "form/buttons.h"
#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

using tests::RecordingView;
using Names = std::vector<std::string>;

TEST(Form, ListsItsControlsInTheOrderOfDeclaration) {
  Form form("window");
  const Button first(form, "cmdFirst");
  const Button second(form, "cmdSecond");
  ASSERT_EQ(form.controls().size(), 2U);
  EXPECT_EQ(form.controls()[0], &first);
  EXPECT_EQ(form.controls()[1], &second);
  EXPECT_EQ(form.controls()[1]->name(), "cmdSecond");
}

TEST(Form, ANewCaptionIsToldOnceAndTheSameOneIsNot) {
  Form form("window");
  int told = 0;
  form.onCaptionChanged = [&] { ++told; };
  form.setCaption("window");
  EXPECT_EQ(told, 0);
  form.setCaption("scope");
  form.setCaption("scope");
  EXPECT_EQ(told, 1);
  EXPECT_EQ(form.caption(), "scope");
}

TEST(Form, ACaptionChangesWithoutAListener) {
  Form form("window");
  form.setCaption("scope");
  EXPECT_EQ(form.caption(), "scope");
}

TEST(Control, StartsVisibleEnabledAndInTheDesktopsColours) {
  Form form("window");
  const Button button(form, "cmdStart");
  EXPECT_TRUE(button.visible());
  EXPECT_TRUE(button.enabled());
  EXPECT_EQ(button.caption(), "");
  EXPECT_EQ(button.foreColor(), kButtonText);
  EXPECT_EQ(button.backColor(), kButtonFace);
}

TEST(Control, TellsTheViewOfANewValueAndNotOfTheSameOne) {
  Form form("window");
  Button button(form, "cmdStart");
  Button other(form, "cmdOther");
  RecordingView view;
  form.setView(&view);
  const std::vector<std::pair<const char*, std::function<void()>>> assignments = {
      {"visible", [&] { button.setVisible(false); }},
      {"enabled", [&] { button.setEnabled(false); }},
      {"caption", [&] { button.setCaption("Stop"); }},
      {"fore colour", [&] { button.setForeColor(kRed); }},
      {"back colour", [&] { button.setBackColor(kYellow); }},
  };
  for (const auto& [property, assign] : assignments) {
    SCOPED_TRACE(property);
    view.changes.clear();
    assign();
    EXPECT_EQ(view.changes, Names{"cmdStart"});
    view.changes.clear();
    assign();
    EXPECT_EQ(view.changes, Names{});
  }
  EXPECT_FALSE(button.visible());
  EXPECT_FALSE(button.enabled());
  EXPECT_EQ(button.caption(), "Stop");
  EXPECT_EQ(button.foreColor(), kRed);
  EXPECT_EQ(button.backColor(), kYellow);
  EXPECT_TRUE(other.visible());
  EXPECT_TRUE(other.enabled());
}

TEST(Control, RefreshAsksTheViewForThisControlAlone) {
  Form form("window");
  const Button button(form, "cmdStart");
  const Button other(form, "cmdOther");
  RecordingView view;
  form.setView(&view);
  button.refresh();
  EXPECT_EQ(view.refreshed, Names{"cmdStart"});
  EXPECT_EQ(view.changes, Names{});
}

TEST(Control, WorksWithoutAView) {
  Form form("window");
  Button button(form, "cmdStart");
  button.setCaption("Stop");
  button.refresh();
  EXPECT_EQ(button.caption(), "Stop");
}

TEST(Control, TellsTheViewNoMoreOnceItIsTakenAway) {
  Form form("window");
  Button button(form, "cmdStart");
  RecordingView view;
  form.setView(&view);
  form.setView(nullptr);
  button.setCaption("Stop");
  button.refresh();
  EXPECT_EQ(view.changes, Names{});
  EXPECT_EQ(view.refreshed, Names{});
}

}  // namespace
}  // namespace vireon::form
