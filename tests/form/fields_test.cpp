#include "form/fields.h"

#include <gtest/gtest.h>

#include "tests/form/expect_fault.h"
#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

using tests::expectFault;
using tests::RecordingView;
using Names = std::vector<std::string>;

TEST(Label, TellsTheViewOfANewPlaceAndNotOfTheSameOne) {
  Form form("window");
  Label label(form, "markT");
  RecordingView view;
  form.setView(&view);
  label.setLeft(0);
  label.setTop(0);
  EXPECT_EQ(view.changes, Names{});
  label.setLeft(500);
  EXPECT_EQ(view.changes, Names{"markT"});
  label.setTop(-300);
  label.setTop(-300);
  EXPECT_EQ(view.changes, (Names{"markT", "markT"}));
  EXPECT_EQ(label.left(), 500);
  EXPECT_EQ(label.top(), -300);
}

TEST(TextBox, ANewTextRaisesTheEventOnceAndTheSameOneNone) {
  Form form("window");
  TextBox box(form, "txtSTime");
  RecordingView view;
  form.setView(&view);
  Names seen;
  box.onChange = [&] { seen.push_back(box.text()); };
  box.setText("");
  box.setText("0.5");
  box.setText("0.5");
  box.setText("");
  EXPECT_EQ(seen, (Names{"0.5", ""}));
  EXPECT_EQ(view.changes, (Names{"txtSTime", "txtSTime"}));
}

TEST(TextBox, ReadOnlyIsAPropertyWithoutAnEvent) {
  Form form("window");
  TextBox box(form, "txtMad");
  RecordingView view;
  form.setView(&view);
  int events = 0;
  box.onChange = [&] { ++events; };
  EXPECT_FALSE(box.readOnly());
  box.setReadOnly(true);
  box.setReadOnly(true);
  EXPECT_TRUE(box.readOnly());
  EXPECT_EQ(view.changes, Names{"txtMad"});
  EXPECT_EQ(events, 0);
}

TEST(TextBox, KeyPressesAndMouseButtonsReachTheirHandlers) {
  Form form("window");
  TextBox box(form, "txtFn_0");
  box.keyPress(13);
  box.mouseDown();
  std::vector<int> keys;
  int presses = 0;
  box.onKeyPress = [&](int character) { keys.push_back(character); };
  box.onMouseDown = [&] { ++presses; };
  box.keyPress(13);
  box.keyPress('5');
  box.mouseDown();
  EXPECT_EQ(keys, (std::vector<int>{13, '5'}));
  EXPECT_EQ(presses, 1);
  EXPECT_EQ(box.text(), "");
}

TEST(TextBox, ATypedLetterOutsideTheCodePageLeavesTheTextIncomplete) {
  Form form("window");
  TextBox box(form, "txtLog_0");
  RecordingView view;
  form.setView(&view);
  int changes = 0;
  box.onChange = [&] { ++changes; };
  box.type("1.5\xCE\xA9");  // ohm
  EXPECT_EQ(box.text(), "1.5?");
  EXPECT_FALSE(box.complete());
  EXPECT_EQ(changes, 1);
  view.changes.clear();
  box.setText("1.5?");
  EXPECT_TRUE(box.complete());
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(view.changes, Names{"txtLog_0"});
}

TEST(TextBox, OtherLettersOutsideTheCodePageAreAnotherText) {
  Form form("window");
  TextBox box(form, "txtFn_0");
  int changes = 0;
  box.onChange = [&] { ++changes; };
  box.setUtf8("日本");
  box.type("中国");
  box.type("中国");
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(box.utf8(), "中国");
  EXPECT_EQ(box.text(), "??");
  EXPECT_FALSE(box.complete());
  box.setText("2\xB5V");
  EXPECT_EQ(box.utf8(), "2µV");
}

TEST(TextBox, TypedLettersAreBytesOfTheCodePage) {
  Form form("window");
  TextBox box(form, "txtLog_0");
  box.type("2\xC2\xB5V\xE2\x82\xAC");  // micro sign, euro sign
  EXPECT_EQ(box.text(), "2\xB5V\x80");
  EXPECT_TRUE(box.complete());
}

class ComboBoxTest : public testing::Test {
 protected:
  ComboBoxTest() {
    combo_.addItem("DCV");
    combo_.addItem("ACV");
    combo_.onClick = [this] { events_.push_back(combo_.listIndex()); };
    form_.setView(&view_);
  }

  Form form_{"window"};
  ComboBox combo_{form_, "cmbFun"};
  RecordingView view_;
  std::vector<int> events_;
};

TEST_F(ComboBoxTest, StartsWithNoItemShown) {
  EXPECT_EQ(combo_.listIndex(), -1);
  EXPECT_EQ(combo_.items(), (Names{"DCV", "ACV"}));
}

TEST_F(ComboBoxTest, ANewPositionRaisesTheEventOnceAndTheSameOneNone) {
  for (const int index : {-1, 1, 1, 0, -1}) {
    combo_.setListIndex(index);
  }
  EXPECT_EQ(events_, (std::vector<int>{1, 0, -1}));
  EXPECT_EQ(view_.changes, (Names{"cmbFun", "cmbFun", "cmbFun"}));
}

TEST_F(ComboBoxTest, APositionOutsideTheListIsAFaultThatChangesNothing) {
  combo_.setListIndex(1);
  events_.clear();
  for (const int index : {-2, 2, 15}) {
    expectFault(FaultKind::kPropertyValue, [&] { combo_.setListIndex(index); });
  }
  EXPECT_EQ(combo_.listIndex(), 1);
  EXPECT_TRUE(events_.empty());
}

TEST_F(ComboBoxTest, AnAddedItemExtendsTheRangeAndIsToldToTheView) {
  combo_.addItem("OHM");
  EXPECT_EQ(view_.changes, Names{"cmbFun"});
  combo_.setListIndex(2);
  EXPECT_EQ(combo_.listIndex(), 2);
}

TEST_F(ComboBoxTest, ClearingEmptiesTheListWithoutAnEvent) {
  combo_.setListIndex(1);
  events_.clear();
  view_.changes.clear();
  combo_.clear();
  EXPECT_TRUE(combo_.items().empty());
  EXPECT_EQ(combo_.listIndex(), -1);
  EXPECT_TRUE(events_.empty());
  EXPECT_EQ(view_.changes, Names{"cmbFun"});
  expectFault(FaultKind::kPropertyValue, [&] { combo_.setListIndex(0); });
}

}  // namespace
}  // namespace vireon::form
