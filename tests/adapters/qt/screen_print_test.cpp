#include <QAction>
#include <QClipboard>
#include <QLabel>

#include "adapters/qt/bitmap_image.h"
#include "adapters/qt/viewer_window.h"
#include "tests/adapters/qt/dialog_user.h"
#include "tests/adapters/qt/window_fixture.h"

namespace vireon::tests {
namespace {

class ScreenPrintButton : public WindowTest {
 protected:
  static adapters::QtViewerWindow* viewer() {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (auto* found = qobject_cast<adapters::QtViewerWindow*>(top)) return found;
    }
    return nullptr;
  }

  void choose(const char* name) {
    auto* item = viewer()->findChild<QAction*>(QLatin1String(name));
    ASSERT_NE(item, nullptr) << name;
    item->trigger();
    QApplication::processEvents();
  }
};

TEST_F(ScreenPrintButton, ShowsTheWindowInTheViewerAfterItsSecond) {
  click("cmdSprint");
  ASSERT_NE(viewer(), nullptr);
  EXPECT_TRUE(viewer()->isVisible());
  EXPECT_EQ(viewer()->windowTitle(), QStringLiteral("Capture Window"));
  EXPECT_EQ(viewer()->findChild<QLabel*>(QStringLiteral("Picture1"))->size(), window().size());
}

TEST_F(ScreenPrintButton, TheLivePictureRunsDuringTheSecondAndTheButtonIsDisabled) {
  goLive();
  instrument.clearLog();
  form().tmrInt.setInterval(50);
  bool enabled = true;
  QTimer::singleShot(500, &window(), [&] { enabled = find("cmdSprint")->isEnabled(); });
  click("cmdSprint");
  EXPECT_GT(instrument.log().size(), 5U);
  EXPECT_FALSE(enabled);
  EXPECT_TRUE(find("cmdSprint")->isEnabled());
}

TEST_F(ScreenPrintButton, KeepsTheFocusOverItsSecond) {
  find("cmdSprint")->setFocus();
  QTest::keyClick(find("cmdSprint"), Qt::Key_Space);
  turn();
  EXPECT_EQ(window().focusWidget(), find("cmdSprint"));
}

TEST_F(ScreenPrintButton, LeavesTheFocusWhereTheUserPutItMeanwhile) {
  find("cmdSprint")->setFocus();
  QTimer::singleShot(200, &window(), [this] { find("cmdBttn_0")->setFocus(); });
  QTest::keyClick(find("cmdSprint"), Qt::Key_Space);
  turn();
  EXPECT_EQ(window().focusWidget(), find("cmdBttn_0"));
}

TEST_F(ScreenPrintButton, ClosingTheWindowInTheSecondCancelsTheCapture) {
  QTimer::singleShot(100, &window(), [this] { window().close(); });
  find<QAbstractButton>("cmdSprint")->click();
  EXPECT_FALSE(window().isVisible());
  EXPECT_EQ(viewer(), nullptr);
}

TEST_F(ScreenPrintButton, TheViewerGoesWithTheMainWindow) {
  click("cmdSprint");
  ASSERT_NE(viewer(), nullptr);
  window().close();
  EXPECT_EQ(viewer(), nullptr);
}

TEST_F(ScreenPrintButton, AClosedViewerIsMadeAnew) {
  click("cmdSprint");
  viewer()->close();
  QApplication::processEvents();
  EXPECT_EQ(viewer(), nullptr);
  EXPECT_FALSE(program().frmCapture.isOpen());
  click("cmdSprint");
  EXPECT_NE(viewer(), nullptr);
}

TEST_F(ScreenPrintButton, TheMenusItemsAreThoseOfTheForm) {
  click("cmdSprint");
  for (const char* name : {"mnuOpen", "mnuFileSave", "mnuPrint", "mnuFileExit", "mnuClear", "mnuCopy"}) {
    const auto* item = viewer()->findChild<QAction*>(QLatin1String(name));
    ASSERT_NE(item, nullptr) << name;
    EXPECT_FALSE(item->text().isEmpty());
    EXPECT_FALSE(item->shortcut().isEmpty()) << name;
  }
}

TEST_F(ScreenPrintButton, CopiesTheVeryPixelsToTheClipboard) {
  click("cmdSprint");
  choose("mnuCopy");
  EXPECT_EQ(adapters::bitmapOf(QApplication::clipboard()->image()), program().frmCapture.Picture1().bitmap);
}

TEST_F(ScreenPrintButton, ClearingAndThenPrintingGivesOneMessageOverTheViewer) {
  click("cmdSprint");
  choose("mnuClear");
  EXPECT_TRUE(viewer()->findChild<QLabel*>(QStringLiteral("Picture1"))->pixmap(Qt::ReturnByValue).isNull());
  QWidget* over = nullptr;
  messages.whileOpen = [&] { over = QApplication::activeModalWidget()->parentWidget(); };
  choose("mnuPrint");
  ASSERT_EQ(messages.seen.size(), 1U);
  EXPECT_EQ(messages.seen[0].text, QStringLiteral("No Picture in Window."));
  EXPECT_EQ(messages.seen[0].title, QStringLiteral("Capture Active Window"));
  EXPECT_EQ(messages.seen[0].icon, QMessageBox::Information);
  EXPECT_EQ(over, viewer());
}

TEST_F(ScreenPrintButton, AViewerClosedBehindACommandThatGivesAMessageClosesBehindTheMessage) {
  click("cmdSprint");
  choose("mnuClear");
  bool there = false;
  messages.whileOpen = [&] {
    letHappen();
    there = viewer() != nullptr;
  };
  viewer()->findChild<QAction*>(QStringLiteral("mnuPrint"))->trigger();
  viewer()->close();
  EXPECT_TRUE(QTest::qWaitFor([] { return viewer() == nullptr; }));
  EXPECT_EQ(messages.seen.size(), 1U);
  EXPECT_TRUE(there);
}

TEST_F(ScreenPrintButton, SavesToTheChosenFileAndOpensItAgain) {
  click("cmdSprint");
  const platform::Bitmap taken = program().frmCapture.Picture1().bitmap;
  QString path;
  const auto choosePicture = [&](QFileDialog& dialog) {
    path = dialog.directory().filePath(QStringLiteral("picture.BMP"));
    enterName(dialog, QStringLiteral("picture"));
    accept(dialog);
  };
  {
    const DialogUser user(choosePicture);
    choose("mnuFileSave");
  }
  ASSERT_TRUE(files.exists(path.toStdString()));
  choose("mnuClear");
  const DialogUser user(choosePicture);
  choose("mnuOpen");
  EXPECT_EQ(program().frmCapture.Picture1().bitmap, taken);
  EXPECT_TRUE(messages.seen.empty());
}

TEST_F(ScreenPrintButton, ExitClosesTheViewerAlone) {
  click("cmdSprint");
  choose("mnuFileExit");
  EXPECT_EQ(viewer(), nullptr);
  EXPECT_TRUE(window().isVisible());
}

TEST_F(ScreenPrintButton, APngHoldsTheVeryPixels) {
  const platform::Bitmap bitmap{2, 2, {0x000000, 0xFFFFFF, 0x123456, 0xFEDCBA}};
  const std::string file = adapters::QtPngEncoder().encode(bitmap);
  EXPECT_EQ(adapters::bitmapOf(QImage::fromData(QByteArray::fromStdString(file), "PNG")), bitmap);
}

}  // namespace
}  // namespace vireon::tests
