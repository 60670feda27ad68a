#include "simulator/serve/stop_signals.h"

#include <sys/signalfd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

namespace vireon::simulator {

StopSignals::StopSignals() {
  sigset_t stops{};
  sigemptyset(&stops);
  sigaddset(&stops, SIGINT);
  sigaddset(&stops, SIGTERM);
  sigprocmask(SIG_BLOCK, &stops, nullptr);
  std::signal(SIGPIPE, SIG_IGN);
  signals_ = adapters::FileDescriptor(::signalfd(-1, &stops, SFD_CLOEXEC));
  if (!signals_.isOpen()) throw std::system_error(errno, std::generic_category(), "cannot watch for signals");
}

}  // namespace vireon::simulator
