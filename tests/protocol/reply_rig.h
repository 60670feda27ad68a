#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "form/main_form.h"
#include "protocol/reply_interpreter.h"
#include "scope/scale_tables.h"
#include "tests/fakes/fake_beeper.h"

namespace vireon::tests {

// Puts a frame into the buffer as a link leaves it: STX, text, ETX; older bytes stay beyond.
inline void receive(protocol::InstrumentState& state, std::string_view text) {
  state.rxBuf[0] = 2;
  std::copy(text.begin(), text.end(), state.rxBuf.begin() + 1);
  if (text.size() + 1 < state.rxBuf.size()) {
    state.rxBuf[text.size() + 1] = 3;
  }
  state.rxLen = static_cast<int>(text.size());
}

// The interpreter over the real controls, their lists and labels filled; its effects are written down.
class ReplyRig : public testing::Test {
 protected:
  ReplyRig() {
    scope::initLbl(form_, state_);
    interpreter_.effects.dspVinf = [this](int channel, int setting) {
      settings_.emplace_back(channel, setting);
    };
    interpreter_.effects.setSubPan = [this](int mode) { subPans_.push_back(mode); };
    interpreter_.effects.setTabPan = [this] { tabPans_.push_back(form_.SSTab1.tab()); };
    interpreter_.effects.saveTrd = [this] { ++savedTrends_; };
  }

  void item(std::string_view text) { interpreter_.dspSinf(text); }

  void reply(std::string_view text) {
    receive(state_, text);
    interpreter_.dspRxd();
  }

  form::MainForm form_;
  protocol::InstrumentState state_;
  FakeBeeper beeper_;
  protocol::ReplyInterpreter interpreter_{form_, state_, beeper_};

  std::vector<std::pair<int, int>> settings_;  // calls of dspVinf: channel, setting byte
  std::vector<int> subPans_;                   // calls of setSubPan: mode
  std::vector<int> tabPans_;                   // calls of setTabPan: tab shown then
  int savedTrends_ = 0;
};

}  // namespace vireon::tests
