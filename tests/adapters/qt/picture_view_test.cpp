#include "adapters/qt/picture_view.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>
#include <QVariant>

namespace vireon::adapters {
namespace {

// A trend plot of ten twips a unit.
class TrendPlot : public testing::Test {
 protected:
  TrendPlot() {
    view_.setProperty("twipsWidth", 4670);
    view_.setProperty("twipsHeight", 3010);
    view_.setProperty("graticule", QStringLiteral("trend"));
    view_.resize(467, 301);
    view_.setPicture(picture_);
  }

  QImage painted() { return view_.grab().toImage().scaled(view_.size()); }

  static bool isBlack(const QImage& image, int x, int y) {
    return image.pixelColor(x, y) == QColor(Qt::black);
  }

  form::Form form_{"window"};
  form::PictureBox picture_{form_, "picTrd"};
  PictureView view_;
};

TEST_F(TrendPlot, HasAFrameOfTenByFourDivisions) {
  const QImage image = painted();
  for (int column = 0; column <= 10; ++column) {
    EXPECT_FALSE(isBlack(image, 75 + 36 * column, 20)) << column;
    EXPECT_TRUE(isBlack(image, 75 + 36 * column + 18, 20)) << column;
  }
  for (int row = 0; row <= 4; ++row) {
    EXPECT_FALSE(isBlack(image, 90, 6 + 30 * row)) << row;
    EXPECT_TRUE(isBlack(image, 90, 6 + 30 * row + 15)) << row;
  }
  EXPECT_TRUE(isBlack(image, 60, 6));
  EXPECT_TRUE(isBlack(image, 75, 140));
}

TEST_F(TrendPlot, AValueAboveThePictureIsClippedAtItsEdge) {
  picture_.line(1000, 1260, 1030, 1260 - 30 * 255, form::kRed);
  const QImage image = painted();
  const auto reddish = [&](int y) {
    for (int x = 98; x <= 105; ++x) {
      if (image.pixelColor(x, y).red() > 100 && image.pixelColor(x, y).green() < 60) {
        return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(reddish(100));
  EXPECT_TRUE(reddish(1));
  EXPECT_FALSE(reddish(160));
}

}  // namespace
}  // namespace vireon::adapters
