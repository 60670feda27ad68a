#include "app/executables/tour.h"

#include <QElapsedTimer>

#include "adapters/qt/text.h"
#include "app/executables/guided_window.h"
#include "protocol/vocabulary.h"

namespace vireon::app {
namespace {

constexpr int kFrames = 200;

class Tour {
 public:
  Tour(Session& session, const simulator::Instrument& instrument, const QString& folder)
      : window_(session, QDir(folder)), session_(session), instrument_(instrument) {}

  bool run() {
    return connectInstrument() && watchFrames() &&
           turn("cmdVu_0", "volts/div of channel A up", "4-volts-per-division") &&
           turn("cmdTud_0", "time/div up", "5-time-per-division") &&
           turn("chkVof_1", "channel B off", "6-channel-b-off") && disconnectInstrument();
  }

 private:
  form::MainForm& form() { return window_.form(); }
  bool picture(const char* name) { return window_.picture(QLatin1String(name)); }

  bool connectInstrument() {
    std::printf("Window up: %s\n", qUtf8Printable(session_.window().windowTitle()));
    if (!picture("1-disconnected")) {
      return false;
    }
    window_.click("cmdBttn_0");
    if (!session_.program().connection.connected()) {
      std::puts("  the instrument did not answer");
      return false;
    }
    std::printf("Connected: %s\n", session_.program().state.modelId.c_str());
    return picture("2-connected");
  }

  bool watchFrames() {
    form().txtSTime.setText("0.001");
    window_.click("cmdStart");
    const std::uint64_t before = instrument_.commandCount();
    QElapsedTimer time;
    time.start();
    if (!window_.waitFor([&] { return instrument_.commandCount() >= before + kFrames; })) {
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
    window_.click(button);
    const bool followed =
        window_.waitFor([&] { return settings() + adapters::shown(form().chkVof[1].caption()) != before; });
    const std::uint64_t asked = instrument_.commandCount();
    window_.waitFor([&] { return instrument_.commandCount() >= asked + 3; });
    std::printf("Turned %s: %s, %zu line segments\n", what, qUtf8Printable(settings()),
                form().picScope.lines().size());
    if (!followed) {
      std::puts("  the panel did not follow");
    }
    return picture(pictureName) && followed;
  }

  bool disconnectInstrument() {
    window_.click("cmdBttn_0");
    const bool left = !session_.program().connection.connected() && !instrument_.remote();
    std::printf("Disconnected: %s\n", form().StatusBar1.panel(2).c_str());
    return picture("7-disconnected") && left;
  }

  GuidedWindow window_;
  Session& session_;
  const simulator::Instrument& instrument_;
};

}  // namespace

int runTour(Session& session, const simulator::Instrument& instrument, const std::string& folder) {
  const bool good = Tour(session, instrument, QString::fromStdString(folder)).run();
  std::puts(good ? "The tour went well." : "The tour failed.");
  session.window().close();
  return good ? 0 : 1;
}

}  // namespace vireon::app
