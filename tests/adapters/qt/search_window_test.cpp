#include "adapters/qt/search_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace vireon::tests {
namespace {

const std::string kAdvice =
    "This account may not read and write /dev/ttyUSB0, which belongs to the group dialout.\nThis command "
    "makes "
    "it a member; then log out and in again:\n\nsudo usermod -aG dialout \"$USER\"";

class SearchWindowTest : public testing::Test {
 protected:
  SearchWindowTest() {
    window.onCancel = [this] { ++cancels; };
  }

  QString step() const { return window.findChild<QLabel*>(QStringLiteral("searchStep"))->text(); }
  QLabel* advice() const { return window.findChild<QLabel*>(QStringLiteral("searchAdvice")); }
  QPushButton* button() const { return window.findChild<QPushButton*>(QStringLiteral("searchCancel")); }
  QProgressBar* progress() const { return window.findChild<QProgressBar*>(); }

  // Every visible text has the room that it needs, inside the window.
  void expectNothingClipped() const {
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      if (label->isVisible()) {
        const int needed =
            label->hasHeightForWidth() ? label->heightForWidth(label->width()) : label->sizeHint().height();
        EXPECT_GE(label->height(), needed) << label->text().toStdString();
        EXPECT_TRUE(label->wordWrap() || label->width() >= label->sizeHint().width())
            << label->text().toStdString();
        EXPECT_TRUE(window.rect().contains(label->geometry())) << label->text().toStdString();
      }
    }
    EXPECT_GE(button()->width(), button()->minimumSizeHint().width());
    EXPECT_GE(button()->height(), button()->minimumSizeHint().height());
    EXPECT_TRUE(window.rect().contains(button()->geometry()));
  }

  int cancels = 0;
  adapters::SearchWindow window;
};

TEST_F(SearchWindowTest, IsOnScreenFromTheOutermostBeginToItsEnd) {
  EXPECT_FALSE(window.isVisible());
  window.begin();
  EXPECT_TRUE(window.isVisible());
  window.begin();
  window.end();
  EXPECT_TRUE(window.isVisible());
  window.end();
  EXPECT_FALSE(window.isVisible());
}

TEST_F(SearchWindowTest, AnInnerBeginKeepsWhatIsShown) {
  window.begin();
  window.trying(2, "4800", 6);
  window.advise("line", kAdvice);
  window.begin();
  EXPECT_EQ(step(), QStringLiteral("Trying COM2 at 4800 baud ..."));
  EXPECT_EQ(progress()->value(), 6);
  EXPECT_TRUE(advice()->isVisible());
}

TEST_F(SearchWindowTest, ShowsThePairAndTheProgressOfSixteen) {
  window.begin();
  EXPECT_EQ(step(), QStringLiteral("Trying USB ..."));
  EXPECT_EQ(progress()->value(), 0);
  window.trying(4, "1200", 16);
  EXPECT_EQ(step(), QStringLiteral("Trying COM4 at 1200 baud ..."));
  EXPECT_EQ(progress()->value(), progress()->maximum());
  EXPECT_EQ(progress()->maximum(), 16);
}

TEST_F(SearchWindowTest, ItsButtonCancels) {
  window.begin();
  QTest::mouseClick(button(), Qt::LeftButton);
  EXPECT_EQ(cancels, 1);
  EXPECT_EQ(step(), QStringLiteral("Ending the search ..."));
  EXPECT_FALSE(button()->isEnabled());
  EXPECT_TRUE(window.isVisible());
}

TEST_F(SearchWindowTest, IsCancelledOnceHoweverOftenOneTries) {
  window.begin();
  QTest::mouseClick(button(), Qt::LeftButton);
  QTest::mouseClick(button(), Qt::LeftButton);
  QTest::keyClick(&window, Qt::Key_Escape);
  window.close();
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(cancels, 1);
}

TEST_F(SearchWindowTest, EscapeAndClosingCancelToo) {
  window.begin();
  QTest::keyClick(&window, Qt::Key_A);
  EXPECT_EQ(cancels, 0);
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_EQ(cancels, 1);
  window.end();
  window.begin();
  EXPECT_FALSE(window.close());
  EXPECT_EQ(cancels, 2);
}

TEST_F(SearchWindowTest, TheStepThatIsTriedAfterACancelKeepsSayingSo) {
  window.begin();
  window.close();
  window.trying(3, "2400", 10);
  EXPECT_EQ(step(), QStringLiteral("Ending the search ..."));
}

TEST_F(SearchWindowTest, TheNextSearchStartsAfresh) {
  window.begin();
  window.trying(4, "1200", 16);
  window.advise("line", kAdvice);
  window.close();
  window.end();
  window.begin();
  EXPECT_EQ(step(), QStringLiteral("Trying USB ..."));
  EXPECT_EQ(progress()->value(), 0);
  EXPECT_FALSE(advice()->isVisible());
  EXPECT_TRUE(button()->isEnabled());
}

TEST_F(SearchWindowTest, AnAdviceIsShownWholeAndItsCommandCanBeCopied) {
  window.begin();
  EXPECT_FALSE(advice()->isVisible());
  window.advise("line", kAdvice);
  EXPECT_TRUE(advice()->isVisible());
  EXPECT_EQ(advice()->text().toStdString(), kAdvice);
  EXPECT_TRUE(advice()->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
  EXPECT_EQ(advice()->textFormat(), Qt::PlainText);
}

TEST_F(SearchWindowTest, EscapeCancelsAlsoFromTheAdvice) {
  window.begin();
  window.advise("line", kAdvice);
  advice()->setFocus();
  QTest::keyClick(advice(), Qt::Key_Escape);
  EXPECT_EQ(cancels, 1);
}

TEST_F(SearchWindowTest, NothingIsClipped) {
  window.begin();
  window.trying(4, "9600", 13);
  QApplication::processEvents();
  expectNothingClipped();
  window.advise("line", kAdvice);
  QApplication::processEvents();
  expectNothingClipped();
}

TEST_F(SearchWindowTest, StandsOverTheWindowThatItShieldsFromInput) {
  QWidget over;
  over.show();
  window.standOver(&over);
  window.begin();
  EXPECT_TRUE(window.isWindow());
  EXPECT_EQ(window.parentWidget(), &over);
  EXPECT_EQ(window.windowModality(), Qt::WindowModal);
  window.end();
  EXPECT_EQ(window.parentWidget(), nullptr);
}

TEST_F(SearchWindowTest, AloneItShieldsNothing) {
  window.begin();
  EXPECT_TRUE(window.isWindow());
  EXPECT_EQ(window.windowModality(), Qt::NonModal);
}

}  // namespace
}  // namespace vireon::tests
