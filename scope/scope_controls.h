#pragma once

#include <string_view>

#include "form/main_form.h"
#include "link/connection_control.h"
#include "protocol/instrument_state.h"

namespace vireon::scope {

// The handlers of the scope's front panel. Each sends one setting with the query that reads it back; the
// panel follows the reply. While state.uiBusy or the memory recall holds, they do nothing.
class ScopeControls {
 public:
  ScopeControls(form::MainForm& form, protocol::InstrumentState& state, link::ConnectionControl& link)
      : form_(form), state_(state), link_(link) {}

  // Makes the controls of the panel call these handlers.
  void connectEvents();

  // Channel handlers: 0 is A, 1 is B.
  void chkVac_Click(int index);
  void chkVat_Click(int index);
  void chkVof_Click(int index);
  void cmdVu_Click(int index);
  void cmdVd_Click(int index);
  void sldPosV_Change(int index);

  void chkHat_Click();
  void chkAt_Click();
  void chkSgl_Click();
  void cmdTud_Click(int index);  // 0 up, 1 down
  void cmdSlp_Click();
  void optTS_Click(int index);  // 0 channel A, 1 channel B, 2 external
  void sldPosH_Change();
  void trgLvl_Change();

  // Steps the span of the trend plot, 0 shorter, 1 longer; sends nothing and has no guard.
  void cmdSud_Click(int index);

 private:
  bool blocked() const { return state_.uiBusy || form_.chkMld.value() == 1; }
  void sendChannel(int index, std::string_view action);

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  link::ConnectionControl& link_;
};

}  // namespace vireon::scope
