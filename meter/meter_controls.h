#pragma once

#include "form/main_form.h"
#include "link/connection_control.h"
#include "platform/message_box.h"
#include "platform/wall_clock.h"
#include "protocol/instrument_state.h"
#include "protocol/logger_mode.h"

namespace vireon::meter {

// The handlers of the meter's controls on both tabs; the displays follow the replies. While state.uiBusy
// holds, no control whose value a reply can move sends anything; the plain buttons always do.
class MeterControls {
 public:
  MeterControls(form::MainForm& form, protocol::InstrumentState& state, link::ConnectionControl& link,
                const platform::WallClock& clock, platform::MessageBoxes& messages)
      : form_(form), state_(state), link_(link), clock_(clock), messages_(messages) {}

  // Makes the meter's controls call these handlers.
  void connectEvents();

  void optFun_Click(int index);
  void cmbDmod_Click();
  void cmbFun_Click();
  void mrgUD_Click(int index);  // 0 down, 1 up, 2 auto
  void chkDmAt_Click();
  void chkHold_Click();
  void chkMhld_Click();
  void cmdSetup_Click();
  void cmdSet_Click(int index);  // 0 set, 1 exit
  void cmdClock_Click();

 private:
  bool trendPlot() const { return form_.cmbDmod.listIndex() == protocol::kTrendPlot; }
  void sendReferenceOrLimits();

  form::MainForm& form_;
  protocol::InstrumentState& state_;
  link::ConnectionControl& link_;
  const platform::WallClock& clock_;
  platform::MessageBoxes& messages_;
};

}  // namespace vireon::meter
