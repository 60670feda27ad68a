#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QTabBar>
#include <QTableView>
#include <span>

#include "adapters/qt/lamp.h"
#include "link/long_work.h"
#include "protocol/scoped_flag.h"
#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

class BindingOf : public WindowTest {
 protected:
  BindingOf() { click("cmdBttn_0"); }
};

TEST_F(BindingOf, ACheckBoxSendsWhatItsUserChose) {
  click("chkVac_0");
  EXPECT_EQ(lastCommand(), "VDAac;VDA??");
  EXPECT_EQ(find<QAbstractButton>("chkVac_0")->text(), QStringLiteral("AC"));
  EXPECT_TRUE(find<QAbstractButton>("chkVac_0")->isChecked());
}

TEST_F(BindingOf, ACheckBoxFollowsTheReplyOverItsUsersClick) {
  click("chkHat");
  ASSERT_TRUE(find<QAbstractButton>("chkHat")->isChecked());
  {
    const protocol::ScopedFlag busy(program().state.uiBusy);
    program().interpreter.dspSinf("hdv:07");
  }
  turn();
  EXPECT_FALSE(find<QAbstractButton>("chkHat")->isChecked());
}

TEST_F(BindingOf, OptionButtonsExcludeEachOther) {
  click("optTS_1");
  EXPECT_EQ(lastCommand().substr(0, 11), "TRGsb;TRG??");
  EXPECT_TRUE(find<QAbstractButton>("optTS_1")->isChecked());
  click("optTS_0");
  EXPECT_FALSE(find<QAbstractButton>("optTS_1")->isChecked());
  EXPECT_TRUE(find<QAbstractButton>("optTS_0")->isChecked());
}

TEST_F(BindingOf, AnOptionGroupCanShowNoneSelected) {
  form().optTS[1].setValue(true);
  turn();
  form().optTS[1].setValue(false);
  turn();
  EXPECT_FALSE(find<QAbstractButton>("optTS_1")->isChecked());
}

TEST_F(BindingOf, AComboBoxListsItsItemsAndSendsTheChosenOne) {
  auto* combo = find<QComboBox>("cmbFun");
  EXPECT_EQ(combo->count(), 8);
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_Down);
  EXPECT_EQ(lastCommand(), "DFN01;DFN??;VDA??;VDB??");
  turn();
  EXPECT_EQ(combo->currentText(), QStringLiteral("ACV"));
}

TEST_F(BindingOf, ASliderSetAtOneGoSendsItsValue) {
  const std::uint64_t before = instrument.commandCount();
  find<QSlider>("sldPosH")->setValue(90);
  EXPECT_EQ(instrument.commandCount(), before + 1);
  EXPECT_EQ(lastCommand(), "HPO5A;HPO??");
}

TEST_F(BindingOf, ASliderAndItsMarkerStandAtTheSameEnd) {
  auto* slider = find<QSlider>("sldPosV_0");
  slider->setValue(20);
  turn();
  EXPECT_EQ(lastCommand(), "VPA14;VPA??;TLV??");
  form().posDV[0].setVisible(true);
  turn();
  EXPECT_LT(find("posDV_0")->y(), find("picScope")->height() / 3);
}

TEST_F(BindingOf, TextTypedIsTextOfTheControlAndEnterStarts) {
  auto* edit = find<QLineEdit>("txtSTime");
  edit->selectAll();
  QTest::keyClicks(edit, QStringLiteral("0.25"));
  EXPECT_EQ(form().txtSTime.text(), "0.25");
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(form().cmdStart.caption(), "Stop");
  EXPECT_EQ(form().tmrInt.interval(), 250);
}

TEST_F(BindingOf, TextPutInByAnAssistiveTechnologyIsTextOfTheControl) {
  auto* const edit = find<QLineEdit>("txtSTime");
  QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(edit);
  ASSERT_NE(face, nullptr);
  face->setText(QAccessible::Value, QStringLiteral("0.2"));
  EXPECT_EQ(form().txtSTime.text(), "0.2");
  turn();
  EXPECT_EQ(edit->text(), QStringLiteral("0.2"));
}

TEST_F(BindingOf, ALetterThatTheInstrumentDoesNotKnowStaysAsTypedAndIsRefused) {
  auto* edit = find<QLineEdit>("txtLog_0");
  form().txtLog[1].setText("1");
  form().txtLog[2].setText("1");
  form().cmbDmod.setListIndex(0);
  turn();
  edit->setText(QString());
  for (const QString& text : {QStringLiteral("1\u03A9"), QStringLiteral("1\u03A9k")}) {
    edit->setText(text);
    turn();
    EXPECT_EQ(edit->text(), text);
    EXPECT_FALSE(form().txtLog[0].complete());
  }
  const std::uint64_t before = instrument.commandCount();
  form().cmdLog[0].click();
  ASSERT_EQ(messages.seen.size(), 1U);
  EXPECT_EQ(messages.seen[0].text,
            QStringLiteral("\"Sample Time(sec)\" contains a letter that the instrument does not know."));
  EXPECT_EQ(instrument.commandCount(), before);
  form().txtLog[0].setText("00001");
  turn();
  EXPECT_EQ(edit->text(), QStringLiteral("00001"));
}

TEST_F(BindingOf, AnEntryOfAMenuIsAButton) {
  auto* const entry = find<QAction>("mnuSmm_1");
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(entry->text(), QStringLiteral("Sample Method: Peak"));
  entry->trigger();
  EXPECT_EQ(lastCommand(), "SMM01");
  form().raiseShield({});
  turn();
  EXPECT_FALSE(entry->isEnabled());
  form().lowerShield();
  EXPECT_TRUE(entry->isEnabled());
  form().mnuSmm[1].setVisible(false);
  EXPECT_FALSE(entry->isVisible());
}

TEST_F(BindingOf, WhileSamplingTheTimeCannotBeEdited) {
  click("cmdStart");
  auto* edit = find<QLineEdit>("txtSTime");
  QTest::keyClicks(edit, QStringLiteral("7"));
  turn();
  EXPECT_EQ(edit->text(), QStringLiteral("0.5"));
  EXPECT_EQ(form().txtSTime.text(), "0.5");
}

TEST_F(BindingOf, TheTabsSwitchThePanels) {
  auto* tabs = find<QTabBar>("SSTab1");
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
  turn();
  EXPECT_EQ(lastCommand(), "DFN10;DFN??;DPS??");
  EXPECT_TRUE(find("picDmm")->isVisible());
  EXPECT_FALSE(find("picScope")->isVisible());
  EXPECT_FALSE(find("sldPosH")->isVisible());
  EXPECT_FALSE(find("panScon")->isVisible());
  EXPECT_TRUE(find("panDlog")->isVisible());
}

TEST_F(BindingOf, LampsShowTheirColours) {
  form().Txled[0].setFillColor(form::kRed);
  turn();
  EXPECT_EQ(find<adapters::Lamp>("Txled_0")->color(), form::kRed);
}

TEST(Refresh, OfALampPaintsItBeforeTheWindowsNextTurn) {
  form::MainForm form;
  const adapters::ModalGate gate;
  const adapters::MainWindow window(form, gate);
  form.Txled[1].setFillColor(form::kGreen);
  form.Txled[1].refresh();
  EXPECT_EQ(window.findChild<adapters::Lamp*>(QStringLiteral("Txled_1"))->color(), form::kGreen);
}

TEST_F(BindingOf, AStatusTextWithoutRoomIsCutWithAnEllipsisAndWholeInItsToolTip) {
  const std::string text(300, 'w');
  const auto* label = find<QLabel>("StatusBar1_1");
  form().StatusBar1.setPanel(1, text);
  turn();
  EXPECT_TRUE(label->text().endsWith(QChar(0x2026)));
  EXPECT_LE(QFontMetrics(label->font()).horizontalAdvance(label->text()), label->width());
  EXPECT_EQ(label->toolTip().toStdString(), text);
  EXPECT_EQ(label->accessibleDescription().toStdString(), text);

  const link::LongWork::Scope work(program().longWork, 10);
  form().StatusBar1.setPanel(1, text + "w");
  turn();
  EXPECT_LE(label->x() + QFontMetrics(label->font()).horizontalAdvance(label->text()), find("barWork")->x());
}

TEST_F(BindingOf, AStatusTextWithRoomHasTheToolTipOfItsPanel) {
  form().StatusBar1.setPanel(1, "short");
  form().StatusBar1.setToolTip(1, "what it means");
  turn();
  EXPECT_EQ(find<QLabel>("StatusBar1_1")->text(), QStringLiteral("short"));
  EXPECT_EQ(find<QLabel>("StatusBar1_1")->toolTip(), QStringLiteral("what it means"));
}

TEST_F(BindingOf, AStatusTextShowsEveryLetter) {
  form().StatusBar1.setPanel(1, "Saved 측정 5 µs.wfm");
  form().StatusBar1.setToolTip(1, "µ 측정");
  turn();
  EXPECT_EQ(find<QLabel>("StatusBar1_1")->text().toStdString(), "Saved 측정 5 µs.wfm");
  EXPECT_EQ(find<QLabel>("StatusBar1_1")->toolTip().toStdString(), "µ 측정");
}

TEST_F(BindingOf, TheGridShowsItsRowsBelowTheHeader) {
  form().grdLog.setText(1, 1, "12:34:56");
  turn();
  const auto* model = find<QTableView>("grdLog")->model();
  EXPECT_EQ(model->rowCount(), 12);
  EXPECT_EQ(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("  R/No"));
  EXPECT_EQ(model->data(model->index(0, 1)).toString(), QStringLiteral("12:34:56"));
}

TEST_F(BindingOf, ARunningTimerTicksByItself) {
  form().txtSTime.setText("0.001");
  click("cmdStart");
  const std::uint64_t before = instrument.commandCount();
  EXPECT_TRUE(QTest::qWaitFor([&] { return instrument.commandCount() > before + 3; }, 2000));
}

TEST_F(BindingOf, AnAssistiveTechnologyTogglesButtonsWithoutAClick) {
  find<QAbstractButton>("chkVac_0")->toggle();
  EXPECT_EQ(form().chkVac[0].value(), find<QAbstractButton>("chkVac_0")->isChecked() ? 1 : 0);
  const std::string sent = lastCommand();
  find<QAbstractButton>("optTS_1")->toggle();
  EXPECT_TRUE(form().optTS[1].value());
  EXPECT_NE(lastCommand(), sent);
}

class Assisted : public BindingOf {
 protected:
  void expectUnmoved() {
    EXPECT_EQ(find<QSlider>("sldPosH")->value(), form().sldPosH.value());
    EXPECT_EQ(find<QAbstractButton>("chkVac_0")->isChecked(), form().chkVac[0].value() == 1);
    EXPECT_EQ(find<QAbstractButton>("optTS_0")->isChecked(), form().optTS[0].value());
    EXPECT_EQ(find<QAbstractButton>("optTS_1")->isChecked(), form().optTS[1].value());
    EXPECT_EQ(form().txtSTime.text(), "0.5");
    EXPECT_EQ(find<QLineEdit>("txtSTime")->text(), QStringLiteral("0.5"));
    EXPECT_EQ(find<QTabBar>("SSTab1")->currentIndex(), 0);
  }

  const std::function<void()> acts[7] = {
      [this] { find<QLineEdit>("txtSTime")->setText(QStringLiteral("3")); },
      [this] { find<QSlider>("sldPosH")->setValue(find<QSlider>("sldPosH")->value() + 1); },
      [this] { find<QAbstractButton>("cmdVu_0")->click(); },
      [this] { find<QAbstractButton>("chkVac_0")->toggle(); },
      [this] { find<QAbstractButton>("optTS_1")->toggle(); },
      [this] { find<QAction>("mnuSmm_1")->trigger(); },
      [this] { find<QTabBar>("SSTab1")->setCurrentIndex(1); },
  };
};

TEST_F(Assisted, WhatIsDoneWhileTheWindowOnlyPaintsWaits) {
  for (const auto& act : std::span(acts).subspan(1)) {
    const std::uint64_t before = instrument.commandCount();
    {
      const adapters::ModalGate::Painting painting(gate);
      act();
      turn();
      EXPECT_EQ(instrument.commandCount(), before);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return instrument.commandCount() > before; }, 30000)) << &act - acts;
  }
  EXPECT_TRUE(messages.seen.empty());
}

TEST_F(Assisted, WhatIsDoneBehindAMessageIsUndone) {
  const std::uint64_t before = instrument.commandCount();
  {
    const adapters::ModalGate::Hold message(gate);
    for (const auto& act : acts) act();
    expectUnmoved();
  }
  letHappen(std::chrono::milliseconds(100));
  expectUnmoved();
  EXPECT_EQ(instrument.commandCount(), before);
}

TEST_F(Assisted, WhatAMessageOvertakesIsUndone) {
  const std::uint64_t before = instrument.commandCount();
  {
    const adapters::ModalGate::Painting painting(gate);
    for (const auto& act : acts) act();
    const adapters::ModalGate::Hold message(gate);
    turn();
  }
  letHappen(std::chrono::milliseconds(100));
  expectUnmoved();
  EXPECT_EQ(instrument.commandCount(), before);
}

TEST_F(BindingOf, TheCaptionOfTheWindowFollowsTheIdentity) {
  program().interpreter.dspSinf("sid:Bench two");
  EXPECT_EQ(window().windowTitle(), QStringLiteral("Bench two"));
}

}  // namespace
}  // namespace vireon::tests
