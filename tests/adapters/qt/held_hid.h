#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include "platform/raw_hid.h"

namespace vireon::tests {

// Passes every call on to other HID nodes, but holds it up first as long as a test wants.
class HeldHid : public platform::RawHid {
 public:
  explicit HeldHid(platform::RawHid& hid) : hid_(hid) {}

  enum class Calls { kAll, kReads, kCloses };

  // From now on these calls are held up.
  void hold(Calls calls = Calls::kAll) {
    const std::lock_guard lock(mutex_);
    held_ = calls;
  }
  void release() {
    {
      const std::lock_guard lock(mutex_);
      held_.reset();
    }
    changed_.notify_all();
  }
  // Whether a call is being held up.
  bool holding() {
    const std::lock_guard lock(mutex_);
    return waiting_ > 0;
  }

  std::vector<platform::HidNode> list() override {
    pass(Calls::kAll);
    return hid_.list();
  }
  platform::HidOpenResult open(const platform::HidNode& node) override {
    pass(Calls::kAll);
    platform::HidOpenResult result = hid_.open(node);
    if (result.handle != nullptr) {
      result.handle = std::make_unique<Handle>(*this, std::move(result.handle));
    }
    return result;
  }

  std::vector<std::thread::id> callers;  // of every call, in order

 private:
  class Handle : public platform::HidHandle {
   public:
    Handle(HeldHid& hid, std::unique_ptr<platform::HidHandle> handle)
        : hid_(hid), handle_(std::move(handle)) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override { hid_.pass(Calls::kCloses); }

    platform::HidCapabilities capabilities() const override { return handle_->capabilities(); }
    platform::HidTransfer write(std::span<const std::uint8_t> report) override {
      hid_.pass(Calls::kAll);
      return handle_->write(report);
    }
    platform::HidTransfer read(std::span<std::uint8_t> report, std::chrono::milliseconds timeout) override {
      hid_.pass(Calls::kReads);
      return handle_->read(report, timeout);
    }
    void discardInput() override { handle_->discardInput(); }

   private:
    HeldHid& hid_;
    std::unique_ptr<platform::HidHandle> handle_;
  };

  void pass(Calls call) {
    std::unique_lock lock(mutex_);
    callers.push_back(std::this_thread::get_id());
    ++waiting_;
    changed_.wait(lock, [&] { return !held_ || (held_ != Calls::kAll && held_ != call); });
    --waiting_;
  }

  platform::RawHid& hid_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<Calls> held_;
  int waiting_ = 0;
};

}  // namespace vireon::tests
