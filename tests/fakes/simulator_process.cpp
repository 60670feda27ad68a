#include "tests/fakes/simulator_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <utility>

namespace vireon::tests {
namespace {

using Clock = std::chrono::steady_clock;

struct Pipe {
  Pipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    out = ends[0];
    in = ends[1];
  }
  int out = -1;
  int in = -1;
};

// Appends what can be read; closes at the end.
void take(int& descriptor, short events, std::string& text) {
  if (events == 0) return;
  std::array<char, 4096> part{};
  const ssize_t count = ::read(descriptor, part.data(), part.size());
  if (count > 0) text.append(part.data(), static_cast<std::size_t>(count));
  if (count == 0 || (count < 0 && errno != EINTR)) ::close(std::exchange(descriptor, -1));
}

}  // namespace

SimulatorProcess::SimulatorProcess(std::vector<std::string> arguments) {
  std::string program = VIREON_SIMULATOR_PROGRAM;
  std::string control = "--control";
  std::vector<char*> words{program.data(), control.data()};
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);

  // A socket, so that writing to a process that is gone is an error and no signal.
  std::array<int, 2> input{};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, input.data()) != 0)
    throw std::runtime_error("no socket");
  const Pipe output;
  const Pipe error;
  posix_spawn_file_actions_t actions{};
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, output.in, STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, error.in, STDERR_FILENO);
  const int failure = ::posix_spawn(&id_, words.front(), &actions, nullptr, words.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  for (const int end : {input[0], output.in, error.in}) ::close(end);
  input_ = input[1];
  output_ = output.out;
  error_ = error.out;
  if (failure == 0) return;
  closeAll();
  throw std::runtime_error("cannot start " + program);
}

SimulatorProcess::~SimulatorProcess() {
  if (!status_) {
    signal(SIGKILL);
    ::waitpid(id_, nullptr, 0);
  }
  closeAll();
}

void SimulatorProcess::closeAll() {
  for (int* const end : {&input_, &output_, &error_}) {
    if (*end >= 0) ::close(std::exchange(*end, -1));
  }
}

bool SimulatorProcess::readMore(Clock::time_point limit) {
  if (output_ < 0 && error_ < 0) return false;
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(limit - Clock::now());
  std::array<pollfd, 2> ends{{{output_, POLLIN, 0}, {error_, POLLIN, 0}}};
  if (left.count() <= 0 || ::poll(ends.data(), ends.size(), static_cast<int>(left.count())) == 0)
    return false;
  take(output_, ends[0].revents, said_);
  take(error_, ends[1].revents, errors_);
  return true;
}

std::optional<std::string> SimulatorProcess::nextLine() {
  const auto limit = Clock::now() + kLimit;
  std::size_t end = said_.find('\n');
  while (end == std::string::npos) {
    if (!readMore(limit)) return std::nullopt;
    end = said_.find('\n');
  }
  std::string line = said_.substr(0, end);
  said_.erase(0, end + 1);
  return line;
}

bool SimulatorProcess::waitFor(std::string_view line) {
  for (auto said = nextLine(); said; said = nextLine()) {
    if (*said == line) return true;
  }
  return false;
}

std::string SimulatorProcess::control(std::string_view line) {
  const std::string whole = std::string(line) + "\n";
  if (::send(input_, whole.data(), whole.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(whole.size()))
    return "error no input";
  for (auto said = nextLine(); said; said = nextLine()) {
    if (*said == "ok") return {};
    if (said->starts_with("error ")) return *said;
  }
  return "error no answer";
}

void SimulatorProcess::closeInput() {
  if (input_ >= 0) ::close(std::exchange(input_, -1));
}

void SimulatorProcess::signal(int number) const {
  ::kill(id_, number);
}

int SimulatorProcess::waitForExit() {
  if (status_) return *status_;
  const auto limit = Clock::now() + kLimit;
  while (readMore(limit)) {
  }
  if (output_ >= 0) signal(SIGKILL);
  int status = 0;
  ::waitpid(id_, &status, 0);
  status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return *status_;
}

}  // namespace vireon::tests
