#include "form/ranges.h"

#include <gtest/gtest.h>

#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

using tests::expectFault;
using tests::RecordingView;
using Names = std::vector<std::string>;

class SliderTest : public testing::Test {
 protected:
  SliderTest() {
    slider_.onChange = [this] { events_.push_back(slider_.value()); };
    form_.setView(&view_);
  }

  Form form_{"window"};
  Slider slider_{form_, "trgLvl"};
  RecordingView view_;
  std::vector<int> events_;
};

TEST_F(SliderTest, StartsAtZeroOfZeroTo255) {
  EXPECT_EQ(slider_.minimum(), 0);
  EXPECT_EQ(slider_.maximum(), 255);
  EXPECT_EQ(slider_.value(), 0);
}

TEST_F(SliderTest, ANewValueRaisesTheEventOnceAndTheSameOneNone) {
  for (const int value : {0, 255, 255, 64}) {
    slider_.setValue(value);
  }
  EXPECT_EQ(events_, (std::vector<int>{255, 64}));
  EXPECT_EQ(view_.changes, (Names{"trgLvl", "trgLvl"}));
}

TEST_F(SliderTest, BothEndsOfTheRangeAreValuesAndOneBeyondIsAFault) {
  slider_.setRange(10, 20);
  events_.clear();
  slider_.setValue(20);
  slider_.setValue(10);
  EXPECT_EQ(events_, (std::vector<int>{20, 10}));
  for (const int value : {9, 21, -1}) {
    expectFault(FaultKind::kPropertyValue, [&] { slider_.setValue(value); });
  }
  EXPECT_EQ(slider_.value(), 10);
  EXPECT_EQ(events_.size(), 2U);
}

TEST_F(SliderTest, ANarrowerRangeMovesTheValueToTheNearerEndWithoutAnEvent) {
  slider_.setValue(200);
  events_.clear();
  slider_.setRange(0, 120);
  EXPECT_EQ(slider_.value(), 120);
  slider_.setRange(130, 140);
  EXPECT_EQ(slider_.value(), 130);
  EXPECT_EQ(slider_.minimum(), 130);
  EXPECT_EQ(slider_.maximum(), 140);
  EXPECT_TRUE(events_.empty());
}

TEST_F(SliderTest, ARangeThatEndsBeforeItBeginsIsAFaultThatChangesNothing) {
  slider_.setValue(7);
  expectFault(FaultKind::kPropertyValue, [this] { slider_.setRange(10, 9); });
  EXPECT_EQ(slider_.minimum(), 0);
  EXPECT_EQ(slider_.maximum(), 255);
  EXPECT_EQ(slider_.value(), 7);
  slider_.setRange(9, 9);
  EXPECT_EQ(slider_.value(), 9);
}

TEST_F(SliderTest, TheSameRangeIsNotToldToTheView) {
  slider_.setRange(0, 255);
  EXPECT_EQ(view_.changes, Names{});
  slider_.setRange(0, 100);
  EXPECT_EQ(view_.changes, Names{"trgLvl"});
}

TEST(ProgressBar, TakesValuesOfItsRangeAndFaultsBeyond) {
  Form form("window");
  ProgressBar bar(form, "barTrd");
  bar.setRange(0, 120);
  RecordingView view;
  form.setView(&view);
  bar.setValue(120);
  bar.setValue(120);
  EXPECT_EQ(bar.value(), 120);
  EXPECT_EQ(view.changes, Names{"barTrd"});
  for (const int value : {-1, 121, 32767}) {
    expectFault(FaultKind::kPropertyValue, [&] { bar.setValue(value); });
  }
  EXPECT_EQ(bar.value(), 120);
}

}  // namespace
}  // namespace vireon::form
