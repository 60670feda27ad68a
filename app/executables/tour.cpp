#include "app/executables/tour.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <cstdio>

#include "adapters/qt/text.h"
#include "protocol/vocabulary.h"

namespace vireon::app {
namespace {

constexpr int kFrames = 200;
constexpr qint64 kPatience = 30000;  // milliseconds for one step

class Tour {
 public:
  Tour(Session& session, const simulator::Instrument& instrument, const QString& folder)
      : session_(session), instrument_(instrument), folder_(folder) {}

  bool run() {
    return folder_.mkpath(QStringLiteral(".")) && connectInstrument() && watchFrames() &&
           turn("cmdVu_0", "volts/div of channel A up", "4-volts-per-division") &&
           turn("cmdTud_0", "time/div up", "5-time-per-division") &&
           turn("chkVof_1", "channel B off", "6-channel-b-off") && disconnectInstrument();
  }

 private:
  form::MainForm& form() { return session_.program().form; }

  void click(const char* name) {
    if (auto* button = session_.window().findChild<QAbstractButton*>(QLatin1String(name))) {
      button->click();
    }
  }

  template <class Condition>
  bool waitFor(const Condition& condition) {
    QElapsedTimer waited;
    waited.start();
    while (!condition() && !waited.hasExpired(kPatience)) {
      QApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    return condition();
  }

  bool picture(const char* name) {
    session_.window().binder().flush();
    const QString path = folder_.absoluteFilePath(QLatin1String(name) + QStringLiteral(".png"));
    if (!session_.window().grab().save(path)) {
      std::printf("  cannot write the picture %s\n", qUtf8Printable(path));
      return false;
    }
    std::printf("  picture: %s\n", qUtf8Printable(path));
    return true;
  }

  bool connectInstrument() {
    std::printf("Window up: %s\n", qUtf8Printable(session_.window().windowTitle()));
    if (!picture("1-disconnected")) {
      return false;
    }
    click("cmdBttn_0");
    if (!session_.program().connection.connected()) {
      std::puts("  the instrument did not answer");
      return false;
    }
    std::printf("Connected: %s\n", session_.program().state.modelId.c_str());
    return picture("2-connected");
  }

  bool watchFrames() {
    form().txtSTime.setText("0.001");
    click("cmdStart");
    const std::uint64_t before = instrument_.commandCount();
    QElapsedTimer time;
    time.start();
    if (!waitFor([&] { return instrument_.commandCount() >= before + kFrames; })) {
      std::puts("  the live frames did not come");
      return false;
    }
    std::printf("Live: %llu frames in %lld ms, %zu line segments on the picture, reading \"%s\"\n",
                static_cast<unsigned long long>(instrument_.commandCount() - before),
                static_cast<long long>(time.elapsed()), form().picScope.lines().size(),
                qUtf8Printable(adapters::shown(form().lblDmm.caption())));
    return !form().picScope.lines().empty() && picture("3-live");
  }

  QString settings() {
    QStringList texts;
    for (const form::Label& label : form().lblSinf) {
      texts << adapters::shown(label.caption());
    }
    return texts.join(QLatin1Char(' '));
  }

  // Clicks a control of the panel and waits until the settings or the channels shown have followed.
  bool turn(const char* button, const char* what, const char* pictureName) {
    const QString before = settings() + adapters::shown(form().chkVof[1].caption());
    click(button);
    const bool followed =
        waitFor([&] { return settings() + adapters::shown(form().chkVof[1].caption()) != before; });
    const std::uint64_t asked = instrument_.commandCount();
    waitFor([&] { return instrument_.commandCount() >= asked + 3; });
    std::printf("Turned %s: %s, %zu line segments\n", what, qUtf8Printable(settings()),
                form().picScope.lines().size());
    if (!followed) {
      std::puts("  the panel did not follow");
    }
    return picture(pictureName) && followed;
  }

  bool disconnectInstrument() {
    click("cmdBttn_0");
    const bool left = !session_.program().connection.connected() && !instrument_.remote();
    std::printf("Disconnected: %s\n", form().StatusBar1.panel(2).c_str());
    return picture("7-disconnected") && left;
  }

  Session& session_;
  const simulator::Instrument& instrument_;
  QDir folder_;
};

}  // namespace

int runTour(Session& session, const simulator::Instrument& instrument, const std::string& folder) {
  const bool good = Tour(session, instrument, QString::fromStdString(folder)).run();
  std::puts(good ? "The tour went well." : "The tour failed.");
  session.window().close();
  return good ? 0 : 1;
}

}  // namespace vireon::app
