#include <QComboBox>
#include <QLabel>
#include <QTabBar>
#include <algorithm>
#include <functional>

#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

using Texts = std::vector<std::string>;

// The scope tab under real mouse and key events: each control, the command that the instrument receives, and
// what the window then shows.
class FrontPanelWindow : public WindowTest {
 protected:
  FrontPanelWindow() {
    form().txtSTime.setText("3600");  // the test alone ticks
    goLive();
    window().activateWindow();
    instrument.clearLog();
  }

  // The settings in which every row begins.
  void restore() {
    instrument.settings() = atStart_;
    if (form().chkMld.value() == 1) {
      form().chkMld.setValue(0);
    }
    tick();
    instrument.clearLog();
  }

  void press(const QKeySequence& keys) {
    const QKeyCombination combination = keys[0];
    QTest::keyClick(&window(), combination.key(), combination.keyboardModifiers());
    // A button pressed by its shortcut stays down for a moment.
    EXPECT_TRUE(QTest::qWaitFor([this] { return !anyButtonDown(); }));
    turn();
  }

  bool anyButtonDown() {
    const auto buttons = window().findChildren<QAbstractButton*>();
    return std::any_of(buttons.begin(), buttons.end(),
                       [](const QAbstractButton* button) { return button->isDown(); });
  }

  QString text(const char* name) {
    if (const auto* label = find<QLabel>(name)) {
      return label->text();
    }
    return find<QAbstractButton>(name)->text();
  }

  // Ordinates of a trace on the picture, twips; empty when it is not drawn.
  std::vector<int> trace(form::Color color) {
    std::vector<int> ordinates;
    for (const form::Line& line : form().picScope.lines()) {
      if (line.color == color) {
        ordinates.push_back(line.y2);
      }
    }
    return ordinates;
  }

  static int height(const std::vector<int>& trace) {
    const auto [low, high] = std::minmax_element(trace.begin(), trace.end());
    return *high - *low;
  }

  static int middle(const std::vector<int>& trace) {
    const auto [low, high] = std::minmax_element(trace.begin(), trace.end());
    return (*high + *low) / 2;
  }

  // How often a trace passes its middle.
  static long crossings(const std::vector<int>& trace) {
    const int level = middle(trace);
    long count = 0;
    for (std::size_t i = 1; i < trace.size(); ++i) {
      count += (trace[i - 1] < level) != (trace[i] < level) ? 1 : 0;
    }
    return count;
  }

 private:
  const simulator::Settings atStart_ = instrument.settings();
};

struct Click {
  const char* widget;
  const char* command;
  const char* shownBy;  // a label or button whose text tells
  const char* shown;
};

const Click kClicks[] = {
    {"cmdVu_0", "VDAup;VDA??", "lblVd_0", "2V"},
    {"cmdVd_0", "VDAdn;VDA??", "lblSinf_0", "A:0.5V"},
    {"cmdVu_1", "VDBup;VDB??", "lblVd_1", "1V"},
    {"cmdVd_1", "VDBdn;VDB??", "lblSinf_1", "B:0.2V"},
    {"chkVac_0", "VDAac;VDA??", "chkVac_0", "AC"},
    {"chkVac_1", "VDBac;VDB??", "chkVac_1", "AC"},
    {"chkVof_0", "VDAof;VDA??", "chkVof_0", "OFF"},
    {"chkVof_1", "VDBof;VDB??", "chkVof_1", "OFF"},
    {"chkVat_0", "VDAat;VDA??", "chkVat_0", "Auto"},
    {"chkVat_1", "VDBat;VDB??", "chkVat_1", "Auto"},
    {"cmdTud_0", "HDVup;HDV??", "lblHd", "0.5mS"},
    {"cmdTud_1", "HDVdn;HDV??", "lblSinf_2", "0.1mS"},
    {"chkHat", "HDVat;HDV??", "chkHat", "Auto"},
    {"chkAt", "TRGnr;TRG??", "lblSinf_5", "Norm"},
    {"chkSgl", "TRGso;STS??", "chkSgl", "Single"},
    {"cmdSlp", "TRGl-;TRG??", "lblSinf_3", "-"},
    {"optTS_1", "TRGsb;TRG??;TLV80;TLV??", "lblSinf_4", "CHB"},
    {"optTS_2", "TRGse;TRG??;TLV80;TLV??", "lblSinf_4", "EXT"},
    {"chkMhld", "DHDon;STS??", "chkMhld", "Hold"},
    {"chkMld", "MEM00", "chkMld", "Memory"},
};

TEST_F(FrontPanelWindow, EveryButtonSendsItsCommandAndThePanelFollowsTheReply) {
  for (const Click& row : kClicks) {
    SCOPED_TRACE(row.widget);
    QWidget* widget = find(row.widget);
    // A check box and an option button are pressed at their mark, which stands left.
    const bool marked = widget->inherits("QCheckBox") || widget->inherits("QRadioButton");
    const QPoint at = marked ? QPoint(8, widget->height() / 2) : widget->rect().center();
    instrument.clearLog();
    QTest::mouseClick(widget, Qt::LeftButton, {}, at);
    turn();
    EXPECT_EQ(Texts(instrument.log().begin(), instrument.log().end()), Texts{row.command});
    EXPECT_EQ(text(row.shownBy).toStdString(), row.shown);
    restore();
  }
}

struct Shortcut {
  const char* keys;
  const char* command;
};

TEST_F(FrontPanelWindow, EveryShortcutSendsItsCommand) {
  constexpr Shortcut kShortcuts[] = {
      {"Ctrl+Up", "VDAup;VDA??"},         {"Ctrl+Down", "VDAdn;VDA??"},  {"Ctrl+Shift+Up", "VDBup;VDB??"},
      {"Ctrl+Shift+Down", "VDBdn;VDB??"}, {"Ctrl+Right", "HDVup;HDV??"}, {"Ctrl+Left", "HDVdn;HDV??"},
      {"Ctrl+1", "VDAof;VDA??"},          {"Ctrl+2", "VDBof;VDB??"},     {"Ctrl+L", "TRGl-;TRG??"},
      {"Ctrl+G", "TRGso;STS??"},          {"Ctrl+H", "DHDon;STS??"},
  };
  for (const Shortcut& row : kShortcuts) {
    SCOPED_TRACE(row.keys);
    instrument.clearLog();
    press(QKeySequence(QLatin1String(row.keys)));
    EXPECT_EQ(Texts(instrument.log().begin(), instrument.log().end()), Texts{row.command});
    restore();
  }
}

TEST_F(FrontPanelWindow, ShortcutsStartStopConnectAndDisconnect) {
  press(Qt::Key_F5);
  EXPECT_EQ(text("cmdStart"), QStringLiteral("Start"));
  press(Qt::Key_F5);
  EXPECT_EQ(text("cmdStart"), QStringLiteral("Stop"));
  press(Qt::Key_F2);
  EXPECT_EQ(text("cmdBttn_0"), QStringLiteral("Connect"));
  EXPECT_EQ(lastCommand(), "GTL");
  press(Qt::Key_F2);
  EXPECT_EQ(text("cmdBttn_0"), QStringLiteral("Disconnect"));
}

TEST_F(FrontPanelWindow, TheMetersFunctionIsChosenFromItsListByKeys) {
  auto* functions = find<QComboBox>("cmbFun");
  functions->setFocus();
  QTest::keyClick(functions, Qt::Key_Down);
  turn();
  EXPECT_EQ(lastCommand(), "DFN01;DFN??;VDA??;VDB??");
  EXPECT_EQ(functions->currentText(), QStringLiteral("ACV"));
}

TEST_F(FrontPanelWindow, TwiceTheVoltsPerDivisionIsHalfTheTrace) {
  const int before = height(trace(form::kRed));
  click("cmdVu_0");
  tick();
  EXPECT_NEAR(height(trace(form::kRed)), before / 2, 60);
}

TEST_F(FrontPanelWindow, ASlowerTimeBaseShowsMorePeriods) {
  const long before = crossings(trace(form::kRed));
  click("cmdTud_0");
  tick();
  EXPECT_GT(crossings(trace(form::kRed)), before);
}

TEST_F(FrontPanelWindow, AVerticalPositionMovesItsTraceAlone) {
  const int a = middle(trace(form::kRed));
  const int b = middle(trace(form::kGreen));
  QTest::keyClick(find("sldPosV_0"), Qt::Key_PageDown);
  tick();
  EXPECT_NEAR(middle(trace(form::kRed)), a + 14 * 30, 30);
  EXPECT_NEAR(middle(trace(form::kGreen)), b, 30);
}

TEST_F(FrontPanelWindow, TheOtherSlopeTurnsTheTraceAtTheTriggerPoint) {
  const auto before = trace(form::kRed);
  const auto at = static_cast<std::size_t>(form().sldPosH.value() + 2);
  click("cmdSlp");
  tick();
  const auto after = trace(form::kRed);
  EXPECT_LT((before[at + 5] - before[at - 5]) * (after[at + 5] - after[at - 5]), 0);
}

TEST_F(FrontPanelWindow, AChannelThatIsOffIsNotDrawn) {
  click("chkVof_1");
  tick();
  EXPECT_TRUE(trace(form::kGreen).empty());
  EXPECT_FALSE(trace(form::kRed).empty());
  EXPECT_FALSE(find("posDV_1")->isVisible());
}

TEST_F(FrontPanelWindow, WhileDisconnectedTheTabsShowThePanelsAndSendNothing) {
  click("cmdBttn_0");
  instrument.clearLog();
  auto* tabs = find<QTabBar>("SSTab1");
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
  turn();
  EXPECT_TRUE(find("panDlog")->isVisible());
  EXPECT_TRUE(find("grdLog")->isVisible());
  EXPECT_TRUE(find("grdLog")->isEnabled());
  EXPECT_FALSE(find("panScon")->isVisible());
  EXPECT_TRUE(instrument.log().empty());
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
  turn();
  EXPECT_TRUE(find("panScon")->isVisible());
  EXPECT_FALSE(find("grdLog")->isVisible());
  EXPECT_TRUE(instrument.log().empty());
}

}  // namespace
}  // namespace vireon::tests
