#include <QImage>
#include <QLabel>
#include <QtMath>
#include <algorithm>
#include <cmath>

#include "adapters/qt/picture_view.h"
#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

class Live : public WindowTest {
 protected:
  // The picture without its markers.
  QImage picture() {
    auto* view = find<adapters::PictureView>("picScope");
    for (QLabel* marker : view->findChildren<QLabel*>()) {
      marker->hide();
    }
    const QImage image = view->grab().toImage();
    for (QLabel* marker : view->findChildren<QLabel*>()) {
      marker->show();
    }
    return image;
  }

  // Where a sample stands in the picture's widget, and in its image, whose pixels may be finer.
  QPointF placeOf(std::size_t sample, int value) {
    return find<adapters::PictureView>("picScope")
        ->fromTwips(510 + 30 * static_cast<int>(sample), 30 * value - 170);
  }
  QPointF pointOf(std::size_t sample, int value) { return placeOf(sample, value) * fineness(); }
  double fineness() { return window().devicePixelRatio(); }

  static bool isRed(QRgb pixel) { return qRed(pixel) > 90 && qRed(pixel) > 2 * qGreen(pixel); }
  static bool isGreen(QRgb pixel) { return qGreen(pixel) > 90 && qGreen(pixel) > 2 * qRed(pixel); }

  template <class Test>
  static bool near(const QImage& image, QPointF point, int reach, const Test& test) {
    for (int dy = -reach; dy <= reach; ++dy) {
      for (int dx = -reach; dx <= reach; ++dx) {
        const QPoint at = point.toPoint() + QPoint(dx, dy);
        if (image.valid(at) && test(image.pixel(at))) {
          return true;
        }
      }
    }
    return false;
  }

  double distanceTo(const simulator::Samples& trace, QPointF point) {
    double nearest = 1e9;
    for (std::size_t i = 1; i < trace.size(); ++i) {
      const QPointF a = pointOf(i - 1, trace[i - 1]);
      const QPointF ab = pointOf(i, trace[i]) - a;
      const double t = std::clamp(QPointF::dotProduct(point - a, ab) / QPointF::dotProduct(ab, ab), 0.0, 1.0);
      const QPointF off = point - (a + t * ab);
      nearest = std::min(nearest, std::hypot(off.x(), off.y()));
    }
    return nearest;
  }

  template <class Test>
  void expectTrace(const QImage& image, const simulator::Samples& trace, const Test& isTrace) {
    for (std::size_t i = 0; i < trace.size(); ++i) {
      const QPointF point = pointOf(i, trace[i]);
      if (image.rect().adjusted(1, 1, -1, -1).contains(point.toPoint())) {
        EXPECT_TRUE(near(image, point, qCeil(fineness()), isTrace))
            << "sample " << i << " is not on the screen";
      }
    }
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (isTrace(image.pixel(x, y))) {
          EXPECT_LT(distanceTo(trace, QPointF(x + 0.5, y + 0.5)), 1.6 * fineness())
              << "stray pixel " << x << ", " << y;
        }
      }
    }
  }
};

TEST_F(Live, AButtonThatWasGreenFollowsTheDesktopsColoursAgain) {
  goLive();
  click("cmdStart");
  const QPalette before = QApplication::palette();
  QPalette dark = before;
  dark.setColor(QPalette::Button, QColor(1, 2, 3));
  dark.setColor(QPalette::ButtonText, QColor(4, 5, 6));
  QApplication::setPalette(dark);
  letHappen();
  const QPalette shown = find("cmdStart")->palette();
  QApplication::setPalette(before);
  EXPECT_EQ(shown.color(QPalette::Button), QColor(1, 2, 3));
  EXPECT_EQ(shown.color(QPalette::Disabled, QPalette::Button), QColor(1, 2, 3));
}

TEST_F(Live, ConnectingTurnsTheButtonGreenAndEnablesThePanel) {
  ASSERT_FALSE(find("panScon")->isEnabled());
  click("cmdBttn_0");
  EXPECT_EQ(lastCommand(), "DFN??");
  EXPECT_EQ(find("cmdBttn_0")->palette().color(QPalette::Button), QColor(128, 255, 128));
  EXPECT_EQ(find<QLabel>("StatusBar1_2")->text(), QStringLiteral("Connected"));
  EXPECT_TRUE(find("panScon")->isEnabled());
  EXPECT_TRUE(find("cmdStart")->isEnabled());
}

TEST_F(Live, TheSamplesThatTheInstrumentSendsAreTheTracesOnTheScreen) {
  goLive();
  const QImage image = picture();
  const simulator::Trace sent = instrument.trace();
  expectTrace(image, sent.a, isRed);
  expectTrace(image, sent.b, isGreen);
}

TEST_F(Live, TheMarkersStandAtTheTracesOnTheScreen) {
  goLive();
  const auto middle = [this](const char* name) {
    const QWidget* marker = find(name);
    return QRectF(marker->geometry()).center();
  };
  const auto& settings = instrument.settings();
  for (int channel = 0; channel < 2; ++channel) {
    const int zero = channel == 0 ? settings.a.position : settings.b.position;
    EXPECT_NEAR(middle(channel == 0 ? "posDV_0" : "posDV_1").y(), placeOf(0, zero).y(), 1.5);
  }
  EXPECT_NEAR(middle("posT").y(), placeOf(0, settings.a.position - (settings.trigger.level - 128)).y(), 1.5);
  const auto trigger = static_cast<std::size_t>(settings.timeBase.position);
  EXPECT_NEAR(middle("markT").x(), placeOf(trigger, 0).x(), 1.5);
  EXPECT_NEAR(instrument.trace().a[trigger], settings.a.position - (settings.trigger.level - 128), 2);
}

TEST_F(Live, AKnobTurnedOnThePanelChangesTheTraceOnTheScreen) {
  goLive();
  const auto before = instrument.trace();
  click("cmdVu_0");
  EXPECT_EQ(lastCommand(), "VDAup;VDA??");
  tick();
  EXPECT_NE(instrument.trace().a, before.a);
  expectTrace(picture(), instrument.trace().a, isRed);
  EXPECT_EQ(find<QLabel>("lblVd_0")->text(), QStringLiteral("2V"));
}

TEST_F(Live, AChannelSwitchedOffLeavesTheScreen) {
  goLive();
  click("chkVof_1");
  EXPECT_EQ(lastCommand(), "VDBof;VDB??");
  tick();
  const QImage image = picture();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      ASSERT_FALSE(isGreen(image.pixel(x, y)));
    }
  }
  expectTrace(image, instrument.trace().a, isRed);
}

TEST_F(Live, TheGraticuleStaysWhenThePictureIsCleared) {
  const QImage empty = picture();
  const QPointF middle = find<adapters::PictureView>("picScope")->fromTwips(510 + 5 * 372, 10 + 4 * 420);
  const QPoint crossing = (QPointF(middle.toPoint()) * fineness()).toPoint();
  EXPECT_GT(qGray(empty.pixel(crossing)), 60);
  goLive();
  form().picScope.cls();
  turn();
  EXPECT_EQ(picture(), empty);
}

TEST_F(Live, EachTickOfTheTimerShowsTheLatestFrame) {
  goLive();
  for (int frame = 0; frame < 20; ++frame) {
    instrument.signal(simulator::Channel::kA).amplitude = 1.0 + 0.05 * frame;
    tick();
  }
  expectTrace(picture(), instrument.trace().a, isRed);
}

TEST_F(Live, FramesBetweenTwoPaintsAreDrawnLatestOnlyNeverQueued) {
  goLive();
  int paints = 0;
  struct PaintCounter : QObject {
    int* count = nullptr;
    bool eventFilter(QObject* object, QEvent* event) override {
      *count += event->type() == QEvent::Paint ? 1 : 0;
      return QObject::eventFilter(object, event);
    }
  } counter;
  counter.count = &paints;
  find("picScope")->installEventFilter(&counter);
  for (int frame = 0; frame < 50; ++frame) {
    clock.advance(std::chrono::milliseconds(1));
    form().tmrInt.tick();
  }
  turn();
  EXPECT_EQ(paints, 1);
}

TEST_F(Live, DisconnectingTakesLeaveOfTheInstrument) {
  goLive();
  click("cmdBttn_0");
  EXPECT_EQ(lastCommand(), "GTL");
  EXPECT_EQ(find<QLabel>("StatusBar1_2")->text(), QStringLiteral("Disconnected"));
  EXPECT_FALSE(find("panScon")->isEnabled());
  EXPECT_FALSE(find("cmdStart")->isEnabled());
}

TEST_F(Live, TheExitButtonTakesLeaveAndClosesTheWindow) {
  goLive();
  QTest::mouseClick(find("cmdBttn_1"), Qt::LeftButton);
  EXPECT_EQ(lastCommand(), "GTL");
  EXPECT_FALSE(window().isVisible());
}

TEST_F(Live, ClosingTheWindowTakesLeaveOfTheInstrumentOnce) {
  goLive();
  window().close();
  EXPECT_EQ(lastCommand(), "GTL");
  EXPECT_EQ(std::count(instrument.log().begin(), instrument.log().end(), "GTL"), 1);
}

}  // namespace
}  // namespace vireon::tests
