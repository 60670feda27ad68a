#pragma once

#include <sys/types.h>

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireon::tests {

// A simulated instrument as a process of its own, under control. Every wait ends after kLimit.
class SimulatorProcess {
 public:
  static constexpr std::chrono::seconds kLimit{30};

  // Starts vireon-simulator with these arguments and --control. Throws std::runtime_error when it cannot.
  explicit SimulatorProcess(std::vector<std::string> arguments);
  SimulatorProcess(const SimulatorProcess&) = delete;
  SimulatorProcess& operator=(const SimulatorProcess&) = delete;
  // Kills the process if it still runs.
  ~SimulatorProcess();

  pid_t id() const { return id_; }

  // The next line that it says; nothing at the end of its output or of the limit.
  std::optional<std::string> nextLine();

  // Passes over lines until this one comes. False at the end of its output or of the limit.
  bool waitFor(std::string_view line);

  // Sends a control line and passes over lines until its "ok" (then the result is empty), or returns the
  // line "error ..." that came instead.
  std::string control(std::string_view line);

  void closeInput();
  void signal(int number) const;

  // Waits for its end and returns its exit status; -1 when a signal or this ended it.
  int waitForExit();

  // What it wrote to its standard error so far.
  const std::string& errors() const { return errors_; }

 private:
  bool readMore(std::chrono::steady_clock::time_point limit);
  void closeAll();

  pid_t id_ = -1;
  int input_ = -1;
  int output_ = -1;
  int error_ = -1;
  std::string said_;
  std::string errors_;
  std::optional<int> status_;
};

}  // namespace vireon::tests
