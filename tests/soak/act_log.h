#pragma once

#include <cstdint>
#include <deque>
#include <fstream>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace vireon::soak {

// What the user did and what went wrong, in order. Any thread may look; one writes.
class ActLog {
 public:
  // Every act goes to the file of this path at once, so that it is there after a crash.
  explicit ActLog(const std::string& path) : file_(path) {}

  void beginSession(int session, const std::string& text);
  // The next act of the session begins.
  void act(const std::string& text);
  // Something that happened to the window meanwhile.
  void note(const std::string& text);
  // Something that must not happen.
  void finding(const std::string& text);

  int session() const { return session_; }
  std::uint64_t actOfSession() const { return actOfSession_; }
  std::uint64_t acts() const { return acts_; }
  std::uint64_t findings() const { return findingCount_; }
  const std::vector<std::string>& firstFindings() const { return findings_; }
  // The act in progress, e.g. "2/341 click cmdVu_0".
  std::string latest() const;
  // The last acts, one a line.
  std::string tail() const;

  // Counts by kind for the report, e.g. "fault silence".
  void count(const std::string& kind) { ++counts_[kind]; }
  const std::map<std::string, std::uint64_t>& counts() const { return counts_; }

 private:
  void line(const std::string& text);

  mutable std::mutex mutex_;
  std::ofstream file_;
  std::deque<std::string> tail_;
  std::string latest_;
  std::vector<std::string> findings_;
  std::map<std::string, std::uint64_t> counts_;
  std::uint64_t acts_ = 0;
  std::uint64_t actOfSession_ = 0;
  std::uint64_t findingCount_ = 0;
  int session_ = 0;
};

}  // namespace vireon::soak
