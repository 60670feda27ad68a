#include "tests/soak/habits.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "tests/soak/widget_acts.h"

namespace vireon::soak {
namespace {

using Habit = std::vector<std::string>;

// By the names of the widgets; what cannot be used when its turn comes is left out.
const std::array<Habit, 5>& meterHabits() {
  static const std::array<Habit, 5> habits{{
      {"SSTab1", "cmdSetup", "txtSet_0", "txtSet_1", "cmdSet_0", "cmdSet_1"},
      {"SSTab1", "optFun_1", "chkLog1", "cmdStart", "chkLog1", "chkLog0"},
      {"SSTab1", "cmbDmod", "cmdSud_0", "cmdSud_1", "chkLog1", "cmdSub_0", "cmdSub_1", "chkSub"},
      {"SSTab1", "txtLog_0", "txtLog_1", "cmdLog_0", "chkLog1"},
      {"SSTab1", "menuMemory", "cmdLog_1", "chkLog0"},
  }};
  return habits;
}

const std::array<Habit, 5>& fileHabits() {
  static const std::array<Habit, 5> habits{{
      {"SSTab1", "txtFn_0", "cmdStart", "cmdSave_0", "cmdSave_0", "cmdLoad_0"},
      {"SSTab1", "chkLog0", "txtFn_1", "optFmt_0", "cmdSave_1", "cmdLoad_1"},
      {"SSTab1", "chkLog0", "optFmt_1", "txtFn_1", "cmdSave_1", "cmdLoad_1"},
      {"cmdOpen", "cmdSave_1", "cmdSave_0", "cmdLprt"},
      {"cmdSprint"},
  }};
  return habits;
}

const std::array<Habit, 3>& linkHabits() {
  static const std::array<Habit, 3> habits{{
      {"txtSTime", "cmdStart", "cmdVu_0", "chkVof_0"},
      {"SSTab1", "chkLog0"},
      {"chkMld", "madUD_1", "chkMld", "cmbFun"},
  }};
  return habits;
}

template <class Habits>
void append(Stage& stage, Dice& dice, const Habits& habits) {
  const Habit& habit = dice.pick(habits);
  stage.wishes.insert(stage.wishes.end(), habit.begin(), habit.end());
}

}  // namespace

void takeUp(Stage& stage, Dice& dice) {
  stage.log.note("sets out");
  if (dice.oneIn(2)) {
    append(stage, dice, meterHabits());
  } else {
    takeUpFiles(stage, dice);
  }
}

void takeUpFiles(Stage& stage, Dice& dice) {
  append(stage, dice, fileHabits());
}

void takeUpLink(Stage& stage, Dice& dice) {
  append(stage, dice, linkHabits());
}

QWidget* wanted(Stage& stage, const std::vector<QWidget*>& usable) {
  while (!stage.wishes.empty()) {
    const std::string name = stage.wishes.front();
    stage.wishes.pop_front();
    const auto found = std::find_if(usable.begin(), usable.end(),
                                    [&](const QWidget* widget) { return nameOf(*widget) == name; });
    if (found != usable.end()) {
      return *found;
    }
  }
  return nullptr;
}

}  // namespace vireon::soak
