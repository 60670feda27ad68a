#include "tests/desktop/rig/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <utility>

namespace vireon::tests {
namespace {

constexpr int kLimit = 30000;  // milliseconds
constexpr int kLook = 10;      // milliseconds between two looks at a process that is to end

}  // namespace

ChildProcess::ChildProcess(std::vector<std::string> command) {
  std::vector<char*> words;
  for (std::string& word : command) words.push_back(word.data());
  words.push_back(nullptr);
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  posix_spawn_file_actions_t actions{};
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  const int failure = ::posix_spawnp(&id_, words.front(), &actions, nullptr, words.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  output_ = ends[0];
  if (failure != 0) {
    ::close(output_);
    throw std::runtime_error("cannot start " + command.front());
  }
}

ChildProcess::~ChildProcess() {
  if (running()) {
    ::kill(id_, SIGTERM);
    for (int waited = 0; running(); waited += kLook) {
      if (waited == kLimit) ::kill(id_, SIGKILL);
      ::poll(nullptr, 0, kLook);
    }
  }
  ::close(output_);
}

bool ChildProcess::readMore(int milliseconds) {
  pollfd end{output_, POLLIN, 0};
  if (::poll(&end, 1, milliseconds) != 1) return false;
  std::array<char, 65536> part{};
  const ssize_t count = ::read(output_, part.data(), part.size());
  if (count <= 0) return count < 0 && errno == EINTR;
  said_.append(part.data(), static_cast<std::size_t>(count));
  return true;
}

std::optional<std::string> ChildProcess::nextLine() {
  while (said_.find('\n') == std::string::npos) {
    if (!readMore(kLimit)) return std::nullopt;
  }
  const std::size_t end = said_.find('\n');
  std::string line = said_.substr(0, end);
  said_.erase(0, end + 1);
  return line;
}

std::string ChildProcess::restOfOutput() {
  while (readMore(kLimit)) {
  }
  return std::exchange(said_, {});
}

int ChildProcess::exitStatus() {
  int status = 0;
  if (!status_ && ::waitpid(id_, &status, 0) == id_) status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return status_.value_or(-1);
}

bool ChildProcess::running() {
  int status = 0;
  if (!status_ && ::waitpid(id_, &status, WNOHANG) == id_) {
    status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  return !status_;
}

std::optional<std::string> outputOf(const std::vector<std::string>& command) {
  ChildProcess program(command);
  std::string output = program.restOfOutput();
  return program.exitStatus() == 0 ? std::optional(std::move(output)) : std::nullopt;
}

bool areInstalled(const std::vector<std::string>& programs) {
  const char* const path = std::getenv("PATH");
  std::string folders = std::string(path == nullptr ? "" : path) + ":/usr/sbin:/sbin";
  return std::all_of(programs.begin(), programs.end(), [&](const std::string& program) {
    std::string rest = folders;
    for (std::size_t end = 0; !rest.empty(); rest.erase(0, end == std::string::npos ? end : end + 1)) {
      end = rest.find(':');
      if (::access((std::filesystem::path(rest.substr(0, end)) / program).c_str(), X_OK) == 0) return true;
    }
    return false;
  });
}

}  // namespace vireon::tests
