#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QImage>
#include <QLabel>
#include <QTest>

#include "adapters/hid/hidapi_port.h"
#include "adapters/qt/painting_hid.h"
#include "adapters/qt/picture_view.h"
#include "tests/adapters/qt/window_fixture.h"
#include "tests/fakes/fake_file_store.h"
#include "tests/usb/served_instrument.h"

namespace vireon::tests {
namespace {

constexpr int kLimit = 30000;  // milliseconds

class UsbWindow : public ShownWindow {
 protected:
  UsbWindow() : instrument(gadget.plug()) {
    files.files["folder/vireon.ini"] = "[ProductId]\nProductId=-8191\n[Tabs]\nTabs=2\n[ComPort]\nComPort=0\n";
    EXPECT_TRUE(session.show());
    turn();
  }

  app::Session& shown() override { return session; }

  QString text(const char* label) { return find<QLabel>(label)->text(); }

  // Pixels of one trace's colour on the picture.
  static int red(const QImage& image) {
    return count(image, [](QRgb pixel) { return qRed(pixel) > 90 && qRed(pixel) > 2 * qGreen(pixel); });
  }
  static int green(const QImage& image) {
    return count(image, [](QRgb pixel) { return qGreen(pixel) > 90 && qGreen(pixel) > 2 * qRed(pixel); });
  }

  QImage picture() { return find<adapters::PictureView>("picScope")->grab().toImage(); }

  std::ptrdiff_t asked(const std::string& command) {
    const auto log = instrument.log();
    return std::count(log.begin(), log.end(), command);
  }

  Gadget gadget{{}};
  ServedInstrument instrument;
  MessageWatcher messages;
  FakeSerialPort serialPort;
  FakeFileStore files;
  adapters::ModalGate gate;
  adapters::HidapiPort hidapi;
  adapters::PaintingHid hid{hidapi, gate};
  app::Session session{{hid, serialPort, files}, "folder", gate};

 private:
  template <class Test>
  static int count(const QImage& image, const Test& test) {
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) found += test(image.pixel(x, y)) ? 1 : 0;
    }
    return found;
  }
};

TEST_F(UsbWindow, ConnectsShowsLiveFramesAndLeavesAtTheClickOfItsButtons) {
  EXPECT_EQ(text("StatusBar1_2"), QStringLiteral("USB(HID)"));
  click("cmdBttn_0");
  ASSERT_TRUE(
      QTest::qWaitFor([this] { return text("StatusBar1_2") == QStringLiteral("Connected"); }, kLimit));
  const QImage before = picture();

  click("cmdStart");
  ASSERT_TRUE(QTest::qWaitFor([this] { return asked("DRS??") >= 5; }, kLimit));
  const QImage live = picture();
  EXPECT_GT(red(live), red(before) + 100);
  EXPECT_GT(green(live), green(before) + 100);
  EXPECT_TRUE(QTest::qWaitFor([&] { return picture() != live; }, kLimit)) << "the picture stands still";

  click("cmdBttn_0");
  ASSERT_TRUE(
      QTest::qWaitFor([this] { return text("StatusBar1_2") == QStringLiteral("Disconnected"); }, kLimit));
  EXPECT_EQ(instrument.log().back(), "GTL");
  EXPECT_EQ(openHostNodes(), std::vector<std::string>{});
  EXPECT_TRUE(messages.seen.empty());
}

TEST_F(UsbWindow, TellsOnceOfADeviceUnpluggedWhileLiveAndConnectsAgain) {
  click("cmdBttn_0");
  click("cmdStart");
  ASSERT_TRUE(QTest::qWaitFor([this] { return asked("DRS??") >= 2; }, kLimit));
  gadget.unplug();
  ASSERT_TRUE(QTest::qWaitFor([this] { return !messages.seen.empty(); }, kLimit));
  ASSERT_TRUE(QTest::qWaitFor([this] { return !find("cmdStart")->isEnabled(); }, kLimit));
  EXPECT_EQ(text("StatusBar1_2"), QStringLiteral("Disconnected"));
  EXPECT_EQ(openHostNodes(), std::vector<std::string>{});
  gadget.plug();
  click("cmdBttn_0");
  ASSERT_TRUE(
      QTest::qWaitFor([this] { return text("StatusBar1_2") == QStringLiteral("Connected"); }, kLimit));
  ASSERT_EQ(messages.seen.size(), 1U);
  EXPECT_EQ(messages.seen[0].title, QStringLiteral("Connection Error"));
}

}  // namespace
}  // namespace vireon::tests
