#include <QLabel>
#include <QSet>

#include "adapters/qt/text.h"
#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

class FormFile : public WindowTest {};

TEST_F(FormFile, EachControlHasItsWidget) {
  EXPECT_EQ(window().binder().unbound(), std::vector<std::string>{});
}

// Widgets of the panel that show no control: frames, groups and fixed captions.
bool isDecoration(const QString& name) {
  static const QSet<QString> names = {QStringLiteral("scopeFace"),      QStringLiteral("settingsLine"),
                                      QStringLiteral("readingDisplay"), QStringLiteral("statusLine"),
                                      QStringLiteral("StatusBar1_1"),   QStringLiteral("StatusBar1_2"),
                                      QStringLiteral("menuMemory")};
  return names.contains(name) || name.startsWith(QLatin1String("group")) ||
         name.startsWith(QLatin1String("caption")) || name.startsWith(QLatin1String("sign"));
}

TEST_F(FormFile, EachWidgetHasItsControl) {
  QSet<QString> controls;
  for (const form::Control* control : form().controls()) {
    controls.insert(adapters::shown(control->name()));
  }
  QStringList strangers;
  for (const QWidget* widget : window().findChildren<QWidget*>()) {
    const QString name = widget->objectName();
    const bool inner =
        name.isEmpty() || name.startsWith(QLatin1String("qt_")) ||
        QString::fromLatin1(widget->metaObject()->className()).startsWith(QLatin1String("QTab")) ||
        name == QLatin1String("ScrollLeftButton") || name == QLatin1String("ScrollRightButton");
    if (!inner && !controls.contains(name) && !isDecoration(name)) {
      strangers << name;
    }
  }
  EXPECT_TRUE(strangers.isEmpty()) << qUtf8Printable(strangers.join(QLatin1Char(' ')));
}

TEST_F(FormFile, EachWidgetThatTakesInputTellsWhatItDoes) {
  for (const QWidget* widget : window().findChildren<QWidget*>()) {
    const bool takesInput = widget->focusPolicy() != Qt::NoFocus && !widget->objectName().isEmpty() &&
                            !widget->objectName().startsWith(QLatin1String("qt_"));
    if (takesInput && widget->parentWidget()->inherits("QTabBar") == false) {
      EXPECT_FALSE(widget->toolTip().isEmpty()) << qUtf8Printable(widget->objectName());
      EXPECT_FALSE(widget->accessibleName().isEmpty()) << qUtf8Printable(widget->objectName());
    }
  }
}

TEST_F(FormFile, TheTabKeyGoesFromTheLinkThroughThePanelsToTheFiles) {
  const QString order = QStringLiteral(
      "cmdBttn_0 cmdStart txtSTime SSTab1 cmdOpen cmdSprint cmdClock cmdBttn_1 sldPosV_0 sldPosV_1 "
      "trgLvl sldPosH optFun_0 optFun_1 optFun_2 optFun_3 optFun_4 optFun_5 optFun_6 optFun_7 mrgUD_0 "
      "mrgUD_1 mrgUD_2 chkDmAt chkHold cmdVd_0 cmdVu_0 chkVof_0 chkVac_0 chkVat_0 cmdVd_1 cmdVu_1 "
      "chkVof_1 chkVac_1 chkVat_1 cmdTud_1 cmdTud_0 chkHat optTS_0 optTS_1 optTS_2 cmdSlp chkAt chkSgl "
      "cmbFun chkMhld chkMld madUD_0 txtMad madUD_1 cmbDmod cmdSetup menuMemory optLog_0 optLog_1 "
      "txtLog_0 txtLog_1 txtLog_2 cmdSud_0 cmdSud_1 cmdLog_0 cmdLog_1 chkLog1 chkLog0 cmdSub_0 "
      "cmdSub_1 chkSub txtSet_0 txtSet_1 cmdSet_0 cmdSet_1 optFmt_0 optFmt_1 cmdLprt grdLog txtFn_0 "
      "cmdSave_0 cmdLoad_0 txtFn_1 cmdSave_1 cmdLoad_1");
  const QStringList wanted = order.split(QLatin1Char(' '));
  QStringList found;
  const auto* const first = window().findChild<QWidget*>(wanted.front());
  const QWidget* widget = first;
  do {
    if (wanted.contains(widget->objectName()) && (widget->focusPolicy() & Qt::TabFocus) != 0) {
      found << widget->objectName();
    }
    widget = widget->nextInFocusChain();
  } while (widget != first);
  EXPECT_EQ(found.join(QLatin1Char(' ')).toStdString(), order.toStdString());
}

}  // namespace
}  // namespace vireon::tests
