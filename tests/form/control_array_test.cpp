#include "form/control_array.h"

#include <gtest/gtest.h>

#include "form/buttons.h"
#include "tests/form/expect_fault.h"

namespace vireon::form {
namespace {

TEST(ControlArray, ElementsBearTheNameAndTheirIndex) {
  Form form("window");
  const ControlArray<Button, 3> buttons(form, "mrgUD");
  EXPECT_EQ(buttons.size(), 3);
  std::vector<std::string> names;
  for (const Button& button : buttons) {
    names.push_back(button.name());
  }
  EXPECT_EQ(names, (std::vector<std::string>{"mrgUD_0", "mrgUD_1", "mrgUD_2"}));
  EXPECT_EQ(form.controls().size(), 3U);
  EXPECT_EQ(form.controls()[1], &buttons[1]);
}

TEST(ControlArray, AnIndexOutsideIsABoundsFault) {
  Form form("window");
  ControlArray<Button, 2> buttons(form, "cmdVu");
  const auto& constant = buttons;
  for (const int index : {-1, 2, 1000}) {
    tests::expectFault(FaultKind::kBounds, [&] { buttons[index].click(); });
    tests::expectFault(FaultKind::kBounds, [&] { constant[index].click(); });
  }
}

TEST(ControlArray, OnEachGivesEveryElementItsOwnIndex) {
  Form form("window");
  ControlArray<Button, 3> buttons(form, "mrgUD");
  std::vector<int> clicked;
  buttons.onEach(&Button::onClick, [&](int index) { clicked.push_back(index); });
  for (const Button& button : buttons) {
    button.click();
  }
  EXPECT_EQ(clicked, (std::vector<int>{0, 1, 2}));
}

}  // namespace
}  // namespace vireon::form
