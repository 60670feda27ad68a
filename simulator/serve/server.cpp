#include "simulator/serve/server.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "simulator/usage_error.h"

namespace vireon::simulator {
namespace {

constexpr std::string_view kFault = "fault ";

std::optional<timespec> until(const std::optional<std::chrono::nanoseconds>& at, const Clock& clock) {
  if (!at) return std::nullopt;
  const auto left = std::max(*at - clock.now(), std::chrono::nanoseconds{0});
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
  return timespec{seconds.count(), (left - seconds).count()};
}

}  // namespace

Server::Server(ServedLink& link, Link kind, Instrument& instrument, Clock& clock, LineWriter& out, int stop)
    : link_(link), kind_(kind), instrument_(instrument), clock_(clock), out_(out), stop_(stop) {}

void Server::run() {
  out_.say("ready " + link_.path());
  while (!ended_) {
    link_.serve();
    tell();
    if (!out_.flush()) return;
    waitForNews();
  }
  out_.flush();
}

void Server::tell() {
  if (in_ == nullptr) return;
  const auto& log = instrument_.log();
  const auto news = std::min<std::uint64_t>(instrument_.commandCount() - told_, log.size());
  for (std::size_t i = log.size() - news; i < log.size(); ++i) out_.say("command " + printable(log[i]));
  told_ = instrument_.commandCount();
  if (plugged_ && !link_.plugged()) out_.say("unplugged");
  plugged_ = link_.plugged();
}

void Server::waitForNews() {
  const Wake wake = link_.wake();
  std::array<pollfd, 4> watched{{{stop_, POLLIN, 0},
                                 {in_ != nullptr ? in_->descriptor() : -1, POLLIN, 0},
                                 {out_.waiting() ? out_.descriptor() : -1, POLLOUT, 0},
                                 {wake.descriptor, wake.events, 0}}};
  const auto left = until(wake.at, clock_);
  if (::ppoll(watched.data(), watched.size(), left ? &*left : nullptr, nullptr) <= 0) return;
  if (watched[0].revents != 0) ended_ = true;
  if (in_ == nullptr || watched[1].revents == 0) return;
  if (!in_->fill()) ended_ = true;
  for (auto line = in_->next(); line && !ended_; line = in_->next()) carryOut(*line);
}

void Server::carryOut(const std::string& line) {
  try {
    carryOutOrThrow(line);
    plugged_ = link_.plugged();
    out_.say("ok");
  } catch (const std::runtime_error& error) {
    out_.say(std::string("error ") + error.what());
  }
}

void Server::carryOutOrThrow(const std::string& line) {
  if (line == "unplug") {
    link_.unplug();
  } else if (line == "plug") {
    link_.plug();
  } else if (line == "quit") {
    ended_ = true;
  } else if (line.starts_with(kFault)) {
    Faults faults;
    addFaults(faults, std::string_view(line).substr(kFault.size()), kind_);
    link_.setFaults(faults);
  } else {
    throw UsageError("there is no control line \"" + printable(line) + "\"");
  }
}

}  // namespace vireon::simulator
