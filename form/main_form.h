#pragma once

#include "form/buttons.h"
#include "form/control_array.h"
#include "form/fields.h"
#include "form/grid.h"
#include "form/option_group.h"
#include "form/picture_box.h"
#include "form/ranges.h"
#include "form/status_bar.h"
#include "form/tab_control.h"
#include "form/timer.h"

namespace vireon::form {

// The main window, `frmMain`: its controls are the displayed state of the instrument.
// In arrays of two, 0 is channel A or "down" and 1 is channel B or "up"; `cmdTud` alone has 0 up, 1 down.
class MainForm : public Form {
 public:
  MainForm();

  // Frame of the window.
  TabControl SSTab1{*this, "SSTab1"};                 // 0 scope, 1 meter and logger
  StatusBar StatusBar1{*this, "StatusBar1"};          // 1 transient texts, 2 link state
  ProgressBar barWork{*this, "barWork"};              // how far a long work is
  Button cmdCancel{*this, "cmdCancel"};               // ends a long work
  ControlArray<Button, 2> cmdBttn{*this, "cmdBttn"};  // 0 connect, 1 exit
  ControlArray<Shape, 2> Txled{*this, "Txled"};       // 0 transmit, 1 receive
  Button cmdStart{*this, "cmdStart"};
  TextBox txtSTime{*this, "txtSTime"};  // sampling time, seconds
  Button cmdClock{*this, "cmdClock"};
  Button cmdSprint{*this, "cmdSprint"};
  Button cmdOpen{*this, "cmdOpen"};  // opens a saved file of any kind
  Timer tmrInt{*this, "tmrInt"};     // live poll
  Timer tmrCom{*this, "tmrCom"};     // serial answer time-out

  // The picture of tab 0 and the readings of tab 1.
  PictureBox picMscope{*this, "picMscope"};
  PictureBox picScope{*this, "picScope"};
  ControlArray<Label, 2> posDV{*this, "posDV"};
  Label posT{*this, "posT"};
  Label markT{*this, "markT"};
  ControlArray<Label, 6> lblSinf{*this, "lblSinf"};  // A, B, time base, slope, source, trigger mode
  ControlArray<Slider, 2> sldPosV{*this, "sldPosV"};
  Slider sldPosH{*this, "sldPosH"};
  Slider trgLvl{*this, "trgLvl"};
  PictureBox picDmm{*this, "picDmm"};
  Label dmmMrdg{*this, "dmmMrdg"};
  Label dmmMrge{*this, "dmmMrge"};
  OptionGroup<8> optFun{*this, "optFun"};
  ControlArray<Button, 3> mrgUD{*this, "mrgUD"};  // 0 down, 1 up, 2 auto
  CheckBox chkDmAt{*this, "chkDmAt"};
  CheckBox chkHold{*this, "chkHold"};

  // Scope panel.
  PictureBox panScon{*this, "panScon"};
  ControlArray<CheckBox, 2> chkVac{*this, "chkVac"};
  ControlArray<CheckBox, 2> chkVat{*this, "chkVat"};
  ControlArray<CheckBox, 2> chkVof{*this, "chkVof"};
  ControlArray<Button, 2> cmdVu{*this, "cmdVu"};
  ControlArray<Button, 2> cmdVd{*this, "cmdVd"};
  ControlArray<Label, 2> lblVd{*this, "lblVd"};
  ControlArray<Button, 2> cmdTud{*this, "cmdTud"};
  Label lblHd{*this, "lblHd"};
  CheckBox chkHat{*this, "chkHat"};
  OptionGroup<3> optTS{*this, "optTS"};
  Button cmdSlp{*this, "cmdSlp"};
  CheckBox chkAt{*this, "chkAt"};
  CheckBox chkSgl{*this, "chkSgl"};
  Label lblDmm{*this, "lblDmm"};
  ComboBox cmbFun{*this, "cmbFun"};
  CheckBox chkMhld{*this, "chkMhld"};
  Label panAfn{*this, "panAfn"};
  CheckBox chkMld{*this, "chkMld"};
  ControlArray<Button, 2> madUD{*this, "madUD"};
  TextBox txtMad{*this, "txtMad"};

  // Logger panel.
  PictureBox panDlog{*this, "panDlog"};
  ComboBox cmbDmod{*this, "cmbDmod"};
  Button cmdSetup{*this, "cmdSetup"};
  PictureBox picSet{*this, "picSet"};
  ControlArray<Label, 2> lblSet{*this, "lblSet"};
  ControlArray<TextBox, 2> txtSet{*this, "txtSet"};
  ControlArray<Button, 2> cmdSet{*this, "cmdSet"};
  ControlArray<PictureBox, 2> picSwin{*this, "picSwin"};  // 0 settings, 1 statistics
  ControlArray<Label, 4> lblSrdg{*this, "lblSrdg"};
  OptionGroup<2> optLog{*this, "optLog"};
  ControlArray<TextBox, 3> txtLog{*this, "txtLog"};
  PictureBox picStm{*this, "picStm"};
  Label lblStm{*this, "lblStm"};
  ControlArray<Button, 2> cmdSud{*this, "cmdSud"};
  ControlArray<Button, 2> cmdLog{*this, "cmdLog"};
  CheckBox chkLog0{*this, "chkLog0"};
  CheckBox chkLog1{*this, "chkLog1"};
  ControlArray<Label, 5> lblXrdg{*this, "lblXrdg"};
  ControlArray<Label, 5> lblYdg{*this, "lblYdg"};
  ControlArray<Button, 2> cmdSub{*this, "cmdSub"};
  CheckBox chkSub{*this, "chkSub"};
  Button mnuClrMem{*this, "mnuClrMem"};             // empties the instrument's memory
  ControlArray<Button, 2> mnuSmm{*this, "mnuSmm"};  // sample method, 0 time, 1 peak
  Label lblDttl{*this, "lblDttl"};
  Grid grdLog{*this, "grdLog"};
  PictureBox panTrd{*this, "panTrd"};
  PictureBox picTrd{*this, "picTrd"};
  ProgressBar barTrd{*this, "barTrd"};
  ControlArray<Label, 8> vdtrd{*this, "vdtrd"};  // 1 upper, 2 lower limit, 3 time, 7 offset

  // Files; 0 on the scope panel, 1 on the logger panel.
  ControlArray<TextBox, 2> txtFn{*this, "txtFn"};
  ControlArray<Button, 2> cmdSave{*this, "cmdSave"};
  ControlArray<Button, 2> cmdLoad{*this, "cmdLoad"};
  OptionGroup<2> optFmt{*this, "optFmt"};
  Button cmdLprt{*this, "cmdLprt"};

 private:
  void startFrame();
  void startScope();
  void startMeter();
  void startLogger();
};

}  // namespace vireon::form
