#include "form/option_group.h"

#include <gtest/gtest.h>

#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

class OptionGroupTest : public testing::Test {
 protected:
  OptionGroupTest() {
    options_.onEach(&OptionButton::onClick, [this](int index) { events_.push_back(index); });
  }

  std::vector<bool> values() const {
    std::vector<bool> values;
    for (const OptionButton& option : options_) {
      values.push_back(option.value());
    }
    return values;
  }

  Form form_{"window"};
  OptionGroup<3> options_{form_, "optTS"};
  std::vector<int> events_;
};

TEST_F(OptionGroupTest, StartsWithNoneSelected) {
  EXPECT_EQ(values(), (std::vector<bool>{false, false, false}));
  EXPECT_EQ(options_.selected(), 3);
}

TEST_F(OptionGroupTest, SelectingOneClearsTheOthers) {
  for (int index = 0; index < 3; ++index) {
    options_[index].setValue(true);
    EXPECT_EQ(values(), (std::vector<bool>{index == 0, index == 1, index == 2}));
    EXPECT_EQ(options_.selected(), index);
  }
}

TEST_F(OptionGroupTest, OnlyTheOneThatBecomesSelectedRaisesItsEvent) {
  options_[0].setValue(true);
  options_[2].setValue(true);
  options_[2].setValue(true);
  options_[2].setValue(false);
  EXPECT_EQ(events_, (std::vector<int>{0, 2}));
  EXPECT_EQ(options_.selected(), 3);
}

TEST_F(OptionGroupTest, TheEventSeesTheGroupAlreadySwitched) {
  options_[0].setValue(true);
  int selected = -1;
  options_[1].onClick = [&] { selected = options_.selected(); };
  options_[1].setValue(true);
  EXPECT_EQ(selected, 1);
}

TEST_F(OptionGroupTest, TheViewIsToldOfTheTwoThatChanged) {
  options_[0].setValue(true);
  tests::RecordingView view;
  form_.setView(&view);
  options_[2].setValue(true);
  EXPECT_EQ(view.changes, (std::vector<std::string>{"optTS_0", "optTS_2"}));
  view.changes.clear();
  options_[2].setValue(true);
  EXPECT_TRUE(view.changes.empty());
}

TEST_F(OptionGroupTest, GroupsDoNotExcludeEachOther) {
  OptionGroup<2> other(form_, "optLog");
  options_[1].setValue(true);
  other[0].setValue(true);
  EXPECT_EQ(options_.selected(), 1);
  EXPECT_EQ(other.selected(), 0);
}

TEST_F(OptionGroupTest, AnIndexPastTheGroupIsABoundsFault) {
  tests::expectFault(FaultKind::kBounds, [this] { options_[3].setValue(true); });
  tests::expectFault(FaultKind::kBounds, [this] { options_[-1].setValue(true); });
}

}  // namespace
}  // namespace vireon::form
