#include "form/main_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vireon::form {
namespace {

using Texts = std::vector<std::string>;

template <class Array>
Texts captionsOf(const Array& array) {
  Texts captions;
  for (const auto& element : array) {
    captions.push_back(element.caption());
  }
  return captions;
}

template <class Array>
Texts textsOf(const Array& array) {
  Texts texts;
  for (const auto& element : array) {
    texts.push_back(element.text());
  }
  return texts;
}

TEST(MainForm, EveryNameOccursOnce) {
  const MainForm form;
  std::set<std::string> names;
  for (const Control* control : form.controls()) {
    EXPECT_TRUE(names.insert(control->name()).second) << control->name();
  }
  EXPECT_EQ(names.size(), form.controls().size());
}

// A letter, then letters and digits, then in arrays "_" and an index from 0 to 7.
bool isFormName(std::string_view name) {
  if (const std::size_t mark = name.find('_'); mark != std::string_view::npos) {
    const std::string_view index = name.substr(mark + 1);
    if (index.size() != 1 || index[0] < '0' || index[0] > '7') {
      return false;
    }
    name = name.substr(0, mark);
  }
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  return !name.empty() && isLetter(name[0]) &&
         std::all_of(name.begin(), name.end(), [&](char c) { return isLetter(c) || (c >= '0' && c <= '9'); });
}

TEST(MainForm, NamesAreFormNamesWithAnIndexInArraysAlone) {
  const MainForm form;
  for (const Control* control : form.controls()) {
    EXPECT_TRUE(isFormName(control->name())) << control->name();
  }
}

struct ArraySize {
  const char* name;
  int size;
};

TEST(MainForm, ArraysCountFromZeroWithoutAGap) {
  const ArraySize arrays[] = {{"cmdBttn", 2}, {"Txled", 2},   {"posDV", 2},  {"lblSinf", 6}, {"sldPosV", 2},
                              {"optFun", 8},  {"mrgUD", 3},   {"chkVac", 2}, {"chkVat", 2},  {"chkVof", 2},
                              {"cmdVu", 2},   {"cmdVd", 2},   {"lblVd", 2},  {"cmdTud", 2},  {"optTS", 3},
                              {"madUD", 2},   {"lblSet", 2},  {"txtSet", 2}, {"cmdSet", 2},  {"picSwin", 2},
                              {"lblSrdg", 4}, {"optLog", 2},  {"txtLog", 3}, {"cmdSud", 2},  {"cmdLog", 2},
                              {"lblXrdg", 5}, {"lblYdg", 5},  {"cmdSub", 2}, {"vdtrd", 8},   {"txtFn", 2},
                              {"cmdSave", 2}, {"cmdLoad", 2}, {"optFmt", 2}, {"mnuSmm", 2}};
  const MainForm form;
  std::set<std::string> names;
  for (const Control* control : form.controls()) {
    names.insert(control->name());
  }
  std::size_t elements = 0;
  for (const ArraySize& array : arrays) {
    for (int index = 0; index < array.size; ++index) {
      EXPECT_EQ(names.count(array.name + std::string("_") + std::to_string(index)), 1U) << array.name;
    }
    EXPECT_EQ(names.count(array.name), 0U) << array.name;
    elements += static_cast<std::size_t>(array.size);
  }
  EXPECT_EQ(static_cast<std::size_t>(
                std::count_if(names.begin(), names.end(),
                              [](const std::string& name) { return name.find('_') != std::string::npos; })),
            elements);
}

TEST(MainForm, SingleControlsBearTheirFormNames) {
  const MainForm form;
  Texts names;
  for (const Control* control : form.controls()) {
    if (control->name().find('_') == std::string::npos) {
      names.push_back(control->name());
    }
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(
      names,
      (Texts{"SSTab1",    "StatusBar1", "barTrd",  "barWork", "chkAt",    "chkDmAt", "chkHat",    "chkHold",
             "chkLog0",   "chkLog1",    "chkMhld", "chkMld",  "chkSgl",   "chkSub",  "cmbDmod",   "cmbFun",
             "cmdCancel", "cmdClock",   "cmdLprt", "cmdOpen", "cmdSetup", "cmdSlp",  "cmdSprint", "cmdStart",
             "dmmMrdg",   "dmmMrge",    "grdLog",  "lblDmm",  "lblDttl",  "lblHd",   "lblStm",    "markT",
             "mnuClrMem", "panAfn",     "panDlog", "panScon", "panTrd",   "picDmm",  "picMscope", "picScope",
             "picSet",    "picStm",     "picTrd",  "posT",    "sldPosH",  "tmrCom",  "tmrInt",    "trgLvl",
             "txtMad",    "txtSTime"}));
}

TEST(MainForm, TheFrameStartsOnTheScopeTabWithSamplingStopped) {
  const MainForm form;
  EXPECT_EQ(form.caption(), "Vireon");
  EXPECT_EQ(form.SSTab1.captions(), (Texts{"Scope", "Meter"}));
  EXPECT_EQ(form.SSTab1.tab(), 0);
  EXPECT_EQ(captionsOf(form.cmdBttn), (Texts{"Connect", "Exit"}));
  EXPECT_EQ(form.cmdBttn[0].backColor(), kButtonFace);
  EXPECT_EQ(form.cmdStart.caption(), "Start");
  EXPECT_EQ(form.txtSTime.text(), "0.5");
  EXPECT_EQ(form.cmdClock.caption(), "Clock Set");
  EXPECT_EQ(form.cmdSprint.caption(), "Screen Print");
  EXPECT_EQ(form.tmrInt.interval(), 500);
  EXPECT_FALSE(form.tmrInt.enabled());
  EXPECT_FALSE(form.tmrCom.enabled());
  EXPECT_EQ(form.StatusBar1.panel(1), "");
  EXPECT_EQ(form.Txled[0].fillColor(), kWhite);
  EXPECT_EQ(form.Txled[1].fillColor(), kWhite);
}

TEST(MainForm, TheScopePictureStartsEmptyWithItsMarkersHidden) {
  const MainForm form;
  EXPECT_TRUE(form.picScope.lines().empty());
  for (const Label* marker : {&form.posDV[0], &form.posDV[1], &form.posT, &form.markT}) {
    EXPECT_FALSE(marker->visible()) << marker->name();
    EXPECT_EQ(marker->top(), 1560) << marker->name();
  }
  EXPECT_EQ(form.markT.caption(), "T");
}

TEST(MainForm, WhatStandsOnThePictureHasTheColourOfItsTraceOrIsWhite) {
  const MainForm form;
  EXPECT_EQ(form.posDV[0].foreColor(), kRed);
  EXPECT_EQ(form.posDV[1].foreColor(), kGreen);
  EXPECT_EQ(form.posT.foreColor(), kWhite);
  EXPECT_EQ(form.markT.foreColor(), kWhite);
  const Color settings[] = {kRed, kGreen, kWhite, kWhite, kWhite, kWhite};
  for (int setting = 0; setting < form.lblSinf.size(); ++setting) {
    EXPECT_EQ(form.lblSinf[setting].foreColor(), settings[setting]) << setting;
  }
}

TEST(MainForm, TheMarkersStartWhereTheSlidersStand) {
  const MainForm form;
  for (int channel = 0; channel < 2; ++channel) {
    EXPECT_EQ(form.posDV[channel].top(), (form.sldPosV[channel].value() - 21) * 30 + 330);
  }
  EXPECT_EQ(form.markT.left(), (form.sldPosH.value() - 2) * 30 + 500);
  EXPECT_EQ(form.posT.top(), (128 - (form.trgLvl.value() ^ 255)) * 30 + form.posDV[0].top());
}

TEST(MainForm, TheSlidersTakeEveryByte) {
  MainForm form;
  for (Slider* slider : {&form.sldPosV[0], &form.sldPosV[1], &form.sldPosH, &form.trgLvl}) {
    slider->setValue(0);
    slider->setValue(255);
    EXPECT_EQ(slider->value(), 255) << slider->name();
  }
}

TEST(MainForm, TheScopePanelStartsWithTheseCaptions) {
  const MainForm form;
  EXPECT_EQ(captionsOf(form.chkVac), (Texts{"DC", "DC"}));
  EXPECT_EQ(captionsOf(form.chkVat), (Texts{"Auto", "Auto"}));
  EXPECT_EQ(captionsOf(form.chkVof), (Texts{"OFF", "OFF"}));
  EXPECT_EQ(captionsOf(form.optTS), (Texts{"CHA", "CHB", "EXT"}));
  EXPECT_EQ(form.optTS.selected(), 3);
  EXPECT_EQ(form.chkHat.caption(), "Auto");
  EXPECT_EQ(form.chkAt.caption(), "Auto");
  EXPECT_EQ(form.chkSgl.caption(), "Single");
  EXPECT_EQ(form.chkMhld.caption(), "Hold");
  EXPECT_EQ(form.chkMld.caption(), "Memory");
  EXPECT_EQ(form.cmdSlp.caption(), "");
  EXPECT_EQ(form.txtMad.text(), "00");
  EXPECT_TRUE(form.txtMad.readOnly());
}

TEST(MainForm, TheMeterPanelStartsWithTheseCaptions) {
  const MainForm form;
  EXPECT_EQ(captionsOf(form.optFun), (Texts{"DCV", "ACV", "OHM", "BZ", "FRQ", "RPM", "P/W", "Dty"}));
  EXPECT_EQ(form.mrgUD[2].caption(), "Auto");
  EXPECT_EQ(form.chkDmAt.caption(), "Auto");
  EXPECT_EQ(form.chkHold.caption(), "Hold");
  EXPECT_EQ(form.cmdSetup.caption(), "SetUp");
  EXPECT_EQ(captionsOf(form.lblSet), (Texts{"Reference:", "LO Limit:"}));
  EXPECT_EQ(textsOf(form.txtSet), (Texts{"-1.234mV", "-010.0mV"}));
  EXPECT_EQ(captionsOf(form.cmdSet), (Texts{"Set", "Exit"}));
}

TEST(MainForm, TheLoggerPanelStartsWithTheseCaptions) {
  const MainForm form;
  EXPECT_EQ(form.chkLog0.caption(), "Recall");
  EXPECT_EQ(form.chkLog1.caption(), "Start");
  EXPECT_EQ(form.chkLog1.backColor(), kButtonFace);
  EXPECT_EQ(captionsOf(form.cmdLog), (Texts{"Set", "Clear"}));
  EXPECT_EQ(captionsOf(form.cmdSub), (Texts{"Reset", "Reset"}));
  EXPECT_EQ(form.chkSub.caption(), "Pause");
  EXPECT_EQ(form.mnuClrMem.caption(), "Clear Memory...");
  EXPECT_EQ(captionsOf(form.mnuSmm), (Texts{"Sample Method: Time", "Sample Method: Peak"}));
  EXPECT_EQ(form.lblDttl.caption(), " DATA LOGGER ");
  EXPECT_EQ(captionsOf(form.optFmt), (Texts{"txt", "xls"}));
  EXPECT_EQ(form.optFmt.selected(), 0);
  EXPECT_EQ(form.optLog.selected(), 0);
  EXPECT_EQ(form.cmdLprt.caption(), "Print");
  EXPECT_EQ(captionsOf(form.vdtrd), (Texts{"V/Div", "", "", "", "H/Div", "0", "Offset", ""}));
}

TEST(MainForm, TheFileRowsStartWithAPlaceholder) {
  const MainForm form;
  EXPECT_EQ(textsOf(form.txtFn), (Texts{"File Name", "File Name"}));
  EXPECT_EQ(captionsOf(form.cmdSave), (Texts{"Save", "Save"}));
  EXPECT_EQ(captionsOf(form.cmdLoad), (Texts{"Load", "Load"}));
  EXPECT_TRUE(form.cmdLoad[1].enabled());
}

TEST(MainForm, TheLoggerGridStartsWithThirteenRowsOfFourColumns) {
  const MainForm form;
  EXPECT_EQ(form.grdLog.rows(), 13);
  EXPECT_EQ(form.grdLog.columns(), 4);
  EXPECT_EQ(form.grdLog.topRow(), 1);
}

TEST(MainForm, TheTrendBarStartsAtZeroOfZeroTo120) {
  const MainForm form;
  EXPECT_EQ(form.barTrd.minimum(), 0);
  EXPECT_EQ(form.barTrd.maximum(), 120);
  EXPECT_EQ(form.barTrd.value(), 0);
}

}  // namespace
}  // namespace vireon::form
