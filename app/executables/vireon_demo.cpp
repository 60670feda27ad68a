#include <QApplication>
#include <QCommandLineParser>
#include <algorithm>
#include <array>
#include <cstdio>
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

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  vireon::adapters::setDesktopIdentity(QStringLiteral("vireon-demo"));
  QApplication::setStyle(QStringLiteral("Fusion"));

  QCommandLineParser options;
  options.setApplicationDescription(QStringLiteral("The Vireon window on a simulated instrument."));
  options.addHelpOption();
  options.addVersionOption();
  const QCommandLineOption modelOption(
      QStringLiteral("model"), QStringLiteral("Simulate <model>: K7310 (default), K7210, K7201 or K7900."),
      QStringLiteral("model"), QStringLiteral("K7310"));
  const QCommandLineOption tourOption(
      QStringLiteral("tour"),
      QStringLiteral("Take a short tour by itself, leave pictures in <folder>, and end."),
      QStringLiteral("folder"));
  const QCommandLineOption shownOption(
      QStringLiteral("until-shown"),
      QStringLiteral("End as soon as the window is on the screen; for measuring the start."));
  const QCommandLineOption picturesOption(
      QStringLiteral("pictures"),
      QStringLiteral("Take the pictures of the documents into <folder>, and end."), QStringLiteral("folder"));
  const QCommandLineOption darkOption(QStringLiteral("dark"), QStringLiteral("Use a dark palette."));
  options.addOptions({modelOption, tourOption, shownOption, picturesOption, darkOption});
  options.process(application);

  const auto* const model = std::find_if(kModels.begin(), kModels.end(), [&](const auto& entry) {
    return options.value(modelOption) == QLatin1String(entry.first);
  });
  if (model == kModels.end()) {
    std::fputs("There is no such model. Models: K7310, K7210, K7201, K7900.\n", stderr);
    return 2;
  }

  if (options.isSet(darkOption)) {
    QApplication::setPalette(vireon::app::darkPalette());
  }
  vireon::simulator::SteadyClock steadyClock;
  vireon::simulator::ManualClock pictureClock;
  vireon::simulator::Clock* const clocks[] = {&steadyClock, &pictureClock};
  vireon::simulator::Clock& clock = *clocks[options.isSet(picturesOption) ? 1 : 0];
  vireon::simulator::Instrument instrument(model->second, clock);
  vireon::simulator::UsbEndpoint endpoint(instrument, clock);
  vireon::app::SimulatedHid hid(endpoint, model->second);
  vireon::adapters::ModalGate gate;
  vireon::adapters::QtSerialPort noSerialPort(gate, [](int) { return QString(); });
  const std::string folder = vireon::adapters::programFolder();
  vireon::app::DemoFiles disk(folder + "/vireon.ini");
  vireon::adapters::PaintingFiles files(disk, gate);
  vireon::app::Session session({hid, noSerialPort, files}, folder, gate);
  if (!session.show()) {
    return 1;
  }
  if (options.isSet(tourOption)) {
    return vireon::app::runTour(session, instrument, options.value(tourOption).toStdString());
  }
  if (options.isSet(picturesOption)) {
    return vireon::app::takePictures(session, instrument, pictureClock,
                                     options.value(picturesOption).toStdString(),
                                     options.isSet(darkOption) ? "-dark" : "");
  }
  if (options.isSet(shownOption)) {
    const vireon::app::EndWhenShown end(session.window());
    return QApplication::exec();
  }
  return QApplication::exec();
}
