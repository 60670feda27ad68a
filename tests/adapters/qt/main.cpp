#include <gtest/gtest.h>

#include <QApplication>

#include "tests/adapters/qt/error_log.h"
#include "tests/fakes/fault_report.h"
#include "tests/fakes/own_account.h"

int main(int argc, char** argv) {
  const vireon::tests::OwnAccount account;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  testing::UnitTest::GetInstance()->listeners().Append(
      std::make_unique<vireon::tests::ErrorLogListener>().release());
  vireon::tests::FaultReport::install();
  return RUN_ALL_TESTS();
}
