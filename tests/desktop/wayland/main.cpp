#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

#include "tests/desktop/wayland/wayland_desktop.h"
#include "tests/fakes/own_account.h"

int main(int argc, char** argv) {
  const vireon::tests::OwnAccount account;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  std::unique_ptr<vireon::tests::WaylandDesktop> desktop;
  if (vireon::tests::WaylandDesktop::canStart()) desktop = std::make_unique<vireon::tests::WaylandDesktop>();
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setCursorFlashTime(0);
  return RUN_ALL_TESTS();
}
