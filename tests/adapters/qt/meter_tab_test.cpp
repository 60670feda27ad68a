#include <QAction>
#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QTableView>

#include "adapters/qt/picture_view.h"
#include "platform/twips.h"
#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

class MeterTab : public WindowTest {
 protected:
  void showMeter(int mode = 0) {
    click("cmdBttn_0");
    form().SSTab1.setTab(1);
    form().cmbDmod.setListIndex(mode);
    turn();
  }
};

TEST_F(MeterTab, TheReadingBearsTheSignsOfWhatIsOn) {
  showMeter();
  form().chkHold.setValue(0);
  form().chkDmAt.setValue(0);
  turn();
  EXPECT_FALSE(find("signHold")->isVisible());
  EXPECT_FALSE(find("signAuto")->isVisible());
  click("chkHold");
  EXPECT_TRUE(find("signHold")->isVisible());
  EXPECT_FALSE(find("signAuto")->isVisible());
  click("chkDmAt");
  EXPECT_TRUE(find("signAuto")->isVisible());
}

TEST_F(MeterTab, TheReadingIsTallerThanEveryOtherText) {
  showMeter();
  const int height = find("dmmMrdg")->font().pixelSize();
  for (const QLabel* label : window().findChildren<QLabel*>()) {
    if (label != find("dmmMrdg") && label->isVisible()) {
      EXPECT_GT(height, 2 * label->font().pixelSize()) << qUtf8Printable(label->objectName());
    }
  }
}

TEST_F(MeterTab, TheMemoryMenuSetsTheSampleMethodAndClearsTheMemoryAfterAsking) {
  showMeter();
  QList<QAction*> entries = find("menuMemory")->actions();
  ASSERT_EQ(entries.size(), 3);
  entries[2]->trigger();
  EXPECT_EQ(lastCommand(), "SMM01");
  messages.answers = {QMessageBox::No};
  instrument.clearLog();
  entries[0]->trigger();
  EXPECT_TRUE(instrument.log().empty());
  entries[0]->trigger();
  EXPECT_EQ(lastCommand(), "DRC01;STS??");
  EXPECT_EQ(messages.seen.size(), 2U);
}

TEST_F(MeterTab, AColumnsWidthIsThatOfTheFormAndGrowsWithTheList) {
  showMeter();
  const auto* const list = find<QTableView>("grdLog");
  const double wanted =
      form().grdLog.columnWidth(0) * window().screen()->logicalDotsPerInchX() / platform::kTwipsPerInch;
  EXPECT_NEAR(list->columnWidth(0), wanted, 0.03 * wanted + 1);
  const double share = static_cast<double>(list->columnWidth(0)) / list->width();
  window().showMaximized();
  turn();
  EXPECT_NEAR(static_cast<double>(list->columnWidth(0)) / list->width(), share, 0.01);
}

TEST_F(MeterTab, TheTrendHasAFrameOfTenByFourDivisions) {
  showMeter(4);
  const auto* picture = find<adapters::PictureView>("picTrd");
  const QImage image = find("picTrd")->grab().toImage();
  // In the screen's own pixels.
  const auto at = [&](int x, int y) {
    return (picture->fromTwips(x, y) * image.devicePixelRatio()).toPoint();
  };
  for (int column = 0; column <= 10; ++column) {
    const QPoint line(at(750 + 360 * column, 60).x(), at(0, 210).y());
    EXPECT_GT(qGray(image.pixel(line)), 50) << "column " << column;
    EXPECT_LT(qGray(image.pixel(line + QPoint(5, 0))), 30) << "beside column " << column;
  }
  for (int row = 0; row <= 4; ++row) {
    const QPoint line(at(930, 0).x(), at(750, 60 + 300 * row).y());
    EXPECT_GT(qGray(image.pixel(line)), 50) << "row " << row;
    EXPECT_LT(qGray(image.pixel(line + QPoint(0, 5))), 30) << "below row " << row;
  }
}

TEST_F(MeterTab, PointsAboveThePictureAreClippedAndLeaveTheRestAlone) {
  showMeter(4);
  form().picTrd.line(1000, 1000, 1030, -6390, form::kRed);
  form().picTrd.line(1030, -6390, 1060, 1000, form::kRed);
  turn();
  const QImage image = window().grab().toImage();
  const QPoint above = find("picTrd")->mapTo(&window(), QPoint(60, -4));
  EXPECT_NE(image.pixelColor(above * image.devicePixelRatio()), QColor(Qt::red));
  EXPECT_TRUE(find("lblDttl")->isVisible());
}

TEST_F(MeterTab, TheFileControlsAreUsableBeforeAnInstrumentIsConnected) {
  instrument.clearLog();
  for (const char* name : {"txtFn_0", "cmdSave_0", "cmdLoad_0", "cmdOpen"}) {
    EXPECT_TRUE(find(name)->isVisible() && find(name)->isEnabled()) << name;
  }
  EXPECT_FALSE(find("txtFn_1")->isVisible());
  form().SSTab1.look(1);
  turn();
  for (const char* name :
       {"txtFn_1", "cmdSave_1", "cmdLoad_1", "optFmt_0", "optFmt_1", "cmdLprt", "grdLog"}) {
    EXPECT_TRUE(find(name)->isVisible() && find(name)->isEnabled()) << name;
  }
  EXPECT_FALSE(find("txtFn_0")->isVisible());
  EXPECT_FALSE(find("cmdLog_0")->isEnabled());
  EXPECT_TRUE(instrument.log().empty());
}

}  // namespace
}  // namespace vireon::tests
