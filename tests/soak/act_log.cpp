#include "tests/soak/act_log.h"

#include <cstdio>

namespace vireon::soak {
namespace {

constexpr std::size_t kTail = 40;           // lines
constexpr std::size_t kMostFindings = 100;  // kept as texts

}  // namespace

void ActLog::beginSession(int session, const std::string& text) {
  session_ = session;
  actOfSession_ = 0;
  act("session: " + text);
}

void ActLog::act(const std::string& text) {
  ++acts_;
  ++actOfSession_;
  const std::string whole = std::to_string(session_) + "/" + std::to_string(actOfSession_) + " " + text;
  {
    const std::lock_guard lock(mutex_);
    latest_ = whole;
  }
  line(whole);
}

void ActLog::note(const std::string& text) {
  line("    " + text);
}

void ActLog::finding(const std::string& text) {
  const std::string whole = text + "  [" + latest() + "]";
  line("  ! " + whole);
  if (findings_.size() < kMostFindings) {
    findings_.push_back(whole);
    std::printf("FINDING: %s\n", whole.c_str());
    std::fflush(stdout);
  }
  ++findingCount_;
}

std::string ActLog::latest() const {
  const std::lock_guard lock(mutex_);
  return latest_;
}

std::string ActLog::tail() const {
  const std::lock_guard lock(mutex_);
  std::string text;
  for (const std::string& line : tail_) {
    text += line + "\n";
  }
  return text;
}

void ActLog::line(const std::string& text) {
  const std::lock_guard lock(mutex_);
  file_ << text << '\n' << std::flush;
  tail_.push_back(text);
  if (tail_.size() > kTail) {
    tail_.pop_front();
  }
}

}  // namespace vireon::soak
