#include "form/picture_box.h"

#include <gtest/gtest.h>

#include "tests/form/recording_view.h"

namespace vireon::form {
namespace {

using Names = std::vector<std::string>;

class PictureBoxTest : public testing::Test {
 protected:
  PictureBoxTest() { form_.setView(&view_); }

  Form form_{"window"};
  PictureBox picture_{form_, "picScope"};
  tests::RecordingView view_;
};

TEST_F(PictureBoxTest, KeepsItsLinesInTheOrderOfDrawing) {
  EXPECT_TRUE(picture_.lines().empty());
  picture_.line(510, -170, 540, -140, kRed);
  picture_.line(1, 2, 3, 4, kGreen);
  ASSERT_EQ(picture_.lines().size(), 2U);
  EXPECT_EQ(picture_.lines()[0], (Line{510, -170, 540, -140, kRed}));
  EXPECT_EQ(picture_.lines()[1], (Line{1, 2, 3, 4, kGreen}));
  EXPECT_EQ(view_.changes, (Names{"picScope", "picScope"}));
}

TEST_F(PictureBoxTest, ClearingRemovesEveryLineAndAnEmptyPictureIsNotTold) {
  picture_.line(1, 2, 3, 4, kRed);
  view_.changes.clear();
  picture_.cls();
  EXPECT_TRUE(picture_.lines().empty());
  EXPECT_EQ(view_.changes, Names{"picScope"});
  picture_.cls();
  EXPECT_EQ(view_.changes, Names{"picScope"});
}

TEST_F(PictureBoxTest, LinesBeyondTheMaximumAreDroppedUntold) {
  for (std::size_t line = 0; line < PictureBox::kMaximumLines; ++line) {
    picture_.line(static_cast<int>(line), 0, 0, 0, kRed);
  }
  view_.changes.clear();
  picture_.line(-1, -1, -1, -1, kGreen);
  EXPECT_EQ(picture_.lines().size(), 10000U);
  EXPECT_EQ(picture_.lines().back(), (Line{9999, 0, 0, 0, kRed}));
  EXPECT_EQ(view_.changes, Names{});
}

TEST_F(PictureBoxTest, LinesDifferInEachCoordinateAndTheColour) {
  const Line line{1, 2, 3, 4, kRed};
  EXPECT_EQ(line, (Line{1, 2, 3, 4, kRed}));
  for (const Line& other : {Line{0, 2, 3, 4, kRed}, Line{1, 0, 3, 4, kRed}, Line{1, 2, 0, 4, kRed},
                            Line{1, 2, 3, 0, kRed}, Line{1, 2, 3, 4, kGreen}}) {
    EXPECT_NE(line, other);
  }
}

TEST(Shape, StartsWhiteAndTellsTheViewOfANewFill) {
  Form form("window");
  Shape lamp(form, "Txled_0");
  tests::RecordingView view;
  form.setView(&view);
  EXPECT_EQ(lamp.fillColor(), kWhite);
  lamp.setFillColor(kWhite);
  EXPECT_EQ(view.changes, Names{});
  lamp.setFillColor(kRed);
  EXPECT_EQ(lamp.fillColor(), kRed);
  EXPECT_EQ(view.changes, Names{"Txled_0"});
}

}  // namespace
}  // namespace vireon::form
