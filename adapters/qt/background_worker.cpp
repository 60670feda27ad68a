#include "adapters/qt/background_worker.h"

#include <chrono>
#include <utility>

#include "adapters/qt/painting_turn.h"

namespace vireon::adapters {
namespace {

constexpr int kPatience = 10;  // milliseconds without painting

}  // namespace

BackgroundWorker::BackgroundWorker(ModalGate& gate) : gate_(gate), thread_([this] { serve(); }) {}

BackgroundWorker::~BackgroundWorker() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void BackgroundWorker::run(const std::function<void()>& job) {
  {
    const std::lock_guard lock(mutex_);
    job_ = &job;
  }
  changed_.notify_all();
  while (!doneWithin(kPatience)) {
    paintingTurn(gate_);
  }
  if (thrown_ != nullptr) {
    std::rethrow_exception(std::exchange(thrown_, nullptr));
  }
}

bool BackgroundWorker::doneWithin(int milliseconds) {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return job_ == nullptr; });
}

void BackgroundWorker::serve() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return job_ != nullptr || ending_; });
    if (ending_) {
      return;
    }
    const std::function<void()>& job = *job_;
    lock.unlock();
    try {
      job();
    } catch (...) {
      thrown_ = std::current_exception();
    }
    lock.lock();
    job_ = nullptr;
    changed_.notify_all();
  }
}

}  // namespace vireon::adapters
