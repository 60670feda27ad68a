#include "form/main_form.h"

namespace vireon::form {
namespace {

constexpr int kMidScreen = 62;    // sample value and sample index at the middle of the picture
constexpr int kMidLevel = 127;    // slider value of the trigger level at the source's zero (128 XOR 255)
constexpr int kMarkerMid = 1560;  // twips; a marker's top when its trace's zero is at mid screen

}  // namespace

MainForm::MainForm() : Form("Vireon") {
  startFrame();
  startScope();
  startMeter();
  startLogger();
}

void MainForm::startFrame() {
  SSTab1.setCaptions({"Scope", "Meter"});
  cmdBttn[0].setCaption("Connect");
  cmdBttn[1].setCaption("Exit");
  cmdCancel.setCaption("Cancel");
  cmdCancel.setVisible(false);
  barWork.setVisible(false);
  cmdStart.setCaption("Start");
  txtSTime.setText("0.5");
  cmdClock.setCaption("Clock Set");
  cmdSprint.setCaption("Screen Print");
  cmdOpen.setCaption("Open");
  tmrInt.setInterval(500);
}

void MainForm::startScope() {
  posDV[0].setForeColor(kRed);
  posDV[1].setForeColor(kGreen);
  posT.setForeColor(kWhite);
  markT.setForeColor(kWhite);
  lblSinf[0].setForeColor(kRed);
  lblSinf[1].setForeColor(kGreen);
  for (int setting = 2; setting < lblSinf.size(); ++setting) {
    lblSinf[setting].setForeColor(kWhite);
  }
  for (Label& marker : posDV) {
    marker.setTop(kMarkerMid);
  }
  posT.setTop(kMarkerMid);
  markT.setCaption("T");
  markT.setLeft(30 * kMidScreen + 440);
  markT.setTop(kMarkerMid);
  for (Label* marker : {&posDV[0], &posDV[1], &posT, &markT}) {
    marker->setVisible(false);
  }
  for (Slider& slider : sldPosV) {
    slider.setValue(kMidScreen);
  }
  sldPosH.setValue(kMidScreen);
  trgLvl.setValue(kMidLevel);
  for (int channel = 0; channel < 2; ++channel) {
    chkVac[channel].setCaption("DC");
    chkVat[channel].setCaption("Auto");
    chkVof[channel].setCaption("OFF");
    txtFn[channel].setText("File Name");
    cmdSave[channel].setCaption("Save");
    cmdLoad[channel].setCaption("Load");
  }
  chkHat.setCaption("Auto");
  optTS[0].setCaption("CHA");
  optTS[1].setCaption("CHB");
  optTS[2].setCaption("EXT");
  chkAt.setCaption("Auto");
  chkSgl.setCaption("Single");
  chkMhld.setCaption("Hold");
  chkMld.setCaption("Memory");
  txtMad.setText("00");
  txtMad.setReadOnly(true);
}

void MainForm::startMeter() {
  const char* const functions[] = {"DCV", "ACV", "OHM", "BZ", "FRQ", "RPM", "P/W", "Dty"};
  for (int function = 0; function < optFun.size(); ++function) {
    optFun[function].setCaption(functions[function]);
  }
  mrgUD[2].setCaption("Auto");
  chkDmAt.setCaption("Auto");
  chkHold.setCaption("Hold");
  cmdSetup.setCaption("SetUp");
  lblSet[0].setCaption("Reference:");
  lblSet[1].setCaption("LO Limit:");
  txtSet[0].setText("-1.234mV");
  txtSet[1].setText("-010.0mV");
  cmdSet[0].setCaption("Set");
  cmdSet[1].setCaption("Exit");
}

void MainForm::startLogger() {
  chkLog0.setCaption("Recall");
  chkLog1.setCaption("Start");
  cmdLog[0].setCaption("Set");
  cmdLog[1].setCaption("Clear");
  cmdSub[0].setCaption("Reset");
  cmdSub[1].setCaption("Reset");
  chkSub.setCaption("Pause");
  mnuClrMem.setCaption("Clear Memory...");
  mnuSmm[0].setCaption("Sample Method: Time");
  mnuSmm[1].setCaption("Sample Method: Peak");
  lblDttl.setCaption(" DATA LOGGER ");
  optFmt[0].setCaption("txt");
  optFmt[1].setCaption("xls");
  optFmt[0].setValue(true);
  optLog[0].setValue(true);
  cmdLprt.setCaption("Print");
  grdLog.setRows(13);
  grdLog.setColumns(4);
  barTrd.setRange(0, 120);
  vdtrd[0].setCaption("V/Div");
  vdtrd[4].setCaption("H/Div");
  vdtrd[5].setCaption("0");
  vdtrd[6].setCaption("Offset");
}

}  // namespace vireon::form
