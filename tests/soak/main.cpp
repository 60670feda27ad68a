// A random user at the whole window, on simulated instruments and links that fail, until the time is up.
#include <QApplication>
#include <QCommandLineParser>
#include <QPixmapCache>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>

#include "tests/fakes/own_account.h"
#include "tests/fakes/temporary_folder.h"
#include "tests/soak/report.h"
#include "tests/soak/soak.h"

namespace {

namespace fs = std::filesystem;

// What the toolkit complains about is a finding, each text once.
class Complaints {
 public:
  explicit Complaints(vireon::soak::ActLog& log) {
    taker() = [this, &log](const QString& text) {
      if (!text.contains(QLatin1String("plugin does not support")) && seen_.insert(text).second) {
        log.finding("the toolkit complains: " + text.toStdString());
      }
    };
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
      if (type != QtDebugMsg && type != QtInfoMsg && taker()) {
        taker()(text);
      }
    });
  }
  Complaints(const Complaints&) = delete;
  Complaints& operator=(const Complaints&) = delete;
  ~Complaints() {
    qInstallMessageHandler(nullptr);
    taker() = nullptr;
  }

 private:
  static std::function<void(const QString&)>& taker() {
    static std::function<void(const QString&)> function;
    return function;
  }

  std::set<QString> seen_;
};

}  // namespace

int main(int argc, char** argv) {
  const vireon::tests::OwnAccount account;
  const vireon::tests::TemporaryFolder folder;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  vireon::soak::countObjects();
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setQuitOnLastWindowClosed(false);
  if (vireon::soak::isSanitized()) {
    QPixmapCache::setCacheLimit(0);  // see resources.cpp
  }

  QCommandLineParser options;
  options.setApplicationDescription(QStringLiteral("A random user at the whole window."));
  options.addHelpOption();
  const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("What the user's acts come from."),
                                QStringLiteral("number"), QStringLiteral("1"));
  const QCommandLineOption minutes(QStringLiteral("minutes"), QStringLiteral("How long."),
                                   QStringLiteral("number"), QStringLiteral("3"));
  const QCommandLineOption acts(QStringLiteral("acts"), QStringLiteral("Where the acts are written down."),
                                QStringLiteral("file"), QStringLiteral("soak_acts.log"));
  const QCommandLineOption report(QStringLiteral("report"), QStringLiteral("Where the report goes too."),
                                  QStringLiteral("file"));
  const QCommandLineOption from(QStringLiteral("from"), QStringLiteral("The session to begin with."),
                                QStringLiteral("number"), QStringLiteral("1"));
  options.addOptions({seed, minutes, acts, report, from});
  options.process(application);

  const fs::path place = fs::canonical(folder.path()) / "program";
  fs::create_directory(place);
  vireon::soak::ActLog log(fs::absolute(options.value(acts).toStdString()).string());
  const fs::path reportFile =
      options.isSet(report) ? fs::absolute(options.value(report).toStdString()) : fs::path();
  fs::current_path(place);
  const Complaints complaints(log);
  const vireon::soak::Order order{options.value(seed).toULongLong(), options.value(minutes).toDouble(), place,
                                  options.value(from).toInt()};
  vireon::soak::Soak soak(order, log);
  soak.run();
  const std::string text = vireon::soak::reportOf(soak, order);
  std::fputs(text.c_str(), stdout);
  if (!reportFile.empty()) {
    std::ofstream(reportFile) << text;
  }
  return log.findings() == 0 ? 0 : 1;
}
