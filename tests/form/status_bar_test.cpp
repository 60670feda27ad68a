#include "form/status_bar.h"

#include <gtest/gtest.h>

#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

using tests::expectFault;
using Names = std::vector<std::string>;

class StatusBarTest : public testing::Test {
 protected:
  StatusBarTest() { form_.setView(&view_); }

  Form form_{"window"};
  StatusBar bar_{form_, "StatusBar1"};
  tests::RecordingView view_;
};

TEST_F(StatusBarTest, PanelsStartEmpty) {
  for (int panel = 1; panel <= StatusBar::kPanels; ++panel) {
    EXPECT_EQ(bar_.panel(panel), "");
    EXPECT_EQ(bar_.toolTip(panel), "");
  }
}

TEST_F(StatusBarTest, EachPanelHoldsItsOwnTextAndToolTip) {
  bar_.setPanel(1, "Please wait");
  bar_.setPanel(2, "Connected");
  bar_.setToolTip(1, "first");
  bar_.setToolTip(2, "second");
  EXPECT_EQ(bar_.panel(1), "Please wait");
  EXPECT_EQ(bar_.panel(2), "Connected");
  EXPECT_EQ(bar_.toolTip(1), "first");
  EXPECT_EQ(bar_.toolTip(2), "second");
  EXPECT_EQ(view_.changes, Names(4, "StatusBar1"));
}

TEST_F(StatusBarTest, TheSameTextIsNotToldToTheView) {
  bar_.setPanel(2, "Connected");
  bar_.setToolTip(2, "second");
  view_.changes.clear();
  bar_.setPanel(2, "Connected");
  bar_.setToolTip(2, "second");
  EXPECT_EQ(view_.changes, Names{});
}

TEST_F(StatusBarTest, PanelsCountFromOneToTwoAndOthersAreBoundsFaults) {
  for (const int panel : {-1, 0, 3}) {
    expectFault(FaultKind::kBounds, [&] { bar_.setPanel(panel, "text"); });
    expectFault(FaultKind::kBounds, [&] { bar_.setToolTip(panel, "text"); });
    expectFault(FaultKind::kBounds, [&] { static_cast<void>(bar_.panel(panel)); });
    expectFault(FaultKind::kBounds, [&] { static_cast<void>(bar_.toolTip(panel)); });
  }
}

}  // namespace
}  // namespace vireon::form
