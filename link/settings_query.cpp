#include "link/connection_control.h"
#include "link/window_state.h"
#include "protocol/scoped_flag.h"
#include "protocol/vocabulary.h"

namespace vireon::link {

void ConnectionControl::initCmd(const ErrorRecord& failure) {
  if (!state_.ackSeen || link_.rxTimeout) {
    messages_.show({form_.caption(),
                    "Error #: " + std::to_string(failure.number) + "\r\nDescription : " +
                        failure.description + "\r\nPlease check the USB Cable and/or Power ON again.",
                    platform::MessageIcon::kNone, platform::MessageButtons::kOk});
    return;
  }
  form_.cmdBttn[0].setBackColor(form::kLightRed);
  beeper_.beep();
  std::string prepared;
  if (form_.SSTab1.tab() != 2) {
    {
      const protocol::ScopedFlag query(state_.initBusy);
      trans_usb(protocol::kQueryScope);
    }
    form_.SSTab1.setTab(0);
    for (form::Control* control : std::initializer_list<form::Control*>{&form_.cmdStart, &form_.SSTab1,
                                                                        &form_.picMscope, &form_.picScope}) {
      control->setEnabled(true);
    }
    form_.picDmm.setEnabled(false);
    switchSampling(form_, false);
    prepared = protocol::selectScopeFunction(form_.cmbFun.listIndex());
  }
  const protocol::ScopedFlag query(state_.initBusy);
  if (connected() && !prepared.empty()) {
    trans_usb(prepared);
  }
}

}  // namespace vireon::link
