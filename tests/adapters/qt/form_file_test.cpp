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

}  // namespace
}  // namespace vireon::tests
