#include "adapters/qt/edge_slider.h"

#include <QLabel>
#include <QWheelEvent>

#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

using adapters::EdgeSlider;
using Texts = std::vector<std::string>;

class EdgeSliderOnTheScope : public WindowTest {
 protected:
  EdgeSliderOnTheScope() { goLive(); }

  EdgeSlider* slider(const char* name) { return find<EdgeSlider>(name); }

  // The middle of a marker in the pixels of a slider.
  int markerOf(const char* slider, const char* marker) {
    const QWidget* label = find(marker);
    const QPoint middle = label->mapTo(&window(), label->rect().center());
    const QPoint inside = find(slider)->mapFrom(&window(), middle);
    return find<EdgeSlider>(slider)->orientation() == Qt::Vertical ? inside.y() : inside.x();
  }

  // Commands of a control since `act` began, without the poll's.
  template <class Act>
  Texts sentBy(const Act& act) {
    instrument.clearLog();
    act();
    turn();
    Texts sent;
    for (const std::string& command : instrument.log()) {
      if (command != "DRS??") {
        sent.push_back(command);
      }
    }
    return sent;
  }

  void drag(EdgeSlider& slider, int pixels) {
    const QPoint from(slider.width() / 2, slider.handlePosition());
    QTest::mousePress(&slider, Qt::LeftButton, {}, from);
    const int step = pixels < 0 ? -1 : 1;
    for (int moved = step; moved != pixels + step; moved += step) {
      QTest::mouseMove(&slider, from + QPoint(0, moved));
    }
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, from + QPoint(0, pixels));
  }

  static void turnWheel(QWidget& widget, int notches) {
    QWheelEvent event(QPointF(widget.rect().center()), widget.mapToGlobal(QPointF(widget.rect().center())),
                      {}, QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
  }
};

TEST_F(EdgeSliderOnTheScope, EachHandleStandsBesideItsMarker) {
  EXPECT_NEAR(slider("sldPosV_0")->handlePosition(), markerOf("sldPosV_0", "posDV_0"), 1);
  EXPECT_NEAR(slider("sldPosV_1")->handlePosition(), markerOf("sldPosV_1", "posDV_1"), 1);
  EXPECT_NEAR(slider("trgLvl")->handlePosition(), markerOf("trgLvl", "posT"), 1);
  EXPECT_NEAR(slider("sldPosH")->handlePosition(), markerOf("sldPosH", "markT"), 1);
}

TEST_F(EdgeSliderOnTheScope, ADragIsSentOnceWhenItIsComplete) {
  EdgeSlider& position = *slider("sldPosV_0");
  const int before = form().sldPosV[0].value();
  EXPECT_EQ(sentBy([&] { drag(position, 20); }).size(), 1U);
  EXPECT_GT(form().sldPosV[0].value(), before);
  EXPECT_NEAR(position.handlePosition(), markerOf("sldPosV_0", "posDV_0"), 1);
}

TEST_F(EdgeSliderOnTheScope, TheMarkerFollowsThePointerOfADragBothWays) {
  EdgeSlider& position = *slider("sldPosV_1");
  for (const int pixels : {30, -45}) {
    const int before = markerOf("sldPosV_1", "posDV_1");
    drag(position, pixels);
    turn();
    EXPECT_NEAR(markerOf("sldPosV_1", "posDV_1"), before + pixels, 2);
  }
}

TEST_F(EdgeSliderOnTheScope, ADragThatEndsWhereItBeganSendsNothing) {
  EXPECT_EQ(sentBy([&] { drag(*slider("trgLvl"), 0); }), Texts{});
}

TEST_F(EdgeSliderOnTheScope, AnArrowKeyMovesByOneStepAndSendsOnce) {
  const int before = form().sldPosV[0].value();
  slider("sldPosV_0")->setFocus();
  EXPECT_EQ(sentBy([&] { QTest::keyClick(slider("sldPosV_0"), Qt::Key_Down); }).size(), 1U);
  EXPECT_EQ(form().sldPosV[0].value(), before + 1);
  sentBy([&] { QTest::keyClick(slider("sldPosV_0"), Qt::Key_Up); });
  EXPECT_EQ(form().sldPosV[0].value(), before);
}

TEST_F(EdgeSliderOnTheScope, AHeldKeySendsOnceWhenItIsReleased) {
  EdgeSlider& position = *slider("sldPosV_0");
  const int before = position.value();
  const Texts sent = sentBy([&] {
    for (int repeat = 0; repeat < 5; ++repeat) {
      QTest::keyPress(&position, Qt::Key_Down);
    }
    QTest::keyRelease(&position, Qt::Key_Down);
  });
  EXPECT_EQ(sent.size(), 1U);
  EXPECT_EQ(form().sldPosV[0].value(), before + 5);
}

TEST_F(EdgeSliderOnTheScope, APageKeyMovesByADivision) {
  const int before = form().sldPosV[0].value();
  sentBy([&] { QTest::keyClick(slider("sldPosV_0"), Qt::Key_PageDown); });
  EXPECT_EQ(form().sldPosV[0].value(), before + 14);
  const int level = form().trgLvl.value();
  sentBy([&] { QTest::keyClick(slider("trgLvl"), Qt::Key_PageUp); });
  EXPECT_EQ(form().trgLvl.value(), level - 14);
}

TEST_F(EdgeSliderOnTheScope, APressBesideTheHandleMovesByADivision) {
  EdgeSlider& position = *slider("sldPosV_0");
  const int before = form().sldPosV[0].value();
  sentBy([&] {
    QTest::mouseClick(&position, Qt::LeftButton, {}, QPoint(position.width() / 2, position.height() - 2));
  });
  EXPECT_EQ(form().sldPosV[0].value(), before + 14);
}

TEST_F(EdgeSliderOnTheScope, TheWheelSendsOnceWhenItRests) {
  const int before = form().sldPosV[0].value();
  instrument.clearLog();
  turnWheel(*slider("sldPosV_0"), -1);
  turnWheel(*slider("sldPosV_0"), -1);
  EXPECT_TRUE(instrument.log().empty());
  ASSERT_TRUE(QTest::qWaitFor([&] { return form().sldPosV[0].value() != before; }));
  EXPECT_GT(form().sldPosV[0].value(), before);
}

TEST_F(EdgeSliderOnTheScope, TheHandleStopsAtThePicturesEndAndKeysReachBeyond) {
  EdgeSlider& position = *slider("sldPosV_0");
  sentBy([&] { QTest::keyClick(&position, Qt::Key_End); });
  EXPECT_EQ(form().sldPosV[0].value(), 255);
  EXPECT_EQ(position.handlePosition(), position.height() - 1);
  sentBy([&] { QTest::keyClick(&position, Qt::Key_Home); });
  EXPECT_EQ(form().sldPosV[0].value(), 0);
  EXPECT_EQ(position.handlePosition(), 0);
}

TEST_F(EdgeSliderOnTheScope, AReplyInTheMiddleOfADragDoesNotMoveTheHandle) {
  EdgeSlider& position = *slider("sldPosV_0");
  const QPoint from(position.width() / 2, position.handlePosition());
  QTest::mousePress(&position, Qt::LeftButton, {}, from);
  QTest::mouseMove(&position, from + QPoint(0, 24));
  const int held = position.handlePosition();
  const int value = position.value();
  instrument.settings().a.position += 9;
  tick();
  EXPECT_EQ(position.handlePosition(), held);
  EXPECT_EQ(position.value(), value);
  QTest::mouseRelease(&position, Qt::LeftButton, {}, from + QPoint(0, 24));
  EXPECT_EQ(form().sldPosV[0].value(), value);
}

TEST_F(EdgeSliderOnTheScope, AMoveThatAFailureOvertakesIsTakenBackWithoutASecondMessage) {
  EdgeSlider& position = *slider("sldPosV_0");
  const int before = position.value();
  for (const bool byWheel : {false, true}) {
    const std::size_t told = messages.seen.size();
    const QPoint from(position.width() / 2, position.handlePosition());
    if (byWheel) {
      turnWheel(position, -1);
    } else {
      QTest::mousePress(&position, Qt::LeftButton, {}, from);
      QTest::mouseMove(&position, from + QPoint(0, 24));
    }
    endpoint.unplug();
    tick();
    QTest::mouseRelease(&position, Qt::LeftButton, {}, from + QPoint(0, 24));
    letHappen(std::chrono::milliseconds(2 * EdgeSlider::kSettled));
    EXPECT_EQ(messages.seen.size(), told + 1);
    EXPECT_FALSE(position.moving());
    EXPECT_EQ(position.value(), before);
    endpoint.plug();
    goLive();
  }
}

}  // namespace
}  // namespace vireon::tests
