#include "form/tab_control.h"

#include <gtest/gtest.h>

#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

using tests::expectFault;
using Names = std::vector<std::string>;

class TabControlTest : public testing::Test {
 protected:
  TabControlTest() {
    tabs_.setCaptions({"Scope", "Meter"});
    tabs_.onSwitch = [this] { events_.push_back(tabs_.tab()); };
    form_.setView(&view_);
  }

  Form form_{"window"};
  TabControl tabs_{form_, "SSTab1"};
  tests::RecordingView view_;
  std::vector<int> events_;
};

TEST_F(TabControlTest, AStripStartsWithOneTabShown) {
  const TabControl strip(form_, "other");
  EXPECT_EQ(strip.tabs(), 1);
  EXPECT_EQ(strip.tab(), 0);
}

TEST_F(TabControlTest, ANewTabRaisesTheEventOnceAndTheSameOneNone) {
  for (const int tab : {0, 1, 1, 0}) {
    tabs_.setTab(tab);
  }
  EXPECT_EQ(events_, (std::vector<int>{1, 0}));
  EXPECT_EQ(view_.changes, (Names{"SSTab1", "SSTab1"}));
}

TEST_F(TabControlTest, ATabThatThereIsNotIsAFaultThatChangesNothing) {
  tabs_.setTab(1);
  events_.clear();
  for (const int tab : {-1, 2, 99}) {
    expectFault(FaultKind::kPropertyValue, [&] { tabs_.setTab(tab); });
  }
  EXPECT_EQ(tabs_.tab(), 1);
  EXPECT_TRUE(events_.empty());
}

TEST_F(TabControlTest, CaptionsMakeTheirNumberOfTabs) {
  EXPECT_EQ(tabs_.tabs(), 2);
  EXPECT_EQ(tabs_.captions(), (Names{"Scope", "Meter"}));
  tabs_.setCaptions({"A", "B", "C"});
  EXPECT_EQ(tabs_.tabs(), 3);
  tabs_.setTab(2);
  EXPECT_EQ(tabs_.tab(), 2);
  EXPECT_FALSE(view_.changes.empty());
}

TEST_F(TabControlTest, FewerCaptionsLeaveACutOffTabToo) {
  tabs_.setTab(1);
  events_.clear();
  tabs_.setCaptions({"Meter"});
  EXPECT_EQ(tabs_.tab(), 0);
  EXPECT_TRUE(events_.empty());
}

TEST_F(TabControlTest, FewerTabsKeepTheFirstAndLeaveACutOffOneWithoutAnEvent) {
  tabs_.setTab(1);
  events_.clear();
  view_.changes.clear();
  tabs_.setTabs(1);
  EXPECT_EQ(tabs_.captions(), Names{"Scope"});
  EXPECT_EQ(tabs_.tab(), 0);
  EXPECT_TRUE(events_.empty());
  EXPECT_EQ(view_.changes, Names{"SSTab1"});
  expectFault(FaultKind::kPropertyValue, [&] { tabs_.setTab(1); });
}

TEST_F(TabControlTest, FewerTabsKeepAShownOneThatStays) {
  tabs_.setTabs(3);
  tabs_.setTab(1);
  tabs_.setTabs(2);
  EXPECT_EQ(tabs_.tab(), 1);
}

TEST_F(TabControlTest, MoreTabsComeWithoutACaption) {
  tabs_.setTabs(3);
  EXPECT_EQ(tabs_.captions(), (Names{"Scope", "Meter", ""}));
}

TEST_F(TabControlTest, FewerThanOneTabIsAFault) {
  expectFault(FaultKind::kPropertyValue, [&] { tabs_.setTabs(0); });
  EXPECT_EQ(tabs_.tabs(), 2);
}

TEST_F(TabControlTest, AStripWithoutATabIsAFaultThatChangesNothing) {
  expectFault(FaultKind::kPropertyValue, [this] { tabs_.setCaptions({}); });
  EXPECT_EQ(tabs_.captions(), (Names{"Scope", "Meter"}));
}

}  // namespace
}  // namespace vireon::form
