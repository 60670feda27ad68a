#include <QApplication>
#include <QCommandLineParser>
#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <string>
#include <utility>

#include "adapters/qt/desktop_identity.h"
#include "adapters/qt/painting_files.h"
#include "adapters/qt/program_places.h"
#include "adapters/qt/serial_port.h"
#include "app/executables/dark_palette.h"
#include "app/executables/demo_files.h"
#include "app/executables/pictures.h"
#include "app/executables/session.h"
#include "app/executables/tour.h"
#include "app/executables/until_shown.h"
#include "app/simulated_hid.h"

namespace {

using vireon::simulator::Model;

constexpr std::array<std::pair<const char*, Model>, 4> kModels = {
    {{"K7310", Model::kK7310}, {"K7210", Model::kK7210}, {"K7201", Model::kK7201}, {"K7900", Model::kK7900}}};

// What the command line asks for.
struct Wishes {
  std::optional<Model> model;       // none where there is none of that name
  std::optional<QString> tour;      // a folder for its pictures
  std::optional<QString> pictures;  // a folder for those of the documents
  bool untilShown = false;
  bool dark = false;
};

std::optional<Model> modelNamed(const QString& name) {
  const auto* const model = std::find_if(
      kModels.begin(), kModels.end(), [&](const auto& entry) { return name == QLatin1String(entry.first); });
  if (model == kModels.end()) {
    return std::nullopt;
  }
  return model->second;
}

// Ends the program itself on a wrong option, --help and --version.
Wishes readCommandLine(const QCoreApplication& application) {
  QCommandLineParser options;
  options.setApplicationDescription(QStringLiteral("The Vireon window on a simulated instrument."));
  options.addHelpOption();
  options.addVersionOption();
  const QCommandLineOption model(QStringLiteral("model"),
                                 QStringLiteral("Simulate <model>: K7310 (default), K7210, K7201 or K7900."),
                                 QStringLiteral("model"), QStringLiteral("K7310"));
  const QCommandLineOption tour(
      QStringLiteral("tour"),
      QStringLiteral("Take a short tour by itself, leave pictures in <folder>, and end."),
      QStringLiteral("folder"));
  const QCommandLineOption shown(
      QStringLiteral("until-shown"),
      QStringLiteral("End as soon as the window is on the screen; for measuring the start."));
  const QCommandLineOption pictures(
      QStringLiteral("pictures"),
      QStringLiteral("Take the pictures of the documents into <folder>, and end."), QStringLiteral("folder"));
  const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("Use a dark palette."));
  options.addOptions({model, tour, shown, pictures, dark});
  options.process(application);

  const auto valueOf = [&](const QCommandLineOption& option) {
    return options.isSet(option) ? std::optional(options.value(option)) : std::nullopt;
  };
  return {modelNamed(options.value(model)), valueOf(tour), valueOf(pictures), options.isSet(shown),
          options.isSet(dark)};
}

// The window on a simulated instrument, until it is closed or has done what was asked for.
int run(const Wishes& wishes, Model model) {
  vireon::simulator::SteadyClock steadyClock;
  vireon::simulator::ManualClock pictureClock;
  vireon::simulator::Clock* const clocks[] = {&steadyClock, &pictureClock};
  vireon::simulator::Clock& clock = *clocks[wishes.pictures ? 1 : 0];
  vireon::simulator::Instrument instrument(model, clock);
  vireon::simulator::UsbEndpoint endpoint(instrument, clock);
  vireon::app::SimulatedHid hid(endpoint, model);
  vireon::adapters::ModalGate gate;
  vireon::adapters::QtSerialPort noSerialPort(gate, [](int) { return QString(); });
  const std::string folder = vireon::adapters::programFolder();
  vireon::app::DemoFiles disk(folder + "/vireon.ini");
  vireon::adapters::PaintingFiles files(disk, gate);
  vireon::app::Session session({hid, noSerialPort, files}, folder, gate);
  if (!session.show()) {
    return 1;
  }
  if (wishes.tour) {
    return vireon::app::runTour(session, instrument, wishes.tour->toStdString());
  }
  if (wishes.pictures) {
    return vireon::app::takePictures(session, instrument, pictureClock, wishes.pictures->toStdString(),
                                     wishes.dark ? "-dark" : "");
  }
  std::optional<vireon::app::EndWhenShown> end;
  if (wishes.untilShown) {
    end.emplace(session.window());
  }
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  vireon::adapters::setDesktopIdentity(QStringLiteral("vireon-demo"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  const Wishes wishes = readCommandLine(application);
  if (!wishes.model) {
    std::fputs("There is no such model. Models: K7310, K7210, K7201, K7900.\n", stderr);
    return 2;
  }
  if (wishes.dark) {
    QApplication::setPalette(vireon::app::darkPalette());
  }
  return run(wishes, *wishes.model);
}
