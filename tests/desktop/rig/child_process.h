#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireon::tests {

// Another program, run for as long as this object lives; then it is asked to end, and made to if it does not.
class ChildProcess {
 public:
  // Throws std::runtime_error when the program cannot be started. Its standard output can be read here.
  explicit ChildProcess(std::vector<std::string> command);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess();

  // The next line that it says; nothing at the end of its output or after half a minute.
  std::optional<std::string> nextLine();

  // The rest of its output, to its end.
  std::string restOfOutput();

  // Waits for its end; -1 when a signal ended it.
  int exitStatus();

  bool running();

 private:
  bool readMore(int milliseconds);

  pid_t id_ = -1;
  int output_ = -1;
  std::string said_;
  std::optional<int> status_;
};

// What a program says that runs to its end; nothing when it fails.
std::optional<std::string> outputOf(const std::vector<std::string>& command);

// Every one of these programs is installed.
bool areInstalled(const std::vector<std::string>& programs);

}  // namespace vireon::tests
