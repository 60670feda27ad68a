#include "adapters/qt/desktop_identity.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTest>
#include <QWidget>

namespace vireon::tests {
namespace {

QImage picture(int size) {
  return adapters::programIcon().pixmap(QSize(size, size), 1.0).toImage();
}

bool holds(const QImage& image, bool (*wanted)(const QColor&)) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (wanted(image.pixelColor(x, y))) return true;
    }
  }
  return false;
}

TEST(ProgramIcon, HasAPictureOfItsOwnForEachUsualSize) {
  const QList<QSize> sizes = adapters::programIcon().availableSizes();
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    EXPECT_TRUE(sizes.contains(QSize(size, size))) << size;
    EXPECT_EQ(picture(size).size(), QSize(size, size));
  }
}

TEST(ProgramIcon, ShowsARedAndAGreenTraceAndWhiteDigitsInEverySize) {
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    const QImage image = picture(size);
    EXPECT_TRUE(holds(image, [](const QColor& at) { return at.red() > 2 * at.green() && at.red() > 150; }))
        << size;
    EXPECT_TRUE(holds(image, [](const QColor& at) { return at.green() > 2 * at.red() && at.green() > 150; }))
        << size;
    EXPECT_TRUE(holds(image, [](const QColor& at) { return at.lightness() > 225; })) << size;
  }
}

// Puts back what the other tests of this process know the program by.
class DesktopIdentity : public testing::Test {
 protected:
  ~DesktopIdentity() override {
    QApplication::setApplicationName(name_);
    QApplication::setApplicationVersion(version_);
    QApplication::setDesktopFileName(entry_);
    QApplication::setWindowIcon(icon_);
  }

 private:
  const QString name_ = QApplication::applicationName();
  const QString version_ = QApplication::applicationVersion();
  const QString entry_ = QApplication::desktopFileName();
  const QIcon icon_ = QApplication::windowIcon();
};

TEST_F(DesktopIdentity, TiesTheWindowsToTheDesktopEntryOfThatName) {
  adapters::setDesktopIdentity(QStringLiteral("vireon-demo"));
  EXPECT_EQ(QApplication::applicationName(), QStringLiteral("vireon-demo"));
  EXPECT_EQ(QApplication::desktopFileName(), QStringLiteral("vireon-demo"));
}

TEST_F(DesktopIdentity, EveryWindowHasTheIconSoonAfterTheStart) {
  const adapters::WindowIcon icon;
  const QWidget window;
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return window.windowIcon().pixmap(QSize(48, 48), 1.0).toImage() == picture(48); }));
}

TEST_F(DesktopIdentity, NamesTheVersion) {
  adapters::setDesktopIdentity(QStringLiteral("vireon"));
  EXPECT_TRUE(QApplication::applicationVersion().contains(QLatin1Char('.')));
}

}  // namespace
}  // namespace vireon::tests
