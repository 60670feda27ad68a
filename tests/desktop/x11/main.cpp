#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

#include "tests/adapters/qt/error_log.h"
#include "tests/desktop/x11/x11_desktop.h"
#include "tests/fakes/fault_report.h"
#include "tests/fakes/own_account.h"

int main(int argc, char** argv) {
  const vireon::tests::OwnAccount account;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  std::unique_ptr<vireon::tests::X11Desktop> desktop;
  if (vireon::tests::X11Desktop::canStart()) desktop = std::make_unique<vireon::tests::X11Desktop>();
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setCursorFlashTime(0);
  testing::UnitTest::GetInstance()->listeners().Append(
      std::make_unique<vireon::tests::ErrorLogListener>().release());
  vireon::tests::FaultReport::install();
  return RUN_ALL_TESTS();
}
