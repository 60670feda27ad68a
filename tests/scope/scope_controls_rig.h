#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "link/connection_control.h"
#include "scope/scale_tables.h"
#include "scope/scope_controls.h"
#include "tests/fakes/fake_beeper.h"
#include "tests/fakes/fake_message_boxes.h"
#include "tests/fakes/fake_raw_hid.h"
#include "tests/fakes/fake_serial.h"

namespace vireon::tests {

using Commands = std::vector<std::string>;

// The scope's front panel on a USB link whose instrument acknowledges everything.
class ScopeControlsRig : public testing::Test {
 protected:
  ScopeControlsRig() {
    scope::initLbl(form_, state_);
    controls_.connectEvents();
  }

  // Commands that reached the instrument since the last call.
  Commands sent() {
    Commands sent;
    sent.swap(hid_.commands);
    return sent;
  }

  form::MainForm form_;
  protocol::InstrumentState state_;
  FakeRawHid hid_;
  FakeMessageBoxes messages_;
  FakeBeeper beeper_;
  link::LinkState link_;
  FakeSerial serial_;
  link::ConnectionControl connection_{
      form_, state_, link_, {hid_, messages_, beeper_, serial_.port, serial_.pump, serial_.view}};
  scope::ScopeControls controls_{form_, state_, connection_};
};

// One thing that a user does on the panel, from the state in which the window starts.
struct PanelAction {
  const char* control;
  std::function<void(form::MainForm&)> act;
  const char* command;
  int beeps;
};

inline std::vector<PanelAction> panelActions() {
  using Form = form::MainForm;
  return {
      {"chkVac_0", [](Form& f) { f.chkVac[0].setValue(1); }, "VDAac;VDA??", 1},
      {"chkVac_1", [](Form& f) { f.chkVac[1].setValue(1); }, "VDBac;VDB??", 1},
      {"chkVat_0", [](Form& f) { f.chkVat[0].setValue(1); }, "VDAat;VDA??", 1},
      {"chkVat_1", [](Form& f) { f.chkVat[1].setValue(1); }, "VDBat;VDB??", 1},
      {"chkVof_0", [](Form& f) { f.chkVof[0].setValue(1); }, "VDAon;VDA??", 1},
      {"chkVof_1", [](Form& f) { f.chkVof[1].setValue(1); }, "VDBon;VDB??", 1},
      {"chkHat", [](Form& f) { f.chkHat.setValue(1); }, "HDVat;HDV??", 0},
      {"chkAt", [](Form& f) { f.chkAt.setValue(1); }, "TRGat;TRG??", 1},
      {"chkSgl", [](Form& f) { f.chkSgl.setValue(1); }, "TRGso;STS??", 1},
      {"cmdVu_0", [](Form& f) { f.cmdVu[0].click(); }, "VDAup;VDA??", 1},
      {"cmdVu_1", [](Form& f) { f.cmdVu[1].click(); }, "VDBup;VDB??", 1},
      {"cmdVd_0", [](Form& f) { f.cmdVd[0].click(); }, "VDAdn;VDA??", 1},
      {"cmdVd_1", [](Form& f) { f.cmdVd[1].click(); }, "VDBdn;VDB??", 1},
      {"cmdTud_0", [](Form& f) { f.cmdTud[0].click(); }, "HDVup;HDV??", 1},
      {"cmdTud_1", [](Form& f) { f.cmdTud[1].click(); }, "HDVdn;HDV??", 1},
      {"cmdSlp", [](Form& f) { f.cmdSlp.click(); }, "TRGl+;TRG??", 1},
      {"optTS_0", [](Form& f) { f.optTS[0].setValue(true); }, "TRGsa;TRG??;TLV80;TLV??", 1},
      {"optTS_1", [](Form& f) { f.optTS[1].setValue(true); }, "TRGsb;TRG??;TLV80;TLV??", 1},
      {"optTS_2", [](Form& f) { f.optTS[2].setValue(true); }, "TRGse;TRG??;TLV80;TLV??", 1},
      {"sldPosH", [](Form& f) { f.sldPosH.setValue(128); }, "HPO80;HPO??", 1},
      {"sldPosV_0", [](Form& f) { f.sldPosV[0].setValue(200); }, "VPAC8;VPA??;TLV??", 1},
      {"sldPosV_1", [](Form& f) { f.sldPosV[1].setValue(200); }, "VPBC8;VPB??;TLV??", 1},
      {"trgLvl", [](Form& f) { f.trgLvl.setValue(64); }, "TLVBF;TLV??", 1},
  };
}

}  // namespace vireon::tests
