#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/serve/gadget_device.h"
#include "simulator/serve/options.h"
#include "simulator/serve/pseudo_terminal.h"
#include "simulator/serve/server.h"
#include "simulator/serve/stop_signals.h"
#include "simulator/usage_error.h"

namespace {

using namespace vireon::simulator;

constexpr int kInput = 0;
constexpr int kOutput = 1;

void serve(ServedLink& link, const Options& options, Instrument& instrument, Clock& clock,
           const StopSignals& signals) {
  link.setFaults(options.faults);
  LineReader in(kInput);
  LineWriter out(kOutput);
  Server server(link, options.link(), instrument, clock, out, signals.descriptor());
  if (options.control) server.control(in);
  server.run();
}

void servePort(const Options& options, Instrument& instrument, Clock& clock, const StopSignals& signals) {
  const std::filesystem::path folder(options.folder);
  if (!std::filesystem::is_directory(folder)) throw UsageError("there is no folder " + options.folder);
  SerialEndpoint endpoint(instrument, clock, options.baud);
  PseudoTerminal terminal(endpoint, folder / ("COM" + std::to_string(options.com)));
  serve(terminal, options, instrument, clock, signals);
}

void serveGadget(const Options& options, Instrument& instrument, Clock& clock, const StopSignals& signals) {
  UsbEndpoint endpoint(instrument, clock);
  std::optional<UdcFile> udc;
  if (!options.udcFile.empty()) udc.emplace(options.udcFile);
  GadgetDevice device(
      endpoint, clock, options.gadget, [&options] { return openGadgetNode(options.gadget); }, udc);
  serve(device, options, instrument, clock, signals);
}

int run(const std::vector<std::string_view>& words) {
  const Options options = parseOptions(words);
  if (options.help) {
    std::fputs(optionHelp().c_str(), stdout);
    return 0;
  }
  const StopSignals signals;
  SteadyClock clock;
  Instrument instrument(options.model, clock);
  if (options.link() == Link::kUsb) {
    serveGadget(options, instrument, clock, signals);
  } else {
    servePort(options, instrument, clock, signals);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run({argv + 1, argv + argc});
  } catch (const UsageError& error) {
    std::fprintf(stderr, "vireon-simulator: %s. See --help.\n", error.what());
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "vireon-simulator: %s.\n", error.what());
    return 1;
  }
}
