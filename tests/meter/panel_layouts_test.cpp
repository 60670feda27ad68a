#include "meter/panel_layouts.h"

#include <gtest/gtest.h>

#include <array>

#include "form/main_form.h"

namespace vireon::meter {
namespace {

TEST(TabPanels, EachTabShowsItsOwnPanels) {
  struct Row {
    int tab;
    std::array<bool, 5> visible;  // picMscope, picScope, panScon, picDmm, panDlog
  };
  constexpr Row kRows[] = {{0, {true, true, true, false, false}}, {1, {true, false, false, true, true}}};
  for (const Row& row : kRows) {
    for (const bool before : {false, true}) {
      form::MainForm form;
      form::PictureBox* const panels[] = {&form.picMscope, &form.picScope, &form.panScon, &form.picDmm,
                                          &form.panDlog};
      form.SSTab1.setTab(row.tab);
      for (form::PictureBox* panel : panels) {
        panel->setVisible(before);
      }
      setTabPan(form);
      for (std::size_t index = 0; index < row.visible.size(); ++index) {
        EXPECT_EQ(panels[index]->visible(), row.visible[index]) << row.tab << " " << panels[index]->name();
      }
    }
  }
}

TEST(TabPanels, AnyOtherTabLeavesThePanelsAlone) {
  for (const bool before : {false, true}) {
    form::MainForm form;
    form.SSTab1.setTabs(4);
    form.SSTab1.setTab(3);
    form::PictureBox* const panels[] = {&form.picMscope, &form.picScope, &form.panScon, &form.picDmm,
                                        &form.panDlog};
    for (form::PictureBox* panel : panels) {
      panel->setVisible(before);
    }
    setTabPan(form);
    for (const form::PictureBox* panel : panels) {
      EXPECT_EQ(panel->visible(), before) << panel->name();
    }
  }
}

struct SettingsRow {
  int mode;
  const char* captions[4];
  const char* choices[2];
  bool trend;
};

constexpr SettingsRow kSettings[] = {
    {0, {"Sample Method:", "Sample Time(sec):", "Start Address:", "Stop Address:"}, {"Time", "Peak"}, false},
    {4, {"Plot Mode:", "Offset:", "V/Division:", "H/Division:"}, {"Line", "Dot"}, true},
};

TEST(LoggerPanel, ASettingsModeShowsItsFields) {
  for (const SettingsRow& row : kSettings) {
    SCOPED_TRACE(row.mode);
    for (const bool before : {false, true}) {
      form::MainForm form;
      for (form::Control* control :
           std::initializer_list<form::Control*>{&form.txtLog[2], &form.chkLog0, &form.picStm,
                                                 &form.picSwin[0], &form.picSwin[1], &form.picSet}) {
        control->setVisible(before);
      }
      form.cmdSetup.setEnabled(true);

      setSubPan(form, row.mode);

      for (int label = 0; label < 4; ++label) {
        EXPECT_EQ(form.lblSrdg[label].caption(), row.captions[label]);
      }
      for (int choice = 0; choice < 2; ++choice) {
        EXPECT_EQ(form.optLog[choice].caption(), row.choices[choice]);
      }
      EXPECT_EQ(form.txtLog[2].visible(), !row.trend);
      EXPECT_EQ(form.chkLog0.visible(), !row.trend);
      EXPECT_EQ(form.picStm.visible(), row.trend);
      EXPECT_FALSE(form.cmdSetup.enabled());
      EXPECT_TRUE(form.picSwin[0].visible());
      EXPECT_FALSE(form.picSwin[1].visible());
      EXPECT_FALSE(form.picSet.visible());
    }
  }
}

TEST(LoggerPanel, ASettingsModeLeavesTheOtherFieldsAlone) {
  for (const SettingsRow& row : kSettings) {
    form::MainForm form;
    form.txtLog[0].setText("12345");
    setSubPan(form, row.mode);
    EXPECT_TRUE(form.txtLog[0].visible());
    EXPECT_TRUE(form.txtLog[1].visible());
    EXPECT_EQ(form.txtLog[0].text(), "12345");
    EXPECT_TRUE(form.optLog[0].value());
    EXPECT_EQ(form.lblXrdg[0].caption(), "");
    EXPECT_EQ(form.lblSet[0].caption(), "Reference:");
  }
}

struct StatisticsRow {
  int mode;
  const char* captions[5];
  bool setup;
};

constexpr StatisticsRow kStatistics[] = {
    {1, {"MAX:", "AVG:", "MIN:", "Total Samples:", "Elapsed Time:"}, false},
    {2, {"REF:", "DIF:", "ERR:", "Mean ERR:", "Elapsed Time:"}, true},
    {3, {"HI Limit:", "LO Limit:", "Reading:", "Pass Muster:", "Elapsed Time:"}, true},
};

TEST(LoggerPanel, AStatisticsModeShowsItsLabels) {
  for (const StatisticsRow& row : kStatistics) {
    SCOPED_TRACE(row.mode);
    for (const bool before : {false, true}) {
      form::MainForm form;
      form.picSwin[0].setVisible(before);
      form.picSwin[1].setVisible(before);
      form.picSet.setVisible(before);
      form.cmdSetup.setEnabled(!row.setup);

      setSubPan(form, row.mode);

      for (int label = 0; label < 5; ++label) {
        EXPECT_EQ(form.lblXrdg[label].caption(), row.captions[label]);
      }
      EXPECT_EQ(form.cmdSetup.enabled(), row.setup);
      EXPECT_FALSE(form.picSwin[0].visible());
      EXPECT_TRUE(form.picSwin[1].visible());
      EXPECT_FALSE(form.picSet.visible());
      EXPECT_EQ(form.lblSrdg[0].caption(), "");
    }
  }
}

TEST(LoggerPanel, RelativeModeHasOneSetUpFieldAndCompareModeTwo) {
  form::MainForm form;
  setSubPan(form, 3);
  EXPECT_EQ(form.lblSet[0].caption(), "HI Limit:");
  EXPECT_EQ(form.lblSet[1].caption(), "LO Limit:");
  EXPECT_TRUE(form.lblSet[1].visible());
  EXPECT_TRUE(form.txtSet[1].visible());
  setSubPan(form, 2);
  EXPECT_EQ(form.lblSet[0].caption(), "Reference:");
  EXPECT_FALSE(form.lblSet[1].visible());
  EXPECT_FALSE(form.txtSet[1].visible());
  EXPECT_TRUE(form.txtSet[0].visible());
  setSubPan(form, 3);
  EXPECT_TRUE(form.lblSet[1].visible());
  EXPECT_TRUE(form.txtSet[1].visible());
}

TEST(LoggerPanel, RecordModeLeavesTheSetUpBoxAsTheModeBeforeLeftIt) {
  for (const int mode : {2, 3}) {
    form::MainForm form;
    setSubPan(form, mode);
    const std::string caption = form.lblSet[0].caption();
    setSubPan(form, 1);
    EXPECT_EQ(form.lblSet[0].caption(), caption);
    EXPECT_EQ(form.lblSet[1].visible(), mode == 3);
    EXPECT_EQ(form.txtSet[1].visible(), mode == 3);
    EXPECT_FALSE(form.cmdSetup.enabled());
  }
}

TEST(LoggerPanel, TrendPlotExchangesTheDownloadForTheSpanAndDataLoggerReversesThat) {
  form::MainForm form;
  setSubPan(form, 4);
  EXPECT_FALSE(form.chkLog0.visible());
  EXPECT_TRUE(form.picStm.visible());
  setSubPan(form, 0);
  EXPECT_TRUE(form.chkLog0.visible());
  EXPECT_FALSE(form.picStm.visible());
}

TEST(LoggerPanel, AModeThatThereIsNotHidesBothWindowsAndNothingElse) {
  for (const int mode : {-1, 5, 255}) {
    form::MainForm form;
    setSubPan(form, 3);
    setSubPan(form, mode);
    EXPECT_FALSE(form.picSwin[0].visible()) << mode;
    EXPECT_FALSE(form.picSwin[1].visible()) << mode;
    EXPECT_TRUE(form.cmdSetup.enabled());
    EXPECT_EQ(form.lblXrdg[0].caption(), "HI Limit:");
  }
}

}  // namespace
}  // namespace vireon::meter
