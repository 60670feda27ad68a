#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QScreen>
#include <QWindow>

#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

class Layout : public WindowTest {
 protected:
  // The visible labels and buttons whose text is larger than themselves, with that and their own width.
  std::string clipped() {
    QStringList names;
    for (QLabel* label : window().findChildren<QLabel*>()) {
      if (label->isVisible() && !fits(*label, label->text(), 0)) {
        names << described(*label, label->text());
      }
    }
    for (QAbstractButton* button : window().findChildren<QAbstractButton*>()) {
      const bool marked = button->inherits("QCheckBox") || button->inherits("QRadioButton");
      if (button->isVisible() && !fits(*button, button->text(), marked ? 18 : 4)) {
        names << described(*button, button->text());
      }
    }
    return names.join(QStringLiteral(", ")).toStdString();
  }

  static QString described(const QWidget& widget, const QString& text) {
    return QStringLiteral("%1: %2 in %3, letters %4")
        .arg(widget.objectName())
        .arg(QFontMetrics(widget.font()).horizontalAdvance(text))
        .arg(widget.width())
        .arg(widget.font().pixelSize());
  }

  static bool fits(const QWidget& widget, const QString& text, int trim) {
    const QFontMetrics metrics(widget.font());
    return metrics.horizontalAdvance(text) + trim <= widget.width() &&
           metrics.height() <= widget.height() + 2;
  }
};

TEST_F(Layout, TheWindowIs10960By5790TwipsWithItsFrame) {
  const double pixelsPerTwip = window().screen()->logicalDotsPerInch() / 1440.0;
  const QSize frame = window().frameGeometry().size();
  EXPECT_NEAR(frame.width(), 10960 * pixelsPerTwip, 1);
  EXPECT_NEAR(frame.height(), 5790 * pixelsPerTwip, 1);
}

TEST_F(Layout, AWindowResizedByHandSnapsBack) {
  const QSize before = window().size();
  window().resize(900, 700);
  turn();
  turn();
  EXPECT_EQ(window().size(), before);
}

TEST_F(Layout, AWindowResizedByHandToTheSameSizeAgainSnapsBackAgain) {
  const QSize before = window().size();
  for (int time = 0; time < 2; ++time) {
    window().resize(900, 700);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window().size() == before; }));
    letHappen(adapters::KeptSize::kSettled);
  }
}

TEST_F(Layout, NothingIsClippedOnTheScopeTab) {
  goLive();
  EXPECT_EQ(clipped(), "");
}

TEST_F(Layout, NothingIsClippedOnTheMeterTab) {
  click("cmdBttn_0");
  for (int mode = 0; mode < 5; ++mode) {
    form().SSTab1.setTab(1);
    form().cmbDmod.setListIndex(mode);
    tick();
    EXPECT_EQ(clipped(), "") << "mode " << mode;
  }
}

TEST_F(Layout, AtTwiceTheSizeThePanelGrowsAndNothingIsClipped) {
  goLive();
  const int before = find("picScope")->width();
  window().resize(window().size() * 2);
  window().binder().flush();
  EXPECT_NEAR(find("picScope")->width(), 2 * before, 2);
  EXPECT_EQ(clipped(), "");
}

// Texts as long as the instrument sends them.
TEST_F(Layout, TheLongestReadingsFit) {
  goLive();
  form().lblDmm.setCaption("-4.200 mV");
  form().SSTab1.setTab(1);
  form().dmmMrdg.setCaption("-4.200");
  turn();
  for (const char* unit : {" mV ", "mV  ", "kOhm", "MHz ", "RPM ", " us "}) {
    form().dmmMrge.setCaption(unit);
    turn();
    EXPECT_EQ(clipped(), "") << unit;
  }
  form().chkHold.setValue(1);
  form().chkDmAt.setValue(1);
  turn();
  EXPECT_EQ(clipped(), "");
}

TEST_F(Layout, NothingIsClippedOnScreensFromASmallNotebookTo4K) {
  goLive();
  window().showMaximized();
  for (const QSize screen : {QSize(1024, 560), QSize(1280, 660), QSize(1366, 700), QSize(1920, 1020),
                             QSize(2560, 1380), QSize(3840, 2090)}) {
    window().resize(screen / window().devicePixelRatioF());
    if (window().width() < 720) {
      continue;  // smaller than the window's own size
    }
    for (int tab = 0; tab < 2; ++tab) {
      form().SSTab1.setTab(tab);
      window().binder().flush();
      EXPECT_EQ(clipped(), "") << screen.width() << " by " << screen.height() << ", tab " << tab;
    }
  }
}

TEST_F(Layout, MaximisedTheWindowFillsTheScreenAndRestoredItSnapsBack) {
  const QSize normal = window().size();
  window().showMaximized();
  turn();
  EXPECT_TRUE(window().isMaximized());
  EXPECT_NEAR(window().frameGeometry().height(), window().screen()->availableSize().height(), 1);
  window().showNormal();
  turn();
  turn();
  EXPECT_EQ(window().size(), normal);
}

TEST_F(Layout, NoWidgetReachesBeyondThePanelThatHoldsItAtAnySize) {
  goLive();
  for (int width = 700; width < 1500; width += 37) {
    window().showMaximized();
    window().resize(width, width / 2 + 11);
    for (const QWidget* widget : window().findChildren<QWidget*>()) {
      const QWidget* parent = widget->parentWidget();
      const bool placed = !widget->objectName().isEmpty() &&
                          !widget->objectName().startsWith(QLatin1String("qt_")) &&
                          !widget->dynamicPropertyNames().contains("placed") &&
                          !parent->inherits("QAbstractScrollArea") && !parent->inherits("QTabBar");
      if (placed) {
        EXPECT_TRUE(parent->rect().contains(widget->geometry()))
            << qUtf8Printable(widget->objectName()) << " at width " << width;
      }
    }
  }
}

TEST_F(Layout, NoTwoShownWidgetsOfOnePanelOverlap) {
  goLive();
  for (const char* panel :
       {"panScon", "groupChannelA", "groupTrigger", "groupMeter", "frmMain", "StatusBar1"}) {
    QWidget* parent = QLatin1String(panel) == QLatin1String("frmMain") ? &window() : find(panel);
    const auto children = parent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* one : children) {
      for (const QWidget* other : children) {
        if (one != other && one->isVisible() && other->isVisible()) {
          EXPECT_FALSE(one->geometry().intersects(other->geometry()))
              << qUtf8Printable(one->objectName()) << " over " << qUtf8Printable(other->objectName());
        }
      }
    }
  }
}

}  // namespace
}  // namespace vireon::tests
