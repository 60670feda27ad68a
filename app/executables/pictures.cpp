#include "app/executables/pictures.h"

#include <algorithm>

#include "app/executables/guided_window.h"
#include "protocol/logger_mode.h"
#include "protocol/trend_plot.h"

namespace vireon::app {
namespace {

constexpr int kOhm = 2;       // list position
constexpr int kExternal = 2;  // trigger source
constexpr int kRecords = 16;
constexpr int kSettling = 5;  // looks

class Pictures {
 public:
  Pictures(Session& session, simulator::Instrument& instrument, simulator::ManualClock& clock,
           const QDir& folder, QString suffix)
      : window_(session, folder), instrument_(instrument), suffix_(std::move(suffix)) {
    QObject::connect(&hurry_, &QTimer::timeout, &hurry_, [&clock, this] { clock.advance(step_); });
    hurry_.start(GuidedWindow::kLook);
  }

  bool take() {
    return settle() && picture("scope-disconnected") && connectAndStart() && picture("scope-live") &&
           showReference() && picture("scope-reference") && external() && picture("scope-external-trigger") &&
           ohm() && picture("scope-ohm") && showMeter() && recordRun() && picture("meter-data-logger") &&
           statistics(protocol::kRecordMode) && picture("meter-record") &&
           statistics(protocol::kRelativeMode) && picture("meter-relative") && setUp() &&
           picture("meter-set-up") && statistics(protocol::kCompareMode) && picture("meter-compare") &&
           trendRun() && picture("meter-trend") && viewer();
  }

 private:
  bool picture(const char* name) { return window_.picture(QLatin1String(name) + suffix_); }

  // The window takes the size that it wants at its first turns.
  bool settle() {
    int looks = 0;
    return window_.waitFor([&looks] { return ++looks > kSettling; });
  }

  // Waits until the program has shown what the instrument sent after now.
  bool nextFrames(std::uint64_t count = 4) {
    const std::uint64_t before = instrument_.commandCount();
    return window_.waitFor([&] { return instrument_.commandCount() >= before + count; });
  }

  bool connectAndStart() {
    window_.click("cmdBttn_0");
    startSampling();
    return nextFrames();
  }

  void startSampling() {
    window_.form().txtSTime.setText("0.05");
    window_.click("cmdStart");
  }

  bool showReference() {
    instrument_.storeReference();
    return nextFrames() && window_.form().posDV[1].caption() == "REF";
  }

  bool external() {
    instrument_.clearReference();
    window_.form().optTS[kExternal].setValue(true);
    return nextFrames();
  }

  bool ohm() {
    window_.form().optTS[0].setValue(true);
    window_.form().cmbFun.setListIndex(kOhm);
    return nextFrames();
  }

  bool showMeter() {
    window_.form().cmbFun.setListIndex(0);
    window_.form().SSTab1.setTab(1);
    startSampling();
    return nextFrames() && window_.form().cmbDmod.listIndex() == protocol::kDataLogger;
  }

  // Sampling as fast as the pictures need it, which the record button sets to half a second.
  void record() {
    window_.click("chkLog1");
    window_.form().tmrInt.setInterval(GuidedWindow::kLook);
  }

  bool recordRun() {
    step_ = std::chrono::milliseconds(500);
    record();
    const bool recorded =
        window_.waitFor([&] { return window_.session().program().state.logRow > kRecords; });
    record();
    return recorded && nextFrames();
  }

  bool statistics(protocol::LoggerMode mode) {
    step_ = std::chrono::milliseconds(100);
    window_.form().cmbDmod.setListIndex(mode);
    return nextFrames(60);
  }

  bool setUp() {
    window_.click("cmdSetup");
    return nextFrames();
  }

  bool trendRun() {
    step_ = std::chrono::milliseconds(400);
    window_.form().cmbDmod.setListIndex(protocol::kTrendPlot);
    record();
    return window_.waitFor([&] { return window_.form().barTrd.value() == protocol::kLastTrendPoint; });
  }

  bool viewer() {
    window_.form().SSTab1.setTab(0);
    startSampling();
    if (!nextFrames()) {
      return false;
    }
    window_.click("cmdSprint");
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto viewer = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
      return window->objectName() == QLatin1String("frmCapture") && window->isVisible();
    });
    return viewer != windows.end() && window_.picture(QStringLiteral("viewer") + suffix_, **viewer);
  }

  GuidedWindow window_;
  simulator::Instrument& instrument_;
  QString suffix_;
  QTimer hurry_;  // lets the instrument's time pass
  std::chrono::nanoseconds step_ = std::chrono::milliseconds(20);
};

}  // namespace

int takePictures(Session& session, simulator::Instrument& instrument, simulator::ManualClock& clock,
                 const std::string& folder, const std::string& suffix) {
  const bool good = Pictures(session, instrument, clock, QDir(QString::fromStdString(folder)),
                             QString::fromStdString(suffix))
                        .take();
  std::puts(good ? "All pictures are taken." : "A picture is missing.");
  session.window().close();
  return good ? 0 : 1;
}

}  // namespace vireon::app
