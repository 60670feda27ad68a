#include "simulator/serve/pseudo_terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <span>
#include <system_error>
#include <utility>

namespace vireon::simulator {
namespace {

constexpr std::array<std::pair<speed_t, int>, 5> kSpeeds{
    {{B1200, 1200}, {B2400, 2400}, {B4800, 4800}, {B9600, 9600}, {B19200, 19200}}};

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

adapters::FileDescriptor openMaster() {
  adapters::FileDescriptor master(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  if (!master.isOpen() || ::grantpt(master.number()) != 0 || ::unlockpt(master.number()) != 0) {
    fail("cannot open a pseudo-terminal");
  }
  termios settings{};
  if (::tcgetattr(master.number(), &settings) != 0) fail("cannot read a pseudo-terminal's settings");
  ::cfmakeraw(&settings);
  ::cfsetspeed(&settings, B9600);
  if (::tcsetattr(master.number(), TCSANOW, &settings) != 0) fail("cannot set up a pseudo-terminal");
  return master;
}

}  // namespace

PseudoTerminal::PseudoTerminal(SerialEndpoint& endpoint, std::filesystem::path link)
    : endpoint_(endpoint), path_(std::move(link)) {
  open();
}

void PseudoTerminal::open() {
  adapters::FileDescriptor master = openMaster();
  std::array<char, 128> name{};
  if (::ptsname_r(master.number(), name.data(), name.size()) != 0) fail("a pseudo-terminal has no name");
  // Edges only: while nobody has the terminal open, its hang-up would be reported over and over.
  adapters::FileDescriptor changes(::epoll_create1(EPOLL_CLOEXEC));
  epoll_event wanted{};
  wanted.events = EPOLLIN | EPOLLET;
  if (::epoll_ctl(changes.number(), EPOLL_CTL_ADD, master.number(), &wanted) != 0) {
    fail("cannot watch a pseudo-terminal");
  }
  link_.reset();
  link_.emplace(path_, name.data());
  slave_ = name.data();
  master_ = std::move(master);
  changes_ = std::move(changes);
}

void PseudoTerminal::close() {
  link_.reset();
  changes_.close();
  master_.close();
}

void PseudoTerminal::plug() {
  if (endpoint_.plugged()) return;
  open();
  endpoint_.plug();
}

void PseudoTerminal::unplug() {
  endpoint_.unplug();
  close();
}

int PseudoTerminal::hostBaud() const {
  termios settings{};
  if (::tcgetattr(master_.number(), &settings) != 0) return 0;
  const speed_t speed = ::cfgetospeed(&settings);
  for (const auto& [code, baud] : kSpeeds) {
    if (code == speed) return baud;
  }
  return 0;
}

bool PseudoTerminal::hostGone() const {
  pollfd state{master_.number(), 0, 0};
  return ::poll(&state, 1, 0) > 0 && (state.revents & POLLHUP) != 0;
}

// Takes the news of a change, and tells whether a host left.
bool PseudoTerminal::takeHangUp() {
  epoll_event event{};
  return ::epoll_wait(changes_.number(), &event, 1, 0) > 0 && (event.events & EPOLLHUP) != 0 && hostGone();
}

void PseudoTerminal::takeFromHost() {
  std::array<std::uint8_t, 4096> bytes{};
  for (;;) {
    const ssize_t count = ::read(master_.number(), bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    endpoint_.write(std::span(bytes).first(static_cast<std::size_t>(count)), hostBaud());
  }
}

void PseudoTerminal::giveToHost() {
  const bool gone = hostGone();
  for (;;) {
    const auto bytes = endpoint_.read(hostBaud());
    if (bytes.empty()) return;
    // What the terminal cannot hold is lost, as in a receiver that nobody empties.
    if (!gone && ::write(master_.number(), bytes.data(), bytes.size()) < 0 && errno == EIO) return;
  }
}

// A real port forgets exclusive use when it is closed for the last time, a pseudo-terminal does not.
void PseudoTerminal::endExclusiveUse() {
  adapters::FileDescriptor slave(::open(slave_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  if (!slave.isOpen()) {
    if (errno == EBUSY && hostGone()) open();
    return;
  }
  ::ioctl(slave.number(), TIOCNXCL);
  slave.close();
  takeHangUp();
}

void PseudoTerminal::serve() {
  if (!endpoint_.plugged()) return;
  const bool hostLeft = takeHangUp();
  takeFromHost();
  if (hostLeft) {
    endExclusiveUse();
    takeFromHost();
  }
  giveToHost();
  if (!endpoint_.plugged()) close();
}

Wake PseudoTerminal::wake() const {
  if (!endpoint_.plugged()) return {};
  return {changes_.number(), POLLIN, endpoint_.nextDue()};
}

}  // namespace vireon::simulator
