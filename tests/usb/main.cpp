#include <gtest/gtest.h>

#include <QApplication>

#include "tests/fakes/own_account.h"

int main(int argc, char** argv) {
  const vireon::tests::OwnAccount account;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  return RUN_ALL_TESTS();
}
