#include "app/executables/pictures.h"

#include "app/executables/guided_window.h"

namespace vireon::app {
namespace {

constexpr int kOhm = 2;       // list position
constexpr int kExternal = 2;  // trigger source

class Pictures {
 public:
  Pictures(Session& session, simulator::Instrument& instrument, const QDir& folder, QString suffix)
      : window_(session, folder), instrument_(instrument), suffix_(std::move(suffix)) {}

  bool take() {
    return picture("scope-disconnected") && connectAndStart() && picture("scope-live") && showReference() &&
           picture("scope-reference") && external() && picture("scope-external-trigger") && ohm() &&
           picture("scope-ohm");
  }

 private:
  bool picture(const char* name) { return window_.picture(QLatin1String(name) + suffix_); }

  // Waits until the program has shown what the instrument sent after now.
  bool nextFrames() {
    const std::uint64_t before = instrument_.commandCount();
    return window_.waitFor([&] { return instrument_.commandCount() >= before + 4; });
  }

  bool connectAndStart() {
    window_.click("cmdBttn_0");
    window_.form().txtSTime.setText("0.05");
    window_.click("cmdStart");
    return nextFrames();
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

  GuidedWindow window_;
  simulator::Instrument& instrument_;
  QString suffix_;
};

}  // namespace

int takePictures(Session& session, simulator::Instrument& instrument, const std::string& folder,
                 const std::string& suffix) {
  const bool good =
      Pictures(session, instrument, QDir(QString::fromStdString(folder)), QString::fromStdString(suffix))
          .take();
  std::puts(good ? "All pictures are taken." : "A picture is missing.");
  session.window().close();
  return good ? 0 : 1;
}

}  // namespace vireon::app
