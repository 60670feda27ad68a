#pragma once

#include "form/main_form.h"
#include "link/connection_control.h"
#include "protocol/instrument_state.h"

namespace vireon::meter {

// Shows the panels of the present tab; a tab other than 0 and 1 leaves them alone.
void setTabPan(form::MainForm& form);

// Lays the logger panel out for a LoggerMode; another number hides both sub-windows.
// The set-up box is closed.
void setSubPan(form::MainForm& form, int mode);

// Brings the instrument into the mode of the tab that the user picks; stays silent under state.uiBusy.
void SSTab1_Switch(form::MainForm& form, const protocol::InstrumentState& state,
                   link::ConnectionControl& connection);

}  // namespace vireon::meter
