#include "tests/adapters/qt/error_log.h"

#include <cstdio>

namespace vireon::tests {

QStringList& ErrorLogListener::lines() {
  static QStringList collected;
  return collected;
}

ErrorLogListener::ErrorLogListener() {
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& line) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(line));
    // The offscreen platform says so for every dialog and for every window that is to come to the front.
    const bool announced = line == QLatin1String("This plugin does not support propagateSizeHints()") ||
                           line == QLatin1String("This plugin does not support raise()");
    if (type != QtDebugMsg && type != QtInfoMsg && !announced) {
      lines().append(line);
    }
  });
}

void ErrorLogListener::OnTestStart(const testing::TestInfo& /*test*/) {
  lines().clear();
}

void ErrorLogListener::OnTestEnd(const testing::TestInfo& /*test*/) {
  for (const QString& line : lines()) {
    ADD_FAILURE() << "unannounced message on the error log: " << qUtf8Printable(line);
  }
}

}  // namespace vireon::tests
