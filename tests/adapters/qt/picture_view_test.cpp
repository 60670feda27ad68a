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
    view_.resize(467, 301);
    view_.setPicture(picture_);
  }

  QImage painted() { return view_.grab().toImage().scaled(view_.size()); }

  form::Form form_{"window"};
  form::PictureBox picture_{form_, "picTrd"};
  PictureView view_;
};

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
